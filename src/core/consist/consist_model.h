#pragma once
#include <string>
#include <string_view>

#include "core/consist/consist_state.h"
#include "core/msts/msts_text.h"

namespace rakeyard {

// The whole part (rounded down) of a number as an integer, held to the 64-bit range.
long long wholeNumber(double value);

// Sets lblLenght and, from it, lblFeet with its font size. A negative length shows "0".
void setLengthText(ConsistTotals& totals, std::string text);
// Sets lblWeight with its own font size and, from it, lblImpTon with its font size.
void setMassText(ConsistTotals& totals, std::string text);
// Adds delta to the number in lblWagons.
void changeWagonCount(ConsistTotals& totals, int delta);

// The totals after a unit came from a catalogue list: plain sums, no rounding.
void addInsertedUnit(ConsistTotals& totals, const ConsistSlot& unit);
// The totals after a paste: round2(round2(total) + value) for length and mass.
void addPastedUnit(ConsistTotals& totals, const ConsistSlot& unit);
// The totals after a delete: round2(round2(total) - value) for length and mass.
void subtractUnit(ConsistTotals& totals, const ConsistSlot& unit);

// True for a unit of the wagon catalogue (its file ends in ".wag", any case). A slot of a unit
// that is not in the catalogue has no file name and is neither engine nor wagon.
bool isWagonUnit(const ConsistSlot& slot);
// Empties a slot: every text "", every number 0.
void clearSlot(ConsistSlot& slot);
// Puts a catalogue unit's fields into a slot, with the picture key of its type; a wagon leaves
// maxPower and hasCab alone.
void copyCatalogueFields(ConsistSlot& slot, const UnitRecord& unit, bool isEngine);
// The highest whole uid of slots 0..299.
long long highestUid(const ConsistState& state);
// The highest position of slots 0..299.
int highestPosition(const ConsistState& state);

// The coupler check after a unit was stored in slot j from a catalogue list: a front coupler
// that differs from its neighbour's rear sets "WARNING: Different coupling type !" as the
// pending warning. Slots above 149 are not checked.
void checkCoupling(ConsistState& state, int j);

// The main window's title: the consist's file and a "*" while it has unsaved changes
// ("RY_Coal_Up.con* - Rake Yard"); the program's name alone for an unnamed, unchanged consist.
[[nodiscard]] std::string consistWindowTitle(const ConsistState& state);

// Empties the consist, the header boxes, the totals, the page and the selection; consistChanged
// ends 0. Unsaved changes are the caller's to offer for saving first (clearConsist).
void clearAll(ConsistState& state);

}  // namespace rakeyard
