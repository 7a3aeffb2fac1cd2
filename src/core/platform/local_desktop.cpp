#include "core/platform/local_desktop.h"

#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <vector>

#ifdef _WIN32
#include <process.h>
#else
#include <spawn.h>
#include <sys/wait.h>
extern char** environ;
#endif

namespace rakeyard {

bool LocalDesktop::moveToTrash(const std::string& path) {
    namespace fs = std::filesystem;
    std::error_code error;
    const fs::path source = fs::absolute(path, error);
    if (error || !fs::exists(source, error)) return false;
    const char* dataHome = std::getenv("XDG_DATA_HOME");
    const char* home = std::getenv("HOME");
    if (!dataHome && !home) return false;
    const fs::path trash =
        dataHome ? fs::path(dataHome) / "Trash" : fs::path(home) / ".local/share/Trash";
    fs::create_directories(trash / "files", error);
    fs::create_directories(trash / "info", error);
    // A name already in the bin gets a number, as file managers do.
    std::string name = source.filename().string();
    for (int n = 2; fs::exists(trash / "files" / name, error) ||
                    fs::exists(trash / "info" / (name + ".trashinfo"), error);
         ++n)
        name = source.filename().string() + "." + std::to_string(n);
    char deleted[32];
    const std::time_t now = std::time(nullptr);
    std::strftime(deleted, sizeof deleted, "%Y-%m-%dT%H:%M:%S", std::localtime(&now));
    std::ofstream(trash / "info" / (name + ".trashinfo"))
        << "[Trash Info]\nPath=" << source.string() << "\nDeletionDate=" << deleted << "\n";
    fs::rename(source, trash / "files" / name, error);
    if (error) fs::remove(trash / "info" / (name + ".trashinfo"), error);
    return !error;
}

bool LocalDesktop::startProgram(const std::string& program,
                                const std::vector<std::string>& arguments) {
#ifdef _WIN32
    std::vector<std::wstring> wide;
    const auto widen = [](const std::string& text) {
        const std::u8string utf8(text.begin(), text.end());
        return std::filesystem::path(utf8).wstring();
    };
    wide.push_back(L"\"" + widen(program) + L"\"");
    for (const std::string& argument : arguments)
        wide.push_back(L"\"" + widen(argument) + L"\"");
    std::vector<const wchar_t*> argv;
    for (const std::wstring& word : wide)
        argv.push_back(word.c_str());
    argv.push_back(nullptr);
    return _wspawnvp(_P_NOWAIT, widen(program).c_str(), argv.data()) != -1;
#else
    std::vector<char*> argv;
    argv.push_back(const_cast<char*>(program.c_str()));
    for (const std::string& argument : arguments)
        argv.push_back(const_cast<char*>(argument.c_str()));
    argv.push_back(nullptr);
    pid_t child = 0;
    if (posix_spawnp(&child, program.c_str(), nullptr, nullptr, argv.data(), environ) != 0)
        return false;
    // Not waited for: the child is reaped only if it has already ended.
    (void)waitpid(child, nullptr, WNOHANG);
    return true;
#endif
}

void LocalDesktop::openUrl(std::string_view url) {
#ifdef _WIN32
    (void)startProgram("explorer", {std::string(url)});
#else
    (void)startProgram("xdg-open", {std::string(url)});
#endif
}

}  // namespace rakeyard
