#include "ui/windows/frmQtd.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QRegularExpressionValidator>

#include "ui/support/window_helpers.h"

namespace rakeyard::ui {

frmQtd::frmQtd(const QString& wagonName, QWidget* parent) : QDialog(parent) {
    setObjectName("frmQtd");
    setWindowTitle("Add several of same type");
    Label1 = named(new QLabel(wagonName, this), "Label1");
    QFont bold = Label1->font();
    bold.setBold(true);
    Label1->setFont(bold);
    Label2 = named(new QLabel("Select the number of wagons to insert:", this), "Label2");
    Text1 = named(new QLineEdit(this), "Text1");
    // Digits only; deleting stays possible as in any box.
    Text1->setValidator(new QRegularExpressionValidator(QRegularExpression("[0-9]*"), Text1));
    Text1->setMaxLength(9);
    Label2->setBuddy(Text1);
    OKButton = button("OKButton", "OK", this);
    CancelButton = button("CancelButton", "Cancel", this);
    OKButton->setDefault(true);
    auto* buttons = new QHBoxLayout();
    buttons->addStretch(1);
    buttons->addWidget(OKButton);
    buttons->addWidget(CancelButton);
    auto* grid = new QGridLayout(this);
    grid->addWidget(Label1, 0, 0, 1, 2);
    grid->addWidget(Label2, 1, 0);
    grid->addWidget(Text1, 1, 1);
    grid->addLayout(buttons, 2, 0, 1, 2);
    connect(OKButton, &QPushButton::clicked, this, &frmQtd::OKButton_Click);
    connect(CancelButton, &QPushButton::clicked, this, &frmQtd::CancelButton_Click);
    connect(this, &QDialog::rejected, this, [this] { number_ = 0; });
    setMinimumWidth(380);
}

void frmQtd::OKButton_Click() {
    number_ = Text1->text().toInt();
    accept();
}

void frmQtd::CancelButton_Click() {
    number_ = 0;
    reject();
}

}  // namespace rakeyard::ui
