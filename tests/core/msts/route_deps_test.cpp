// The dependency tree of a route, on small routes written for each case, on the sample
// installation and on published content.
#include "core/msts/route_deps.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <memory>
#include <set>

#include "core/app/app_state.h"
#include "core/platform/paths.h"
#include "support/fakes.h"
#include "support/msts_tree.h"

namespace rakeyard::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class RouteDeps : public ::testing::Test {
protected:
    RouteDeps() {
        state->paths.mstsPath = msts.msts();
        state->paths.consistsPath = msts.consists();
        state->paths.trainsetPath = msts.trainset();
        state->paths.programFolder = msts.home();
        std::filesystem::create_directories(msts.consists());
        route("R", "Name ( \"R\" )");
    }
    void route(const std::string& folder, const std::string& nameLine) {
        msts.write("ROUTES/" + folder + "/" + folder + ".trk",
                   "Tr_RouteFile (\n\tRouteID ( " + folder + " )\n\t" + nameLine + "\n)\n");
        std::filesystem::create_directories(msts.msts() + "/ROUTES/" + folder + "/ACTIVITIES");
        std::filesystem::create_directories(msts.msts() + "/ROUTES/" + folder + "/SERVICES");
    }
    void activity(const std::string& file, const std::string& text) {
        msts.write("ROUTES/R/ACTIVITIES/" + file, text);
    }
    void service(const std::string& file, const std::string& text) {
        msts.write("ROUTES/R/SERVICES/" + file, text);
    }
    void unit(const std::string& path) { msts.write("TRAINS/TRAINSET/" + path, "Wagon ( x )\n"); }
    // The lines of the tree below the route node, less their indent of four.
    std::vector<std::string> scanR() {
        scan.routeNames = getRoutes(state->paths, state->routes, fake.services, scan.stopFlag);
        scanOne(state->paths, state->routes, "R", scan, fake.services);
        std::vector<std::string> lines = indentedLines(scan.tree);
        if (lines.size() < 2) return {};
        lines.erase(lines.begin(), lines.begin() + 2);
        for (std::string& line : lines)
            line.erase(0, 4);
        return lines;
    }
    std::vector<std::string> keysOf(DependencyKind kind) const {
        std::vector<std::string> keys;
        for (const DependencyNode& node : scan.tree.nodes())
            if (node.kind == kind) keys.push_back(node.key);
        return keys;
    }

    MstsTree msts;
    FakeServices fake;
    std::unique_ptr<AppState> state = std::make_unique<AppState>();
    DependencyScan scan;
};

TEST(DependencyTreeModel, ANodeWhoseKeyIsHeldIsRefusedAndItsUnitsGoUnderTheHolder) {
    DependencyTree tree;
    tree.addRoot("R", "ROUTE");
    EXPECT_EQ(tree.add("R", "A1", DependencyKind::Route, "route"), 1u);
    EXPECT_EQ(tree.add("A1", "C2", DependencyKind::ServiceConsist, "first.con"), 2u);
    EXPECT_EQ(tree.add("A1", "C2", DependencyKind::ServiceConsist, "second.con"),
              DependencyTree::kRefused);
    EXPECT_EQ(tree.add("C2", {}, DependencyKind::PresentUnit, "a.wag"), 3u);
    EXPECT_EQ(tree.add("C9", {}, DependencyKind::PresentUnit, "b.wag"), DependencyTree::kRefused);
    EXPECT_THAT(indentedLines(tree),
                ElementsAre("ROUTE", "  route", "    first.con", "      a.wag"));
}

// Every route folder takes its row, in the case it is listed in; one without a route file keeps
// its folder alone and is not offered.
TEST_F(RouteDeps, GetRoutesGivesEveryFolderItsRow) {
    std::filesystem::create_directories(msts.msts() + "/ROUTES/NoTrack");
    route("Broken", "Name ( Broken");
    route("Locked", "Name ( Locked )");
    fake.fs.unreadableNames = {"LOCKED.TRK"};
    const std::vector<std::string> names =
        getRoutes(state->paths, state->routes, fake.services, scan.stopFlag);
    EXPECT_THAT(names, ElementsAre("R"));
    EXPECT_EQ(lastPathPart(state->routes.routes[0].folder), "Broken");
    EXPECT_EQ(state->routes.routes[0].trackFile, "BROKEN.TRK");
    EXPECT_EQ(state->routes.routes[1].trackFile, "LOCKED.TRK");
    EXPECT_EQ(lastPathPart(state->routes.routes[2].folder), "NoTrack");
    EXPECT_EQ(state->routes.routes[2].trackFile, "");
    EXPECT_EQ(state->routes.routes[3].routeName, "R");
    // A route file that can't be opened is told, and the next folders are still read.
    EXPECT_THAT(fake.dialogs.texts(),
                ElementsAre("Couldn't get the route name from the file BROKEN.TRK",
                            "Could not open the route file LOCKED.TRK"));
}

// The words "LOOSE CONSIST" open a node whose units run to the end of the file, whatever object
// they stand in; the next file starts without one.
TEST_F(RouteDeps, LooseConsistsHoldTheirUnitsToTheEndOfTheirFile) {
    unit("W/van.wag");
    activity("a.act",
             "Tr_Activity (\n\tRouteID ( R )\n\tName ( \"First \"run\"\" )\n"
             "\tEngineData ( before W )\n"
             "\tTrainCfg ( \"\"\n\tName ( \"Loose consist.\" )\n"
             "\tWagonData ( van W )\n\tActivityObject (\n\tObjectType ( Other )\n"
             "\tEngineData ( gone W )\n)\n");
    activity("b.act",
             "Tr_Activity (\n\tRouteID ( R )\n\tName ( Second )\n"
             "\tWagonData ( van W )\n)\n");
    EXPECT_THAT(scanR(),
                ElementsAre("First  run  [loose consist]", "  van.wag", "  gone.eng  [missing]"));
    EXPECT_THAT(fake.dialogs.texts(), IsEmpty());
}

// The name of an activity comes from the line after "RouteID (", written in that case only, and
// stays for the files after it until another such line.
TEST_F(RouteDeps, TheActivityNameIsCarriedAcrossFiles) {
    activity("a.act", "RouteID ( R )\n\tName ( First )\nLoose consist\n");
    activity("b.act", "Name ( Second )\nLoose consist\n");
    activity("c.act", "ROUTEID ( R )\n\tName ( Third )\nLoose consist\n");
    activity("d.act", "\tRouteID ( R )\n\tName ( Fourth )\nLoose consist\nLoose consist\n");
    EXPECT_THAT(scanR(), ElementsAre("First  [loose consist]", "First  [loose consist]",
                                     "First  [loose consist]", "Fourth  [loose consist]",
                                     "Fourth  [loose consist]"));
    EXPECT_THAT(keysOf(DependencyKind::LooseConsist), ElementsAre("B2", "B3", "B4", "B5", "B6"));
}

// A unit line in error is told and ends its activity; the next activity is read.
TEST_F(RouteDeps, AUnitLineInErrorEndsItsActivityOnly) {
    activity("a.act",
             "RouteID ( R )\nName ( A )\nLoose consist\nWagonData ( one W\n"
             "WagonData ( two W )\n");
    activity("b.act", "RouteID ( R )\nName ( B )\nLoose consist\nWagonData ( three W )\n");
    EXPECT_THAT(scanR(),
                ElementsAre("A  [loose consist]", "B  [loose consist]", "  three.wag  [missing]"));
    ASSERT_EQ(fake.dialogs.shown.size(), 1u);
    EXPECT_EQ(fake.dialogs.shown[0].text, "The activity a.act contains an error.");
    EXPECT_EQ(fake.dialogs.shown[0].title, "Critical error");
    EXPECT_EQ(fake.dialogs.shown[0].icon, Icon::Stop);
}

// Each service file takes a number, also an empty one. A second consist of a service is refused
// its node, and its units go under the node holding the service's key, even a missing one's.
// Names leading out of the MSTS folder count as missing, though a file is there.
TEST_F(RouteDeps, ServicesAndTheirConsists) {
    unit("W/van.wag");
    unit("E/loco.eng");
    msts.write("../W/out.wag", "Wagon ( x )\n");
    msts.write("../outside.con", "Train (\n\tWagonData ( van W )\n)");
    msts.write("TRAINS/CONSISTS/first.con",
               "Train (\n\tEngineData ( loco E )\n\tWagonData ( out ..\\..\\..\\W )\n)");
    msts.write("TRAINS/CONSISTS/second one.con",
               "Train (\n\tWagonData ( van W )\n\tWagonData ( lost W )\n)");
    msts.writeBytes("TRAINS/CONSISTS/empty.con", "");
    service("a.srv", "Train_Config ( first )\nTrain_Config ( \"second one\" )\n");
    msts.writeBytes("ROUTES/R/SERVICES/b.srv", "");
    service("c.srv", "Name ( none )\n");
    service("d.srv", "Train_Config ( gone )\nTrain_Config ( first )\n");
    service("e.srv", "Train_Config ( empty )\n");
    service("f.srv", "Train_Config ( ..\\..\\..\\outside )\n");
    EXPECT_THAT(scanR(), ElementsAre("first.con", "  loco.eng", "  out.wag  [missing]", "  van.wag",
                                     "  lost.wag  [missing]", "gone.con  [missing]", "  loco.eng",
                                     "  out.wag  [missing]", "empty.con  [missing]",
                                     "..\\..\\..\\outside.con  [missing]"));
    EXPECT_THAT(keysOf(DependencyKind::ServiceConsist), ElementsAre("C2"));
    EXPECT_THAT(keysOf(DependencyKind::MissingConsist), ElementsAre("C5", "C6", "C7"));
    EXPECT_THAT(fake.dialogs.texts(), IsEmpty());
}

// A Train_Config line in error ends its service; a unit line in error ends its consist, and the
// service goes on with its next consist.
TEST_F(RouteDeps, LinesInErrorInServicesAndConsists) {
    unit("W/van.wag");
    msts.write("TRAINS/CONSISTS/bad.con", "Train (\n\tWagonData ( van\n\tWagonData ( van W )\n)");
    msts.write("TRAINS/CONSISTS/good.con", "Train (\n\tWagonData ( van W )\n)");
    service("a.srv", "Train_Config (broken)\nTrain_Config ( good )\n");
    service("b.srv", "Train_Config ( bad )\n");
    service("c.srv", "Train_Config ( bad )\nTrain_Config ( good )\n");
    EXPECT_THAT(scanR(), ElementsAre("bad.con", "bad.con", "  van.wag"));
    EXPECT_THAT(fake.dialogs.texts(), ElementsAre("The service a.srv contains an error.",
                                                  "The service b.srv contains an error.",
                                                  "The service c.srv contains an error."));
}

// Stop is seen once per file: the file in reading is read to its end, and no other is opened.
TEST_F(RouteDeps, StopEndsTheScanAtTheNextFile) {
    std::string filler;  // long enough for events to run in the midst of the file
    for (int i = 0; i < 600; ++i)
        filler += "\tUiD ( 0 )\n";
    activity("a.act", "RouteID ( R )\nName ( A )\nLoose consist\nWagonData ( one W )\n" + filler +
                          "WagonData ( two W )\n");
    activity("b.act", "RouteID ( R )\nName ( B )\nLoose consist\n");
    service("a.srv", "Train_Config ( gone )\n");
    int stepsInTheFile = 0;
    fake.progress.onStep = [&] {
        if (scan.tree.size() != 4) return;
        ++stepsInTheFile;
        scan.stopFlag = true;
    };
    EXPECT_THAT(scanR(),
                ElementsAre("A  [loose consist]", "  one.wag  [missing]", "  two.wag  [missing]"));
    EXPECT_GT(stepsInTheFile, 0);
}

TEST_F(RouteDeps, WithoutTheRoutesFolderOnlyTheRootIsLeft) {
    (void)getRoutes(state->paths, state->routes, fake.services, scan.stopFlag);
    std::filesystem::remove_all(msts.msts() + "/ROUTES");
    scanOne(state->paths, state->routes, "R", scan, fake.services);
    EXPECT_THAT(indentedLines(scan.tree), ElementsAre("ROUTE"));
    EXPECT_THAT(fake.dialogs.texts(),
                ElementsAre("The folder \"ROUTES\" does not exist or cannot be read from!"));
}

// The sample route shows every kind of node.
TEST(RouteDepsOnContent, TheSampleRouteShowsEveryKind) {
    auto state = std::make_unique<AppState>();
    const std::string msts = std::string(RAKEYARD_SOURCE_DIR) + "/samples/msts";
    state->paths.mstsPath = msts;
    state->paths.consistsPath = msts + "/TRAINS/CONSISTS";
    FakeServices fake;
    DependencyScan scan;
    (void)getRoutes(state->paths, state->routes, fake.services, scan.stopFlag);
    scanOne(state->paths, state->routes, "Rakeyard Valley Line", scan, fake.services);
    std::set<DependencyKind> kinds;
    for (const DependencyNode& node : scan.tree.nodes())
        kinds.insert(node.kind);
    EXPECT_EQ(kinds.size(), 7u);
    EXPECT_THAT(fake.dialogs.texts(),
                ElementsAre("The activity RY_Morning_Coal.act contains an error."));
}

// Published content: one node for each of the activity's sixteen loose consists, and service
// consists whose names hold "#" and "&".
TEST(RouteDepsOnContent, PublishedRouteWithItsLooseConsists) {
    const std::string msts = std::string(RAKEYARD_REALDATA_DIR) + "/cjakeman_Demo-Model-1";
    if (!std::filesystem::is_directory(msts)) GTEST_SKIP() << "no real MSTS content at " << msts;
    auto state = std::make_unique<AppState>();
    state->paths.mstsPath = msts;
    state->paths.consistsPath = msts + "/TRAINS/CONSISTS";
    FakeServices fake;
    DependencyScan scan;
    (void)getRoutes(state->paths, state->routes, fake.services, scan.stopFlag);
    ASSERT_FALSE(state->routes.routes[0].routeName.empty());
    scanOne(state->paths, state->routes, state->routes.routes[0].routeName, scan, fake.services);
    std::size_t loose = 0, consists = 0, units = 0;
    bool hashAndAmpersand = false;
    for (const DependencyNode& node : scan.tree.nodes()) {
        loose += node.kind == DependencyKind::LooseConsist;
        consists += node.kind == DependencyKind::ServiceConsist;
        units += node.kind == DependencyKind::PresentUnit;
        hashAndAmpersand = hashAndAmpersand || (node.text.find('#') != std::string::npos &&
                                                node.text.find('&') != std::string::npos);
    }
    EXPECT_EQ(loose, 16u);
    EXPECT_GT(consists, 0u);
    EXPECT_GT(units, 16u);
    EXPECT_TRUE(hashAndAmpersand);
    EXPECT_THAT(fake.dialogs.texts(), IsEmpty());
}

}  // namespace
}  // namespace rakeyard::test
