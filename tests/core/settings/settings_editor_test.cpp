#include "core/settings/settings_editor.h"

#include <gtest/gtest.h>

#include "core/settings/settings_file.h"
#include "support/fakes.h"
#include "support/msts_tree.h"

namespace rakeyard {
namespace {

TEST(ToSettingsNumber, ReadsTheLeadingNumberRoundedAndHeldIn16Bits) {
    struct Case {
        std::string text;
        std::int16_t value;
    };
    const Case cases[] = {
        {"1234", 1234},   {"  -7", -7},       {"+5", 5},
        {"12abc", 12},    {"abc", 0},         {"", 0},
        {"-", 0},         {".", 0},           {"2.5", 2},
        {"3.5", 4},       {"-2.5", -2},       {"0.6", 1},
        {".5", 0},        {"1e3", 1000},      {"1.5e", 2},
        {"2E+2x", 200},   {"32767", 32767},   {"32768", 32767},
        {"40000", 32767}, {"-32768", -32768}, {"-40000", -32768},
        {"1e999", 32767}, {"-1e999", -32768}, {"1e-999", 0},
        {"1,5", 1},       {"\t42", 42},       {"99999999999999999999", 32767},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(toSettingsNumber(c.text), c.value) << '"' << c.text << '"';
    }
}

TEST(SettingsBoxes, ShowTrimmedTextsAndDecimalNumbersUnderTheFieldNames) {
    SettingsRecord record;
    setText(record, &SettingsRecord::mstsPath, "  /msts");
    record.descriptionTop = -120;
    const std::vector<SettingsBox> boxes = settingsBoxes(record);

    ASSERT_EQ(boxes.size(), kSettingsFieldCount);
    EXPECT_EQ(boxes[0].toolTip, "3D viewer path");
    EXPECT_EQ(boxes[0].text, "");  // zero bytes show as an empty box
    EXPECT_EQ(boxes[3].toolTip, "MSTS path");
    EXPECT_EQ(boxes[3].text, "/msts");
    EXPECT_EQ(boxes[9].toolTip, "Descripton form top");
    EXPECT_EQ(boxes[9].text, "-120");
    EXPECT_EQ(boxes[30].toolTip, "Dependencies form width");
    EXPECT_EQ(boxes[30].text, "0");
}

class StoreSettingsBoxes : public ::testing::Test {
protected:
    void SetUp() override { paths.programFolder = home.path(); }
    test::TempFolder home;
    test::FakeServices fake;
    PathGlobals paths;
};

TEST_F(StoreSettingsBoxes, WritesBackWhatTheBoxesShowed) {
    SettingsRecord record;
    int index = 0;
    for (const SettingsField& field : settingsFields()) {
        if (field.text) {
            setText(record, field.text, "v" + std::to_string(index));
        } else {
            record.*field.number = static_cast<std::int16_t>(index * 100 - 1500);
        }
        ++index;
    }
    std::vector<std::string> texts;
    for (const SettingsBox& box : settingsBoxes(record))
        texts.push_back(box.text);

    SettingsRecord edited;
    EXPECT_TRUE(storeSettingsBoxes(texts, edited, paths, fake.services));
    EXPECT_EQ(edited, record);
    EXPECT_EQ(parseSettings(test::readWholeFile(home / "settings.bin")), record);
    EXPECT_EQ(paths.mstsPath, "v3");
}

TEST_F(StoreSettingsBoxes, ResetsTheAliasWarningAndTurnsNonNumbersIntoZero) {
    SettingsRecord record;
    record.showAliasWarning = 1;
    record.mainLeft = 555;
    std::vector<std::string> texts;
    for (const SettingsBox& box : settingsBoxes(record))
        texts.push_back(box.text);
    texts[24] = "0";
    texts[15] = "left";

    EXPECT_TRUE(storeSettingsBoxes(texts, record, paths, fake.services));
    EXPECT_EQ(record.showAliasWarning, 0);
    EXPECT_EQ(record.mainLeft, 0);
    // Boxes that showed nothing are stored as blanks: still unset.
    EXPECT_EQ(record.viewerPath, std::string(200, ' '));
    EXPECT_TRUE(isUnset(record.viewerPath));
}

}  // namespace
}  // namespace rakeyard
