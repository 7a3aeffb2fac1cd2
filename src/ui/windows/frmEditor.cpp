#include "ui/windows/frmEditor.h"

#include "core/settings/path_windows.h"
#include "ui/support/handler_guard.h"
#include "ui/windows/qt_services.h"

namespace rakeyard::ui {

namespace {

PathWindowLook editorPathLook() {
    PathWindowLook look;
    look.objectName = "frmEditor";
    look.title = "Editor path";
    look.prompt = "Please select the text editor program to edit files";
#ifdef _WIN32
    look.note =
        "The text editor program must allow to save files in Unicode format.    "
        "(i.e. Wordpad.exe).";
    look.fileFilters = {"*.exe"};
#else
    look.note =
        "The text editor program must allow to save files in Unicode format and open a window "
        "of its own (i.e. gedit, Kate or Mousepad).";
    look.executablesOnly = true;
#endif
    look.size = QSize(620, 420);
    return look;
}

}  // namespace

frmEditor::frmEditor(AppState& state, Services& services, QWidget* parent)
    : PathWindow(editorPathLook(), state, services, parent) {
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
