// Tests the bytes as an engine file: the tester must neither crash nor hang, look only inside
// the installation and write only its reports, and count every finding once by its level.
#include <cstdint>
#include <string>

#include "core/app/app_state.h"
#include "core/tester/unit_tests.h"
#include "memory_tree.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace rakeyard;
    static auto state = std::make_unique<AppState>();
    fuzz::QuietServices quiet;
    state->paths.mstsPath = "/msts";
    state->paths.programFolder = "/home";
    UnitRecord& unit = state->catalogue.engines[0];
    unit = UnitRecord{};
    unit.folderName = "GP38";
    unit.folderPath = "/msts/TRAINS/TRAINSET/GP38";
    unit.fileName = "GP38.eng";
    unit.displayName = "GP38";
    state->catalogue.engineCount = 1;
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    quiet.tree.files[unit.folderPath + "/GP38.eng"] = bytes;
    quiet.tree.files[unit.folderPath + "/GP38.s"] = "shape";
    quiet.tree.files[unit.folderPath + "/GP38.sd"] = bytes;  // the same bytes as a definition
    NoYield host;
    TestRun run;
    run.testMode = "eng";
    run.section = TestSection::Engines;
    testThisEngine(run, {state->paths, state->catalogue, quiet.services, host}, 0);
    const auto& levels = run.counts.levels;
    if (run.counts.errorCount != levels[0] + levels[1] + levels[2]) __builtin_trap();
    if (!quiet.tree.touchedOnlyBelow({"/msts", "/home/Reports"})) __builtin_trap();
    return 0;
}
