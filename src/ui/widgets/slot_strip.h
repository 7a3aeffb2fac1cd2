#pragma once
#include <QWidget>
#include <functional>

#include "core/consist/slot_view.h"

namespace rakeyard::ui {

// One picture of the consist strip, Picture1(i). Buttons and shift keys are numbered as the
// core's slot events take them (SlotButton::Left, kShiftKey...). It forwards the mouse as press,
// click (on release) and double click, and lets the keyboard do the same: Enter is a plain left
// click, Delete a Shift+left click, the arrow keys move the focus to the neighbouring slot.
class SlotPicture : public QWidget {
    Q_OBJECT
public:
    SlotPicture(int index, QWidget* parent = nullptr);
    int index() const { return index_; }
    void setPictureKey(const QString& key);
    const QString& pictureKey() const { return key_; }
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    // Where the picture stands: as large as the slot allows, in the picture's proportions.
    QRect pictureRect() const;

    std::function<void(int index, SlotButton button, int shift)> onMouseDown;
    std::function<void(int index)> onClick;
    std::function<void(int index)> onDoubleClick;
    std::function<void(int index, int step)> onFocusStep;  // step -1 left, +1 right

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void pressAndClick(SlotButton button, int shift);
    int index_;
    QString key_ = "EMP";
    bool pressed_ = false;
    bool doubleClicked_ = false;
};

// The shift keys held, as a sum of kShiftKey, kCtrlKey and kAltKey.
int shiftState(Qt::KeyboardModifiers modifiers);

}  // namespace rakeyard::ui
