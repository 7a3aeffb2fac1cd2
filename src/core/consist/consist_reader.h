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
