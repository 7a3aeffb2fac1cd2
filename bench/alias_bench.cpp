// alias_bench: how long the aliasing window's lists take to build, against the floor of the same
// reads.
//
//   alias_bench MSTS_FOLDER [RUNS]
//
// The engine catalogue is read first (not timed). The lists are buildAliasLists through the
// core with the local file system. The floor opens, for each catalogued engine, the files the
// lists look at (the first ".cvf" of CABVIEW, or the ".eng" when there is no CABVIEW; the first
// two ".sms" of SOUND), reads them whole on one thread and does nothing else. The two take turns
// RUNS times (default 3) with the file cache warm, and the medians count.
#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

#include "core/alias/alias_lists.h"
#include "core/app/app_state.h"
#include "core/msts/catalogue_reader.h"
#include "core/platform/local_file_system.h"
#include "core/platform/services.h"
#include "bench_support.h"

namespace {

namespace fs = std::filesystem;
using namespace rakeyard::bench;

bool hasExtension(const fs::path& path, const char* upper) {
    std::string extension = path.extension().string();
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    return extension == upper;
}

// The files of a folder with the extension, sorted, at most `count` of them.
std::vector<fs::path> firstFiles(const fs::path& folder, const char* extension, std::size_t count) {
    std::vector<fs::path> files;
    std::error_code ec;
    for (const auto& entry : fs::directory_iterator(folder, ec))
        if (entry.is_regular_file() && hasExtension(entry.path(), extension))
            files.push_back(entry.path());
    std::sort(files.begin(), files.end());
    files.resize(std::min(files.size(), count));
    return files;
}

std::size_t readWhole(const fs::path& path) {
    std::vector<char> bytes;
    return rakeyard::bench::readWhole(path.string(), bytes) ? bytes.size() : 0;
}

std::size_t readFloor(const rakeyard::UnitCatalogue& catalogue) {
    std::size_t bytes = 0;
    for (const rakeyard::EngineRecord& engine :
         rakeyard::usedRecords(catalogue, rakeyard::UnitClass::Engine)) {
        const fs::path folder = engine.folderPath;
        if (fs::is_directory(folder / "CABVIEW")) {
            for (const fs::path& cab : firstFiles(folder / "CABVIEW", ".CVF", 1))
                bytes += readWhole(cab);
        } else {
            bytes += std::ifstream(folder / engine.fileName).is_open() ? 1 : 0;
        }
        for (const fs::path& sound : firstFiles(folder / "SOUND", ".SMS", 2))
            bytes += readWhole(sound);
    }
    return bytes;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 2) {
        std::fputs("usage: alias_bench MSTS_FOLDER [RUNS]\n", stderr);
        return 2;
    }
    const std::string msts = fs::absolute(argv[1]).lexically_normal().string();
    const int runs = argc > 2 ? std::max(1, std::stoi(argv[2])) : 3;
    const fs::path home = fs::temp_directory_path() / "rakeyard-alias-bench";
    fs::create_directories(home / "Reports");

    auto state = std::make_unique<rakeyard::AppState>();
    state->paths.programFolder = home.string();
    state->paths.mstsPath = msts;
    state->paths.trainsetPath = msts + "/TRAINS/TRAINSET";
    rakeyard::LocalFileSystem fileSystem;
    QuietServices quiet(fileSystem);
    rakeyard::Services& services = quiet.services;
    rakeyard::readEngineFiles(state->paths, state->catalogue, services, false);

    std::size_t bytes = readFloor(state->catalogue);  // warms the file cache
    rakeyard::AliasLists lists;
    std::vector<Timings> contenders = {
        {"floor, 1 thread", [&] { bytes = readFloor(state->catalogue); }},
        {"buildAliasLists", [&] {
             rakeyard::LocalFileSystem fresh;  // no folder listings kept from the run before
             QuietServices measured(fresh);
             lists = rakeyard::buildAliasLists(state->catalogue, measured.services);
         }},
    };
    std::printf("installation: %s\n", msts.c_str());
    runAndPrint(contenders, runs, false);
    std::printf("engines: %zu; to alias %zu, cab sources %zu, sound sources %zu; floor read %zu "
                "bytes\n",
                state->catalogue.engineCount, lists.notAliased.size(), lists.cabSources.size() - 1,
                lists.soundSources.size() - 1, bytes);
    return 0;
}
