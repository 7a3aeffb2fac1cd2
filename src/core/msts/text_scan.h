#pragma once
// Tests on eight bytes at a time, for the scans of whole unit texts: a word that holds none of
// the characters looked for is passed over at once. Internal to the unit text work.
#include <cstdint>
#include <cstring>

namespace rakeyard::text_scan {

inline constexpr std::uint64_t kLanes16 = 0x0001000100010001ull;
inline constexpr std::uint64_t kLanes8 = 0x0101010101010101ull;

// Eight bytes from p, in the order of this machine.
inline std::uint64_t load8(const void* p) {
    std::uint64_t word;
    std::memcpy(&word, p, sizeof word);
    return word;
}

// True when some byte of the word is b.
inline bool hasByte(std::uint64_t word, unsigned char b) {
    const std::uint64_t x = word ^ (kLanes8 * b);
    return ((x - kLanes8) & ~x & (kLanes8 << 7)) != 0;
}

// The top bit of each 16-bit lane of the word that is c, and of no other lane.
inline std::uint64_t lanesEqual(std::uint64_t word, char16_t c) {
    constexpr std::uint64_t kLow15 = 0x7FFF * kLanes16;
    const std::uint64_t x = word ^ (kLanes16 * c);
    return ~(((x & kLow15) + kLow15) | x) & ~kLow15;
}

}  // namespace rakeyard::text_scan
