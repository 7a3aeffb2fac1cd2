#pragma once
#include <QDialog>

#include "core/app/app_state.h"
#include "core/platform/services.h"

class QCheckBox;
class QLabel;
class QPushButton;
namespace rakeyard::ui {

// The warning in front of the aliasing window, until the user ticks it off for good.
class Dialog : public QDialog {
    Q_OBJECT
public:
    Dialog(AppState& state, Services& services, QWidget* parent = nullptr);

    QLabel* Label1;
    QCheckBox* Check1;
    QPushButton* OKButton;

private:
    void OKButton_Click();
    AppState& state_;
    Services& services_;
};

}  // namespace rakeyard::ui
