#include "core/tools/random_consist.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <set>

#include "support/fakes.h"

namespace rakeyard {
namespace {

using ::testing::ElementsAre;

class RandomConsist : public ::testing::Test {
protected:
    void SetUp() override {
        const char* couplers[] = {"A", "A", "C", "A", "A", "B"};
        const char* types[] = {"Freight", "Freight", "Freight", "Carriage", "Freight", "Freight"};
        for (int i = 0; i < 6; ++i) {
            UnitRecord& wagon = catalogue->wagons[i];
            wagon.folderName = "W" + std::to_string(i);
            wagon.fileName = "w" + std::to_string(i) + ".wag";
            wagon.displayName = "Wagon " + std::to_string(i);
            wagon.unitType = types[i];
            wagon.couplerFront = wagon.couplerRear = couplers[i];
            wagon.mass = 10.25f;
            wagon.length = 12.5f;
        }
        catalogue->wagonCount = 6;
    }

    std::unique_ptr<UnitCatalogue> catalogue = std::make_unique<UnitCatalogue>();
    test::FakeDialogs dialogs;
    RandomSource random;
};

TEST_F(RandomConsist, ListHoldsTheWagonsOfTheCouplerAndTypeWithTheirIndex) {
    const auto lines = randomWagonLines(*catalogue, "A", "Freight");
    ASSERT_EQ(lines.size(), 3u);
    EXPECT_EQ(lines[2], "Wagon 4" + std::string(45, ' ') + "^4");
    EXPECT_EQ(wagonIndexOfLine(lines[2]), 4);
    EXPECT_EQ(wagonIndexOfLine("a ^ b ^12"), 12);
    EXPECT_EQ(wagonIndexOfLine("no mark"), -1);
    EXPECT_EQ(randomWagonLines(*catalogue, "A", "Carriage").size(), 1u);
    EXPECT_TRUE(randomWagonLines(*catalogue, "a", "freight").empty());  // exact comparisons
}

TEST_F(RandomConsist, FewerAskedThanTickedGivesThatManyOfTheTickedInMixedOrder) {
    const std::vector<int> train = getRandomWagons({0, 1, 4}, "2", random, dialogs);
    ASSERT_EQ(train.size(), 2u);
    EXPECT_NE(train[0], train[1]);
    for (int index : train)
        EXPECT_TRUE(index == 0 || index == 1 || index == 4) << index;
}

TEST_F(RandomConsist, EveryTickedWagonComesOnceBeforeTheRepeats) {
    const std::vector<int> ticked = {0, 1, 3, 4, 5};
    const std::vector<int> train = getRandomWagons(ticked, "40", random, dialogs);
    ASSERT_EQ(train.size(), 40u);
    EXPECT_EQ(std::set<int>(train.begin(), train.begin() + 5),
              std::set<int>(ticked.begin(), ticked.end()));
    for (int index : train)
        EXPECT_NE(std::find(ticked.begin(), ticked.end(), index), ticked.end()) << index;
}

TEST_F(RandomConsist, OneTickedWagonFillsTheTrainWithItself) {
    EXPECT_THAT(getRandomWagons({4}, "3", random, dialogs), ElementsAre(4, 4, 4));
}

TEST_F(RandomConsist, TheSequenceIsTheSameInEveryRun) {
    RandomSource other;
    const std::vector<int> ticked = {0, 1, 2, 3, 4, 5};
    const auto first = getRandomWagons(ticked, "20", random, dialogs);
    EXPECT_EQ(getRandomWagons(ticked, "20", other, dialogs), first);
    // The first draws of the generator, pinned so that no platform or change drifts from them.
    RandomSource pinned;
    EXPECT_FLOAT_EQ(pinned.next(), 0.7055475f);
    EXPECT_FLOAT_EQ(pinned.next(), 0.533424f);
}

TEST_F(RandomConsist, CountOverTheLimitIsToldAndOthersThatAreNoNumberDoNothing) {
    EXPECT_EQ(getRandomWagons({0}, "150", random, dialogs).size(), 150u);
    EXPECT_TRUE(dialogs.shown.empty());
    for (const char* count : {"151", "99999"}) {
        EXPECT_TRUE(getRandomWagons({0}, count, random, dialogs).empty()) << count;
        EXPECT_EQ(dialogs.texts().back(), "The maximum number of wagons you can add is 150!");
    }
    dialogs.shown.clear();
    for (const char* count : {"0", "", "-5", "abc", "3x"})
        EXPECT_TRUE(getRandomWagons({0}, count, random, dialogs).empty()) << count;
    EXPECT_TRUE(getRandomWagons({}, "3", random, dialogs).empty());
    EXPECT_TRUE(dialogs.shown.empty());
}

TEST_F(RandomConsist, TransferReplacesTheConsistNumberingPositionsFromOne) {
    ConsistState consist;
    consist.slots[7].displayName = "left over";
    consist.header.name = "old";
    transferConsist(consist, *catalogue, {1, 0, 1}, "Freight");
    EXPECT_EQ(consist.slots[0].fileName, "w1.wag");
    EXPECT_EQ(consist.slots[1].fileName, "w0.wag");
    EXPECT_EQ(consist.slots[2].position, 3);
    EXPECT_EQ(consist.slots[2].uid, 2);
    EXPECT_EQ(consist.slots[0].imageKey, "WAG");
    EXPECT_TRUE(consist.slots[3].displayName.empty());
    EXPECT_TRUE(consist.slots[7].displayName.empty());
    EXPECT_EQ(consist.header.name, "");
    EXPECT_EQ(consist.totals.mass, "30.75");
    EXPECT_EQ(consist.totals.length, "37.5");
    EXPECT_EQ(consist.totals.wagons, "3");
    EXPECT_TRUE(consist.consistChanged);
}

}  // namespace
}  // namespace rakeyard
