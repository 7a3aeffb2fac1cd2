#include "core/msts/unicode_check.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "core/msts/msts_text.h"
#include "core/platform/paths.h"
#include "core/platform/text_utf.h"
#include "support/fakes.h"
#include "support/msts_tree.h"

namespace rakeyard {
namespace {

const std::string kHeader = "SIMISA@@@@@@@@@@JINX0D0t______";

class CheckUnicode : public ::testing::Test {
protected:
    void SetUp() override { paths.trainsetPath = msts.trainset(); }
    std::string file(std::string_view relative) const {
        return joinPath(msts.trainset(), relative);
    }
    test::MstsTree msts;
    test::FakeServices fake;
    PathGlobals paths;
};

TEST_F(CheckUnicode, ListsTheFailingFilesOfTheCheckedKindsInListingOrder) {
    msts.writeBytes("TRAINS/TRAINSET/B/b.SMS", kHeader + "\r\n");
    msts.writeBytes("TRAINS/TRAINSET/A/z.wag", kHeader + "\r\n");
    msts.writeBytes("TRAINS/TRAINSET/A/a.Eng", "");
    msts.write("TRAINS/TRAINSET/A/good.eng", "Wagon ( good\n");
    msts.writeBytes("TRAINS/TRAINSET/A/notes.txt", "plain");
    msts.writeBytes("TRAINS/TRAINSET/A/x.cvf", "x");
    msts.writeBytes("TRAINS/TRAINSET/A/x.sd", "x");
    msts.writeBytes("TRAINS/TRAINSET/A/deeper/c.eng", "x");  // one folder deep only
    msts.writeBytes("TRAINS/TRAINSET/top.eng", "x");
    EXPECT_EQ(checkUnicode(paths, fake.services),
              (std::vector<std::string>{file("A/a.Eng"), file("A/x.cvf"), file("A/x.sd"),
                                        file("A/z.wag"), file("B/b.SMS")}));
    EXPECT_TRUE(fake.dialogs.shown.empty());
    EXPECT_EQ(fake.progress.labels, (std::vector<std::string>{"Please wait. Checking files..."}));
}

TEST_F(CheckUnicode, SaysSoWhenAllFilesPass) {
    msts.write("TRAINS/TRAINSET/A/good.eng", "Wagon ( good\n");
    EXPECT_TRUE(checkUnicode(paths, fake.services).empty());
    EXPECT_EQ(fake.dialogs.texts(),
              (std::vector<std::string>{"All scanned files are in Unicode format"}));
    EXPECT_EQ(fake.dialogs.shown[0].icon, Icon::Information);
}

// The file bytes of a UTF-8 text: FF FE and UTF-16 LE.
std::string utf16File(std::string_view text) {
    return encodeMstsText(toUtf16(text));
}

TEST(UnicodeFileBytes, KeepsTheCharactersOfEachEncoding) {
    const std::string line = kHeader + "\r\n";
    const struct {
        const char* what;
        std::string bytes;
        std::string text;  // UTF-8 of what the file must hold
    } cases[] = {
        {"Windows-1252", line + "\x92 \x80 \x96 \xE9 \x81", line + "’ € – é \xC2\x81"},
        {"UTF-8 with its mark", "\xEF\xBB\xBF" + line + "č 日", line + "č 日"},
        {"big-endian",
         "\xFE\xFF" +
             [&] {
                 std::string big;
                 for (char16_t c : toUtf16(line + "č 日")) {
                     big += static_cast<char>(c >> 8);
                     big += static_cast<char>(c & 0xFF);
                 }
                 return big;
             }(),
         line + "č 日"},
    };
    for (const auto& c : cases) {
        const std::optional<std::string> converted = unicodeFileBytes(c.bytes);
        ASSERT_TRUE(converted) << c.what;
        EXPECT_EQ(*converted, utf16File(c.text)) << c.what;
        EXPECT_TRUE(isUnicodeText(*converted)) << c.what;
        EXPECT_EQ(unicodeFileBytes(*converted), std::nullopt) << c.what << ": never again";
    }
}

TEST_F(CheckUnicode, AFileThatIsUtf16AlreadyIsListedButNeverRewritten) {
    // LF line ends: the first line runs on, so the file fails the test.
    const std::string bytes = utf16File(kHeader + "\n\nWagon ( a\n");
    const std::string path = msts.writeBytes("TRAINS/TRAINSET/A/a.eng", bytes);
    EXPECT_EQ(checkUnicode(paths, fake.services), std::vector<std::string>{path});
    for (int run = 0; run < 2; ++run) {
        fake.dialogs.shown.clear();
        EXPECT_TRUE(convertToUnicode({path}, fake.services).empty());
        EXPECT_EQ(test::readWholeFile(path), bytes);
        ASSERT_EQ(fake.dialogs.shown.size(), 1u);
        EXPECT_EQ(fake.dialogs.shown[0].icon, Icon::Exclamation);
        EXPECT_NE(fake.dialogs.shown[0].text.find("left as it is"), std::string::npos);
    }
}

TEST_F(CheckUnicode, AFileThatCannotBeReadIsToldApartNotListed) {
    msts.writeBytes("TRAINS/TRAINSET/A/b.eng", kHeader + "\r\n");
    std::filesystem::create_directories(file("A/a.eng"));  // a folder: no file to read
    std::filesystem::create_directories(file("A/c.eng"));
    EXPECT_EQ(checkUnicode(paths, fake.services), std::vector<std::string>{file("A/b.eng")});
    EXPECT_TRUE(fake.dialogs.texts().empty());  // folders are not files: passed over

    const std::string locked = msts.writeBytes("TRAINS/TRAINSET/A/d.eng", kHeader + "\r\n");
    fake.fs.unreadableNames = {"d.eng"};
    EXPECT_EQ(checkUnicode(paths, fake.services), std::vector<std::string>{file("A/b.eng")});
    EXPECT_EQ(fake.dialogs.texts(),
              std::vector<std::string>{"These files could not be read:\n" + locked});
}

TEST_F(CheckUnicode, ConversionWidensEachByteBehindTheMark) {
    const std::string path = msts.writeBytes("TRAINS/TRAINSET/A/a.eng", kHeader + "\r\n\xE9)");
    EXPECT_EQ(convertToUnicode({path}, fake.services), (std::vector<std::string>{path}));
    std::string expected = "\xFF\xFE";
    for (char c : kHeader + "\r\n\xE9)")
        expected += std::string{c, '\0'};
    EXPECT_EQ(test::readWholeFile(path), expected);
    EXPECT_TRUE(checkUnicode(paths, fake.services).empty());
}

TEST_F(CheckUnicode, FailedWriteEndsTheRunAndLeavesTheFileWhole) {
    const std::string first = msts.writeBytes("TRAINS/TRAINSET/A/a.eng", "first");
    const std::string second = msts.writeBytes("TRAINS/TRAINSET/A/b.eng", kHeader + "\r\nbody");
    const std::string third = msts.writeBytes("TRAINS/TRAINSET/A/c.eng", "third");
    fake.fs.failAfterBytes = 20;  // more than "first" needs, less than the second file
    EXPECT_EQ(convertToUnicode({first, second, third}, fake.services),
              (std::vector<std::string>{first}));
    EXPECT_EQ(test::readWholeFile(second), kHeader + "\r\nbody");
    EXPECT_EQ(test::readWholeFile(third), "third");
    ASSERT_EQ(fake.dialogs.shown.size(), 1u);
    EXPECT_EQ(fake.dialogs.shown[0].text.rfind("The file " + second + " couldn't be converted:", 0),
              0u);
    EXPECT_EQ(fake.dialogs.shown[0].icon, Icon::Stop);
}

}  // namespace
}  // namespace rakeyard
