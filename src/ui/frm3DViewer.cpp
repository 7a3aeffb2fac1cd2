#include "ui/frm3DViewer.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include "core/settings/path_windows.h"
#include "ui/handler_guard.h"
#include "ui/path_chooser.h"
#include "ui/qt_services.h"
#include "ui/window_helpers.h"

namespace rakeyard::ui {

frm3DViewer::frm3DViewer(AppState& state, Services& services, QWidget* parent)
    : QDialog(parent), state_(state), services_(services) {
    setObjectName("frm3DViewer");
    setWindowTitle("3D viewer path");
    Label1 = textLabel("Label1", "Please select the program to display 3D models", this);
    chooser = new PathChooser(this, {"*.exe", "*.EXE"});
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
    layout->addLayout(buttons);
    resize(620, 420);
    connect(Command1, &QPushButton::clicked, this, &frm3DViewer::Command1_Click);
    connect(Command2, &QPushButton::clicked, this, &QDialog::reject);
    const std::string& viewer = state_.paths.viewerPath;
    if (!rakeyard::isUnset(viewer) && viewer != "NO") chooser->openOn(qs(viewer));
}

void frm3DViewer::Command1_Click() {
    runGuarded(services_.dialogs, [&] {
        const auto outcome = rakeyard::acceptViewerPath(stdString(chooser->text()), state_.settings,
                                                        state_.paths, services_);
        if (outcome == rakeyard::ViewerOutcome::Stay) return;
        screenshotsWanted_ = outcome == rakeyard::ViewerOutcome::CloseAndAskScreenshots;
        accept();
    });
}

}  // namespace rakeyard::ui
