#include "core/tools/allocated_space.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <memory>

#include "support/fakes.h"
#include "support/msts_tree.h"

namespace rakeyard {
namespace {

using ::testing::HasSubstr;

class AllocatedSpace : public ::testing::Test {
protected:
    AllocatedSpace() {
        paths.programFolder = msts.home();
        paths.consistsPath = msts.consists();
        paths.trainsetPath = msts.trainset();
        std::filesystem::create_directories(msts.home() + "/Reports");
        std::filesystem::create_directories(msts.consists());
    }
    void file(const std::string& relative, std::size_t bytes) {
        msts.writeBytes(relative, std::string(bytes, 'x'));
    }
    SpaceTotals totals() { return allocatedSpace(*catalogue, paths, fake.fs, fake.progress); }

    test::MstsTree msts;
    test::FakeServices fake;
    PathGlobals paths;
    std::unique_ptr<UnitCatalogue> catalogue = std::make_unique<UnitCatalogue>();
};

TEST_F(AllocatedSpace, FilesInFrontOfTheEngineCountForWagonsAndEngineAlike) {
    file("TRAINS/TRAINSET/Class37/A_readme.txt", 10);  // before the .eng in name order
    file("TRAINS/TRAINSET/Class37/Class37.eng", 100);
    file("TRAINS/TRAINSET/Class37/Class37.s", 1000);
    file("TRAINS/TRAINSET/Class37/CABVIEW/c.cvf", 20000);
    file("TRAINS/TRAINSET/Class37/SOUND/e.sms", 300000);
    file("TRAINS/TRAINSET/Class37/SOUND/deeper/x.wav", 7);  // only the folder's own files
    file("TRAINS/TRAINSET/Wagons/van.wag", 4000000);
    file("TRAINS/TRAINSET/Wagons/van.s", 5);
    file("TRAINS/TRAINSET/MyDefault/big.wag", 999);  // any name ending in DEFAULT is passed over
    file("TRAINS/TRAINSET/default/big.eng", 999);
    file("TRAINS/CONSISTS/a.con", 30);
    file("TRAINS/CONSISTS/b.CON", 12);
    file("TRAINS/CONSISTS/notes.txt", 500);
    const SpaceTotals t = totals();
    EXPECT_EQ(t.engineBytes, 1110u);
    EXPECT_EQ(t.cabBytes, 20000u);
    EXPECT_EQ(t.soundBytes, 300000u);
    EXPECT_EQ(t.engineFolderBytes(), 321110u);
    EXPECT_EQ(t.wagonBytes, 4000015u);
    EXPECT_EQ(t.consists, 2u);
    EXPECT_EQ(t.consistBytes, 42u);
    EXPECT_EQ(fake.progress.steps, 4);
}

TEST_F(AllocatedSpace, TotalsGoPastFourGibibytes) {
    const std::string big = msts.writeBytes("TRAINS/TRAINSET/Huge/huge.wag", "");
    std::filesystem::resize_file(big, 5ull << 30);  // sparse: no disk space taken
    file("TRAINS/TRAINSET/Huge/more.wag", 1);
    EXPECT_EQ(totals().wagonBytes, (5ull << 30) + 1);
    EXPECT_EQ(megabytesText(5ull << 30), "5,242.88");
}

TEST(SpaceFormats, ThousandsGroupedWithCommasAndPointWhateverTheLocale) {
    EXPECT_EQ(thousandsText(0), "");
    EXPECT_EQ(thousandsText(999), "999");
    EXPECT_EQ(thousandsText(1000), "1,000");
    EXPECT_EQ(thousandsText(18446744073709551615ull), "18,446,744,073,709,551,615");
    EXPECT_EQ(thousandsTextTwoDecimals(0), "0.00");
    EXPECT_EQ(thousandsTextTwoDecimals(1234567.891), "1,234,567.89");
    EXPECT_EQ(megabytesText(1024 * 1000), "1.00");
}

TEST_F(AllocatedSpace, ListsAreWrittenByteForByteInEachForm) {
    UnitRecord& engine = catalogue->engines[0];
    engine = UnitRecord{};
    engine.unitType = "Diesel";
    engine.displayName = "Class 37";
    engine.fileName = "Class37.eng";
    engine.folderName = "Class37";
    engine.couplerFront = engine.couplerRear = "A";
    engine.maxPower = "1305kW";
    engine.mass = 102.5f;
    engine.length = 18.75f;
    catalogue->engineCount = 1;
    UnitRecord& wagon = catalogue->wagons[0];
    wagon = engine;
    wagon.unitType = "Freight";
    wagon.fileName = "van.wag";
    catalogue->wagonCount = 1;

    ASSERT_TRUE(writeUnitLists(*catalogue, paths, ListForm::CommaDelimited, fake.services));
    EXPECT_EQ(msts.read("home/Reports/Engines list.txt"),
              "\"Diesel\t\",\"Class 37\t\",\"Class37.eng\t\",\"Class37\t\",\"A\t\",\"A\t\","
              "\"1305kW\t\",\"102.5\t\",\"18.75\t\"\r\n");
    EXPECT_EQ(msts.read("home/Reports/Wagons list.txt"),
              "\"Freight\t\",\"Class 37\t\",\"van.wag\t\",\"Class37\t\",\"A\t\",\"A\t\","
              "\"102.5\t\",\"18.75\t\"\r\n");
    EXPECT_EQ(fake.dialogs.texts().back(),
              "Lists ready! \"Engines list.txt\" and \"Wagons list.txt\" in the Rakeyard reports "
              "folder.");

    ASSERT_TRUE(writeUnitLists(*catalogue, paths, ListForm::Spreadsheet, fake.services));
    EXPECT_EQ(msts.read("home/Reports/Wagons list.txt"),
              "\"Freight\",\"Class 37\",\"van.wag\",\"Class37\",\"A\",\"A\",102.5,18.75\r\n");

    ASSERT_TRUE(writeUnitLists(*catalogue, paths, ListForm::FileNamesOnly, fake.services));
    EXPECT_EQ(msts.read("home/Reports/Engs1.txt"), "\"Class37.eng\"\r\n");
    EXPECT_EQ(msts.read("home/Reports/Wags1.txt"), "\"van.wag\"\r\n");
}

TEST_F(AllocatedSpace, ListThatCannotBeWrittenIsToldAndTheOldOneStays) {
    catalogue->engines[0].fileName = "a.eng";
    catalogue->engineCount = 1;
    std::ofstream(msts.home() + "/Reports/Engs1.txt", std::ios::binary) << "old";
    fake.fs.failAfterBytes = 3;
    EXPECT_FALSE(writeUnitLists(*catalogue, paths, ListForm::FileNamesOnly, fake.services));
    EXPECT_EQ(msts.read("home/Reports/Engs1.txt"), "old");
    EXPECT_THAT(fake.dialogs.texts().back(), HasSubstr("\"Engs1.txt\" could not be written"));
}

}  // namespace
}  // namespace rakeyard
