#pragma once
#include "ui/widgets/path_chooser.h"

namespace rakeyard::ui {

// "MSTS path": the main folder of the MSTS installation.
class frmPath : public PathWindow {
    Q_OBJECT
public:
    frmPath(AppState& state, Services& services, QWidget* parent = nullptr);
    // True after Cancel with an empty box: the program is to end.
    bool endProgram() const { return endProgram_; }

private:
    void Command1_Click() override;
    void Command2_Click() override;
    bool endProgram_ = false;
};

}  // namespace rakeyard::ui
