#pragma once
#include <string>

#include "core/alias/alias_lists.h"
#include "core/alias/alias_steps.h"

namespace rakeyard {

// The lines chosen in the aliasing window's three lists; "" where no line is chosen.
struct EngineAliasChoice {
    std::string target;       // a line of notAliased
    std::string cabSource;    // a line of cabSources, kNoAlias included
    std::string soundSource;  // a line of soundSources, kNoAlias included
    bool backup = true;       // keep the target's ".eng" as ".eng.bk"
};

// Gives the target the cab view and sounds of the sources: its CabView and Sound lines name the
// source's files, copies of the source's ".cvf" and ".sms" go into the target's CABVIEW and
// SOUND folders with every ".ace" and ".wav" name pointing into the source's folders, and the
// ".cvf" or ".sms" files that were there go to the trash. Everything is read and checked before
// the first write; a refusal is told and changes nothing.
AliasOutcome aliasFromEngine(const AliasLists& lists, const EngineAliasChoice& choice,
                             const UnitCatalogue& catalogue, const PathGlobals& paths,
                             Services& services);

}  // namespace rakeyard
