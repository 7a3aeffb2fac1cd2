// The command line itself: help, unknown and unbuilt commands, options anywhere, exit statuses
// when there is no usable MSTS folder.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "cli/cli_runner.h"
#include "core/platform/system.h"
#include "support/msts_tree.h"

namespace rakeyard::test {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

TEST(CliUsage, HelpListsTheBuiltCommandsOnly) {
    const CliRun run = runCli({"--help"});
    EXPECT_EQ(run.status, 0);
    for (const char* built : {"catalogue engines", "catalogue wagons", "consist show",
                              "consist copy", "consist new", "unicode check", "unicode convert",
                              "test engines", "test wagons", "test consists", "routes",
                              "activities", "loose-test", "alias list", "alias engine",
                              "alias cab-folder", "alias sound-folder", "alias restore",
                              "tools maxvelocity", "tools random", "tools stats",
                              "tools bigones", "unit describe", "unit consists", "unit edit", "deps",
                              "loose list", "loose replace"})
        EXPECT_THAT(run.out, HasSubstr(built)) << built;
}

TEST(CliUsage, CommandsNotBuiltAreNotAvailableWithStatus2) {
    MstsTree msts;
    const std::vector<std::vector<std::string>> commands = {
        {"loose", "frobnicate", "R"},   {"alias"},
        {"tools", "frobnicate"},  {"frobnicate"},
        {"catalogue"},       {"consist", "delete", "x"},
        {"unicode"},         {"unit", "frobnicate", "x.eng"}};
    for (std::vector<std::string> command : commands) {
        command.insert(command.end(), {"--home", msts.home(), "--msts", msts.msts()});
        const CliRun run = runCli(command);
        EXPECT_EQ(run.status, 2) << command[0];
        EXPECT_THAT(run.err, StartsWith("error: ")) << command[0];
        EXPECT_THAT(run.err, HasSubstr("not available")) << command[0];
        EXPECT_EQ(run.out, "") << command[0];
        // Refused before start-up: nothing was written into the program's folder.
        EXPECT_FALSE(msts.exists("home/settings.bin")) << command[0];
    }
}

TEST(CliUsage, BadUsageOfABuiltCommandIsStatus2) {
    MstsTree msts;
    const std::vector<std::vector<std::string>> commands = {
        {"consist", "show"},
        {"consist", "copy", "a"},
        {"consist", "new", "a"},
        {"catalogue", "engines", "--filter"},
        {"catalogue", "wagons", "--frobnicate"},
        {"unicode", "check", "extra"},
        {"alias", "engine", "a", "b"},
        {"alias", "restore", "a", "b"},
        {"catalogue", "engines", "--yes", "--no"},
        {"catalogue", "engines", "--home"}};
    for (std::vector<std::string> command : commands) {
        if (command.back() != "--home")
            command.insert(command.end(), {"--home", msts.home(), "--msts", msts.msts()});
        const CliRun run = runCli(command);
        EXPECT_EQ(run.status, 2) << command[0] << " " << command[1];
        EXPECT_THAT(run.err, StartsWith("error: ")) << command[0] << " " << command[1];
    }
}

TEST(CliUsage, NoCommandIsAnErrorWithTheUsageOnStderr) {
    const CliRun run = runCli({});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.out, "");
    EXPECT_THAT(run.err, StartsWith("error: no command given\n"));
    EXPECT_THAT(run.err, HasSubstr("Usage: rakeyard-cli"));
}

TEST(CliUsage, WordsAfterADoubleDashAreNamesEvenWithALeadingDash) {
    MstsTree msts;
    msts.write("TRAINS/TRAINSET/Box/Box.wag",
               "Wagon ( Box\n\tType ( Freight )\n\tWagonShape ( Box.s )\n"
               "\tSize ( 2.5m 3.9m 15.5m )\n\tMass ( 30t )\n"
               "\tCoupling (\n\t\tType ( Chain )\n\t)\n\tName ( \"Box\" )\n)\n");
    const std::vector<std::string> global = {"--home", msts.home(), "--msts", msts.msts()};
    std::vector<std::string> refused = {"consist", "new", "-odd", "Box"};
    refused.insert(refused.end(), global.begin(), global.end());
    EXPECT_EQ(runCli(refused).status, 2);

    std::vector<std::string> named = global;
    named.insert(named.end(), {"consist", "new", "Box", "--", "-odd"});
    const CliRun unknownUnit = runCli(named);
    EXPECT_EQ(unknownUnit.status, 1);
    EXPECT_THAT(unknownUnit.err, HasSubstr("error: Unknown unit: -odd"));

    named = global;
    named.insert(named.end(), {"consist", "new", "--", "-odd", "Box"});
    const CliRun made = runCli(named);
    EXPECT_EQ(made.status, 0) << made.err;
    EXPECT_TRUE(std::filesystem::exists(msts.consists() + "/-odd.con"));
}

TEST(CliUsage, ASettingsRecordThatCannotBeWrittenEndsWithAnErrorStatus) {
    MstsTree msts;
    std::filesystem::create_directories(msts.home() + "/settings.bin");  // no file can go there
    const CliRun run =
        runCli({"--home", msts.home(), "--msts", msts.msts(), "catalogue", "engines"});
    EXPECT_THAT(run.err, HasSubstr("error: The settings could not be saved"));
    EXPECT_NE(run.status, 0);
}

TEST(CliUsage, TheProgramFolderComesFromRakeyardHomeWithoutHome) {
    MstsTree msts;
    sys::setEnvironment("RAKEYARD_HOME", msts.home());
    const CliRun run = runCli({"--msts", msts.msts(), "catalogue", "engines"});
    sys::setEnvironment("RAKEYARD_HOME", "");
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_TRUE(std::filesystem::exists(msts.home() + "/settings.bin"));
}

TEST(CliUsage, MstsFolderThatDoesNotExistIsRefusedWithStatus2) {
    MstsTree msts;
    const CliRun run = runCli(
        {"--home", msts.home(), "--msts", msts.root() + "/no such folder", "catalogue", "engines"});
    EXPECT_EQ(run.status, 2);
    EXPECT_THAT(run.err, HasSubstr("error: Invalid folder!"));
    EXPECT_EQ(run.out, "");
}

TEST(CliUsage, FirstRunWithoutMstsFolderExitsWithStatus2) {
    MstsTree msts;
    const CliRun run = runCli({"--home", msts.home(), "catalogue", "engines"});
    EXPECT_EQ(run.status, 2);
    EXPECT_THAT(run.err, StartsWith("error: "));
    EXPECT_THAT(run.err, HasSubstr("--msts"));
}

TEST(CliUsage, StoredMstsFolderThatVanishedIsReportedWithStatus2) {
    MstsTree msts;
    TempFolder gone;
    const std::string goneMsts = gone / "msts";
    std::filesystem::create_directories(goneMsts + "/TRAINS/TRAINSET");
    ASSERT_EQ(runCli({"--home", msts.home(), "--msts", goneMsts, "catalogue", "engines"}).status,
              0);
    std::filesystem::remove_all(goneMsts + "/TRAINS");

    const CliRun run = runCli({"--home", msts.home(), "catalogue", "engines"});
    EXPECT_EQ(run.status, 2);
    EXPECT_THAT(run.err, HasSubstr("error: Cannot find MSTS in the specified directory!\n\n"
                                   "You must enter the correct path for the program."));
}

TEST(CliUsage, GlobalOptionsStandBeforeOrAfterTheCommandsWords) {
    MstsTree msts;
    msts.write("TRAINS/TRAINSET/A/A.wag",
               "Wagon ( A\n\tType ( Freight )\n\tMass ( 10t )\n\tCoupling (\n\t\tType ( Chain )\n"
               "\t)\n\tName ( \"A wagon\" )\n)\n");
    const CliRun before =
        runCli({"--home", msts.home(), "--msts", msts.msts(), "--json", "catalogue", "wagons"});
    const CliRun after =
        runCli({"catalogue", "--json", "wagons", "--home=" + msts.home(), "--msts=" + msts.msts()});
    EXPECT_EQ(before.status, 0);
    EXPECT_EQ(after.status, 0);
    EXPECT_THAT(before.out, HasSubstr("\"fileName\": \"A.wag\""));
    EXPECT_EQ(before.out, after.out);
}

TEST(CliUsage, EditorAndViewerOptionsAreRefusedAsTheirWindowsRefuse) {
    MstsTree msts;
    const CliRun editor = runCli({"--home", msts.home(), "--msts", msts.msts(), "--editor",
                                  msts.root() + "/no-editor", "catalogue", "engines"});
    EXPECT_EQ(editor.status, 2);
    EXPECT_THAT(editor.err, HasSubstr("error: Invalid file or folder!"));

    const CliRun viewer = runCli({"--home", msts.home(), "--msts", msts.msts(), "--viewer",
                                  msts.writeBytes("viewer.txt", "x"), "catalogue", "engines"});
    EXPECT_EQ(viewer.status, 2);
    EXPECT_THAT(viewer.err, HasSubstr("error: You must also choose the executable file!"));

    // A program the system has: on Windows one ending in ".exe".
    const std::string program = sys::kWindows ? "C:\\windows\\notepad.exe" : "/bin/sh";
    const CliRun none = runCli({"--home", msts.home(), "--msts", msts.msts(), "--viewer", "NO",
                                "--editor", program, "catalogue", "engines"});
    EXPECT_EQ(none.status, 0) << none.err;
    const std::string settings = msts.read("home/settings.bin");
    ASSERT_EQ(settings.size(), 1664u);
    EXPECT_EQ(settings.substr(0, 3), "NO ");
    EXPECT_EQ(settings.substr(400, program.size() + 1), program + " ");
}

}  // namespace
}  // namespace rakeyard::test
