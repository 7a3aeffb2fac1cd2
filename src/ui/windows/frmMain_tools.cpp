// The main window's handlers that open the tools' windows.
#include "core/msts/unit_list.h"
#include "core/platform/text_utf.h"
#include "core/tools/shape_viewer.h"
#include "ui/support/handler_guard.h"
#include "ui/widgets/unit_list_view.h"
#include "ui/windows/frmBigOnes.h"
#include "ui/windows/frmDep.h"
#include "ui/windows/frmDep1.h"
#include "ui/windows/frmLoose.h"
#include "ui/windows/frmDesc.h"
#include "ui/windows/frmMain.h"
#include "ui/windows/frmMaxVelocity.h"
#include "ui/windows/frmPreview.h"
#include "ui/windows/frmRand.h"
#include "ui/windows/frmStats.h"
#include "ui/windows/qt_services.h"
#include "ui/windows/unit_edit_window.h"

namespace rakeyard::ui {

void frmMain::mnuMaxvel_Click() {
    runGuarded(services_.dialogs, [&] {
        frmMaxVelocity window(state_.consist, services_, this);
        window.exec();
    });
}

void frmMain::tbrRandom_Click() {
    runGuarded(services_.dialogs, [&] {
        frmRand window(state_, services_, random_, this);
        window.exec();
    });
    refreshPics();
}

void frmMain::mnuBigones_Click() {
    runGuarded(services_.dialogs, [&] {
        frmBigOnes window(state_.catalogue, this);
        window.exec();
    });
}

void frmMain::mnuAllocated_Click() {
    runGuarded(services_.dialogs, [&] {
        frmStats window(state_, services_, this);
        window.show();
        window.Form_Load();
        window.exec();
    });
}

void frmMain::mnuPicture_Click() {
    showDescription(wagList->hasFocus() ? "wagList" : "locList");
}

void frmMain::showDescription(const QString& list) {
    runGuarded(services_.dialogs, [&] {
        if (!desc_) {
            desc_ = new frmDesc(state_, services_, locList, wagList, this);
            desc_->setAttribute(Qt::WA_DeleteOnClose);
            desc_->setModal(false);
        }
        desc_->setActiveList(list);
        desc_->show();
        desc_->raise();
        desc_->showPicOnScreen();
    });
}

void frmMain::followInDescription(const QString& list) {
    if (!desc_ || !desc_->isVisible()) return;
    desc_->setActiveList(list);
    desc_->showPicOnScreen();
}

// Closes the preview when it is open, else opens it on the page shown.
void frmMain::mnuPreview_Click() {
    if (preview_ && preview_->isVisible()) {
        preview_->close();
        return;
    }
    runGuarded(services_.dialogs, [&] {
        if (!preview_) {
            preview_ = new frmPreview(state_, services_, this);
            preview_->setAttribute(Qt::WA_DeleteOnClose);
            preview_->setModal(false);
        }
        preview_->show();
        preview_->Command2_Click();
    });
}

// The consists that use the unit selected in the list with the input focus (the engines unless
// the wagon list has it).
// The shape of the unit selected in the list with the input focus, in the shape viewer.
void frmMain::mnu3D_Click() {
    runGuarded(services_.dialogs, [&] {
        const bool engines = !wagList->hasFocus();
        (void)TriDviewer(state_.paths, state_.catalogue, services_, engines,
                         stdString((engines ? locList : wagList)->currentLine()));
    });
}

void frmMain::mnuConsUse_Click() {
    runGuarded(services_.dialogs, [&] {
        const bool isEngine = !wagList->hasFocus();
        const std::string line = stdString((isEngine ? locList : wagList)->currentLine());
        if (line.empty()) {
            services_.dialogs.report("Nothing selected, please click on an engine or wagon first.",
                                     Icon::Exclamation);
            return;
        }
        const auto records =
            usedRecords(state_.catalogue, isEngine ? UnitClass::Engine : UnitClass::Wagon);
        const auto index = findUnitByKey(records, keyOfLine(line), KeyCase::Exact);
        if (!index) return;
        frmDep window(state_, services_, records[*index], isEngine, this);
        if (window.Form_Load()) window.exec();
    });
    refreshPics();
}

// The dependency tree of a route, blocking the main window; a consist loaded from it shows in
// the editor at once, behind the window.
void frmMain::mnuActsUse_Click() {
    runGuarded(services_.dialogs, [&] {
        frmDep1 window(state_, services_, this);
        connect(&window, &frmDep1::consistLoaded, this, &frmMain::refreshPics);
        window.exec();
    });
    refreshPics();
}

// The loose consist editor, blocking the main window; a filter chosen in its popups is set
// here too, in the menu, the list and settings.bin.
void frmMain::mnuLoose_Click() {
    runGuarded(services_.dialogs, [&] {
        frmLoose window(state_, services_, this);
        connect(&window, &frmLoose::engineFilterChosen, this, &frmMain::setEngineFilter);
        connect(&window, &frmLoose::wagonFilterChosen, this, &frmMain::setWagonFilter);
        window.exec();
    });
}

// The unit selected in the list with the input focus (the engines unless the wagon list has
// it) is edited in its own window; its list line follows the new values.
void frmMain::mnuEditUnit_Click() {
    editUnit(!wagList->hasFocus());
}

void frmMain::editUnit(bool isEngine) {
    runGuarded(services_.dialogs, [&] {
        const std::string line = stdString((isEngine ? locList : wagList)->currentLine());
        if (line.empty()) {
            services_.dialogs.report(
                isEngine ? "You must select an engine from the list."
                         : "You must select a wagon from the list.",
                Icon::Information,
                isEngine ? "Change engine parameters" : "Change wagon parameters");
            return;
        }
        const auto used =
            usedRecords(state_.catalogue, isEngine ? UnitClass::Engine : UnitClass::Wagon);
        const auto index = findUnitByKey(used, trimBlanks(keyOfLine(line)), KeyCase::Exact);
        if (!index) {
            services_.dialogs.report(
                isEngine ? "This engine could not be found" : "This wagon could not be found",
                Icon::Stop);
            return;
        }
        UnitRecord& unit =
            isEngine ? state_.catalogue.engines[*index] : state_.catalogue.wagons[*index];
        if (isEngine) {
            frmEngEdit window(unit, services_, this);
            window.exec();
        } else {
            frmWagEdit window(unit, services_, this);
            window.exec();
        }
        showUnitLists();
    });
}

}  // namespace rakeyard::ui
