#pragma once
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "core/app/app_state.h"
#include "support/fakes.h"
#include "support/msts_tree.h"
#include "core/platform/paths.h"

namespace rakeyard::test {

// An installation with a small catalogue: engines GP38 (Diesel, AA), ES44 (Diesel, no cab, AB),
// Flyer (Electric) and "Big Boy" (Steam); wagons Box (Freight, AA), Coach (Carriage, AA),
// Tend(1) (Tender, BB).
class ConsistTest : public ::testing::Test {
protected:
    ConsistTest() {
        app->paths.consistsPath = msts.consists();
        app->paths.trainsetPath = msts.trainset();
        app->paths.programFolder = msts.home();
        auto& e = app->catalogue.engines;
        e[0] = unit("GP38", "GP38.eng", "Diesel", "A", "A", 113.5f, 17.12f, true);
        e[1] = unit("ES44", "ES44.eng", "Diesel", "A", "B", 190.25f, 22.3f, false);
        e[2] = unit("Flyer", "Flyer.eng", "Electric", "A", "A", 90, 20, true);
        e[3] = unit("Big Boy", "Big Boy.eng", "Steam", "A", "A", 350, 40.5f, true);
        auto& w = app->catalogue.wagons;
        w[0] = unit("Box", "Box.wag", "Freight", "A", "A", 30.01f, 15.5f, false);
        w[1] = unit("Coach", "Coach.wag", "Carriage", "A", "A", 45, 24, false);
        w[2] = unit("Tend(1)", "Tend(1).wag", "Tender", "B", "B", 80, 12, false);
        app->catalogue.engineCount = 4;
        app->catalogue.wagonCount = 3;
    }

    UnitRecord unit(const std::string& folder, const std::string& file, const std::string& type,
                    const std::string& front, const std::string& rear, float mass, float length,
                    bool hasCab) {
        UnitRecord r;
        r.folderName = folder;
        r.folderPath = msts.trainset() + "/" + folder;
        r.fileName = file;
        r.displayName = folder + " unit";
        r.unitType = type;
        r.couplerFront = front;
        r.couplerRear = rear;
        r.mass = mass;
        r.length = length;
        r.hasCab = hasCab;
        if (type == "Diesel" || type == "Electric" || type == "Steam") r.maxPower = "2000kW";
        return r;
    }

    ConsistState& state() { return app->consist; }
    ConsistSlot& slot(int i) { return app->consist.slots[i]; }
    // Adds catalogue units as double clicks on their list lines would ("eng:" or "wag:" + file).
    void add(std::initializer_list<std::string> units);
    // Writes a consist under the Consists folder from readable text (FF FE and the header line
    // added) and loads it.
    void loadText(const std::string& name, const std::string& text);
    std::string consistPath(const std::string& name) const {
        return joinPath(msts.consists(), name);
    }

    MstsTree msts;
    FakeServices fake;
    std::unique_ptr<AppState> app = std::make_unique<AppState>();
};

}  // namespace rakeyard::test
