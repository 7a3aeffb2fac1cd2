#pragma once
#include <QDialog>

#include "core/app/app_state.h"
#include "core/platform/services.h"

class QLabel;
class QPushButton;
namespace rakeyard::ui {

class PathChooser;

// "3D viewer path": the shape viewer program.
class frm3DViewer : public QDialog {
    Q_OBJECT
public:
    frm3DViewer(AppState& state, Services& services, QWidget* parent = nullptr);
    // After OK: whether frmScrshots is to follow, no screenshots folder being set.
    bool screenshotsWanted() const { return screenshotsWanted_; }

    QLabel* Label1;
    rakeyard::ui::PathChooser* chooser;
    QPushButton* Command1;  // OK
    QPushButton* Command2;  // Cancel

private:
    void Command1_Click();
    AppState& state_;
    Services& services_;
    bool screenshotsWanted_ = false;
};

}  // namespace rakeyard::ui
