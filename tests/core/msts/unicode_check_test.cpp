#include "core/msts/unicode_check.h"

#include <gtest/gtest.h>

#include "core/msts/msts_text.h"
#include "core/platform/paths.h"
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
