// Loads arbitrary bytes as a consist file against a small catalogue, then writes the model and
// works its shifts and pages, as an edit after a load would.
#include <cstdint>
#include <memory>
#include <string_view>

#include "core/app/app_state.h"
#include "core/consist/consist_reader.h"
#include "core/consist/consist_writer.h"
#include "core/consist/editing.h"
#include "core/consist/slot_view.h"
#include "core/platform/dialogs.h"

namespace {

using namespace rakeyard;

class SilentDialogs : public Dialogs {
public:
    void report(std::string_view, Icon, std::string_view) override {}
    Answer ask(std::string_view, Buttons, Icon, Answer, std::string_view) override {
        return Answer::No;
    }
};

UnitRecord unit(const char* folder, const char* file, const char* type, float length) {
    UnitRecord r;
    r.folderName = folder;
    r.folderPath = std::string("/msts/TRAINS/TRAINSET/") + folder;
    r.fileName = file;
    r.displayName = folder;
    r.unitType = type;
    r.couplerFront = "A";
    r.couplerRear = "B";
    r.mass = 3.4e38f;  // sums past the float range must stay harmless
    r.length = length;
    return r;
}

AppState& sharedApp() {
    static std::unique_ptr<AppState> app = [] {
        auto made = std::make_unique<AppState>();
        made->catalogue.engines[0] = unit("GP38", "GP38.eng", "Diesel", 17.1f);
        made->catalogue.engines[1] = unit("Big Boy", "Big Boy.eng", "STEAM", 40);
        made->catalogue.wagons[0] = unit("Box", "Box.wag", "Freight", 15.5f);
        made->catalogue.wagons[1] = unit("Tend(1)", "tend(1).wag", "Tender", 12);
        made->catalogue.engineCount = made->catalogue.wagonCount = 2;
        return made;
    }();
    return *app;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    AppState& app = sharedApp();
    app.consist = ConsistState{};
    SilentDialogs dialogs;
    (void)loadConsistBytes(app, dialogs,
                           std::string_view(reinterpret_cast<const char*>(data), size));
    (void)consistFileBytes(app.consist);
    showLastUnitPage(app.consist);
    shiftUnits(app.consist, 1);
    shiftUnits(app.consist, 0);
    pressSlot(app.consist, 0, SlotButton::Right, 0);
    clickSlot(app.consist, 0);
    pasteUnits(app.consist, dialogs);
    reorderUnits(app.consist, dialogs);
    return 0;
}
