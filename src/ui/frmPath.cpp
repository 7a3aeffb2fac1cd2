#include "ui/frmPath.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QVBoxLayout>

#include "core/settings/path_windows.h"
#include "ui/handler_guard.h"
#include "ui/path_chooser.h"
#include "ui/qt_services.h"
#include "ui/window_helpers.h"

namespace rakeyard::ui {

frmPath::frmPath(AppState& state, Services& services, QWidget* parent)
    : QDialog(parent), state_(state), services_(services) {
    setObjectName("frmPath");
    setWindowTitle("MSTS path");
    Label1 = textLabel("Label1", "Please select the main folder for MSTS", this);
    Label2 = textLabel("Label2",
                       "Select the main folder where your Train Simulator is installed i.e. "
                       "\"C:\\Program Files\\Microsoft Games\\Train Simulator\"",
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
    layout->addWidget(Label2);
    layout->addWidget(chooser, 1);
    layout->addLayout(buttons);
    resize(560, 420);
    connect(Command1, &QPushButton::clicked, this, &frmPath::Command1_Click);
    connect(Command2, &QPushButton::clicked, this, &frmPath::Command2_Click);
    const std::string start = rakeyard::mstsPathStartFolder(state_.settings);
    chooser->openOn(qs(start));
    if (rakeyard::isUnset(state_.settings.mstsPath)) chooser->Text1->clear();
}

void frmPath::Command1_Click() {
    runGuarded(services_.dialogs, [&] {
        const auto outcome = rakeyard::acceptMstsPath(stdString(chooser->text()), state_.settings,
                                                      state_.paths, services_);
        if (outcome == rakeyard::WindowOutcome::Close) accept();
    });
}

void frmPath::Command2_Click() {
    endProgram_ = rakeyard::cancelMstsPath(stdString(chooser->text())) ==
                  rakeyard::PathCancelOutcome::EndProgram;
    reject();
}

}  // namespace rakeyard::ui
