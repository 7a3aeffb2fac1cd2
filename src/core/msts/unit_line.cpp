#include "core/msts/unit_line.h"

#include "core/platform/text_utf.h"

namespace rakeyard {

namespace {

constexpr std::size_t npos = std::string::npos;

// Every occurrence of needle, left to right and not overlapping, replaced by one blank.
std::string replacedByBlank(std::string_view line, std::string_view needle) {
    std::string result;
    result.reserve(line.size());
    std::size_t from = 0;
    for (std::size_t at = line.find(needle); at != npos; at = line.find(needle, from)) {
        result.append(line.substr(from, at - from));
        result += ' ';
        from = at + needle.size();
    }
    result.append(line.substr(from));
    return result;
}

// The folder: between the first "(" and the first ")" behind the character after it, or
// between the first double quote of the line and the next one (the two characters behind the
// opening quote are passed over) when that text begins with a quote.
std::optional<std::string> folderOf(const std::string& line) {
    const std::size_t open = line.find('(');
    const std::size_t close = open == npos ? npos : line.find(')', open + 2);
    if (close == npos) return std::nullopt;
    std::string folder = trimBlanks(std::string_view(line).substr(open + 1, close - open - 1));
    if (folder.empty() || folder.front() != '"') return folder;
    const std::size_t first = line.find('"');
    const std::size_t next = line.find('"', first + 3);
    if (next == npos) return std::nullopt;
    return trimBlanks(std::string_view(line).substr(first + 1, next - first - 1));
}

}  // namespace

std::optional<UnitLine> readUnitLine(std::string_view line, UnitLineKind kind) {
    const std::size_t open = line.find('(');
    if (open == npos) return std::nullopt;
    // The name runs from the character behind "(" to the first blank after its first letter,
    // or to the closing quote when it is quoted.
    std::size_t end = line.find(' ', open + 2);
    if (end == npos) return std::nullopt;
    UnitLine unit;
    unit.name = trimBlanks(line.substr(open + 1, end - open));
    if (!unit.name.empty() && unit.name.front() == '"') {
        end = line.find('"', open + 3);
        if (end == npos) return std::nullopt;
        unit.name = trimBlanks(line.substr(open + 1, end - open));
        unit.name = unit.name.substr(1, unit.name.size() - 2);
    }
    if (kind == UnitLineKind::TrainConfig) return unit;

    // With the name's text gone from the line, the folder is what stays in the parentheses.
    const std::optional<std::string> folder =
        folderOf(replacedByBlank(line, line.substr(open + 1, end - open)));
    if (!folder) return std::nullopt;
    unit.folder = folder->empty() ? unit.name : *folder;
    unit.name += kind == UnitLineKind::Engine ? ".eng" : ".wag";
    return unit;
}

}  // namespace rakeyard
