#pragma once
#include <string>

#include "core/consist/consist_context.h"
#include "core/consist/consist_state.h"
#include "core/platform/dialogs.h"

namespace rakeyard {

// The keys held with a press, as flags.
inline constexpr int kShiftKey = 1;
inline constexpr int kCtrlKey = 2;
inline constexpr int kAltKey = 4;

// Draws the current page into state.view (picture keys, tool-tips, UiD texts, names) and sets
// the two page arrows.
void refreshPics(ConsistState& state);
// Turns the selected pictures of the current page back to their unselected keys.
void deselectPage(ConsistState& state);

// A press on screen slot index. Left alone: the slot shows selected. Right alone: the unit flips.
// Shift and left: the unit is marked for deletion. shift is a sum of kShiftKey, kCtrlKey,
// kAltKey.
void pressSlot(ConsistState& state, int index, SlotButton button, int shift);
// The click that follows every press: selects or deselects the unit and keeps selectionBuffer in
// click order. A plain press before it makes it the only selected unit.
void clickSlot(ConsistState& state, int index);

// The catalogue unit behind a name label, for the description window.
struct UnitLookup {
    enum class List { None, Engines, Wagons };
    List list = List::None;  // locList or wagList; None when nothing was found
    int catalogueIndex = -1;
    std::string fileName;  // the key of the list line to select
};
// Finds the unit named by Label1(index) in its catalogue by file name and folder; a unit that is
// not there gets "The unit does not exist!" (engines) or "This unit does not exist!".
UnitLookup findUnitOfSlot(const ConsistContext& app, Dialogs& dialogs, int index);

}  // namespace rakeyard
