#include "cli/path_options.h"

#include "core/platform/paths.h"
#include "core/settings/path_windows.h"
#include "core/settings/settings_file.h"

namespace rakeyard::cli {

bool applyPathOptions(const GlobalOptions& options, PathGlobals& paths, Services& services) {
    if (!options.msts && !options.editor && !options.viewer) return true;
    SettingsRecord record = readSettings(services.fs, paths.programFolder);
    if (options.msts &&
        acceptMstsPath(wholePath(*options.msts), record, paths, services) == WindowOutcome::Stay)
        return false;
    if (options.editor && acceptEditorPath(wholePath(*options.editor), record, paths, services) ==
                              WindowOutcome::Stay)
        return false;
    if (options.viewer) {
        if (*options.viewer == "NO" || *options.viewer == "no")
            return declineViewer(record, paths, services);
        if (acceptViewerPath(wholePath(*options.viewer), record, paths, services) ==
            ViewerOutcome::Stay)
            return false;
    }
    return true;
}

}  // namespace rakeyard::cli
