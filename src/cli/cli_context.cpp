#include "cli/cli_context.h"

#include "cli/path_options.h"
#include "core/app/start_up.h"
#include "core/platform/system.h"
#include "core/platform/program_folder.h"

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
      progress(sys::isTerminal(stderr)),
      dialogs(options.answer, stderr) {
    dialogs.setBeforeMessage(&progress);
}

int CliContext::startUp() {
    const std::string folder = programFolder(options.home);
    if (!fs.isFolder(folder)) {
        dialogs.report("The program's folder " + folder + " can't be made.", Icon::Stop);
        return kExitUsage;
    }
    state->paths.programFolder = folder;
    if (!applyPathOptions(options, state->paths, services)) return kExitUsage;

    TerminalStartUpWindows windows(dialogs);
    const StartUpResult result = initProg(*state, services, windows);
    endProgress();
    return result == StartUpResult::Ready ? kExitDone : kExitUsage;
}

}  // namespace rakeyard::cli
