#include "core/msts/text_lines.h"

namespace rakeyard {

std::size_t TextLines::firstLineLength() const {
    const std::size_t text = lines.empty() ? 0 : lines.front().size();
    return text + (hasMark ? 2 : 0);
}

TextLines textLines(std::string_view bytes) {
    TextLines result;
    std::u16string text;
    result.hasMark = bytes.size() >= 2 && bytes[0] == '\xFF' && bytes[1] == '\xFE';
    if (result.hasMark) {
        text.reserve(bytes.size() / 2);
        for (std::size_t i = 2; i < bytes.size(); i += 2) {
            const auto low = static_cast<unsigned char>(bytes[i]);
            const auto high = i + 1 < bytes.size() ? static_cast<unsigned char>(bytes[i + 1]) : 0;
            text += static_cast<char16_t>(low | (high << 8));
        }
    } else {
        text.reserve(bytes.size());
        for (char c : bytes) {
            if (c != '\0') text += static_cast<char16_t>(static_cast<unsigned char>(c));
        }
    }
    std::size_t start = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != u'\r') continue;
        result.lines.push_back(text.substr(start, i - start));
        if (i + 1 < text.size() && text[i + 1] == u'\n') ++i;
        start = i + 1;
    }
    if (start < text.size()) result.lines.push_back(text.substr(start));
    return result;
}

}  // namespace rakeyard
