#include "ui/windows/unit_edit_window.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QRegularExpressionValidator>

#include "ui/support/handler_guard.h"
#include "ui/support/window_helpers.h"
#include "ui/windows/qt_services.h"

namespace rakeyard::ui {

namespace {

QComboBox* couplingBox(const QString& name, QWidget* parent) {
    auto* box = named(new QComboBox(parent), name);
    box->addItems({"Automatic", "Bar", "Chain"});
    return box;
}

}  // namespace

UnitEditWindow::UnitEditWindow(UnitRecord& unit, bool isEngine, Services& services, QWidget* parent)
    : QDialog(parent), unit_(unit), isEngine_(isEngine), services_(services) {
    Text1 = named(new QLineEdit(this), "Text1");
    Text2 = named(new QLineEdit(this), "Text2");
    Text2->setValidator(new QRegularExpressionValidator(QRegularExpression("[0-9]*"), Text2));
    Text2->setMaxLength(9);
    Label4 = named(new QLabel(isEngine ? "" : "t", this), "Label4");
    Combo1 = couplingBox("Combo1", this);
    Combo2 = couplingBox("Combo2", this);
    Command1 = button("Command1", "OK", this);
    Command2 = button("Command2", "Cancel", this);
    Command1->setDefault(true);
    auto* grid = new QGridLayout();
    const auto row = [&](int r, const QString& caption, QWidget* field, QWidget* unitLabel) {
        auto* label = new QLabel(caption, this);
        label->setBuddy(field);
        grid->addWidget(label, r, 0);
        grid->addWidget(field, r, 1);
        if (unitLabel) grid->addWidget(unitLabel, r, 2);
    };
    row(0, "&Name", Text1, nullptr);
    row(1, isEngine ? "Maximum &power" : "&Mass", Text2, Label4);
    row(2, "&Front coupling", Combo1, nullptr);
    row(3, "&Rear coupling", Combo2, nullptr);
    grid->setColumnStretch(1, 1);
    auto* buttons = new QHBoxLayout();
    buttons->addStretch(1);
    buttons->addWidget(Command1);
    buttons->addWidget(Command2);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(grid);
    layout->addStretch(1);
    layout->addLayout(buttons);
    setMinimumWidth(440);
    connect(Command1, &QPushButton::clicked, this, &UnitEditWindow::Command1_Click);
    connect(Command2, &QPushButton::clicked, this, &QDialog::reject);
    Form_Load();
}

void UnitEditWindow::Form_Load() {
    const UnitEdit shown = editOfUnit(unit_, isEngine_);
    Text1->setText(qs(shown.name));
    Text2->setText(qs(shown.value));
    powerUnit_ = qs(shown.powerUnit);
    if (isEngine_) Label4->setText(powerUnit_);
    // A "?" coupling leaves its box empty: OK then leaves that coupling alone.
    Combo1->setCurrentIndex(Combo1->findText(qs(shown.front)));
    Combo2->setCurrentIndex(Combo2->findText(qs(shown.rear)));
}

void UnitEditWindow::Command1_Click() {
    runGuarded(services_.dialogs, [&] {
        const UnitEdit edit{stdString(Text1->text()), stdString(Combo1->currentText()),
                            stdString(Combo2->currentText()), stdString(Text2->text()),
                            stdString(powerUnit_)};
        outcome_ = isEngine_ ? writeToEngFile(unit_, edit, services_)
                             : writeToWagFile(unit_, edit, services_);
        if (outcome_ != UnitEditOutcome::Refused) accept();
    });
}

frmEngEdit::frmEngEdit(UnitRecord& unit, Services& services, QWidget* parent)
    : UnitEditWindow(unit, true, services, parent) {
    setObjectName("frmEngEdit");
    setWindowTitle("Change engine parameters");
}

frmWagEdit::frmWagEdit(UnitRecord& unit, Services& services, QWidget* parent)
    : UnitEditWindow(unit, false, services, parent) {
    setObjectName("frmWagEdit");
    setWindowTitle("Change wagon parameters");
}

}  // namespace rakeyard::ui
