// tools maxvelocity | random | stats | bigones on a copy of the bundled sample installation.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>
#include <set>

#include "cli/cli_runner.h"
#include "support/msts_tree.h"

namespace rakeyard::test {
namespace {

using nlohmann::json;
using ::testing::HasSubstr;
using ::testing::Not;

class ToolsCommands : public ::testing::Test {
protected:
    CliRun cli(std::vector<std::string> words) {
        words.insert(words.begin(), {"--home", home, "--msts", msts});
        return runCli(words);
    }

    TempFolder folder;
    std::string msts = copySamples(folder.path());
    std::string home = folder / "home";
};

TEST_F(ToolsCommands, MaxVelocityWorksOutTheNumbersAndAppliesThemToAConsist) {
    const CliRun shown = cli({"tools", "maxvelocity", "--mph", "60", "30", "--json"});
    ASSERT_EQ(shown.status, 0) << shown.err;
    const json boxes = json::parse(shown.out);
    EXPECT_EQ(boxes["kmhMax"], "96.5606");
    EXPECT_EQ(boxes["mphMin"], "30");
    EXPECT_EQ(boxes["maxVelocity"], "35.7631 0.5");

    const CliRun refused = cli({"tools", "maxvelocity", "--kmh", "100", "50", "--efficiency", "0",
                                "--apply", "RY_Coal_Up"});
    EXPECT_EQ(refused.status, 1);
    EXPECT_THAT(refused.err, HasSubstr("error: The efficiency factor must be greater than 0"));

    // The consist exists: saving over it is a question, and --yes answers it.
    const CliRun applied = cli({"--yes", "tools", "maxvelocity", "--kmh", "100", "50",
                                "--efficiency", "50", "--apply", "RY_Coal_Up"});
    ASSERT_EQ(applied.status, 0) << applied.err;
    EXPECT_THAT(applied.out, HasSubstr("MaxVelocity ( 55.5555 0.5 )"));
    const json coal = json::parse(cli({"consist", "show", "RY_Coal_Up", "--json"}).out);
    EXPECT_EQ(coal["maxVelocity"], "55.5555 0.5");
}

TEST_F(ToolsCommands, RandomGivesTheSameTrainInEveryRunAndSavesIt) {
    const std::vector<std::string> words = {"tools",   "random",  "--coupler", "A",     "--type",
                                            "Freight", "--count", "9",         "--all", "--json"};
    const CliRun first = cli(words);
    ASSERT_EQ(first.status, 0) << first.err;
    EXPECT_EQ(cli(words).out, first.out);
    const json train = json::parse(first.out);
    ASSERT_EQ(train["slots"].size(), 9u);
    std::set<std::string> firstSix;
    for (std::size_t i = 0; i < 6; ++i)
        firstSix.insert(train["slots"][i]["fileName"].get<std::string>());
    EXPECT_EQ(firstSix.size(), 6u);  // the six automatic hoppers, each once, then repeats
    EXPECT_EQ(train["slots"][8]["position"], 9);

    const CliRun saved = cli({"tools", "random", "--coupler", "A", "--type", "Freight", "--count",
                              "3", "ry_hta", "--save", "RY_Hoppers"});
    ASSERT_EQ(saved.status, 0) << saved.err;
    const json hoppers = json::parse(cli({"consist", "show", "RY_Hoppers", "--json"}).out);
    ASSERT_EQ(hoppers["slots"].size(), 3u);
    for (const json& slot : hoppers["slots"])
        EXPECT_EQ(slot["fileName"], "RY_HTA.wag");

    const CliRun unknown = cli(
        {"tools", "random", "--coupler", "A", "--type", "Freight", "--count", "3", "RY_Van12t"});
    EXPECT_EQ(unknown.status, 1);
    EXPECT_THAT(unknown.err, HasSubstr("error: \"RY_Van12t\" is not in the list"));
    EXPECT_EQ(
        cli({"tools", "random", "--coupler", "A", "--type", "Freight", "--count", "abc", "--all"})
            .status,
        1);
}

TEST_F(ToolsCommands, BigOnesAndStatsReadTheSample) {
    const CliRun big = cli({"tools", "bigones", "--json"});
    ASSERT_EQ(big.status, 0) << big.err;
    const json rows = json::parse(big.out);
    // The ballasted Class 37 and the Class 50 weigh the same: the first read is shown.
    EXPECT_EQ(rows[2]["name"], "RY Class 37 with headcode boxes");
    EXPECT_EQ(rows[2]["value"], "105t");
    EXPECT_EQ(rows[0]["value"], "3010kW");

    const CliRun stats = cli({"tools", "stats", "--lists", "spreadsheet", "--json"});
    ASSERT_EQ(stats.status, 0) << stats.err;
    const json totals = json::parse(stats.out);
    std::size_t consists = 0;
    for (const auto& entry : std::filesystem::directory_iterator(msts + "/TRAINS/CONSISTS"))
        consists += entry.path().extension() == ".con";
    EXPECT_EQ(totals["consists"], consists);
    EXPECT_GT(totals["cabBytes"].get<long long>(), 0);
    EXPECT_EQ(totals["engineFolderBytes"].get<long long>(),
              totals["engineBytes"].get<long long>() + totals["cabBytes"].get<long long>() +
                  totals["soundBytes"].get<long long>());
    EXPECT_THAT(stats.err, HasSubstr("info: Lists ready!"));
    EXPECT_THAT(readWholeFile(home + "/Reports/Engines list.txt"),
                HasSubstr("\"RY_Class50\",\"C\",\"C\",\"2700hp\",105,19.38\r\n"));
    EXPECT_EQ(cli({"tools", "stats", "--lists", "csv"}).status, 2);
}

TEST_F(ToolsCommands, DescribeGivesTheDescriptionFiguresAndTheLastPictureFound) {
    const CliRun engine = cli({"unit", "describe", "ry_class50", "--json"});
    ASSERT_EQ(engine.status, 0) << engine.err;
    const json described = json::parse(engine.out);
    const std::string text = described["text"];
    EXPECT_THAT(text, HasSubstr("of its time.\nPower: 2,700 hp from a sixteen cylinder engine.\n"));
    EXPECT_THAT(text, Not(HasSubstr("Release the brakes")));  // the operating procedures
    EXPECT_THAT(text, HasSubstr(std::string(33, '*') + "\nType: Engine\n"));
    EXPECT_THAT(text, HasSubstr("\nComment   Ballast weights fitted in 1988\n"));
    EXPECT_THAT(text, HasSubstr("\nMaxPower: 2700hp\n"));
    EXPECT_THAT(described["picture"].get<std::string>(), HasSubstr("RY_CLASS50.jpg"));

    // A .jpg and a .bmp beside the unit: the description shows the .jpg.
    const CliRun hopper = cli({"unit", "describe", "RY_HTA"});
    ASSERT_EQ(hopper.status, 0) << hopper.err;
    EXPECT_THAT(hopper.out, HasSubstr("No description available for this unit!\nType: Freight\n"));
    EXPECT_THAT(hopper.out, HasSubstr("RY_HTA.jpg\n"));
    EXPECT_EQ(cli({"unit", "describe", "nothing"}).status, 1);
}

TEST_F(ToolsCommands, UnitEditChangesWhatIsGivenAndKeepsTheRest) {
    // The first coupling block takes the rear box; the hopper's one block serves both ends.
    const CliRun run = cli({"unit", "edit", "RY_HTA", "--mass", "26", "--rear", "B"});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_THAT(run.out, HasSubstr("[AB]"));
    const json wagon = json::parse(cli({"unit", "edit", "RY_HTA", "--json"}).out);
    EXPECT_EQ(wagon["mass"], 26);
    EXPECT_EQ(wagon["displayName"], "HTA bogie hopper");
    EXPECT_EQ(wagon["couplerRear"], "B");
    EXPECT_EQ(cli({"unit", "edit", "RY_HTA", "--power", "100"}).status, 2);
    EXPECT_EQ(cli({"unit", "edit", "RY_HTA", "--front", "X"}).status, 2);
    const CliRun quote = cli({"unit", "edit", "RY_HTA", "--name", "a \"b\""});
    EXPECT_EQ(quote.status, 1);
    EXPECT_THAT(quote.err, HasSubstr("error: The name may not hold a double quote"));
}

TEST_F(ToolsCommands, ConsistsFindsAUnitNamedInEachFormOnce) {
    for (const char* hopper : {"RY_HTA", "RY_HAA", "RY_HBA", "RY_HEA"}) {
        const CliRun run = cli({"unit", "consists", hopper});
        EXPECT_EQ(run.status, 0) << hopper << run.err;
        EXPECT_EQ(run.out, "RY_Hopper_Forms.con\n") << hopper;
    }
    const CliRun unused = cli({"unit", "consists", "RY_HFA", "--json"});
    EXPECT_EQ(unused.out, "[]\n");
    EXPECT_THAT(unused.err, HasSubstr("info: There are no consists using this unit!"));
}

}  // namespace
}  // namespace rakeyard::test
