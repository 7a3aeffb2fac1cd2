#pragma once
#include <optional>
#include <string>

#include "core/alias/alias_lists.h"
#include "core/alias/alias_steps.h"

namespace rakeyard {

// The reference a folder alias writes for a chosen file: "..\\..\\" + its path relative to
// Trainset, separators doubled. nullopt when the file does not lie inside Trainset.
[[nodiscard]] std::optional<std::u16string> folderAliasReference(const PathGlobals& paths,
                                                                 FileSystem& fs,
                                                                 const std::string& file);

// Points the target's first CabView line at the chosen ".cvf" (the reference bare) and empties
// the later ones; only lines where the word stands behind a tab or four blanks count. Only the
// ".eng" is rewritten. cvf is "" when the choice was cancelled: nothing happens. On success the
// user is offered to erase the engine's CABVIEW folder, unless something still uses it.
AliasOutcome aliasCabsFromFolder(const std::string& target, const std::string& cvf, bool backup,
                                 const UnitCatalogue& catalogue, const PathGlobals& paths,
                                 Services& services);

// The same for sounds: the first Sound line gets the engine sound, every later one the cab
// sound, both quoted; the offer is to erase the SOUND folder. Both files must be ".sms".
AliasOutcome aliasSoundsFromFolder(const std::string& target, const std::string& engineSms,
                                   const std::string& cabSms, bool backup,
                                   const UnitCatalogue& catalogue, const PathGlobals& paths,
                                   Services& services);

}  // namespace rakeyard
