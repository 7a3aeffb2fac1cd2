#pragma once
#include <QIcon>

#include "core/msts/dependency_tree.h"

namespace rakeyard::ui {

// The picture of a node of the dependency tree, drawn in code; none for the root.
QIcon dependencyIcon(DependencyKind kind);

}  // namespace rakeyard::ui
