// deps_bench: the dependency tree of one route against the floor of the files it touches.
//
//   deps_bench MSTS_FOLDER [ROUTE [RUNS]]
//
// ROUTE is a route's display name (default "Bench Route", which make_installation writes). A
// first run records every file the scan reads and every file whose size it looks up; the floor
// then reads each of those files whole once and sizes each looked-up one once. The scan runs as
// `deps ROUTE` does: the routes listed, then the route read. It runs twice: with the file
// system's listings of folders kept from the run before, as the CLI has them after reading the
// catalogues at start-up and the window after its first scan; and with a fresh file system,
// which lists each folder it resolves a name in. The contenders take turns RUNS times
// (default 5) with the file cache warm; the medians of wall and CPU time count.
#include <cstdio>
#include <filesystem>
#include <memory>
#include <set>
#include <string>

#include "bench_support.h"
#include "core/app/app_state.h"
#include "core/msts/route_deps.h"
#include "core/platform/local_file_system.h"
#include "core/platform/services.h"

namespace {

using namespace rakeyard;
using namespace rakeyard::bench;

// The local file system, noting what the scan reads and sizes.
class RecordingFileSystem : public LocalFileSystem {
public:
    std::vector<std::string> read, sized;

    ReadOutcome readFileInto(const std::string& path, std::uintmax_t limit,
                             std::string& bytes) override {
        read.push_back(resolve(path));
        return LocalFileSystem::readFileInto(path, limit, bytes);
    }
    std::optional<std::uintmax_t> fileSize(const std::string& path) override {
        sized.push_back(resolve(path));
        return LocalFileSystem::fileSize(path);
    }
};

std::size_t scanRoute(AppState& state, FileSystem& fs, const std::string& route) {
    QuietServices quiet(fs);
    Services& services = quiet.services;
    DependencyScan scan;
    (void)getRoutes(state.paths, state.routes, services, scan.stopFlag);
    scanOne(state.paths, state.routes, route, scan, services);
    return scan.tree.size();
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 2) {
        std::fputs("usage: deps_bench MSTS_FOLDER [ROUTE [RUNS]]\n", stderr);
        return 2;
    }
    const std::string msts = std::filesystem::absolute(argv[1]).lexically_normal().string();
    const std::string route = argc > 2 ? argv[2] : "Bench Route";
    const int runs = argc > 3 ? std::max(1, std::stoi(argv[3])) : 5;
    auto state = std::make_unique<AppState>();
    setBenchPaths(state->paths, msts, std::filesystem::temp_directory_path().string());

    RecordingFileSystem recorder;
    const std::size_t nodes = scanRoute(*state, recorder, route);
    const std::size_t reads = recorder.read.size(), sizes = recorder.sized.size();
    keepFirst(recorder.read);
    keepFirst(recorder.sized);
    std::size_t bytes = 0;
    LocalFileSystem kept;
    (void)scanRoute(*state, kept, route);
    std::vector<Timings> contenders = {
        {"floor", [&] { bytes = readAndSize(recorder.read, recorder.sized); }},
        {"deps", [&] { (void)scanRoute(*state, kept, route); }},
        {"deps, fresh",
         [&] {
             LocalFileSystem fresh;
             (void)scanRoute(*state, fresh, route);
         }},
    };
    std::printf("installation: %s, route: %s\n", msts.c_str(), route.c_str());
    runAndPrint(contenders, runs, false);
    std::printf(
        "nodes: %zu; files read: %zu (%zu different); sizes looked up: %zu (%zu "
        "different); bytes: %zu\n",
        nodes, reads, recorder.read.size(), sizes, recorder.sized.size(), bytes);
    return 0;
}
