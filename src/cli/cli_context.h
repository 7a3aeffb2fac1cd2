#pragma once
#include <memory>
#include <string>

#include "cli/cli_options.h"
#include "cli/terminal_services.h"
#include "core/app/app_state.h"
#include "core/platform/local_desktop.h"
#include "core/platform/local_file_system.h"
#include "core/platform/services.h"

namespace rakeyard::cli {

// What a command works with: the shared state, the terminal's services and the options.
class CliContext {
public:
    explicit CliContext(GlobalOptions options);
    CliContext(const CliContext&) = delete;
    CliContext& operator=(const CliContext&) = delete;

    // The start-up's data steps every command runs first: the program's folder, the paths given
    // by --msts, --editor and --viewer, then initProg (Reports made, StartErrors.txt deleted,
    // both catalogues read). kExitDone, or the status to end with when there is no usable MSTS
    // folder or an option was refused.
    [[nodiscard]] int startUp();
    // Clears the progress bar's line; run before printing results on stdout.
    void endProgress() { progress.clearLine(); }

    GlobalOptions options;
    std::unique_ptr<AppState> state = std::make_unique<AppState>();
    LocalFileSystem fs;
    TerminalProgress progress;
    TerminalDialogs dialogs;
    LocalDesktop desktop;
    Services services{fs, dialogs, progress, desktop};
};

}  // namespace rakeyard::cli
