#include "core/settings/shell_helpers.h"

#include "core/platform/text_utf.h"

namespace rakeyard {

namespace {

void appendUnit(std::string& out, char32_t unit) {
    out += static_cast<char>(unit & 0xFF);
    out += static_cast<char>((unit >> 8) & 0xFF);
}

}  // namespace

std::string toWideBytes(std::string_view text) {
    std::string out;
    out.reserve(text.size() * 2);
    for (std::size_t i = 0; i < text.size();) {
        auto [c, length] = utf8CharacterAt(text, i);  // a stray byte is its Latin-1 letter
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
