#pragma once
// The 3D view: a unit's shape handed to the shape viewer the user chose.
#include <string>

#include "core/msts/unit_record.h"
#include "core/platform/services.h"
#include "core/settings/settings_record.h"

namespace rakeyard {

// TriDviewer: the unit of line (a list line of the engines' list when engines, else of the
// wagons'), its shape opened in the viewer, with the path as its one argument and no shell.
// The screenshots a viewer left in the Screenshots folder go to the trash first, unless that
// folder lies in the MSTS folder, whose files are the user's content. Tells the user when no
// viewer is set or no unit is chosen. True when the viewer was started.
bool TriDviewer(const PathGlobals& paths, const UnitCatalogue& catalogue, Services& services,
                bool engines, const std::string& line);

}  // namespace rakeyard
