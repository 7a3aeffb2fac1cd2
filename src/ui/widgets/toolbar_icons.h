#pragma once
#include <QIcon>
#include <QString>

namespace rakeyard::ui {

// The toolbar's icon for a button key ("save", "3dview", ...), drawn in code.
QIcon toolbarIcon(const QString& key);

}  // namespace rakeyard::ui
