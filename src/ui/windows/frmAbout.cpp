#include "ui/windows/frmAbout.h"

#include <QGridLayout>
#include <QMouseEvent>
#include <QPainter>

#include "ui/windows/frmSettings.h"
#include "ui/support/handler_guard.h"
#include "ui/windows/qt_services.h"
#include "ui/widgets/slot_pictures.h"
#include "ui/support/window_helpers.h"

namespace rakeyard::ui {

frmAbout::frmAbout(AppState& state, Services& services, QWidget* parent)
    : QDialog(parent), state_(state), services_(services) {
    setObjectName("frmAbout");
    setWindowTitle(QString("About ") + kAppTitle);
    Image1 = named(new QLabel(this), "Image1");
    QPixmap picture = slotPicture("ENG");
    Image1->setPixmap(picture);
    Image1->installEventFilter(this);
    lblTitle = named(new QLabel(kAppTitle, this), "lblTitle");
    QFont big = lblTitle->font();
    big.setPointSize(big.pointSize() + 8);
    big.setBold(true);
    lblTitle->setFont(big);
    lblVersion = named(new QLabel(QString("Version %1.%2.%3")
                                      .arg(RAKEYARD_VERSION_MAJOR)
                                      .arg(RAKEYARD_VERSION_MINOR)
                                      .arg(RAKEYARD_VERSION_PATCH),
                                  this),
                       "lblVersion");
    lblHomePage = named(new QLabel(kHomePage, this), "lblHomePage");
    lblHomePage->setCursor(Qt::PointingHandCursor);
    lblHomePage->installEventFilter(this);
    setLinkColour(false);
    auto* note = new QLabel("Consist editor and rolling stock checker for MSTS", this);
    cmdOK = button("cmdOK", "OK", this);
    cmdOK->setDefault(true);
    auto* grid = new QGridLayout(this);
    grid->addWidget(Image1, 0, 0, 3, 1, Qt::AlignTop);
    grid->addWidget(lblTitle, 0, 1);
    grid->addWidget(lblVersion, 1, 1);
    grid->addWidget(note, 2, 1);
    grid->addWidget(lblHomePage, 3, 1);
    grid->addWidget(cmdOK, 4, 1, Qt::AlignRight);
    connect(cmdOK, &QPushButton::clicked, this, &QDialog::accept);
    setMinimumWidth(420);
    resize(sizeHint().expandedTo(QSize(420, 0)));
}

bool frmAbout::eventFilter(QObject* watched, QEvent* event) {
    if (watched == lblHomePage) {
        if (event->type() == QEvent::Enter) setLinkColour(true);
        if (event->type() == QEvent::Leave) setLinkColour(false);
        if (event->type() == QEvent::MouseButtonRelease) lblHomePage_Click();
    }
    if (watched == Image1 && event->type() == QEvent::MouseButtonPress) {
        auto* mouse = static_cast<QMouseEvent*>(event);
        Image1_MouseDown(mouse->button(), mouse->modifiers());
    }
    return QDialog::eventFilter(watched, event);
}

void frmAbout::setLinkColour(bool underMouse) {
    lblHomePage->setStyleSheet(underMouse ? "color: #d04000; text-decoration: underline;"
                                          : "color: #0040c0; text-decoration: underline;");
}

void frmAbout::lblHomePage_Click() {
    runGuarded(services_.dialogs, [&] { services_.desktop.openUrl(kHomePage); });
}

void frmAbout::Image1_MouseDown(Qt::MouseButton button, Qt::KeyboardModifiers shift) {
    if (button != Qt::LeftButton || !(shift & Qt::ControlModifier)) return;
    runGuarded(services_.dialogs, [&] {
        frmSettings settings(state_, services_, this);
        settings.exec();
    });
}

}  // namespace rakeyard::ui
