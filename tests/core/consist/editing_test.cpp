#include "core/consist/editing.h"

#include "consist_fixture.h"
#include "core/consist/consist_model.h"
#include "core/consist/slot_view.h"

namespace rakeyard::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Editing : public ConsistTest {
protected:
    void click(int index, int shift = 0, SlotButton button = SlotButton::Left) {
        pressSlot(state(), index, button, shift);
        clickSlot(state(), index);
    }
    std::vector<std::string> files(int count) {
        std::vector<std::string> names;
        for (int i = 0; i < count; ++i)
            names.push_back(slot(i).fileName);
        return names;
    }
};

TEST_F(Editing, DoubleClickPutsTheNewUnitInFrontOfTheSelectedOne) {
    add({"eng:GP38.eng", "wag:Box.wag", "wag:Coach.wag", "wag:Box.wag", "wag:Coach.wag"});
    click(3);
    add({"wag:Tend(1).wag"});
    EXPECT_THAT(files(6), ElementsAre("GP38.eng", "Box.wag", "Coach.wag", "Tend(1).wag", "Box.wag",
                                      "Coach.wag"));
    EXPECT_EQ(slot(3).position, 4);
    EXPECT_EQ(slot(4).position, 4) << "positions are not renumbered";
    EXPECT_EQ(slot(3).uid, 6);
    EXPECT_EQ(slot(4).imageKey, "WAG");
    EXPECT_EQ(state().pendingWarning, "WARNING: Different coupling type !");
    EXPECT_TRUE(state().consistChanged);
    add({"eng:ES44.eng"});
    EXPECT_EQ(state().pendingWarning, "WARNING: Non-driveable engine!");
    EXPECT_EQ(state().totals.wagons, "5");
}

TEST_F(Editing, PasteAppendsTheClickedUnitsInClickOrder) {
    add({"eng:GP38.eng", "wag:Box.wag", "wag:Coach.wag"});
    click(2);
    click(0, kCtrlKey);
    pasteUnits(state(), fake.dialogs);
    EXPECT_THAT(files(5), ElementsAre("GP38.eng", "Box.wag", "Coach.wag", "Coach.wag", "GP38.eng"));
    EXPECT_EQ(slot(3).imageKey, "CARSEL");
    EXPECT_EQ(slot(4).uid, slot(0).uid) << "UiDs repeat until renumbered";
    EXPECT_EQ(slot(4).position, 5);
    EXPECT_FALSE(state().selectionActive);
    EXPECT_EQ(state().totals.wagons, "3");

    pasteUnits(state(), fake.dialogs);
    EXPECT_THAT(fake.dialogs.texts(),
                ElementsAre("First select a unit in the editor by clicking on it\n"
                            "or use Ctrl-Click to select more than one unit at a time."));
}

TEST_F(Editing, DeselectedUnitIsNotPasted) {
    add({"eng:GP38.eng", "wag:Box.wag", "wag:Coach.wag"});
    click(0);
    click(1, kCtrlKey);
    click(2, kCtrlKey);
    click(1, kCtrlKey);
    EXPECT_EQ(slot(1).imageKey, "WAG");
    pasteUnits(state(), fake.dialogs);
    EXPECT_THAT(files(6),
                ElementsAre("GP38.eng", "Box.wag", "Coach.wag", "GP38.eng", "Coach.wag", ""));
}

TEST_F(Editing, DeleteRemovesOnlyTheSlotsMarkedWithShiftClick) {
    add({"eng:GP38.eng", "wag:Box.wag", "wag:Coach.wag", "wag:Box.wag"});
    deleteMarkedUnits(state(), fake.dialogs);
    EXPECT_THAT(fake.dialogs.texts(),
                ElementsAre("First select a unit in the editor with Shift + Click!"));

    click(0);
    click(2, kShiftKey);
    EXPECT_EQ(slot(0).imageKey, "DSLSEL");
    EXPECT_EQ(slot(2).imageKey, "DEL");
    fake.dialogs.answers = {Answer::No};
    deleteMarkedUnits(state(), fake.dialogs);
    EXPECT_THAT(files(4), ElementsAre("GP38.eng", "Box.wag", "", "Box.wag"));
    EXPECT_EQ(slot(2).imageKey, "");
    EXPECT_EQ(slot(3).position, 3);
    EXPECT_EQ(state().totals.wagons, "2");
    EXPECT_EQ(state().totals.mass, "173.52");  // round2(round2(218.52) - 45)
    EXPECT_EQ(fake.dialogs.texts().back(), "Do you wish to shift and clear the gaps?");

    click(1, kShiftKey);
    fake.dialogs.answers = {Answer::Yes};
    deleteMarkedUnits(state(), fake.dialogs);
    EXPECT_THAT(files(3), ElementsAre("GP38.eng", "Box.wag", ""));
}

TEST_F(Editing, RightClickFlipsAndLeavesThatUnitAloneSelected) {
    add({"eng:GP38.eng", "wag:Box.wag", "wag:Coach.wag"});
    click(0);
    click(1, kCtrlKey);
    state().consistChanged = false;
    click(2, 0, SlotButton::Right);
    EXPECT_EQ(slot(2).imageKey, "CARINVSEL");
    EXPECT_TRUE(slot(2).flipped);
    EXPECT_EQ(slot(0).imageKey, "DSL");
    EXPECT_EQ(slot(1).imageKey, "WAG");
    ASSERT_EQ(state().selectionBuffer.size(), 2u);
    EXPECT_EQ(state().selectionBuffer[0].fileName, "Coach.wag");
    EXPECT_TRUE(state().consistChanged);

    removeUnitAtSlot(state(), 2);
    EXPECT_EQ(slot(2).fileName, "Coach.wag") << "a double click after a right press does nothing";
}

TEST_F(Editing, NinetyNineWagonsAreAddedAndRenumbered) {
    add({"eng:GP38.eng"});
    slot(0).uid = 50;
    const std::string line = "Box unit                       [AA] Freight        ^box.wag";
    std::string askedFor;
    addSeveralWagons(*app, fake.dialogs, line, [&](const std::string& name) {
        askedFor = name;
        return 99;
    });
    EXPECT_EQ(askedFor, "Box unit");
    for (int i = 0; i < 100; ++i) {
        ASSERT_EQ(slot(i).uid, 50 + i) << i;
        ASSERT_EQ(slot(i).fileName, i == 0 ? "GP38.eng" : "Box.wag") << i;
    }
    EXPECT_EQ(slot(100).fileName, "");
    EXPECT_EQ(state().totals.wagons, "99");
    EXPECT_THAT(fake.dialogs.texts(), IsEmpty());

    addSeveralWagons(*app, fake.dialogs, line, [](const std::string&) { return 100; });
    addSeveralWagons(*app, fake.dialogs, "", [](const std::string&) -> int { throw 1; });
    EXPECT_THAT(fake.dialogs.texts(), ElementsAre("That number is too big! The maximum you can\n"
                                                  "add this way must be less than 100.",
                                                  "You must select a wagon from the list"));
    EXPECT_EQ(slot(100).fileName, "");
}

TEST_F(Editing, ShiftLeftTwiceClosesATwoSlotGap) {
    add({"eng:GP38.eng", "wag:Box.wag", "wag:Coach.wag", "wag:Tend(1).wag", "wag:Box.wag"});
    removeUnitAtSlot(state(), 1);
    removeUnitAtSlot(state(), 2);
    shiftUnits(state(), 0);
    EXPECT_THAT(files(5), ElementsAre("GP38.eng", "", "Tend(1).wag", "Box.wag", ""));
    shiftUnits(state(), 0);
    EXPECT_THAT(files(5), ElementsAre("GP38.eng", "Tend(1).wag", "Box.wag", "", ""));
    shiftUnits(state(), 0);
    EXPECT_THAT(files(3), ElementsAre("GP38.eng", "Tend(1).wag", "Box.wag")) << "no gap left";

    removeUnitAtSlot(state(), 1);
    shiftUnits(state(), 1);
    EXPECT_THAT(files(4), ElementsAre("GP38.eng", "", "", "Box.wag")) << "right widens the gap";
}

TEST_F(Editing, RenumberStartsFromTheFirstUidUpToTheLimit) {
    add({"eng:GP38.eng", "wag:Box.wag", "wag:Coach.wag"});
    clearSlot(slot(1));
    const struct {
        float first;
        bool done;
    } cases[] = {{9999701, false}, {9999700, true}, {12, true}};
    for (const auto& c : cases) {
        slot(0).uid = c.first;
        slot(2).uid = 1;
        fake.dialogs.shown.clear();
        reorderUnits(state(), fake.dialogs);
        EXPECT_EQ(fake.dialogs.shown.empty(), c.done) << c.first;
        EXPECT_EQ(slot(2).uid, c.done ? c.first + 1 : 1) << "over the gap: " << c.first;
    }
}

TEST_F(Editing, TypedUidTooBigIsRefused) {
    add({"eng:GP38.eng"});
    setUnitUid(state(), fake.dialogs, 0, " 9999699 ");
    EXPECT_EQ(slot(0).uid, 9999699);
    setUnitUid(state(), fake.dialogs, 0, "9999700");
    EXPECT_EQ(slot(0).uid, 9999699);
    EXPECT_THAT(fake.dialogs.texts(),
                ElementsAre("Number too big! You must choose a smaller one."));
}

TEST_F(Editing, EndShowsThePageOfTheFirstFreeSlot) {
    add({"eng:GP38.eng", "wag:Box.wag", "wag:Box.wag", "wag:Box.wag", "wag:Box.wag",
         "wag:Box.wag"});
    EXPECT_EQ(state().currentPage, 0);
    showLastUnitPage(state());
    EXPECT_EQ(state().currentPage, 1);
    EXPECT_TRUE(state().leftArrowVisible);
}

TEST_F(Editing, FullConsistTakesNoMore) {
    for (int i = 0; i < kUsedSlots; ++i)
        add({"wag:Box.wag"});
    EXPECT_EQ(state().currentPage, kLastPage);
    EXPECT_EQ(slot(299).position, 300);
    const ConsistTotals before = state().totals;
    add({"eng:GP38.eng"});
    EXPECT_EQ(state().totals.mass, before.mass);
    EXPECT_EQ(state().totals.wagons, "300");
    EXPECT_EQ(slot(299).fileName, "Box.wag");
    EXPECT_EQ(state().currentPage, kLastPage);
}

}  // namespace
}  // namespace rakeyard::test
