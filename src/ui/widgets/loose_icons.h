#pragma once
#include <QIcon>

#include "core/msts/loose_editor.h"

namespace rakeyard::ui {

// The picture of a node of the loose consist editor's tree, drawn in code. The activity's
// picture is also what a unit without a picture file shows on the strip.
QIcon looseIcon(LooseImage image);

}  // namespace rakeyard::ui
