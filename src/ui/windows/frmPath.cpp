#include "ui/windows/frmPath.h"

#include <QLineEdit>

#include "core/platform/system_words.h"
#include "core/settings/path_windows.h"
#include "ui/support/handler_guard.h"
#include "ui/windows/qt_services.h"

namespace rakeyard::ui {

namespace {

PathWindowLook mstsPathLook() {
    PathWindowLook look;
    look.objectName = "frmPath";
    look.title = "MSTS path";
    look.prompt = "Please select the main folder for MSTS";
    look.note = "Select the main folder where your Train Simulator is installed i.e. \"" +
                qs(rakeyard::kMstsFolderExample) + "\"";
    look.size = QSize(560, 420);
    return look;
}

}  // namespace

frmPath::frmPath(AppState& state, Services& services, QWidget* parent)
    : PathWindow(mstsPathLook(), state, services, parent) {
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
