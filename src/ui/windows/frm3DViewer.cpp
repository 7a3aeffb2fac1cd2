#include "ui/windows/frm3DViewer.h"

#include "core/settings/path_windows.h"
#include "ui/support/handler_guard.h"
#include "ui/windows/qt_services.h"

namespace rakeyard::ui {

namespace {

PathWindowLook viewerPathLook() {
    PathWindowLook look;
    look.objectName = "frm3DViewer";
    look.title = "3D viewer path";
    look.prompt = "Please select the program to display 3D models";
#ifdef _WIN32
    look.fileFilters = {"*.exe", "*.EXE"};
#else
    look.executablesOnly = true;
#endif
    look.size = QSize(620, 420);
    return look;
}

}  // namespace

frm3DViewer::frm3DViewer(AppState& state, Services& services, QWidget* parent)
    : PathWindow(viewerPathLook(), state, services, parent) {
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
