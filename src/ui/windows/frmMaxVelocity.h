#pragma once
#include <QDialog>

#include "core/consist/consist_state.h"
#include "core/platform/services.h"
#include "core/tools/max_velocity.h"

class QFrame;
class QLabel;
class QLineEdit;
class QPushButton;
class QTimer;

namespace rakeyard::ui {

// "Maxvelocity calculator": the two numbers of a consist's MaxVelocity line worked out from a
// top speed, a low speed and an efficiency, handed to the consist by "Use values".
class frmMaxVelocity : public QDialog {
    Q_OBJECT
public:
    frmMaxVelocity(ConsistState& consist, Services& services, QWidget* parent = nullptr);

    QLineEdit* Text1;  // top speed, mph
    QLineEdit* Text2;  // top speed, km/h
    QLineEdit* Text3;  // efficiency
    QLineEdit* Text4;  // low speed, mph
    QLineEdit* Text5;  // low speed, km/h
    QLineEdit* Text6;
    QLineEdit* Text7;
    QFrame* Frame1;
    QLabel* Label12;
    QPushButton* Command1;
    QPushButton* Command3;
    QPushButton* Command4;
    QTimer* Timer1;

private:
    void Command1_Click();
    void Command3_Click();
    void Command4_Click();
    void Timer1_Timer();
    void showBoxes();
    void readBoxes();

    ConsistState& consist_;
    Services& services_;
    MaxVelocityBoxes boxes_;
};

}  // namespace rakeyard::ui
