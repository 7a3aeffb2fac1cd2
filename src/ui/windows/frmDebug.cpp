#include "ui/windows/frmDebug.h"

#include <QGridLayout>
#include <QLabel>

namespace rakeyard::ui {

namespace {

QLabel* namedLabel(const QString& name, const QString& text, QWidget* parent) {
    auto* label = new QLabel(text, parent);
    label->setObjectName(name);
    return label;
}

}  // namespace

frmDebug::frmDebug(QWidget* parent) : QWidget(parent, Qt::Window) {
    setObjectName("frmDebug");
    setWindowTitle("Debug window");
    setAttribute(Qt::WA_DeleteOnClose);
    Label1 = namedLabel("Label1", "Loading file :", this);
    Label2 = namedLabel("Label2", "In folder :", this);
    Label3 = namedLabel("Label3", "Current line:", this);
    lblDebug1 = namedLabel("lblDebug1", QString(), this);
    lblDebug2 = namedLabel("lblDebug2", QString(), this);
    lblDebug3 = namedLabel("lblDebug3", QString(), this);
    auto* grid = new QGridLayout(this);
    grid->addWidget(Label1, 0, 0);
    grid->addWidget(lblDebug1, 0, 1);
    grid->addWidget(Label2, 1, 0);
    grid->addWidget(lblDebug2, 1, 1);
    grid->addWidget(Label3, 2, 0);
    grid->addWidget(lblDebug3, 2, 1);
    grid->setColumnStretch(1, 1);
    resize(520, 110);
}

void frmDebug::setValue(int label, const QString& text) {
    if (label == 1) lblDebug1->setText(text);
    if (label == 2) lblDebug2->setText(text);
    if (label == 3) lblDebug3->setText(text);
}

}  // namespace rakeyard::ui
