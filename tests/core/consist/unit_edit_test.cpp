#include "core/consist/unit_edit.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "core/msts/msts_lines.h"
#include "core/platform/text_utf.h"
#include "support/fakes.h"
#include "support/msts_tree.h"

namespace rakeyard {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;

std::string mstsBytes(std::string_view text) {
    std::string crlf;
    for (char c : text) {
        if (c == '\n') crlf += '\r';
        crlf += c;
    }
    return "\xFF\xFE" + test::utf16Bytes(crlf);
}

// The rewritten file as UTF-8 text with LF line ends.
std::string textOf(const std::string& bytes) {
    std::string text;
    for (const std::u16string& line : readTextLines(bytes))
        text += toUtf8(line) + "\n";
    return text;
}

const char* kEngine =
    "SIMISA@@@@@@@@@@JINX0D0t______\n\nWagon ( GP38\n"
    "\tComment ( Coupling ( Type ( Chain ) ) )\n"
    "\tCoupling (\n\t\tSpring ( r0 ( 0.2m 0.3m ) )\n\t\tType ( Automatic )\n\t)\n"
    "\tCoupling (\n\t\tType ( Automatic )\n\t)\n"
    "\tBrakeEquipmentType ( \"Handbrake\" )\n"
    "\tCoupling (\n\t\tType ( Chain )\n\t)\n)\n"
    "Engine ( GP38\n\tMaxPower ( 1500kW )\n\tMaxPower ( 1500kW )\n"
    "\tDieselUsedPerHourAtMaxPower ( 460L )\n\tcomment ( MaxPower ( 9kW ) )\n\tName ( \"GP38 "
    "\xC5\x81\xE2\x82\xAC\" )\n)\n";

TEST(RewriteUnitFile, CouplingsPowerAndNameChangeWhereTheyStand) {
    const UnitEdit edit{"GP38-2 \xE2\x82\xAC", "Chain", "Bar", "1600", "kW"};
    const UnitRewrite rewrite = rewriteUnitFile(mstsBytes(kEngine), edit, true);
    EXPECT_TRUE(rewrite.messages.empty());
    EXPECT_EQ(rewrite.bytes.substr(0, 2), "\xFF\xFE");
    EXPECT_EQ(textOf(rewrite.bytes),
              "SIMISA@@@@@@@@@@JINX0D0t______\n\nWagon ( GP38\n"
              "\tComment ( Coupling ( Type ( Chain ) ) )\n"
              "\tCoupling (\n\t\tSpring ( r0 ( 0.2m 0.3m ) )\n\t\tType ( Bar )\n\t)\n"
              "\tCoupling (\n\t\tType ( Chain )\n\t)\n"
              "\tBrakeEquipmentType ( \"Handbrake\" )\n"
              "\tCoupling (\n\t\tType ( Chain )\n\t)\n)\n"
              "Engine ( GP38\n\tMaxPower ( 1600kW )\n\tMaxPower ( 1600kW )\n"
              "\tDieselUsedPerHourAtMaxPower ( 460L )\n\tcomment ( MaxPower ( 9kW ) )\n\tName ( "
              "\"GP38-2 \xE2\x82\xAC\" )\n)\n");
}

TEST(RewriteUnitFile, TypeIsSoughtOnlyInsideItsBlockAndAnEmptyBoxLeavesIt) {
    const std::string text =
        "Wagon ( W\n\tCoupling (\n\t\tVelocity ( 0.1m/s )\n\t)\n\tCoupling (\n"
        "\t\tType ( Automatic )\n\t)\n\tType ( Freight )\n\tMass ( 20t )\n"
        "\tName ( \"W\" )\n)\n";
    const UnitRewrite rewrite = rewriteUnitFile(mstsBytes(text), {"W", "", "Bar", "25", ""}, false);
    const std::string result = textOf(rewrite.bytes);
    EXPECT_THAT(result, HasSubstr("\tType ( Freight )\n"));      // outside both blocks
    EXPECT_THAT(result, HasSubstr("\t\tType ( Automatic )\n"));  // front box empty
    EXPECT_THAT(result, HasSubstr("\tMass ( 25t )\n"));
}

TEST(RewriteUnitFile, NameLineIsAddedAsTheLastLineOfTheOuterBlock) {
    const UnitRewrite rewrite = rewriteUnitFile(
        mstsBytes("Wagon ( W\n\tMass ( 20t )\n)\nEngine ( W\n\tType ( Diesel )\n)\n"),
        {"New", "", "", "", "kW"}, true);
    EXPECT_EQ(
        textOf(rewrite.bytes),
        "Wagon ( W\n\tMass ( 20t )\n)\nEngine ( W\n\tType ( Diesel )\n\tName ( \"New\" )\n)\n");
}

TEST(RewriteUnitFile, PowerOverTwoLinesIsToldAndLeftWhileTheRestChanges) {
    const UnitRewrite rewrite =
        rewriteUnitFile(mstsBytes("Engine ( E\n\tMaxPower (\n\t\t1500kW )\n\tName ( \"E\" )\n)\n"),
                        {"F", "", "", "1600", "kW"}, true);
    EXPECT_THAT(rewrite.messages, ElementsAre("The Power could not be changed!"));
    EXPECT_THAT(textOf(rewrite.bytes), HasSubstr("\tMaxPower (\n\t\t1500kW )\n\tName ( \"F\" )"));
}

TEST(RewriteUnitFile, EightBitFileKeepsItsFirstLineWhole) {
    const UnitRewrite rewrite =
        rewriteUnitFile("Wagon ( W\r\n\tName ( \"W\xE9\" )\r\n)", {"W2", "", "", "", ""}, false);
    EXPECT_EQ(textOf(rewrite.bytes), "Wagon ( W\n\tName ( \"W2\" )\n)\n");
}

class WriteToUnitFile : public ::testing::Test {
protected:
    WriteToUnitFile() {
        unit.folderPath = msts.trainset() + "/GP38";
        unit.fileName = "GP38.eng";
        unit.couplerFront = unit.couplerRear = "A";
        path = msts.write("TRAINS/TRAINSET/GP38/GP38.eng", kEngine);
        original = test::readWholeFile(path);
    }
    test::MstsTree msts;
    test::FakeServices fake;
    UnitRecord unit;
    std::string path;
    std::string original;
};

TEST_F(WriteToUnitFile, WritesTheFileAndUpdatesTheRecord) {
    EXPECT_EQ(writeToEngFile(unit, {"GP38-2", "Chain", "Bar", "1600", "kW"}, fake.services),
              UnitEditOutcome::Written);
    EXPECT_THAT(textOf(test::readWholeFile(path)), HasSubstr("MaxPower ( 1600kW )"));
    EXPECT_EQ(unit.displayName, "GP38-2");
    EXPECT_EQ(unit.couplerFront, "C");
    EXPECT_EQ(unit.couplerRear, "B");
    EXPECT_EQ(unit.maxPower, "1600kW");
}

TEST_F(WriteToUnitFile, RefusalsAndFailuresLeaveTheFileAndRecordAsTheyWere) {
    EXPECT_EQ(writeToEngFile(unit, {"Say \"hi\"", "", "", "1", "kW"}, fake.services),
              UnitEditOutcome::Refused);
    UnitRecord outside = unit;
    outside.fileName = "..\\GP38.eng";
    EXPECT_EQ(writeToEngFile(outside, {"X", "", "", "1", "kW"}, fake.services),
              UnitEditOutcome::Refused);
    fake.fs.unreadableNames = {"GP38.eng"};
    EXPECT_EQ(writeToEngFile(unit, {"X", "", "", "1", "kW"}, fake.services),
              UnitEditOutcome::Refused);
    fake.fs.unreadableNames.clear();
    fake.fs.failAfterBytes = 100;  // a full disk
    EXPECT_EQ(writeToEngFile(unit, {"X", "", "", "1", "kW"}, fake.services),
              UnitEditOutcome::Refused);
    fake.fs.failAfterBytes.reset();
    std::filesystem::permissions(path, std::filesystem::perms::owner_write,
                                 std::filesystem::perm_options::remove);
    EXPECT_EQ(writeToEngFile(unit, {"X", "", "", "1", "kW"}, fake.services),
              UnitEditOutcome::Refused);
    EXPECT_EQ(fake.dialogs.shown.size(), 5u);
    EXPECT_EQ(test::readWholeFile(path), original);
    EXPECT_EQ(unit.displayName, "");
    EXPECT_EQ(unit.couplerFront, "A");
    EXPECT_EQ(std::filesystem::directory_iterator(msts.trainset() + "/GP38")->path().filename(),
              "GP38.eng");  // no temporary file left behind
}

}  // namespace
}  // namespace rakeyard
