#pragma once
#include <functional>
#include <span>
#include <string>
#include <string_view>

#include "core/consist/consist_context.h"
#include "core/consist/consist_state.h"
#include "core/platform/dialogs.h"

namespace rakeyard {

// UiDs at or above this can't be typed or renumbered from.
inline constexpr long long kUidLimit = 9999700;

// Opens an empty slot at screen position index (0..5; 6 is the first slot of the next page) of
// the current page: the units from there up to the first empty slot move one on, and a unit
// pushed past slot 299 is lost. Deselects the page and redraws it.
void insertUnit(ConsistState& state, int index);

// Adds the unit of a list line (any text ending in "^" and its file name) of locList or wagList:
// in front of a selected unit of the page, else at the first free slot, with the next UiD. Sets
// the totals, a coupling or non-driveable warning, and turns to the next page when this one was
// full. A full consist takes no more.
void addEngineOfLine(const ConsistContext& app, std::string_view listLine);
void addWagonOfLine(const ConsistContext& app, std::string_view listLine);
// The same for a catalogue unit already found.
void addCatalogueUnit(ConsistState& state, const UnitRecord& unit, bool isEngine);

// Adds the wagon of a wagList line many times, in front of the page's selected unit or on the
// next page, then renumbers the UiDs. askNumber shows frmQtd with the wagon's name and returns
// the number chosen (0 on Cancel); it is not called when no line is selected.
void addSeveralWagons(const ConsistContext& app, Dialogs& dialogs, std::string_view wagListLine,
                      const std::function<int(const std::string& wagonName)>& askNumber);

// Appends the selected units at the first free slot, in the order they were clicked, and shows
// the last page.
void pasteUnits(ConsistState& state, Dialogs& dialogs);
// Deletes the slots marked with Shift+click, then offers to close the gaps.
void deleteMarkedUnits(ConsistState& state, Dialogs& dialogs);
// Deletes the unit at screen position index, leaving a gap; nothing after a right button press.
void removeUnitAtSlot(ConsistState& state, int index);

// Numbers the units' positions 1, 2, ... in slot order; empty slots keep theirs.
void setNewPositions(ConsistState& state);
// Renumbers the UiDs of all units consecutively from the UiD of slot 0.
void reorderUnits(ConsistState& state, Dialogs& dialogs);

// index 0 closes the first gap by one slot (the units behind it move back); index 1 widens it by
// one. Nothing happens to a consist without a gap.
void shiftUnits(ConsistState& state, int index);
// index 0 a page back, index 1 a page on.
void turnPage(ConsistState& state, int index);
void showFirstPage(ConsistState& state);
// Shows the page of the first free slot after the highest position.
void showLastUnitPage(ConsistState& state);

// The user typed into the UiD box index: the number is stored as the slot's uid, unless it is too
// big, which is refused with a message.
void setUnitUid(ConsistState& state, Dialogs& dialogs, int index, std::string_view text);
// Any key in the UiD boxes Text1 or the header boxes Text2 marks the consist as changed.
inline void markConsistChanged(ConsistState& state) {
    state.consistChanged = true;
}

}  // namespace rakeyard
