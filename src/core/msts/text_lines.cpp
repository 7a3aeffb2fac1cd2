#include "core/msts/text_lines.h"

#include <bit>
#include <cstring>

static_assert(std::endian::native == std::endian::little,
              "MSTS text is read as little-endian UTF-16 in place");

namespace rakeyard {

std::size_t TextLines::firstLineLength() const {
    const std::size_t text = lines.empty() ? 0 : lines.front().size();
    return text + (hasMark ? 2 : 0);
}

bool decodeLineText(std::string_view bytes, std::u16string& text) {
    const bool hasMark = bytes.size() >= 2 && bytes[0] == '\xFF' && bytes[1] == '\xFE';
    text.clear();
    if (hasMark) {
        // Little-endian pairs of bytes, as the machines the program runs on hold char16_t; an
        // odd last byte is a character of its own.
        const std::size_t whole = (bytes.size() - 2) / 2;
        text.resize((bytes.size() - 1) / 2);
        std::memcpy(text.data(), bytes.data() + 2, whole * 2);
        if (text.size() > whole) text[whole] = static_cast<unsigned char>(bytes.back());
    } else {
        text.reserve(bytes.size());
        for (char c : bytes)
            if (c != '\0') text += static_cast<char16_t>(static_cast<unsigned char>(c));
    }
    return hasMark;
}

std::size_t nextLineEnd(std::u16string_view text, std::size_t from) {
    return nextLineEnd(reinterpret_cast<const char*>(text.data()), text.size(), from);
}

std::size_t nextLineEnd(const char* utf16, std::size_t units, std::size_t from) {
    const std::size_t size = units * 2;
    for (std::size_t at = from * 2; at < size;) {
        const void* found = std::memchr(utf16 + at, '\r', size - at);
        if (!found) break;
        const std::size_t byte = static_cast<std::size_t>(static_cast<const char*>(found) - utf16);
        // A CR character is the byte 0D at the low, even place of a unit whose high byte is 0;
        // elsewhere 0D is part of another character.
        if (byte % 2 == 0 && utf16[byte + 1] == 0) return byte / 2;
        at = byte + 1;
    }
    return units;
}

bool forEachTextLine(std::string_view bytes, std::u16string& text,
                     const std::function<bool(std::u16string_view)>& line) {
    const bool hasMark = decodeLineText(bytes, text);
    const std::u16string_view all(text);
    std::size_t start = 0;
    while (start < all.size()) {
        const std::size_t end = nextLineEnd(all, start);
        if (!line(all.substr(start, end - start))) return hasMark;
        start = end + 1;
        if (start < all.size() && all[start] == u'\n' && end < all.size()) ++start;
    }
    return hasMark;
}

TextLines textLines(std::string_view bytes) {
    TextLines result;
    std::u16string text;
    result.hasMark = forEachTextLine(bytes, text, [&](std::u16string_view line) {
        result.lines.emplace_back(line);
        return true;
    });
    return result;
}

}  // namespace rakeyard
