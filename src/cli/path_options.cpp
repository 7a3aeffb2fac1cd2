#include "cli/path_options.h"

#include <filesystem>

#include "core/settings/path_windows.h"
#include "core/settings/settings_file.h"

namespace rakeyard::cli {
namespace {

// The windows give whole paths: one given relative to the working folder is made whole, without
// a separator at its end.
std::string wholePath(const std::string& given) {
    std::error_code error;
    std::string path = std::filesystem::absolute(given, error).lexically_normal().string();
    while (path.size() > 1 && path.back() == '/')
        path.pop_back();
    return error ? given : path;
}

}  // namespace

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
