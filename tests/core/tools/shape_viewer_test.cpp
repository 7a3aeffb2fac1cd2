// The 3D view: the viewer started on a unit's shape, and what is told when it can't be.
#include <gmock/gmock.h>

#include <filesystem>
#include <memory>

#include "core/app/app_state.h"
#include "core/platform/paths.h"
#include "core/tools/shape_viewer.h"
#include "support/fakes.h"
#include "support/msts_tree.h"

namespace rakeyard::test {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

class ShapeViewer : public ::testing::Test {
protected:
    ShapeViewer() {
        state->paths.mstsPath = msts.msts();
        state->paths.viewerPath = "/opt/viewer";
        state->paths.screenshotsPath = msts.root() + "/shots";
        UnitRecord& unit = state->catalogue.engines[state->catalogue.engineCount++];
        unit.folderName = "GP";
        unit.fileName = "GP38.eng";
        unit.shapeName = "gp38 \"x\"; rm.s";
    }
    bool view(const std::string& line, bool engines = true) {
        return TriDviewer(state->paths, state->catalogue, fake.services, engines, line);
    }
    MstsTree msts;
    FakeServices fake;
    std::unique_ptr<AppState> state = std::make_unique<AppState>();
};

// The shape's path is one argument, whatever it holds; old screenshots go to the trash.
TEST_F(ShapeViewer, TheViewerGetsTheShapeAsItsOneArgument) {
    msts.writeBytes("../shots/old.BMP", "b");
    msts.writeBytes("../shots/old.jpg", "j");
    msts.writeBytes("../shots/notes.txt", "t");
    EXPECT_TRUE(view("GP38 [CC] ^gp38.eng"));
    EXPECT_THAT(fake.desktop.started,
                ElementsAre("/opt/viewer " +
                            joinPath(msts.msts(), "TRAINS/TRAINSET/GP/gp38 \"x\"; rm.s")));
    EXPECT_EQ(fake.desktop.trashed.size(), 2u);
    EXPECT_TRUE(msts.exists("shots/notes.txt"));
}

TEST_F(ShapeViewer, NoViewerNoUnitAndScreenshotsInTheMstsFolder) {
    state->paths.viewerPath = "NO";
    EXPECT_FALSE(view("GP38 ^GP38.eng"));
    EXPECT_THAT(fake.dialogs.texts().back(), HasSubstr("Under the Menu select Options"));
    state->paths.viewerPath = "/opt/viewer";
    EXPECT_FALSE(view("", false));
    EXPECT_EQ(fake.dialogs.texts().back(), "You must select an engine or a wagon first!");
    // Pictures in the MSTS folder are the user's content: never trashed.
    state->paths.screenshotsPath = msts.msts() + "/TRAINS/TRAINSET/GP";
    msts.writeBytes("TRAINS/TRAINSET/GP/GP38.jpg", "j");
    EXPECT_TRUE(view("GP38 ^GP38.eng"));
    EXPECT_TRUE(fake.desktop.trashed.empty());
}

}  // namespace
}  // namespace rakeyard::test
