#include "ui/windows/Defeditor.h"

#include <QCheckBox>
#include <QFileInfo>
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
    const std::string standard = rakeyard::defaultEditorPath();
#ifdef _WIN32
    Label1 = textLabel("Label1",
                       "To use wordpad,check the wordpad box,else check other. If your OS is "
                       "installed on a drive other than C: choose other and point to the proper "
                       "folder.",
                       this);
    Check1 = named(new QCheckBox("&Wordpad", this), "Check1");
#else
    // Off Windows the first box offers the text editor found on this system, by its name.
    const QString found = standard.empty() ? QString() : QFileInfo(qs(standard)).fileName();
    Label1 = textLabel("Label1",
                       found.isEmpty()
                           ? QString("No text editor with a window was found on this system: "
                                     "check other and point to the editor you want.")
                           : "To use " + found + ", check its box, else check other and point "
                                                 "to the editor you want.",
                       this);
    Check1 = named(new QCheckBox(found.isEmpty() ? QString("&System editor") : "&" + found, this),
                   "Check1");
    Check1->setEnabled(!found.isEmpty());
#endif
    Other = named(new QCheckBox("&Other", this), "Other");
    Check1->setToolTip(standard.empty() ? QString("No text editor was found on this system")
                                        : qs(standard));
    auto* boxes = new QHBoxLayout();
    boxes->addWidget(Check1);
    boxes->addWidget(Other);
    boxes->addStretch(1);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(Label1);
    layout->addLayout(boxes);
    setMinimumWidth(420);
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
