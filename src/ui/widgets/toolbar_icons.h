#pragma once
#include <QIcon>
#include <QString>

namespace rakeyard::ui {

// The toolbar's icon for a button key ("save", "3dview", ...), drawn in code.
QIcon toolbarIcon(const QString& key);
// The desktop's own icon for the button where the freedesktop naming has one, else the style's
// standard one; a null icon for the buttons that only have the drawn one. Looking a name up in
// the icon theme takes a while, so the main window asks once it is shown.
QIcon desktopToolbarIcon(const QString& key);

// The small buttons beside the unit lists, drawn in code until the desktop's icons are asked
// for: "refresh" (a round arrow) and "edit" (a pencil).
QIcon drawnButtonIcon(const QString& key);

}  // namespace rakeyard::ui
