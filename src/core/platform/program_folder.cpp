#include "core/platform/program_folder.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>

#ifdef _WIN32
#include <windows.h>
#endif

namespace fs = std::filesystem;

namespace rakeyard {
namespace {

std::string environmentText(const char* name) {
    const char* value = std::getenv(name);
    return value ? std::string(value) : std::string();
}

std::string executableFolder() {
    std::error_code ec;
#ifdef _WIN32
    wchar_t buffer[32768];
    const DWORD length = GetModuleFileNameW(nullptr, buffer, 32768);
    if (length == 0 || length >= 32768) return {};
    const std::u8string folder = fs::path(std::wstring(buffer, length)).parent_path().u8string();
#else
    const fs::path program = fs::read_symlink("/proc/self/exe", ec);
    if (ec) return {};
    const std::u8string folder = program.parent_path().u8string();
#endif
    return std::string(folder.begin(), folder.end());
}

std::string userDataFolder() {
#ifdef _WIN32
    const std::string appData = environmentText("APPDATA");
    return appData.empty() ? std::string() : (fs::path(appData) / "Rakeyard").string();
#else
    const std::string dataHome = environmentText("XDG_DATA_HOME");
    if (!dataHome.empty()) return (fs::path(dataHome) / "rakeyard").string();
    const std::string home = environmentText("HOME");
    return (fs::path(home.empty() ? "." : home) / ".local/share/rakeyard").string();
#endif
}

// A folder can be written to when a file can be made in it: the one test that holds on every
// system, whatever its permission model.
bool canWriteIn(const std::string& folder) {
    if (folder.empty()) return false;
    const fs::path probe = fs::path(folder) / "~rakeyard-write-test";
    const bool made = static_cast<bool>(std::ofstream(probe));
    std::error_code ec;
    fs::remove(probe, ec);
    return made;
}

std::string wholePath(const std::string& folder) {
    std::error_code ec;
    std::string path = fs::absolute(folder, ec).lexically_normal().string();
    while (path.size() > 1 && (path.back() == '/' || path.back() == '\\'))
        path.pop_back();
    return ec ? folder : path;
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
        {option, environmentText("RAKEYARD_HOME"), executableFolder(), userDataFolder()});
    std::error_code ec;
    fs::create_directories(folder, ec);
    return folder;
}

}  // namespace rakeyard
