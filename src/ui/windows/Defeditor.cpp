#include "ui/windows/Defeditor.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include "core/platform/default_editor.h"
#include "core/settings/path_windows.h"
#include "ui/windows/frmEditor.h"
#include "ui/support/handler_guard.h"
#include "ui/windows/qt_services.h"
#include "ui/support/window_helpers.h"

namespace rakeyard::ui {

Defeditor::Defeditor(AppState& state, Services& services, QWidget* parent)
    : QDialog(parent), state_(state), services_(services) {
    setObjectName("Defeditor");
    setWindowTitle("Default Editor");
    Label1 = textLabel("Label1",
                       "To use wordpad,check the wordpad box,else check other. If your OS is "
                       "installed on a drive other than C: choose other and point to the proper "
                       "folder.",
                       this);
    Check1 = named(new QCheckBox("&Wordpad", this), "Check1");
    Other = named(new QCheckBox("&Other", this), "Other");
    const std::string standard = rakeyard::defaultEditorPath();
    Check1->setToolTip(standard.empty() ? QString("No text editor was found on this system")
                                        : qs(standard));
    auto* boxes = new QHBoxLayout();
    boxes->addWidget(Check1);
    boxes->addWidget(Other);
    boxes->addStretch(1);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(Label1);
    layout->addLayout(boxes);
    setFixedWidth(420);
    connect(Check1, &QCheckBox::clicked, this, &Defeditor::Check1_Click);
    connect(Other, &QCheckBox::clicked, this, &Defeditor::Other_Click);
}

void Defeditor::Check1_Click() {
    runGuarded(services_.dialogs, [&] {
        (void)rakeyard::chooseDefaultEditor(state_.settings, state_.paths, services_);
    });
    accept();
}

void Defeditor::Other_Click() {
    runGuarded(services_.dialogs, [&] {
        frmEditor editor(state_, services_, this);
        editor.exec();
    });
    accept();
}

}  // namespace rakeyard::ui
