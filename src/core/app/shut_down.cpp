#include "core/app/start_up.h"
#include "core/consist/consist_writer.h"

namespace rakeyard {

namespace {

bool userWantsToSave(Services& services) {
    return services.dialogs.ask("Save changes to the consist?", Buttons::YesNo, Icon::Question,
                                 Answer::No) ==
           Answer::Yes;
}

}  // namespace

bool confirmExit(AppState& state, Services& services) {
    if (state.consist.consistChanged && userWantsToSave(services)) {
        // A refusal is already told by the save; only a missing file name keeps the program up.
        (void)saveConsist(state, services);
        if (state.consist.headerBoxes[0].empty()) return false;
    }
    state.consist.consistChanged = false;
    return true;
}

void offerSaveOnUnload(AppState& state, Services& services) {
    if (state.consist.consistChanged && !state.consist.headerBoxes[0].empty() &&
        userWantsToSave(services))
        (void)saveConsist(state, services);
}

}  // namespace rakeyard
