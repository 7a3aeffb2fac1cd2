// catalogue_bench: the catalogue load against the floor of reading the same files.
//
//   catalogue_bench MSTS_FOLDER [RUNS]
//
// The load is readUnitCatalogue through the core, with the local file system
// and no progress shown; the questions at the end are answered OK. It runs once on one thread
// and once on all cores. The floor is what any load must pay: it lists the folders one below
// Trainset, reads every ".eng" and ".wag" whole (open, fstat, one read, into a reused buffer)
// and decodes it to UTF-16 on one thread, and does nothing else. The three take turns, RUNS
// times (default 5) with the file cache warm, and the median of each counts: wall time and the
// process's CPU time (user + system) over the run. Prints the figures, the ratios to the floor
// and the process's peak memory after the first run of each (the contenders' peaks add up in
// that order, so each figure is at most its own).
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "core/app/app_state.h"
#include "core/msts/catalogue_reader.h"
#include "core/platform/local_file_system.h"
#include "core/platform/services.h"
#include "core/settings/settings_record.h"
#include "bench_support.h"

namespace {

using namespace rakeyard::bench;

bool isUnitFile(const std::filesystem::path& path) {
    std::string extension = path.extension().string();
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    return extension == ".ENG" || extension == ".WAG";
}

// The floor: every unit file one folder below Trainset listed, read whole and decoded. Returns
// the number of line ends seen, so that no work can be left out.
std::size_t readFloor(const std::filesystem::path& trainset) {
    std::vector<std::string> files;
    for (const auto& folder : std::filesystem::directory_iterator(trainset)) {
        if (!folder.is_directory()) continue;
        for (const auto& file : std::filesystem::directory_iterator(folder.path())) {
            if (file.is_regular_file() && isUnitFile(file.path()))
                files.push_back(file.path().string());
        }
    }
    std::vector<char> bytes;
    std::u16string text;
    std::size_t lineEnds = 0;
    for (const std::string& file : files) {
        if (!readWhole(file, bytes)) continue;
        text.resize(bytes.size() / 2);
        const auto* data = reinterpret_cast<const unsigned char*>(bytes.data());
        for (std::size_t i = 0; i < text.size(); ++i)
            text[i] = static_cast<char16_t>(data[2 * i] | data[2 * i + 1] << 8);
        lineEnds += static_cast<std::size_t>(std::count(text.begin(), text.end(), u'\n'));
    }
    return lineEnds;
}

// The catalogue load as start-up runs it, into a fresh state: read there, or taken from the
// files read ahead as the window program does. Returns the units stored.
std::size_t loadCatalogue(const std::string& msts, const std::string& home, unsigned threads,
                          bool readAhead = false) {
    auto state = std::make_unique<rakeyard::AppState>();
    state->paths.programFolder = home;
    state->paths.mstsPath = msts;
    state->paths.trainsetPath = msts + "/TRAINS/TRAINSET";
    state->paths.consistsPath = msts + "/TRAINS/CONSISTS";
    state->paths.soundPath = msts + "/SOUND";
    rakeyard::LocalFileSystem fs;
    QuietServices quiet(fs);
    std::optional<rakeyard::UnitFilesAhead> ahead;
    if (readAhead) {
        ahead = rakeyard::readUnitFilesAhead(
            state->paths.trainsetPath, fs, [&] { return &state->catalogue; }, threads);
    }
    rakeyard::readUnitCatalogue(state->paths, state->catalogue, quiet.services, false, threads,
                                ahead ? &*ahead : nullptr);
    return state->catalogue.engineCount + state->catalogue.wagonCount;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 2) {
        std::fputs("usage: catalogue_bench MSTS_FOLDER [RUNS]\n", stderr);
        return 2;
    }
    const std::string msts = std::filesystem::absolute(argv[1]).lexically_normal().string();
    const int runs = argc > 2 ? std::max(1, std::stoi(argv[2])) : 5;
    const std::filesystem::path home =
        std::filesystem::temp_directory_path() / "rakeyard-catalogue-bench";
    std::filesystem::create_directories(home / "Reports");

    std::size_t lineEnds = 0;
    std::size_t units = 0;
    std::vector<Timings> contenders = {
        {"floor, 1 thread", [&] { lineEnds = readFloor(msts + "/TRAINS/TRAINSET"); }},
        {"load, 1 thread", [&] { units = loadCatalogue(msts, home.string(), 1); }},
        {"load, all cores", [&] { units = loadCatalogue(msts, home.string(), 0); }},
        {"read ahead+take", [&] { units = loadCatalogue(msts, home.string(), 0, true); }},
    };
    contenders[0].work();  // warms the file cache
    std::printf("installation: %s\n", msts.c_str());
    runAndPrint(contenders, runs, true);
    std::filesystem::remove_all(home);
    std::printf("units stored: %zu; line ends the floor decoded: %zu\n", units, lineEnds);
    std::printf("ratios are to the floor; peak memory is the process's after the first run\n");
    return 0;
}
