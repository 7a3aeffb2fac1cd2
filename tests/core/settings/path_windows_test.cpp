#include "core/settings/path_windows.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "core/platform/paths.h"
#include "core/settings/settings_file.h"
#include "core/settings/shell_helpers.h"
#include "support/fakes.h"
#include "support/msts_tree.h"

namespace fs = std::filesystem;

namespace rakeyard {
namespace {

const std::string kInvalidViewerPath =
    "Invalid file or folder!\nYou must enter a valid path i.e. \"" + std::string(kViewerExample) +
    "\".";
const std::string kWrongKind =
    "You must also choose the executable file!\nPlease click on the bottom box and choose the "
    "program file.";

class PathWindows : public ::testing::Test {
protected:
    void SetUp() override { paths.programFolder = msts.home(); }

    std::string makeFile(const std::string& relative, bool program = false) {
        const std::string path = joinPath(msts.root(), relative);
        fs::create_directories(fs::path(path).parent_path());
        std::ofstream(path) << "program";
        if (program) fs::permissions(path, fs::perms::owner_exec, fs::perm_options::add);
        return path;
    }
    SettingsRecord stored() { return parseSettings(msts.read("home/settings.bin")); }
    bool settingsWritten() const { return msts.exists("home/settings.bin"); }

    test::MstsTree msts;
    test::FakeServices fake;
    SettingsRecord record;
    PathGlobals paths;
};

TEST_F(PathWindows, MstsPathOkSetsTheFourPathsAndWritesThem) {
    EXPECT_EQ(acceptMstsPath(msts.msts(), record, paths, fake.services), WindowOutcome::Close);

    EXPECT_TRUE(fake.dialogs.shown.empty());
    const SettingsRecord written = stored();
    EXPECT_EQ(written, record);
    EXPECT_EQ(trimmedValue(written.mstsPath), msts.msts());
    EXPECT_EQ(trimmedValue(written.consistsPath),
              nativeSeparators(msts.msts() + "/TRAINS/CONSISTS"));
    EXPECT_EQ(trimmedValue(written.trainsetPath),
              nativeSeparators(msts.msts() + "/TRAINS/TRAINSET"));
    EXPECT_EQ(trimmedValue(written.soundPath), nativeSeparators(msts.msts() + "/SOUND"));
    EXPECT_EQ(paths.trainsetPath, trimmedValue(written.trainsetPath));
    EXPECT_EQ(paths.programFolder, msts.home());
    EXPECT_EQ(test::readWholeFile(msts.home() + "/settings.bin").size(), kSettingsRecordSize);
}

TEST_F(PathWindows, MstsPathOkTakesAnyCaseAndSeparatorAndStoresThePathAsOnDisk) {
    if (!test::renamesCase(msts.msts())) GTEST_SKIP() << "no rename changes a name's case here";
    fs::rename(msts.msts() + "/TRAINS", msts.msts() + "/Trains");
    const std::string typed = msts.root() + "\\MSTS\\";
    EXPECT_EQ(acceptMstsPath(typed, record, paths, fake.services), WindowOutcome::Close);
    EXPECT_EQ(paths.mstsPath, nativeSeparators(msts.msts() + "/"));
    EXPECT_EQ(paths.consistsPath, nativeSeparators(msts.msts() + "/Trains/CONSISTS"));
}

TEST_F(PathWindows, MstsPathOkRefusesWhatIsNoFolder) {
    const std::string file = makeFile("msts/readme.txt");
    for (const std::string& text : {msts.root() + "/no such folder", file, std::string("  ")}) {
        fake.dialogs.shown.clear();
        EXPECT_EQ(acceptMstsPath(text, record, paths, fake.services), WindowOutcome::Stay) << text;
        ASSERT_EQ(fake.dialogs.texts(), std::vector<std::string>{"Invalid folder!"}) << text;
        EXPECT_EQ(fake.dialogs.shown[0].icon, Icon::Stop);
        EXPECT_FALSE(settingsWritten()) << text;
        EXPECT_EQ(record, SettingsRecord{}) << text;
    }
}

TEST_F(PathWindows, MstsPathOkRefusesAFolderThatCannotBeEntered) {
    const std::string locked = msts.root() + "/locked";
    fs::create_directory(locked);
    fs::permissions(locked, fs::perms::none);
    std::error_code ec;
    if (fs::is_regular_file(locked + "/.", ec) || fs::exists(locked + "/.", ec)) {
        fs::permissions(locked, fs::perms::owner_all);
        GTEST_SKIP() << "this user can enter any folder";
    }
    EXPECT_EQ(acceptMstsPath(locked, record, paths, fake.services), WindowOutcome::Stay);
    EXPECT_EQ(fake.dialogs.texts(), std::vector<std::string>{"Invalid folder!"});
    fs::permissions(locked, fs::perms::owner_all);
}

TEST_F(PathWindows, CancelWithAnEmptyBoxOnTheFirstRunEndsWithSettingsLeftEmpty) {
    record = readSettings(fake.fs, paths.programFolder);
    EXPECT_EQ(cancelMstsPath(""), PathCancelOutcome::EndProgram);
    EXPECT_EQ(cancelMstsPath("   "), PathCancelOutcome::EndProgram);
    EXPECT_EQ(cancelMstsPath("C:\\MSTS"), PathCancelOutcome::Close);
    EXPECT_EQ(msts.read("home/settings.bin"), "");
}

TEST_F(PathWindows, EditorOkNeedsAnExistingFile) {
    const std::string editor = makeFile("bin/wordpad.exe", true);
    const std::string invalid = "Invalid file or folder!\nYou must enter a valid path i.e. \"" +
                                std::string(kEditorExample) + "\".";
    for (const std::string& text : {msts.root() + "/bin/missing.exe", msts.root() + "/bin"}) {
        fake.dialogs.shown.clear();
        EXPECT_EQ(acceptEditorPath(text, record, paths, fake.services), WindowOutcome::Stay);
        EXPECT_EQ(fake.dialogs.texts(), std::vector<std::string>{invalid}) << text;
    }
    EXPECT_FALSE(settingsWritten());

    EXPECT_EQ(acceptEditorPath(msts.root() + "/BIN/WordPad.EXE", record, paths, fake.services),
              WindowOutcome::Close);
    EXPECT_EQ(paths.editorPath, nativeSeparators(editor));
    EXPECT_EQ(trimmedValue(stored().editorPath), nativeSeparators(editor));
}

// Off Windows a program is a file that may be run, whatever its name, and an editor that needs a
// terminal would open no window: both are refused before anything is stored.
TEST_F(PathWindows, EditorOkRefusesAFileThatIsNoProgramAndATerminalEditor) {
    if (kProgramsEndInExe) GTEST_SKIP() << "programs are told by their name here";
    const std::string text = makeFile("bin/notes.txt");
    const std::string nano = makeFile("bin/nano", true);
    EXPECT_EQ(acceptEditorPath(text, record, paths, fake.services), WindowOutcome::Stay);
    EXPECT_EQ(acceptEditorPath(nano, record, paths, fake.services), WindowOutcome::Stay);
    ASSERT_EQ(fake.dialogs.texts().size(), 2u);
    EXPECT_EQ(fake.dialogs.texts()[0], kWrongKind);
    EXPECT_EQ(fake.dialogs.texts()[1], terminalEditorText(nano));
    EXPECT_FALSE(settingsWritten());

    const std::string gedit = makeFile("bin/gedit", true);
    EXPECT_EQ(acceptEditorPath(gedit, record, paths, fake.services), WindowOutcome::Close);
    EXPECT_EQ(paths.editorPath, gedit);
}

TEST_F(PathWindows, AStoredTerminalEditorIsNotStartedAndTheUserIsTold) {
    paths.editorPath = "/usr/bin/vim.basic";
    EXPECT_EQ(startTextEditor(paths, "/msts/a.con", fake.services),
              kProgramsEndInExe ? EditorStart::Started : EditorStart::Refused);
    if (!kProgramsEndInExe) {
        EXPECT_TRUE(fake.desktop.started.empty());
        EXPECT_EQ(fake.dialogs.texts(),
                  std::vector<std::string>{terminalEditorText("/usr/bin/vim.basic")});
    }
    paths.editorPath = "/usr/bin/kate";
    EXPECT_EQ(startTextEditor(paths, "/msts/a.con", fake.services), EditorStart::Started);
    paths.editorPath.clear();
    EXPECT_EQ(startTextEditor(paths, "/msts/a.con", fake.services), EditorStart::NoEditor);
}

TEST_F(PathWindows, ViewerOptionNoStoresNoAndYesAsksOnlyWhenUnset) {
    EXPECT_TRUE(viewerWindowNeeded(record));
    EXPECT_TRUE(declineViewer(record, paths, fake.services));
    EXPECT_EQ(paths.viewerPath, "NO");
    EXPECT_EQ(trimmedValue(stored().viewerPath), "NO");
    EXPECT_FALSE(viewerWindowNeeded(record));
}

TEST_F(PathWindows, ViewerOkChecksTheExecutableThenExistence) {
    makeFile("viewer/shape.txt");
    struct Case {
        std::string text;
        std::string message;
    };
    const Case cases[] = {
        {msts.root() + "/viewer/shape.txt", kWrongKind},
        {msts.root() + "/viewer", kWrongKind},
        {msts.root() + "/viewer/missing.exe", kInvalidViewerPath},
        {msts.root() + "/viewer/.EXE", kInvalidViewerPath},
    };
    for (const Case& c : cases) {
        fake.dialogs.shown.clear();
        EXPECT_EQ(acceptViewerPath(c.text, record, paths, fake.services), ViewerOutcome::Stay)
            << c.text;
        ASSERT_EQ(fake.dialogs.texts(), std::vector<std::string>{c.message}) << c.text;
        EXPECT_EQ(fake.dialogs.shown[0].icon, Icon::Stop);
    }
    EXPECT_FALSE(settingsWritten());
}

TEST_F(PathWindows, ViewerOkStoresTheProgramAndAsksForScreenshotsWhileThoseAreUnset) {
    const std::string viewer = makeFile("viewer/Shape.Exe", true);
    EXPECT_EQ(acceptViewerPath(viewer, record, paths, fake.services),
              ViewerOutcome::CloseAndAskScreenshots);
    EXPECT_EQ(trimmedValue(stored().viewerPath), viewer);
    EXPECT_EQ(paths.viewerPath, viewer);

    setText(record, &SettingsRecord::screenshotsPath, msts.root());
    EXPECT_EQ(acceptViewerPath(msts.root() + "/VIEWER/shape.exe", record, paths, fake.services),
              ViewerOutcome::Close);
    EXPECT_TRUE(fake.dialogs.shown.empty());
}

TEST_F(PathWindows, ScreenshotsWindowOpensOnTheStoredPathThenPicsThenTheRoot) {
    EXPECT_EQ(screenshotsStartFolder(record, paths, fake.fs), std::string(1, kPathSeparator));
    fs::create_directory(msts.home() + "/Pics");
    EXPECT_EQ(screenshotsStartFolder(record, paths, fake.fs),
              nativeSeparators(msts.home() + "/Pics"));
    setText(record, &SettingsRecord::screenshotsPath, "/shots");
    EXPECT_EQ(screenshotsStartFolder(record, paths, fake.fs), "/shots");
}

TEST_F(PathWindows, ScreenshotsOkNeedsAFolder) {
    const std::string file = makeFile("shots.txt");
    for (const std::string& text : {file, msts.root() + "/missing"}) {
        fake.dialogs.shown.clear();
        EXPECT_EQ(acceptScreenshotsPath(text, record, paths, fake.services), WindowOutcome::Stay);
        EXPECT_EQ(fake.dialogs.texts(), std::vector<std::string>{kInvalidViewerPath});
    }
    EXPECT_FALSE(settingsWritten());
    EXPECT_EQ(acceptScreenshotsPath("  " + msts.home() + " ", record, paths, fake.services),
              WindowOutcome::Close);
    EXPECT_EQ(trimmedValue(stored().screenshotsPath), msts.home());
}

TEST_F(PathWindows, ScreenshotsCancelTakesTheViewersFolderWhenThereIsOne) {
    EXPECT_FALSE(cancelScreenshotsPath(record, paths, fake.services));
    setText(record, &SettingsRecord::viewerPath, "NO");
    EXPECT_FALSE(cancelScreenshotsPath(record, paths, fake.services));
    EXPECT_FALSE(settingsWritten());

    setText(record, &SettingsRecord::viewerPath, "C:\\Tools\\Viewer\\shape.exe");
    EXPECT_TRUE(cancelScreenshotsPath(record, paths, fake.services));
    EXPECT_EQ(paths.screenshotsPath, "C:\\Tools\\Viewer");
    EXPECT_EQ(trimmedValue(stored().screenshotsPath), "C:\\Tools\\Viewer");
}

TEST_F(PathWindows, AliasWarningIsTurnedOffOnlyByATickedBox) {
    EXPECT_FALSE(acceptAliasWarning(false, record, paths, fake.services));
    EXPECT_EQ(record.showAliasWarning, 0);
    EXPECT_FALSE(settingsWritten());
    EXPECT_TRUE(acceptAliasWarning(true, record, paths, fake.services));
    EXPECT_EQ(stored().showAliasWarning, 1);
}

TEST_F(PathWindows, FailedWriteIsToldAndTheWindowStillCloses) {
    fake.fs.failAfterBytes = 100;
    EXPECT_EQ(acceptMstsPath(msts.msts(), record, paths, fake.services), WindowOutcome::Close);
    ASSERT_EQ(fake.dialogs.shown.size(), 1u);
    EXPECT_NE(fake.dialogs.shown[0].text.find("No space left on device"), std::string::npos);
    EXPECT_FALSE(settingsWritten());
    EXPECT_EQ(paths.mstsPath, msts.msts());  // in use for this run all the same
}

TEST(ToWideBytes, GivesLittleEndianUtf16) {
    using namespace std::string_literals;
    struct Case {
        std::string text;
        std::string bytes;
    };
    const Case cases[] = {
        {"", ""},
        {"AB", "A\0B\0"s},
        {"\xC3\xA9", "\xE9\0"s},                    // é in UTF-8
        {"\xE2\x82\xAC", "\xAC\x20"s},              // €
        {"\xF0\x9F\x98\x80", "\x3D\xD8\x00\xDE"s},  // a surrogate pair
        {"a\xE9z", "a\0\xE9\0z\0"s},                // an 8-bit é, no UTF-8
        {"\xC3", "\xC3\0"s},                        // a cut sequence
        {"\xED\xA0\x80", "\xED\0\xA0\0\x80\0"s},    // an encoded surrogate is no character
    };
    for (const Case& c : cases) {
        EXPECT_EQ(toWideBytes(c.text), c.bytes) << c.text;
    }
}

}  // namespace
}  // namespace rakeyard
