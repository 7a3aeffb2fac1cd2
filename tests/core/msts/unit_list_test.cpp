#include "core/msts/unit_list.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <vector>

#include "core/platform/paths.h"
#include "support/fakes.h"
#include "support/msts_tree.h"

namespace rakeyard {
namespace {

UnitRecord unit(std::string file, std::string name, std::string type, bool hasCab = true,
                std::string power = "2000kW") {
    UnitRecord r;
    r.fileName = std::move(file);
    r.displayName = std::move(name);
    r.unitType = std::move(type);
    r.hasCab = hasCab;
    r.maxPower = std::move(power);
    r.couplerFront = "A";
    r.couplerRear = "B";
    r.folderName = "F";
    r.folderPath = "/msts/TRAINS/TRAINSET/F";
    return r;
}

TEST(UnitListLine, PadsOrCutsTheNameToThirtyCharacters) {
    struct Case {
        std::string name;
        std::string shown;
    } cases[] = {
        {"GP38", "GP38" + std::string(27, ' ')},
        {std::string(30, 'x'), std::string(30, 'x') + " "},
        {std::string(45, 'y'), std::string(30, 'y') + " "},
        // Characters count, not bytes: 30 letters of two bytes each.
        {std::string(15, 'a') + "\xC4\x8D\xC4\x8D" + std::string(20, 'b'),
         std::string(15, 'a') + "\xC4\x8D\xC4\x8D" + std::string(13, 'b') + " "},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(unitListLine(unit("GP38.eng", c.name, "Diesel"), true),
                  c.shown + "[AB] 2000kW        ^GP38.eng")
            << c.name;
    }
    EXPECT_EQ(unitListLine(unit("BOX.wag", "Box", "Freight"), false),
              "Box" + std::string(28, ' ') + "[AB] Freight        ^BOX.wag");
}

TEST(ReadEngFilter, ShowsWhatEachFilterWordSelects) {
    const std::vector<UnitRecord> engines = {
        unit("S.eng", "steam one", "Steam"),
        unit("D.eng", "Diesel two", "DIESEL", false),
        unit("E.eng", "electric", "Electric"),
        unit("Q.eng", "odd", "????????", false),
    };
    struct Case {
        const char* filter;
        std::vector<std::string> keys;  // in list order
    } cases[] = {
        {"All", {"Diesel two", "electric", "odd", "steam one"}},
        {"AI", {"Diesel two", "odd"}},
        {"Diesel", {"Diesel two"}},
        {"steam", {"steam one"}},
        {"ALL", {}},
        {"all", {}},
        {"Tender", {}},
    };
    for (const Case& c : cases) {
        std::vector<std::string> names;
        for (const std::string& line : readEngFilter(engines, c.filter))
            names.push_back(line.substr(0, line.find("  ")));
        EXPECT_EQ(names, c.keys) << c.filter;
    }
}

TEST(FilterSummary, NamesTheFilterAndHowManyOfAllAreShown) {
    EXPECT_EQ(filterSummary("Diesel", 12, 25), "Diesel - 12 of 25");
    EXPECT_EQ(filterSummary("AI", 0, 3), "AI engines - 0 of 3");
    EXPECT_EQ(filterSummary("All", 8001, 8001), "All - 8001 of 8001");
}

TEST(ReadEngFilter, AIListIsEmptyWhenEveryEngineHasACab) {
    const std::vector<UnitRecord> engines = {unit("A.eng", "A", "Diesel"),
                                             unit("B.eng", "B", "Steam")};
    EXPECT_TRUE(readEngFilter(engines, "AI").empty());
}

TEST(ReadWagFilter, HasNoAIWordAndSortsUpperCasedThenExact) {
    const std::vector<UnitRecord> wagons = {
        unit("X.wag", "b_box", "Freight", false), unit("X.wag", "B_box", "Freight", false),
        unit("3.wag", "bZ", "Freight", false), unit("4.wag", "a", "Freight", false)};
    EXPECT_TRUE(readWagFilter(wagons, "AI").empty());
    std::vector<std::string> names;
    for (const std::string& line : readWagFilter(wagons, "Freight"))
        names.push_back(line.substr(0, line.find(' ')));
    // "_" sorts after the letters once upper-cased; equal upper case falls back to exact.
    EXPECT_EQ(names, (std::vector<std::string>{"a", "bZ", "B_box", "b_box"}));
}

TEST(FindUnitByKey, FindsTheFirstRecordOfAFileName) {
    const std::vector<UnitRecord> engines = {
        unit("GP38.eng", "first", "Diesel"), unit("gp38.eng", "second", "Diesel"),
        unit("X.eng", std::string(40, 'n') + " long", "Diesel")};
    EXPECT_EQ(findUnitByKey(engines, "gp38.ENG"), 0u);
    EXPECT_EQ(findUnitByKey(engines, "gp38.eng", KeyCase::Exact), 1u);
    EXPECT_EQ(findUnitByKey(engines, "Y.eng"), std::nullopt);
    // A name cut in its line still finds its record by the key.
    EXPECT_EQ(findUnitByKey(engines, keyOfLine(unitListLine(engines[2], true))), 2u);
    EXPECT_EQ(keyOfLine("x ^ y^Z.eng"), "Z.eng");
    EXPECT_EQ(findUnitOfLine(engines, unitListLine(engines[1], true)), 1u);
    EXPECT_EQ(unitStatusText(engines[0]), std::string("F") + kPathSeparator + "GP38.eng -- first");
}

class UnitListActions : public ::testing::Test {
protected:
    void SetUp() override { paths.trainsetPath = msts.trainset(); }
    test::MstsTree msts;
    test::FakeServices fake;
    PathGlobals paths;
};

TEST_F(UnitListActions, CtrlClickOpensTheFileOfTheLinesUnit) {
    const std::vector<UnitRecord> engines = {unit("GP38.eng", "first", "Diesel"),
                                             unit("GP38.eng", "second", "Diesel")};
    EXPECT_FALSE(openUnitInEditor(paths, engines, unitListLine(engines[1], true), fake.services));
    EXPECT_EQ(fake.dialogs.texts(),
              (std::vector<std::string>{
                  "Please select \"Options\" from the menu and choose a text editor program."}));
    paths.editorPath = "/usr/bin/gedit";
    EXPECT_TRUE(openUnitInEditor(paths, engines, unitListLine(engines[1], true), fake.services));
    EXPECT_EQ(fake.desktop.started,
              (std::vector<std::string>{"/usr/bin/gedit " +
                                        joinPath("/msts/TRAINS/TRAINSET/F", "GP38.eng")}));
}

TEST_F(UnitListActions, DeleteSendsTheUnitsFolderToTheBin) {
    msts.write("TRAINS/TRAINSET/GP38/GP38.eng", "Wagon ( GP38\n");
    msts.write("TRAINS/TRAINSET/GP38/GP40.eng", "Wagon ( GP40\n");
    UnitRecord gp38 = unit("GP38.eng", "GP38", "Diesel");
    gp38.folderName = "gp38";  // another letter case than on disk
    EXPECT_TRUE(deleteUnitFolder(paths, gp38, fake.services));
    EXPECT_EQ(fake.desktop.trashed, (std::vector<std::string>{joinPath(msts.trainset(), "GP38")}));
    EXPECT_FALSE(msts.exists("msts/TRAINS/TRAINSET/GP38/GP40.eng"));
}

TEST_F(UnitListActions, DeleteIsRefusedOutsideTrainset) {
    msts.write("TRAINS/CONSISTS/keep.con", "x");
    msts.write("TRAINS/TRAINSET/GP38/GP38.eng", "x");
    std::error_code ec;
    // Where no link can be made (Wine), the names that leave Trainset are refused all the same.
    std::filesystem::create_symlink(msts.consists(), msts.trainset() + "/../TRAINSET/LINK", ec);
    for (const char* folderName :
         {"", ".", "..", "../CONSISTS", "GP38/../..", "..\\CONSISTS", "MISSING"}) {
        UnitRecord r = unit("X.eng", "X", "Diesel");
        r.folderName = folderName;
        EXPECT_FALSE(deleteUnitFolder(paths, r, fake.services)) << folderName;
    }
    paths.trainsetPath = "";
    EXPECT_FALSE(deleteUnitFolder(paths, unit("GP38.eng", "GP38", "Diesel"), fake.services));
    EXPECT_TRUE(fake.desktop.trashed.empty());
    EXPECT_TRUE(msts.exists("msts/TRAINS/CONSISTS/keep.con"));
    EXPECT_TRUE(msts.exists("msts/TRAINS/TRAINSET/GP38/GP38.eng"));
    EXPECT_EQ(fake.dialogs.shown.size(), 8u);
    EXPECT_EQ(fake.dialogs.shown[0].icon, Icon::Stop);
}

}  // namespace
}  // namespace rakeyard
