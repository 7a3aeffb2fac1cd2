#pragma once
#include <QDialog>
#include <array>
#include <string>

#include "core/app/app_state.h"
#include "core/platform/services.h"
#include "core/tools/random_consist.h"

class QGroupBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QRadioButton;

namespace rakeyard::ui {

// "Random consist": a train mixed from the ticked wagons of one coupler and type, put into the
// editor in place of its consist.
class frmRand : public QDialog {
    Q_OBJECT
public:
    // random is the program's one random source, so that each run draws the same sequence.
    frmRand(AppState& state, Services& services, RandomSource& random, QWidget* parent = nullptr);

    std::array<QRadioButton*, 3> Option1;  // Automatic, Chain, Bar
    std::array<QRadioButton*, 2> Option2;  // Freight, Carriage
    QGroupBox* Frame1;
    QGroupBox* Frame2;
    QListWidget* wagList;
    QLabel* lblWag;
    QLabel* Label1;
    QLabel* Label2;
    QLabel* Label3;
    QLabel* Picture1;
    QLineEdit* Text1;
    QPushButton* cmdCheckAll;
    QPushButton* cmdUncheckAll;
    QPushButton* Command1;
    QPushButton* Command2;

protected:
    void done(int result) override;

private:
    void applyFilter();
    void setAllTicks(bool ticked);
    void wagList_Click();
    void Command1_Click();

    AppState& state_;
    Services& services_;
    RandomSource& random_;
    std::string couplerFilter_ = "A";
    std::string typeFilter_ = "Freight";
};

}  // namespace rakeyard::ui
