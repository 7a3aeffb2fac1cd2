#include "core/settings/shell_helpers.h"

namespace rakeyard {

namespace {

// The character of the UTF-8 sequence at text[i] and its length in bytes; length 0 when the
// bytes there are no well-formed sequence.
std::pair<char32_t, std::size_t> utf8CharacterAt(std::string_view text, std::size_t i) {
    const auto byte = [&](std::size_t k) { return static_cast<unsigned char>(text[k]); };
    const unsigned char lead = byte(i);
    std::size_t length = 0;
    char32_t c = 0;
    char32_t least = 0;
    if (lead >= 0xC2 && lead <= 0xDF) {
        length = 2, c = lead & 0x1F, least = 0x80;
    } else if (lead >= 0xE0 && lead <= 0xEF) {
        length = 3, c = lead & 0x0F, least = 0x800;
    } else if (lead >= 0xF0 && lead <= 0xF4) {
        length = 4, c = lead & 0x07, least = 0x10000;
    } else {
        return {0, 0};
    }
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
