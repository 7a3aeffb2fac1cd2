#include "cli/cli_context.h"

#include <unistd.h>

#include <filesystem>

#include "cli/path_options.h"
#include "core/app/start_up.h"

namespace rakeyard::cli {
namespace {

// Start-up's windows on a terminal. The MSTS path window can't be shown: the folder comes from
// --msts, so start-up ends when it would be needed. The editor, viewer and screenshots windows
// are left to the window program.
class TerminalStartUpWindows : public StartUpWindows {
public:
    explicit TerminalStartUpWindows(Dialogs& dialogs) : dialogs_(dialogs) {}
    bool showPathWindow() override {
        dialogs_.report("No usable MSTS folder: give the main folder of MSTS with --msts DIR.",
                        Icon::Stop);
        return false;
    }
    void showDefaultEditorWindow() override {}
    void showViewerOptionWindow() override {}
    void showScreenshotsWindow() override {}

private:
    Dialogs& dialogs_;
};

}  // namespace

CliContext::CliContext(GlobalOptions globalOptions)
    : options(std::move(globalOptions)),
      progress(isatty(STDERR_FILENO) == 1),
      dialogs(options.answer, stderr) {
    dialogs.setBeforeMessage(&progress);
}

int CliContext::startUp() {
    namespace stdfs = std::filesystem;
    std::error_code error;
    const std::string home = options.home ? *options.home : defaultProgramFolder();
    stdfs::create_directories(home, error);
    if (!stdfs::is_directory(home, error)) {
        dialogs.report("The program's folder " + home + " can't be made.", Icon::Stop);
        return kExitUsage;
    }
    std::string folder = stdfs::absolute(home, error).lexically_normal().string();
    while (folder.size() > 1 && folder.back() == '/')
        folder.pop_back();
    state->paths.programFolder = folder;
    if (!applyPathOptions(options, state->paths, services)) return kExitUsage;

    TerminalStartUpWindows windows(dialogs);
    const StartUpResult result = initProg(*state, services, windows);
    endProgress();
    return result == StartUpResult::Ready ? kExitDone : kExitUsage;
}

}  // namespace rakeyard::cli
