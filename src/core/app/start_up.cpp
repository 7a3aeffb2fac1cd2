#include "core/app/start_up.h"

#include <algorithm>
#include <system_error>

#include "core/consist/consist_model.h"
#include "core/consist/save_offer.h"
#include "core/msts/catalogue_reader.h"
#include "core/platform/paths.h"
#include "core/settings/settings_file.h"

namespace rakeyard {

namespace {

std::string noMstsText() {
    return "Cannot find MSTS in the specified directory!\n\n"
           "You must enter the correct path for the program.\n\n"
           "i.e. \"" +
           std::string(kMstsFolderExample) + "\".";
}

bool beginsWithZero(std::string_view text) {
    return !text.empty() && text.front() == '\0';
}

// Reads the record afresh and takes its paths and filters into the globals.
void reloadSettings(AppState& state, Services& services) {
    state.settings = readSettings(services.fs, state.paths.programFolder);
    refreshPathGlobals(state.settings, state.paths);
}

// Loops until the Trainset folder can be listed. The path window's Cancel with an empty box is
// the only other way out, and it ends the program.
bool settleMstsFolder(AppState& state, Services& services, StartUpWindows& windows) {
    reloadSettings(state, services);
    if (isUnset(state.paths.mstsPath) && !windows.showPathWindow()) return false;
    for (;;) {
        reloadSettings(state, services);
        // The record in memory keeps the trimmed paths from here on.
        setText(state.settings, &SettingsRecord::mstsPath, state.paths.mstsPath);
        setText(state.settings, &SettingsRecord::consistsPath, state.paths.consistsPath);
        setText(state.settings, &SettingsRecord::trainsetPath, state.paths.trainsetPath);
        setText(state.settings, &SettingsRecord::soundPath, state.paths.soundPath);
        if (!isUnset(state.paths.trainsetPath) && services.fs.isFolder(state.paths.trainsetPath))
            return true;
        services.dialogs.report(noMstsText(), Icon::Stop, "ERROR");
        if (!windows.showPathWindow()) return false;
    }
}

void settleEditorAndViewer(AppState& state, Services& services, StartUpWindows& windows) {
    if (isUnset(state.paths.editorPath)) windows.showDefaultEditorWindow();
    if (isUnset(state.paths.viewerPath)) windows.showViewerOptionWindow();
    if (state.paths.viewerPath != "NO") {
        windows.setViewerButton(true, "3D view");
        if (isUnset(state.paths.screenshotsPath)) windows.showScreenshotsWindow();
    } else {
        windows.setViewerButton(false, "3D view (not installed)");
    }
    // Screenshots land in the viewer's own folder unless a folder was chosen.
    const std::string& shots = state.paths.screenshotsPath;
    const std::string& viewer = state.paths.viewerPath;
    const bool wantViewerFolder =
        beginsWithZero(shots) || (shots.empty() && !beginsWithZero(viewer));
    const std::size_t cut = viewer.find_last_of("\\/");
    if (wantViewerFolder && cut != std::string::npos) {
        state.paths.screenshotsPath = viewer.substr(0, cut);
        setText(state.settings, &SettingsRecord::screenshotsPath, state.paths.screenshotsPath);
        (void)saveSettings(state.settings, state.paths, services);
    }
}

// A missing Reports folder is made; the findings of the last run are dropped.
void prepareReports(const PathGlobals& paths, FileSystem& fs) {
    const std::string reports = joinPath(paths.programFolder, "Reports");
    if (!fs.isFolder(reports)) (void)fs.createFolder(reports);
    // Absent or locked, the old report is passed over: the readers append to whatever is there.
    (void)fs.removeFile(startErrorsFile(paths));
}

// An unset filter becomes "All", stored at once. So does one that is none of the menu's words
// (a damaged settings.bin), which would show an empty list; the user is told of that once.
void settleFilter(std::string SettingsRecord::*field, std::string& global,
                  std::initializer_list<std::string_view> menuWords, std::string_view units,
                  AppState& state, Services& services) {
    const bool known = std::find(menuWords.begin(), menuWords.end(), global) != menuWords.end();
    if (known) return;
    if (!isUnset(global)) {
        services.dialogs.report("The stored " + std::string(units) + " filter \"" + global +
                                    "\" is not one of the menu's: all " + std::string(units) +
                                    "s are shown.",
                                Icon::Exclamation);
    }
    global = "All";
    setText(state.settings, field, global);
    (void)saveSettings(state.settings, state.paths, services);
}

}  // namespace

UnitFilesReadAtStart::UnitFilesReadAtStart(const std::string& programFolder, FileSystem& fs) {
    PathGlobals paths;
    refreshPathGlobals(readSettings(fs, programFolder), paths);
    if (isUnset(paths.trainsetPath)) return;
    try {
        reading_ = std::async(std::launch::async, [trainset = paths.trainsetPath, &fs,
                                                   catalogue = catalogue_.get_future()]() mutable {
            return readUnitFilesAhead(trainset, fs, [&catalogue] { return catalogue.get(); });
        });
    } catch (const std::system_error&) {
        // No thread to spare: start-up reads the files itself.
    }
}

UnitFilesReadAtStart::~UnitFilesReadAtStart() {
    if (!catalogueGiven_) catalogue_.set_value(nullptr);
    if (reading_.valid()) reading_.wait();
}

void UnitFilesReadAtStart::fillInto(UnitCatalogue& catalogue) {
    if (catalogueGiven_) return;
    catalogueGiven_ = true;
    catalogue_.set_value(&catalogue);
}

UnitFilesAhead* UnitFilesReadAtStart::take() {
    if (!catalogueGiven_) {  // nowhere to store: the reading stops once listed
        catalogueGiven_ = true;
        catalogue_.set_value(nullptr);
    }
    if (!reading_.valid()) return nullptr;
    try {
        taken_ = reading_.get();
    } catch (const std::exception&) {
        return nullptr;  // memory ran out on the way: start-up reads the files itself
    }
    return &*taken_;
}

StartUpResult initProg(AppState& state, Services& services, StartUpWindows& windows,
                       UnitFilesReadAtStart* readAhead) {
    if (!settleMstsFolder(state, services, windows)) return StartUpResult::Ended;
    settleEditorAndViewer(state, services, windows);
    prepareReports(state.paths, services.fs);
    readUnitCatalogue(state.paths, state.catalogue, services, state.debugMode, 0,
                      readAhead ? readAhead->take() : nullptr);
    if (!state.debugMode) services.progress.showDebug(false);
    settleFilter(&SettingsRecord::showLocoType, state.paths.engineFilter,
                 {"Steam", "Diesel", "Electric", "AI", "All"}, "engine", state, services);
    settleFilter(&SettingsRecord::showWagonType, state.paths.wagonFilter,
                 {"Freight", "Carriage", "Tender", "All"}, "wagon", state, services);
    state.consist.selectionBuffer.assign(1, ConsistSlot{});
    return StartUpResult::Ready;
}

// The record keeps 16-bit twips: a place beyond their range is stored at the nearest end.
static std::int16_t toTwipsField(int twips) {
    return static_cast<std::int16_t>(std::clamp(twips, -32768, 32767));
}

void storeMainWindowPlace(AppState& state, Services& services, const WindowPlace& place) {
    state.settings.mainLeft = toTwipsField(place.left);
    state.settings.mainTop = toTwipsField(place.top);
    state.settings.mainHeight = toTwipsField(place.height);
    state.settings.mainWidth = toTwipsField(place.width);
    (void)saveSettings(state.settings, state.paths, services);
}

StartUpResult changeMstsPath(AppState& state, Services& services, StartUpWindows& windows,
                             const std::string& oldMstsPath) {
    if (state.paths.mstsPath == oldMstsPath) return StartUpResult::Ready;
    if (!clearConsist(state, services)) return StartUpResult::Ready;
    clearCatalogue(state.catalogue);
    return initProg(state, services, windows);
}

}  // namespace rakeyard
