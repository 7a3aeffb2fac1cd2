#pragma once
#include <QLabel>
#include <QPushButton>
#include <QString>

namespace rakeyard::ui {

// Gives a control its name, which is also its objectName, and returns it.
template <typename Widget>
Widget* named(Widget* widget, const QString& name) {
    widget->setObjectName(name);
    return widget;
}

// A label that wraps its text, for a window's explanations.
inline QLabel* textLabel(const QString& name, const QString& text, QWidget* parent) {
    auto* label = named(new QLabel(text, parent), name);
    label->setWordWrap(true);
    return label;
}

inline QPushButton* button(const QString& name, const QString& caption, QWidget* parent) {
    auto* b = named(new QPushButton(caption, parent), name);
    b->setAutoDefault(false);
    return b;
}

}  // namespace rakeyard::ui
