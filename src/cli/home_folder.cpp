#include <unistd.h>

#include <cstdlib>
#include <filesystem>

#include "cli/cli_context.h"

namespace rakeyard::cli {

std::string defaultProgramFolder() {
    namespace fs = std::filesystem;
    std::error_code error;
    const fs::path executable = fs::read_symlink("/proc/self/exe", error);
    if (!error) {
        const fs::path folder = executable.parent_path();
        if (access(folder.c_str(), W_OK) == 0) return folder.string();
    }
    if (const char* dataHome = std::getenv("XDG_DATA_HOME"); dataHome && *dataHome)
        return (fs::path(dataHome) / "rakeyard").string();
    const char* home = std::getenv("HOME");
    return (fs::path(home ? home : ".") / ".local/share/rakeyard").string();
}

}  // namespace rakeyard::cli
