#include "core/consist/slot_view.h"

#include <span>

#include "core/consist/consist_model.h"
#include "core/consist/image_keys.h"
#include "core/platform/text_utf.h"

namespace rakeyard {

namespace {

ConsistSlot& slotOnPage(ConsistState& state, int index) {
    return state.slots[state.currentPage * kSlotsPerPage + index];
}

// The picture follows the key at once; refreshPics draws the rest.
void showKey(ConsistState& state, int index) {
    const std::string& key = slotOnPage(state, index).imageKey;
    state.view[index].pictureKey = key.empty() ? "EMP" : key;
}

std::string slotToolTip(const ConsistSlot& slot) {
    return " " + slot.fileName + "   Length: " + singleText(slot.length) + "m" +
           "   Weight:" + singleText(slot.mass) + "t  ";
}

void flip(ConsistSlot& slot) {
    if (!isUnselectedUnitKey(slot.imageKey) && !isSelectedUnitKey(slot.imageKey)) return;
    const std::string key = unselectedKey(slot.imageKey);
    slot.flipped = key.size() == 3;
    slot.imageKey = slot.flipped ? key + "INV" : key.substr(0, 3);
}

void addToSelection(ConsistState& state, const ConsistSlot& slot) {
    int position = highestPosition(state);
    for (const ConsistSlot& entry : state.selectionBuffer)
        position = std::max<int>(position, entry.position);
    ConsistSlot& spare = state.selectionBuffer.back();
    spare = slot;
    spare.position = static_cast<std::int16_t>(position + 1);
    state.selectionBuffer.emplace_back();
}

// Entries don't know their slot: the deselected unit is the latest entry of the same unit,
// its uid and flip state preferred, so that it is not pasted later.
void dropFromSelection(ConsistState& state, const ConsistSlot& slot) {
    auto& buffer = state.selectionBuffer;
    const auto sameFile = [&](const ConsistSlot& e) {
        return e.fileName == slot.fileName && e.folderPath == slot.folderPath;
    };
    int match = -1;
    for (int k = static_cast<int>(buffer.size()) - 2; k >= 0 && match < 0; --k) {
        const ConsistSlot& e = buffer[k];
        if (sameFile(e) && e.uid == slot.uid && e.flipped == slot.flipped) match = k;
    }
    for (int k = static_cast<int>(buffer.size()) - 2; k >= 0 && match < 0; --k) {
        if (sameFile(buffer[k])) match = k;
    }
    if (match >= 0) buffer.erase(buffer.begin() + match);
}

int findInCatalogue(std::span<const UnitRecord> catalogue, const ConsistSlot& slot) {
    const std::string wanted = upperAscii(slot.fileName);
    for (std::size_t i = 0; i < catalogue.size(); ++i) {
        if (upperAscii(catalogue[i].fileName) == wanted &&
            catalogue[i].folderPath == slot.folderPath)
            return static_cast<int>(i);
    }
    return -1;
}

}  // namespace

void refreshPics(ConsistState& state) {
    if (state.currentPage > kLastPage) return;
    for (int i = 0; i < kSlotsPerPage; ++i) {
        const ConsistSlot& slot = slotOnPage(state, i);
        SlotView& shown = state.view[i];
        shown.pictureKey = slot.imageKey.empty() ? "EMP" : slot.imageKey;
        shown.toolTip = slot.fileName.empty() ? std::string() : slotToolTip(slot);
        shown.uidText = slot.displayName.empty() ? std::string() : trimBlanks(singleText(slot.uid));
        shown.name = slot.displayName;
    }
    // A unit that is not installed has no file name but still stands in the consist: the arrows
    // look at the names shown.
    const int first = state.currentPage * kSlotsPerPage;
    state.leftArrowVisible = first > 0 && !state.slots[first - 1].displayName.empty();
    const int lastOnPage = first + kSlotsPerPage - 1;
    state.rightArrowVisible =
        lastOnPage < kUsedSlots - 1 && !state.slots[lastOnPage + 1].displayName.empty();
}

void deselectPage(ConsistState& state) {
    if (state.currentPage > kLastPage) return;
    for (int i = 0; i < kSlotsPerPage; ++i) {
        ConsistSlot& slot = slotOnPage(state, i);
        slot.imageKey = unselectedKey(slot.imageKey);
        showKey(state, i);
    }
}

void pressSlot(ConsistState& state, int index, SlotButton button, int shift) {
    ConsistSlot& slot = slotOnPage(state, index);
    state.lastButton = button;
    if (shift == 0 && button == SlotButton::Left) {
        deselectPage(state);
        state.selectionActive = false;
        slot.imageKey = selectedKey(slot.imageKey);
    } else if (shift == 0 && button == SlotButton::Right) {
        state.consistChanged = true;
        state.selectionActive = false;
        flip(slot);
    } else if (shift == kShiftKey && button == SlotButton::Left) {
        const std::string& key = slot.imageKey;
        if (key.empty() || key == "EMP" || key == "EMPSEL") return;
        slot.imageKey = "DEL";
        slot.markedForDelete = true;
    }
    showKey(state, index);
}

void clickSlot(ConsistState& state, int index) {
    if (!state.selectionActive) {
        deselectPage(state);
        state.selectionBuffer.assign(1, ConsistSlot{});
    }
    ConsistSlot& slot = slotOnPage(state, index);
    if (isUnselectedUnitKey(slot.imageKey)) {
        slot.imageKey = selectedKey(slot.imageKey);
        addToSelection(state, slot);
    } else if (isSelectedUnitKey(slot.imageKey)) {
        dropFromSelection(state, slot);
        slot.imageKey = unselectedKey(slot.imageKey);
    }
    state.selectionActive = true;
    showKey(state, index);
}

UnitLookup findUnitOfSlot(const ConsistContext& app, Dialogs& dialogs, int index) {
    const std::string& caption = app.consist.view[index].name;
    if (caption.empty()) return {};
    const ConsistSlot* slot = nullptr;
    for (int i = 0; i < kUsedSlots && !slot; ++i) {
        if (app.consist.slots[i].displayName == caption) slot = &app.consist.slots[i];
    }
    if (!slot) return {};

    UnitLookup lookup;
    lookup.fileName = slot->fileName;
    if (isEngineType(slot->unitType)) {
        lookup.catalogueIndex =
            findInCatalogue(usedRecords(app.catalogue, UnitClass::Engine), *slot);
        if (lookup.catalogueIndex < 0) {
            dialogs.report("The unit does not exist!", Icon::Stop);
            return {};
        }
        lookup.list = UnitLookup::List::Engines;
    } else {
        lookup.catalogueIndex =
            findInCatalogue(usedRecords(app.catalogue, UnitClass::Wagon), *slot);
        if (lookup.catalogueIndex < 0) {
            dialogs.report("This unit does not exist!", Icon::Stop);
            return {};
        }
        lookup.list = UnitLookup::List::Wagons;
    }
    return lookup;
}

}  // namespace rakeyard
