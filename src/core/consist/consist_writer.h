#pragma once
#include <string>

#include "core/consist/consist_context.h"
#include "core/consist/consist_file.h"
#include "core/platform/services.h"

namespace rakeyard {

// The consist as it stands, as a consist file value: the header from the boxes (with the
// defaults for empty ones) and calculatedMaxVelocity, the units from slot 0 up to the first slot
// with no unit type.
[[nodiscard]] ConsistFile consistFileOf(const ConsistState& state);

// The ".con" file of the consist as it stands: FF FE, then UTF-16 LE text with CR LF line ends
// and no line end after the final ")". The header comes from the boxes Text2(0..4) and
// calculatedMaxVelocity; the units from slot 0 up to the first slot with no unit type.
std::string consistFileBytes(const ConsistState& state);

// The NextWagonUID of the consist: the highest whole uid up to the first empty slot, plus 1;
// the highest uid itself when all 300 slots are used.
long long nextWagonUid(const ConsistState& state);

// How a save ended. Refused: the consist or its name could not be saved (told to the user);
// Declined: the user kept the file already there; Failed: the write failed (told).
enum class SaveOutcome { Saved, Refused, Declined, Failed };
struct SaveResult {
    SaveOutcome outcome = SaveOutcome::Refused;
    std::string path;  // where the consist was written, once Saved
    explicit operator bool() const { return outcome == SaveOutcome::Saved; }
};

// Saves the consist as "<Consists folder>/<Text2(0)>.con"; the overwrite question names that file.
// Refuses an empty consist, a missing file name or one that is not a plain file name (a folder,
// "..", a name Windows forbids), an overwrite the user declines and units missing from the
// catalogue, each with its message; gaps are closed first (and stay closed even when the save is
// refused then). The file is written whole or not at all: a failed write is told to the user, the
// old file stays and consistChanged stays set.
[[nodiscard]] SaveResult saveConsist(const ConsistContext& app, Services& services);

// Saves the consist under another name (the file-name box gets it). A save that does not happen
// leaves the box as it was, so that Save still means the file the consist came from.
[[nodiscard]] SaveResult saveConsistAs(const ConsistContext& app, Services& services,
                                       std::string_view name);

}  // namespace rakeyard
