#include "ui/windows/frmScrshots.h"

#include "core/settings/path_windows.h"
#include "ui/support/handler_guard.h"
#include "ui/windows/qt_services.h"

namespace rakeyard::ui {

namespace {

PathWindowLook screenshotsPathLook() {
    PathWindowLook look;
    look.objectName = "frmScrshots";
    look.title = "Path for screenshots";
    look.prompt =
        "Please select the path to save the pictures taken by your 3d viewer "
        "program";
    look.note =
        "If you press \"Cancel\" then the folder for screenshots will be the same "
        "as the one where the 3D viewer is installed.";
    look.noteBelowChooser = true;
    look.size = QSize(560, 420);
    return look;
}

}  // namespace

frmScrshots::frmScrshots(AppState& state, Services& services, QWidget* parent)
    : PathWindow(screenshotsPathLook(), state, services, parent) {
    chooser->openOn(
        qs(rakeyard::screenshotsStartFolder(state_.settings, state_.paths, services_.fs)));
}

void frmScrshots::Command1_Click() {
    runGuarded(services_.dialogs, [&] {
        const auto outcome = rakeyard::acceptScreenshotsPath(
            stdString(chooser->text()), state_.settings, state_.paths, services_);
        if (outcome == rakeyard::WindowOutcome::Close) accept();
    });
}

void frmScrshots::Command2_Click() {
    runGuarded(services_.dialogs, [&] {
        (void)rakeyard::cancelScreenshotsPath(state_.settings, state_.paths, services_);
    });
    reject();
}

}  // namespace rakeyard::ui
