#include "core/tester/file_lookup.h"

#include <vector>

#include "core/platform/paths.h"
#include "core/platform/text_utf.h"

namespace rakeyard {

namespace {

// The parts of a path, and whether it begins at the root of the file system ("/" or "\").
struct PathParts {
    bool absolute = false;
    std::vector<std::string> parts;
};

PathParts partsOf(std::string_view path) {
    PathParts result;
    result.absolute = !path.empty() && isPathSeparator(path.front());
    std::size_t start = 0;
    while (start <= path.size()) {
        std::size_t end = start;
        while (end < path.size() && !isPathSeparator(path[end]))
            ++end;
        if (end > start) result.parts.emplace_back(path.substr(start, end - start));
        start = end + 1;
    }
    return result;
}

// Resolves "." and ".." by the text; false when ".." would climb above the first part.
bool resolveDots(std::vector<std::string>& parts) {
    std::vector<std::string> kept;
    for (std::string& part : parts) {
        if (part == ".") continue;
        if (part == "..") {
            if (kept.empty()) return false;
            kept.pop_back();
            continue;
        }
        kept.push_back(std::move(part));
    }
    parts = std::move(kept);
    return true;
}

}  // namespace

std::optional<std::string> joinInside(std::string_view root, std::string_view folder,
                                      std::string_view name) {
    PathParts path = partsOf(folder);
    for (std::string& part : partsOf(name).parts)
        path.parts.push_back(std::move(part));
    PathParts inside = partsOf(root);
    if (!resolveDots(path.parts) || !resolveDots(inside.parts)) return std::nullopt;
    // Below root: its parts begin the path (in any case, as the file system takes names), and
    // at least one more part names something in it.
    if (path.parts.size() <= inside.parts.size()) return std::nullopt;
    for (std::size_t i = 0; i < inside.parts.size(); ++i)
        if (upperAscii(path.parts[i]) != upperAscii(inside.parts[i])) return std::nullopt;
    std::string joined = path.absolute ? std::string(1, kPathSeparator) : std::string();
    for (std::size_t i = 0; i < path.parts.size(); ++i) {
        if (i > 0) joined += kPathSeparator;
        joined += path.parts[i];
    }
    return joined;
}

std::uintmax_t sizeInside(FileSystem& fs, std::string_view root, std::string_view folder,
                          std::string_view name) {
    const std::optional<std::string> path = joinInside(root, folder, name);
    if (!path) return 0;
    return fs.fileSize(*path).value_or(0);
}

std::optional<std::string> readInside(FileSystem& fs, std::string_view root,
                                      std::string_view folder, std::string_view name,
                                      std::uintmax_t limit) {
    std::string bytes;
    if (!readInside(fs, root, folder, name, limit, bytes)) return std::nullopt;
    return bytes;
}

bool readInside(FileSystem& fs, std::string_view root, std::string_view folder,
                std::string_view name, std::uintmax_t limit, std::string& bytes) {
    const std::optional<std::string> path = joinInside(root, folder, name);
    if (!path) {
        bytes.clear();
        return false;
    }
    return fs.readFileInto(*path, limit, bytes) == ReadOutcome::Read;
}

}  // namespace rakeyard
