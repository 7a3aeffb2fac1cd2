#include "core/consist/edit_history.h"

#include "consist_fixture.h"
#include "core/consist/editing.h"
#include "core/consist/slot_view.h"

namespace rakeyard::test {
namespace {

class EditHistoryTest : public ConsistTest {
protected:
    void edit(std::string_view label, const std::function<void()>& action, bool merge = false) {
        history.begin(label, state());
        action();
        history.commit(state(), merge);
    }
    std::vector<std::string> files() {
        std::vector<std::string> names;
        for (int i = 0; i < 6; ++i)
            names.push_back(slot(i).fileName);
        return names;
    }
    EditHistory history;
};

TEST_F(EditHistoryTest, UndoAndRedoRestoreTheExactSlotsAndHeader) {
    edit("Add engine", [&] { addEngineOfLine(*app, "^GP38.eng"); });
    edit("Add wagon", [&] { addWagonOfLine(*app, "^Box.wag"); });
    edit(
        "Edit header", [&] { state().header.name = "N"; }, true);
    edit(
        "Edit header", [&] { state().header.name = "Night"; }, true);
    edit("Flip unit", [&] { pressSlot(state(), 1, SlotButton::Right, 0); });
    const auto after = files();
    EXPECT_TRUE(slot(1).flipped);
    EXPECT_EQ(history.undoLabel(), "Flip unit");

    ASSERT_TRUE(history.undo(state()));
    EXPECT_FALSE(slot(1).flipped);
    EXPECT_EQ(history.undoLabel(), "Edit header");
    ASSERT_TRUE(history.undo(state()));
    EXPECT_EQ(state().header.name, "") << "the typing of one box is one step";
    ASSERT_TRUE(history.undo(state()));
    EXPECT_EQ(files(), (std::vector<std::string>{"GP38.eng", "", "", "", "", ""}));
    EXPECT_EQ(state().totals.wagons, "0");

    ASSERT_TRUE(history.redo(state()));
    ASSERT_TRUE(history.redo(state()));
    ASSERT_TRUE(history.redo(state()));
    EXPECT_EQ(files(), after);
    EXPECT_TRUE(slot(1).flipped);
    EXPECT_EQ(state().header.name, "Night");
    EXPECT_FALSE(history.canRedo());
}

// Marking a unit for deletion is no step; undoing the delete brings the units back, marked as
// they stood when the delete was asked for.
TEST_F(EditHistoryTest, AMarkIsNoStepAndAnUndoneDeleteKeepsTheMark) {
    edit("Add wagon", [&] { addWagonOfLine(*app, "^Box.wag"); });
    edit("Add engine", [&] { addEngineOfLine(*app, "^GP38.eng"); });
    edit("Flip unit", [&] {  // a Shift+click, as the window wraps every press
        pressSlot(state(), 0, SlotButton::Left, kShiftKey);
        clickSlot(state(), 0);
    });
    EXPECT_EQ(history.undoLabel(), "Add engine");
    fake.dialogs.answers = {Answer::No};  // the gap stays
    edit("Delete units", [&] { deleteMarkedUnits(state(), fake.dialogs); });
    EXPECT_EQ(files(), (std::vector<std::string>{"", "GP38.eng", "", "", "", ""}));

    ASSERT_TRUE(history.undo(state()));
    EXPECT_EQ(files(), (std::vector<std::string>{"Box.wag", "GP38.eng", "", "", "", ""}));
    EXPECT_TRUE(slot(0).markedForDelete);
    EXPECT_EQ(slot(0).imageKey, "DEL");
    EXPECT_EQ(history.undoLabel(), "Add engine");
}

TEST_F(EditHistoryTest, SelectionIsNoEditANewEditDropsRedoAndStepsAreBounded) {
    edit("Add wagon", [&] { addWagonOfLine(*app, "^Box.wag"); });
    edit("Select", [&] { pressSlot(state(), 0, SlotButton::Left, 0); });
    EXPECT_EQ(history.undoLabel(), "Add wagon");
    ASSERT_TRUE(history.undo(state()));
    edit("Add engine", [&] { addEngineOfLine(*app, "^GP38.eng"); });
    EXPECT_FALSE(history.canRedo());
    for (int i = 0; i < 150; ++i)
        edit("Renumber", [&] { state().slots[0].uid = float(i + 10); });
    int steps = 0;
    while (history.undo(state()))
        ++steps;
    EXPECT_EQ(steps, static_cast<int>(EditHistory::kSteps));
}

}  // namespace
}  // namespace rakeyard::test
