#include "core/tools/max_velocity.h"

#include <gtest/gtest.h>

#include "support/fakes.h"

namespace rakeyard {
namespace {

class CalculateMaxVelocity : public ::testing::Test {
protected:
    test::FakeDialogs dialogs;
    MaxVelocityBoxes boxes = openMaxVelocity("");
};

TEST_F(CalculateMaxVelocity, MilesTypedGiveKilometresAndTheTwoNumbersCutToFourDecimals) {
    boxes.mphMax = "60";
    boxes.lastMaxBox = "mphmax";
    boxes.mphMin = "30";
    boxes.lastMinBox = "mphmin";
    EXPECT_TRUE(calculateMaxVelocity(boxes, dialogs));
    EXPECT_EQ(boxes.kmhMax, "96.5606");
    EXPECT_EQ(boxes.kmhMin, "48.2803");
    EXPECT_EQ(boxes.first, "35.7631");
    EXPECT_EQ(boxes.second, "0.5");
    // The memory is emptied once the twin is set, so 48.2803 km/h never comes back as 29.9999.
    EXPECT_EQ(boxes.mphMin, "30");
    EXPECT_EQ(boxes.mphMax, "60");
    EXPECT_EQ(usedMaxVelocity(boxes), "35.7631 0.5");
    EXPECT_TRUE(dialogs.shown.empty());

    const MaxVelocityBoxes once = boxes;
    EXPECT_TRUE(calculateMaxVelocity(boxes, dialogs));
    EXPECT_EQ(boxes.kmhMax, once.kmhMax);
    EXPECT_EQ(boxes.mphMin, once.mphMin);
    EXPECT_EQ(boxes.second, once.second);
}

TEST_F(CalculateMaxVelocity, OnlyTheBoxTypedInLastConverts) {
    boxes.mphMax = "60";
    boxes.kmhMax = "100";
    boxes.lastMaxBox = "kmhmax";
    boxes.kmhMin = "50";
    EXPECT_TRUE(calculateMaxVelocity(boxes, dialogs));
    EXPECT_EQ(boxes.mphMax, "62.1371");
    EXPECT_EQ(boxes.mphMin, "");  // nothing typed for the low speed: nothing converted
    EXPECT_EQ(boxes.second, "0.5");
    EXPECT_EQ(boxes.first, "37.037");
}

TEST_F(CalculateMaxVelocity, EfficiencyOfZeroOrLessIsRefusedAndChangesNothing) {
    for (const char* efficiency : {"0", "-5", "abc", ""}) {
        boxes = openMaxVelocity("1 2");
        boxes.efficiency = efficiency;
        boxes.mphMax = "60";
        boxes.lastMaxBox = "mphmax";
        EXPECT_FALSE(calculateMaxVelocity(boxes, dialogs)) << efficiency;
        EXPECT_EQ(boxes.kmhMax, "") << efficiency;
        EXPECT_EQ(usedMaxVelocity(boxes), "1 2") << efficiency;
    }
    EXPECT_EQ(dialogs.texts().back(), "The efficiency factor must be greater than 0");
    boxes.efficiency = "150";  // over 100 is accepted
    EXPECT_TRUE(calculateMaxVelocity(boxes, dialogs));
}

TEST_F(CalculateMaxVelocity, TopSpeedOfZeroKeepsTheSecondNumberAndSaysWhy) {
    boxes = openMaxVelocity("  40.00000   1.00000 ");
    EXPECT_EQ(boxes.first, "");  // the first blank comes first: nothing before it
    boxes = openMaxVelocity("40.00000 1.00000");
    EXPECT_EQ(boxes.first, "40.00000");
    EXPECT_EQ(boxes.second, "1.00000");
    boxes.kmhMin = "20";
    EXPECT_FALSE(calculateMaxVelocity(boxes, dialogs));
    EXPECT_EQ(boxes.first, "0");
    EXPECT_EQ(boxes.second, "1.00000");
    ASSERT_EQ(dialogs.shown.size(), 1u);
    EXPECT_NE(dialogs.shown[0].text.find("maximum expected speed"), std::string::npos);
}

TEST(Round4, CutsToFourDecimalsKeepingTheSign) {
    EXPECT_FLOAT_EQ(round4(96.56064f), 96.5606f);
    EXPECT_FLOAT_EQ(round4(-1.23456f), -1.2345f);
    EXPECT_FLOAT_EQ(round4(0.99999f), 0.9999f);
    EXPECT_EQ(round4(0), 0);
}

}  // namespace
}  // namespace rakeyard
