#include "core/platform/program_folder.h"

#include <filesystem>
#include <fstream>

#include "core/platform/paths.h"
#include "core/platform/system.h"

namespace fs = std::filesystem;

namespace rakeyard {
namespace {

std::string executableFolder() {
    const std::string program = sys::executablePath();
    if (program.empty()) return {};
    return sys::utf8Path(sys::fsPath(program).parent_path());
}

// A folder can be written to when a file can be made in it: the one test that holds on every
// system, whatever its permission model.
bool canWriteIn(const std::string& folder) {
    if (folder.empty()) return false;
    const fs::path probe = sys::fsPath(folder) / "~rakeyard-write-test";
    const bool made = static_cast<bool>(std::ofstream(probe));
    std::error_code ec;
    fs::remove(probe, ec);
    return made;
}

}  // namespace

std::string chooseProgramFolder(const ProgramFolderSources& sources) {
    if (sources.option && !sources.option->empty()) return wholePath(*sources.option);
    if (!sources.environment.empty()) return wholePath(sources.environment);
    if (canWriteIn(sources.executableFolder)) return wholePath(sources.executableFolder);
    return wholePath(sources.userData);
}

std::string programFolder(const std::optional<std::string>& option) {
    const std::string folder = chooseProgramFolder(
        {option, sys::environment("RAKEYARD_HOME"), executableFolder(), sys::userDataFolder()});
    std::error_code ec;
    fs::create_directories(sys::fsPath(folder), ec);
    return folder;
}

}  // namespace rakeyard
