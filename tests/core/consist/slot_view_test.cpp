#include "core/consist/slot_view.h"

#include "consist_fixture.h"
#include "core/consist/consist_model.h"
#include "core/consist/editing.h"

namespace rakeyard::test {
namespace {

using ::testing::ElementsAre;

class SlotView : public ConsistTest {};

TEST_F(SlotView, PageShowsUnitsGapsAndArrows) {
    add({"eng:GP38.eng", "wag:Box.wag", "wag:Box.wag", "wag:Box.wag", "wag:Box.wag", "wag:Box.wag",
         "wag:Box.wag", "wag:Coach.wag"});
    showFirstPage(state());
    const auto& view = state().view;
    EXPECT_EQ(view[0].toolTip, " GP38.eng   Length: 17.12m   Weight:113.5t  ");
    EXPECT_EQ(view[0].uidText, "1");
    EXPECT_EQ(view[0].name, "GP38 unit");
    EXPECT_EQ(view[0].pictureKey, "DSL");
    EXPECT_FALSE(state().leftArrowVisible);
    EXPECT_TRUE(state().rightArrowVisible);

    removeUnitAtSlot(state(), 1);
    EXPECT_EQ(view[1].pictureKey, "EMP");
    EXPECT_EQ(view[1].uidText, "");
    EXPECT_EQ(view[1].name, "");
    EXPECT_EQ(view[1].toolTip, "");

    turnPage(state(), 1);
    removeUnitAtSlot(state(), 0);
    showFirstPage(state());
    EXPECT_FALSE(state().rightArrowVisible) << "a gap right behind the page hides the arrow";
}

TEST_F(SlotView, NameLabelFindsTheUnitInItsCatalogue) {
    add({"eng:Flyer.eng", "wag:Coach.wag"});
    slot(2).displayName = "Lost";
    slot(2).imageKey = "NOTFOUND";
    refreshPics(state());
    const UnitLookup engine = findUnitOfSlot(*app, fake.dialogs, 0);
    EXPECT_EQ(engine.list, UnitLookup::List::Engines);
    EXPECT_EQ(engine.catalogueIndex, 2);
    EXPECT_EQ(findUnitOfSlot(*app, fake.dialogs, 1).catalogueIndex, 1);
    EXPECT_EQ(findUnitOfSlot(*app, fake.dialogs, 2).list, UnitLookup::List::None);
    EXPECT_EQ(findUnitOfSlot(*app, fake.dialogs, 3).list, UnitLookup::List::None);
    EXPECT_THAT(fake.dialogs.texts(), ElementsAre("This unit does not exist!"));
}

}  // namespace
}  // namespace rakeyard::test
