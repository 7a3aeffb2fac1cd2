#pragma once

namespace rakeyard::cli {

class CliContext;

// Sets the paths given by --msts, --editor and --viewer in settings.bin of the program's
// folder, each as the OK of its window does (--viewer NO as the viewer option window's "no").
// A path the window would refuse is told as its message; false then, and nothing further is set.
[[nodiscard]] bool applyPathOptions(CliContext& context);

}  // namespace rakeyard::cli
