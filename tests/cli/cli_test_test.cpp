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
    CliRun test(std::vector<std::string> words) {
        words.insert(words.begin(), {"--home", home, "--msts", msts, "--yes", "test", "engines"});
        return runCli(words);
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

}  // namespace
}  // namespace rakeyard::test
