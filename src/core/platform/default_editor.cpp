#include "core/platform/default_editor.h"

#include <filesystem>
#include <optional>
#include <vector>

#include "core/platform/paths.h"
#include "core/platform/system.h"
#include "core/platform/text_utf.h"

namespace fs = std::filesystem;

namespace rakeyard {

namespace {

bool isExecutableFile(const std::string& path) {
    std::error_code ec;
    const fs::path where(std::u8string(path.begin(), path.end()));
    const fs::file_status status = fs::status(where, ec);
    if (ec || !fs::is_regular_file(status)) return false;
    constexpr auto anyExecute =
        fs::perms::owner_exec | fs::perms::group_exec | fs::perms::others_exec;
    return (status.permissions() & anyExecute) != fs::perms::none;
}

std::vector<std::string_view> splitSearchPath(std::string_view searchPath) {
    std::vector<std::string_view> folders;
    std::size_t begin = 0;
    while (begin <= searchPath.size()) {
        std::size_t end = searchPath.find(sys::kSearchPathSeparator, begin);
        if (end == std::string_view::npos) end = searchPath.size();
        // An empty entry would mean the current folder, which is no place to look for a program.
        if (end > begin) folders.push_back(searchPath.substr(begin, end - begin));
        begin = end + 1;
    }
    return folders;
}

}  // namespace

bool isProgramFile(const std::string& path) {
    if (!sys::kWindows) return isExecutableFile(path);
    std::error_code ec;
    const fs::path where(std::u8string(path.begin(), path.end()));
    return fs::is_regular_file(where, ec) && path.size() >= 4 &&
           upperAscii(path.substr(path.size() - 4)) == ".EXE";
}

bool isTerminalEditor(std::string_view path) {
    if (sys::kWindows) return false;  // Windows gives a console program a window of its own
    // "editor" and "sensible-editor" are Debian's names for the user's terminal editor.
    static constexpr std::string_view kTerminalEditors[] = {
        "vi",    "vim",    "vim.basic", "vim.tiny", "nvim",   "view",   "ex",     "ed",
        "nano",  "pico",   "rnano",     "emacs-nox", "jed",   "joe",    "jmacs",  "jstar",
        "mcedit", "micro", "ne",        "hx",       "helix", "kak",    "mg",     "zile",
        "editor", "sensible-editor"};
    std::size_t start = path.size();
    while (start > 0 && !isPathSeparator(path[start - 1]))
        --start;
    const std::string_view name = path.substr(start);
    for (std::string_view editor : kTerminalEditors)
        if (name == editor) return true;
    return false;
}

std::string wordpadPathForVersion(unsigned long platformId, unsigned long major,
                                  unsigned long minor) {
    if (platformId == 1) {
        if (minor == 0 || minor == 10 || minor == 90)
            return "C:\\Program Files\\Accessories\\wordpad.exe";
        return "";
    }
    if (platformId == 2) {
        if (major == 3) return "Not supported";
        if (major == 4 || major == 5)
            return "C:\\Program Files\\Windows NT\\Accessories\\wordpad.exe";
        return "";
    }
    return "Failed";
}

std::string findEditorOnPath(std::string_view searchPath) {
    const std::vector<std::string_view> folders = splitSearchPath(searchPath);
    for (std::string_view name : kTextEditorNames) {
        for (std::string_view folder : folders) {
            const std::string candidate = joinPath(folder, name);
            if (isExecutableFile(candidate)) return candidate;
        }
    }
    return "";
}

std::string defaultEditorPath() {
    if (sys::kWindows) {
        const std::optional<sys::WindowsVersion> version = sys::windowsVersion();
        if (!version) return "";
        return wordpadPathForVersion(version->platformId, version->major, version->minor);
    }
    return findEditorOnPath(sys::environment("PATH"));
}

}  // namespace rakeyard
