#pragma once
#include <QDialog>
#include <array>

#include "core/app/app_state.h"
#include "core/platform/services.h"
#include "core/tools/allocated_space.h"

class QGroupBox;
class QLabel;
class QPushButton;
class QRadioButton;

namespace rakeyard::ui {

class SpaceChart;

// "Allocated space": how many units and consists are installed and the disk space they take,
// with a chart by kind of file; its options write the lists of all units into Reports.
class frmStats : public QDialog {
    Q_OBJECT
public:
    frmStats(AppState& state, Services& services, QWidget* parent = nullptr);

    // The counts and totals, added up with the hourglass.
    void Form_Load();

    // Label13: the counts (0 engines, 1 wagons, 2 consists) and the byte totals (3 engine
    // folders, 4 engine files, 5 cab views, 6 sounds, 7 wagons, 8 consists). Label15: megabytes
    // of the same rows, but 7 consists and 8 wagons.
    std::array<QLabel*, 9> Label13{};
    std::array<QLabel*, 9> Label15{};
    QGroupBox* Frame1;
    QRadioButton* Normal;
    QRadioButton* Option1;
    QRadioButton* Option2;
    QPushButton* cmdExit;
    SpaceChart* chartSpace;

private:
    void writeLists(ListForm form);
    void showTotals();

    AppState& state_;
    Services& services_;
    SpaceTotals totals_;
};

}  // namespace rakeyard::ui
