#include "core/consist/editing.h"

#include <cmath>

#include "core/consist/consist_model.h"
#include "core/consist/image_keys.h"
#include "core/consist/slot_view.h"
#include "core/msts/msts_text.h"
#include "core/msts/unit_list.h"
#include "core/platform/text_utf.h"

namespace rakeyard {

namespace {

constexpr std::string_view kNonDriveable = "WARNING: Non-driveable engine!";

int slotOf(const ConsistState& state, int index) {
    return state.currentPage * kSlotsPerPage + index;
}

// The first screen slot whose picture shows a selected unit; kSlotsPerPage when none does.
int selectedScreenSlot(const ConsistState& state) {
    for (int i = 0; i < kSlotsPerPage; ++i) {
        if (isSelectedUnitKey(state.slots[slotOf(state, i)].imageKey)) return i;
    }
    return kSlotsPerPage;
}

int firstFreeSlot(const ConsistState& state) {
    for (int j = 0; j < kUsedSlots; ++j) {
        if (state.slots[j].position == 0) return j;
    }
    return -1;
}

bool pageWasFull(const ConsistState& state) {
    for (const SlotView& shown : state.view) {
        if (shown.name.empty()) return false;
    }
    return true;
}

void storeUnit(ConsistSlot& slot, const UnitRecord& unit, bool isEngine, long long uid, int j) {
    copyCatalogueFields(slot, unit, isEngine);
    slot.flipped = false;
    slot.uid = toSingle(static_cast<double>(uid));
    slot.position = static_cast<std::int16_t>(j + 1);
}

// Opens a place in front of the page's selected unit, if any; false past the last page.
bool openPlaceForUnit(ConsistState& state) {
    if (state.currentPage > kLastPage) return false;
    const int selected = selectedScreenSlot(state);
    if (selected < kSlotsPerPage) insertUnit(state, selected);
    state.savedPage = state.currentPage;
    state.consistChanged = true;
    return true;
}

void placeUnit(ConsistState& state, const UnitRecord& unit, bool isEngine) {
    const long long uid = highestUid(state) + 1;
    if (isEngine && !unit.hasCab) state.pendingWarning = kNonDriveable;

    const int j = firstFreeSlot(state);
    if (j < 0) return;  // a full consist takes no more
    storeUnit(state.slots[j], unit, isEngine, uid, j);
    if (pageWasFull(state)) {
        if (state.currentPage >= kLastPage) return;
        ++state.currentPage;
        ++state.savedPage;
    }
    addInsertedUnit(state.totals, state.slots[j]);
    if (!isEngine) changeWagonCount(state.totals, 1);
    checkCoupling(state, j);
    state.currentPage = state.savedPage;
    refreshPics(state);
}

void addFromList(const ConsistContext& app, std::string_view listLine, bool isEngine) {
    if (!openPlaceForUnit(app.consist)) return;
    const std::span<const UnitRecord> catalogue =
        usedRecords(app.catalogue, isEngine ? UnitClass::Engine : UnitClass::Wagon);
    const std::optional<std::size_t> found = findUnitByKey(catalogue, keyOfLine(listLine));
    if (found) placeUnit(app.consist, catalogue[*found], isEngine);
}

// Slot 0's uid as the renumbering's first number, rounded as a whole-number conversion does.
long long firstUid(const ConsistState& state) {
    return wholeNumber(std::nearbyint(static_cast<double>(state.slots[0].uid)));
}

}  // namespace

void insertUnit(ConsistState& state, int index) {
    const int s = slotOf(state, index);
    int j = kUsedSlots - 1;
    for (int k = s; k < kUsedSlots; ++k) {
        if (state.slots[k].displayName.empty()) {
            j = k;
            break;
        }
    }
    deselectPage(state);
    for (int k = j; k >= s; --k) {
        if (k == s) {
            clearSlot(state.slots[k]);
            state.slots[k].imageKey = "EMP";
        } else {
            state.slots[k] = state.slots[k - 1];
        }
    }
    refreshPics(state);
}

void addCatalogueUnit(ConsistState& state, const UnitRecord& unit, bool isEngine) {
    if (openPlaceForUnit(state)) placeUnit(state, unit, isEngine);
}

void addEngineOfLine(const ConsistContext& app, std::string_view listLine) {
    addFromList(app, listLine, true);
}

void addWagonOfLine(const ConsistContext& app, std::string_view listLine) {
    addFromList(app, listLine, false);
}

void addSeveralWagons(const ConsistContext& app, Dialogs& dialogs, std::string_view wagListLine,
                      const std::function<int(const std::string& wagonName)>& askNumber) {
    if (wagListLine.empty()) {
        dialogs.report("You must select a wagon from the list", Icon::Exclamation);
        return;
    }
    const std::string wagonName = trimBlanks(wagListLine.substr(0, wagListLine.find('[')));
    const int number = askNumber(wagonName);
    if (number <= 0) return;
    if (number >= 100) {
        dialogs.report(
            "That number is too big! The maximum you can\n"
            "add this way must be less than 100.",
            Icon::Stop);
        return;
    }
    const int index = selectedScreenSlot(app.consist);
    for (int n = 0; n < number; ++n) {
        insertUnit(app.consist, index);
        addWagonOfLine(app, wagListLine);
    }
    reorderUnits(app.consist, dialogs);
}

void pasteUnits(ConsistState& state, Dialogs& dialogs) {
    if (!state.selectionActive) {
        dialogs.report(
            "First select a unit in the editor by clicking on it\n"
            "or use Ctrl-Click to select more than one unit at a time.",
            Icon::Exclamation);
        return;
    }
    state.consistChanged = true;
    state.selectionActive = false;
    showLastUnitPage(state);
    deselectPage(state);

    int n = firstFreeSlot(state);
    if (n < 0) n = kUsedSlots;
    int position = highestPosition(state);
    for (const ConsistSlot& entry : state.selectionBuffer) {
        if (entry.fileName.empty() || n >= kUsedSlots) break;
        ConsistSlot& slot = state.slots[n];
        slot = entry;
        slot.position = static_cast<std::int16_t>(++position);
        if (!slot.displayName.empty()) {
            addPastedUnit(state.totals, slot);
            if (isWagonUnit(slot)) changeWagonCount(state.totals, 1);
        }
        ++n;
    }
    refreshPics(state);
}

void deleteMarkedUnits(ConsistState& state, Dialogs& dialogs) {
    if (!state.selectionActive) {
        dialogs.report("First select a unit in the editor with Shift + Click!", Icon::Exclamation);
        return;
    }
    state.consistChanged = true;
    state.selectionBuffer.assign(1, ConsistSlot{});
    state.selectionActive = false;
    for (int i = 0; i < kUsedSlots; ++i) {
        ConsistSlot& slot = state.slots[i];
        if (!slot.markedForDelete) continue;
        if (!slot.displayName.empty()) {
            subtractUnit(state.totals, slot);
            if (isWagonUnit(slot)) changeWagonCount(state.totals, -1);
        }
        clearSlot(slot);
    }
    setNewPositions(state);
    refreshPics(state);

    if (dialogs.ask("Do you wish to shift and clear the gaps?", Buttons::YesNo, Icon::Question,
                    Answer::No) != Answer::Yes)
        return;
    int last = -1;
    for (int i = kConsistSlots - 1; i >= 0 && last < 0; --i) {
        if (!state.slots[i].fileName.empty()) last = i;
    }
    for (int i = 0; i <= last; ++i) {
        if (state.slots[i].fileName.empty()) shiftUnits(state, 0);
    }
}

void removeUnitAtSlot(ConsistState& state, int index) {
    if (state.lastButton == SlotButton::Right) return;
    ConsistSlot& slot = state.slots[slotOf(state, index)];
    state.consistChanged = true;
    if (isWagonUnit(slot)) changeWagonCount(state.totals, -1);
    subtractUnit(state.totals, slot);
    clearSlot(slot);
    slot.imageKey = "EMP";
    setNewPositions(state);
    refreshPics(state);
}

void setNewPositions(ConsistState& state) {
    std::int16_t n = 1;
    for (int i = 0; i < kUsedSlots; ++i) {
        if (!state.slots[i].displayName.empty()) state.slots[i].position = n++;
    }
}

void reorderUnits(ConsistState& state, Dialogs& dialogs) {
    state.consistChanged = true;
    long long n = firstUid(state);
    if (n > kUidLimit) {
        dialogs.report("Number too big! You must choose a smaller one.", Icon::Stop);
        return;
    }
    for (int i = 0; i < kUsedSlots; ++i) {
        if (!state.slots[i].displayName.empty()) state.slots[i].uid = toSingle(double(n++));
    }
    refreshPics(state);
}

void shiftUnits(ConsistState& state, int index) {
    if (state.currentPage > kLastPage) return;
    auto& slots = state.slots;
    int last = 0;
    for (int i = kUsedSlots - 1; i >= 0; --i) {
        if (!slots[i].displayName.empty()) {
            last = i;
            break;
        }
    }
    int gap = 0;  // the last empty slot of the first gap
    for (int b = 0; b < kUsedSlots - 1; ++b) {
        if (slots[b].displayName.empty() && !slots[b + 1].displayName.empty()) {
            gap = b;
            break;
        }
    }
    if (!slots[0].fileName.empty() && gap == 0) return;

    if (index == 0) {
        for (int k = gap; k <= last; ++k) {
            if (k == kUsedSlots - 1) {
                clearSlot(slots[k]);
                break;
            }
            slots[k] = slots[k + 1];
        }
    } else {
        // A unit in slot 299 moves to 300, beyond what is shown and saved.
        for (int k = last + 1; k >= gap + 2; --k)
            slots[k] = slots[k - 1];
        clearSlot(slots[gap + 1]);
    }
    refreshPics(state);
    if (!slots[0].hasCab && gap == 0) state.pendingWarning = kNonDriveable;
}

void turnPage(ConsistState& state, int index) {
    const int oldPage = state.currentPage;
    if (index == 0 && oldPage > 0) {
        deselectPage(state);
        state.currentPage = oldPage - 1;
    } else if (index == 1 && oldPage < kLastPage) {
        deselectPage(state);
        state.currentPage = oldPage + 1;
    } else {
        return;
    }
    state.savedPage = oldPage;
    refreshPics(state);
}

void showFirstPage(ConsistState& state) {
    deselectPage(state);
    state.currentPage = 0;
    refreshPics(state);
}

void showLastUnitPage(ConsistState& state) {
    // Positions can run past 300 after pastes into gaps; the page stays within the consist.
    state.currentPage = std::min(highestPosition(state) / kSlotsPerPage, kLastPage);
    state.savedPage = state.currentPage;
    refreshPics(state);
}

void setUnitUid(ConsistState& state, Dialogs& dialogs, int index, std::string_view text) {
    const double number = numberValue(trimBlanks(text));
    if (number >= static_cast<double>(kUidLimit)) {
        dialogs.report("Number too big! You must choose a smaller one.", Icon::Stop);
        return;
    }
    state.slots[slotOf(state, index)].uid = toSingle(number);
}

}  // namespace rakeyard
