// loose_bench: the loose consist editor on an activity of 10,000 loose consists of 1 to 8 units.
//
//   loose_bench [FOLDER] [RUNS] [CONSISTS]
//
// Writes into FOLDER (default, or "-": a new temporary folder) a route whose one activity holds
// the consists (CONSISTS, default 10,000, to see how the times grow), and a catalogue of 60 engines
// and 240 wagons held in memory; one wagon file stands in exactly 100 places. Times, with the file
// cache warm: the floor (read the .act whole and decode it), listing the route's activities,
// opening the activity (rows, tree nodes and the work files of every consist), one replace, and a
// replace of all 100 places. The replaces run on the activity as generated each time; their opening
// is not timed. Medians of RUNS (3).
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <memory>
#include <random>
#include <string>

#include "bench_support.h"
#include "core/app/app_state.h"
#include "core/msts/loose_replace.h"
#include "core/platform/local_file_system.h"

namespace {

namespace fs = std::filesystem;
using namespace rakeyard;
using namespace rakeyard::bench;

int consistCount = 10000;
// The wagon "Rare" stands last in every third of the first 300 consists: 100 places, all among
// the units the editor's rows hold (the first 2000), as a replace needs.
constexpr int kRareEvery = 3;
constexpr int kRareConsists = 300;

void writeFile(const fs::path& path, const std::string& bytes) {
    fs::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary | std::ios::trunc) << bytes;
}

std::string utf16(const std::string& text) {
    std::string bytes = "\xFF\xFE";
    for (char c : text) {
        if (c == '\n')
            bytes += std::string("\r\0\n\0", 4);
        else
            bytes += std::string{c, '\0'};
    }
    return bytes;
}

// The activity: consist i holds 1 to 8 units, an engine first in every third.
std::string bigActivity() {
    std::mt19937 random(16);
    std::string text =
        "SIMISA@@@@@@@@@@JINX0D0t______\n\nTr_Activity (\n\tTr_Activity_Header (\n"
        "\t\tRouteID ( R )\n\t\tName ( \"Big yard\" )\n\t)\n\tActivityObjects (\n";
    for (int i = 0; i < consistCount; ++i) {
        const int units = 1 + static_cast<int>(random() % 8);
        text +=
            "\t\tActivityObject (\n\t\t\tObjectType ( WagonsList )\n\t\t\tTrain_Config (\n"
            "\t\t\t\tTrainCfg ( \"\"\n\t\t\t\t\tName ( \"Loose consist.\" )\n";
        for (int k = 0; k < units; ++k) {
            const bool rare = k == units - 1 && i < kRareConsists && i % kRareEvery == 0;
            if (k == 0 && i % 3 == 0 && !rare) {
                text += "\t\t\t\t\tEngine (\n\t\t\t\t\t\tUiD ( 0 )\n\t\t\t\t\t\tEngineData ( E" +
                        std::to_string(random() % 60) + " Locos )\n\t\t\t\t\t)\n";
                continue;
            }
            const std::string wagon = rare ? "Rare" : "W" + std::to_string(random() % 240);
            text += "\t\t\t\t\tWagon (\n\t\t\t\t\t\tWagonData ( " + wagon +
                    " \"Big Stock\" )\n\t\t\t\t\t\tUiD ( " + std::to_string(k) +
                    " )\n\t\t\t\t\t)\n";
        }
        text += "\t\t\t\t)\n\t\t\t)\n\t\t\tDirection ( 1 )\n\t\t\tID ( " +
                std::to_string(32768 + i) + " )\n\t\t)\n";
    }
    return utf16(text + "\t)\n)\n");
}

void addUnit(UnitCatalogue& catalogue, const std::string& file, float length) {
    const bool engine = file.ends_with(".eng");
    UnitRecord& record = engine ? catalogue.engines[catalogue.engineCount++]
                                : catalogue.wagons[catalogue.wagonCount++];
    record.fileName = file;
    record.folderName = engine ? "Locos" : "Big Stock";
    record.folderPath = "/nowhere/" + record.folderName;
    record.length = length;
    record.displayName = file;
}

}  // namespace

int main(int argc, char** argv) {
    const bool temporary = argc < 2 || std::string(argv[1]) == "-";
    const fs::path folder =
        !temporary
            ? fs::path(argv[1])
            : fs::temp_directory_path() / ("loose_bench_" + std::to_string(sys::currentProcess()));
    const int runs = argc > 2 ? std::max(1, std::stoi(argv[2])) : 3;
    if (argc > 3) consistCount = std::max(1, std::stoi(argv[3]));
    const fs::path msts = fs::absolute(folder) / "msts";
    const fs::path act = msts / "ROUTES/R/ACTIVITIES/Big.act";
    const std::string generated = bigActivity();
    writeFile(msts / "ROUTES/R/R.trk", utf16("Tr_RouteFile (\n\tName ( \"R\" )\n)\n"));
    writeFile(act, generated);
    fs::create_directories(folder / "home");

    auto state = std::make_unique<AppState>();
    setBenchPaths(state->paths, msts.string(), (fs::absolute(folder) / "home").string());
    for (int i = 0; i < 60; ++i)
        addUnit(state->catalogue, "E" + std::to_string(i) + ".eng", 18.0f + i % 5);
    for (int i = 0; i < 240; ++i)
        addUnit(state->catalogue, "W" + std::to_string(i) + ".wag", 9.6f + (i % 9) * 0.7f);
    addUnit(state->catalogue, "Rare.wag", 12.4f);
    addUnit(state->catalogue, "Common.wag", 12.6f);

    LocalFileSystem files;
    QuietServices quiet(files);
    Services& services = quiet.services;
    LooseContext context{state->paths, state->routes, state->catalogue, state->looseUnits,
                         services};
    LooseEditor editor;
    readRoutes(context, editor);
    std::vector<char> bytes;
    std::vector<Timings> contenders = {
        {"floor",
         [&] {
             (void)readWhole(act.string(), bytes);
             (void)decodeActivity(std::string_view(bytes.data(), bytes.size()));
         }},
        {"listing", [&] { SearchActsForLoose(context, editor, "R"); }},
        {"opening",
         [&] {
             (void)openLooseActivity(context, editor, "Big.act --> \"Big yard\"");
             if (editor.nodes.size() < static_cast<std::size_t>(consistCount)) std::fputs("opening failed\n", stderr);
         }},
    };
    std::printf("activity: %s, %zu bytes, %d loose consists\n", act.c_str(), generated.size(),
                consistCount);
    runAndPrint(contenders, runs, true);
    std::printf("  tree nodes %zu, unit rows %zu\n", editor.nodes.size(), state->looseUnits.count);

    // A replace of unit 2 of consist 200, and of all 100 places of "Rare", on the activity as
    // generated; the opening before each is not timed.
    const auto timeReplace = [&](const char* name, bool all) {
        std::vector<double> wall;
        for (int i = 0; i < runs; ++i) {
            writeFile(act, generated);
            (void)openLooseActivity(context, editor, "Big.act --> \"Big yard\"");
            std::size_t node = 0;
            for (std::size_t n = 0; n < editor.nodes.size() && !node; ++n)
                if (all ? editor.nodes[n].text == "Rare.wag" : editor.nodes[n].key == "C5000_2")
                    node = n;
            if (!node) {
                // A consist of one engine has no wagon 2: take the next one that has.
                for (std::size_t n = 0; n < editor.nodes.size() && !node; ++n)
                    if (editor.nodes[n].key.starts_with("C5") &&
                        editor.nodes[n].key.ends_with("_2"))
                        node = n;
            }
            selectLooseNode(context, editor, node);
            const Clock::time_point start = Clock::now();
            const bool written =
                all ? replaceAllOccurrences(context, editor, "Common.wag", UnitClass::Wagon)
                    : replaceLooseUnit(context, editor, "Common.wag", UnitClass::Wagon);
            wall.push_back(std::chrono::duration<double>(Clock::now() - start).count());
            if (!written) std::fputs("replace failed\n", stderr);
        }
        std::printf("  %-16s wall %.3f s\n", name, median(wall));
    };
    timeReplace("one replace", false);
    timeReplace("replace all 100", true);
    removeLooseWorkFiles(context);
    std::size_t common = 0;
    for (const LooseNode& node : editor.nodes)
        common += node.text == "Common.wag";
    std::printf("  units replaced by the last replace all: %zu\n", common);
    if (temporary) fs::remove_all(folder);
    return 0;
}
