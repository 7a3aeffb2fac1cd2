#pragma once
#include "cli/cli_options.h"
#include "core/platform/services.h"
#include "core/settings/settings_record.h"

namespace rakeyard::cli {

// Sets the paths given by --msts, --editor and --viewer in settings.bin of the program's
// folder, each as the OK of its window does (--viewer NO as the viewer option window's "no").
// A path the window would refuse is told as its message; false then, and nothing further is set.
[[nodiscard]] bool applyPathOptions(const GlobalOptions& options, PathGlobals& paths,
                                    Services& services);

}  // namespace rakeyard::cli
