#include "core/app/start_up.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <deque>
#include <filesystem>

#include "core/app/consist_flows.h"
#include "core/consist/editing.h"
#include "core/consist/save_offer.h"
#include "core/msts/catalogue_reader.h"
#include "core/settings/path_windows.h"
#include "core/settings/settings_file.h"
#include "support/fakes.h"
#include "support/msts_tree.h"
#include "core/platform/paths.h"

namespace rakeyard {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

// Plays the user at the start-up windows: each path window gets the next text of a script and
// presses OK, or Cancel when the script is used up.
class ScriptedWindows : public StartUpWindows {
public:
    ScriptedWindows(AppState& state, Services& services) : state_(state), services_(services) {}

    bool showPathWindow() override {
        shown.push_back("frmPath");
        while (!pathTexts.empty()) {
            const std::string text = pathTexts.front();
            pathTexts.pop_front();
            if (acceptMstsPath(text, state_.settings, state_.paths, services_) ==
                WindowOutcome::Close)
                return true;
        }
        return cancelMstsPath("") != PathCancelOutcome::EndProgram;
    }
    void showDefaultEditorWindow() override {
        shown.push_back("Defeditor");
        (void)acceptEditorPath(editorPath, state_.settings, state_.paths, services_);
    }
    void showViewerOptionWindow() override {
        shown.push_back("SFVOption");
        if (declineViewerChoice)
            (void)declineViewer(state_.settings, state_.paths, services_);
        else
            (void)acceptViewerPath(viewerPath, state_.settings, state_.paths, services_);
    }
    void showScreenshotsWindow() override {
        shown.push_back("frmScrshots");
        (void)acceptScreenshotsPath(screenshotsPath, state_.settings, state_.paths, services_);
    }
    void setViewerButton(bool enabled, std::string_view toolTip) override {
        viewerButton = std::string(enabled ? "on:" : "off:") + std::string(toolTip);
    }

    std::deque<std::string> pathTexts;
    std::string editorPath;
    std::string viewerPath;
    std::string screenshotsPath;
    bool declineViewerChoice = false;
    std::vector<std::string> shown;
    std::string viewerButton;

private:
    AppState& state_;
    Services& services_;
};

class InitProg : public ::testing::Test {
protected:
    InitProg() {
        state->paths.programFolder = msts.home();
        fake.dialogs.defaultAnswer = Answer::Ok;  // keep StartErrors.txt
        tools = msts.writeProgram("tools/edit.exe");
        viewer = msts.writeProgram("tools/viewer.exe");
        windows.editorPath = tools;
        windows.viewerPath = viewer;
        windows.screenshotsPath = msts.msts() + "/tools";
    }

    test::MstsTree msts;
    test::FakeServices fake;
    std::unique_ptr<AppState> state = std::make_unique<AppState>();
    ScriptedWindows windows{*state, fake.services};
    std::string tools;
    std::string viewer;
};

TEST_F(InitProg, FirstRunAsksForPathEditorViewerAndScreenshotsInThatOrder) {
    windows.pathTexts = {msts.msts()};
    ASSERT_EQ(initProg(*state, fake.services, windows), StartUpResult::Ready);
    EXPECT_THAT(windows.shown, ElementsAre("frmPath", "Defeditor", "SFVOption", "frmScrshots"));
    EXPECT_EQ(windows.viewerButton, "on:3D view");
    EXPECT_EQ(state->paths.engineFilter, "All");
    EXPECT_EQ(state->paths.wagonFilter, "All");

    // A second start asks for nothing: everything was stored.
    auto again = std::make_unique<AppState>();
    again->paths.programFolder = msts.home();
    ScriptedWindows quiet(*again, fake.services);
    ASSERT_EQ(initProg(*again, fake.services, quiet), StartUpResult::Ready);
    EXPECT_TRUE(quiet.shown.empty());
    EXPECT_EQ(again->paths.trainsetPath, state->paths.trainsetPath);
}

TEST_F(InitProg, ADamagedStoredFilterShowsEverythingAndIsToldOnce) {
    windows.pathTexts = {msts.msts()};
    ASSERT_EQ(initProg(*state, fake.services, windows), StartUpResult::Ready);
    setText(state->settings, &SettingsRecord::showLocoType, "Stea\x01m");
    ASSERT_TRUE(saveSettings(state->settings, state->paths, fake.services));

    for (const std::size_t toldBefore : {std::size_t{0}, std::size_t{1}}) {
        auto again = std::make_unique<AppState>();
        again->paths.programFolder = msts.home();
        ScriptedWindows quiet(*again, fake.services);
        fake.dialogs.shown.clear();
        ASSERT_EQ(initProg(*again, fake.services, quiet), StartUpResult::Ready);
        EXPECT_EQ(again->paths.engineFilter, "All");
        EXPECT_EQ(again->paths.wagonFilter, "All");
        const auto told = fake.dialogs.texts();
        EXPECT_EQ(std::count_if(told.begin(), told.end(),
                                [](const std::string& text) {
                                    return text.find("filter") != std::string::npos;
                                }),
                  1 - static_cast<long>(toldBefore))
            << "the second start finds All stored";
    }
}

TEST_F(InitProg, RefusedViewerSkipsScreenshotsWindowAndDisablesButton) {
    windows.pathTexts = {msts.msts()};
    windows.declineViewerChoice = true;
    ASSERT_EQ(initProg(*state, fake.services, windows), StartUpResult::Ready);
    EXPECT_THAT(windows.shown, ElementsAre("frmPath", "Defeditor", "SFVOption"));
    EXPECT_EQ(windows.viewerButton, "off:3D view (not installed)");
    EXPECT_EQ(state->paths.viewerPath, "NO");
}

TEST_F(InitProg, ThePathWindowRefusesAFolderWithoutTrainsetAndStoresNothing) {
    const std::string noTrains = msts.root() + "/home";  // a folder without TRAINS
    windows.pathTexts = {noTrains, msts.msts()};
    ASSERT_EQ(initProg(*state, fake.services, windows), StartUpResult::Ready);
    EXPECT_EQ(std::count(windows.shown.begin(), windows.shown.end(), "frmPath"), 1);
    ASSERT_FALSE(fake.dialogs.shown.empty());
    EXPECT_EQ(fake.dialogs.shown.front().icon, Icon::Stop);
    EXPECT_THAT(fake.dialogs.shown.front().text,
                HasSubstr("Cannot find MSTS in the specified directory!"));
    EXPECT_THAT(fake.dialogs.shown.front().text, HasSubstr(noTrains));
    EXPECT_EQ(state->paths.mstsPath, msts.msts());
}

TEST_F(InitProg, AStoredFolderThatLostItsTrainsetComesBackToThePathWindow) {
    windows.pathTexts = {msts.msts()};
    ASSERT_EQ(initProg(*state, fake.services, windows), StartUpResult::Ready);
    const std::string gone = msts.root() + "/home";
    setText(state->settings, &SettingsRecord::mstsPath, gone);
    setText(state->settings, &SettingsRecord::trainsetPath, gone + "/TRAINS/TRAINSET");
    ASSERT_TRUE(saveSettings(state->settings, state->paths, fake.services));

    auto again = std::make_unique<AppState>();
    again->paths.programFolder = msts.home();
    ScriptedWindows later(*again, fake.services);
    later.pathTexts = {msts.msts()};
    fake.dialogs.shown.clear();
    ASSERT_EQ(initProg(*again, fake.services, later), StartUpResult::Ready);
    EXPECT_EQ(std::count(later.shown.begin(), later.shown.end(), "frmPath"), 1);
    ASSERT_FALSE(fake.dialogs.shown.empty());
    EXPECT_EQ(fake.dialogs.shown.front().title, "ERROR");
    EXPECT_EQ(fake.dialogs.shown.front().text,
              "Cannot find MSTS in the specified directory!\n\nYou must enter the correct path "
              "for the program.\n\ni.e. \"" + std::string(kMstsFolderExample) + "\".");
}

// The window program's start: the records read ahead into its state are kept, equal to those a
// start without them stores, with the same report and questions. A reading never given a
// state ends on its own.
TEST_F(InitProg, RecordsReadAheadAreWhatAStartWithoutThemStores) {
    windows.pathTexts = {std::string(RAKEYARD_SOURCE_DIR) + "/samples/msts"};
    ASSERT_EQ(initProg(*state, fake.services, windows), StartUpResult::Ready);
    const std::string report = test::readWholeFile(startErrorsFile(state->paths));
    const std::vector<std::string> told = fake.dialogs.texts();
    ASSERT_FALSE(report.empty());
    { UnitFilesReadAtStart neverGiven(msts.home(), fake.fs); }

    fake.dialogs.shown.clear();
    fake.progress.labels.clear();
    std::unique_ptr<AppState> again;
    UnitFilesReadAtStart reading(msts.home(), fake.fs);
    again = std::make_unique<AppState>();
    again->paths.programFolder = msts.home();
    reading.fillInto(again->catalogue);
    ScriptedWindows quiet(*again, fake.services);
    ASSERT_EQ(initProg(*again, fake.services, quiet, &reading), StartUpResult::Ready);
    EXPECT_THAT(fake.progress.labels, ::testing::Not(Contains("Loading engine files...")));
    ASSERT_GT(again->catalogue.engineCount, 0u);
    ASSERT_EQ(again->catalogue.engineCount, state->catalogue.engineCount);
    ASSERT_EQ(again->catalogue.wagonCount, state->catalogue.wagonCount);
    for (std::size_t i = 0; i < state->catalogue.engineCount; ++i)
        EXPECT_EQ(again->catalogue.engines[i].displayName, state->catalogue.engines[i].displayName);
    for (std::size_t i = 0; i < state->catalogue.wagonCount; ++i)
        EXPECT_EQ(again->catalogue.wagons[i].folderPath, state->catalogue.wagons[i].folderPath);
    EXPECT_EQ(test::readWholeFile(startErrorsFile(again->paths)), report);
    EXPECT_EQ(fake.dialogs.texts(), told);
}

TEST_F(InitProg, CancelWithEmptyBoxEndsTheProgramAndLeavesSettingsEmpty) {
    EXPECT_EQ(initProg(*state, fake.services, windows), StartUpResult::Ended);
    EXPECT_THAT(windows.shown, ElementsAre("frmPath"));
    EXPECT_TRUE(msts.exists("home/settings.bin"));
    EXPECT_EQ(msts.read("home/settings.bin").size(), 0u);
}

TEST_F(InitProg, MakesReportsFolderAndDropsOldStartErrors) {
    windows.pathTexts = {msts.msts()};
    ASSERT_EQ(initProg(*state, fake.services, windows), StartUpResult::Ready);
    const std::string old = startErrorsFile(state->paths);
    ASSERT_TRUE(fake.fs.appendFile(old, "old findings\r\n"));
    ScriptedWindows quiet(*state, fake.services);
    ASSERT_EQ(initProg(*state, fake.services, quiet), StartUpResult::Ready);
    EXPECT_FALSE(fake.fs.isFile(old));
    EXPECT_TRUE(fake.fs.isFolder(msts.home() + "/Reports"));
}

TEST_F(InitProg, ScreenshotsDefaultToTheViewersFolder) {
    windows.pathTexts = {msts.msts()};
    ASSERT_EQ(initProg(*state, fake.services, windows), StartUpResult::Ready);
    // Clear the folder as frmSettings could, then start again.
    setText(state->settings, &SettingsRecord::screenshotsPath, "");
    ASSERT_TRUE(writeSettings(fake.fs, msts.home(), state->settings));
    ScriptedWindows quiet(*state, fake.services);
    quiet.screenshotsPath = "/no/such/folder";  // the window is refused: nothing chosen
    ASSERT_EQ(initProg(*state, fake.services, quiet), StartUpResult::Ready);
    EXPECT_EQ(state->paths.screenshotsPath, joinPath(msts.msts(), "tools"));
}

TEST(ParseCommandLine, DebugSwitchInEitherCaseAndQuotedConsistPath) {
    EXPECT_TRUE(parseCommandLine("/D").debugMode);
    EXPECT_TRUE(parseCommandLine("/d").debugMode);
    EXPECT_EQ(parseCommandLine("/d").consistToOpen, "");
    EXPECT_FALSE(parseCommandLine("\"/d\" x").debugMode);
    EXPECT_EQ(parseCommandLine("\"C:\\My Trains\\a b.con\"").consistToOpen,
              "C:\\My Trains\\a b.con");
    EXPECT_EQ(parseCommandLine("").consistToOpen, "");
}

TEST(StoreMainWindowPlace, KeepsPlacesWithinTheRecordsRange) {
    test::MstsTree msts;
    test::FakeServices fake;
    auto state = std::make_unique<AppState>();
    state->paths.programFolder = msts.home();
    storeMainWindowPlace(*state, fake.services, {40000, -5, 7000, 15000});
    const SettingsRecord stored = readSettings(fake.fs, msts.home());
    EXPECT_EQ(stored.mainLeft, 32767);
    EXPECT_EQ(stored.mainTop, -5);
    EXPECT_EQ(stored.mainHeight, 7000);
    EXPECT_EQ(stored.mainWidth, 15000);
}

}  // namespace
}  // namespace rakeyard

namespace rakeyard {
namespace {

class ExitQuestions : public ::testing::Test {
protected:
    ExitQuestions() { state->paths.programFolder = msts.home(); }
    test::MstsTree msts;
    test::FakeServices fake;
    std::unique_ptr<AppState> state = std::make_unique<AppState>();
};

TEST_F(ExitQuestions, UnnamedChangedConsistAsksOnExitAndOnTheCloseButton) {
    state->consist.consistChanged = true;
    EXPECT_FALSE(offerSaveOnUnload(*state, fake.services)) << "Cancel keeps the window";
    ASSERT_EQ(fake.dialogs.texts(), std::vector<std::string>{"Save changes to the consist?"});
    fake.dialogs.shown.clear();

    fake.dialogs.answers = {Answer::Yes};
    // The save refuses the empty consist; with no file name the program keeps running.
    EXPECT_FALSE(confirmExit(*state, fake.services));
    ASSERT_FALSE(fake.dialogs.shown.empty());
    EXPECT_EQ(fake.dialogs.shown.front().text, "Save changes to the consist?");

    fake.dialogs.answers = {Answer::No};
    EXPECT_TRUE(confirmExit(*state, fake.services));
    EXPECT_FALSE(state->consist.consistChanged);
}

// A named, changed consist of one wagon whose save will fail as on a full disk.
class FailedSave : public ExitQuestions {
protected:
    FailedSave() {
        state->paths.consistsPath = msts.consists();
        std::filesystem::create_directories(msts.consists());
        UnitRecord& wagon = state->catalogue.wagons[0];
        wagon.fileName = "Box.wag";
        wagon.folderName = "Box";
        wagon.displayName = "Box van";
        wagon.unitType = "Freight";
        state->catalogue.wagonCount = 1;
        addCatalogueUnit(state->consist, wagon, false);
        state->consist.header.fileName = "Kept";
        fake.fs.failAfterBytes = 10;
        fake.dialogs.defaultAnswer = Answer::Yes;
    }
    void expectConsistKept() {
        EXPECT_TRUE(state->consist.consistChanged);
        EXPECT_EQ(state->consist.slots[0].fileName, "Box.wag");
        EXPECT_EQ(state->consist.header.fileName, "Kept");
        EXPECT_FALSE(std::filesystem::exists(msts.consists() + "/Kept.con"));
    }
};

TEST_F(FailedSave, KeepsTheProgramRunningAndTheConsistWhole) {
    EXPECT_FALSE(confirmExit(*state, fake.services));
    expectConsistKept();
    EXPECT_FALSE(offerSaveOnUnload(*state, fake.services)) << "the window stays open";
    expectConsistKept();
    EXPECT_THAT(fake.dialogs.texts(), Contains(HasSubstr("The consist could not be saved")));
}

TEST_F(FailedSave, KeepsTheConsistWhenANewOneOrTheCatalogueWouldReplaceIt) {
    EXPECT_FALSE(clearConsist(*state, fake.services));
    expectConsistKept();
    EXPECT_FALSE(refreshCatalogue(*state, fake.services, UnitClass::Wagon));
    expectConsistKept();
    EXPECT_EQ(state->catalogue.wagonCount, 1u) << "nothing read again";

    fake.fs.failAfterBytes.reset();  // the disk has room again
    EXPECT_TRUE(clearConsist(*state, fake.services));
    EXPECT_EQ(state->consist.slots[0].fileName, "");
    EXPECT_TRUE(std::filesystem::exists(msts.consists() + "/Kept.con"));
}

}  // namespace
}  // namespace rakeyard

namespace rakeyard {
namespace {

TEST(DeleteUnitOfLine, TheQuestionNamesTheFolderAndItsFilesAndNoKeepsThem) {
    test::MstsTree msts;
    test::FakeServices fake;
    auto state = std::make_unique<AppState>();
    state->paths.trainsetPath = msts.trainset();
    msts.write("TRAINS/TRAINSET/Box/Box.wag", "Wagon ( Box\n");
    msts.writeBytes("TRAINS/TRAINSET/Box/Box.s", "shape");
    msts.writeBytes("TRAINS/TRAINSET/Box/Textures/Box.ace", "texture");
    UnitRecord& wagon = state->catalogue.wagons[0];
    wagon.fileName = "Box.wag";
    wagon.folderName = "Box";
    wagon.folderPath = msts.trainset() + "/Box";
    state->catalogue.wagonCount = 1;

    fake.dialogs.answers = {Answer::No};
    EXPECT_FALSE(deleteUnitOfLine(*state, fake.services, UnitClass::Wagon, "Box van ^Box.wag"));
    EXPECT_TRUE(fake.desktop.trashed.empty());
    ASSERT_EQ(fake.dialogs.shown.size(), 1u);
    EXPECT_THAT(fake.dialogs.shown[0].text, HasSubstr("Its folder Box and the 3 files in it"));
    EXPECT_THAT(fake.dialogs.shown[0].text, HasSubstr(std::string(kTrashName)));

    fake.dialogs.answers = {Answer::Yes};
    EXPECT_TRUE(deleteUnitOfLine(*state, fake.services, UnitClass::Wagon, "Box van ^Box.wag"));
    ASSERT_EQ(fake.desktop.trashed.size(), 1u);
    EXPECT_THAT(fake.desktop.trashed[0], HasSubstr("Box"));
}

}  // namespace
}  // namespace rakeyard
