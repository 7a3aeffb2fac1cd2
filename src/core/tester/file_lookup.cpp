#include "core/tester/file_lookup.h"

#include <algorithm>
#include <vector>

#include "core/platform/paths.h"
#include "core/platform/text_utf.h"

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

// A character Windows refuses in a name; separators divide the name and are no part of it.
bool hasForbiddenCharacter(std::string_view name) {
    return std::any_of(name.begin(), name.end(), [](char c) {
        return static_cast<unsigned char>(c) < 0x20 ||
               std::string_view("<>:\"|?*").find(c) != std::string_view::npos;
    });
}

// Why nothing was found at path, which the file system did not give as a plain file.
LookupFailure missingKind(FileSystem& fs, const std::string& path) {
    if (fs.isFolder(path)) return LookupFailure::FileNotFound;
    const std::size_t cut = path.find_last_of("\\/");
    const std::string parent = cut == std::string::npos ? std::string() : path.substr(0, cut);
    return parent.empty() || fs.isFolder(parent) ? LookupFailure::FileNotFound
                                                 : LookupFailure::PathNotFound;
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

std::uintmax_t sizeInside(FileSystem& fs, std::string_view root, std::string_view folder,
                          std::string_view name) {
    if (hasForbiddenCharacter(name)) return 0;
    const std::optional<std::string> path = joinInside(root, folder, name);
    if (!path) return 0;
    return fs.fileSize(*path).value_or(0);
}

Lookup lookUpInside(FileSystem& fs, std::string_view root, std::string_view folder,
                    std::string_view name) {
    if (hasForbiddenCharacter(name)) return {0, LookupFailure::BadName};
    const std::optional<std::string> path = joinInside(root, folder, name);
    if (!path) return {0, LookupFailure::PathNotFound};
    if (const std::optional<std::uintmax_t> size = fs.fileSize(*path)) return {*size};
    return {0, missingKind(fs, *path)};
}

LookupFailure readLookupInside(FileSystem& fs, std::string_view root, std::string_view folder,
                               std::string_view name, std::uintmax_t limit, std::string& bytes) {
    bytes.clear();
    if (hasForbiddenCharacter(name)) return LookupFailure::BadName;
    const std::optional<std::string> path = joinInside(root, folder, name);
    if (!path) return LookupFailure::PathNotFound;
    if (fs.readFileInto(*path, limit, bytes) == ReadOutcome::Read) return LookupFailure::None;
    if (fs.isFile(*path)) return LookupFailure::Unreadable;
    return missingKind(fs, *path);
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
    if (hasForbiddenCharacter(name)) {
        bytes.clear();
        return false;
    }
    const std::optional<std::string> path = joinInside(root, folder, name);
    if (!path) {
        bytes.clear();
        return false;
    }
    return fs.readFileInto(*path, limit, bytes) == ReadOutcome::Read;
}

}  // namespace rakeyard
