// tools_bench: how long the allocated space totals take, against the floor of listing the same
// folders and asking each file's size.
//
//   tools_bench MSTS_FOLDER [RUNS]
//
// The floor walks Trainset and Consists with std::filesystem on one thread and adds up every
// file's size, doing nothing else. allocatedSpace runs through the core with a fresh local file
// system each run (no folder listings kept). The two take turns RUNS times (default 3) with the
// file cache warm, and the medians count.
#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>

#include "bench_support.h"
#include "core/platform/local_file_system.h"
#include "core/tools/allocated_space.h"
#include "core/tools/consists_using.h"

namespace {

namespace fs = std::filesystem;
using namespace rakeyard::bench;

std::uintmax_t floorBytes(const fs::path& msts) {
    std::uintmax_t bytes = 0;
    std::error_code ec;
    for (const char* folder : {"TRAINS/TRAINSET", "TRAINS/CONSISTS"})
        for (const auto& entry : fs::recursive_directory_iterator(msts / folder, ec))
            if (entry.is_regular_file(ec)) bytes += entry.file_size(ec);
    return bytes;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 2) {
        std::fputs("usage: tools_bench MSTS_FOLDER [RUNS]\n", stderr);
        return 2;
    }
    const fs::path msts = fs::absolute(argv[1]).lexically_normal();
    const int runs = argc > 2 ? std::max(1, std::stoi(argv[2])) : 3;
    auto catalogue = std::make_unique<rakeyard::UnitCatalogue>();
    rakeyard::PathGlobals paths;
    paths.trainsetPath = (msts / "TRAINS/TRAINSET").string();
    paths.consistsPath = (msts / "TRAINS/CONSISTS").string();
    rakeyard::NoProgress progress;

    std::uintmax_t bytes = floorBytes(msts);  // warms the file cache
    rakeyard::SpaceTotals totals;
    std::vector<Timings> contenders = {
        {"floor, 1 thread", [&] { bytes = floorBytes(msts); }},
        {"allocatedSpace",
         [&] {
             rakeyard::LocalFileSystem fresh;
             totals = rakeyard::allocatedSpace(*catalogue, paths, fresh, progress);
         }},
    };
    std::printf("installation: %s\n", msts.c_str());
    runAndPrint(contenders, runs, false);
    std::printf(
        "floor bytes %ju; engines %ju, cab views %ju, sounds %ju, wagons %ju, "
        "consists %zu (%ju bytes)\n",
        bytes, std::uintmax_t(totals.engineBytes), std::uintmax_t(totals.cabBytes),
        std::uintmax_t(totals.soundBytes), std::uintmax_t(totals.wagonBytes), totals.consists,
        std::uintmax_t(totals.consistBytes));

    // The consists that name one unit: the whole Consists folder read and searched.
    rakeyard::UnitRecord unit;
    unit.fileName = "Wagon0042.wag";
    unit.folderName = "Folder0042";
    std::vector<std::string> users;
    std::vector<Timings> search = {
        {"floor, read all",
         [&] {
             std::vector<char> buffer;
             std::error_code ec;
             for (const auto& entry : fs::directory_iterator(msts / "TRAINS/CONSISTS", ec))
                 (void)readWhole(entry.path().string(), buffer);
         }},
        {"consistsUsingUnit",
         [&] {
             rakeyard::LocalFileSystem fresh;
             users = rakeyard::consistsUsingUnit(unit, paths.consistsPath, fresh);
         }},
    };
    runAndPrint(search, runs, false);
    std::printf("consists naming %s: %zu\n", unit.fileName.c_str(), users.size());
    return 0;
}
