// The main window's handlers that open the tools' windows.
#include "ui/support/handler_guard.h"
#include "ui/widgets/unit_list_view.h"
#include "ui/windows/frmBigOnes.h"
#include "ui/windows/frmDesc.h"
#include "ui/windows/frmMain.h"
#include "ui/windows/frmMaxVelocity.h"
#include "ui/windows/frmRand.h"
#include "ui/windows/frmStats.h"

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

}  // namespace rakeyard::ui
