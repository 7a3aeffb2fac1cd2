#pragma once
#include <string>

#include "core/alias/alias_steps.h"

namespace rakeyard {

// Puts the backup of an aliased engine back: its ".eng.bk", found in any letter case, becomes
// the ".eng" under the engine's file name in upper case, and only then does the old ".eng"
// (when its name differs) go to the trash. The cab view and sound files are not brought back.
// line is the engine's file name; "" when none is chosen.
AliasOutcome restoreEngine(const std::string& line, const UnitCatalogue& catalogue,
                           Services& services);

}  // namespace rakeyard
