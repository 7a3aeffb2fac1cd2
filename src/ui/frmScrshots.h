#pragma once
#include <QDialog>

#include "core/app/app_state.h"
#include "core/platform/services.h"

class QLabel;
class QPushButton;
namespace rakeyard::ui {

class PathChooser;

// "Path for screenshots": where the shape viewer's pictures are collected.
class frmScrshots : public QDialog {
    Q_OBJECT
public:
    frmScrshots(AppState& state, Services& services, QWidget* parent = nullptr);

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
};

}  // namespace rakeyard::ui
