#include "core/settings/path_windows.h"

#include <filesystem>

#include "core/platform/paths.h"
#include "core/platform/text_utf.h"
#include "core/settings/settings_file.h"
#include "core/settings/shell_helpers.h"

namespace rakeyard {

namespace {

// Sets a text field and the globals with it.
void setPathField(SettingsRecord& record, PathGlobals& paths, std::string SettingsRecord::*field,
                  std::string_view text) {
    setText(record, field, text);
    refreshPathGlobals(record, paths);
}

std::string rootFolder() {
    return std::string(1, kPathSeparator);
}

// A folder the program can go into: it exists, and a path through it can be followed.
bool canEnterFolder(FileSystem& fs, const std::string& folder) {
    return fs.isFolder(folder) && fs.isFolder(joinPath(folder, "."));
}

bool endsWithExe(std::string_view text) {
    return text.size() >= 4 && upperAscii(text.substr(text.size() - 4)) == ".EXE";
}

std::string invalidPathText(std::string_view example) {
    return "Invalid file or folder!\nYou must enter a valid path i.e. \"" + std::string(example) +
           "\".";
}

constexpr std::string_view kChooseProgramText =
    "You must also choose the executable file!\nPlease click on the bottom box and choose the "
    "program file.";

}  // namespace

std::string mstsPathStartFolder(const SettingsRecord& record) {
    if (!isUnset(record.mstsPath)) return trimmedValue(record.mstsPath);
    std::error_code ec;
    const std::filesystem::path current = std::filesystem::current_path(ec);
    if (ec || current.root_path().empty()) return rootFolder();
    const std::u8string root = current.root_path().u8string();
    return std::string(root.begin(), root.end());
}

WindowOutcome acceptMstsPath(std::string_view text, SettingsRecord& record, PathGlobals& paths,
                             Services& services) {
    const std::string typed = trimBlanks(text);
    if (typed.empty() || !canEnterFolder(services.fs, typed)) {
        services.dialogs.report("Invalid folder!", Icon::Stop);
        return WindowOutcome::Stay;
    }
    // A folder that is no MSTS installation is refused here, before anything is stored: a
    // consist could otherwise be offered for saving into it.
    if (!services.fs.isFolder(joinPath(typed, "TRAINS\\TRAINSET"))) {
        services.dialogs.report("Cannot find MSTS in the specified directory!\n\nThe folder " +
                                    typed + " holds no TRAINS" + std::string(1, kPathSeparator) +
                                    "TRAINSET folder.",
                                Icon::Stop);
        return WindowOutcome::Stay;
    }
    const std::string msts = services.fs.resolve(typed);
    setText(record, &SettingsRecord::mstsPath, msts);
    // The three folders are derived here and nowhere else, in the letter case they have on disk.
    FileSystem& fs = services.fs;
    setText(record, &SettingsRecord::consistsPath, fs.resolve(joinPath(msts, "TRAINS\\CONSISTS")));
    setText(record, &SettingsRecord::trainsetPath, fs.resolve(joinPath(msts, "TRAINS\\TRAINSET")));
    setText(record, &SettingsRecord::soundPath, fs.resolve(joinPath(msts, "SOUND")));
    refreshPathGlobals(record, paths);
    (void)saveSettings(record, paths, services);
    return WindowOutcome::Close;
}

PathCancelOutcome cancelMstsPath(std::string_view text) {
    return trimBlanks(text).empty() ? PathCancelOutcome::EndProgram : PathCancelOutcome::Close;
}

bool chooseDefaultEditor(SettingsRecord& record, PathGlobals& paths, Services& services) {
    setPathField(record, paths, &SettingsRecord::editorPath, defaultEditorPath());
    return saveSettings(record, paths, services);
}

WindowOutcome acceptEditorPath(std::string_view text, SettingsRecord& record, PathGlobals& paths,
                               Services& services) {
    const std::string typed = trimBlanks(text);
    if (!services.fs.isFile(typed)) {
        services.dialogs.report(invalidPathText(kEditorExample), Icon::Stop);
        return WindowOutcome::Stay;
    }
    const std::string editor = services.fs.resolve(typed);
    if (!kProgramsEndInExe && !isProgramFile(editor)) {
        services.dialogs.report(std::string(kChooseProgramText), Icon::Stop);
        return WindowOutcome::Stay;
    }
    if (isTerminalEditor(editor)) {
        services.dialogs.report(terminalEditorText(editor), Icon::Exclamation);
        return WindowOutcome::Stay;
    }
    setPathField(record, paths, &SettingsRecord::editorPath, editor);
    (void)saveSettings(record, paths, services);
    return WindowOutcome::Close;
}

bool viewerWindowNeeded(const SettingsRecord& record) {
    return isUnset(record.viewerPath);
}

bool declineViewer(SettingsRecord& record, PathGlobals& paths, Services& services) {
    setPathField(record, paths, &SettingsRecord::viewerPath, "NO");
    return saveSettings(record, paths, services);
}

ViewerOutcome acceptViewerPath(std::string_view text, SettingsRecord& record, PathGlobals& paths,
                               Services& services) {
    std::string typed = trimBlanks(text);
    // Where programs end in ".exe" the name tells; elsewhere a folder is no program either.
    if (kProgramsEndInExe ? !endsWithExe(typed) : services.fs.isFolder(typed)) {
        services.dialogs.report(std::string(kChooseProgramText), Icon::Stop);
        return ViewerOutcome::Stay;
    }
    if (!typed.empty() && isPathSeparator(typed.back())) typed.pop_back();
    if (!services.fs.isFile(typed)) {
        services.dialogs.report(invalidPathText(kViewerExample), Icon::Stop);
        return ViewerOutcome::Stay;
    }
    if (!kProgramsEndInExe && !isProgramFile(services.fs.resolve(typed))) {
        services.dialogs.report(std::string(kChooseProgramText), Icon::Stop);
        return ViewerOutcome::Stay;
    }
    setPathField(record, paths, &SettingsRecord::viewerPath, services.fs.resolve(typed));
    (void)saveSettings(record, paths, services);
    return isUnset(record.screenshotsPath) ? ViewerOutcome::CloseAndAskScreenshots
                                           : ViewerOutcome::Close;
}

std::string screenshotsStartFolder(const SettingsRecord& record, const PathGlobals& paths,
                                   FileSystem& fs) {
    if (!isUnset(record.screenshotsPath)) return trimmedValue(record.screenshotsPath);
    const std::string pictures = joinPath(paths.programFolder, "Pics");
    return fs.isFolder(pictures) ? fs.resolve(pictures) : rootFolder();
}

WindowOutcome acceptScreenshotsPath(std::string_view text, SettingsRecord& record,
                                    PathGlobals& paths, Services& services) {
    const std::string typed = trimBlanks(text);
    if (!services.fs.isFolder(typed)) {
        services.dialogs.report(invalidPathText(kViewerExample), Icon::Stop);
        return WindowOutcome::Stay;
    }
    setPathField(record, paths, &SettingsRecord::screenshotsPath, services.fs.resolve(typed));
    (void)saveSettings(record, paths, services);
    return WindowOutcome::Close;
}

bool cancelScreenshotsPath(SettingsRecord& record, PathGlobals& paths, Services& services) {
    if (isUnset(record.viewerPath)) return false;
    // "NO" has no folder: the screenshots folder stays unset.
    const std::string viewerFolder = parentPath(trimmedValue(record.viewerPath));
    if (viewerFolder.empty()) return false;
    setPathField(record, paths, &SettingsRecord::screenshotsPath, viewerFolder);
    return saveSettings(record, paths, services);
}

bool acceptAliasWarning(bool doNotShowAgain, SettingsRecord& record, const PathGlobals& paths,
                        Services& services) {
    if (!doNotShowAgain || record.showAliasWarning != 0) return false;
    record.showAliasWarning = 1;
    return saveSettings(record, paths, services);
}

}  // namespace rakeyard
