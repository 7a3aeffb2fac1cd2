#include "core/msts/file_lookup.h"

#include <algorithm>
#include <vector>

#include "core/platform/paths.h"
#include "core/platform/text_utf.h"

namespace rakeyard {

namespace {

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
