#include "core/consist/consist_model.h"

#include <filesystem>

#include "consist_fixture.h"
#include "core/consist/editing.h"
#include "core/consist/save_offer.h"
#include "core/consist/slot_view.h"

namespace rakeyard::test {
namespace {

namespace fs = std::filesystem;

using ::testing::ElementsAre;

TEST(SingleText, PrintsSevenSignificantDigitsWithoutTrailingZeros) {
    const struct {
        double value;
        const char* text;
    } cases[] = {{12.34, "12.34"},     {0, "0"},
                 {-0.0, "0"},          {100, "100"},
                 {0.5, "0.5"},         {3.14159265, "3.141593"},
                 {1234567, "1234567"}, {12345678, "1.234568E+07"},
                 {-2.25, "-2.25"}};
    for (const auto& c : cases)
        EXPECT_EQ(singleText(c.value), c.text) << c.value;
}

TEST(Totals, LengthAndMassShowFeetAndImperialTonsWithTheirFontSizes) {
    const struct {
        const char* metres;
        const char* shownMetres;
        const char* feet;
        int feetFont;
    } lengths[] = {{"10", "10", "32.8", 10},
                   {"1000.5", "1000.5", "3282.48", 10},
                   {"10000", "10000", "32808.39", 8},
                   {"-0.01", "0", "0", 10}};
    for (const auto& c : lengths) {
        ConsistTotals totals;
        setLengthText(totals, c.metres);
        EXPECT_EQ(totals.length, c.shownMetres) << c.metres;
        EXPECT_EQ(totals.feet, c.feet) << c.metres;
        EXPECT_EQ(totals.feetFontSize, c.feetFont) << c.metres;
    }
    ConsistTotals totals;
    setMassText(totals, "100");
    EXPECT_EQ(totals.impTons, "98.42");
    EXPECT_EQ(totals.massFontSize, 10);
    setMassText(totals, "12345.67");
    EXPECT_EQ(totals.massFontSize, 8);
    EXPECT_EQ(totals.impTons, "12150.68");
    EXPECT_EQ(totals.impTonsFontSize, 8);
}

class ConsistModel : public ConsistTest {};

// Units a third of a metre long tell the rounding orders apart.
TEST_F(ConsistModel, InsertSumsPlainlyWhilePasteAndDeleteRoundEachStep) {
    app->catalogue.wagons[0].length = 0.333f;
    add({"wag:Box.wag", "wag:Box.wag", "wag:Box.wag"});
    EXPECT_EQ(state().totals.length, "0.999");
    EXPECT_EQ(state().totals.wagons, "3");

    pressSlot(state(), 0, SlotButton::Left, 0);
    clickSlot(state(), 0);
    pasteUnits(state(), fake.dialogs);
    EXPECT_EQ(state().totals.length, "1.32");  // round2(round2(0.999) + 0.333)
    EXPECT_EQ(state().totals.wagons, "4");

    showFirstPage(state());
    removeUnitAtSlot(state(), 0);
    EXPECT_EQ(state().totals.length, "0.98");  // round2(1.32 - 0.333)
    EXPECT_EQ(state().totals.wagons, "3");
}

TEST_F(ConsistModel, CouplingCheckWarnsOnlyWhereNeighboursDiffer) {
    const struct {
        int j;
        const char* before;  // front and rear of slot j-1 ("" for none)
        const char* unit;
        const char* after;  // front of slot j+1
        bool warns;
    } cases[] = {
        {0, "", "AA", "", false},     {0, "", "AB", "A", true},     {0, "", "AA", "A", false},
        {1, "AA", "AA", "A", false},  {1, "AB", "AA", "", true},    {1, "?B", "AA", "", true},
        {1, "-B", "AA", "", false},   {5, "A?", "AA", "", true},    {149, "AB", "AA", "B", true},
        {148, "AA", "AB", "A", true}, {150, "AB", "AA", "B", false}};
    for (const auto& c : cases) {
        ConsistState& s = state();
        for (ConsistSlot& slot : s.slots)
            clearSlot(slot);
        s.pendingWarning.clear();
        const auto set = [&](int i, std::string_view codes) {
            if (codes.empty()) return;
            s.slots[i].couplerFront = codes[0] == '-' ? "" : std::string(1, codes[0]);
            if (codes.size() > 1) s.slots[i].couplerRear = std::string(1, codes[1]);
        };
        if (c.j > 0) set(c.j - 1, c.before);
        set(c.j, c.unit);
        set(c.j + 1, c.after);
        checkCoupling(s, c.j);
        EXPECT_EQ(s.pendingWarning, c.warns ? "WARNING: Different coupling type !" : "")
            << "slot " << c.j << " " << c.before;
    }
}

TEST_F(ConsistModel, ClearingAfterARefusedSaveKeepsTheConsistThenEmptiesItOnNo) {
    add({"eng:GP38.eng", "wag:Box.wag"});
    fake.dialogs.answers = {Answer::Yes};
    EXPECT_FALSE(clearConsist(*app, fake.services));
    EXPECT_THAT(fake.dialogs.texts(),
                ElementsAre("Save changes to the consist?",
                            "You must provide a file name for this consist!"));
    EXPECT_TRUE(state().consistChanged);
    EXPECT_EQ(slot(0).fileName, "GP38.eng");

    fake.dialogs.answers = {Answer::No};
    EXPECT_TRUE(clearConsist(*app, fake.services));
    EXPECT_FALSE(state().consistChanged);
    EXPECT_EQ(slot(0).displayName, "");
    EXPECT_EQ(state().totals.length, "0");
    EXPECT_EQ(state().totals.feet, "0");
    EXPECT_EQ(state().totals.wagons, "0");
    EXPECT_EQ(state().view[0].pictureKey, "EMP");
    EXPECT_EQ(state().selectionBuffer.size(), 1u);

    EXPECT_TRUE(clearConsist(*app, fake.services));
    EXPECT_EQ(fake.dialogs.shown.size(), 3u) << "nothing to save: no question";
}

TEST_F(ConsistModel, TheWindowTitleNamesTheFileAndMarksUnsavedChanges) {
    EXPECT_EQ(consistWindowTitle(state()), "Rake Yard");
    state().consistChanged = true;
    EXPECT_EQ(consistWindowTitle(state()), "(new consist)* - Rake Yard");
    state().header.fileName = "RY_Coal_Up";
    EXPECT_EQ(consistWindowTitle(state()), "RY_Coal_Up.con* - Rake Yard");
    state().consistChanged = false;
    EXPECT_EQ(consistWindowTitle(state()), "RY_Coal_Up.con - Rake Yard");
}

TEST_F(ConsistModel, CancelAtTheSaveQuestionLeavesEverythingAsItWas) {
    add({"eng:GP38.eng"});
    state().header.fileName = "Kept";
    fake.dialogs.answers = {Answer::Cancel};
    EXPECT_EQ(offerToSaveConsist(*app, fake.services), SaveOffer::Cancelled);
    fake.dialogs.answers = {Answer::Cancel};
    EXPECT_FALSE(clearConsist(*app, fake.services));
    EXPECT_TRUE(state().consistChanged);
    EXPECT_EQ(slot(0).fileName, "GP38.eng");
    EXPECT_FALSE(fs::exists(consistPath("Kept.con")));
}

}  // namespace
}  // namespace rakeyard::test
