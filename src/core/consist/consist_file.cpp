#include "core/consist/consist_file.h"

#include <algorithm>
#include <optional>

#include "core/msts/msts_text.h"
#include "core/platform/text_utf.h"

namespace rakeyard {

namespace {

constexpr std::size_t kUnicodeFirstLine = 32;  // the mark's two characters and the header's 30
constexpr std::string_view kSimisLine = "SIMISA@@@@@@@@@@JINX0D0t______";

std::u16string_view trimmed(std::u16string_view line) {
    const std::size_t first = line.find_first_not_of(u" \t");
    if (first == std::u16string_view::npos) return {};
    const std::size_t last = line.find_last_not_of(u" \t");
    return line.substr(first, last - first + 1);
}

// The text of "Key ( text )" inside the parentheses, trimmed; nullopt without both.
std::optional<std::string> valueOf(std::u16string_view line) {
    const std::size_t open = line.find(u'(');
    const std::size_t close = line.rfind(u')');
    if (open == std::u16string_view::npos || close == std::u16string_view::npos || close < open)
        return std::nullopt;
    return toUtf8(trimmed(line.substr(open + 1, close - open - 1)));
}

// The blank-separated words of a text, a word in double quotes kept whole.
std::vector<ConsistWord> wordsOf(std::string_view text) {
    std::vector<ConsistWord> words;
    std::size_t i = 0;
    while (i < text.size()) {
        if (text[i] == ' ' || text[i] == '\t') {
            ++i;
        } else if (text[i] == '"') {
            const std::size_t close = text.find('"', i + 1);
            const std::size_t end = close == std::string_view::npos ? text.size() : close;
            words.push_back({std::string(text.substr(i + 1, end - i - 1)), true});
            i = end + 1;
        } else {
            const std::size_t end = std::min(text.find_first_of(" \t", i), text.size());
            words.push_back({std::string(text.substr(i, end - i)), false});
            i = end;
        }
    }
    return words;
}

// The word behind "TrainCfg (": quoted, or the rest of the line.
ConsistWord trainCfgWord(std::u16string_view line) {
    const std::string rest = toUtf8(trimmed(line.substr(line.find(u'(') + 1)));
    if (rest.size() >= 2 && rest.front() == '"' && rest.back() == '"')
        return {rest.substr(1, rest.size() - 2), true};
    return {rest, false};
}

bool startsWith(std::u16string_view line, std::u16string_view key) {
    return line.substr(0, key.size()) == key;
}

// Reads the lines of the body one by one into the value.
class BodyParser {
public:
    explicit BodyParser(ConsistFileRead& read) : read_(read) {}

    void line(std::u16string_view raw, std::size_t number) {
        if (unit_) block_.emplace_back(raw);
        const std::u16string_view line = trimmed(raw);
        if (line.empty()) return keep(ConsistFileLayout::Kind::Other, raw);
        if (line == u")") return close(raw);
        if (line == u"Train (") {
            keep(ConsistFileLayout::Kind::Other, raw);
            return open();
        }
        if (startsWith(line, u"TrainCfg (")) {
            header().trainCfg = trainCfgWord(line);
            keep(ConsistFileLayout::Kind::Header, raw);
            return open();
        }
        if (line == u"Engine (" || line == u"Wagon (") {
            if (unit_) return problem(number, line);
            unit_ = ConsistFileUnit{};
            unit_->isEngine = line == u"Engine (";
            linesInUnit_ = 0;
            block_.assign(1, std::u16string(raw));
            return open();
        }
        if (unit_ && unitLine(line)) return;
        if (!unit_ && headerLine(line)) return keep(ConsistFileLayout::Kind::Header, raw);
        if (!unit_) keep(ConsistFileLayout::Kind::Other, raw);
        problem(number, line);
    }
    void finish() {
        read_.endsEarly = depth_ > 0;
        // A unit the file never closes is no unit, but its lines are the file's all the same.
        if (unit_) {
            for (std::u16string& line : block_)
                read_.file.layout.items.push_back(
                    {ConsistFileLayout::Kind::Other, 0, {std::move(line)}});
        }
        read_.file.layout.header = read_.file.header;
        read_.file.layout.units = read_.file.units;
    }

private:
    ConsistFileHeader& header() { return read_.file.header; }
    void open() { ++depth_; }
    void keep(ConsistFileLayout::Kind kind, std::u16string_view raw) {
        if (!unit_) read_.file.layout.items.push_back({kind, 0, {std::u16string(raw)}});
    }
    void close(std::u16string_view raw) {
        if (depth_ > 0) --depth_;
        if (!unit_) return keep(ConsistFileLayout::Kind::Other, raw);
        read_.file.layout.items.push_back(
            {ConsistFileLayout::Kind::Unit, read_.file.units.size(), std::move(block_)});
        read_.file.units.push_back(*unit_);
        unit_.reset();
    }
    void problem(std::size_t number, std::u16string_view line) {
        read_.problems.push_back({number, toUtf8(line)});
    }

    bool headerLine(std::u16string_view line) {
        const std::optional<std::string> value = valueOf(line);
        if (!value) return false;
        if (startsWith(line, u"Name (")) {
            const std::vector<ConsistWord> words = wordsOf(*value);
            header().name = words.size() == 1 && words[0].quoted ? words[0].text : *value;
        } else if (startsWith(line, u"Serial (")) {
            header().serial = *value;
        } else if (startsWith(line, u"MaxVelocity (")) {
            header().maxVelocity = *value;
        } else if (startsWith(line, u"NextWagonUID (")) {
            header().nextWagonUid = *value;
        } else if (startsWith(line, u"Durability (")) {
            header().durability = *value;
        } else {
            return false;
        }
        return true;
    }

    bool unitLine(std::u16string_view line) {
        ++linesInUnit_;
        const std::optional<std::string> value = valueOf(line);
        if (!value) return false;
        if (startsWith(line, unit_->isEngine ? u"EngineData (" : u"WagonData (")) {
            const std::vector<ConsistWord> words = wordsOf(*value);
            if (words.size() != 2) return false;
            unit_->file = words[0];
            unit_->folder = words[1];
        } else if (startsWith(line, u"UiD (")) {
            unit_->uid = *value;
            unit_->uidBeforeData = linesInUnit_ == 1 || (linesInUnit_ == 2 && unit_->flipFirst);
        } else if (startsWith(line, u"Flip (") && value->empty()) {  // "Flip ( )", "Flip ()"
            unit_->flipped = true;
            unit_->flipFirst = linesInUnit_ == 1;
        } else {
            return false;
        }
        return true;
    }

    ConsistFileRead& read_;
    std::optional<ConsistFileUnit> unit_;
    std::vector<std::u16string> block_;  // the lines of the unit under way
    int depth_ = 0;
    int linesInUnit_ = 0;
};

std::string wordText(const ConsistWord& word) {
    return word.quoted ? '"' + word.text + '"' : word.text;
}

std::string unitText(const ConsistFileUnit& unit) {
    const std::string uid = unit.uid.empty() ? std::string() : "\t\t\tUiD ( " + unit.uid + " )\r\n";
    const std::string flip = unit.flipped ? "\t\t\tFlip ( )\r\n" : "";
    std::string text = unit.isEngine ? "\t\tEngine (\r\n" : "\t\tWagon (\r\n";
    if (unit.flipFirst) text += flip;
    if (unit.uidBeforeData) text += uid;
    text += std::string(unit.isEngine ? "\t\t\tEngineData ( " : "\t\t\tWagonData ( ") +
            wordText(unit.file) + " " + wordText(unit.folder) + " )\r\n";
    if (!unit.uidBeforeData) text += uid;
    if (!unit.flipFirst) text += flip;
    return text + "\t\t)\r\n";
}

}  // namespace

ConsistFileRead parseConsistFile(std::string_view bytes) {
    ConsistFileRead read;
    const TextLines file = textLines(bytes);
    read.isUnicode = file.hasMark && file.firstLineLength() == kUnicodeFirstLine;
    if (!read.isUnicode) return read;
    read.file.layout.items.push_back({ConsistFileLayout::Kind::Other, 0, {file.lines[0]}});
    BodyParser parser(read);
    for (std::size_t i = 1; i < file.lines.size(); ++i)
        parser.line(file.lines[i], i + 1);
    parser.finish();
    read.file.finalLineEnd = bytes.ends_with(std::string_view("\r\0\n\0", 4));
    return read;
}

namespace {

// The header lines in the layout MSTS writes, TrainCfg first.
std::vector<std::string> headerLines(const ConsistFileHeader& header) {
    std::vector<std::string> lines = {"\tTrainCfg ( " + wordText(header.trainCfg)};
    if (!header.name.empty()) lines.push_back("\t\tName ( \"" + header.name + "\" )");
    for (const auto& [key, value] :
         {std::pair<std::string_view, const std::string&>{"Serial", header.serial},
          {"MaxVelocity", header.maxVelocity},
          {"NextWagonUID", header.nextWagonUid},
          {"Durability", header.durability}}) {
        if (!value.empty()) lines.push_back("\t\t" + std::string(key) + " ( " + value + " )");
    }
    return lines;
}

std::string canonicalText(const ConsistFile& file) {
    std::string text = std::string(kSimisLine) + "\r\n\r\nTrain (\r\n";
    for (const std::string& line : headerLines(file.header))
        text += line + "\r\n";
    for (const ConsistFileUnit& unit : file.units)
        text += unitText(unit);
    text += file.finalLineEnd ? "\t)\r\n)\r\n" : "\t)\r\n)";
    return text;
}

// The file's own lines where nothing changed; changed parts in the layout MSTS writes, units
// added behind the last unit read.
std::u16string layoutText(const ConsistFile& file) {
    const ConsistFileLayout& layout = file.layout;
    const bool headerKept = file.header == layout.header;
    std::size_t lastUnitItem = 0;
    for (std::size_t i = 0; i < layout.items.size(); ++i)
        if (layout.items[i].kind != ConsistFileLayout::Kind::Other) lastUnitItem = i;
    std::vector<std::u16string> lines;
    const auto addText = [&](const std::string& text) {
        std::u16string wide = toUtf16(text);
        while (wide.ends_with(u"\r\n"))
            wide.resize(wide.size() - 2);
        std::size_t start = 0;
        for (std::size_t end; (end = wide.find(u"\r\n", start)) != std::u16string::npos;
             start = end + 2)
            lines.push_back(wide.substr(start, end - start));
        lines.push_back(wide.substr(start));
    };
    bool headerWritten = false;
    for (std::size_t i = 0; i < layout.items.size(); ++i) {
        const ConsistFileLayout::Item& item = layout.items[i];
        if (item.kind == ConsistFileLayout::Kind::Other) {
            lines.insert(lines.end(), item.lines.begin(), item.lines.end());
        } else if (item.kind == ConsistFileLayout::Kind::Header) {
            if (headerKept) {
                lines.insert(lines.end(), item.lines.begin(), item.lines.end());
            } else if (!headerWritten) {
                for (const std::string& line : headerLines(file.header))
                    addText(line);
                headerWritten = true;
            }
        } else if (item.unit < file.units.size()) {
            if (item.unit < layout.units.size() && file.units[item.unit] == layout.units[item.unit])
                lines.insert(lines.end(), item.lines.begin(), item.lines.end());
            else
                addText(unitText(file.units[item.unit]));
        }
        if (i == lastUnitItem) {
            for (std::size_t u = layout.units.size(); u < file.units.size(); ++u)
                addText(unitText(file.units[u]));
        }
    }
    std::u16string text;
    for (std::size_t i = 0; i < lines.size(); ++i)
        text += lines[i] + (i + 1 < lines.size() || file.finalLineEnd ? u"\r\n" : u"");
    return text;
}

}  // namespace

std::string writeConsistFile(const ConsistFile& file) {
    if (file.layout.items.empty()) return encodeMstsText(toUtf16(canonicalText(file)));
    return encodeMstsText(layoutText(file));
}

}  // namespace rakeyard
