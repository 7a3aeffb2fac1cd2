#include "ui/windows/frmBigOnes.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include "core/tools/big_ones.h"
#include "ui/support/window_helpers.h"
#include "ui/windows/qt_services.h"

namespace rakeyard::ui {

frmBigOnes::frmBigOnes(const UnitCatalogue& catalogue, QWidget* parent) : QDialog(parent) {
    setObjectName("frmBigOnes");
    setWindowTitle("The big ones");
    auto* grid = new QGridLayout();
    grid->setColumnStretch(1, 1);
    grid->setHorizontalSpacing(16);
    const auto bigOnes = findBigOnes(catalogue);
    for (int row = 0; row < 5; ++row) {
        const BigOne& holder = bigOnes[row];
        auto* heading = new QLabel(qs(holder.heading), this);
        QFont bold = heading->font();
        bold.setBold(true);
        heading->setFont(bold);
        QLabel*& name = Label[2 * row + 1];
        QLabel*& value = Label[2 * row + 2];
        name = named(new QLabel(qs(holder.name), this), QString("Label%1").arg(2 * row + 1));
        value = named(new QLabel(qs(holder.value), this), QString("Label%1").arg(2 * row + 2));
        name->setTextInteractionFlags(Qt::TextSelectableByMouse);
        value->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        grid->addWidget(heading, row, 0);
        grid->addWidget(name, row, 1);
        grid->addWidget(value, row, 2);
    }
    OKButton = button("OKButton", "OK", this);
    OKButton->setDefault(true);
    auto* buttons = new QHBoxLayout();
    buttons->addStretch(1);
    buttons->addWidget(OKButton);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(grid);
    layout->addStretch(1);
    layout->addLayout(buttons);
    setMinimumWidth(480);
    connect(OKButton, &QPushButton::clicked, this, &QDialog::accept);
}

}  // namespace rakeyard::ui
