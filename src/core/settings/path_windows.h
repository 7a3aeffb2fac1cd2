#pragma once
#include <string>
#include <string_view>

#include "core/platform/services.h"
#include "core/settings/settings_record.h"

namespace rakeyard {

// The logic of the small windows that fill the settings record: frmPath, Defeditor, frmEditor,
// SFVOption, frm3DViewer, frmScrshots and the aliasing warning Dialog. Each takes the text of
// the window's box, changes the record and the globals, writes settings.bin into
// paths.programFolder (a failed write is told to the user) and says what the window does next.
// Refusals are told through services.dialogs with the window's own texts.

enum class WindowOutcome { Stay, Close };

// frmPath: the folder it opens on: the stored MSTS path, or the root when none is stored.
std::string mstsPathStartFolder(const SettingsRecord& record);
// frmPath OK. A text that names no folder that can be entered (missing, a file, no access) is
// refused with "Invalid folder!", a folder without TRAINS/TRAINSET with "Cannot find MSTS...";
// nothing is stored then. Otherwise the MSTS, Consists, Trainset and Sound paths are set from it
// and written.
WindowOutcome acceptMstsPath(std::string_view text, SettingsRecord& record, PathGlobals& paths,
                             Services& services);
enum class PathCancelOutcome { Close, EndProgram };
// frmPath Cancel: with an empty box the program ends at once, else the window closes. Nothing
// is written either way.
PathCancelOutcome cancelMstsPath(std::string_view text);

// Defeditor's Wordpad box: the editor becomes defaultEditorPath(). True when written.
bool chooseDefaultEditor(SettingsRecord& record, PathGlobals& paths, Services& services);

// frmEditor OK: the text must name an existing file.
WindowOutcome acceptEditorPath(std::string_view text, SettingsRecord& record, PathGlobals& paths,
                               Services& services);

// SFVOption's yes box: true when frm3DViewer must be shown, the viewer path being unset.
bool viewerWindowNeeded(const SettingsRecord& record);
// SFVOption's no box: the viewer path becomes "NO". True when written.
bool declineViewer(SettingsRecord& record, PathGlobals& paths, Services& services);

enum class ViewerOutcome {
    Stay,
    Close,                   // the viewer is set: the 3D view button is enabled
    CloseAndAskScreenshots,  // as Close, and frmScrshots is shown: no screenshots folder yet
};
// frm3DViewer OK: the text must end in ".EXE" (any case) and name an existing file.
ViewerOutcome acceptViewerPath(std::string_view text, SettingsRecord& record, PathGlobals& paths,
                               Services& services);

// frmScrshots: the folder it opens on: the stored path; when unset the program's Pics folder;
// when that is missing the root.
std::string screenshotsStartFolder(const SettingsRecord& record, const PathGlobals& paths,
                                   FileSystem& fs);
// frmScrshots OK: the trimmed text must name an existing folder.
WindowOutcome acceptScreenshotsPath(std::string_view text, SettingsRecord& record,
                                    PathGlobals& paths, Services& services);
// frmScrshots Cancel: with a viewer set, the screenshots go to the viewer's folder. True when
// that was written.
bool cancelScreenshotsPath(SettingsRecord& record, PathGlobals& paths, Services& services);

// The warning Dialog that frmAlias shows while "Show alias warning" is 0.
inline constexpr std::string_view kAliasWarningText =
    "WARNING: This option will modify the selected engine in the list \"Engine to alias\". "
    "It's advisable to leave the backup option checked. The existing cab and sound definition "
    "files will be replaced by the new ones. For more information see the Help file under the "
    "topic Aliasing ";
// Its OK: a ticked box turns the warning off for good (0 becomes 1). True when written.
bool acceptAliasWarning(bool doNotShowAgain, SettingsRecord& record, const PathGlobals& paths,
                        Services& services);

}  // namespace rakeyard
