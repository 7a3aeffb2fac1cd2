#include "ui/windows/qt_services.h"

#include <algorithm>

#include <QApplication>
#include <QDesktopServices>
#include <QFile>
#include <QLabel>
#include <QMessageBox>
#include <QProcess>
#include <QProgressBar>
#include <QUrl>

namespace rakeyard::ui {

std::string stdString(const QString& text) {
    const QByteArray bytes = text.toUtf8();
    return std::string(bytes.constData(), static_cast<std::size_t>(bytes.size()));
}

namespace {

QMessageBox::Icon boxIcon(Icon icon) {
    switch (icon) {
        case Icon::Stop:
            return QMessageBox::Critical;
        case Icon::Exclamation:
            return QMessageBox::Warning;
        case Icon::Question:
            return QMessageBox::Question;
        case Icon::Information:
            return QMessageBox::Information;
        case Icon::None:
            break;
    }
    return QMessageBox::NoIcon;
}

QString boxTitle(std::string_view title) {
    return title.empty() ? QString::fromLatin1(kAppTitle) : qs(title);
}

}  // namespace

QWidget* QtDialogs::parent() const {
    if (parentOf_) return parentOf_();
    return QApplication::activeWindow();
}

void QtDialogs::report(std::string_view text, Icon icon, std::string_view title) {
    QMessageBox box(boxIcon(icon), boxTitle(title), qs(text), QMessageBox::Ok, parent());
    box.exec();
}

Answer QtDialogs::ask(std::string_view text, Buttons buttons, Icon icon, Answer safeAnswer,
                      std::string_view title) {
    QMessageBox::StandardButtons shown = QMessageBox::Ok;
    if (buttons == Buttons::OkCancel) shown = QMessageBox::Ok | QMessageBox::Cancel;
    if (buttons == Buttons::YesNo) shown = QMessageBox::Yes | QMessageBox::No;
    if (buttons == Buttons::SaveDiscardCancel)
        shown = QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel;
    QMessageBox box(boxIcon(icon), boxTitle(title), qs(text), shown, parent());
    // Enter gives the answer that changes and deletes nothing, except where saving is asked.
    if (buttons == Buttons::SaveDiscardCancel) {
        box.setDefaultButton(QMessageBox::Save);
        box.setEscapeButton(QMessageBox::Cancel);
    } else if (safeAnswer == Answer::No) {
        box.setDefaultButton(QMessageBox::No);
    } else if (safeAnswer == Answer::Cancel) {
        box.setDefaultButton(QMessageBox::Cancel);
    }
    switch (box.exec()) {
        case QMessageBox::Yes:
        case QMessageBox::Save:
            return Answer::Yes;
        case QMessageBox::No:
        case QMessageBox::Discard:
            return Answer::No;
        case QMessageBox::Ok:
            return Answer::Ok;
        default:
            break;
    }
    // The close box answers as the button that changes nothing.
    return buttons == Buttons::YesNo ? Answer::No : Answer::Cancel;
}

void QtProgress::attach(QProgressBar* bar, QLabel* label) {
    bar_ = bar;
    label_ = label;
}

void QtProgress::start(std::string_view label, int maximum) {
    value_ = 0;
    if (label_) label_->setText(qs(label));
    if (bar_) {
        bar_->setRange(0, maximum > 0 ? maximum : 1);
        bar_->setValue(0);
    }
    pumpEvents(true);
}

void QtProgress::step() {
    ++value_;
    pumpEvents(bar_ && value_ == bar_->maximum());
}

void QtProgress::pumpEvents(bool force) {
    // The bar moves and pending events run every few milliseconds rather than at each file: a
    // Stop press or a timer is still seen at once, and thousands of small files do not wait on
    // repaints (a progress bar repaints at once whenever its value shows a change).
    if (!force && sincePump_.isValid() && sincePump_.elapsed() < 15) return;
    sincePump_.start();
    if (bar_) bar_->setValue(std::min(value_, bar_->maximum()));
    QCoreApplication::processEvents();
}

void QtProgress::showDebug(bool visible) {
    if (visible && !debug_) debug_ = new frmDebug();
    if (!debug_) return;
    if (visible) {
        debug_->show();
    } else {
        debug_->close();
    }
}

void QtProgress::debugText(int label, std::string_view text) {
    if (!debug_) return;
    debug_->setValue(label, qs(text));
    pumpEvents(false);
}

bool QtDesktop::moveToTrash(const std::string& path) {
    return QFile::moveToTrash(qs(path));
}

bool QtDesktop::startProgram(const std::string& program,
                             const std::vector<std::string>& arguments) {
    QStringList list;
    for (const std::string& argument : arguments)
        list << qs(argument);
    return QProcess::startDetached(qs(program), list);
}

void QtDesktop::openUrl(std::string_view url) {
    QDesktopServices::openUrl(QUrl::fromUserInput(qs(url)));
}

}  // namespace rakeyard::ui
