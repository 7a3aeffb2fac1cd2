#include "core/tools/unit_description.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "support/fakes.h"
#include "support/msts_tree.h"

namespace rakeyard {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

const std::string kStars = std::string(33, '*');

// The bytes of an MSTS file holding the text, as the sample's files are: FF FE and UTF-16 LE
// with CR LF line ends.
std::string unitBytes(std::string_view text) {
    std::string crlf;
    for (char c : text) {
        if (c == '\n') crlf += '\r';
        crlf += c;
    }
    return "\xFF\xFE" + test::utf16Bytes(crlf);
}

TEST(GetDescription, ItemsJoinWithLineEndsAndStopAtTheOperatingProcedures) {
    const std::string bytes = unitBytes(
        "Engine ( X\n\tName ( \"X\" )\n\tDescription (\n"
        "\t\t\"First paragraph.\\n\\n\"+\n"
        "\t\t\"Power: 1,920 hp, rated\\n\" + dropped, \"next\"\n"
        "\t\t\"Plain\"\n\t\t+\n\t\t\"\"\n\t)\n"
        "\tEngineOperatingProcedures (\n\t\t\"Not shown\\n\"\n\t)\n)\n");
    std::string text = "No description available for this unit!";
    ASSERT_TRUE(getDescription(bytes, text));
    EXPECT_EQ(text,
              "First paragraph.\r\nPower: 1,920 hp, rated\r\nnextPlain\r\n" + kStars + "\r\n");
}

TEST(GetDescription, FileWithoutOneLeavesTheTextAsItWas) {
    std::string text = "start";
    EXPECT_FALSE(
        getDescription(unitBytes("Engine ( X\n\tName ( \"X, no description\" )\n)\n"), text));
    EXPECT_EQ(text, "start");
}

TEST(GetDescription, HundredThousandItemsAreAllTaken) {
    std::string items = "Description (\n";
    for (int i = 0; i < 100000; ++i)
        items += "\"x\",";
    std::string text;
    ASSERT_TRUE(getDescription(unitBytes(items + "\n)\n"), text));
    EXPECT_EQ(text.size(), 100000u + 2 + 33 + 2);
}

TEST(GetInfo, FiguresFollowWithTheirWordAndStarCommentsShowWhileOthersAreCut) {
    const std::string bytes = unitBytes(
        "Wagon ( X\n\tType ( Engine )\n\tSize  ( 3m\t4m 18.75m )\n\tMass ( 105t )\n"
        "\tBrakeEquipmentType ( \"Handbrake\" )\n"
        "\t//* Comment ( Ballast fitted (1988) )\n"
        "\tComment ( Mass ( 1t ) )\n"
        "Engine ( X\n\tMaxPower ( 1920hp ) comment ( MaxCurrent ( 9A ) )\n"
        "\tMaxContinuousForce ( 133kN )\n)\n");
    std::string text = "Header";
    getInfo(bytes, text);
    EXPECT_EQ(text,
              "Header\r\nType: Engine\r\nSize: 3m 4m 18.75m\r\nMass: 105t\r\n"
              "Comment   Ballast fitted  1988\r\nMaxPower: 1920hp\r\n"
              "MaxContinuousForce: 133kN\r\n");
}

TEST(DescribeUnitFile, DescriptionComesFirstThenTheStarsThenTheFigures) {
    test::MstsTree msts;
    test::FakeServices fake;
    const std::string path =
        msts.write("TRAINS/TRAINSET/X/X.eng",
                   "Engine ( X\n\tMass ( 5t )\n\tDescription (\n\t\t\"Hello\\n\"\n\t)\n)\n");
    const std::string text = describeUnitFile(path, fake.services);
    EXPECT_EQ(text, "Hello\r\n\r\n" + kStars + "\r\nMass: 5t\r\n");
    const std::string none = describeUnitFile(msts.msts() + "/missing.eng", fake.services);
    EXPECT_EQ(none, "No description available for this unit!");
    EXPECT_THAT(fake.dialogs.texts().back(), StartsWith("There has been an error in the file "));
}

TEST(DescribeUnitFile, RealClass37ShowsItsPowerInOnePiece) {
    const std::string path = std::string(RAKEYARD_REALDATA_DIR) +
                             "/cjakeman_Demo-Model-1/TRAINS/TRAINSET/MT_DD_CLASS_37_37191/"
                             "MT_DD_CLASS_37_37191.eng";
    if (!std::filesystem::exists(path)) GTEST_SKIP() << "no real MSTS content at " << path;
    test::FakeServices fake;
    const std::string text = describeUnitFile(path, fake.services);
    EXPECT_THAT(text, HasSubstr("\r\nPower: 1,750 hp @ 850rpm \r\n"));
    EXPECT_THAT(text, HasSubstr("Maximum tractive effort: 55,500lbf \r\n"));
    EXPECT_LT(text.find(kStars), text.find("MaxPower: "));
    EXPECT_THAT(text, Not(HasSubstr("No description available")));
}

}  // namespace
}  // namespace rakeyard
