// unicode check | convert: the unit files that are not in Unicode, listed and converted.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "cli/cli_runner.h"
#include "support/msts_tree.h"
#include "core/platform/paths.h"

namespace rakeyard::test {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

TEST(UnicodeCommands, CheckListsEightBitFilesWithStatus1AndConvertMakesThemPass) {
    TempFolder folder;
    const std::string msts = copySamples(folder.path());
    const std::string home = folder / "home";
    const std::string oldtimer = joinPath(msts, "TRAINS/TRAINSET/RY_Faulty/RY_Oldtimer.eng");
    const std::string eightBit = readWholeFile(oldtimer);

    const CliRun check = runCli({"--home", home, "--msts", msts, "unicode", "check"});
    EXPECT_EQ(check.status, 1) << check.err;
    EXPECT_THAT(linesOf(check.out), ElementsAre(oldtimer));
    const CliRun checkJson = runCli({"--home", home, "unicode", "check", "--json"});
    EXPECT_EQ(checkJson.status, 1);
    EXPECT_EQ(nlohmann::json::parse(checkJson.out), nlohmann::json::array({oldtimer}));

    const CliRun convert = runCli({"--home", home, "unicode", "convert"});
    EXPECT_EQ(convert.status, 0) << convert.err;
    EXPECT_THAT(linesOf(convert.out), ElementsAre(oldtimer));
    // Each byte widened to one UTF-16 unit behind FF FE, nothing else changed.
    std::string widened = "\xFF\xFE";
    for (char c : eightBit)
        widened += std::string{c, '\0'};
    EXPECT_EQ(readWholeFile(oldtimer), widened);

    const CliRun again = runCli({"--home", home, "unicode", "check"});
    EXPECT_EQ(again.status, 0) << again.err;
    EXPECT_THAT(again.out, IsEmpty());
    EXPECT_THAT(again.err, HasSubstr("info: All scanned files are in Unicode format"));
}

TEST(UnicodeCommands, CheckLooksAtCabViewsSoundsAndShapeDefinitionsToo) {
    MstsTree msts;
    msts.writeBytes("TRAINS/TRAINSET/Loco/CAB.CVF", "SIMISA@@@@@@@@@@JINX0D0t______\r\n");
    msts.writeBytes("TRAINS/TRAINSET/Loco/loco.sd", "plain");
    msts.write("TRAINS/TRAINSET/Loco/loco.sms", "Tr_SMS (\n)\n");
    msts.writeBytes("TRAINS/TRAINSET/Loco/notes.txt", "not looked at");
    const CliRun check = runCli({"--home", msts.home(), "--msts", msts.msts(), "unicode", "check"});
    EXPECT_EQ(check.status, 1);
    EXPECT_THAT(linesOf(check.out),
                ElementsAre(joinPath(msts.trainset(), "Loco/CAB.CVF"),
                            joinPath(msts.trainset(), "Loco/loco.sd")));
}

}  // namespace
}  // namespace rakeyard::test
