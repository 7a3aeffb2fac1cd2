#pragma once
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/consist/consist_state.h"
#include "core/msts/unit_record.h"
#include "core/platform/dialogs.h"

namespace rakeyard {

inline constexpr int kMostRandomWagons = 150;

// The random source of the random consist: a plain 24-bit linear congruential generator with a
// fixed start, written out here so that every run on every platform draws the same sequence.
class RandomSource {
public:
    // The next number, 0 <= r < 1.
    float next();

private:
    std::uint32_t state_ = 0x50000;
};

// The lines of the wagon list under the two filters: each wagon whose front coupler is
// couplerFilter ("A", "B" or "C") and whose type is typeFilter ("Freight" or "Carriage"), both
// exact, as its name, 45 blanks, "^" and its catalogue index.
std::vector<std::string> randomWagonLines(const UnitCatalogue& catalogue,
                                          std::string_view couplerFilter,
                                          std::string_view typeFilter);
// The catalogue index behind the last "^" of a line; -1 when there is none.
int wagonIndexOfLine(std::string_view line);

// "Get wagons": the train as catalogue indices, from the ticked wagons' indices (in list order)
// and the count typed. First each ticked wagon once in mixed order, then random repeats. Empty,
// without a word, when nothing is ticked or the count is not a whole number above 0; empty with
// the message of the limit when it asks for more than 150.
std::vector<int> getRandomWagons(const std::vector<int>& ticked, std::string_view countText,
                                 RandomSource& random, Dialogs& dialogs);

// Puts the train into the editor in place of the consist there (no question: the window that
// asks for it was opened on purpose), slot j holding unit j at position j + 1, with the totals,
// and shows its last page. The picture key is "WAG" for freight and "CAR" for carriages.
void transferConsist(ConsistState& consist, const UnitCatalogue& catalogue,
                     const std::vector<int>& train, std::string_view typeFilter);

}  // namespace rakeyard
