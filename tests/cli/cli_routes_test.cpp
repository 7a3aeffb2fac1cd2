// routes and activities on the sample installation and on published content.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <nlohmann/json.hpp>

#include "cli/cli_runner.h"
#include "support/msts_tree.h"

namespace rakeyard::test {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

CliRun scanOf(const std::string& msts, const std::string& home, std::vector<std::string> words) {
    words.insert(words.begin(), {"--home", home, "--msts", msts, "--yes"});
    return runCli(words);
}

// The route folder without a route file is not listed; two activities of one name are listed
// twice and read together; a service's missing first consist leaves room for its second; a
// faulty service ends its route's pass.
TEST(RouteCommands, TheSampleRouteItsActivitiesAndTheirConsists) {
    TempFolder folder;
    const std::string msts = copySamples(folder.path());
    const std::string home = folder / "home";
    const CliRun routes = scanOf(msts, home, {"routes"});
    EXPECT_EQ(routes.status, 0) << routes.err;
    EXPECT_EQ(routes.out, "Rakeyard Valley Line\nRakeyard Workshop Sidings\n");
    // A service whose Name line was never closed ends the pass over that route's services.
    const CliRun works = scanOf(msts, home, {"activities", "RY_Workshop"});
    EXPECT_EQ(works.status, 1);
    EXPECT_THAT(works.err,
                HasSubstr("error: There has been an error with the file RY_Works_Broken.srv"));

    const CliRun activities = scanOf(msts, home, {"activities", "ry_valley"});
    EXPECT_EQ(activities.out, "Evening empties\nEvening empties\nYard shunt\nMorning coal\n");

    const CliRun evening =
        scanOf(msts, home, {"--json", "activities", "Rakeyard Valley Line", "Evening empties"});
    EXPECT_EQ(evening.status, 0) << evening.err;
    const nlohmann::json one = nlohmann::json::parse(evening.out);
    EXPECT_THAT(one["consists"],
                ElementsAre("[PLAYER]  Tanks behind a loco that is not installed  "
                            "[RY_Missing_Loco.con]",
                            "[PLAYER]  [RY_Untitled.con]",
                            "[TRAFFIC] Tanks behind a loco that is not installed  "
                            "[RY_Missing_Loco.con]"));
    EXPECT_THAT(one["missing"], ElementsAre("RY_Parcels.con"));

    const CliRun morning = scanOf(msts, home, {"activities", "RY_Valley", "ry_morning_coal.act"});
    EXPECT_THAT(morning.out, HasSubstr("[TRAFFIC] Steam special"));
    EXPECT_THAT(morning.out, HasSubstr("Loose: 1\n"));

    const CliRun unknown = scanOf(msts, home, {"activities", "Nowhere"});
    EXPECT_EQ(unknown.status, 2);

    // The loose consists' units: a missing engine and wagons, a line without its ")".
    const CliRun loose = scanOf(msts, home, {"loose-test", "RY_Valley", "--all"});
    EXPECT_EQ(loose.status, 1) << loose.err;
    EXPECT_THAT(readWholeFile(home + "/Reports/ActMissing.txt"), HasSubstr("RY_Class08.ENG"));
    EXPECT_THAT(readWholeFile(home + "/Reports/ActSyntax.txt"), HasSubstr("\"WagonData\""));
    EXPECT_EQ(scanOf(msts, home, {"loose-test", "RY_Valley"}).status, 2);
}

// The tree as text and as JSON; a route unknown is bad usage, a line in error an error line
// with status 1.
TEST(RouteCommands, TheSampleRoutesDependencyTree) {
    TempFolder folder;
    const std::string msts = copySamples(folder.path());
    const std::string home = folder / "home";
    const CliRun text = scanOf(msts, home, {"deps", "ry_valley"});
    EXPECT_EQ(text.status, 1);
    EXPECT_THAT(text.err, testing::EndsWith("\nerror: The activity RY_Morning_Coal.act contains "
                                            "an error.\n"));
    const std::vector<std::string> lines = linesOf(text.out);
    ASSERT_GE(lines.size(), 3u);
    EXPECT_EQ(lines[0], "ROUTE");
    EXPECT_EQ(lines[1], "  Rakeyard Valley Line");
    EXPECT_THAT(lines, testing::Contains("    Morning coal  [loose consist]"));
    EXPECT_THAT(lines, testing::Contains("      RY_Class08.eng  [missing]"));
    EXPECT_THAT(lines, testing::Contains("      RY_Van12t.wag  [missing]"));
    EXPECT_THAT(lines, testing::Contains("    RY_Coal_Up.con"));

    const CliRun json = scanOf(msts, home, {"--json", "deps", "Rakeyard Valley Line"});
    const nlohmann::json root = nlohmann::json::parse(json.out);
    EXPECT_EQ(root["kind"], "root");
    EXPECT_EQ(root["text"], "ROUTE");
    ASSERT_EQ(root["children"].size(), 1u);
    const nlohmann::json& route = root["children"][0];
    EXPECT_EQ(route["kind"], "route");
    std::set<std::string> kinds;
    for (const nlohmann::json& node : route["children"]) {
        kinds.insert(node["kind"].get<std::string>());
        for (const nlohmann::json& unit : node["children"])
            kinds.insert(unit["kind"].get<std::string>());
    }
    EXPECT_EQ(kinds, (std::set<std::string>{"consist", "loose", "missingConsist", "missingUnit",
                                             "unit"}));
    EXPECT_EQ(scanOf(msts, home, {"deps", "Nowhere"}).status, 2);
    EXPECT_EQ(scanOf(msts, home, {"deps"}).status, 2);
}

TEST(RouteCommands, PublishedRouteDependencyTree) {
    const std::filesystem::path demo =
        std::filesystem::path(RAKEYARD_REALDATA_DIR) / "cjakeman_Demo-Model-1";
    if (!std::filesystem::is_directory(demo)) GTEST_SKIP() << "no real content here";
    TempFolder folder;
    const CliRun run = scanOf(demo.string(), folder / "home", {"deps", "SCE"});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_THAT(run.out, HasSubstr("  [loose consist]\n"));
    EXPECT_THAT(run.out, HasSubstr("#MT_MT_BlueGrey CL47706 & 8 mk.con"));
}

TEST(RouteCommands, PublishedActivityWithItsLooseConsists) {
    const std::filesystem::path demo =
        std::filesystem::path(RAKEYARD_REALDATA_DIR) / "cjakeman_Demo-Model-1";
    if (!std::filesystem::is_directory(demo)) GTEST_SKIP() << "no real content here";
    TempFolder folder;
    const CliRun run = scanOf(demo.string(), folder / "home",
                              {"--json", "activities", "SCE", "0930 Edinburgh-Glasgow Queen Street"});
    EXPECT_EQ(run.status, 0) << run.err;
    const nlohmann::json one = nlohmann::json::parse(run.out);
    EXPECT_EQ(one["loose"], 16);
    EXPECT_THAT(one["consists"].dump(), HasSubstr("#MT_MT_BlueGrey CL47706 & 8 mk.con"));
}

}  // namespace
}  // namespace rakeyard::test
