// The route and activity scan on small routes written for each case.
#include <gmock/gmock.h>

#include <filesystem>
#include <memory>

#include "core/app/app_state.h"
#include "core/msts/route_scan.h"
#include "core/platform/paths.h"
#include "support/fakes.h"
#include "support/msts_tree.h"

namespace rakeyard::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class RouteScan : public ::testing::Test {
protected:
    RouteScan() {
        state->paths.mstsPath = msts.msts();
        state->paths.consistsPath = msts.consists();
        state->paths.programFolder = msts.home();
        std::filesystem::create_directories(msts.consists());
    }
    void route(const std::string& folder, const std::string& nameLine) {
        msts.write("ROUTES/" + folder + "/" + folder + ".trk",
                   "Tr_RouteFile (\n\tRouteID ( " + folder + " )\n\t" + nameLine + "\n)\n");
        std::filesystem::create_directories(msts.msts() + "/ROUTES/" + folder + "/ACTIVITIES");
        std::filesystem::create_directories(msts.msts() + "/ROUTES/" + folder + "/SERVICES");
    }
    void activity(const std::string& folder, const std::string& file, const std::string& text) {
        msts.write("ROUTES/" + folder + "/ACTIVITIES/" + file, text);
    }
    void service(const std::string& folder, const std::string& name, const std::string& text) {
        msts.write("ROUTES/" + folder + "/SERVICES/" + name + ".srv", text);
    }
    void consist(const std::string& stem, const std::string& name) {
        msts.write("TRAINS/CONSISTS/" + stem + ".con",
                   "Train (\n\tTrainCfg ( x\n" + name + "\t)\n)");
    }
    void open() { openActivityScan(state->paths, state->routes, scan, fake.services); }
    bool select(const std::string& route) {
        return selectRoute(state->paths, state->routes, scan, fake.services, route);
    }
    void pick(const std::string& activity) {
        selectActivity(state->paths, state->routes, scan, fake.services, activity);
    }

    MstsTree msts;
    FakeServices fake;
    std::unique_ptr<AppState> state = std::make_unique<AppState>();
    ActivityScan scan;
};

// A folder without a route file takes no row; a route name loses its end quotes only, and a
// name line without its ")" is told and passed over.
TEST_F(RouteScan, RoutesTakeRowsByTheirRouteFiles) {
    route("A", "Name ( \"The \"Avon\" line\" )");
    std::filesystem::create_directories(msts.msts() + "/ROUTES/B_empty");
    route("C", "Name ( Broken");
    route("D", "Terrain ( plain )");
    open();
    EXPECT_THAT(scan.routeNames, ElementsAre("The \"Avon\" line"));
    EXPECT_EQ(state->routes.routes[0].trackFile, "A.TRK");
    EXPECT_EQ(state->routes.routes[1].trackFile, "C.TRK");
    EXPECT_EQ(state->routes.routes[2].trackFile, "D.TRK");
    EXPECT_TRUE(state->routes.routes[2].routeName.empty());
    EXPECT_THAT(fake.dialogs.texts(), ElementsAre("Couldn't get the route name from the file C.TRK"));
}

TEST_F(RouteScan, ActivitiesListTheirConsistsAndTheMissingOnes) {
    route("R", "Name ( R )");
    activity("R", "a1.act",
             "Tr_Activity (\n\tName ( \"Morning \"goods\"\" )\n"
             "\tPlayer_Service_Definition ( Coal Up (\n"
             "\t\tService_Definition ( \"Two words\" 10 )\n"
             "\t\tService_Definition ( Parcels 20 )\n"
             "\tActivityObjects ( WagonsList ( WagonsList ( ) ) )\n"
             "\tActivityObjects ( WagonsList ( ) )\n)\n");
    activity("R", "a2.act", "Tr_Activity (\n\tName ( Morning  goods )\n"
                            "\t\tService_Definition ( Parcels 30 )\n)\n");
    // The player's unquoted name ends at its blank: "Coal.srv", never "Coal Up.srv".
    service("R", "Coal", "Service_Definition (\n\tTrain_Config ( \"gone\" )\n"
                         "\tTrain_Config ( \"coal\" )\n\tTrain_Config ( \"later\" )\n)\n");
    service("R", "Two words", "Train_Config ( pre \"quoted one\" post )\n");
    service("R", "Parcels", "Service_Definition ( Parcels )\n");
    consist("coal", "\t\tName ( \"Coal \"train\"\" )\n");
    consist("quoted one", "");
    consist("later", "");
    open();
    ASSERT_TRUE(select("R"));
    // Quotes in an activity's name become blanks.
    EXPECT_THAT(scan.activityNames, ElementsAre("Morning  goods", "Morning  goods"));
    pick("Morning  goods");
    EXPECT_THAT(scan.consistLines,
                ElementsAre("[PLAYER]  Coal  train  [coal.con]", "[TRAFFIC] [quoted one.con]"));
    EXPECT_THAT(scan.missing, ElementsAre("gone.con"));
    EXPECT_EQ(scan.looseCount, 2);  // one a line, whatever the line holds
    EXPECT_THAT(fake.dialogs.texts(), IsEmpty());
    EXPECT_THAT(consistRowsOf(scan.consistLines), ElementsAre("coal.con", "quoted one.con"));
    EXPECT_EQ(getConsistName(state->paths, scan.consistLines[0]),
              msts.consists() + kPathSeparator + "coal.con");
    EXPECT_EQ(getConsistName(state->paths, "[PLAYER]  [../../x.con]"), std::nullopt);
}

TEST_F(RouteScan, FailuresAreToldAndEndWhereTheyShould) {
    route("R", "Name ( R )");
    activity("R", "a.act", "Tr_Activity (\n\tName ( A )\n\tPlayer_Service_Definition ( Gone (\n)\n");
    service("R", "Bad", "Service_Definition (\n\tTrain_Config ( x\n)\n");
    open();
    EXPECT_FALSE(select("R"));
    EXPECT_THAT(fake.dialogs.texts(), ElementsAre("There has been an error with the file Bad.srv"));
    EXPECT_THAT(scan.activityNames, ElementsAre("A"));
    pick("A");
    EXPECT_EQ(fake.dialogs.texts().back(),
              "The folder \"SERVICES\" does not exist or cannot be read from!");

    std::filesystem::remove_all(msts.msts() + "/ROUTES");
    open();
    EXPECT_EQ(fake.dialogs.texts().back(),
              "The folder \"ROUTES\" does not exist or cannot be read from!");
    EXPECT_THAT(scan.routeNames, IsEmpty());
}

}  // namespace
}  // namespace rakeyard::test
