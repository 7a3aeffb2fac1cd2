// catalogue_bench: how long the catalogue load takes, against the floor of the same work.
//
//   catalogue_bench MSTS_FOLDER [RUNS]
//
// The catalogue load is readEngineFiles and readWagonFiles through the core, with the local
// file system and no progress shown; the questions at the end are answered OK. The floor lists
// the same folders, reads the same unit files and decodes them to UTF-16 strings on one thread,
// and does nothing else. Each is run RUNS times (default 3) with the file cache warm, and the
// best time counts. Prints both times, their ratio and the peak memory after each.
#include <sys/resource.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <memory>
#include <string>

#include "core/app/app_state.h"
#include "core/msts/catalogue_reader.h"
#include "core/platform/local_file_system.h"
#include "core/platform/services.h"
#include "core/settings/settings_record.h"

namespace {

using Clock = std::chrono::steady_clock;

class OkDialogs : public rakeyard::Dialogs {
public:
    void report(std::string_view, rakeyard::Icon, std::string_view) override {}
    rakeyard::Answer ask(std::string_view, rakeyard::Buttons buttons, rakeyard::Icon,
                         rakeyard::Answer, std::string_view) override {
        return buttons == rakeyard::Buttons::YesNo ? rakeyard::Answer::Yes : rakeyard::Answer::Ok;
    }
};

class NoDesktop : public rakeyard::Desktop {
public:
    bool moveToTrash(const std::string&) override { return false; }
    bool startProgram(const std::string&, const std::vector<std::string>&) override {
        return false;
    }
    void openUrl(std::string_view) override {}
};

bool isUnitFile(const std::filesystem::path& path) {
    std::string extension = path.extension().string();
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    return extension == ".ENG" || extension == ".WAG";
}

// The floor: every unit file one folder below Trainset listed, read whole and decoded.
std::size_t readFloor(const std::filesystem::path& trainset) {
    std::size_t characters = 0;
    for (const auto& folder : std::filesystem::directory_iterator(trainset)) {
        if (!folder.is_directory()) continue;
        for (const auto& file : std::filesystem::directory_iterator(folder.path())) {
            if (!file.is_regular_file() || !isUnitFile(file.path())) continue;
            std::ifstream in(file.path(), std::ios::binary);
            const std::string bytes{std::istreambuf_iterator<char>(in), {}};
            std::u16string text(bytes.size() / 2, u'\0');
            for (std::size_t i = 0; i < text.size(); ++i)
                text[i] = static_cast<char16_t>(static_cast<unsigned char>(bytes[2 * i]) |
                                                static_cast<unsigned char>(bytes[2 * i + 1]) << 8);
            characters += text.size();
        }
    }
    return characters;
}

struct CatalogueCount {
    int engines = 0;
    int wagons = 0;
};

// The catalogue load as start-up runs it, into a fresh state.
CatalogueCount loadCatalogue(const std::string& msts, const std::string& home) {
    auto state = std::make_unique<rakeyard::AppState>();
    state->paths.programFolder = home;
    state->paths.mstsPath = msts;
    state->paths.trainsetPath = msts + "/TRAINS/TRAINSET";
    state->paths.consistsPath = msts + "/TRAINS/CONSISTS";
    state->paths.soundPath = msts + "/SOUND";
    rakeyard::LocalFileSystem fs;
    OkDialogs dialogs;
    rakeyard::NoProgress progress;
    NoDesktop desktop;
    rakeyard::Services services{fs, dialogs, progress, desktop};
    rakeyard::readEngineFiles(state->paths, state->catalogue, services, false);
    rakeyard::readWagonFiles(state->paths, state->catalogue, services, false);
    CatalogueCount count;
    while (count.engines < static_cast<int>(state->catalogue.engines.size()) &&
           !state->catalogue.engines[count.engines].fileName.empty())
        ++count.engines;
    while (count.wagons < static_cast<int>(state->catalogue.wagons.size()) &&
           !state->catalogue.wagons[count.wagons].fileName.empty())
        ++count.wagons;
    return count;
}

double bestSeconds(int runs, const std::function<void()>& work) {
    double best = 1e300;
    for (int i = 0; i < runs; ++i) {
        const Clock::time_point start = Clock::now();
        work();
        best = std::min(best, std::chrono::duration<double>(Clock::now() - start).count());
    }
    return best;
}

long peakMegabytes() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss / 1024;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 2) {
        std::fputs("usage: catalogue_bench MSTS_FOLDER [RUNS]\n", stderr);
        return 2;
    }
    const std::string msts = std::filesystem::absolute(argv[1]).lexically_normal().string();
    const int runs = argc > 2 ? std::max(1, std::stoi(argv[2])) : 3;
    const std::filesystem::path home =
        std::filesystem::temp_directory_path() / "rakeyard-catalogue-bench";
    std::filesystem::create_directories(home / "Reports");

    std::size_t characters = readFloor(msts + "/TRAINS/TRAINSET");  // warms the file cache
    const double floor =
        bestSeconds(runs, [&] { characters = readFloor(msts + "/TRAINS/TRAINSET"); });
    const long floorPeak = peakMegabytes();

    CatalogueCount count;
    const double catalogue = bestSeconds(runs, [&] { count = loadCatalogue(msts, home.string()); });
    const long cataloguePeak = peakMegabytes();
    std::filesystem::remove_all(home);

    std::printf("installation: %s\n", msts.c_str());
    std::printf("catalogue:    %d engines, %d wagons\n", count.engines, count.wagons);
    std::printf("floor:        %.3f s  (%zu characters decoded)  peak %ld MB\n", floor, characters,
                floorPeak);
    std::printf("catalogue:    %.3f s  peak %ld MB\n", catalogue, cataloguePeak);
    std::printf("ratio:        %.2f x the floor (best of %d runs each)\n", catalogue / floor, runs);
    return 0;
}
