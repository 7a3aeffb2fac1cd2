#pragma once
// One unit, GP38, in an installation held in memory, for the tester's fuzz targets: a run of
// its section, and the checks every target makes after the test.
#include <memory>
#include <string>

#include "core/app/app_state.h"
#include "core/tester/unit_tests.h"
#include "memory_tree.h"

namespace rakeyard::fuzz {

struct TesterFuzz {
    explicit TesterFuzz(TestSection section) {
        static auto shared = std::make_unique<AppState>();  // large: made once
        state = shared.get();
        state->paths.mstsPath = "/msts";
        state->paths.programFolder = "/home";
        state->paths.trainsetPath = "/msts/TRAINS/TRAINSET";
        state->paths.consistsPath = "/msts/TRAINS/CONSISTS";
        state->paths.soundPath = "/msts/SOUND";
        const bool engine = section != TestSection::Wagons;
        UnitRecord& unit = engine ? state->catalogue.engines[0] : state->catalogue.wagons[0];
        unit = UnitRecord{};
        unit.folderName = "GP38";
        unit.folderPath = folder;
        unit.fileName = engine ? "GP38.eng" : "GP38.wag";
        unit.displayName = "GP38";
        state->catalogue.engineCount = engine ? 1 : 0;
        state->catalogue.wagonCount = engine ? 0 : 1;
        run.section = section;
        run.testMode = std::string(testModeOf(section));
        run.cabViews = true;
        run.sounds = true;
    }
    TestContext context() { return {state->paths, state->catalogue, quiet.services, host}; }
    UnitNames names() const {
        return UnitNames(run.section == TestSection::Wagons ? state->catalogue.wagons[0]
                                                            : state->catalogue.engines[0]);
    }
    // Every finding counted once by its level; nothing looked at outside the installation and
    // nothing written outside Reports.
    void check() const {
        const auto& levels = run.counts.levels;
        if (run.counts.errorCount != levels[0] + levels[1] + levels[2]) __builtin_trap();
        if (!quiet.tree.touchedOnlyBelow({"/msts", "/home/Reports"})) __builtin_trap();
    }
    std::string& file(const std::string& relative) { return quiet.tree.files[folder + relative]; }

    const std::string folder = "/msts/TRAINS/TRAINSET/GP38";
    AppState* state;
    QuietServices quiet;
    NoYield host;
    TestRun run;
};

}  // namespace rakeyard::fuzz
