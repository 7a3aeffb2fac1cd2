#pragma once
#include "ui/widgets/path_chooser.h"

namespace rakeyard::ui {

// "Editor path": the text editor that opens MSTS files and reports.
class frmEditor : public PathWindow {
    Q_OBJECT
public:
    frmEditor(AppState& state, Services& services, QWidget* parent = nullptr);

private:
    void Command1_Click() override;
};

}  // namespace rakeyard::ui
