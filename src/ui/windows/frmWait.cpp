#include "ui/windows/frmWait.h"

#include <QLabel>
#include <QProgressBar>
#include <QVBoxLayout>

namespace rakeyard::ui {

frmWait::frmWait(const QString& text, QWidget* parent)
    : QWidget(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint) {
    setObjectName("frmWait");
    setWindowTitle("Rakeyard");
    setWindowModality(Qt::ApplicationModal);
    Label1 = new QLabel(text, this);
    Label1->setObjectName("Label1");
    Label1->setAlignment(Qt::AlignCenter);
    PBar1 = new QProgressBar(this);
    PBar1->setObjectName("PBar1");
    PBar1->setRange(0, 0);
    PBar1->setTextVisible(false);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(Label1);
    layout->addWidget(PBar1);
    setMinimumSize(340, 90);
}

}  // namespace rakeyard::ui
