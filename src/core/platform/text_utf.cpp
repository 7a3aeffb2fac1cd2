#include "core/platform/text_utf.h"

namespace rakeyard {

namespace {

constexpr char32_t kReplacement = 0xFFFD;

void appendUtf8(std::string& out, char32_t c) {
    if (c < 0x80) {
        out += static_cast<char>(c);
    } else if (c < 0x800) {
        out += static_cast<char>(0xC0 | (c >> 6));
        out += static_cast<char>(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        out += static_cast<char>(0xE0 | (c >> 12));
        out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (c & 0x3F));
    } else {
        out += static_cast<char>(0xF0 | (c >> 18));
        out += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
        out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (c & 0x3F));
    }
}

// Decodes one character at text[i], moving i past it; U+FFFD for a byte that begins no
// well-formed character.
char32_t nextUtf8(std::string_view text, std::size_t& i) {
    const Utf8Character found = utf8CharacterAt(text, i);
    i += found.length == 0 ? 1 : found.length;
    return found.length == 0 ? kReplacement : found.character;
}

template <typename Char>
std::basic_string<Char> trimBlanksOf(std::basic_string_view<Char> text) {
    std::size_t begin = 0;
    std::size_t end = text.size();
    while (begin < end && text[begin] == Char(' '))
        ++begin;
    while (end > begin && text[end - 1] == Char(' '))
        --end;
    return std::basic_string<Char>(text.substr(begin, end - begin));
}

}  // namespace

Utf8Character utf8CharacterAt(std::string_view text, std::size_t i) {
    const auto byte = [&](std::size_t k) { return static_cast<unsigned char>(text[k]); };
    const unsigned char lead = byte(i);
    if (lead < 0x80) return {lead, 1};
    // Lead bytes C0, C1 and F5 to FF begin no well-formed sequence.
    const std::size_t length = lead >= 0xC2 && lead <= 0xDF   ? 2
                               : lead >= 0xE0 && lead <= 0xEF ? 3
                               : lead >= 0xF0 && lead <= 0xF4 ? 4
                                                              : 0;
    if (length == 0 || i + length > text.size()) return {};
    constexpr char32_t kLeast[] = {0, 0, 0x80, 0x800, 0x10000};
    char32_t c = lead & (0x7F >> length);
    for (std::size_t k = 1; k < length; ++k) {
        if ((byte(i + k) & 0xC0) != 0x80) return {};
        c = (c << 6) | (byte(i + k) & 0x3F);
    }
    if (c < kLeast[length] || c > 0x10FFFF || (c >= 0xD800 && c <= 0xDFFF)) return {};
    return {c, length};
}

std::string toUtf8(std::u16string_view text) {
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t c = text[i];
        if (c < 0x80) {
            out += static_cast<char>(c);
        } else if (c >= 0xD800 && c <= 0xDBFF && i + 1 < text.size() && text[i + 1] >= 0xDC00 &&
                   text[i + 1] <= 0xDFFF) {
            appendUtf8(out, 0x10000 + ((char32_t(c) - 0xD800) << 10) + (text[i + 1] - 0xDC00));
            ++i;
        } else if (c >= 0xD800 && c <= 0xDFFF) {
            appendUtf8(out, kReplacement);
        } else {
            appendUtf8(out, c);
        }
    }
    return out;
}

std::u16string toUtf16(std::string_view text) {
    std::u16string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size();) {
        const char32_t c = nextUtf8(text, i);
        if (c >= 0x10000) {
            out += static_cast<char16_t>(0xD800 + ((c - 0x10000) >> 10));
            out += static_cast<char16_t>(0xDC00 + ((c - 0x10000) & 0x3FF));
        } else {
            out += static_cast<char16_t>(c);
        }
    }
    return out;
}

std::u16string fromWindows1252(std::string_view bytes) {
    // 0x80..0x9F; 0 marks the bytes the code page leaves undefined.
    static constexpr char16_t kHighControls[32] = {
        0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
        0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
        0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};
    std::u16string text;
    text.reserve(bytes.size());
    for (char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        const char16_t mapped = byte >= 0x80 && byte <= 0x9F ? kHighControls[byte - 0x80] : 0;
        text += mapped != 0 ? mapped : static_cast<char16_t>(byte);
    }
    return text;
}

std::size_t utf8Length(std::string_view text) {
    std::size_t count = 0;
    for (char c : text) {
        if ((static_cast<unsigned char>(c) & 0xC0) != 0x80) ++count;
    }
    return count;
}

std::string utf8Left(std::string_view text, std::size_t count) {
    std::size_t seen = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if ((static_cast<unsigned char>(text[i]) & 0xC0) != 0x80) {
            if (seen == count) return std::string(text.substr(0, i));
            ++seen;
        }
    }
    return std::string(text);
}

std::string upperAscii(std::string_view text) {
    std::string out(text);
    for (char& c : out) {
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    }
    return out;
}

std::u16string upperAscii(std::u16string_view text) {
    std::u16string out(text);
    for (char16_t& c : out) {
        if (c >= u'a' && c <= u'z') c = static_cast<char16_t>(c - u'a' + u'A');
    }
    return out;
}

std::string trimBlanks(std::string_view text) {
    return trimBlanksOf(text);
}
std::u16string trimBlanks(std::u16string_view text) {
    return trimBlanksOf(text);
}

}  // namespace rakeyard

namespace rakeyard {

void upperAscii(std::u16string_view text, std::u16string& out) {
    out.resize(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t c = text[i];
        out[i] = c >= u'a' && c <= u'z' ? static_cast<char16_t>(c - u'a' + u'A') : c;
    }
}

}  // namespace rakeyard
