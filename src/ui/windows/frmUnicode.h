#pragma once
#include <QDialog>

#include "core/app/app_state.h"
#include "core/platform/services.h"

class QLabel;
class QListWidget;
class QPushButton;

namespace rakeyard::ui {

// "Non-Unicode files": the unit, cab view, sound and shape description files under Trainset
// that are not in the UTF-16 form MSTS writes, and their conversion.
class frmUnicode : public QDialog {
    Q_OBJECT
public:
    frmUnicode(AppState& state, Services& services, QWidget* parent = nullptr);

    QLabel* Label1;  // the folder that is looked through
    QListWidget* List1;
    QPushButton* Command1;  // Verify
    QPushButton* Command3;  // Convert
    QPushButton* Command2;  // Cancel

    // The check that the window runs when it opens (and Verify runs again).
    void checkUnicode();

private:
    void Command1_Click();
    void Command3_Click();
    AppState& state_;
    Services& services_;
};

}  // namespace rakeyard::ui
