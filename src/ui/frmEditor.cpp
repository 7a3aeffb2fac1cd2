#include "ui/frmEditor.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include "core/settings/path_windows.h"
#include "ui/handler_guard.h"
#include "ui/path_chooser.h"
#include "ui/qt_services.h"
#include "ui/window_helpers.h"

namespace rakeyard::ui {

frmEditor::frmEditor(AppState& state, Services& services, QWidget* parent)
    : QDialog(parent), state_(state), services_(services) {
    setObjectName("frmEditor");
    setWindowTitle("Editor path");
    Label1 = textLabel("Label1", "Please select the text editor program to edit files", this);
    Label2 = textLabel("Label2",
                       "The text editor program must allow to save files in Unicode format.    "
                       "(i.e. Wordpad.exe).",
                       this);
#ifdef _WIN32
    chooser = new PathChooser(this, {"*.exe"});
#else
    chooser = new PathChooser(this, {}, true);
#endif
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
    resize(620, 420);
    connect(Command1, &QPushButton::clicked, this, &frmEditor::Command1_Click);
    connect(Command2, &QPushButton::clicked, this, &QDialog::reject);
    if (!state_.paths.editorPath.empty() && !rakeyard::isUnset(state_.paths.editorPath))
        chooser->openOn(qs(state_.paths.editorPath));
}

void frmEditor::Command1_Click() {
    runGuarded(services_.dialogs, [&] {
        const auto outcome = rakeyard::acceptEditorPath(stdString(chooser->text()), state_.settings,
                                                        state_.paths, services_);
        if (outcome == rakeyard::WindowOutcome::Close) accept();
    });
}

}  // namespace rakeyard::ui
