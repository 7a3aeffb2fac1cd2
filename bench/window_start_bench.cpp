// window_start_bench: the window program from launch until its main window stands drawn, against
// the CLI's whole catalogue load on the same installation.
//
//   xvfb-run -a window_start_bench MSTS_FOLDER [RUNS [WINDOW_PROGRAM CLI_PROGRAM]]
//
// The programs default to those of this build; others (an earlier build's) can be compared.
// A program folder made for the bench names MSTS_FOLDER, an editor and no viewer, so that start-up
// asks nothing. Each run launches `rakeyard` and watches the X server: the main window's map, and
// the first drawing into it (the Damage extension), which is when a user can see and use it.
// Nothing polls the screen, so the watch takes no processor time from the program. Then it runs
// `rakeyard-cli catalogue engines`, whole. One warm-up run each; RUNS (default 7) taking turns,
// medians count.
#include <QCoreApplication>
#include <QProcess>
#include <QThread>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <optional>
#include <string>

#include "bench_support.h"
#include "core/platform/local_file_system.h"
#include "core/settings/path_windows.h"
#include "core/settings/settings_file.h"

// Last: X's headers define words such as None as macros.
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/Xdamage.h>

namespace {

using namespace rakeyard;
using namespace rakeyard::bench;

constexpr double kGiveUpSeconds = 60;

double secondsSince(Clock::time_point start) {
    return std::chrono::duration<double>(Clock::now() - start).count();
}

// The bench's program folder: settings.bin names the installation, an editor and no viewer.
bool prepareHome(const std::string& home, const std::string& msts) {
    std::filesystem::create_directories(home);
    LocalFileSystem fs;
    QuietServices quiet(fs);
    Services& services = quiet.services;
    PathGlobals paths;
    paths.programFolder = home;
    SettingsRecord record = readSettings(fs, home);
    return acceptMstsPath(msts, record, paths, services) == WindowOutcome::Close &&
           acceptEditorPath(RAKEYARD_CLI_PROGRAM, record, paths, services) ==
               WindowOutcome::Close &&
           declineViewer(record, paths, services);
}

struct WindowTimes {
    double mapped = 0;
    double drawn = 0;
};

// Watches the X server for the main window of a program launched after open().
class MainWindowWatch {
public:
    ~MainWindowWatch() {
        if (display_) XCloseDisplay(display_);
    }
    bool open() {
        display_ = XOpenDisplay(nullptr);
        int errorBase = 0;
        if (!display_ || !XDamageQueryExtension(display_, &damageEvent_, &errorBase)) return false;
        int major = 1, minor = 1;
        XDamageQueryVersion(display_, &major, &minor);
        XSelectInput(display_, DefaultRootWindow(display_), SubstructureNotifyMask);
        XSync(display_, False);
        return true;
    }

    // Launches the program and waits for its main window's map and first large drawing. A
    // message box on the way (start-up found faults, or a path is wrong) is named in blocked.
    std::optional<WindowTimes> launch(QProcess& program, const QString& path,
                                      const QStringList& arguments, std::string& blocked) {
        XSync(display_, True);  // events of earlier runs are dropped
        const Clock::time_point start = Clock::now();
        program.start(path, arguments);
        WindowTimes times;
        Window main = 0;
        while (secondsSince(start) < kGiveUpSeconds) {
            if (XPending(display_) == 0) {
                QThread::usleep(200);
                continue;
            }
            XEvent event;
            XNextEvent(display_, &event);
            if (event.type == MapNotify && main == 0) {
                const std::string name = windowName(event.xmap.window);
                if (name.rfind("Rake Yard", 0) == 0) {
                    main = event.xmap.window;
                    times.mapped = secondsSince(start);
                    // Freed with the window, when the program ends.
                    XDamageCreate(display_, main, XDamageReportRawRectangles);
                    XFlush(display_);
                } else if (!name.empty()) {
                    blocked = name;
                    return std::nullopt;
                }
            } else if (main != 0 && event.type == damageEvent_ + XDamageNotify) {
                const auto& drawn = reinterpret_cast<const XDamageNotifyEvent&>(event);
                if (drawn.area.width < 200 || drawn.area.height < 200) continue;
                times.drawn = secondsSince(start);
                return times;
            }
        }
        return std::nullopt;
    }

private:
    std::string windowName(Window window) {
        char* name = nullptr;
        if (!XFetchName(display_, window, &name) || !name) return {};
        std::string text = name;
        XFree(name);
        return text;
    }

    Display* display_ = nullptr;
    int damageEvent_ = 0;
};

struct Programs {
    QString window = RAKEYARD_GUI_PROGRAM;
    QString cli = RAKEYARD_CLI_PROGRAM;
};

double runCli(const Programs& programs, const QStringList& arguments) {
    QProcess cli;
    cli.setStandardOutputFile(QProcess::nullDevice());
    cli.setStandardErrorFile(QProcess::nullDevice());
    const Clock::time_point start = Clock::now();
    cli.start(programs.cli, arguments);
    cli.waitForFinished(-1);
    return secondsSince(start);
}

std::optional<WindowTimes> runWindow(MainWindowWatch& watch, const Programs& programs,
                                     const QStringList& arguments, std::string& blocked) {
    QProcess window;
    window.setStandardOutputFile(QProcess::nullDevice());
    window.setStandardErrorFile(QProcess::nullDevice());
    const std::optional<WindowTimes> times = watch.launch(window, programs.window, arguments, blocked);
    window.kill();
    window.waitForFinished(-1);
    return times;
}

}  // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    if (argc < 2) {
        std::fprintf(stderr,
                     "usage: window_start_bench MSTS_FOLDER [RUNS [WINDOW_PROGRAM CLI_PROGRAM]]\n");
        return 2;
    }
    const std::string msts = std::filesystem::absolute(argv[1]).lexically_normal().string();
    const int runs = argc > 2 ? std::max(1, std::atoi(argv[2])) : 7;
    Programs programs;
    if (argc > 4) {
        programs.window = argv[3];
        programs.cli = argv[4];
    }
    MainWindowWatch watch;
    if (!watch.open()) {
        std::fprintf(stderr, "No X display with the Damage extension: run under xvfb-run -a.\n");
        return 2;
    }
    const std::string home =
        (std::filesystem::temp_directory_path() / "rakeyard_window_start_bench").string();
    if (!prepareHome(home, msts)) {
        std::fprintf(stderr, "%s is not an MSTS folder with TRAINS/TRAINSET.\n", msts.c_str());
        return 2;
    }
    const QStringList windowArguments{"--home", QString::fromStdString(home)};
    const QStringList cliArguments = windowArguments + QStringList{"catalogue", "engines"};

    std::vector<double> load, mapped, drawn;
    for (int i = 0; i <= runs; ++i) {  // the first run of each warms the caches and is dropped
        std::string blocked;
        const std::optional<WindowTimes> window =
            runWindow(watch, programs, windowArguments, blocked);
        if (!blocked.empty()) {
            std::fprintf(stderr,
                         "Start-up showed \"%s\" before the main window: the bench needs an "
                         "installation whose units load without findings (make_installation's).\n",
                         blocked.c_str());
            return 1;
        }
        if (!window) {
            std::fprintf(stderr, "The main window was not drawn within %.0f s.\n", kGiveUpSeconds);
            return 1;
        }
        const double cli = runCli(programs, cliArguments);
        if (i == 0) continue;
        load.push_back(cli);
        mapped.push_back(window->mapped);
        drawn.push_back(window->drawn);
    }
    const double loadTime = median(load);
    const double drawnTime = median(drawn);
    std::printf("median of %d runs each, taking turns:\n", runs);
    std::printf("  rakeyard-cli catalogue engines  %.3f s\n", loadTime);
    std::printf("  main window mapped              %.3f s\n", median(mapped));
    std::printf("  main window drawn               %.3f s  (the load + %.3f s)\n", drawnTime,
                drawnTime - loadTime);
    return 0;
}
