// loose list and loose replace on the sample installation's yard activity.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>

#include "cli/cli_runner.h"
#include "support/msts_tree.h"

namespace rakeyard::test {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class LooseCommands : public ::testing::Test {
protected:
    CliRun run(std::vector<std::string> words) {
        words.insert(words.begin(), {"--home", home, "--msts", msts});
        return runCli(words);
    }
    std::string act() const { return readWholeFile(actPath); }
    // The files the editor leaves in the program's folder besides its own settings and reports.
    std::vector<std::string> workFilesLeft() const {
        std::vector<std::string> left;
        for (const auto& entry : std::filesystem::directory_iterator(home)) {
            const std::string name = entry.path().filename().string();
            if (name.ends_with(".lse") || name.ends_with(".act")) left.push_back(name);
        }
        return left;
    }

    TempFolder folder;
    const std::string msts = copySamples(folder.path());
    const std::string home = folder / "home";
    const std::string actPath = msts + "/ROUTES/RY_Valley/ACTIVITIES/RY_Loose_Yard.act";
};

TEST_F(LooseCommands, ListsActivitiesWithLooseConsistsAndTheirUnits) {
    const CliRun activities = run({"loose", "list", "RY_Valley"});
    EXPECT_EQ(activities.status, 0) << activities.err;
    EXPECT_EQ(activities.out,
              "RY_Loose_Yard.act --> \"Yard shunt\"\nRY_Morning_Coal.act --> \"Morning coal\"\n");

    const CliRun yard = run({"loose", "list", "Rakeyard Valley Line", "ry_loose_yard"});
    EXPECT_EQ(yard.status, 0) << yard.err;
    const std::vector<std::string> lines = linesOf(yard.out);
    ASSERT_EQ(lines.size(), 17u) << yard.out;
    EXPECT_EQ(lines[0], "LOOSE CONSIST 1  46.6 m  152.88 ft");
    EXPECT_THAT(lines[1], testing::StartsWith("  1  engine  RY_Shunter.eng  "));
    EXPECT_THAT(lines[2], testing::EndsWith("RY Loose Stock  Open wagon, 12.4 m"));
    EXPECT_EQ(lines[6], "  1  wagon  RY_Plate_Wagon.wag  not installed");
    EXPECT_EQ(lines[8], "LOOSE CONSIST 3  57.9 m  189.96 ft");
    EXPECT_THAT(workFilesLeft(), IsEmpty());

    const CliRun json = run({"--json", "loose", "list", "RY_Valley", "RY_Loose_Yard.act"});
    const nlohmann::json listed = nlohmann::json::parse(json.out);
    ASSERT_EQ(listed["consists"].size(), 3u);
    EXPECT_EQ(listed["consists"][2]["units"].size(), 8u);
    const nlohmann::json& missing = listed["consists"][1]["units"][0];
    EXPECT_EQ(missing["installed"], false);
    EXPECT_TRUE(missing["folder"].is_null());
    EXPECT_EQ(listed["consists"][1]["units"][1]["displayName"], "Long van, 13.4 m");

    EXPECT_EQ(run({"loose", "list", "RY_Valley", "RY_Evening_Empties"}).status, 2);
    EXPECT_EQ(run({"loose", "list", "RY_Valley", "../RY_Loose_Yard.act"}).status, 2);
    EXPECT_EQ(run({"loose", "list", "Nowhere"}).status, 2);
}

TEST_F(LooseCommands, ReplacesUnit2OfConsist1AndKeepsTheBackup) {
    const std::string original = act();
    const CliRun replace =
        run({"loose", "replace", "RY_Valley", "RY_Loose_Yard", "1", "2", "RY_Open126"});
    EXPECT_EQ(replace.status, 0) << replace.err;
    EXPECT_THAT(replace.out, HasSubstr("Old unit: RY_Open124.wag\nNew unit: RY_Open126.wag\n"
                                       "Length: 47.6 m  156.16 ft\nLength exceeded\n"));
    EXPECT_EQ(readWholeFile(actPath + ".bak"), original);
    EXPECT_NE(act(), original);
    EXPECT_EQ(act().size(), original.size());  // "RY_Open124" and "RY_Open126": one line changed
    EXPECT_THAT(workFilesLeft(), IsEmpty());

    const CliRun listed = run({"loose", "list", "RY_Valley", "RY_Loose_Yard"});
    const std::vector<std::string> lines = linesOf(listed.out);
    EXPECT_EQ(lines[0], "LOOSE CONSIST 1  46.8 m  153.54 ft");
    EXPECT_THAT(lines[2], HasSubstr("  2  wagon  RY_Open126.wag  "));

    // 12.7 m by 13.4 m: the same 13 whole metres, no warning.
    const CliRun same = run({"--json", "loose", "replace", "RY_Valley", "RY_Loose_Yard.act", "1",
                             "3", "wag:RY_Van134"});
    EXPECT_EQ(same.status, 0) << same.err;
    const nlohmann::json result = nlohmann::json::parse(same.out);
    EXPECT_EQ(result["lengthExceeded"], false);
    EXPECT_EQ(result["length"], "46.8");
}

TEST_F(LooseCommands, RefusalsExitWith1AndLeaveTheActivity) {
    const std::string original = act();
    const CliRun engineLine =
        run({"loose", "replace", "RY_Valley", "RY_Loose_Yard", "1", "1", "RY_Open124.wag"});
    EXPECT_EQ(engineLine.status, 1);
    EXPECT_THAT(engineLine.err, HasSubstr("can only be replaced by an engine"));
    const CliRun unknown =
        run({"loose", "replace", "RY_Valley", "RY_Loose_Yard", "1", "2", "RY_Nothing"});
    EXPECT_EQ(unknown.status, 1);
    EXPECT_THAT(unknown.err, HasSubstr("error: Unknown unit: RY_Nothing"));
    EXPECT_EQ(
        run({"loose", "replace", "RY_Valley", "RY_Loose_Yard", "1", "9", "RY_Open126"}).status, 2);
    EXPECT_EQ(
        run({"loose", "replace", "RY_Valley", "RY_Loose_Yard", "0", "1", "RY_Open126"}).status, 2);
    EXPECT_EQ(act(), original);
    EXPECT_FALSE(std::filesystem::exists(actPath + ".bak"));

    std::filesystem::permissions(actPath, std::filesystem::perms::owner_read);
    const CliRun readOnly =
        run({"loose", "replace", "RY_Valley", "RY_Loose_Yard", "1", "2", "RY_Open126"});
    std::filesystem::permissions(actPath, std::filesystem::perms::owner_all);
    EXPECT_EQ(readOnly.status, 1);
    EXPECT_THAT(readOnly.err, HasSubstr("error: An error ocurred while trying to change this "
                                        "activity and\nyour original file hasn't been changed."));
    EXPECT_THAT(readOnly.err, HasSubstr("is read-only."));
    EXPECT_EQ(act(), original);
}

TEST_F(LooseCommands, ReplaceAllTakesEveryUnitOfThatFile) {
    const CliRun all =
        run({"loose", "replace", "RY_Valley", "RY_Loose_Yard", "3", "1", "RY_HMA", "--all"});
    EXPECT_EQ(all.status, 0) << all.err;
    EXPECT_THAT(all.out, HasSubstr("Units replaced: 2\n"));
    const std::vector<std::string> lines =
        linesOf(run({"loose", "list", "RY_Valley", "RY_Loose_Yard"}).out);
    EXPECT_THAT(lines[9], HasSubstr("  1  wagon  RY_HMA.wag  "));
    EXPECT_THAT(lines[13], HasSubstr("  5  wagon  RY_HMA.wag  "));
}

}  // namespace
}  // namespace rakeyard::test
