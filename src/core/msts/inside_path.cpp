#include "core/msts/inside_path.h"

#include <algorithm>
#include <vector>

#include "core/platform/paths.h"

namespace rakeyard {

namespace {

// Adds the parts of a path, as views into it: the tester joins thousands of names.
void addParts(std::string_view path, std::vector<std::string_view>& parts) {
    std::size_t start = 0;
    while (start <= path.size()) {
        std::size_t end = start;
        while (end < path.size() && !isPathSeparator(path[end]))
            ++end;
        if (end > start) parts.push_back(path.substr(start, end - start));
        start = end + 1;
    }
}

// Resolves "." and ".." by the text; false when ".." would climb above the first part.
bool resolveDots(std::vector<std::string_view>& parts) {
    std::size_t kept = 0;
    for (std::string_view part : parts) {
        if (part == ".") continue;
        if (part == "..") {
            if (kept == 0) return false;
            --kept;
            continue;
        }
        parts[kept++] = part;
    }
    parts.resize(kept);
    return true;
}

bool sameIgnoringCase(std::string_view a, std::string_view b) {
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) {
               return (x >= 'a' && x <= 'z' ? x - 32 : x) == (y >= 'a' && y <= 'z' ? y - 32 : y);
           });
}

}  // namespace

std::optional<std::string> joinInside(std::string_view root, std::string_view folder,
                                      std::string_view name) {
    static thread_local std::vector<std::string_view> path, inside;
    path.clear();
    inside.clear();
    addParts(folder, path);
    addParts(name, path);
    addParts(root, inside);
    if (!resolveDots(path) || !resolveDots(inside)) return std::nullopt;
    // Below root: its parts begin the path (in any case, as the file system takes names), and
    // at least one more part names something in it.
    if (path.size() <= inside.size()) return std::nullopt;
    for (std::size_t i = 0; i < inside.size(); ++i)
        if (!sameIgnoringCase(path[i], inside[i])) return std::nullopt;
    const bool absolute = !folder.empty() && isPathSeparator(folder.front());
    std::string joined = absolute ? std::string(1, kPathSeparator) : std::string();
    for (std::size_t i = 0; i < path.size(); ++i) {
        if (i > 0) joined += kPathSeparator;
        joined += path[i];
    }
    return joined;
}

}  // namespace rakeyard
