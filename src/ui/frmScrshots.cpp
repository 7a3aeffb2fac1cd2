#include "ui/frmScrshots.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include "core/settings/path_windows.h"
#include "ui/handler_guard.h"
#include "ui/path_chooser.h"
#include "ui/qt_services.h"
#include "ui/window_helpers.h"

namespace rakeyard::ui {

frmScrshots::frmScrshots(AppState& state, Services& services, QWidget* parent)
    : QDialog(parent), state_(state), services_(services) {
    setObjectName("frmScrshots");
    setWindowTitle("Path for screenshots");
    Label1 = textLabel("Label1",
                       "Please select the path to save the pictures taken by your 3d viewer "
                       "program",
                       this);
    Label2 = textLabel("Label2",
                       "If you press \"Cancel\" then the folder for screenshots will be the same "
                       "as the one where the 3D viewer is installed.",
                       this);
    chooser = new PathChooser(this);
    Command1 = button("Command1", "OK", this);
    Command2 = button("Command2", "Cancel", this);
    Command1->setDefault(true);
    auto* buttons = new QHBoxLayout();
    buttons->addStretch(1);
    buttons->addWidget(Command1);
    buttons->addWidget(Command2);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(Label1);
    layout->addWidget(chooser, 1);
    layout->addWidget(Label2);
    layout->addLayout(buttons);
    resize(560, 420);
    connect(Command1, &QPushButton::clicked, this, &frmScrshots::Command1_Click);
    connect(Command2, &QPushButton::clicked, this, &frmScrshots::Command2_Click);
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
