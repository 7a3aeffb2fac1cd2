#include "core/tools/consists_using.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "support/fakes.h"
#include "support/msts_tree.h"

namespace rakeyard {
namespace {

using ::testing::ElementsAre;

UnitRecord hopper() {
    UnitRecord unit;
    unit.fileName = "RY_HTA.wag";
    unit.folderName = "RY_Hoppers";
    return unit;
}

std::string consistWith(const std::string& data) {
    return "Train (\n\tTrainCfg ( T\n\t\tWagon (\n\t\t\tWagonData ( " + data + " )\n\t\t)\n\t)\n)";
}

TEST(ConsistNamesUnit, EachOfTheFourFormsInAnyCaseAndNoOther) {
    const struct {
        const char* data;
        bool names;
    } cases[] = {
        {"RY_HTA RY_Hoppers", true},     {"\"ry_hta\" RY_HOPPERS", true},
        {"RY_HTA \"RY_Hoppers\"", true}, {"\"RY_HTA\" \"RY_Hoppers\"", true},
        {"RY_HTA  RY_Hoppers", false},   {"RY_HTA OtherFolder", false},
        {"RY_HTA_B RY_Hoppers", false},
    };
    for (const auto& c : cases) {
        const std::string text = consistWith(c.data);
        EXPECT_EQ(consistNamesUnit(text, hopper()), c.names) << c.data;
        std::string wide = "\xFF\xFE" + test::utf16Bytes(text);
        EXPECT_EQ(consistNamesUnit(wide, hopper()), c.names) << c.data << " in UTF-16";
    }
}

TEST(ConsistsUsingUnit, ListsEachConsistOnceInListingOrder) {
    test::MstsTree msts;
    test::FakeServices fake;
    msts.write("TRAINS/CONSISTS/b.con",
               consistWith("RY_HTA RY_Hoppers )\n\tWagonData ( \"RY_HTA\" RY_Hoppers"));
    msts.write("TRAINS/CONSISTS/A.con", consistWith("\"RY_HTA\" RY_Hoppers"));
    msts.write("TRAINS/CONSISTS/c.con", consistWith("RY_HAA RY_Hoppers"));
    msts.write("TRAINS/CONSISTS/d.txt", consistWith("RY_HTA RY_Hoppers"));
    EXPECT_THAT(consistsUsingUnit(hopper(), msts.consists(), fake.fs),
                ElementsAre("A.con", "b.con"));
}

TEST(TrashListedConsist, TakesOnlyAPlainNameInTheFolder) {
    test::MstsTree msts;
    test::FakeServices fake;
    msts.write("TRAINS/CONSISTS/a.con", "x");
    EXPECT_FALSE(trashListedConsist(msts.consists(), "../a.con", fake.services));
    EXPECT_TRUE(fake.desktop.trashed.empty());
    EXPECT_TRUE(trashListedConsist(msts.consists(), "a.con", fake.services));
    EXPECT_EQ(fake.desktop.trashed.size(), 1u);
}

}  // namespace
}  // namespace rakeyard
