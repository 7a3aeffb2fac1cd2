#pragma once
#include <optional>
#include <string>
#include <string_view>

#include "core/app/app_state.h"
#include "core/platform/file_system.h"

namespace rakeyard::cli {

// A unit named on the command line, found in a catalogue.
struct NamedUnit {
    bool isEngine = true;
    int index = -1;  // in its catalogue
};

// What a unit name on the command line came to: the unit, or why there is none. An ambiguous
// name is bad usage; an unknown one is not.
struct NamedUnitResult {
    std::optional<NamedUnit> unit;
    std::string ambiguity;  // "" unless two units differ from the name only in letter case
};

// Finds a unit by its file name, with or without ".eng"/".wag", in any letter case. "eng:" or
// "wag:" in front picks the catalogue; else an engine of that name is taken first, then a
// wagon. A folder in front ("RY_Wagons/RY_Coal16t", "/" or "\") must be the unit's folder.
// A name written exactly as a unit's wins; two units that differ only in case and match none
// exactly leave the name ambiguous.
[[nodiscard]] NamedUnitResult findNamedUnit(const UnitCatalogue& catalogue, std::string_view name);

// The consist file an argument names: a path (with or without ".con"), or a name in the
// Consists folder with or without ".con"; "/" and "\" alike, any letter case. The path is as
// it stands on disk when the file exists.
std::string consistPathOf(FileSystem& fs, const PathGlobals& paths, std::string_view argument);

// The file-name box's text for a consist name given for saving: a trailing ".con" dropped.
std::string consistFileBoxText(std::string_view name);

}  // namespace rakeyard::cli
