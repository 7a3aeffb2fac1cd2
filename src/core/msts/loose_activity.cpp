#include "core/msts/loose_activity.h"

#include <cmath>

#include "core/msts/unit_line.h"
#include "core/platform/text_utf.h"

namespace rakeyard {

namespace {

constexpr std::size_t npos = std::u16string_view::npos;
constexpr std::u16string_view kTrainConfig = u"Train_Config (";
constexpr std::u16string_view kDirection = u"Direction (";

// Where the line holding position at begins: behind the last CR before it, and behind the LF
// that follows that CR.
std::size_t lineStart(std::u16string_view text, std::size_t at) {
    const std::size_t cr = at == 0 ? npos : text.rfind(u'\r', at - 1);
    if (cr == npos) return 0;
    std::size_t start = cr + 1;
    if (start < text.size() && text[start] == u'\n') ++start;
    return start;
}

std::string quotedWhenBlank(std::string word) {
    return word.find(' ') == std::string::npos ? word : "\"" + word + "\"";
}

void collectUnits(std::u16string_view text, LooseBlock& block) {
    std::size_t line = block.begin;
    while (line < block.end) {
        std::size_t end = text.find(u'\r', line);
        if (end == npos || end > block.end) end = block.end;
        const std::u16string_view view = text.substr(line, end - line);
        const bool engine = view.find(u"EngineData (") != npos;
        if (engine || view.find(u"WagonData (") != npos) block.units.push_back({line, end, engine});
        line = end + 1;
        if (line < block.end && text[line] == u'\n') ++line;
    }
}

}  // namespace

ActivityText decodeActivity(std::string_view bytes) {
    ActivityText activity;
    activity.text.resize(bytes.size() / 2);
    for (std::size_t i = 0; i < activity.text.size(); ++i)
        activity.text[i] = static_cast<char16_t>(static_cast<unsigned char>(bytes[2 * i]) |
                                                 static_cast<unsigned char>(bytes[2 * i + 1]) << 8);
    if (bytes.size() % 2) activity.oddByte = bytes.back();
    return activity;
}

std::string encodeActivity(const ActivityText& activity) {
    std::string bytes;
    bytes.reserve(activity.text.size() * 2 + 1);
    for (char16_t unit : activity.text) {
        bytes += static_cast<char>(unit & 0xFF);
        bytes += static_cast<char>(unit >> 8);
    }
    if (activity.oddByte) bytes += *activity.oddByte;
    return bytes;
}

std::optional<std::string> looseActivityName(std::u16string_view text) {
    if (upperAscii(text).find(u"LOOSE CONSIST") == npos) return std::nullopt;
    const std::size_t name = text.find(u"Name (");
    if (name == npos) return std::string();
    const std::size_t open = text.find(u'(', name);
    const std::size_t close = text.find(u')', open);
    if (close == npos) return std::string();
    return toUtf8(trimBlanks(text.substr(open + 1, close - open - 1)));
}

std::vector<LooseBlock> looseBlocks(std::u16string_view text) {
    std::vector<LooseBlock> blocks;
    // The last "Direction (" found: searched for again only once a consist begins behind it.
    std::size_t direction = 0;
    bool searched = false, noMoreDirections = false;
    for (std::size_t at = text.find(kTrainConfig); at != npos;
         at = text.find(kTrainConfig, at + 10)) {
        const std::size_t begin = lineStart(text, at);
        if (!blocks.empty() && blocks.back().end > begin) blocks.back().end = begin;
        if (!noMoreDirections && (!searched || direction < begin)) {
            searched = true;
            direction = text.find(kDirection, begin);
            noMoreDirections = direction == npos;
        }
        blocks.push_back({begin, noMoreDirections ? text.size() : direction, {}});
    }
    // A consist ends at the next one's line at the latest, so that each line is read once.
    for (LooseBlock& block : blocks)
        collectUnits(text, block);
    return blocks;
}

std::string unitFileOfLine(std::u16string_view line, bool engine) {
    const std::optional<UnitLine> unit =
        readUnitLine(toUtf8(line), engine ? UnitLineKind::Engine : UnitLineKind::Wagon);
    if (unit) return unit->name;
    return engine ? ".eng" : ".wag";
}

std::u16string newUnitLine(std::u16string_view line, const UnitRecord& unit) {
    const std::size_t open = line.find(u'(');
    std::u16string result(line.substr(0, open == npos ? line.size() : open + 1));
    const std::string& file = unit.fileName;
    const std::string stem = file.size() >= 4 ? file.substr(0, file.size() - 4) : file;
    result += toUtf16(" " + quotedWhenBlank(stem) + " " + quotedWhenBlank(unit.folderName) + " )");
    return result;
}

int wholeMetres(float length) {
    const double rounded = std::round(static_cast<double>(length));
    if (!(rounded > -2e9 && rounded < 2e9)) return 0;
    return static_cast<int>(rounded);
}

}  // namespace rakeyard
