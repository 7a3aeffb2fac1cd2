// The main window's handlers that open the tools' windows.
#include "ui/support/handler_guard.h"
#include "ui/windows/frmBigOnes.h"
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

}  // namespace rakeyard::ui
