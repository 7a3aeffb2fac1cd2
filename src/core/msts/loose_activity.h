#pragma once
// The loose consists of an activity as the loose consist editor reads and rewrites them. The
// editor takes the .act as it stands: every two bytes one UTF-16 unit, the mark FF FE the first
// of them, nothing checked or converted, so that encoding the text back gives the same bytes.
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/msts/unit_record.h"

namespace rakeyard {

// An activity's bytes as 16-bit units; a last byte that makes no pair is kept apart.
struct ActivityText {
    std::u16string text;
    std::optional<char> oddByte;
};
[[nodiscard]] ActivityText decodeActivity(std::string_view bytes);
[[nodiscard]] std::string encodeActivity(const ActivityText& activity);

// The activity's name for the list of activities with loose consists: the text between the
// "(" and ")" of its first "Name (", trimmed, double quotes kept. Nothing when the text, upper-
// cased, lacks "LOOSE CONSIST".
[[nodiscard]] std::optional<std::string> looseActivityName(std::u16string_view text);

// An EngineData or WagonData line of a loose consist: its text without the line end, as
// [begin, end) of the activity's text.
struct LooseUnitLine {
    std::size_t begin = 0;
    std::size_t end = 0;
    bool engine = false;
};
// One loose consist: from the start of its "Train_Config (" line up to its "Direction (", or
// up to the next consist's line or the end of the text when no "Direction (" comes first.
struct LooseBlock {
    std::size_t begin = 0;
    std::size_t end = 0;
    std::vector<LooseUnitLine> units;
};
// The loose consists in text order. Lines end at the character CR (an LF right behind it is
// the line end's too); a lone LF stays inside its line.
[[nodiscard]] std::vector<LooseBlock> looseBlocks(std::u16string_view text);

// The file name a unit line names, with ".eng" or ".wag"; only the extension when the line is
// in error.
[[nodiscard]] std::string unitFileOfLine(std::u16string_view line, bool engine);

// The unit line for unit in place of line: line's own text up to and including its first "(",
// then the file name without its extension and the catalogue's folder name, each in double
// quotes when it holds a blank, and " )".
[[nodiscard]] std::u16string newUnitLine(std::u16string_view line, const UnitRecord& unit);

// A length in whole metres, halves away from zero.
[[nodiscard]] int wholeMetres(float length);

}  // namespace rakeyard
