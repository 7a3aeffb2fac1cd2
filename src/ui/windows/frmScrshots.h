#pragma once
#include "ui/widgets/path_chooser.h"

namespace rakeyard::ui {

// "Path for screenshots": where the shape viewer's pictures are collected.
class frmScrshots : public PathWindow {
    Q_OBJECT
public:
    frmScrshots(AppState& state, Services& services, QWidget* parent = nullptr);

private:
    void Command1_Click() override;
    void Command2_Click() override;
};

}  // namespace rakeyard::ui
