#pragma once
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace rakeyard {

// Searches and cuts on a line of a file under test, as the tests count: positions from 1, 0 for
// not found, and a cut that can't be made (a negative length) leaves its target as it was.
using Line = std::u16string;

[[nodiscard]] std::size_t firstOf(std::u16string_view line, std::u16string_view what);
[[nodiscard]] std::size_t lastOf(std::u16string_view line, std::u16string_view what);
// count characters from the 1-based start; nothing for a negative count or start 0.
[[nodiscard]] std::optional<Line> cut(std::u16string_view line, std::size_t start,
                                      long long count);
// All from the 1-based start on.
[[nodiscard]] Line cutFrom(std::u16string_view line, std::size_t start);
[[nodiscard]] bool contains(std::u16string_view line, std::u16string_view what);
// Whether what stands whole within the first n characters.
[[nodiscard]] bool inFirst(std::u16string_view line, std::size_t n, std::u16string_view what);
[[nodiscard]] Line replaced(std::u16string_view line, char16_t from, char16_t to);
[[nodiscard]] Line trimmed(std::u16string_view line);  // blanks only, never TAB, CR or LF

// The close of a value: a line feed at or before it moves it to the last ")" before that feed.
[[nodiscard]] std::size_t closeBeforeLineFeed(std::u16string_view line, std::size_t close);

// A line's search key: ASCII letters upper-cased, every character beyond ASCII the byte 0x80,
// which no word sought holds. Positions are the line's. Searches in 8 bits run at memchr's
// speed, and a run of thousands of engines does a dozen of them on every line.
// Returns the letters the line holds, a bit each ('A' bit 0): a word whose letters are not all
// there needs no search.
std::uint32_t searchKey(std::u16string_view line, std::string& key);
// The same from UTF-16 LE bytes not decoded (units characters), and their decoding.
std::uint32_t searchKey(const char* utf16, std::size_t units, std::string& key);
void decodeUnits(const char* utf16, std::size_t units, Line& line);
[[nodiscard]] constexpr std::uint32_t lettersOf(std::string_view word) {
    std::uint32_t letters = 0;
    for (char c : word)
        if (c >= 'A' && c <= 'Z') letters |= 1u << (c - 'A');
    return letters;
}
[[nodiscard]] std::size_t firstOf(std::string_view key, std::string_view word);
[[nodiscard]] std::size_t lastOf(std::string_view key, std::string_view word);
[[nodiscard]] bool contains(std::string_view key, std::string_view word);
[[nodiscard]] bool inFirst(std::string_view key, std::size_t n, std::string_view word);

// A line as a finding shows it: TABs as blanks, trimmed.
[[nodiscard]] Line shownLine(std::u16string_view line);

}  // namespace rakeyard
