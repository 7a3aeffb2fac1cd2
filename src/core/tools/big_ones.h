#pragma once
#include <array>
#include <string>
#include <string_view>

#include "core/msts/unit_record.h"

namespace rakeyard {

// One record holder: its display name and the value as the window shows it.
struct BigOne {
    std::string_view heading;  // "Most powerful", "Longest engine", ...
    std::string name;
    std::string value;  // the power text as written, or "18.5m", "80t"
};

// The most powerful, longest and heaviest engine and the longest and heaviest wagon, in that
// order. Power compares the number its text begins with, whatever unit follows; of equal units
// the first in the catalogue wins, and a catalogue without a bigger one than 0 shows its first
// record (empty names, "0m", "0t").
std::array<BigOne, 5> findBigOnes(const UnitCatalogue& catalogue);

}  // namespace rakeyard
