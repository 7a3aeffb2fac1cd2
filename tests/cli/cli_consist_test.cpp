// consist show | copy | new on a copy of the bundled sample installation.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <nlohmann/json.hpp>

#include "cli/cli_runner.h"
#include "support/msts_tree.h"
#include "core/platform/paths.h"

namespace rakeyard::test {
namespace {

using nlohmann::json;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;

class ConsistCommands : public ::testing::Test {
protected:
    CliRun cli(std::vector<std::string> words) {
        words.insert(words.begin(), {"--home", home, "--msts", msts});
        return runCli(words);
    }
    json show(const std::string& consist) {
        const CliRun run = cli({"consist", "show", consist, "--json"});
        EXPECT_EQ(run.status, 0) << consist << "\n" << run.err;
        return run.status == 0 ? json::parse(run.out) : json::object();
    }
    bool consistExists(const std::string& file) const {
        return std::filesystem::exists(msts + "/TRAINS/CONSISTS/" + file);
    }
    static std::vector<std::string> fileNames(const json& consist) {
        std::vector<std::string> names;
        for (const json& slot : consist["slots"])
            names.push_back(slot["fileName"]);
        return names;
    }

    TempFolder folder;
    std::string msts = copySamples(folder.path());
    std::string home = folder / "home";
};

TEST_F(ConsistCommands, ShowGivesHeaderTotalsAndEveryUnitOfANormalConsist) {
    const json coal = show("RY_Coal_Up");
    EXPECT_EQ(coal["fileName"], "RY_Coal_Up");
    EXPECT_EQ(coal["name"], "Valley coal, loaded");
    EXPECT_EQ(coal["maxVelocity"], "26.82240 0.50000");
    EXPECT_EQ(coal["durability"], "1.00000");
    EXPECT_EQ(coal["serial"], "1");
    EXPECT_EQ(coal["length"], "48.55");
    EXPECT_EQ(coal["feet"], "159.28");
    EXPECT_EQ(coal["mass"], "204.8");
    EXPECT_EQ(coal["wagons"], "5");
    EXPECT_THAT(fileNames(coal), ElementsAre("RY_Class37.eng", "RY_Coal16t.wag", "RY_Coal16t.wag",
                                             "RY_Coal16t.wag", "RY_Van12t.wag", "Ry_BrakeVan.wag"));
    const json& engine = coal["slots"][0];
    EXPECT_EQ(engine["index"], 0);
    EXPECT_EQ(engine["uid"], 1);
    EXPECT_EQ(engine["position"], 1);
    EXPECT_EQ(engine["unitType"], "Diesel");
    EXPECT_EQ(engine["imageKey"], "DSL");
    EXPECT_EQ(engine["flipped"], false);
    EXPECT_EQ(engine["hasCab"], true);
    EXPECT_EQ(engine["maxPower"], "1305kW");
    EXPECT_EQ(engine["folderName"], "RY_Class37");
    EXPECT_EQ(coal["slots"][5]["imageKey"], "WAG");
    EXPECT_EQ(coal["slots"][5].size(), 18u);  // the index and the seventeen fields
}

TEST_F(ConsistCommands, ShowFindsNamesWithBlanksInAnyCaseWithOrWithoutExtension) {
    for (const char* name : {"RY Steam Excursion", "ry steam excursion.CON",
                             "TRAINS/CONSISTS/RY Steam Excursion.con"}) {
        const std::string argument =
            std::string(name).starts_with("TRAINS") ? msts + "/" + name : name;
        const json excursion = show(argument);
        EXPECT_EQ(excursion["fileName"], "RY Steam Excursion") << name;
        EXPECT_EQ(excursion["wagons"], "4") << name;
        EXPECT_EQ(excursion["slots"][1]["imageKey"], "TEN") << name;
    }
}

TEST_F(ConsistCommands, ShowMarksFlippedUnitsAndUnitsThatAreNotInstalled) {
    const json pushPull = show("RY_PushPull");
    EXPECT_EQ(pushPull["serial"], "3");
    EXPECT_EQ(pushPull["slots"][0]["flipped"], true);
    EXPECT_EQ(pushPull["slots"][0]["imageKey"], "ELEINV");
    EXPECT_EQ(pushPull["slots"][1]["flipped"], false);
    EXPECT_EQ(pushPull["slots"][4]["imageKey"], "CARINV");

    const json missing = show("RY_Missing_Loco");
    EXPECT_EQ(missing["slots"][0]["imageKey"], "NOTFOUND");
    EXPECT_EQ(missing["slots"][0]["displayName"], "RY_Class47");
    EXPECT_EQ(missing["slots"][0]["unitType"], "");
    EXPECT_EQ(missing["wagons"], "3");
}

TEST_F(ConsistCommands, ShowOfAnEightBitOrMissingConsistFailsWithStatus1) {
    const CliRun eightBit = cli({"consist", "show", "RY_Shunt_8bit"});
    EXPECT_EQ(eightBit.status, 1);
    EXPECT_THAT(eightBit.err, HasSubstr("error: This consist isn't in Unicode format!"));
    EXPECT_EQ(eightBit.out, "");

    const CliRun missing = cli({"consist", "show", "No_Such_Consist"});
    EXPECT_EQ(missing.status, 1);
    EXPECT_THAT(missing.err, HasSubstr("error: "));
}

TEST_F(ConsistCommands, ShowAsTextListsTheUnitsInUse) {
    const CliRun run = cli({"consist", "show", "RY_Missing_Loco"});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_THAT(run.out, HasSubstr("Tanks behind a loco that is not installed"));
    EXPECT_THAT(run.out, HasSubstr("RY_Class47 (not installed)"));
    EXPECT_THAT(run.out, HasSubstr("RY_Wagons/RY_TankTTA.wag"));
}

TEST_F(ConsistCommands, NewBuildsWhatShowGivesBack) {
    const CliRun made =
        cli({"consist", "new", "My Train", "eng:RY_Class37", "RY_Coal16t.WAG", "wag:ry_brakevan"});
    ASSERT_EQ(made.status, 0) << made.err;
    ASSERT_TRUE(consistExists("My Train.con"));
    const std::string bytes = readWholeFile(msts + "/TRAINS/CONSISTS/My Train.con");
    EXPECT_THAT(bytes, HasSubstr(utf16Bytes("\tTrainCfg ( \"My Train\"\r\n")));

    const json train = show("my train");
    EXPECT_EQ(train["fileName"], "My Train");
    EXPECT_THAT(fileNames(train),
                ElementsAre("RY_Class37.eng", "RY_Coal16t.wag", "Ry_BrakeVan.wag"));
    EXPECT_EQ(train["slots"][0]["uid"], 1);
    EXPECT_EQ(train["slots"][2]["uid"], 3);
    EXPECT_EQ(train["wagons"], "2");
}

TEST_F(ConsistCommands, NewTellsTheWarningsTheMainWindowBlinks) {
    const CliRun couplers = cli({"consist", "new", "Mixed", "RY_Class86", "RY_Coal16t"});
    EXPECT_EQ(couplers.status, 0) << couplers.err;
    EXPECT_THAT(couplers.err, HasSubstr("warning: WARNING: Different coupling type !"));

    const CliRun ai = cli({"consist", "new", "Yard", "RY_Shunter"});
    EXPECT_EQ(ai.status, 0) << ai.err;
    EXPECT_THAT(ai.err, HasSubstr("warning: WARNING: Non-driveable engine!"));
}

TEST_F(ConsistCommands, NewWithAnUnknownUnitWritesNothing) {
    for (const char* unit : {"RY_No_Such_Wagon", "wag:RY_Class37", "eng:RY_Coal16t"}) {
        const CliRun run = cli({"consist", "new", "Broken", "RY_Class37", unit});
        EXPECT_EQ(run.status, 1) << unit;
        EXPECT_THAT(run.err, HasSubstr("error: ")) << unit;
        EXPECT_THAT(run.err, HasSubstr(unit)) << unit;
        EXPECT_FALSE(consistExists("Broken.con")) << unit;
    }
}

TEST_F(ConsistCommands, CopySavesTheSameUnitsUnderTheNewName) {
    const CliRun copied = cli({"consist", "copy", "RY_Coal_Up", "Coal Copy"});
    ASSERT_EQ(copied.status, 0) << copied.err;
    const json original = show("RY_Coal_Up");
    const json copy = show("Coal Copy.con");
    EXPECT_EQ(copy["fileName"], "Coal Copy");
    EXPECT_EQ(copy["name"], original["name"]);
    EXPECT_EQ(copy["maxVelocity"], original["maxVelocity"]);
    EXPECT_EQ(copy["slots"], original["slots"]);
}

TEST_F(ConsistCommands, CopyOverAnExistingConsistOverwritesOnlyWithYes) {
    const std::string before = readWholeFile(msts + "/TRAINS/CONSISTS/RY_PushPull.con");
    const CliRun declined = cli({"consist", "copy", "RY_Coal_Up", "RY_PushPull"});
    EXPECT_EQ(declined.status, 1);
    EXPECT_THAT(declined.err,
                HasSubstr("question: Overwrite this consist?\n" +
                          nativeSeparators(msts + "/TRAINS/CONSISTS/RY_PushPull.con -> No")));
    EXPECT_THAT(declined.err,
                HasSubstr("warning: The consist was not saved: nothing was written."));
    EXPECT_EQ(readWholeFile(msts + "/TRAINS/CONSISTS/RY_PushPull.con"), before);

    const CliRun accepted = cli({"consist", "copy", "RY_Coal_Up", "RY_PushPull", "--yes"});
    EXPECT_EQ(accepted.status, 0) << accepted.err;
    EXPECT_THAT(accepted.err, HasSubstr("RY_PushPull.con -> Yes"));
    EXPECT_EQ(show("RY_PushPull")["name"], "Valley coal, loaded");
}

TEST_F(ConsistCommands, SampleConsistsAreInTheWritersExactLayout) {
    for (const char* name : {"RY_Coal_Up", "RY Steam Excursion", "RY_PushPull"}) {
        const std::string path = msts + "/TRAINS/CONSISTS/" + name + ".con";
        const std::string before = readWholeFile(path);
        const CliRun saved = cli({"consist", "copy", name, name, "--yes"});
        EXPECT_EQ(saved.status, 0) << name << "\n" << saved.err;
        EXPECT_EQ(readWholeFile(path), before) << name;
    }
}

TEST_F(ConsistCommands, CopyOfAConsistWithAMissingUnitIsRefused) {
    const CliRun run = cli({"consist", "copy", "RY_Missing_Loco", "Tanks Copy"});
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.err, HasSubstr("This consist contains unit(s) not found!"));
    EXPECT_FALSE(consistExists("Tanks Copy.con"));
}

TEST_F(ConsistCommands, AConsistNotLoadedWholeIsShownWithStatus1AndNeverCopied) {
    std::string text =
        "SIMISA@@@@@@@@@@JINX0D0t______\r\n\r\nTrain (\r\n\tTrainCfg ( Long\r\n"
        "\t\tSerial ( 1 )\r\n\t\tMaxVelocity ( 40.00000 1.00000 )\r\n"
        "\t\tNextWagonUID ( 302 )\r\n\t\tDurability ( 1.00000 )\r\n";
    for (int i = 1; i <= 301; ++i)
        text += "\t\tWagon (\r\n\t\t\tWagonData ( RY_Coal16t RY_Wagons )\r\n\t\t\tUiD ( " +
                std::string(i == 1 ? "1e30" : std::to_string(i)) + " )\r\n\t\t)\r\n";
    std::ofstream(msts + "/TRAINS/CONSISTS/Long.con", std::ios::binary)
        << "\xFF\xFE" + utf16Bytes(text + "\t)\r\n)");

    const CliRun shown = cli({"consist", "show", "Long"});
    EXPECT_EQ(shown.status, 1);
    EXPECT_THAT(shown.err, HasSubstr("warning: Not all of this consist could be loaded."));
    EXPECT_THAT(shown.err, HasSubstr("1 were left out"));
    EXPECT_THAT(shown.out, HasSubstr("RY_Coal16t"));
    EXPECT_THAT(shown.out, HasSubstr("\n299   300"));
    EXPECT_THAT(shown.out, HasSubstr("\n0     1E+30"));  // as the UiD box shows it

    const CliRun copied = cli({"consist", "copy", "Long", "Long Copy", "--yes"});
    EXPECT_EQ(copied.status, 1);
    EXPECT_THAT(copied.err, HasSubstr("error: Nothing was written"));
    EXPECT_FALSE(consistExists("Long Copy.con"));
}

// Every file under a folder, with its bytes.
std::map<std::string, std::string> filesUnder(const std::string& root) {
    std::map<std::string, std::string> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(root))
        if (entry.is_regular_file()) files[entry.path().string()] = readWholeFile(entry.path().string());
    return files;
}

TEST_F(ConsistCommands, NamesThatAreNotPlainFileNamesAreRefusedWithNothingWritten) {
    const auto before = filesUnder(msts);
    for (const char* name : {"../x", "../../escaped", "a/b", "a\\b", "CON", "lpt1.txt", "x?",
                             "name.", "name ", "C:x", "tab\there"}) {
        const CliRun copied = cli({"consist", "copy", "RY_Coal_Up", name, "--yes"});
        EXPECT_EQ(copied.status, 1) << name;
        EXPECT_THAT(copied.err, HasSubstr("cannot be the name of a consist file")) << name;
        const CliRun made = cli({"consist", "new", name, "RY_Class37", "--yes"});
        EXPECT_EQ(made.status, 1) << name;
        EXPECT_TRUE(filesUnder(msts) == before) << name;
    }
}

TEST_F(ConsistCommands, AUnitNameMatchingTwoUnitsByCaseOnlyMustBeExact) {
    if (!keepsCaseApart(msts)) GTEST_SKIP() << "this file system takes both for one name";
    const std::string folder = msts + "/TRAINS/TRAINSET/RY_Class37/";
    const std::string original = readWholeFile(folder + "RY_Class37.eng");
    for (const std::string name : {"ry_class37", "RY_CLASS37"}) {
        std::string copy = original;
        const std::string line = utf16Bytes("Wagon ( RY_Class37");
        copy.replace(copy.find(line), line.size(), utf16Bytes("Wagon ( " + name));
        std::ofstream(folder + name + ".eng", std::ios::binary) << copy;
    }

    const CliRun exact = cli({"consist", "new", "Exact", "eng:ry_class37"});
    ASSERT_EQ(exact.status, 0) << exact.err;
    EXPECT_THAT(readWholeFile(msts + "/TRAINS/CONSISTS/Exact.con"),
                HasSubstr(utf16Bytes("EngineData ( ry_class37 RY_Class37 )")));

    const CliRun ambiguous = cli({"consist", "new", "Vague", "eng:Ry_Class37"});
    EXPECT_EQ(ambiguous.status, 2);
    EXPECT_THAT(ambiguous.err, HasSubstr("RY_CLASS37.eng"));
    EXPECT_THAT(ambiguous.err, HasSubstr("ry_class37.eng"));
    EXPECT_FALSE(consistExists("Vague.con"));
}

}  // namespace
}  // namespace rakeyard::test
