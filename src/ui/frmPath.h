#pragma once
#include <QDialog>

#include "core/app/app_state.h"
#include "core/platform/services.h"

class QLabel;
class QPushButton;
namespace rakeyard::ui {

class PathChooser;

// "MSTS path": the main folder of the MSTS installation.
class frmPath : public QDialog {
    Q_OBJECT
public:
    frmPath(AppState& state, Services& services, QWidget* parent = nullptr);
    // True after Cancel with an empty box: the program is to end.
    bool endProgram() const { return endProgram_; }

    QLabel* Label1;
    QLabel* Label2;
    rakeyard::ui::PathChooser* chooser;
    QPushButton* Command1;  // OK
    QPushButton* Command2;  // Cancel

private:
    void Command1_Click();
    void Command2_Click();
    AppState& state_;
    Services& services_;
    bool endProgram_ = false;
};

}  // namespace rakeyard::ui
