#include "ui/windows/frmStats.h"

#include <QApplication>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QRadioButton>
#include <QVBoxLayout>

#include "ui/support/handler_guard.h"
#include "ui/support/window_helpers.h"
#include "ui/widgets/space_chart.h"
#include "ui/windows/qt_services.h"

namespace rakeyard::ui {

namespace {

constexpr const char* kHeadings[] = {"Locomotives found",
                                     "Wagons found",
                                     "Consists found",
                                     "Space for Engines",
                                     "Engine totals ",
                                     "Cabview Totals",
                                     "Sound Totals",
                                     "Allocated space for wagons",
                                     "Allocated space for consists"};

QLabel* figure(const QString& name, QWidget* parent) {
    auto* label = named(new QLabel(parent), name);
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

QString blankFirst(const std::string& text) {
    return " " + qs(text);
}

}  // namespace

frmStats::frmStats(AppState& state, Services& services, QWidget* parent)
    : QDialog(parent), state_(state), services_(services) {
    setObjectName("frmStats");
    setWindowTitle("Allocated space");
    auto* grid = new QGridLayout();
    grid->addWidget(new QLabel("<b>Bytes</b>", this), 0, 1, Qt::AlignRight);
    grid->addWidget(new QLabel("<b>MB</b>", this), 0, 2, Qt::AlignRight);
    for (int i = 0; i < 9; ++i) {
        Label13[i] = figure(QString("Label13_%1").arg(i), this);
        Label15[i] = figure(QString("Label15_%1").arg(i), this);
        grid->addWidget(new QLabel(kHeadings[i], this), i + 1, 0);
        grid->addWidget(Label13[i], i + 1, 1);
    }
    // Megabytes of the rows of bytes; consists are kept at index 7.
    for (int row = 3; row < 9; ++row) {
        const int index = row == 7 ? 8 : row == 8 ? 7 : row;
        grid->addWidget(Label15[index], row + 1, 2);
    }
    Label15[0]->hide();
    Label15[1]->hide();
    Label15[2]->hide();
    grid->setColumnStretch(1, 1);
    grid->setColumnStretch(2, 1);

    chartSpace = named(new SpaceChart(this), "chartSpace");
    Frame1 = named(new QGroupBox(" Select which type of output you wish ", this), "Frame1");
    Normal = named(new QRadioButton("&Comma de-limited", Frame1), "Normal");
    Option1 = named(new QRadioButton("For import into a &spreadsheet", Frame1), "Option1");
    Option2 = named(new QRadioButton("&Filenames only", Frame1), "Option2");
    auto* options = new QVBoxLayout(Frame1);
    for (QRadioButton* option : {Normal, Option1, Option2})
        options->addWidget(option);
    cmdExit = button("cmdExit", "E&xit", this);
    cmdExit->setDefault(true);

    auto* top = new QHBoxLayout();
    top->addLayout(grid, 3);
    top->addWidget(chartSpace, 2);
    auto* bottom = new QHBoxLayout();
    bottom->addWidget(Frame1);
    bottom->addStretch(1);
    bottom->addWidget(cmdExit, 0, Qt::AlignBottom);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top, 1);
    layout->addLayout(bottom);
    resize(880, 400);

    // A click writes the lists at once; the choice is no state to keep, so the boxes clear.
    connect(Normal, &QRadioButton::clicked, this, [this] { writeLists(ListForm::CommaDelimited); });
    connect(Option1, &QRadioButton::clicked, this, [this] { writeLists(ListForm::Spreadsheet); });
    connect(Option2, &QRadioButton::clicked, this, [this] { writeLists(ListForm::FileNamesOnly); });
    connect(cmdExit, &QPushButton::clicked, this, &QDialog::accept);
}

void frmStats::Form_Load() {
    runGuarded(services_.dialogs, [&] {
        QApplication::setOverrideCursor(Qt::WaitCursor);
        NoProgress quiet;
        totals_ = allocatedSpace(state_.catalogue, state_.paths, services_.fs, quiet);
        QApplication::restoreOverrideCursor();
        showTotals();
    });
}

void frmStats::showTotals() {
    const SpaceTotals& t = totals_;
    Label13[0]->setText(blankFirst(std::to_string(t.engines)));
    Label13[1]->setText(blankFirst(std::to_string(t.wagons)));
    Label13[2]->setText(blankFirst(std::to_string(t.consists)));
    const std::uint64_t bytes[] = {t.engineFolderBytes(), t.engineBytes, t.cabBytes,
                                   t.soundBytes,          t.wagonBytes,  t.consistBytes};
    for (int row = 3; row < 9; ++row) {
        const std::uint64_t value = bytes[row - 3];
        const int index = row == 7 ? 8 : row == 8 ? 7 : row;
        Label13[row]->setText(blankFirst(thousandsText(value)));
        Label15[index]->setText(blankFirst(megabytesText(value)));
    }
    chartSpace->setBars({{"Engine files", t.engineBytes, QColor(0xc0, 0x50, 0x30)},
                         {"Cab views", t.cabBytes, QColor(0xd0, 0x90, 0x20)},
                         {"Sounds", t.soundBytes, QColor(0x40, 0x90, 0x50)},
                         {"Wagons", t.wagonBytes, QColor(0x30, 0x70, 0xb0)},
                         {"Consists", t.consistBytes, QColor(0x80, 0x50, 0xa0)}});
}

void frmStats::writeLists(ListForm form) {
    runGuarded(services_.dialogs,
               [&] { (void)writeUnitLists(state_.catalogue, state_.paths, form, services_); });
}

}  // namespace rakeyard::ui
