#include "core/tools/big_ones.h"

#include <gtest/gtest.h>

#include <memory>

namespace rakeyard {
namespace {

UnitRecord unit(const char* name, float length, float mass, const char* power = "") {
    UnitRecord record;
    record.fileName = std::string(name) + ".eng";
    record.displayName = name;
    record.length = length;
    record.mass = mass;
    record.maxPower = power;
    return record;
}

TEST(FindBigOnes, EachRecordHasItsHolderAndEqualValuesShowTheFirst) {
    auto catalogue = std::make_unique<UnitCatalogue>();
    catalogue->engines[0] = unit("Shunter", 8.9f, 49, "400hp");
    catalogue->engines[1] = unit("Class 37", 18.75f, 105, "1750hp");  // the bare number wins
    catalogue->engines[2] = unit("Class 86", 17.8f, 105, "1500kW");   // as heavy, but later
    catalogue->engineCount = 3;
    catalogue->wagons[0] = unit("Van", 6.1f, 15.3f);
    catalogue->wagons[1] = unit("Coach", 20.2f, 33);
    catalogue->wagonCount = 2;
    catalogue->wagons[2] = unit("Refused", 99, 99);  // past the count: not a unit
    const auto bigOnes = findBigOnes(*catalogue);
    EXPECT_EQ(bigOnes[0].heading, "Most powerful");
    EXPECT_EQ(bigOnes[0].name, "Class 37");
    EXPECT_EQ(bigOnes[0].value, "1750hp");
    EXPECT_EQ(bigOnes[1].value, "18.75m");
    EXPECT_EQ(bigOnes[2].name, "Class 37");
    EXPECT_EQ(bigOnes[2].value, "105t");
    EXPECT_EQ(bigOnes[3].name, "Coach");
    EXPECT_EQ(bigOnes[4].name, "Coach");
    EXPECT_EQ(bigOnes[4].value, "33t");
}

TEST(FindBigOnes, EmptyCatalogueShowsEmptyNamesAndNoughts) {
    auto catalogue = std::make_unique<UnitCatalogue>();
    for (const BigOne& holder : findBigOnes(*catalogue)) {
        EXPECT_EQ(holder.name, "") << holder.heading;
        EXPECT_TRUE(holder.value == "" || holder.value == "0m" || holder.value == "0t")
            << holder.heading;
    }
    EXPECT_EQ(findBigOnes(*catalogue)[4].value, "0t");
}

}  // namespace
}  // namespace rakeyard
