// tester_window_bench: the tester window's run against the same run without a window.
//
//   tester_window_bench MSTS_FOLDER [RUNS]
//
// The catalogue is read once. Each run tests every engine with its cab view and sounds and the
// duplicate check: once through the core with no window, as the CLI does, and once in the
// window "Test units" (offscreen), pressed as a user would: "&Engines", "Check all", the three
// options, "Start test". The window lets its events run and shows its lists of tested files
// every few tens of milliseconds, and lists them whole at the end. The two take turns RUNS
// times (default 3); the medians of wall time count.
#include <QApplication>
#include <QCheckBox>
#include <QPushButton>
#include <cstdio>
#include <filesystem>
#include <memory>

#include "bench_support.h"
#include "core/app/app_state.h"
#include "core/msts/catalogue_reader.h"
#include "core/platform/local_file_system.h"
#include "core/tester/test_run.h"
#include "ui/windows/frmDiag.h"

namespace {

using namespace rakeyard;
using namespace rakeyard::bench;

std::size_t testWithoutWindow(AppState& state, Services& services) {
    NoYield host;
    const TestContext context{state.paths, state.catalogue, services, host};
    TestRun run;
    (void)fillSection(run, context, TestSection::Engines, "All");
    selectAllRows(run, true);
    run.cabViews = run.sounds = run.duplicates = true;
    (void)runTests(run, context);
    return run.testedShapes.size() + run.testedSounds.size();
}

std::size_t testInWindow(AppState& state, Services& services) {
    ui::frmDiag window(state, services);
    window.show();
    window.Command1[0]->click();
    window.cmdCheckAll->click();
    for (QCheckBox* box : {window.Check1, window.Check2, window.Check3})
        box->setChecked(true);
    window.cmdTest->click();
    return window.run().testedShapes.size() + window.run().testedSounds.size();
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 2) {
        std::fputs("usage: tester_window_bench MSTS_FOLDER [RUNS]\n", stderr);
        return 2;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    const std::string msts = std::filesystem::absolute(argv[1]).lexically_normal().string();
    const int runs = argc > 2 ? std::max(1, std::stoi(argv[2])) : 3;
    const std::filesystem::path home =
        std::filesystem::temp_directory_path() / "rakeyard-tester-window-bench";
    std::filesystem::create_directories(home / "Reports");

    auto state = std::make_unique<AppState>();
    setBenchPaths(state->paths, msts, home.string());
    LocalFileSystem fs;
    QuietServices quiet(fs);
    Services& services = quiet.services;
    readEngineFiles(state->paths, state->catalogue, services, false, 0);

    std::size_t rows = 0;
    std::vector<Timings> contenders = {
        {"no window", [&] { rows = testWithoutWindow(*state, services); }},
        {"window", [&] { (void)testInWindow(*state, services); }},
    };
    runAndPrint(contenders, runs, false);
    std::filesystem::remove_all(home);
    std::printf("engines: %zu; rows in the tested lists: %zu\n", state->catalogue.engineCount,
                rows);
    return 0;
}
