#include "core/tester/line_text.h"

#include "core/platform/text_utf.h"

#include <cstring>

namespace rakeyard {

namespace {

// Positions from 1, 0 for none, in a line or in its search key alike.
template <typename Text>
std::size_t firstIn(Text text, Text what) {
    const std::size_t at = text.find(what);
    return at == Text::npos ? 0 : at + 1;
}

template <typename Text>
std::size_t lastIn(Text text, Text what) {
    const std::size_t at = text.rfind(what);
    return at == Text::npos ? 0 : at + 1;
}

}  // namespace

std::size_t firstOf(std::u16string_view line, std::u16string_view what) {
    return firstIn(line, what);
}

std::size_t lastOf(std::u16string_view line, std::u16string_view what) {
    return lastIn(line, what);
}

std::optional<Line> cut(std::u16string_view line, std::size_t start, long long count) {
    if (start == 0 || count < 0) return std::nullopt;
    if (start > line.size()) return Line();
    return Line(line.substr(start - 1, static_cast<std::size_t>(count)));
}

Line cutFrom(std::u16string_view line, std::size_t start) {
    if (start == 0) start = 1;
    return start > line.size() ? Line() : Line(line.substr(start - 1));
}

bool contains(std::u16string_view line, std::u16string_view what) {
    return firstIn(line, what) != 0;
}

bool inFirst(std::u16string_view line, std::size_t n, std::u16string_view what) {
    return firstIn(line.substr(0, n), what) != 0;
}

Line replaced(std::u16string_view line, char16_t from, char16_t to) {
    Line result(line);
    for (char16_t& c : result)
        if (c == from) c = to;
    return result;
}

Line trimmed(std::u16string_view line) {
    return trimBlanks(line);
}

std::size_t closeBeforeLineFeed(std::u16string_view line, std::size_t close) {
    const std::size_t feed = firstOf(line, u"\n");
    if (feed == 0 || feed > close) return close;
    return lastOf(line.substr(0, feed - 1), u")");
}

namespace {

// Each ASCII character's key and its letter's bit.
struct KeyTable {
    char key[128];
    std::uint32_t letter[128];
    constexpr KeyTable() : key(), letter() {
        for (int c = 0; c < 128; ++c) {
            const int upper = c >= 'a' && c <= 'z' ? c - 32 : c;
            key[c] = static_cast<char>(upper);
            letter[c] = upper >= 'A' && upper <= 'Z' ? 1u << (upper - 'A') : 0u;
        }
    }
};
constexpr KeyTable kKeys;

}  // namespace

std::uint32_t searchKey(std::u16string_view line, std::string& key) {
    key.resize(line.size());
    char* out = key.data();
    std::uint32_t letters = 0;
    for (std::size_t i = 0; i < line.size(); ++i) {
        const char16_t c = line[i];
        if (c < 128) {
            out[i] = kKeys.key[c];
            letters |= kKeys.letter[c];
        } else {
            out[i] = '\x80';
        }
    }
    return letters;
}

std::uint32_t searchKey(const char* utf16, std::size_t units, std::string& key) {
    key.resize(units);
    char* out = key.data();
    const auto* bytes = reinterpret_cast<const unsigned char*>(utf16);
    std::uint32_t letters = 0;
    for (std::size_t i = 0; i < units; ++i) {
        const unsigned low = bytes[2 * i];
        if (bytes[2 * i + 1] == 0 && low < 128) {
            out[i] = kKeys.key[low];
            letters |= kKeys.letter[low];
        } else {
            out[i] = '\x80';
        }
    }
    return letters;
}

void decodeUnits(const char* utf16, std::size_t units, Line& line) {
    line.resize(units);
    std::memcpy(line.data(), utf16, units * 2);
}

std::size_t firstOf(std::string_view key, std::string_view word) {
    return firstIn(key, word);
}

std::size_t lastOf(std::string_view key, std::string_view word) {
    return lastIn(key, word);
}

bool contains(std::string_view key, std::string_view word) {
    return firstIn(key, word) != 0;
}

bool inFirst(std::string_view key, std::size_t n, std::string_view word) {
    return firstIn(key.substr(0, n), word) != 0;
}

Line shownLine(std::u16string_view line) {
    return trimmed(replaced(line, u'\t', u' '));
}

}  // namespace rakeyard
