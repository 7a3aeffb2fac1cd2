// tester_bench: "test engines --duplicates" against the floor of the files it touches.
//
//   tester_bench MSTS_FOLDER [RUNS]
//
// The catalogue is read once. The run tests every engine under "All" with the duplicate check,
// writing its reports into a temporary program folder, on one thread, through the core as the
// CLI does. A first run records every file the test reads and every file whose size it looks
// up; the floor then reads each of those files whole once and sizes each looked-up one once,
// on one thread. The two take turns RUNS times (default 5) with the file cache warm, and the
// medians of wall and CPU time count.
#include <cstdio>
#include <filesystem>
#include <memory>
#include <mutex>
#include <set>
#include <string>

#include "bench_support.h"
#include "core/app/app_state.h"
#include "core/msts/catalogue_reader.h"
#include "core/platform/local_file_system.h"
#include "core/platform/services.h"
#include "core/tester/test_run.h"

namespace {

using namespace rakeyard;
using namespace rakeyard::bench;

// The local file system, noting what the tester reads and sizes.
class RecordingFileSystem : public LocalFileSystem {
public:
    bool recording = false;
    std::set<std::string> read, sized;

    ReadOutcome readFileInto(const std::string& path, std::uintmax_t limit,
                             std::string& bytes) override {
        if (recording) read.insert(path);
        return LocalFileSystem::readFileInto(path, limit, bytes);
    }
    std::optional<std::uintmax_t> fileSize(const std::string& path) override {
        if (recording) sized.insert(path);
        return LocalFileSystem::fileSize(path);
    }
};

long long testAllEngines(AppState& state, Services& services) {
    NoYield host;
    const TestContext context{state.paths, state.catalogue, services, host};
    TestRun run;
    (void)fillSection(run, context, TestSection::Engines, "All");
    selectAllRows(run, true);
    run.duplicates = true;
    (void)runTests(run, context);
    return run.counts.errorCount;
}

std::size_t floorOf(const std::set<std::string>& read, const std::set<std::string>& sized) {
    std::vector<char> bytes;
    std::size_t total = 0;
    for (const std::string& path : read)
        if (readWhole(path, bytes)) total += bytes.size();
    for (const std::string& path : sized) {
        bool missing = false;
        total += static_cast<std::size_t>(sys::regularFileSize(path, missing).value_or(0));
    }
    return total;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 2) {
        std::fputs("usage: tester_bench MSTS_FOLDER [RUNS]\n", stderr);
        return 2;
    }
    const std::string msts = std::filesystem::absolute(argv[1]).lexically_normal().string();
    const int runs = argc > 2 ? std::max(1, std::stoi(argv[2])) : 5;
    const std::filesystem::path home =
        std::filesystem::temp_directory_path() / "rakeyard-tester-bench";
    std::filesystem::create_directories(home / "Reports");

    auto state = std::make_unique<AppState>();
    state->paths.programFolder = home.string();
    state->paths.mstsPath = msts;
    state->paths.trainsetPath = msts + "/TRAINS/TRAINSET";
    state->paths.consistsPath = msts + "/TRAINS/CONSISTS";
    state->paths.soundPath = msts + "/SOUND";
    state->paths.editorPath = "/bin/true";
    RecordingFileSystem fs;
    OkDialogs dialogs;
    NoProgress progress;
    NoDesktop desktop;
    Services services{fs, dialogs, progress, desktop};
    readEngineFiles(state->paths, state->catalogue, services, false, 0);

    fs.recording = true;
    const long long errors = testAllEngines(*state, services);
    fs.recording = false;
    std::size_t bytes = 0;
    std::vector<Timings> contenders = {
        {"floor, 1 thread", [&] { bytes = floorOf(fs.read, fs.sized); }},
        {"test, 1 thread", [&] { (void)testAllEngines(*state, services); }},
    };
    std::printf("installation: %s\n", msts.c_str());
    runAndPrint(contenders, runs, false);
    std::filesystem::remove_all(home);
    std::printf("engines: %zu; files read: %zu; files sized: %zu; bytes: %zu; errors: %lld\n",
                state->catalogue.engineCount, fs.read.size(), fs.sized.size(), bytes, errors);
    return 0;
}
