// deps_window_bench: the window "Dependencies" filling its tree, against the same scan without
// a window.
//
//   deps_window_bench MSTS_FOLDER [ROUTE [RUNS]]
//
// ROUTE is a route's display name (default "Bench Route"). Each run opens the window
// (offscreen), chooses the route and presses "&Start" as a user would; the window lets its
// events run while it reads, then shows the tree with the way to each missing unit open. A
// second contender also presses "Expand tree". The scan through the core alone is the first
// contender, so the ratios show what the window adds. RUNS defaults to 3; medians count.
#include <QApplication>
#include <QComboBox>
#include <QPushButton>
#include <cstdio>
#include <filesystem>
#include <memory>

#include "bench_support.h"
#include "core/app/app_state.h"
#include "core/msts/route_deps.h"
#include "core/platform/local_file_system.h"
#include "ui/windows/frmDep1.h"
#include "ui/windows/qt_services.h"

namespace {

using namespace rakeyard;
using namespace rakeyard::bench;

std::size_t scanWithoutWindow(AppState& state, Services& services, const std::string& route) {
    DependencyScan scan;
    (void)getRoutes(state.paths, state.routes, services, scan.stopFlag);
    scanOne(state.paths, state.routes, route, scan, services);
    return scan.tree.size();
}

std::size_t scanInWindow(AppState& state, Services& services, const std::string& route,
                         bool expand) {
    ui::frmDep1 window(state, services);
    window.show();
    const int row = window.Combo1->findText(QString::fromStdString(route));
    window.Combo1->setCurrentIndex(row);
    Q_EMIT window.Combo1->activated(row);
    window.Command1[1]->click();
    if (expand) window.Command2->click();
    return window.scan().tree.size();
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 2) {
        std::fputs("usage: deps_window_bench MSTS_FOLDER [ROUTE [RUNS]]\n", stderr);
        return 2;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    const std::string msts = std::filesystem::absolute(argv[1]).lexically_normal().string();
    const std::string route = argc > 2 ? argv[2] : "Bench Route";
    const int runs = argc > 3 ? std::max(1, std::stoi(argv[3])) : 3;
    const std::filesystem::path home =
        std::filesystem::temp_directory_path() / "rakeyard-deps-window-bench";
    std::filesystem::create_directories(home);

    auto state = std::make_unique<AppState>();
    setBenchPaths(state->paths, msts, home.string());
    LocalFileSystem fs;
    OkDialogs dialogs;
    ui::QtProgress progress;
    NoDesktop desktop;
    Services services{fs, dialogs, progress, desktop};

    std::size_t nodes = 0;
    std::vector<Timings> contenders = {
        {"no window", [&] { nodes = scanWithoutWindow(*state, services, route); }},
        {"window", [&] { (void)scanInWindow(*state, services, route, false); }},
        {"window, expanded", [&] { (void)scanInWindow(*state, services, route, true); }},
    };
    runAndPrint(contenders, runs, false);
    std::filesystem::remove_all(home);
    std::printf("nodes in the tree: %zu\n", nodes);
    return 0;
}
