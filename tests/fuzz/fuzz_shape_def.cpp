// Tests the bytes as the shape definition (.sd) of a sound engine: no crash or hang, nothing
// looked at outside the installation, and the definition logged once.
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
    UnitRecord unit;
    unit.folderName = "GP38";
    unit.folderPath = "/msts/TRAINS/TRAINSET/GP38";
    unit.fileName = "GP38.eng";
    quiet.tree.files[unit.folderPath + "/GP38.s"] = "shape";
    quiet.tree.files[unit.folderPath + "/GP38.sd"] =
        std::string(reinterpret_cast<const char*>(data), size);
    NoYield host;
    TestRun run;
    run.testMode = "eng";
    testShapeDef(run, {state->paths, state->catalogue, quiet.services, host}, UnitNames(unit),
                 u"GP38.s");
    if (run.testedShapes.size() != 1 || run.counts.filesTested != 1) __builtin_trap();
    if (run.counts.errorCount > 1) __builtin_trap();
    if (!quiet.tree.touchedOnlyBelow({"/msts", "/home/Reports"})) __builtin_trap();
    return 0;
}
