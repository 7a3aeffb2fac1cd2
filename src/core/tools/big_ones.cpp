#include "core/tools/big_ones.h"

#include <functional>

#include "core/consist/consist_model.h"
#include "core/msts/msts_text.h"

namespace rakeyard {

namespace {

// The index of the first record with the greatest value above 0, or 0.
std::size_t indexOfBiggest(std::span<const UnitRecord> records,
                           const std::function<double(const UnitRecord&)>& valueOf) {
    std::size_t best = 0;
    double bestValue = 0;
    for (std::size_t i = 0; i < records.size(); ++i) {
        const double value = valueOf(records[i]);
        if (value > bestValue) {
            bestValue = value;
            best = i;
        }
    }
    return best;
}

BigOne holder(std::string_view heading, const UnitRecord& unit, std::string value) {
    return BigOne{heading, unit.displayName, std::move(value)};
}

}  // namespace

std::array<BigOne, 5> findBigOnes(const UnitCatalogue& catalogue) {
    const auto engines = usedRecords(catalogue, UnitClass::Engine);
    const auto wagons = usedRecords(catalogue, UnitClass::Wagon);
    // An empty catalogue shows an empty record: what lies past the count may be the fields of
    // a file the reader refused.
    static const UnitRecord kNone;
    const auto power = [](const UnitRecord& u) { return numberValue(u.maxPower); };
    const auto length = [](const UnitRecord& u) { return double(u.length); };
    const auto mass = [](const UnitRecord& u) { return double(u.mass); };
    const auto engine = [&](const auto& valueOf) -> const UnitRecord& {
        return engines.empty() ? kNone : engines[indexOfBiggest(engines, valueOf)];
    };
    const auto wagon = [&](const auto& valueOf) -> const UnitRecord& {
        return wagons.empty() ? kNone : wagons[indexOfBiggest(wagons, valueOf)];
    };
    const UnitRecord& strongest = engine(power);
    const UnitRecord& longEngine = engine(length);
    const UnitRecord& heavyEngine = engine(mass);
    const UnitRecord& longWagon = wagon(length);
    const UnitRecord& heavyWagon = wagon(mass);
    return {holder("Most powerful", strongest, strongest.maxPower),
            holder("Longest engine", longEngine, singleText(longEngine.length) + "m"),
            holder("Heaviest engine", heavyEngine, singleText(heavyEngine.mass) + "t"),
            holder("Longest wagon", longWagon, singleText(longWagon.length) + "m"),
            holder("Heaviest wagon", heavyWagon, singleText(heavyWagon.mass) + "t")};
}

}  // namespace rakeyard
