#pragma once
#include <memory>

#include "core/consist/consist_state.h"
#include "core/consist/edit_history.h"
#include "core/msts/loose_editor.h"
#include "core/msts/route_scan.h"
#include "core/msts/unit_record.h"
#include "core/platform/system.h"
#include "core/settings/settings_record.h"

namespace rakeyard {

// All state that outlives a window, shared by the windows and the CLI. Made once with
// std::make_unique: the fixed catalogues take megabytes, taken from the system in large pieces
// (a start would otherwise spend tens of milliseconds in page faults making them).
struct AppState {
    static void* operator new(std::size_t size) { return sys::allocateLargeBlock(size); }
    static void operator delete(void* block, std::size_t size) noexcept {
        sys::freeLargeBlock(block, size);
    }

    SettingsRecord settings;
    PathGlobals paths;
    UnitCatalogue catalogue;
    ConsistState consist;
    EditHistory history;  // of the consist's edits in the window
    RouteTables routes;   // the routes and the activities of the route last selected
    LooseUnitTable looseUnits;  // the units of the activity open in the loose consist editor
    bool debugMode = false;
};

}  // namespace rakeyard
