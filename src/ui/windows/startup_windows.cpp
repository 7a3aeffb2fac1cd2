#include "ui/windows/startup_windows.h"

#include <QAction>
#include <QApplication>

#include "ui/windows/Defeditor.h"
#include "ui/windows/SFVOption.h"
#include "ui/windows/frmPath.h"
#include "ui/windows/frmScrshots.h"
#include "ui/windows/qt_services.h"

namespace rakeyard::ui {

namespace {

// Start-up's windows come up with the normal pointer, whatever the long work in between shows.
class NormalPointer {
public:
    NormalPointer() : wasBusy_(QApplication::overrideCursor() != nullptr) {
        if (wasBusy_) QApplication::setOverrideCursor(Qt::ArrowCursor);
    }
    ~NormalPointer() {
        if (wasBusy_) QApplication::restoreOverrideCursor();
    }

private:
    bool wasBusy_;
};

QWidget* ownerOf(QWidget& main) {
    return main.isVisible() ? &main : nullptr;
}

}  // namespace

bool QtStartUpWindows::showPathWindow() {
    NormalPointer pointer;
    frmPath window(state_, services_, ownerOf(main_));
    window.exec();
    return !window.endProgram();
}

void QtStartUpWindows::showDefaultEditorWindow() {
    NormalPointer pointer;
    Defeditor window(state_, services_, ownerOf(main_));
    window.exec();
}

void QtStartUpWindows::showViewerOptionWindow() {
    NormalPointer pointer;
    SFVOption window(state_, services_, ownerOf(main_));
    window.exec();
}

void QtStartUpWindows::showScreenshotsWindow() {
    NormalPointer pointer;
    frmScrshots window(state_, services_, ownerOf(main_));
    window.exec();
}

void QtStartUpWindows::setViewerButton(bool enabled, std::string_view toolTip) {
    if (QAction* button = main_.findChild<QAction*>("tbr_3dview")) {
        // The button stays off while the 3D view itself is not part of the program.
        button->setToolTip(qs(toolTip));
        (void)enabled;
    }
}

}  // namespace rakeyard::ui
