#pragma once
// Tests on sixteen bytes at a time, for the scans of whole unit texts: a block that holds none
// of the characters looked for is passed over at once. Internal to the unit text work. With
// SSE2 (every x86-64 processor) a block is one register; elsewhere two 64-bit words.
#include <bit>
#include <cstdint>
#include <cstring>

#if defined(__SSE2__) || defined(_M_X64) || defined(_M_AMD64)
#define RAKEYARD_TEXT_SCAN_SSE2 1
#include <emmintrin.h>
#endif

namespace rakeyard::text_scan {

inline constexpr std::uint64_t kLanes16 = 0x0001000100010001ull;
inline constexpr std::uint64_t kLanes8 = 0x0101010101010101ull;

// Eight bytes from p, in the order of this machine.
inline std::uint64_t load8(const void* p) {
    std::uint64_t word;
    std::memcpy(&word, p, sizeof word);
    return word;
}

// The top bit of each 16-bit lane of the word that is c, and of no other lane.
inline std::uint64_t lanesEqual(std::uint64_t word, char16_t c) {
    constexpr std::uint64_t kLow15 = 0x7FFF * kLanes16;
    const std::uint64_t x = word ^ (kLanes16 * c);
    return ~(((x & kLow15) + kLow15) | x) & ~kLow15;
}

// Sixteen bytes: eight UTF-16 characters of a little-endian text. The masks hold one bit a
// byte, bit k for byte k, so a character k found sets bits 2k and 2k + 1.
#if RAKEYARD_TEXT_SCAN_SSE2
using Block = __m128i;
inline Block loadBlock(const void* p) {
    return _mm_loadu_si128(static_cast<const __m128i*>(p));
}
inline void storeBlock(void* p, Block b) {
    _mm_storeu_si128(static_cast<__m128i*>(p), b);
}
inline unsigned charsEqual(Block b, char16_t c) {
    return static_cast<unsigned>(
        _mm_movemask_epi8(_mm_cmpeq_epi16(b, _mm_set1_epi16(static_cast<short>(c)))));
}
inline unsigned bytesEqual(Block b, unsigned char c) {
    return static_cast<unsigned>(
        _mm_movemask_epi8(_mm_cmpeq_epi8(b, _mm_set1_epi8(static_cast<char>(c)))));
}
// The characters with these bits set, as (c | 0x20) folds an ASCII letter to lower case.
inline Block orChars(Block b, char16_t bits) {
    return _mm_or_si128(b, _mm_set1_epi16(static_cast<short>(bits)));
}
inline Block replaceChars(Block b, char16_t from, char16_t to) {
    const __m128i found = _mm_cmpeq_epi16(b, _mm_set1_epi16(static_cast<short>(from)));
    return _mm_xor_si128(b, _mm_and_si128(found, _mm_set1_epi16(static_cast<short>(from ^ to))));
}
// The ASCII letters a to z made capitals, every other character kept.
inline Block upperAsciiChars(Block b) {
    const __m128i fromA = _mm_sub_epi16(b, _mm_set1_epi16('a'));
    const __m128i letter = _mm_cmpeq_epi16(_mm_subs_epu16(fromA, _mm_set1_epi16(25)),
                                           _mm_setzero_si128());
    return _mm_sub_epi16(b, _mm_and_si128(letter, _mm_set1_epi16(0x20)));
}
#else
struct Block {
    std::uint64_t low, high;
};
inline Block loadBlock(const void* p) {
    return {load8(p), load8(static_cast<const char*>(p) + 8)};
}
inline void storeBlock(void* p, Block b) {
    std::memcpy(p, &b.low, 8);
    std::memcpy(static_cast<char*>(p) + 8, &b.high, 8);
}
inline unsigned charsEqual(Block b, char16_t c) {
    unsigned mask = 0;
    const std::uint64_t halves[2] = {lanesEqual(b.low, c), lanesEqual(b.high, c)};
    for (unsigned k = 0; k < 8; ++k) {
        if (halves[k / 4] >> (16 * (k % 4) + 15) & 1) mask |= 3u << (2 * k);
    }
    return mask;
}
inline unsigned bytesEqual(Block b, unsigned char c) {
    unsigned char bytes[16];
    storeBlock(bytes, b);
    unsigned mask = 0;
    for (unsigned k = 0; k < 16; ++k) {
        if (bytes[k] == c) mask |= 1u << k;
    }
    return mask;
}
inline Block orChars(Block b, char16_t bits) {
    return {b.low | kLanes16 * bits, b.high | kLanes16 * bits};
}
inline Block replaceChars(Block b, char16_t from, char16_t to) {
    const auto one = [&](std::uint64_t word) {
        return word ^ (lanesEqual(word, from) >> 15) * static_cast<char16_t>(from ^ to);
    };
    return {one(b.low), one(b.high)};
}
inline Block upperAsciiChars(Block b) {
    char16_t chars[8];
    storeBlock(chars, b);
    for (char16_t& c : chars) {
        if (c >= u'a' && c <= u'z') c = static_cast<char16_t>(c - 0x20);
    }
    return loadBlock(chars);
}
#endif

// The character of a mask's lowest set bit.
inline unsigned firstChar(unsigned mask) {
    return static_cast<unsigned>(std::countr_zero(mask)) / 2;
}

}  // namespace rakeyard::text_scan
