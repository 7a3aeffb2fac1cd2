#pragma once
#include "core/consist/consist_context.h"
#include "core/platform/services.h"

namespace rakeyard {

// How the offer to save a changed consist ended. Failed: the user said Yes but the file was not
// written (refused or failed, and told by the save); whoever asked stops there, so that nothing
// unsaved is lost.
enum class SaveOffer { Unchanged, Saved, Declined, Cancelled, Failed };

// "Save changes to the consist?" with Save, Discard and Cancel for a changed consist; Unchanged
// without a question otherwise. Cancel (and Escape) leaves everything as it was.
[[nodiscard]] SaveOffer offerToSaveConsist(const ConsistContext& app, Services& services);

// Empties the consist after the offer to save it. False, with the consist left as it was, when
// the save failed or the user cancelled.
[[nodiscard]] bool clearConsist(const ConsistContext& app, Services& services);

}  // namespace rakeyard
