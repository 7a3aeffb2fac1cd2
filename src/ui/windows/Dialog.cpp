#include "ui/windows/Dialog.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QStyle>
#include <QVBoxLayout>

#include "core/settings/path_windows.h"
#include "ui/support/handler_guard.h"
#include "ui/windows/qt_services.h"
#include "ui/support/window_helpers.h"

namespace rakeyard::ui {

Dialog::Dialog(AppState& state, Services& services, QWidget* parent)
    : QDialog(parent), state_(state), services_(services) {
    setObjectName("Dialog");
    setWindowTitle("Aliasing");
    Label1 = textLabel("Label1", qs(rakeyard::kAliasWarningText), this);
    Check1 = named(new QCheckBox("&Don't show this warning again", this), "Check1");
    OKButton = button("OKButton", "OK", this);
    OKButton->setDefault(true);
    auto* icon = new QLabel(this);
    icon->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxWarning).pixmap(32, 32));
    auto* top = new QHBoxLayout();
    top->addWidget(icon, 0, Qt::AlignTop);
    top->addWidget(Label1, 1);
    auto* bottom = new QHBoxLayout();
    bottom->addWidget(Check1);
    bottom->addStretch(1);
    bottom->addWidget(OKButton);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addLayout(bottom);
    setMinimumWidth(460);
    connect(OKButton, &QPushButton::clicked, this, &Dialog::OKButton_Click);
}

void Dialog::OKButton_Click() {
    runGuarded(services_.dialogs, [&] {
        (void)rakeyard::acceptAliasWarning(Check1->isChecked(), state_.settings, state_.paths,
                                           services_);
    });
    accept();
}

}  // namespace rakeyard::ui
