#pragma once
#include <exception>
#include <string>

#include "core/platform/dialogs.h"

namespace rakeyard::ui {

// Runs a handler's work so that nothing it throws leaves the handler (Qt does not allow an
// exception out of a slot): the failure is told to the user instead, and the window goes on.
template <typename Work>
void runGuarded(Dialogs& dialogs, Work&& work) {
    try {
        work();
    } catch (const std::exception& failure) {
        dialogs.report(
            std::string("An unexpected error stopped this operation:\n") + failure.what(),
            Icon::Stop);
    } catch (...) {
        dialogs.report("An unexpected error stopped this operation.", Icon::Stop);
    }
}

}  // namespace rakeyard::ui
