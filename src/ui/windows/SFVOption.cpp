#include "ui/windows/SFVOption.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include "core/settings/path_windows.h"
#include "ui/windows/frm3DViewer.h"
#include "ui/windows/frmScrshots.h"
#include "ui/support/handler_guard.h"
#include "ui/support/window_helpers.h"

namespace rakeyard::ui {

SFVOption::SFVOption(AppState& state, Services& services, QWidget* parent)
    : QDialog(parent), state_(state), services_(services) {
    setObjectName("SFVOption");
    setWindowTitle("Shape viewer");
    Label1 = textLabel("Label1", "Do you have or want to use the Shape Viewer Program?", this);
    Check1 = named(new QCheckBox("&Yes", this), "Check1");
    Check2 = named(new QCheckBox("&No", this), "Check2");
    auto* boxes = new QHBoxLayout();
    boxes->addWidget(Check1);
    boxes->addWidget(Check2);
    boxes->addStretch(1);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(Label1);
    layout->addLayout(boxes);
    setMinimumWidth(380);
    connect(Check1, &QCheckBox::clicked, this, &SFVOption::Check1_Click);
    connect(Check2, &QCheckBox::clicked, this, &SFVOption::Check2_Click);
}

void SFVOption::Check1_Click() {
    runGuarded(services_.dialogs, [&] {
        if (!rakeyard::viewerWindowNeeded(state_.settings)) return;
        frm3DViewer viewer(state_, services_, this);
        viewerChosen_ = viewer.exec() == QDialog::Accepted;
        if (viewer.screenshotsWanted()) {
            frmScrshots screenshots(state_, services_, this);
            screenshots.exec();
        }
    });
    accept();
}

void SFVOption::Check2_Click() {
    runGuarded(services_.dialogs,
               [&] { (void)rakeyard::declineViewer(state_.settings, state_.paths, services_); });
    accept();
}

}  // namespace rakeyard::ui
