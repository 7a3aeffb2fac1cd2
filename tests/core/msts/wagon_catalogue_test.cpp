#include <gtest/gtest.h>

#include <filesystem>
#include <memory>

#include "core/msts/catalogue_reader.h"
#include "core/platform/paths.h"
#include "support/fakes.h"
#include "support/msts_tree.h"

namespace rakeyard {
namespace {

std::string wagonText(std::string_view name, std::string_view type = "Freight",
                      std::string_view couplings = "\tCoupling (\n\t\tType ( Chain )\n\t)\n",
                      std::string_view description = "") {
    return "Wagon ( " + std::string(name) + "\n\tType ( " + std::string(type) + " )\n" +
           std::string(description) + "\tName ( \"" + std::string(name) + " wagon\" )\n" +
           "\tWagonShape ( box.s )\n\tSize ( 3m 4m 12.5m )\n\tMass ( 22t )\n" +
           std::string(couplings) + ")\n";
}

class ReadWagonFiles : public ::testing::Test {
protected:
    void SetUp() override {
        paths.programFolder = msts.home();
        paths.trainsetPath = msts.trainset();
        std::filesystem::create_directories(msts.home() + "/Reports");
        fake.dialogs.defaultAnswer = Answer::Ok;
    }
    std::string folder(std::string_view name) const { return joinPath(msts.trainset(), name); }
    void write(std::string_view relative, const std::string& text) {
        msts.write("TRAINS/TRAINSET/" + std::string(relative), text);
    }
    void read() { readWagonFiles(paths, *catalogue, fake.services, false); }
    std::string startErrors() const { return msts.read("home/Reports/StartErrors.txt"); }
    const UnitRecord& wagon(std::size_t i) const { return catalogue->wagons[i]; }

    test::MstsTree msts;
    test::FakeServices fake;
    PathGlobals paths;
    std::unique_ptr<UnitCatalogue> catalogue = std::make_unique<UnitCatalogue>();
};

TEST_F(ReadWagonFiles, ReadsAPlainWagonAndPassesOverDefault) {
    write("BOX/BOX.wag", wagonText("BOX"));
    write("BOX/default.wag", wagonText("Nothing"));
    read();
    EXPECT_EQ(wagon(0).fileName, "BOX.wag");
    EXPECT_EQ(wagon(0).displayName, "BOX wagon");
    EXPECT_EQ(wagon(0).unitType, "Freight");
    EXPECT_EQ(wagon(0).couplerFront + wagon(0).couplerRear, "CC");
    EXPECT_EQ(wagon(0).length, 12.5f);
    EXPECT_EQ(wagon(0).mass, 22.0f);
    EXPECT_EQ(wagon(0).shapeName, "box.s");
    EXPECT_EQ(wagon(0).maxPower, "");
    EXPECT_FALSE(wagon(0).hasCab);
    EXPECT_EQ(wagon(1).fileName, "");
    EXPECT_TRUE(fake.dialogs.shown.empty());
    EXPECT_EQ(fake.progress.labels,
              (std::vector<std::string>{"Loading wagon files...", "Retrieving wagon data..."}));
    EXPECT_EQ(fake.progress.maximums, (std::vector<int>{1, 2}));
}

TEST_F(ReadWagonFiles, ReportsFindingsByteForByte) {
    write("A/LOCO.wag", wagonText("LOCO", "Engine"));
    write("B/BARE.wag", wagonText("BARE", "Freight", ""));
    msts.writeBytes("TRAINS/TRAINSET/C/OLD.wag", "SIMISA@@@@@@@@@@JINX0D0t______\r\n");
    write("D/NONE.wag", "Wagons ( NONE\n");
    read();
    const std::string expected =
        "The wagon LOCO.wag contains an invalid type in the line \"Type\".\r\n"
        "Please edit this file and make the necessary corrections!\r\n"
        "Folder " +
        folder("A") +
        "\r\n\r\n"
        "Cannot locate the line \"Type (\" in the file BARE.wag(Rear coupler section) and so it "
        "couldn't be added to the wagons list.\r\n"
        "Folder " +
        folder("B") +
        "\r\n\r\n"
        "The file OLD.wag isn't an Unicode file!\r\n"
        "Folder " +
        folder("C") +
        "\r\n\r\n"
        "Cannot locate the line \"Wagon (\" in the file NONE.wagand so it couldn't be added to "
        "the wagons list.\r\n"
        "Folder " +
        folder("D") + "\r\n\r\n";
    EXPECT_EQ(startErrors(), expected);
    // The engine-typed wagon stays, under a type that only "All" shows.
    EXPECT_EQ(wagon(0).unitType, "????????");
    // The bare wagon's name was stored before it was refused; it waits to be overwritten.
    EXPECT_EQ(wagon(1).fileName, "BARE.wag");
    EXPECT_EQ(wagon(1).displayName, "BARE wagon");
    ASSERT_EQ(fake.dialogs.shown.size(), 1u);
    EXPECT_EQ(fake.dialogs.shown[0].text.rfind("WARNING: one or more errors have been found "
                                               "while reading wagon files.\r\nDo you",
                                               0),
              0u);
}

TEST_F(ReadWagonFiles, SearchesDescriptionsToo) {
    write("BOX/BOX.wag", wagonText("BOX", "Freight", "\tCoupling (\n\t\tType ( Bar )\n\t)\n",
                                   "\tDescription ( \"Heavy box\n Mass ( 99t ) when loaded\" )\n"));
    read();
    EXPECT_EQ(wagon(0).mass, 99.0f);
    EXPECT_EQ(wagon(0).couplerFront + wagon(0).couplerRear, "BB");
}

TEST_F(ReadWagonFiles, TakesTheFirstTypeLineAsTheWagonsType) {
    // The coupling block comes first here, so its type is taken for the wagon's.
    write("BOX/BOX.wag",
          "Wagon ( BOX\n\tCoupling (\n\t\tType ( Tender )\n\t)\n\tMass ( 1t )\n"
          "\tCoupling (\n\t\tType ( Automatic )\n\t)\n)\n");
    read();
    EXPECT_EQ(wagon(0).unitType, "Tender");
    EXPECT_EQ(wagon(0).couplerRear, "A");
}

}  // namespace
}  // namespace rakeyard
