#pragma once
#include "ui/widgets/path_chooser.h"

namespace rakeyard::ui {

// "3D viewer path": the shape viewer program. The window has no note Label2.
class frm3DViewer : public PathWindow {
    Q_OBJECT
public:
    frm3DViewer(AppState& state, Services& services, QWidget* parent = nullptr);
    // After OK: whether frmScrshots is to follow, no screenshots folder being set.
    bool screenshotsWanted() const { return screenshotsWanted_; }

private:
    void Command1_Click() override;
    bool screenshotsWanted_ = false;
};

}  // namespace rakeyard::ui
