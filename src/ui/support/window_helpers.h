#pragma once
#include <QAction>
#include <QLabel>
#include <QPushButton>
#include <QString>
#include <string_view>

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

// A window's filter entries, each ticked when its word is the filter in force.
struct FilterEntries {
    QAction *steam, *diesel, *electric, *ai, *allEngines;
    QAction *freight, *carriages, *tenders, *allWagons;
};
inline void tickFilterEntries(const FilterEntries& entries, std::string_view engineFilter,
                              std::string_view wagonFilter) {
    entries.steam->setChecked(engineFilter == "Steam");
    entries.diesel->setChecked(engineFilter == "Diesel");
    entries.electric->setChecked(engineFilter == "Electric");
    entries.ai->setChecked(engineFilter == "AI");
    entries.allEngines->setChecked(engineFilter == "All");
    entries.freight->setChecked(wagonFilter == "Freight");
    entries.carriages->setChecked(wagonFilter == "Carriage");
    entries.tenders->setChecked(wagonFilter == "Tender");
    entries.allWagons->setChecked(wagonFilter == "All");
}

}  // namespace rakeyard::ui
