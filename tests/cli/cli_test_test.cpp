// test engines: the tester's run on the sample installation, through the CLI.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>

#include "cli/cli_runner.h"
#include "support/msts_tree.h"

namespace rakeyard::test {
namespace {

using ::testing::Contains;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class TestEngines : public ::testing::Test {
protected:
    TestEngines() : msts(copySamples(folder.path())), home(folder / "home") {}
    CliRun test(std::vector<std::string> words, const std::string& section = "engines") {
        words.insert(words.begin(), {"--home", home, "--msts", msts, "--yes", "test", section});
        return runCli(words);
    }
    nlohmann::json counts(std::vector<std::string> words, const std::string& section) {
        words.push_back("--json");
        const CliRun run = test(words, section);
        EXPECT_EQ(run.status, 1) << run.err;
        return nlohmann::json::parse(run.out);
    }
    std::string report(const std::string& name) const {
        return readWholeFile(home + "/Reports/" + name);
    }
    TempFolder folder;
    std::string msts;
    std::string home;
};

// The sample's tester shelf gives the findings; every error is counted once by its level,
// and the one duplicate pair by no level at all.
TEST_F(TestEngines, TheSamplesFindingsAreCountedAndWrittenToTheirReports) {
    const CliRun run = test({"--duplicates", "--json"});
    EXPECT_EQ(run.status, 1) << run.err;
    const nlohmann::json counts = nlohmann::json::parse(run.out);
    const long long levels = counts["minor"].get<long long>() +
                             counts["serious"].get<long long>() +
                             counts["critical"].get<long long>();
    EXPECT_EQ(counts["errors"].get<long long>(), levels + 1);
    long long categories = 0;
    for (const auto& [name, count] : counts["categories"].items())
        categories += count.get<long long>();
    EXPECT_EQ(categories, levels);
    EXPECT_GT(counts["filesTested"].get<long long>(), 0);
    EXPECT_THAT(counts["reports"], Contains(HasSubstr("EngDuplicate.txt")));
    EXPECT_THAT(report("EngDuplicate.txt"), HasSubstr("RY_Twins"));
    EXPECT_THAT(report("EngDuplicate.txt"), testing::Not(HasSubstr("ry_class86")));
    for (const char* unit : {"RY_LABELPAREN.ENG", "RY_LABELSPACE.ENG", "RY_MASSPAREN.ENG",
                             "RY_SHAPEPAREN.ENG", "RY_ANIMLINE.ENG"})
        EXPECT_THAT(report("EngSyntax.txt"), HasSubstr(unit)) << unit;
    EXPECT_THAT(report("EngShapes.txt"), HasSubstr("[SHAPE FILE MISSING]"));
    EXPECT_THAT(report("EngShapes.txt"), HasSubstr("[SHAPE DEFINITION FILE MISSING]"));
    EXPECT_THAT(report("EngShapes.txt"), HasSubstr("[ANIMATION SHAPE FILE]"));

    // Without the option the duplicates report stays as the run before left it.
    const std::string duplicates = report("EngDuplicate.txt");
    const CliRun again = test({});
    EXPECT_EQ(again.status, 1);
    EXPECT_EQ(report("EngDuplicate.txt"), duplicates);
    EXPECT_THAT(again.out, HasSubstr("Report: "));
    EXPECT_THAT(again.out, HasSubstr("Duplicate"));
}

TEST_F(TestEngines, NamesPickTheirRowsInAnyCaseAndAnUnknownOneIsBadUsage) {
    const CliRun one = test({"ry_massquote", "--json"});
    EXPECT_EQ(one.status, 1) << one.err;
    const nlohmann::json counts = nlohmann::json::parse(one.out);
    EXPECT_EQ(counts["errors"], 1);
    EXPECT_EQ(counts["minor"], 1);
    EXPECT_EQ(counts["categories"]["Syntax"], 1);

    const CliRun clean = test({"RY_Class86.eng"});
    EXPECT_EQ(clean.status, 0) << clean.err;
    EXPECT_THAT(clean.out, HasSubstr("Errors: 0\n"));

    const CliRun unknown = test({"RY_Nowhere"});
    EXPECT_EQ(unknown.status, 2);
    EXPECT_THAT(unknown.err, HasSubstr("error: no engine RY_Nowhere"));
    EXPECT_THAT(unknown.out, IsEmpty());
}

// The sample's cab views, sounds, wagons and consists: each finding is one of the faults the
// sample was given.
TEST_F(TestEngines, CabViewsSoundsWagonsAndConsistsOfTheSample) {
    const nlohmann::json engines = counts({"--cab", "--sound", "RY_CabSound", "RY_SoundLine",
                                           "RY_Class25", "RY_Class37"},
                                          "engines");
    // Two missing textures, the Sound line's quotes and its missing definition, a missing .wav,
    // one unquoted and a missing second file, the CabView line's parenthesis and cab view.
    EXPECT_EQ(engines["categories"]["Cabview"], 4);
    EXPECT_EQ(engines["categories"]["Sounds"], 5);
    EXPECT_THAT(report("EngSounds.txt"), testing::Not(HasSubstr("RY_whistle.wav")));

    const nlohmann::json wagons = counts({"--sound"}, "wagons");
    EXPECT_EQ(wagons["categories"]["Sounds"], 2);
    EXPECT_EQ(wagons["categories"]["Others"], 1);
    EXPECT_THAT(report("WagSyntax.txt"), HasSubstr("RY_WAGHEAD.WAG"));

    const nlohmann::json consists = counts({}, "consists");
    EXPECT_EQ(consists["failed"],
              nlohmann::json({"RY_Broken_Lines.con", "RY_Hidden_Unit.con", "RY_Missing_Loco.con",
                              "RY_Shunt_8bit.con", "RY_Three_Missing.con"}));
    EXPECT_THAT(report("ConMissing.txt"), HasSubstr("RY_Class08.eng"));
    // Units below a line that needed quotes are not looked at.
    EXPECT_THAT(report("ConMissing.txt"), testing::Not(HasSubstr("RY_Broken_Lines")));
    EXPECT_THAT(report("ConMissing.txt"), testing::Not(HasSubstr("RY_Hidden_Unit")));

    const CliRun cabForWagons = test({"--cab"}, "wagons");
    EXPECT_EQ(cabForWagons.status, 2);
    const CliRun oneConsist = test({"ry_quote_forms"}, "consists");
    EXPECT_EQ(oneConsist.status, 0) << oneConsist.out;
}

// Consists of a published timetable whose units are not installed: every unit is missing.
TEST(TestConsistsRealContent, UnitsThatAreNotInstalledAreMissing) {
    const std::filesystem::path consists =
        std::filesystem::path(RAKEYARD_REALDATA_DIR) /
        "YoRyan_openrails-timetables/TRAINS/CONSISTS";
    if (!std::filesystem::is_directory(consists)) GTEST_SKIP() << "no real content here";
    TempFolder folder;
    std::filesystem::create_directories(folder / "msts/TRAINS/TRAINSET");
    std::error_code ec;
    std::filesystem::create_directory_symlink(consists, folder / "msts/TRAINS/CONSISTS", ec);
    if (ec) GTEST_SKIP() << "no symbolic link can be made here: " << ec.message();
    const CliRun run = runCli({"--home", folder / "home", "--msts", folder / "msts", "--yes",
                               "--json", "test", "consists"});
    EXPECT_EQ(run.status, 1) << run.err;
    const nlohmann::json counts = nlohmann::json::parse(run.out);
    EXPECT_EQ(counts["errors"], counts["filesTested"]);
    EXPECT_EQ(counts["errors"], counts["categories"]["Missing"]);
    EXPECT_GT(counts["failed"].size(), 10u);
}

}  // namespace
}  // namespace rakeyard::test
