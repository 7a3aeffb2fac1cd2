#pragma once
#include <QApplication>
#include <QString>

#include "core/platform/progress.h"
#include "ui/windows/frmWait.h"
#include "ui/windows/qt_services.h"

namespace rakeyard::ui {

// frmWait in front with the hourglass for as long as the scope lasts, its bar and label
// driven by the program's progress when that is the window program's own.
class WaitScope {
public:
    WaitScope(const QString& text, Progress& progress, QWidget* parent)
        : window_(text, parent), progress_(dynamic_cast<QtProgress*>(&progress)) {
        window_.show();
        if (progress_) progress_->attach(window_.PBar1, nullptr);
        QApplication::setOverrideCursor(Qt::WaitCursor);
        QCoreApplication::processEvents();
    }
    ~WaitScope() {
        if (progress_) progress_->detach();
        QApplication::restoreOverrideCursor();
    }
    WaitScope(const WaitScope&) = delete;
    WaitScope& operator=(const WaitScope&) = delete;

private:
    frmWait window_;
    QtProgress* progress_;
};

}  // namespace rakeyard::ui
