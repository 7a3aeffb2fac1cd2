#pragma once
// A small installation for the tester: engines written from text, their shapes, the Reports
// folder, and a run in the engine section.
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>

#include "core/app/app_state.h"
#include "core/platform/paths.h"
#include "core/msts/file_lookup.h"
#include "core/tester/reports.h"
#include "core/tester/test_run.h"
#include "core/tester/unit_tests.h"
#include "support/fakes.h"
#include "support/msts_tree.h"

namespace rakeyard::test {

// An engine with every line the test looks at, and nothing wrong with it.
inline std::string soundEngine(const std::string& name) {
    return "Wagon ( " + name + "\n\tType ( Engine )\n\tWagonShape ( " + name +
           ".s )\n\tMass ( 80t )\n)\nEngine ( " + name +
           "\n\tType ( Diesel )\n\tName ( \"A sound engine\" )\n\tDescription ( \"Fine\" )\n)\n";
}

class TesterTest : public ::testing::Test {
protected:
    TesterTest() {
        state->paths.programFolder = msts.home();
        state->paths.mstsPath = msts.msts();
        state->paths.trainsetPath = msts.trainset();
        state->paths.consistsPath = msts.consists();
        state->paths.soundPath = msts.msts() + "/SOUND";
        state->paths.editorPath = "/usr/bin/gedit";
        std::filesystem::create_directories(msts.home() + "/Reports");
    }

    // An engine in the catalogue, written from text, with its shape and shape definition when
    // withShape.
    std::size_t addEngine(const std::string& folder, const std::string& file,
                          const std::string& text, bool withShape = true,
                          const std::string& display = "A sound engine") {
        return addUnit(UnitClass::Engine, folder, file, text, withShape, display);
    }
    std::size_t addWagon(const std::string& folder, const std::string& file,
                         const std::string& text, bool withShape = true) {
        return addUnit(UnitClass::Wagon, folder, file, text, withShape, "A sound wagon");
    }
    std::size_t addUnit(UnitClass which, const std::string& folder, const std::string& file,
                        const std::string& text, bool withShape, const std::string& display) {
        const std::string stem = file.substr(0, file.rfind('.'));
        msts.write("TRAINS/TRAINSET/" + folder + "/" + file, text);
        if (withShape) {
            msts.writeBytes("TRAINS/TRAINSET/" + folder + "/" + stem + ".s", "shape");
            msts.write("TRAINS/TRAINSET/" + folder + "/" + stem + ".sd",
                       "shape ( " + stem + ".s\n\tESD_Detail_Level ( 0 )\n)\n");
        }
        auto& catalogue = state->catalogue;
        const bool engine = which == UnitClass::Engine;
        std::size_t& count = engine ? catalogue.engineCount : catalogue.wagonCount;
        UnitRecord& unit = engine ? catalogue.engines[count] : catalogue.wagons[count];
        unit.folderName = folder;
        unit.folderPath = joinPath(msts.trainset(), folder);
        unit.fileName = file;
        unit.displayName = display;
        unit.unitType = engine ? "Diesel" : "Freight";
        unit.hasCab = engine;
        return count++;
    }
    TestContext context() { return {state->paths, state->catalogue, fake.services, host}; }
    void testEngine(std::size_t index) {
        run.testMode = "eng";
        run.section = TestSection::Engines;
        testThisEngine(run, context(), index);
    }
    void testWagon(std::size_t index) {
        run.testMode = "wag";
        run.section = TestSection::Wagons;
        testThisWagon(run, context(), index);
    }
    void testConsist(const std::string& name) {
        run.testMode = "con";
        run.section = TestSection::Consists;
        testThisConsist(run, context(), name);
    }
    std::string report(const std::string& name) const {
        return msts.read("home/Reports/" + name);
    }
    bool reportExists(const std::string& name) const {
        return msts.exists("home/Reports/" + name);
    }
    // The record a finding writes: its mark, its message and forty hyphens, lines by CR LF.
    static std::string record(const std::string& mark, const std::string& message) {
        return mark + "\r\n" + message + "\r\n" + std::string(40, '-') + "\r\n";
    }
    std::string upperFolder(const std::string& folder) const {
        std::string path = joinPath(msts.trainset(), folder) + kPathSeparator;
        for (char& c : path)
            if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
        return path;
    }

    MstsTree msts;
    FakeServices fake;
    std::unique_ptr<AppState> state = std::make_unique<AppState>();
    NoYield host;
    TestRun run;
};

}  // namespace rakeyard::test
