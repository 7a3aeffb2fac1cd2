#include "core/consist/consist_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "support/msts_tree.h"

namespace rakeyard::test {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::Field;

std::string fileOf(const std::string& text) {
    std::string crlf;
    for (char c : text)
        crlf += c == '\n' ? std::string("\r\n") : std::string(1, c);
    return "\xFF\xFE" + utf16Bytes(crlf);
}

const std::string kFile =
    "SIMISA@@@@@@@@@@JINX0D0t______\n\nTrain (\n\tTrainCfg ( \"My Train\"\n"
    "\t\tName ( \"Night Mail\" )\n\t\tSerial ( 7 )\n\t\tMaxVelocity ( 55.00000 1.00000 )\n"
    "\t\tNextWagonUID ( 4 )\n\t\tDurability ( 0.5 )\n"
    "\t\tEngine (\n\t\t\tFlip ( )\n\t\t\tUiD ( 1 )\n\t\t\tEngineData ( \"Big Boy\" \"Big Boy\" "
    ")\n\t\t)\n"
    "\t\tWagon (\n\t\t\tWagonData ( Box Box )\n\t\t\tUiD ( 1e30 )\n\t\t)\n\t)\n)";

TEST(ParseConsistFile, GivesEveryFieldAsWrittenAndWritesTheSameBytes) {
    const ConsistFileRead read = parseConsistFile(fileOf(kFile));
    ASSERT_TRUE(read.isUnicode);
    EXPECT_TRUE(read.problems.empty());
    EXPECT_FALSE(read.endsEarly);
    const ConsistFileHeader& header = read.file.header;
    EXPECT_EQ(header.trainCfg, (ConsistWord{"My Train", true}));
    EXPECT_EQ(header.name, "Night Mail");
    EXPECT_EQ(header.serial, "7");
    EXPECT_EQ(header.maxVelocity, "55.00000 1.00000");
    EXPECT_EQ(header.nextWagonUid, "4");
    EXPECT_EQ(header.durability, "0.5");
    ASSERT_EQ(read.file.units.size(), 2u);
    const ConsistFileUnit& engine = read.file.units[0];
    EXPECT_TRUE(engine.isEngine && engine.flipped && engine.flipFirst && engine.uidBeforeData);
    EXPECT_EQ(engine.file, (ConsistWord{"Big Boy", true}));
    const ConsistFileUnit& wagon = read.file.units[1];
    EXPECT_FALSE(wagon.isEngine || wagon.flipped || wagon.uidBeforeData);
    EXPECT_EQ(wagon.folder, (ConsistWord{"Box", false}));
    EXPECT_EQ(wagon.uid, "1e30");
    EXPECT_EQ(writeConsistFile(read.file), fileOf(kFile));
}

TEST(ParseConsistFile, EditsAreWrittenInPlaceAndReadBackAsMade) {
    std::string text = kFile;
    text.replace(text.find("\t\t\tUiD ( 1 )"), 0, "  ");  // another tool's indent
    ConsistFile file = parseConsistFile(fileOf(text)).file;
    file.header.name = "Day Mail";
    file.units[1].flipped = true;
    file.units.push_back({false, {"Coach", false}, {"Coach", false}, "9", false, false, false});
    const std::string written = writeConsistFile(file);
    const ConsistFileRead again = parseConsistFile(written);
    EXPECT_TRUE(again.problems.empty());
    EXPECT_EQ(again.file.header, file.header);
    EXPECT_EQ(again.file.units, file.units);
    EXPECT_NE(written.find(utf16Bytes("  \t\t\tUiD ( 1 )\r\n")), std::string::npos)
        << "the unit not changed keeps its lines";
    EXPECT_NE(written.find(utf16Bytes("\t\t\tUiD ( 9 )\r\n\t\t)\r\n\t)\r\n)")), std::string::npos)
        << "the unit added stands last";
}

TEST(ParseConsistFile, TellsWhatItDidNotUnderstandAndAnEarlyEnd) {
    std::string text = kFile;
    text.replace(text.find("\t\tSerial"), 0, "\t\tColour ( red )\n");
    text.replace(text.find("\t\t\tUiD ( 1e30 )"), 0, "\t\t\tWagonData ( one )\n");
    const ConsistFileRead read = parseConsistFile(fileOf(text.substr(0, text.size() - 4)));
    EXPECT_THAT(read.problems, ElementsAre(Field(&ConsistFileProblem::line, 6u),
                                           Field(&ConsistFileProblem::line, 18u)));
    EXPECT_EQ(read.problems[0].text, "Colour ( red )");
    EXPECT_TRUE(read.endsEarly);
    EXPECT_FALSE(parseConsistFile("SIMISA@@@@@@@@@@JINX0D0t______\r\n").isUnicode);
}

TEST(ParseConsistFile, EveryRealConsistIsWrittenBackByteForByte) {
    const fs::path root = RAKEYARD_REALDATA_DIR;
    if (!fs::is_directory(root))
        GTEST_SKIP() << "no real MSTS content at " << root << " (set RAKEYARD_REALDATA_DIR)";
    int files = 0;
    for (const auto& entry : fs::recursive_directory_iterator(root)) {
        std::string extension = entry.path().extension().string();
        for (char& c : extension)
            c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        if (extension != ".con") continue;
        ++files;
        const std::string bytes = readWholeFile(entry.path().string());
        const ConsistFileRead read = parseConsistFile(bytes);
        ASSERT_TRUE(read.isUnicode) << entry.path();
        EXPECT_TRUE(read.problems.empty())
            << entry.path() << " line " << read.problems.front().line;
        EXPECT_TRUE(writeConsistFile(read.file) == bytes) << entry.path();
    }
    EXPECT_GT(files, 50);
}

}  // namespace
}  // namespace rakeyard::test
