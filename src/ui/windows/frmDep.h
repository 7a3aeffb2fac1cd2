#pragma once
#include <QDialog>

#include "core/app/app_state.h"
#include "core/platform/services.h"

class QListWidget;
class QPushButton;

namespace rakeyard::ui {

// The place and size of a window that shows dependencies, kept in settings.bin: both windows
// of that kind share them. Nothing of a minimized window is kept.
void storeDependenciesPlace(const QWidget& window, AppState& state, Services& services);

// The consists that use one unit: a double click loads one into the editor, Delete sends the
// selected ones to the trash.
class frmDep : public QDialog {
    Q_OBJECT
public:
    frmDep(AppState& state, Services& services, const UnitRecord& unit, bool isEngine,
           QWidget* parent = nullptr);

    // Fills the list; false, after saying so, when no consist uses the unit (the window is then
    // not to be shown).
    bool Form_Load();

    QListWidget* conList;
    QPushButton* Command1;  // delete
    QPushButton* Command2;  // close

protected:
    void done(int result) override;

private:
    void conList_DblClick();
    void Command1_Click();

    AppState& state_;
    Services& services_;
    UnitRecord unit_;
};

}  // namespace rakeyard::ui
