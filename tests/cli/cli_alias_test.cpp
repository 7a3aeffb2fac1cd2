// alias list | engine | cab-folder | sound-folder | restore on the bundled samples.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>

#include "cli/cli_runner.h"
#include "support/msts_tree.h"

namespace rakeyard::test {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

class AliasCommands : public ::testing::Test {
protected:
    CliRun run(std::vector<std::string> words) {
        std::vector<std::string> arguments = {"--home", home, "--msts", msts};
        arguments.insert(arguments.end(), words.begin(), words.end());
        return runCli(arguments);
    }
    std::string trainset(const std::string& relative) const {
        return msts + "/TRAINS/TRAINSET/" + relative;
    }
    TempFolder folder;
    std::string msts = copySamples(folder.path());
    std::string home = folder / "home";
};

TEST_F(AliasCommands, ListShowsTheThreeListsOfTheSamples) {
    const CliRun list = run({"alias", "list", "--json"});
    EXPECT_EQ(list.status, 0) << list.err;
    const nlohmann::json lists = nlohmann::json::parse(list.out);
    EXPECT_EQ(lists["notAliased"], nlohmann::json({"RY_CabSound.eng", "RY_Class20.eng", "RY_Class25.eng"}));
    EXPECT_EQ(lists["cabSources"].front(), "-- NO ALIAS --");
    EXPECT_THAT(lists["cabSources"].dump(), HasSubstr("RY_Class37.eng"));
    EXPECT_THAT(lists["soundSources"].dump(), Not(HasSubstr("RY_Class25")));  // aliased
    EXPECT_THAT(lists["cabSources"].dump(), Not(HasSubstr("RY_Shunter")));    // no CABVIEW
}

TEST_F(AliasCommands, AliasThenRestoreGivesTheEngineBackByteForByte) {
    const std::string engine = trainset("RY_Class20/RY_Class20.eng");
    const std::string original = readWholeFile(engine);
    const CliRun alias = run({"alias", "engine", "ry_class20", "RY_Class37.eng", "RY_Class86"});
    EXPECT_EQ(alias.status, 0) << alias.err;
    EXPECT_THAT(alias.err, HasSubstr("info: The locomotive has been aliased!"));
    EXPECT_EQ(readWholeFile(engine + ".bk"), original);
    EXPECT_TRUE(std::filesystem::exists(trainset("RY_Class20/CABVIEW/RY_37.cvf")));
    EXPECT_TRUE(std::filesystem::exists(trainset("RY_Class20/SOUND/RY_86_cab.sms")));
    const CliRun tested = run({"test", "engines", "RY_Class20"});
    EXPECT_EQ(tested.status, 0) << tested.out << tested.err;

    const CliRun second = run({"alias", "engine", "RY_Class20", "-", "RY_Class86"});
    EXPECT_EQ(second.status, 1);
    EXPECT_THAT(second.err, HasSubstr("error: An error ocurred while aliasing this engine"));

    const CliRun restore = run({"alias", "restore", "RY_Class20"});
    EXPECT_EQ(restore.status, 0) << restore.err;
    EXPECT_EQ(readWholeFile(trainset("RY_Class20/RY_CLASS20.ENG")), original);
    // Where names differ by case alone the old one is gone; elsewhere it is the same file.
    if (keepsCaseApart(trainset("RY_Class20"))) {
        EXPECT_FALSE(std::filesystem::exists(engine));
    }
    const CliRun again = run({"alias", "restore", "RY_Class20"});
    EXPECT_EQ(again.status, 1);
    EXPECT_THAT(again.err, HasSubstr("There is no engine to restore!"));
}

TEST_F(AliasCommands, RefusesLinesTheListsDoNotShow) {
    const CliRun source = run({"alias", "engine", "RY_Class20", "RY_Class25", "-"});
    EXPECT_EQ(source.status, 1);
    EXPECT_THAT(source.err,
                HasSubstr("\"RY_Class25\" is not in the list \"Sources for cabviews\""));
    const CliRun target = run({"alias", "engine", "RY_Class37", "-", "-"});
    EXPECT_EQ(target.status, 1);
    EXPECT_THAT(target.err, HasSubstr("is not in the list \"Engine to alias\""));
    EXPECT_FALSE(std::filesystem::exists(trainset("RY_Class37/RY_Class37.eng.bk")));
}

TEST_F(AliasCommands, FolderAliasesTakePathsBelowTrainsetAndAnswerTheEraseQuestion) {
    const std::string original = readWholeFile(trainset("RY_Class25/RY_Class25.eng"));
    const CliRun sound =
        run({"alias", "sound-folder", "RY_Class25", trainset("RY_Common/SOUND/RY_common_eng.sms"),
             "RY_Common\\SOUND\\RY_common_cab.sms"});
    EXPECT_EQ(sound.status, 0) << sound.err;
    EXPECT_THAT(sound.err, HasSubstr("-> No"));  // the safe answer keeps the folder
    EXPECT_TRUE(std::filesystem::exists(trainset("RY_Class25/SOUND")));
    EXPECT_TRUE(std::filesystem::exists(trainset("RY_Class25/RY_Class25.eng.bk")));

    const CliRun cab = run({"alias", "cab-folder", "RY_Class25", "RY_Common/CABVIEW/RY_common.cvf",
                            "--no-backup", "--yes"});
    EXPECT_EQ(cab.status, 0) << cab.err;
    EXPECT_THAT(cab.err, HasSubstr("question: This engine contains a sub-folder no longer needed. "
                                   "Do you wish to erase it? -> Yes"));
    EXPECT_FALSE(std::filesystem::exists(trainset("RY_Class25/CABVIEW")));
    // Without a backup asked for, the one of the sound alias stays the original engine.
    EXPECT_EQ(readWholeFile(trainset("RY_Class25/RY_Class25.eng.bk")), original);
}

}  // namespace
}  // namespace rakeyard::test
