#pragma once
#include "core/platform/desktop.h"
#include "core/platform/dialogs.h"
#include "core/platform/file_system.h"
#include "core/platform/progress.h"

namespace rakeyard {

// The outside services a core routine may use, handed in by the window program, the CLI or a
// test.
struct Services {
    FileSystem& fs;
    Dialogs& dialogs;
    Progress& progress;
    Desktop& desktop;
};

}  // namespace rakeyard
