// The parts of core/platform/system.h that are the same text work on every system.
#include "core/platform/system.h"

namespace rakeyard::sys {

std::filesystem::path fsPath(std::string_view path) {
    return std::filesystem::path(std::u8string(path.begin(), path.end()));
}

std::string utf8Path(const std::filesystem::path& path) {
    const std::u8string text = path.u8string();
    return std::string(text.begin(), text.end());
}

std::string windowsCommandLine(const std::vector<std::string>& words) {
    std::string line;
    for (const std::string& word : words) {
        if (!line.empty()) line += ' ';
        if (!word.empty() && word.find_first_of(" \t\n\v\"") == std::string::npos) {
            line += word;
            continue;
        }
        line += '"';
        std::size_t backslashes = 0;
        for (char c : word) {
            if (c == '\\') {
                ++backslashes;
                continue;
            }
            // Backslashes count only before a quote: there each is doubled, and the quote
            // itself gets one more.
            line.append(c == '"' ? 2 * backslashes + 1 : backslashes, '\\');
            line += c;
            backslashes = 0;
        }
        // The closing quote follows: backslashes before it are doubled too.
        line.append(2 * backslashes, '\\');
        line += '"';
    }
    return line;
}

}  // namespace rakeyard::sys
