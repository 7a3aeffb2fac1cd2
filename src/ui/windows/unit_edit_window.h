#pragma once
#include <QDialog>

#include "core/consist/unit_edit.h"
#include "core/platform/services.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace rakeyard::ui {

// What frmEngEdit and frmWagEdit share: the unit's name, its two couplings and its power or
// mass, written into its file by OK.
class UnitEditWindow : public QDialog {
    Q_OBJECT
public:
    QLineEdit* Text1;       // name
    QLineEdit* Text2;       // power or mass, digits only
    QLabel* Label4;         // the power's unit
    QComboBox* Combo1;      // front coupling
    QComboBox* Combo2;      // rear coupling
    QPushButton* Command1;  // OK
    QPushButton* Command2;  // Cancel

    // The outcome of OK; Refused until the file was written.
    UnitEditOutcome outcome() const { return outcome_; }

protected:
    UnitEditWindow(UnitRecord& unit, bool isEngine, Services& services, QWidget* parent);

private:
    void Form_Load();
    void Command1_Click();

    UnitRecord& unit_;
    bool isEngine_;
    Services& services_;
    QString powerUnit_;
    UnitEditOutcome outcome_ = UnitEditOutcome::Refused;
};

// "Change engine parameters": name, couplings and power of an engine.
class frmEngEdit : public UnitEditWindow {
    Q_OBJECT
public:
    frmEngEdit(UnitRecord& unit, Services& services, QWidget* parent = nullptr);
};

// "Change wagon parameters": name, couplings and mass of a wagon.
class frmWagEdit : public UnitEditWindow {
    Q_OBJECT
public:
    frmWagEdit(UnitRecord& unit, Services& services, QWidget* parent = nullptr);
};

}  // namespace rakeyard::ui
