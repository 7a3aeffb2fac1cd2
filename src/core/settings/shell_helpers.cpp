#include "core/settings/shell_helpers.h"

#include <utility>

namespace rakeyard {

namespace {

// The character of the UTF-8 sequence at text[i] and its length in bytes; length 0 when the
// bytes there are no well-formed sequence.
std::pair<char32_t, std::size_t> utf8CharacterAt(std::string_view text, std::size_t i) {
    const auto byte = [&](std::size_t k) { return static_cast<unsigned char>(text[k]); };
    const unsigned char lead = byte(i);
    // Lead bytes C0, C1 and F5 to FF begin no well-formed sequence.
    const std::size_t length = lead >= 0xC2 && lead <= 0xDF   ? 2
                               : lead >= 0xE0 && lead <= 0xEF ? 3
                               : lead >= 0xF0 && lead <= 0xF4 ? 4
                                                              : 0;
    if (length == 0) return {0, 0};
    constexpr char32_t kLeast[] = {0, 0, 0x80, 0x800, 0x10000};
    char32_t c = lead & (0x7F >> length);
    const char32_t least = kLeast[length];
    if (i + length > text.size()) return {0, 0};
    for (std::size_t k = 1; k < length; ++k) {
        if ((byte(i + k) & 0xC0) != 0x80) return {0, 0};
        c = (c << 6) | (byte(i + k) & 0x3F);
    }
    if (c < least || c > 0x10FFFF || (c >= 0xD800 && c <= 0xDFFF)) return {0, 0};
    return {c, length};
}

void appendUnit(std::string& out, char32_t unit) {
    out += static_cast<char>(unit & 0xFF);
    out += static_cast<char>((unit >> 8) & 0xFF);
}

}  // namespace

void recycleFile(Desktop& desktop, const std::string& path) {
    (void)desktop.moveToTrash(path);
}

std::string toWideBytes(std::string_view text) {
    std::string out;
    out.reserve(text.size() * 2);
    for (std::size_t i = 0; i < text.size();) {
        auto [c, length] = utf8CharacterAt(text, i);
        if (length == 0) {
            c = static_cast<unsigned char>(text[i]);
            length = 1;
        }
        i += length;
        if (c >= 0x10000) {
            appendUnit(out, 0xD800 + ((c - 0x10000) >> 10));
            appendUnit(out, 0xDC00 + ((c - 0x10000) & 0x3FF));
        } else {
            appendUnit(out, c);
        }
    }
    return out;
}

}  // namespace rakeyard
