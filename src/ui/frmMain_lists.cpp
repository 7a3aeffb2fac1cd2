// The catalogue lists of the main window: filling them under the filters, and their events.
#include <QListWidget>
#include <QMenu>

#include "ui/frmMain.h"
#include "ui/handler_guard.h"
#include "ui/qt_services.h"

namespace rakeyard::ui {

void frmMain::fillList(QListWidget* list, const std::vector<std::string>& lines) {
    list->setUpdatesEnabled(false);
    list->clear();
    for (const std::string& line : lines)
        list->addItem(qs(line));
    list->setUpdatesEnabled(true);
}

void frmMain::showUnitLists() {}
void frmMain::setEngineFilter(const char*) {}
void frmMain::setWagonFilter(const char*) {}
void frmMain::mnuSteam_Click() {
    setEngineFilter("Steam");
}
void frmMain::mnuDiesel_Click() {
    setEngineFilter("Diesel");
}
void frmMain::mnuElectric_Click() {
    setEngineFilter("Electric");
}
void frmMain::mnuLocAI_Click() {
    setEngineFilter("AI");
}
void frmMain::mnuLocAll_Click() {
    setEngineFilter("All");
}
void frmMain::mnuFreight_Click() {
    setWagonFilter("Freight");
}
void frmMain::mnuCarriages_Click() {
    setWagonFilter("Carriage");
}
void frmMain::mnuTenders_Click() {
    setWagonFilter("Tender");
}
void frmMain::mnuWagAll_Click() {
    setWagonFilter("All");
}
void frmMain::tbrFilter_ButtonMenuClick(QAction*) {}
void frmMain::locList_MouseDown(Qt::MouseButton, Qt::KeyboardModifiers) {}
void frmMain::wagList_MouseDown(Qt::MouseButton, Qt::KeyboardModifiers) {}
void frmMain::Command1_Click() {}
void frmMain::Command2_Click() {}
void frmMain::mnuUnicode_Click() {}

}  // namespace rakeyard::ui
