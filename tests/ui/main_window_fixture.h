#pragma once
// A real main window on a small catalogue, with recorded dialogs: what the window tests drive.
#include <QTest>
#include <memory>

#include "core/app/app_state.h"
#include "support/fakes.h"
#include "support/msts_tree.h"
#include "ui/windows/frmMain.h"
#include "ui/widgets/slot_strip.h"
#include "ui/widgets/unit_list_view.h"

namespace rakeyard::test {

inline UnitRecord unit(const std::string& folder, const std::string& file, const std::string& name,
                       const std::string& type, bool hasCab = false) {
    UnitRecord record;
    record.folderName = folder;
    record.fileName = file;
    record.displayName = name;
    record.unitType = type;
    record.couplerFront = "C";
    record.couplerRear = "C";
    record.length = 10;
    record.mass = 20;
    record.hasCab = hasCab;
    return record;
}

struct MainWindowFixture {
    MstsTree msts;
    FakeServices fake;
    std::unique_ptr<AppState> state = std::make_unique<AppState>();
    std::unique_ptr<ui::frmMain> window;

    MainWindowFixture() {
        PathGlobals& paths = state->paths;
        paths.programFolder = msts.home();
        paths.mstsPath = msts.msts();
        paths.consistsPath = msts.consists();
        paths.trainsetPath = msts.trainset();
        paths.engineFilter = "All";
        paths.wagonFilter = "All";
        auto& engines = state->catalogue.engines;
        engines[0] = unit("CLASS37", "class37.eng", "Class 37 diesel", "Diesel", true);
        engines[1] = unit("4F", "4f.eng", "4F goods", "Steam", true);
        auto& wagons = state->catalogue.wagons;
        wagons[0] = unit("WAGONS", "van.wag", "Covered van", "Freight");
        wagons[1] = unit("WAGONS", "coal.wag", "Coal wagon", "Freight");
        wagons[2] = unit("COACHES", "open.wag", "Open coach", "Carriage");
        wagons[3] = unit("COACHES", "brake.wag", "Brake coach", "Carriage");
        for (auto* records :
             {&engines[0], &engines[1], &wagons[0], &wagons[1], &wagons[2], &wagons[3]})
            records->folderPath = msts.trainset() + "/" + records->folderName;
        state->catalogue.engineCount = 2;
        state->catalogue.wagonCount = 4;
        window = std::make_unique<ui::frmMain>(*state, fake.services);
        window->showUnitLists();
        window->show();
    }

    // Double-clicks the line of a unit in a list, as a user would.
    void doubleClickUnit(ui::UnitListView* list, const QString& fileName) {
        for (int i = 0; i < list->count(); ++i) {
            if (!list->lineOfRow(i).endsWith("^" + fileName)) continue;
            list->setCurrentRow(i);
            list->scrollTo(list->currentIndex());
            const QPoint at = list->visualRowRect(i).center();
            QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, at);
            QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, at);
            return;
        }
        QFAIL(qPrintable("no line for " + fileName));
    }
    void addWagon(const QString& fileName) { doubleClickUnit(window->wagList, fileName); }
    void addEngine(const QString& fileName) { doubleClickUnit(window->locList, fileName); }

    void clickSlot(int index, Qt::KeyboardModifiers shift = {},
                   Qt::MouseButton button = Qt::LeftButton) {
        QTest::mouseClick(window->Picture1[index], button, shift);
    }
    const ConsistSlot& slot(int index) const { return state->consist.slots[index]; }
    QString shownKey(int index) const { return window->Picture1[index]->pictureKey(); }
};

}  // namespace rakeyard::test
