#pragma once
#include <string_view>

#include "core/app/app_state.h"
#include "core/consist/consist_chooser.h"
#include "core/platform/services.h"

namespace rakeyard {

// mnuExit: a changed consist is offered for saving first. False, and the program goes on
// running, when the save failed or was cancelled: unsaved work is never lost on the way out.
[[nodiscard]] bool confirmExit(AppState& state, Services& services);
// The main window's close: a changed consist is offered for saving, named or not, as Exit does:
// closing the window is no way to lose work. False when the save failed or was cancelled, and
// the window stays.
[[nodiscard]] bool offerSaveOnUnload(AppState& state, Services& services);

// OK or a double click in the consist chooser on line index: the line is stored as settings.bin's
// last consist, and the chosen consist replaces the open one once that was offered for saving.
void loadChosenConsist(AppState& state, Services& services, const ConsistChooser& chooser,
                       int index);

// Reads one catalogue again. The consist is emptied first (its units might no longer match),
// after the offer to save it; false, with nothing read, when that save failed or was cancelled.
[[nodiscard]] bool refreshCatalogue(AppState& state, Services& services, UnitClass which);

// The Delete key on a list line: after the question, which names the folder and how many files
// it holds and whose safe answer is No, the unit's whole folder goes to the trash. True when it
// went; the caller then refreshes the catalogue.
[[nodiscard]] bool deleteUnitOfLine(AppState& state, Services& services, UnitClass which,
                                    std::string_view listLine);

}  // namespace rakeyard
