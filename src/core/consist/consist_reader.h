#pragma once
#include <string>
#include <string_view>
#include <vector>

#include "core/consist/consist_context.h"
#include "core/consist/consist_file.h"
#include "core/platform/services.h"

namespace rakeyard {

// The consist name of a header line holding "Name": the text between the first two double
// quotes, or with no quote at all the text between "(" and ")". inError for an unquoted name
// with a blank, an unpaired quote or no ")".
struct ConsistName {
    std::u16string name;
    bool inError = false;
};
ConsistName nameOfLine(std::u16string_view line);

// A unit block as the editor reads it: its data lines (a block normally has one), its UiD
// as written, whether it is flipped, and whether its closing line was reached.
struct EditorUnit {
    std::vector<ConsistFileUnit> data;  // isEngine and the file word of each data line
    std::string uid;
    bool hasUid = false;
    bool flipped = false;
    bool ended = false;
};

// A consist file read by the editor's line rules, before anything is matched or shown. Header
// fields in `header` count only where `seen` says the line was there; on a fault the units and
// header fields read before it are kept, as the editor shows them.
struct EditorConsistRead {
    enum class Fault { None, NotUnicode, NameError, Critical };
    Fault fault = Fault::None;
    ConsistFileHeader header;
    struct {
        bool trainCfg = false, name = false, maxVelocity = false, durability = false,
             serial = false;
    } seen;
    std::vector<EditorUnit> units;
    std::string notLoaded;  // what of the file cannot be loaded, a reason a line; "" when all
};
[[nodiscard]] EditorConsistRead readConsistForEditor(std::string_view bytes);

// How a load ended. Incomplete: units were loaded, but not all the file holds (told).
enum class LoadOutcome { Loaded, Incomplete, Failed, NoFile };

// Loads state.consistToLoad (a full path; nothing happens when it is empty) into the consist:
// header boxes, slots tied to the catalogues by file name regardless of case, totals, the view
// of page 0. The name goes into the recent menu first. A file that does not exist is offered
// for creation; a file that is not UTF-16, a bad name or a damaged line ends the load with a
// message, keeping what was read so far. Units beyond slot 599 are read but not stored. A file
// of more than 300 units, one that ends inside a block or in half a character is loaded as far
// as it goes, and what was left out is told before the units are shown.
[[nodiscard]] LoadOutcome loadConsistFile(const ConsistContext& app, Services& services);

// The reading part of loadConsistFile on the bytes of a file: everything but the recent menu,
// the file-name box and the question for a missing file.
[[nodiscard]] LoadOutcome loadConsistBytes(const ConsistContext& app, Dialogs& dialogs,
                                           std::string_view bytes);

// The name of a consist in the file-name box: the part of path behind "\CONSISTS\" (or with "/"),
// subfolders kept, less its last 4 characters. A path without that folder gives its file name
// less 4 characters.
std::string consistNameOf(std::string_view path);

}  // namespace rakeyard
