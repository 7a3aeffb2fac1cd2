// The loose consist test on an activity written for each case.
#include <gmock/gmock.h>

#include <filesystem>

#include "core/msts/route_scan.h"
#include "core/tester/loose_test.h"
#include "tester_fixture.h"

namespace rakeyard::test {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

class LooseConsists : public TesterTest {
protected:
    LooseConsists() {
        msts.write("ROUTES/R/R.trk", "Tr_RouteFile (\n\tName ( R )\n)\n");
        std::filesystem::create_directories(msts.msts() + "/ROUTES/R/SERVICES");
        msts.write("TRAINS/TRAINSET/Box Vans/van.wag", "Wagon ( van\n)\n");
        msts.write("TRAINS/TRAINSET/Locos/loco.eng", "Wagon ( loco\n)\n");
    }
    bool test(const std::string& units, const std::vector<std::string>& names = {"Shunt"}) {
        msts.write("ROUTES/R/ACTIVITIES/shunt.act",
                   "Tr_Activity (\n\tName ( Shunt )\n" + units + ")\n");
        ActivityScan& scan = scan_;
        if (!opened_) {
            openActivityScan(state->paths, state->routes, scan, fake.services);
            opened_ = true;
        }
        (void)selectRoute(state->paths, state->routes, scan, fake.services, "R");
        return testLooseConsists(state->paths, state->routes, scan, fake.services, names);
    }
    ActivityScan scan_;
    bool opened_ = false;
};

// A wagon's text ends at its first ")", an engine's at its last; a folder with a blank is
// taken whole, quoted or not; a line in any case counts.
TEST_F(LooseConsists, UnitLinesNameTheirFilesAndFolders) {
    EXPECT_FALSE(test("\t\tWagonData ( van \"Box Vans\" )\n\t\twagondata ( van Box Vans ) x )\n"
                      "\t\tEngineData ( \"loco\" Locos )\n"));
    EXPECT_FALSE(reportExists("ActMissing.txt"));
    EXPECT_TRUE(test("\t\tEngineData ( gone Locos ) x )\n\t\tWagonData ( van Box Vans\n"));
    EXPECT_EQ(report("ActMissing.txt"),
              "The engine file gone.ENG does not exist in the folder\r\n" + msts.trainset() +
                  kPathSeparator + "Locos ) x\r\n(ACTIVITY Shunt)\r\n[ENGINE FILE MISSING]\r\n" +
                  std::string(40, '-') + "\r\n");
    EXPECT_EQ(report("ActSyntax.txt"),
              "The activity file shunt.act has missing parenthesis in the line \"WagonData\"."
              "\r\n[SYNTAX ERROR]\r\n" +
                  std::string(40, '-') + "\r\n");
}

// The first test after opening deletes the activity reports; a second one adds to them.
TEST_F(LooseConsists, ReportsAddUpWithinOneOpening) {
    msts.writeBytes("home/Reports/ActMissing.txt", "stale record");
    EXPECT_TRUE(test("\t\tWagonData ( first Box Vans )\n"));
    EXPECT_TRUE(test("\t\tWagonData ( second Box Vans )\n", {"SHUNT"}));
    EXPECT_THAT(report("ActMissing.txt"), HasSubstr("first.WAG"));
    EXPECT_THAT(report("ActMissing.txt"), HasSubstr("second.WAG"));
    EXPECT_THAT(report("ActMissing.txt"), Not(HasSubstr("stale record")));
}

}  // namespace
}  // namespace rakeyard::test
