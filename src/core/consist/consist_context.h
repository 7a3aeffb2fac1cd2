#pragma once
#include "core/consist/consist_state.h"
#include "core/msts/unit_record.h"
#include "core/settings/settings_record.h"

namespace rakeyard {

// What consist code works with: the consist under edit, and the catalogue and paths it reads.
// Made from any state that holds the three under these names, the application's as well.
struct ConsistContext {
    template <typename State>
    ConsistContext(State& state)  // NOLINT: taken wherever the whole state is at hand
        : consist(state.consist), catalogue(state.catalogue), paths(state.paths) {}
    ConsistContext(ConsistState& consist, const UnitCatalogue& catalogue, const PathGlobals& paths)
        : consist(consist), catalogue(catalogue), paths(paths) {}

    ConsistState& consist;
    const UnitCatalogue& catalogue;
    const PathGlobals& paths;
};

}  // namespace rakeyard
