#include "core/tools/unit_description.h"

#include <array>
#include <vector>

#include "core/msts/msts_lines.h"
#include "core/platform/text_utf.h"

namespace rakeyard {

namespace {

constexpr std::string_view kCrLf = "\r\n";

bool isLineEnd(char16_t c) {
    return c == u'\r' || c == u'\n';
}

bool isBlank(char16_t c) {
    return c == u' ' || c == u'\t';
}

// The text's delimited items in order, as a reader of comma-separated records takes them.
std::vector<std::u16string_view> delimitedItems(std::u16string_view text) {
    std::vector<std::u16string_view> items;
    std::size_t i = 0;
    while (i < text.size()) {
        while (i < text.size() && isBlank(text[i]))
            ++i;
        if (i >= text.size()) break;
        std::u16string_view item;
        std::size_t next;
        if (text[i] == u'"') {
            const std::size_t close = text.find(u'"', i + 1);
            const std::size_t end = close == std::u16string_view::npos ? text.size() : close;
            item = text.substr(i + 1, end - i - 1);
            next = end + 1;
            while (next < text.size() && text[next] != u',' && !isLineEnd(text[next]))
                ++next;  // what follows the closing quote is dropped
        } else {
            next = i;
            while (next < text.size() && text[next] != u',' && !isLineEnd(text[next]))
                ++next;
            std::size_t end = next;
            while (end > i && isBlank(text[end - 1]))
                --end;
            item = text.substr(i, end - i);
        }
        items.push_back(item);
        // A line end of CR LF is one end: no empty item between them.
        if (next < text.size() && text[next] == u'\r' && next + 1 < text.size() &&
            text[next + 1] == u'\n')
            ++next;
        i = next + 1;
    }
    return items;
}

std::u16string decoded(std::string_view bytes) {
    std::u16string text;
    for (const std::u16string& line : readTextLines(bytes)) {
        text += line;
        text += u"\r\n";
    }
    return text;
}

bool endsWith(std::u16string_view text, std::u16string_view end) {
    return text.size() >= end.size() && text.substr(text.size() - end.size()) == end;
}

std::string trimmed(std::u16string text) {
    for (char16_t& c : text)
        if (c == u'\t') c = u' ';
    return toUtf8(trimBlanks(text));
}

// A "//*" comment shown: its parentheses and the marks turned into blanks.
std::string shownComment(std::u16string line) {
    for (std::size_t at = line.find(u"//*"); at != std::u16string::npos; at = line.find(u"//*"))
        line.replace(at, 3, u"   ");
    for (char16_t& c : line)
        if (c == u'(' || c == u')') c = u' ';
    return trimmed(line);
}

struct FigureWord {
    std::u16string_view word;
    std::string_view label;
};
constexpr std::array<FigureWord, 8> kFigureWords = {{{u"Type (", "Type"},
                                                     {u"Size (", "Size"},
                                                     {u"Size  (", "Size"},
                                                     {u"Mass (", "Mass"},
                                                     {u"MaxPower", "MaxPower"},
                                                     {u"MaxForce", "MaxForce"},
                                                     {u"MaxContinuousForce", "MaxContinuousForce"},
                                                     {u"MaxCurrent", "MaxCurrent"}}};

bool holdsWord(std::u16string_view line, std::u16string_view word) {
    for (std::size_t at = line.find(word); at != std::u16string_view::npos;
         at = line.find(word, at + 1))
        if (at > 0 && isBlank(line[at - 1])) return true;
    return false;
}

void addFigure(std::u16string_view line, std::string& text) {
    for (const FigureWord& figure : kFigureWords) {
        if (!holdsWord(line, figure.word)) continue;
        const std::size_t open = line.find(u'(');
        const std::size_t close = line.rfind(u')');
        if (open == std::u16string_view::npos || close == std::u16string_view::npos || close < open)
            return;
        text += std::string(figure.label) + ": " +
                trimmed(std::u16string(line.substr(open + 1, close - open - 1))) +
                std::string(kCrLf);
        return;
    }
}

}  // namespace

bool getDescription(std::string_view bytes, std::string& text) {
    bool found = false;
    bool on = false;
    const std::u16string whole = decoded(bytes);  // the items are views into it
    for (std::u16string_view item : delimitedItems(whole)) {
        if (item.find(u"EngineOperatingProcedures") != std::u16string_view::npos) {
            on = false;
        } else if (item.find(u"Description (") != std::u16string_view::npos) {
            on = found = true;
            text.clear();
        } else if (on && !item.empty() && item != u"+" && item != u")") {
            if (endsWith(item, u"\\n\\n"))
                text += toUtf8(item.substr(0, item.size() - 4)) + std::string(kCrLf);
            else if (endsWith(item, u"\\n"))
                text += toUtf8(item.substr(0, item.size() - 2)) + std::string(kCrLf);
            else
                text += toUtf8(item);
        }
    }
    if (found) text += std::string(kCrLf) + std::string(33, '*') + std::string(kCrLf);
    return found;
}

void getInfo(std::string_view bytes, std::string& text) {
    if (!text.empty() && !text.ends_with(kCrLf)) text += kCrLf;
    for (std::u16string line : readTextLines(bytes)) {
        const std::size_t comment = upperAscii(line).find(u"COMMENT");
        if (comment != std::u16string::npos) {
            if (line.find(u"//*") != std::u16string::npos) {
                text += shownComment(line) + std::string(kCrLf);
                continue;
            }
            line.resize(comment);
        }
        addFigure(line, text);
    }
}

std::string describeUnitFile(const std::string& path, Services& services) {
    std::string text(kNoDescription);
    const std::optional<std::string> bytes = services.fs.readFile(path);
    if (!bytes) {
        services.dialogs.report(
            "There has been an error in the file " + path + "\nThe file could not be read.",
            Icon::Stop);
        return text;
    }
    (void)getDescription(*bytes, text);
    getInfo(*bytes, text);
    return text;
}

}  // namespace rakeyard
