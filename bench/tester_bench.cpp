// tester_bench: "test engines --duplicates" against the floor of the files it touches.
//
//   tester_bench MSTS_FOLDER [RUNS] [--all]
//
// The catalogue is read once. The run tests every engine under "All" with the duplicate check,
// writing its reports into a temporary program folder, through the core as the CLI does. A
// first run records every file the test reads and every file whose size it looks up; the floor
// then reads each of those files whole once and sizes each looked-up one once, on one thread. The two take turns RUNS times (default 5) with the file cache warm, and the
// medians of wall and CPU time count. The test runs on one thread and on all cores, as the
// CLI and the window run it.
//
// With --all the run tests the engines with their cab views and sounds, then the wagons with
// their sounds, both with the duplicate check; its floor replays every open (the file read
// whole each time) and every size lookup in the order the run made them, as cab views and
// sound definitions named by several units are read again for each.
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
    std::vector<std::string> read, sized;  // in the order asked, repeats kept

    ReadOutcome readFileInto(const std::string& path, std::uintmax_t limit,
                             std::string& bytes) override {
        note(read, path);
        return LocalFileSystem::readFileInto(path, limit, bytes);
    }
    std::optional<std::uintmax_t> fileSize(const std::string& path) override {
        note(sized, path);
        return LocalFileSystem::fileSize(path);
    }

private:
    // The tests run on several threads.
    void note(std::vector<std::string>& paths, const std::string& path) {
        if (!recording) return;
        std::lock_guard lock(mutex_);
        paths.push_back(path);
    }
    std::mutex mutex_;
};

// A host that lets no worker run: the run on one thread.
class OneThread : public TestHost {
public:
    void yield() override {}
};

long long testSection(AppState& state, Services& services, TestSection section, bool all,
                      bool cores) {
    NoYield onCores;
    OneThread oneThread;
    TestHost& host = cores ? static_cast<TestHost&>(onCores) : oneThread;
    const TestContext context{state.paths, state.catalogue, services, host};
    TestRun run;
    (void)fillSection(run, context, section, "All");
    selectAllRows(run, true);
    run.duplicates = true;
    run.cabViews = all;
    run.sounds = all;
    (void)runTests(run, context);
    return run.counts.errorCount;
}

long long testAll(AppState& state, Services& services, bool all, bool cores = true) {
    long long errors = testSection(state, services, TestSection::Engines, all, cores);
    if (all) errors += testSection(state, services, TestSection::Wagons, all, cores);
    return errors;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 2) {
        std::fputs("usage: tester_bench MSTS_FOLDER [RUNS]\n", stderr);
        return 2;
    }
    const std::string msts = std::filesystem::absolute(argv[1]).lexically_normal().string();
    const int runs = argc > 2 ? std::max(1, std::stoi(argv[2])) : 5;
    const bool all = argc > 3 && std::string(argv[3]) == "--all";
    const std::filesystem::path home =
        std::filesystem::temp_directory_path() / "rakeyard-tester-bench";
    std::filesystem::create_directories(home / "Reports");

    auto state = std::make_unique<AppState>();
    setBenchPaths(state->paths, msts, home.string());
    RecordingFileSystem fs;
    QuietServices quiet(fs);
    Services& services = quiet.services;
    readEngineFiles(state->paths, state->catalogue, services, false, 0);
    if (all) readWagonFiles(state->paths, state->catalogue, services, false, 0);

    fs.recording = true;
    const long long errors = testAll(*state, services, all);
    fs.recording = false;
    if (!all) {
        keepFirst(fs.read);
        keepFirst(fs.sized);
    }
    std::size_t bytes = 0;
    std::vector<Timings> contenders = {
        {"floor, 1 thread", [&] { bytes = readAndSize(fs.read, fs.sized); }},
        {"test, 1 thread", [&] { (void)testAll(*state, services, all, false); }},
        {"test, all cores", [&] { (void)testAll(*state, services, all); }},
    };
    std::printf("installation: %s\n", msts.c_str());
    runAndPrint(contenders, runs, false);
    std::filesystem::remove_all(home);
    std::printf("engines: %zu; wagons: %zu; files read: %zu; files sized: %zu; bytes: %zu; "
                "errors: %lld\n",
                state->catalogue.engineCount, all ? state->catalogue.wagonCount : 0,
                fs.read.size(), fs.sized.size(), bytes, errors);
    return 0;
}
