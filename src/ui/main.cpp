// Main: the splash window, the main window, start-up, and a consist named on the command line.
#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QPointer>
#include <QStandardPaths>
#include <QStringList>
#include <string>
#include <string_view>

#include "core/app/start_up.h"
#include "core/platform/local_file_system.h"
#include "core/platform/program_folder.h"
#include "core/settings/settings_file.h"
#include "ui/windows/frmMain.h"
#include "ui/windows/frmSplash.h"
#include "ui/windows/qt_services.h"
#include "ui/windows/startup_windows.h"

using namespace rakeyard;
using namespace rakeyard::ui;

namespace {

struct ProgramArguments {
    QString home;         // --home DIR, when given first
    QString commandLine;  // the rest, as one text
};

ProgramArguments splitArguments(QStringList arguments) {
    ProgramArguments result;
    arguments.removeFirst();  // the program itself
    if (arguments.size() >= 2 && arguments[0] == "--home") {
        result.home = arguments[1];
        arguments.remove(0, 2);
    }
    result.commandLine = arguments.join(' ');
    return result;
}

// The program's folder as "--home DIR" names it, read before Qt starts. Only the reading ahead
// goes by it: start-up takes what was read only when it comes from the folder start-up reads.
std::string earlyProgramFolder(int argc, char** argv) {
    if (argc >= 3 && std::string_view(argv[1]) == "--home") return programFolder(argv[2]);
    return programFolder(std::nullopt);
}

}  // namespace

int main(int argc, char** argv) {
    LocalFileSystem fs;
    std::unique_ptr<AppState> state;  // outlives the reading ahead, which stores into it
    // The unit files are read on other threads while Qt starts and the windows are made.
    UnitFilesReadAtStart readAhead(earlyProgramFolder(argc, argv), fs);
    state = std::make_unique<AppState>();
    readAhead.fillInto(state->catalogue);

    QApplication app(argc, argv);
    QApplication::setApplicationName("Rakeyard");
    QApplication::setApplicationVersion(RAKEYARD_VERSION);
    const ProgramArguments arguments = splitArguments(QApplication::arguments());

    QtDesktop desktop;
    QtProgress progress;
    frmMain* mainWindow = nullptr;
    QtDialogs dialogs([&mainWindow]() -> QWidget* {
        if (QWidget* active = QApplication::activeModalWidget()) return active;
        return mainWindow && mainWindow->isVisible() ? mainWindow : nullptr;
    });
    Services services{fs, dialogs, progress, desktop};
    state->paths.programFolder = programFolder(
        arguments.home.isEmpty() ? std::nullopt : std::optional(stdString(arguments.home)));

    QApplication::setOverrideCursor(Qt::WaitCursor);
    QPointer<frmSplash> splash = new frmSplash();
    splash->setAttribute(Qt::WA_DeleteOnClose);
    splash->Label2->setText("Initializing...");
    splash->show();
    QCoreApplication::processEvents();
    progress.attach(splash->PBar1, splash->Label2);

    frmMain window(*state, services);
    mainWindow = &window;
    state->settings = readSettings(fs, state->paths.programFolder);
    window.placeFromSettings();
    const CommandLine commandLine = parseCommandLine(stdString(arguments.commandLine));
    state->debugMode = commandLine.debugMode;
    if (state->debugMode) progress.showDebug(true);

    const StartUpResult started =
        initProg(*state, services, window.startUpWindows(), &readAhead);
    progress.detach();
    if (splash) splash->close();
    progress.showDebug(false);
    QApplication::restoreOverrideCursor();
    if (started == StartUpResult::Ended) return 0;

    window.showUnitLists();
    window.showStoredOptions();
    window.refreshPics();
    window.showStartErrorsButton();
    window.show();
    if (!commandLine.consistToOpen.empty()) {
        QCoreApplication::processEvents();
        window.loadConsistFromCommandLine(commandLine.consistToOpen);
    }
    return app.exec();
}
