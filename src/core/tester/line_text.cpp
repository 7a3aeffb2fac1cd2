#include "core/tester/line_text.h"

#include "core/platform/text_utf.h"

namespace rakeyard {

std::size_t firstOf(std::u16string_view line, std::u16string_view what) {
    const std::size_t at = line.find(what);
    return at == std::u16string_view::npos ? 0 : at + 1;
}

std::size_t lastOf(std::u16string_view line, std::u16string_view what) {
    const std::size_t at = line.rfind(what);
    return at == std::u16string_view::npos ? 0 : at + 1;
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
    return line.find(what) != std::u16string_view::npos;
}

bool inFirst(std::u16string_view line, std::size_t n, std::u16string_view what) {
    return line.substr(0, n).find(what) != std::u16string_view::npos;
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

Line shownLine(std::u16string_view line) {
    return trimmed(replaced(line, u'\t', u' '));
}

}  // namespace rakeyard
