#include "ui/widgets/slot_strip.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFocusRect>

#include "ui/widgets/slot_pictures.h"

namespace rakeyard::ui {

int shiftState(Qt::KeyboardModifiers modifiers) {
    int shift = 0;
    if (modifiers & Qt::ShiftModifier) shift |= kShiftKey;
    if (modifiers & Qt::ControlModifier) shift |= kCtrlKey;
    if (modifiers & Qt::AltModifier) shift |= kAltKey;
    return shift;
}

namespace {

SlotButton slotButtonOf(Qt::MouseButton button) {
    if (button == Qt::LeftButton) return SlotButton::Left;
    if (button == Qt::RightButton) return SlotButton::Right;
    return SlotButton::None;  // the middle button, which no handler acts on
}

}  // namespace

SlotPicture::SlotPicture(int index, QWidget* parent) : QWidget(parent), index_(index) {
    setObjectName(QString("Picture1_%1").arg(index));
    setFocusPolicy(Qt::StrongFocus);
    // The pictures grow with the window, keeping their shape.
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setAccessibleName(QString("Slot %1").arg(index + 1));
}

QSize SlotPicture::sizeHint() const {
    return kSlotPictureSize + QSize(6, 6);
}

QSize SlotPicture::minimumSizeHint() const {
    return kSlotPictureSize * 2 / 3 + QSize(6, 6);
}

QRect SlotPicture::pictureRect() const {
    const QSize room = size() - QSize(6, 6);
    const QSize fitted = kSlotPictureSize.scaled(room, Qt::KeepAspectRatio);
    return QRect(QPoint((width() - fitted.width()) / 2, (height() - fitted.height()) / 2), fitted);
}

void SlotPicture::setPictureKey(const QString& key) {
    if (key == key_) return;
    key_ = key;
    update();
}

void SlotPicture::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    const QRect place = pictureRect();
    painter.drawPixmap(place, slotPicture(key_.toStdString()));
    if (hasFocus()) {
        QStyleOptionFocusRect option;
        option.initFrom(this);
        option.rect = place.adjusted(-3, -3, 2, 2);
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
    }
}

void SlotPicture::mousePressEvent(QMouseEvent* event) {
    pressed_ = true;
    doubleClicked_ = false;
    if (onMouseDown)
        onMouseDown(index_, slotButtonOf(event->button()), shiftState(event->modifiers()));
}

void SlotPicture::mouseReleaseEvent(QMouseEvent*) {
    // The release that ends a double click is no click of its own.
    const bool wasClick = pressed_ && !doubleClicked_;
    pressed_ = false;
    doubleClicked_ = false;
    if (wasClick && onClick) onClick(index_);
}

void SlotPicture::mouseDoubleClickEvent(QMouseEvent*) {
    pressed_ = true;
    doubleClicked_ = true;
    if (onDoubleClick) onDoubleClick(index_);
}

void SlotPicture::pressAndClick(SlotButton button, int shift) {
    if (onMouseDown) onMouseDown(index_, button, shift);
    if (onClick) onClick(index_);
}

void SlotPicture::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Left:
            if (onFocusStep) onFocusStep(index_, -1);
            return;
        case Qt::Key_Right:
            if (onFocusStep) onFocusStep(index_, +1);
            return;
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_Space:
            pressAndClick(SlotButton::Left, 0);
            return;
        case Qt::Key_Delete:
            pressAndClick(SlotButton::Left, kShiftKey);
            return;
        default:
            QWidget::keyPressEvent(event);
    }
}

}  // namespace rakeyard::ui
