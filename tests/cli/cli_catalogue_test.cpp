// catalogue engines | wagons: the list lines under a filter, and the records as JSON.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>

#include "cli/cli_runner.h"
#include "support/msts_tree.h"
#include "core/platform/paths.h"

namespace rakeyard::test {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

std::string engineText(const std::string& name, const std::string& type,
                       const std::string& coupling, const std::string& power, bool hasCab,
                       const std::string& display) {
    return "Wagon ( " + name + "\n\tType ( Engine )\n\tWagonShape ( " + name +
           ".s )\n\tSize ( 3m 4m 18.5m )\n\tMass ( 80t )\n\tCoupling (\n\t\tType ( " + coupling +
           " )\n\t\tVelocity ( 0.1m/s )\n\t)\n\tBuffers (\n\t\tCentre ( 0.5 )\n"
           "\t\tRadius ( 1 )\n\t\tAngle ( 0.5deg )\n\t)\n\tAdheasion ( 0.2 0.4 2 0 )\n"
           "\tFriction (\n\t\t1000N/m/s 0 1mph 0 1\n\t)\n"
           "\tBrakeEquipmentType ( \"Handbrake\" )\n)\n\nEngine ( " +
           name + "\n\tType ( " + type + " )\n\tMaxPower ( " + power + " )\n" +
           (hasCab ? "\tCabView ( " + name + ".cvf )\n" : "") + "\tName ( \"" + display +
           "\" )\n)\n";
}

std::string wagonText(const std::string& name, const std::string& type,
                      const std::string& display) {
    return "Wagon ( " + name + "\n\tType ( " + type + " )\n\tWagonShape ( " + name +
           ".s )\n\tSize ( 3m 4m 12.25m )\n\tMass ( 21.5t )\n\tCoupling (\n\t\tType ( Chain )\n"
           "\t)\n\tName ( \"" +
           display + "\" )\n)\n";
}

class Catalogue : public ::testing::Test {
protected:
    void SetUp() override {
        msts.write("TRAINS/TRAINSET/Diesels/Zeta.eng",
                   engineText("Zeta", "Diesel", "Automatic", "2000kW #peak", true, "Zeta diesel"));
        msts.write(
            "TRAINS/TRAINSET/Diesels/alpha.eng",
            engineText("alpha", "diesel", "Bar", "900kW", false,
                       "Alpha yard diesel with a name far too long for the list of engines"));
        msts.write("TRAINS/TRAINSET/Steam/Mogul.eng",
                   engineText("Mogul", "Steam", "Chain", "1100kW", true, "Mogul"));
        msts.write("TRAINS/TRAINSET/Stock/Box.wag", wagonText("Box", "Freight", "Box van"));
        msts.write("TRAINS/TRAINSET/Stock/coach.wag", wagonText("coach", "Carriage", "Coach"));
    }
    CliRun catalogue(std::vector<std::string> words) {
        words.insert(words.begin(), {"--home", msts.home(), "--msts", msts.msts(), "catalogue"});
        return runCli(words);
    }
    MstsTree msts;
};

TEST_F(Catalogue, ARecordBegunByARefusedLastFileIsNeverShown) {
    // Refused once its record was begun: the Engine section has no Type line.
    msts.write("TRAINS/TRAINSET/Zz/Broken.eng",
               "Wagon ( Broken\n\tType ( Engine )\n\tWagonShape ( Broken.s )\n"
               "\tSize ( 3m 4m 18.5m )\n\tMass ( 80t )\n)\n\nEngine ( Broken\n"
               "\tName ( \"Broken\" )\n)\n");
    const CliRun json = catalogue({"engines", "--json", "--filter", "All"});
    ASSERT_EQ(json.status, 0) << json.err;
    EXPECT_THAT(msts.read("home/Reports/StartErrors.txt"), HasSubstr("Broken.eng"));
    std::vector<std::string> names;
    for (const auto& record : nlohmann::json::parse(json.out))
        names.push_back(record["fileName"]);
    EXPECT_THAT(names, ElementsAre("alpha.eng", "Zeta.eng", "Mogul.eng"));
    const CliRun lines = catalogue({"engines", "--filter", "All"});
    EXPECT_THAT(lines.out, Not(HasSubstr("Broken")));
}

TEST_F(Catalogue, PrintsExactlyTheListLinesSortedAsTheListShowsThem) {
    const CliRun run = catalogue({"engines"});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_THAT(linesOf(run.out),
                ElementsAre("Alpha yard diesel with a name  [BB] 900kW        ^alpha.eng",
                            "Mogul                          [CC] 1100kW        ^Mogul.eng",
                            "Zeta diesel                    [AA] 2000kW        ^Zeta.eng"));
    EXPECT_THAT(run.err, IsEmpty());
}

TEST_F(Catalogue, FilterPicksByTypeInAnyCaseAndAiByMissingCab) {
    EXPECT_THAT(linesOf(catalogue({"engines", "--filter", "Diesel"}).out),
                ElementsAre(HasSubstr("^alpha.eng"), HasSubstr("^Zeta.eng")));
    EXPECT_THAT(linesOf(catalogue({"engines", "--filter", "AI"}).out),
                ElementsAre(HasSubstr("^alpha.eng")));
    EXPECT_THAT(linesOf(catalogue({"engines", "--filter", "Electric"}).out), IsEmpty());
    EXPECT_THAT(linesOf(catalogue({"wagons", "--filter", "Carriage"}).out),
                ElementsAre("Coach                          [CC] Carriage        ^coach.wag"));
}

TEST_F(Catalogue, SearchNarrowsTheLinesAndRecordsUnderTheFilter) {
    EXPECT_THAT(linesOf(catalogue({"engines", "--search", "DIESELS"}).out),
                ElementsAre(HasSubstr("^alpha.eng"), HasSubstr("^Zeta.eng")));
    EXPECT_THAT(linesOf(catalogue({"engines", "--search", "yard diesels"}).out),
                ElementsAre(HasSubstr("^alpha.eng")));
    EXPECT_THAT(linesOf(catalogue({"engines", "--search", "mogul", "--filter", "Diesel"}).out),
                IsEmpty());
    const CliRun json = catalogue({"wagons", "--json", "--search", "coach.wag"});
    ASSERT_EQ(json.status, 0) << json.err;
    const nlohmann::json records = nlohmann::json::parse(json.out);
    ASSERT_EQ(records.size(), 1u);
    EXPECT_EQ(records[0]["fileName"], "coach.wag");
}

TEST_F(Catalogue, FilterOptionLeavesTheStoredFilterAlone) {
    ASSERT_EQ(catalogue({"engines", "--filter", "Steam"}).status, 0);
    EXPECT_EQ(linesOf(catalogue({"engines"}).out).size(), 3u);
    const std::string settings = msts.read("home/settings.bin");
    ASSERT_EQ(settings.size(), 1664u);
    EXPECT_EQ(settings.substr(1630, 10), "All       ");
}

TEST_F(Catalogue, JsonGivesTheRecordsInCatalogueOrderWithTheirFields) {
    const CliRun run = catalogue({"engines", "--json"});
    ASSERT_EQ(run.status, 0) << run.err;
    const nlohmann::json records = nlohmann::json::parse(run.out);
    ASSERT_EQ(records.size(), 3u);
    // Folder listing order, not the list's order.
    EXPECT_EQ(records[0]["fileName"], "alpha.eng");
    EXPECT_EQ(records[1]["fileName"], "Zeta.eng");
    EXPECT_EQ(records[2]["fileName"], "Mogul.eng");
    const nlohmann::json& zeta = records[1];
    EXPECT_EQ(zeta["folderPath"], joinPath(msts.trainset(), "Diesels"));
    EXPECT_EQ(zeta["folderName"], "Diesels");
    EXPECT_EQ(zeta["displayName"], "Zeta diesel");
    EXPECT_EQ(zeta["unitType"], "Diesel");
    EXPECT_EQ(zeta["couplerFront"], "A");
    EXPECT_EQ(zeta["couplerRear"], "A");
    EXPECT_EQ(zeta["mass"], 80);
    EXPECT_EQ(zeta["length"], 18.5);
    EXPECT_EQ(zeta["maxPower"], "2000kW");
    EXPECT_EQ(zeta["shapeName"], "Zeta.s");
    EXPECT_EQ(zeta["hasCab"], true);
    EXPECT_EQ(records[0]["hasCab"], false);
    EXPECT_EQ(records[0]["displayName"],
              "Alpha yard diesel with a name far too long for the list of e");
}

TEST_F(Catalogue, WagonJsonCarriesTheSameKeysWithNoPowerAndNoCab) {
    const CliRun run = catalogue({"wagons", "--json", "--filter", "Freight"});
    ASSERT_EQ(run.status, 0) << run.err;
    // Parsed keeping the keys' order, which is the records' field order.
    const nlohmann::ordered_json records = nlohmann::ordered_json::parse(run.out);
    ASSERT_EQ(records.size(), 1u);
    std::vector<std::string> keys;
    for (const auto& [key, value] : records[0].items())
        keys.push_back(key);
    EXPECT_THAT(keys, ElementsAre("folderPath", "folderName", "fileName", "displayName", "unitType",
                                  "couplerFront", "couplerRear", "mass", "length", "maxPower",
                                  "shapeName", "hasCab"));
    EXPECT_EQ(records[0]["fileName"], "Box.wag");
    EXPECT_EQ(records[0]["mass"], 21.5);
    EXPECT_EQ(records[0]["length"], 12.25);
    EXPECT_EQ(records[0]["maxPower"], "");
    EXPECT_EQ(records[0]["hasCab"], false);
}

TEST_F(Catalogue, FaultyUnitsGoToStartErrorsAndTheQuestionKeepsThem) {
    msts.write("TRAINS/TRAINSET/Steam/Wrong.eng",
               engineText("Right", "Steam", "Chain", "1kW", true, "Wrong"));
    const CliRun run = catalogue({"engines"});
    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(run.out, Not(HasSubstr("Wrong")));
    EXPECT_THAT(run.err, HasSubstr("question: WARNING: one or more errors have been found while "
                                   "reading engine files."));
    EXPECT_THAT(run.err, HasSubstr(" -> OK\n"));
    EXPECT_THAT(
        msts.read("home/Reports/StartErrors.txt"),
        HasSubstr("Most probably this line is stating a name different from its file name."));

    // --no answers Cancel, which deletes the findings; the next run starts without them.
    const CliRun cancelled = catalogue({"engines", "--no"});
    EXPECT_THAT(cancelled.err, HasSubstr(" -> Cancel\n"));
    EXPECT_FALSE(msts.exists("home/Reports/StartErrors.txt"));
}

TEST(CatalogueOfSamples, EveryFilterShowsSomething) {
    TempFolder folder;
    const std::string msts = copySamples(folder.path());
    const std::string home = folder / "home";
    for (const char* filter : {"Steam", "Diesel", "Electric", "AI", "All"}) {
        const CliRun run =
            runCli({"--home", home, "--msts", msts, "catalogue", "engines", "--filter", filter});
        EXPECT_EQ(run.status, 0) << filter;
        EXPECT_THAT(run.out, Not(IsEmpty())) << filter;
    }
    for (const char* filter : {"Freight", "Carriage", "Tender", "All"}) {
        const CliRun run =
            runCli({"--home", home, "--msts", msts, "catalogue", "wagons", "--filter", filter});
        EXPECT_EQ(run.status, 0) << filter;
        EXPECT_THAT(run.out, Not(IsEmpty())) << filter;
    }
    const std::string startErrors = readWholeFile(home + "/Reports/StartErrors.txt");
    for (const char* finding :
         {"RY_Oldtimer.eng isn't a Unicode file!",
          "Most probably this line is stating a name different", "contains an invalid engine type",
          "RY_Flatbed.wag(Rear coupler", "RY_Crane.wag contains an invalid type"})
        EXPECT_THAT(startErrors, HasSubstr(finding));
}

TEST(CatalogueOfRealContent, ReadsEveryRealInstallation) {
    const std::filesystem::path realdata = RAKEYARD_REALDATA_DIR;
    if (!std::filesystem::is_directory(realdata))
        GTEST_SKIP() << "no real MSTS content at " << realdata << " (set RAKEYARD_REALDATA_DIR)";
    for (const auto& source : std::filesystem::directory_iterator(realdata)) {
        if (!std::filesystem::is_directory(source.path() / "TRAINS" / "TRAINSET")) continue;
        TempFolder home;
        const CliRun run = runCli({"--home", home.path(), "--msts", source.path().string(),
                                   "catalogue", "engines", "--json"});
        EXPECT_EQ(run.status, 0) << source.path() << run.err;
        EXPECT_TRUE(nlohmann::json::parse(run.out).is_array()) << source.path();
    }
}

}  // namespace
}  // namespace rakeyard::test
