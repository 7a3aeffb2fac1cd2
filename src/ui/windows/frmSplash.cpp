#include "ui/windows/frmSplash.h"

#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QProgressBar>
#include <QVBoxLayout>

#include "ui/widgets/slot_pictures.h"

namespace rakeyard::ui {

namespace {

// The splash picture: a short train on a track under an evening sky.
QPixmap splashPicture(QSize size) {
    QPixmap picture(size);
    QPainter painter(&picture);
    QLinearGradient sky(0, 0, 0, size.height());
    sky.setColorAt(0, QColor(38, 62, 110));
    sky.setColorAt(1, QColor(226, 150, 92));
    painter.fillRect(picture.rect(), sky);
    const char* train[] = {"ENG", "TEN", "CAR", "CAR", "WAG"};
    const QSize unit = rakeyard::ui::kSlotPictureSize;
    int x = 24;
    const int y = size.height() - unit.height() - 20;
    for (const char* key : train) {
        QImage image = rakeyard::ui::slotPicture(key).toImage();
        painter.drawImage(x, y, image);
        x += unit.width() - 6;
    }
    return picture;
}

// White text on the picture. A palette rather than a style sheet: style sheets bring in their
// own style engine, which would slow the first window of the program.
QLabel* label(const char* name, const QString& text, QWidget* parent) {
    auto* l = new QLabel(text, parent);
    l->setObjectName(name);
    QPalette palette = l->palette();
    palette.setColor(QPalette::WindowText, Qt::white);
    l->setPalette(palette);
    return l;
}

}  // namespace

frmSplash::frmSplash(QWidget* parent)
    : QWidget(parent, Qt::SplashScreen | Qt::WindowStaysOnTopHint) {
    setObjectName("frmSplash");
    setFixedSize(560, 320);
    Image1 = label("Image1", QString(), this);
    Image1->setGeometry(rect());
    Image1->setScaledContents(true);
    Image1->setPixmap(splashPicture(size()));

    lblProductName = label("lblProductName", "Rakeyard", this);
    QFont title = lblProductName->font();
    title.setPointSize(28);
    title.setBold(true);
    lblProductName->setFont(title);
    lblVersion = label("lblVersion",
                       QString("Version %1.%2.%3")
                           .arg(RAKEYARD_VERSION_MAJOR)
                           .arg(RAKEYARD_VERSION_MINOR)
                           .arg(RAKEYARD_VERSION_PATCH),
                       this);
    Label1 = label("Label1", "Consist editor and rolling stock checker for MSTS", this);
    Label2 = label("Label2", QString(), this);
    PBar1 = new QProgressBar(this);
    PBar1->setObjectName("PBar1");
    PBar1->setTextVisible(false);
    PBar1->setMaximumHeight(10);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(24, 20, 24, 110);
    layout->addWidget(lblProductName);
    layout->addWidget(lblVersion);
    layout->addWidget(Label1);
    layout->addStretch(1);
    layout->addWidget(Label2);
    layout->addWidget(PBar1);
}

void frmSplash::keyPressEvent(QKeyEvent*) {
    close();
}

}  // namespace rakeyard::ui
