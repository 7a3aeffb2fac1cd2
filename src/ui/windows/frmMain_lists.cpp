// The catalogue lists of the main window: filling them under the filters, and their events.
#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QTimer>

#include "core/app/consist_flows.h"
#include "core/consist/consist_model.h"
#include "core/consist/consist_writer.h"
#include "core/msts/catalogue_reader.h"
#include "core/msts/unit_list.h"
#include "core/settings/settings_file.h"
#include "ui/support/handler_guard.h"
#include "ui/support/window_helpers.h"
#include "ui/widgets/unit_list_view.h"
#include "ui/windows/frmAlias.h"
#include "ui/windows/frmMain.h"
#include "ui/windows/frmUnicode.h"
#include "ui/windows/qt_services.h"
#include "ui/windows/wait_scope.h"

namespace rakeyard::ui {

namespace {

std::span<const UnitRecord> enginesOf(const AppState& state) {
    return usedRecords(state.catalogue, UnitClass::Engine);
}

std::span<const UnitRecord> wagonsOf(const AppState& state) {
    return usedRecords(state.catalogue, UnitClass::Wagon);
}

}  // namespace

void frmMain::showUnitLists() {
    tickFilterEntries({mnuSteam, mnuDiesel, mnuElectric, mnuLocAI, mnuLocAll, mnuFreight,
                       mnuCarriages, mnuTenders, mnuWagAll},
                      state_.paths.engineFilter, state_.paths.wagonFilter);
    showCatalogueLists(*locList, *wagList, state_.catalogue, state_.paths);
    showListCounts();
}

// Label3 and Label4 count the lines shown; beside them the filter in force, and the search
// when it hides lines.
void frmMain::showListCounts() {
    auto show = [](QLabel* count, QLabel* summary, const UnitListView* list,
                   const std::string& filter, std::size_t total) {
        count->setText(QString::number(list->count()));
        QString text = qs(filterSummary(filter, list->totalCount(), total));
        if (list->count() != list->totalCount())
            text += QString(", %1 found").arg(list->count());
        summary->setText(text);
    };
    show(Label3, lblLocFilter, locList, state_.paths.engineFilter, enginesOf(state_).size());
    show(Label4, lblWagFilter, wagList, state_.paths.wagonFilter, wagonsOf(state_).size());
}

// In a search box, Down goes to the list below and Escape empties the box.
bool frmMain::searchBoxKey(QLineEdit* box, UnitListView* list, QKeyEvent* key) {
    if (key->key() == Qt::Key_Escape && !box->text().isEmpty()) {
        box->clear();
        return true;
    }
    if (key->key() == Qt::Key_Down && list->count() > 0) {
        list->setFocus();
        if (list->currentLine().isEmpty()) list->setCurrentRow(0);
        return true;
    }
    // Enter adds the only unit found, as a double click on its line would.
    const bool enter = key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter;
    if (enter && list->count() == 1) {
        list->setCurrentRow(0);
        list == locList ? locList_DblClick() : wagList_DblClick();
        return true;
    }
    return false;
}

// A filter word is checked in its menu, shown and stored in settings.bin.
void frmMain::setEngineFilter(const char* word) {
    runGuarded(services_.dialogs, [&] {
        state_.paths.engineFilter = word;
        showUnitLists();
        setText(state_.settings, &SettingsRecord::showLocoType, word);
        (void)saveSettings(state_.settings, state_.paths, services_);
    });
}

void frmMain::setWagonFilter(const char* word) {
    runGuarded(services_.dialogs, [&] {
        state_.paths.wagonFilter = word;
        showUnitLists();
        setText(state_.settings, &SettingsRecord::showWagonType, word);
        (void)saveSettings(state_.settings, state_.paths, services_);
    });
}

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

// The drop-down's items run the menu entry of the same meaning.
void frmMain::tbrFilter_ButtonMenuClick(QAction* item) {
    const QString key = item->data().toString();
    const std::pair<const char*, QAction*> entries[] = {
        {"steam", mnuSteam},         {"diesel", mnuDiesel},     {"electric", mnuElectric},
        {"AIengines", mnuLocAI},     {"allengines", mnuLocAll}, {"freight", mnuFreight},
        {"carriages", mnuCarriages}, {"tenders", mnuTenders},   {"allwagons", mnuWagAll}};
    for (const auto& [itemKey, entry] : entries)
        if (key == itemKey) entry->trigger();
}

void frmMain::showUnitInStatusBar(UnitListView* list, bool engines) {
    const QString line = list->currentLine();
    if (line.isEmpty()) return;
    const auto records = engines ? enginesOf(state_) : wagonsOf(state_);
    const auto index = findUnitByKey(records, keyOfLine(stdString(line)));
    if (index) StatusBar1->setText(qs(unitStatusText(records[*index])));
}

void frmMain::locList_Click() {
    runGuarded(services_.dialogs, [&] { showUnitInStatusBar(locList, true); });
    followInDescription("locList");
}

void frmMain::wagList_Click() {
    runGuarded(services_.dialogs, [&] { showUnitInStatusBar(wagList, false); });
    followInDescription("wagList");
}

// Ctrl with the left button opens the unit's file in the text editor; the right button shows
// the selected unit in the description window.
void frmMain::locList_MouseDown(Qt::MouseButton button, Qt::KeyboardModifiers shift,
                                const QString& line) {
    if (button == Qt::RightButton && !locList->currentLine().isEmpty())
        return showDescription("locList");
    if (button != Qt::LeftButton || !(shift & Qt::ControlModifier) || line.isEmpty()) return;
    runGuarded(services_.dialogs, [&] {
        (void)openUnitInEditor(state_.paths, enginesOf(state_), stdString(line), services_);
    });
}

void frmMain::wagList_MouseDown(Qt::MouseButton button, Qt::KeyboardModifiers shift,
                                const QString& line) {
    if (button == Qt::RightButton && !wagList->currentLine().isEmpty())
        return showDescription("wagList");
    if (button != Qt::LeftButton || !(shift & Qt::ControlModifier) || line.isEmpty()) return;
    runGuarded(services_.dialogs, [&] {
        (void)openUnitInEditor(state_.paths, wagonsOf(state_), stdString(line), services_);
    });
}

// The Delete key sends the unit's whole folder to the recycle bin and reads the list again.
void frmMain::locList_KeyDown(QKeyEvent* key) {
    deleteUnitOfList(locList, key, true);
}

void frmMain::wagList_KeyDown(QKeyEvent* key) {
    deleteUnitOfList(wagList, key, false);
}

void frmMain::deleteUnitOfList(UnitListView* list, QKeyEvent* key, bool engines) {
    if (key->key() != Qt::Key_Delete || key->modifiers() != Qt::NoModifier) return;
    const QString line = list->currentLine();
    if (line.isEmpty()) return;
    runGuarded(services_.dialogs, [&] {
        if (!deleteUnitOfLine(state_, services_, engines ? UnitClass::Engine : UnitClass::Wagon,
                              stdString(line)))
            return;
        if (engines) {
            Command1_Click();
        } else {
            Command2_Click();
        }
    });
}

// Refreshing a list reads its catalogue again; the consist is emptied first, as its units
// would no longer match the catalogue.
void frmMain::refreshCatalogue(bool engines) {
    runGuarded(services_.dialogs, [&] {
        Text2[0]->setFocus();
        UnitListView* list = engines ? locList : wagList;
        list->setVisible(false);
        bool refreshed = false;
        {
            WaitScope wait(
                engines ? "Please wait. Reading engines..." : "Please wait. Reading wagons...",
                services_.progress, this);
            refreshed = rakeyard::refreshCatalogue(state_, services_,
                                                   engines ? UnitClass::Engine : UnitClass::Wagon);
        }
        if (refreshed) showUnitLists();
        list->setVisible(true);
        showStartErrorsButton();
    });
    refreshPics();
}

void frmMain::Command1_Click() {
    refreshCatalogue(true);
}

void frmMain::Command2_Click() {
    refreshCatalogue(false);
}

void frmMain::mnuUnicode_Click() {
    runGuarded(services_.dialogs, [&] {
        frmUnicode window(state_, services_, this);
        window.show();
        window.checkUnicode();
        window.exec();
    });
}

void frmMain::mnuAliasing_Click() {
    runGuarded(services_.dialogs, [&] {
        frmAlias window(state_, services_, this);
        window.Form_Load();
        window.exec();
    });
}

}  // namespace rakeyard::ui
