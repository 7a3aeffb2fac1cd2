#include "ui/windows/frmMaxVelocity.h"

#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QRegularExpressionValidator>
#include <QTimer>
#include <QVBoxLayout>

#include "ui/support/handler_guard.h"
#include "ui/support/window_helpers.h"
#include "ui/windows/qt_services.h"

namespace rakeyard::ui {

namespace {

// A speed box: digits, the point and "/" get through, as the keys the calculator lets pass.
QLineEdit* speedBox(const QString& name, QWidget* parent) {
    auto* box = named(new QLineEdit(parent), name);
    box->setValidator(new QRegularExpressionValidator(QRegularExpression("[0-9./]*"), box));
    box->setMaxLength(12);
    return box;
}

void addRow(QGridLayout* grid, int row, const QString& caption, QLineEdit* box,
            const QString& unit) {
    auto* label = new QLabel(caption, box->parentWidget());
    label->setBuddy(box);
    grid->addWidget(label, row, 0);
    grid->addWidget(box, row, 1);
    if (!unit.isEmpty()) grid->addWidget(new QLabel(unit, box->parentWidget()), row, 2);
}

}  // namespace

frmMaxVelocity::frmMaxVelocity(ConsistState& consist, Services& services, QWidget* parent)
    : QDialog(parent), consist_(consist), services_(services) {
    setObjectName("frmMaxVelocity");
    setWindowTitle("Maxvelocity calculator");
    Text1 = speedBox("Text1", this);
    Text2 = speedBox("Text2", this);
    Text4 = speedBox("Text4", this);
    Text5 = speedBox("Text5", this);
    Text3 = named(new QLineEdit(this), "Text3");
    Text6 = named(new QLineEdit(this), "Text6");
    Text7 = named(new QLineEdit(this), "Text7");
    auto* grid = new QGridLayout();
    addRow(grid, 0, "Maximum expected speed in &mph", Text1, "mph");
    addRow(grid, 1, "Maximum expected speed in &Km/h", Text2, "Km/h");
    addRow(grid, 2, "Minimum expected speed in m&ph", Text4, "mph");
    addRow(grid, 3, "Minimum expected speed in K&m/h", Text5, "Km/h");
    addRow(grid, 4, "&Efficiency factor  (0 - 100)", Text3, QString());

    Frame1 = named(new QFrame(this), "Frame1");
    Frame1->setFrameShape(QFrame::StyledPanel);
    auto* line = new QHBoxLayout(Frame1);
    line->addWidget(new QLabel("MaxVelocity (", Frame1));
    line->addWidget(Text6);
    line->addWidget(Text7);
    line->addWidget(new QLabel(")", Frame1));

    Label12 = textLabel("Label12",
                        "WARNING: The values entered here will affect the behaviour of AI trains. "
                        "This calculator is meant to be used only by experienced users!",
                        this);
    Label12->setStyleSheet("color: red");
    Command1 = button("Command1", "Calculate", this);
    Command4 = button("Command4", "&Use values", this);
    Command3 = button("Command3", "&Cancel", this);
    Command1->setDefault(true);
    auto* buttons = new QHBoxLayout();
    buttons->addWidget(Command1);
    buttons->addStretch(1);
    buttons->addWidget(Command4);
    buttons->addWidget(Command3);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(Label12);
    layout->addLayout(grid);
    layout->addWidget(Frame1);
    layout->addStretch(1);
    layout->addLayout(buttons);
    setMinimumWidth(460);

    Timer1 = new QTimer(this);
    Timer1->setObjectName("Timer1");
    Timer1->setInterval(500);
    connect(Timer1, &QTimer::timeout, this, &frmMaxVelocity::Timer1_Timer);
    Timer1->start();

    // Only what the user types sets the memory: the calculation's own settings of the boxes
    // are textChanged but not textEdited.
    connect(Text1, &QLineEdit::textEdited, this, [this] { boxes_.lastMaxBox = "mphmax"; });
    connect(Text2, &QLineEdit::textEdited, this, [this] { boxes_.lastMaxBox = "kmhmax"; });
    connect(Text4, &QLineEdit::textEdited, this, [this] { boxes_.lastMinBox = "mphmin"; });
    connect(Text5, &QLineEdit::textEdited, this, [this] { boxes_.lastMinBox = "kmhmin"; });
    connect(Command1, &QPushButton::clicked, this, &frmMaxVelocity::Command1_Click);
    connect(Command3, &QPushButton::clicked, this, &frmMaxVelocity::Command3_Click);
    connect(Command4, &QPushButton::clicked, this, &frmMaxVelocity::Command4_Click);

    boxes_ = openMaxVelocity(consist_.header.maxVelocity);
    showBoxes();
}

void frmMaxVelocity::readBoxes() {
    boxes_.mphMax = stdString(Text1->text());
    boxes_.kmhMax = stdString(Text2->text());
    boxes_.efficiency = stdString(Text3->text());
    boxes_.mphMin = stdString(Text4->text());
    boxes_.kmhMin = stdString(Text5->text());
    boxes_.first = stdString(Text6->text());
    boxes_.second = stdString(Text7->text());
}

void frmMaxVelocity::showBoxes() {
    Text1->setText(qs(boxes_.mphMax));
    Text2->setText(qs(boxes_.kmhMax));
    Text3->setText(qs(boxes_.efficiency));
    Text4->setText(qs(boxes_.mphMin));
    Text5->setText(qs(boxes_.kmhMin));
    Text6->setText(qs(boxes_.first));
    Text7->setText(qs(boxes_.second));
}

void frmMaxVelocity::Command1_Click() {
    runGuarded(services_.dialogs, [&] {
        readBoxes();
        (void)calculateMaxVelocity(boxes_, services_.dialogs);
        showBoxes();
    });
}

void frmMaxVelocity::Command3_Click() {
    reject();
}

void frmMaxVelocity::Command4_Click() {
    readBoxes();
    consist_.calculatedMaxVelocity = usedMaxVelocity(boxes_);
    accept();
}

void frmMaxVelocity::Timer1_Timer() {
    const bool red = Label12->styleSheet() == "color: red";
    Label12->setStyleSheet(red ? "color: blue" : "color: red");
}

}  // namespace rakeyard::ui
