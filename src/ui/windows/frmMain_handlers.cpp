// The handlers of the main window's menus, toolbar and catalogue lists.
#include <QAction>
#include <QApplication>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>
#include <algorithm>
#include <vector>

#include "core/app/start_up.h"
#include "core/consist/consist_model.h"
#include "core/consist/consist_reader.h"
#include "core/consist/consist_writer.h"
#include "core/consist/editing.h"
#include "core/consist/save_offer.h"
#include "core/consist/slot_view.h"
#include "core/platform/paths.h"
#include "core/settings/settings_file.h"
#include "ui/support/handler_guard.h"
#include "ui/widgets/unit_list_view.h"
#include "ui/windows/frm3DViewer.h"
#include "ui/windows/frmAbout.h"
#include "ui/windows/frmAct.h"
#include "ui/windows/frmDesc.h"
#include "ui/windows/frmDiag.h"
#include "ui/windows/frmEditor.h"
#include "ui/windows/frmHelp.h"
#include "ui/windows/frmLoadCon.h"
#include "ui/windows/frmMain.h"
#include "ui/windows/frmPath.h"
#include "ui/windows/frmPreview.h"
#include "ui/windows/frmQtd.h"
#include "ui/windows/frmScrshots.h"
#include "ui/windows/frmWait.h"
#include "ui/windows/qt_services.h"
#include "ui/windows/startup_windows.h"

namespace rakeyard::ui {

namespace {

QAction* toolbarButton(QWidget* owner, const char* key) {
    return owner->findChild<QAction*>(QString("tbr_") + key);
}

std::string selectedLine(const UnitListView* list) {
    return stdString(list->currentLine());
}

}  // namespace

void frmMain::connectMenus() {
    auto both = [this](QAction* entry, const char* key, void (frmMain::*handler)()) {
        connect(entry, &QAction::triggered, this, handler);
        if (key) connect(toolbarButton(this, key), &QAction::triggered, this, handler);
    };
    both(mnuLoad, "open", &frmMain::mnuLoad_Click);
    both(mnuSave, "save", &frmMain::mnuSave_Click);
    both(mnuSaveAs, nullptr, &frmMain::mnuSaveAs_Click);
    both(mnuUndo, nullptr, &frmMain::mnuUndo_Click);
    both(mnuRedo, nullptr, &frmMain::mnuRedo_Click);
    both(mnuNew, "new", &frmMain::mnuNew_Click);
    both(mnuExit, "exit", &frmMain::mnuExit_Click);
    for (int i = 0; i < 4; ++i)
        connect(mnuEmpty[i], &QAction::triggered, this, [this, i] { mnuEmpty_Click(i); });
    both(mnuRenumber, "reorder", &frmMain::mnuRenumber_Click);
    both(mnuAdd, "multiple", &frmMain::mnuAdd_Click);
    both(mnuInsert, "paste", &frmMain::mnuInsert_Click);
    both(mnuDelete, "delete", &frmMain::mnuDelete_Click);
    both(mnuUnicode, nullptr, &frmMain::mnuUnicode_Click);
    both(mnuMissing, "test", &frmMain::mnuMissing_Click);
    both(mnuActivities, "activity", &frmMain::mnuActivities_Click);
    both(mnu3D, "3dview", &frmMain::mnu3D_Click);
    // The icon beside a list edits that list's unit.
    connect(Image3, &QPushButton::clicked, this, [this] { editUnit(true); });
    connect(Image4, &QPushButton::clicked, this, [this] { editUnit(false); });
    both(mnuAliasing, "alias", &frmMain::mnuAliasing_Click);
    both(mnuMaxvel, nullptr, &frmMain::mnuMaxvel_Click);
    both(mnuBigones, nullptr, &frmMain::mnuBigones_Click);
    both(mnuAllocated, nullptr, &frmMain::mnuAllocated_Click);
    both(mnuPicture, nullptr, &frmMain::mnuPicture_Click);
    both(mnuPreview, nullptr, &frmMain::mnuPreview_Click);
    both(mnuConsUse, "dependencies", &frmMain::mnuConsUse_Click);
    both(mnuActsUse, "activitydependencies", &frmMain::mnuActsUse_Click);
    both(mnuLoose, "loose", &frmMain::mnuLoose_Click);
    both(mnuEditUnit, nullptr, &frmMain::mnuEditUnit_Click);
    connect(toolbarButton(this, "random"), &QAction::triggered, this, &frmMain::tbrRandom_Click);
    both(mnuSteam, nullptr, &frmMain::mnuSteam_Click);
    both(mnuDiesel, nullptr, &frmMain::mnuDiesel_Click);
    both(mnuElectric, nullptr, &frmMain::mnuElectric_Click);
    both(mnuLocAI, nullptr, &frmMain::mnuLocAI_Click);
    both(mnuLocAll, nullptr, &frmMain::mnuLocAll_Click);
    both(mnuFreight, nullptr, &frmMain::mnuFreight_Click);
    both(mnuCarriages, nullptr, &frmMain::mnuCarriages_Click);
    both(mnuTenders, nullptr, &frmMain::mnuTenders_Click);
    both(mnuWagAll, nullptr, &frmMain::mnuWagAll_Click);
    connect(tbrFilter->menu(), &QMenu::triggered, this, &frmMain::tbrFilter_ButtonMenuClick);
    both(mnuMSTSpath, nullptr, &frmMain::mnuMSTSpath_Click);
    both(mnuEditor, nullptr, &frmMain::mnuEditor_Click);
    both(mnu3Dviewer, nullptr, &frmMain::mnu3Dviewer_Click);
    both(mnuScreenshots, nullptr, &frmMain::mnuScreenshots_Click);
    both(mnuShowPic, nullptr, &frmMain::mnuShowPic_Click);
    both(mnuHelpFile, nullptr, &frmMain::mnuHelpFile_Click);
    both(mnuAbout, nullptr, &frmMain::mnuAbout_Click);
}

// Entries whose windows or routines are not part of the program yet are hidden (and disabled,
// so that no key reaches them), and so is a menu left with nothing in it; the guide marks them
// as coming.
void frmMain::enableBuiltEntries() {
    std::vector<QAction*> notYet = {mnuEditFile};
    for (QAction* entry : notYet) {
        entry->setEnabled(false);
        entry->setVisible(false);
    }
    for (QMenu* menu :
         {mnuConsists, mnuUnits, mnuEdit, mnuTests, mnuView, mnuMisc, mnuOptions, mnuHelp}) {
        const auto actions = menu->actions();
        const bool empty = std::none_of(actions.begin(), actions.end(), [](QAction* entry) {
            return entry->isVisible() && !entry->isSeparator();
        });
        if (empty) menu->menuAction()->setVisible(false);
    }
}

// ---- Consists ----

void frmMain::mnuLoad_Click() {
    runGuarded(services_.dialogs, [&] {
        frmLoadCon chooser(state_, services_, this);
        chooser.exec();
    });
    refreshPics();
}

void frmMain::mnuSave_Click() {
    runGuarded(services_.dialogs, [&] {
        if (const SaveResult saved = saveConsist(state_, services_))
            StatusBar1->setText(qs("Saved as " + saved.path));
    });
    refreshPics();
}

void frmMain::mnuSaveAs_Click() {
    runGuarded(services_.dialogs, [&] {
        bool chosen = false;
        const QString name = QInputDialog::getText(
            this, "Save consist as", "File name of the consist (without .con):", QLineEdit::Normal,
            qs(state_.consist.header.fileName), &chosen);
        if (!chosen) return;
        if (const SaveResult saved = saveConsistAs(state_, services_, stdString(name.trimmed())))
            StatusBar1->setText(qs("Saved as " + saved.path));
    });
    refreshPics();
}

void frmMain::edit(std::string_view label, const std::function<void()>& action, bool merge) {
    state_.history.begin(label, state_.consist);
    runGuarded(services_.dialogs, action);
    state_.history.commit(state_.consist, merge);
    refreshPics();
}

void frmMain::showUndoEntries() {
    // A consist emptied or loaded since the last look has no edits to undo.
    if (state_.consist.replaced != replacedSeen_) {
        replacedSeen_ = state_.consist.replaced;
        state_.history.clear();
    }
    const std::string undo = state_.history.undoLabel();
    const std::string redo = state_.history.redoLabel();
    mnuUndo->setText(undo.empty() ? QString("&Undo") : qs("&Undo " + undo));
    mnuRedo->setText(redo.empty() ? QString("&Redo") : qs("&Redo " + redo));
    mnuUndo->setEnabled(!undo.empty());
    mnuRedo->setEnabled(!redo.empty());
}

void frmMain::mnuUndo_Click() {
    if (state_.history.undo(state_.consist)) rakeyard::refreshPics(state_.consist);
    refreshPics();
}

void frmMain::mnuRedo_Click() {
    if (state_.history.redo(state_.consist)) rakeyard::refreshPics(state_.consist);
    refreshPics();
}

void frmMain::mnuNew_Click() {
    runGuarded(services_.dialogs, [&] { (void)clearConsist(state_, services_); });
    refreshPics();
}

void frmMain::mnuEmpty_Click(int index) {
    runGuarded(services_.dialogs, [&] {
        const std::string name = state_.consist.recent.names[index];
        if (name.empty() || !clearConsist(state_, services_)) return;
        state_.consist.consistToLoad = rakeyard::joinPath(state_.paths.consistsPath, name);
        (void)loadConsistFile(state_, services_);
    });
    refreshPics();
}

void frmMain::loadConsistFromCommandLine(const std::string& path) {
    runGuarded(services_.dialogs, [&] {
        state_.consist.consistToLoad = path;
        (void)loadConsistFile(state_, services_);
    });
    refreshPics();
}

// ---- Units ----

// The tester, blocking the main window while it is open.
void frmMain::mnuMissing_Click() {
    runGuarded(services_.dialogs, [&] {
        frmDiag window(state_, services_, this);
        window.exec();
        // A consist sent to the editor replaces the one shown, after its save question.
        if (!window.consistToEdit() || !clearConsist(state_, services_)) return;
        state_.consist.consistToLoad = *window.consistToEdit();
        (void)loadConsistFile(state_, services_);
    });
    refreshPics();
}

// The activities window, blocking the main window; what it hands to the editor replaces the
// consist shown, after its save question.
void frmMain::mnuActivities_Click() {
    runGuarded(services_.dialogs, [&] {
        frmAct window(state_, services_, this);
        window.exec();
        if (window.consistToEdit()) {
            if (!clearConsist(state_, services_)) return;
            state_.consist.consistToLoad = *window.consistToEdit();
            (void)loadConsistFile(state_, services_);
        } else if (window.missingToBuild()) {
            if (!clearConsist(state_, services_)) return;
            state_.consist.header.fileName = *window.missingToBuild();
        }
    });
    refreshPics();
}

void frmMain::mnuRenumber_Click() {
    edit("Renumber units", [&] { reorderUnits(state_.consist, services_.dialogs); });
}

void frmMain::mnuAdd_Click() {
    edit("Add several wagons", [&] {
        auto askNumber = [this](const std::string& wagonName) {
            frmQtd window(qs(wagonName), this);
            window.exec();
            return window.number();
        };
        addSeveralWagons(state_, services_.dialogs, selectedLine(wagList), askNumber);
    });
    refreshPics();
}

void frmMain::mnuInsert_Click() {
    edit("Paste units", [&] { pasteUnits(state_.consist, services_.dialogs); });
}

void frmMain::mnuDelete_Click() {
    edit("Delete units", [&] {
        deleteMarkedUnits(state_.consist, services_.dialogs);
        refreshPics();
    });
}

// ---- Catalogue lists ----

// A double click (or Enter) on a list line adds the unit to the consist. The list's own
// functions are in frmMain_lists.cpp; this one lives beside the other editing operations.
void frmMain::locList_DblClick() {
    const std::string line = selectedLine(locList);
    if (line.empty()) return;
    edit("Add engine", [&] { rakeyard::addEngineOfLine(state_, line); });
}

void frmMain::wagList_DblClick() {
    const std::string line = selectedLine(wagList);
    if (line.empty()) return;
    edit("Add wagon", [&] { rakeyard::addWagonOfLine(state_, line); });
}

// ---- Options ----

void frmMain::mnuMSTSpath_Click() {
    runGuarded(services_.dialogs, [&] {
        const std::string oldPath = state_.paths.mstsPath;
        frmPath window(state_, services_, this);
        window.exec();
        if (window.endProgram()) {
            QApplication::quit();
            return;
        }
        if (state_.paths.mstsPath == oldPath) return;
        frmWait wait("Updating information...", this);
        wait.show();
        QApplication::setOverrideCursor(Qt::WaitCursor);
        const StartUpResult result = changeMstsPath(state_, services_, *startUpWindows_, oldPath);
        QApplication::restoreOverrideCursor();
        if (result == StartUpResult::Ended) {
            QApplication::quit();
            return;
        }
        showUnitLists();
        showStartErrorsButton();
    });
    refreshPics();
}

void frmMain::mnuEditor_Click() {
    runGuarded(services_.dialogs, [&] {
        frmEditor window(state_, services_, this);
        window.exec();
    });
}

void frmMain::mnu3Dviewer_Click() {
    runGuarded(services_.dialogs, [&] {
        frm3DViewer window(state_, services_, this);
        if (window.exec() != QDialog::Accepted) return;
        startUpWindows_->setViewerButton(true, "3D view");
        if (window.screenshotsWanted()) {
            frmScrshots screenshots(state_, services_, this);
            screenshots.exec();
        }
    });
}

void frmMain::mnuScreenshots_Click() {
    runGuarded(services_.dialogs, [&] {
        frmScrshots window(state_, services_, this);
        window.exec();
    });
}

// The check mark is the stored preference. The description window it would open at start is
// not part of the program yet, so the entry only remembers the choice.
void frmMain::mnuShowPic_Click() {
    runGuarded(services_.dialogs, [&] {
        setText(state_.settings, &SettingsRecord::showDescription,
                mnuShowPic->isChecked() ? "on" : "off");
        (void)saveSettings(state_.settings, state_.paths, services_);
    });
}

void frmMain::showStoredOptions() {
    mnuShowPic->setChecked(trimmedValue(state_.settings.showDescription) == "on");
    if (mnuShowPic->isChecked() && !desc_) showDescription("locList");
}

// ---- Help ----

void frmMain::mnuHelpFile_Click() {
    runGuarded(services_.dialogs, [&] {
        if (!frmHelp::showGuide(state_.paths.programFolder, this))
            services_.dialogs.report("The user guide (guide.html) is not beside the program.",
                                     Icon::Exclamation);
    });
}

void frmMain::mnuAbout_Click() {
    runGuarded(services_.dialogs, [&] {
        frmAbout window(state_, services_, this);
        window.exec();
    });
}

}  // namespace rakeyard::ui
