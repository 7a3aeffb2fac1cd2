#include "core/msts/msts_lines.h"

#include "core/platform/text_utf.h"

namespace rakeyard {

namespace {

constexpr std::size_t kCommentReach = 11;  // characters in which "COMMENT" makes a comment line

std::u16string decodeLinesText(std::string_view bytes) {
    if (bytes.size() >= 2 && bytes[0] == '\xFF' && bytes[1] == '\xFE') {
        std::u16string text;
        text.reserve(bytes.size() / 2);
        for (std::size_t i = 2; i + 1 < bytes.size(); i += 2)
            text += static_cast<char16_t>(static_cast<unsigned char>(bytes[i]) |
                                          static_cast<unsigned char>(bytes[i + 1]) << 8);
        return text;
    }
    std::string withoutZeros;
    withoutZeros.reserve(bytes.size());
    for (char c : bytes)
        if (c != '\0') withoutZeros += c;
    return fromWindows1252(withoutZeros);
}

char16_t upperLetter(char16_t c) {
    return (c >= u'a' && c <= u'z') ? static_cast<char16_t>(c - u'a' + u'A') : c;
}

// The position of an upper-case ASCII word in the line, in any letter case; npos if absent.
std::size_t findUpper(std::u16string_view line, std::u16string_view word) {
    if (word.size() > line.size()) return std::u16string_view::npos;
    for (std::size_t i = 0; i + word.size() <= line.size(); ++i) {
        std::size_t k = 0;
        while (k < word.size() && upperLetter(line[i + k]) == word[k])
            ++k;
        if (k == word.size()) return i;
    }
    return std::u16string_view::npos;
}

}  // namespace

std::vector<std::u16string> readTextLines(std::string_view bytes) {
    const std::u16string text = decodeLinesText(bytes);
    std::vector<std::u16string> lines;
    std::size_t begin = 0;
    while (begin < text.size()) {
        const std::size_t cr = text.find(u'\r', begin);
        if (cr == std::u16string::npos) {
            lines.push_back(text.substr(begin));
            break;
        }
        lines.push_back(text.substr(begin, cr - begin));
        begin = cr + 1;
        if (begin < text.size() && text[begin] == u'\n') ++begin;
    }
    return lines;
}

std::string writeTextLines(const std::vector<std::u16string>& lines) {
    std::string bytes = "\xFF\xFE";
    for (const std::u16string& line : lines) {
        for (char16_t c : line) {
            bytes += static_cast<char>(c & 0xFF);
            bytes += static_cast<char>(c >> 8);
        }
        bytes.append("\r\0\n\0", 4);
    }
    return bytes;
}

LineParts splitCommentTail(std::u16string_view line) {
    const std::size_t comment = findUpper(line, u"COMMENT");
    if (comment == std::u16string_view::npos) return {line, {}, false};
    if (comment + 7 <= kCommentReach) return {line, {}, true};
    // The character before the word (the blank or "(" of "# comment", "( comment") goes too.
    return {line.substr(0, comment - 1), line.substr(comment - 1), false};
}

bool firstWordIs(std::u16string_view line, std::u16string_view word) {
    std::size_t i = 0;
    while (i < line.size() && (line[i] == u' ' || line[i] == u'\t'))
        ++i;
    if (line.size() - i < word.size()) return false;
    for (std::size_t k = 0; k < word.size(); ++k)
        if (upperLetter(line[i + k]) != word[k]) return false;
    const std::size_t end = i + word.size();
    return end == line.size() || line[end] == u' ' || line[end] == u'\t' || line[end] == u'(';
}

}  // namespace rakeyard
