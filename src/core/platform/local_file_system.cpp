#include "core/platform/local_file_system.h"

#include <algorithm>
#include <atomic>
#include <cctype>
#include <cerrno>
#include <chrono>
#include <filesystem>
#include <limits>
#include <system_error>

#include "core/platform/paths.h"
#include "core/platform/system.h"
#include "core/platform/temporary_file.h"
#include "core/platform/text_utf.h"

namespace fs = std::filesystem;

namespace rakeyard {

// The names of one folder in listing order, with their upper-cased forms beside them.
struct LocalFileSystem::CachedListing {
    fs::file_time_type modified;
    bool settled = false;  // taken long enough after the last change to be trusted later
    std::vector<std::string> upperNames;
    std::vector<std::string> names;
    std::vector<bool> isFolder;

    // The entry named `part` in any letter case: the exact name when the folder holds it, else
    // the first in listing order. Null when there is none.
    const std::string* find(const std::string& part) const {
        const auto [first, last] =
            std::equal_range(upperNames.begin(), upperNames.end(), upperAscii(part));
        if (first == last) return nullptr;
        for (auto it = first; it != last; ++it) {
            if (names[it - upperNames.begin()] == part) return &part;
        }
        return &names[first - upperNames.begin()];
    }
};

namespace {

// A listing taken within this time of the folder's last change may have missed an entry made
// in the same tick of a coarse clock, so it is not reused.
constexpr auto kSettleTime = std::chrono::seconds(2);
constexpr std::size_t kMaxCachedFolders = 20000;
constexpr std::size_t kChunkSize = 64 * 1024;

// The last part of a listed entry's path. Where paths are UTF-8 already it is cut from the
// path's text, with no parsing of the path into parts (a listing makes thousands of these).
// One of the two is the system's: paths are held in 8 bits or in UTF-16.
[[maybe_unused]] std::string lastPartOf(const std::string& native) {
    return native.substr(native.rfind('/') + 1);
}
[[maybe_unused]] std::string lastPartOf(const std::wstring& native) {
    return sys::utf8Path(fs::path(native).filename());
}
std::string entryName(const fs::path& path) {
    return lastPartOf(path.native());
}

std::string errorText(int error) {
    if (error == 0) error = EIO;
    return std::generic_category().message(error);
}

std::string folderOf(const std::string& path) {
    const std::string folder = parentPath(path);
    if (!folder.empty()) return folder;
    return isPathSeparator(path.empty() ? ' ' : path.front()) ? std::string(1, kPathSeparator)
                                                              : std::string(".");
}

// The part of a path that is not resolved: a leading separator, a drive ("C:") or both.
std::size_t rootLength(const std::string& path) {
    std::size_t length = 0;
    if (path.size() >= 2 && path[1] == ':' && std::isalpha(static_cast<unsigned char>(path[0])))
        length = 2;
    while (length < path.size() && isPathSeparator(path[length]))
        ++length;
    return length;
}

std::string nativeRoot(const std::string& root) {
    std::string out;
    for (char c : root) {
        if (!isPathSeparator(c)) {
            out += c;
        } else if (out.empty() || out.back() != kPathSeparator) {
            out += kPathSeparator;
        }
        // Keep the doubled separator of a Windows network path (\\server\share).
        else if (out.size() == 1 && kPathSeparator == '\\') {
            out += kPathSeparator;
        }
    }
    return out;
}

std::vector<std::string> splitParts(std::string_view rest) {
    std::vector<std::string> parts;
    std::size_t begin = 0;
    while (begin <= rest.size()) {
        std::size_t end = begin;
        while (end < rest.size() && !isPathSeparator(rest[end]))
            ++end;
        if (end > begin) parts.emplace_back(rest.substr(begin, end - begin));
        begin = end + 1;
    }
    return parts;
}

}  // namespace

std::shared_ptr<const LocalFileSystem::CachedListing> LocalFileSystem::cachedListing(
    const std::string& folder) {
    std::error_code ec;
    const fs::path where = sys::fsPath(folder);
    const fs::file_time_type modified = fs::last_write_time(where, ec);
    if (ec) return nullptr;
    {
        std::lock_guard lock(cacheMutex_);
        const auto found = cache_.find(folder);
        if (found != cache_.end() && found->second->settled && found->second->modified == modified)
            return found->second;
    }

    auto listing = std::make_shared<CachedListing>();
    listing->modified = modified;
    listing->settled = fs::file_time_type::clock::now() - modified > kSettleTime;
    struct Entry {
        std::string upper;
        std::string name;
        bool isFolder;
        bool operator<(const Entry& other) const {
            return upper != other.upper ? upper < other.upper : name < other.name;
        }
    };
    std::vector<Entry> entries;
    for (fs::directory_iterator it(where, ec), end; !ec && it != end; it.increment(ec)) {
        std::string name = entryName(it->path());
        std::error_code typeError;  // an entry whose type can't be read counts as a file
        const bool isFolder = it->is_directory(typeError);
        entries.push_back({upperAscii(name), std::move(name), isFolder});
    }
    if (ec) return nullptr;
    std::sort(entries.begin(), entries.end());
    listing->upperNames.reserve(entries.size());
    listing->names.reserve(entries.size());
    listing->isFolder.reserve(entries.size());
    for (Entry& entry : entries) {
        listing->upperNames.push_back(std::move(entry.upper));
        listing->names.push_back(std::move(entry.name));
        listing->isFolder.push_back(entry.isFolder);
    }

    std::lock_guard lock(cacheMutex_);
    if (cache_.size() >= kMaxCachedFolders) cache_.clear();
    cache_[folder] = listing;
    return listing;
}

void LocalFileSystem::forgetListing(const std::string& folder) {
    std::lock_guard lock(cacheMutex_);
    cache_.erase(folder);
}

std::string LocalFileSystem::resolve(const std::string& path) {
    const std::size_t rootEnd = rootLength(path);
    std::string resolved = nativeRoot(path.substr(0, rootEnd));
    bool partsExist = true;
    for (const std::string& part : splitParts(std::string_view(path).substr(rootEnd))) {
        std::string name = part;
        if (partsExist && part != "." && part != "..") {
            const auto listing = cachedListing(resolved.empty() ? std::string(".") : resolved);
            const std::string* found = listing ? listing->find(part) : nullptr;
            // Below a missing part nothing can be found: the rest is kept as given.
            partsExist = found != nullptr;
            if (found) name = *found;
        }
        if (!resolved.empty() && resolved.back() != kPathSeparator) resolved += kPathSeparator;
        resolved += name;
    }
    if (!path.empty() && isPathSeparator(path.back()) && !resolved.empty() &&
        resolved.back() != kPathSeparator)
        resolved += kPathSeparator;
    return resolved;
}

// Listings come from the cache that path resolution keeps, so a folder listed twice (as both
// catalogue readers do) is read from the disk once while it is unchanged.
std::vector<DirEntry> LocalFileSystem::listFolder(const std::string& folder) {
    // A folder path from a listing is exact: its listing is found with no look on the way.
    std::shared_ptr<const CachedListing> listing = cachedListing(nativeSeparators(folder));
    if (!listing) listing = cachedListing(resolve(folder));
    if (!listing) return {};
    std::vector<DirEntry> entries(listing->names.size());
    for (std::size_t i = 0; i < entries.size(); ++i) {
        entries[i].name = listing->names[i];
        entries[i].isFolder = listing->isFolder[i];
    }
    return entries;
}

// The path on disk: as given when it names something there (paths built from listings
// always do, and it spares the part-by-part resolution), else resolved.
std::string LocalFileSystem::existingPath(const std::string& path) {
    std::error_code ec;
    const std::string native = nativeSeparators(path);
    if (fs::exists(sys::fsPath(native), ec)) return native;
    return resolve(path);
}

bool LocalFileSystem::isFolder(const std::string& path) {
    std::error_code ec;
    return !path.empty() && fs::is_directory(sys::fsPath(existingPath(path)), ec);
}

bool LocalFileSystem::isFile(const std::string& path) {
    return fileSize(path).has_value();
}

// One look at the file where the path is exact, which it mostly is, and one more at the path
// resolved part by part when it isn't there: the tester sizes thousands of files.
std::optional<std::uintmax_t> LocalFileSystem::fileSize(const std::string& path) {
    if (path.empty()) return std::nullopt;
    bool missing = false;
    if (auto size = sys::regularFileSize(nativeSeparators(path), missing)) return size;
    if (!missing) return std::nullopt;
    return sys::regularFileSize(resolve(path), missing);
}

std::optional<std::string> LocalFileSystem::readFile(const std::string& path) {
    std::string bytes;
    if (readFileInto(path, std::numeric_limits<std::uintmax_t>::max(), bytes) != ReadOutcome::Read)
        return std::nullopt;
    return bytes;
}

ReadOutcome LocalFileSystem::readFileInto(const std::string& path, std::uintmax_t limit,
                                          std::string& bytes) {
    const auto fail = [&bytes](ReadOutcome outcome) {
        bytes.clear();
        return outcome;
    };
    if (path.empty()) return fail(ReadOutcome::Unreadable);
    // Paths from listings are exact already: the first open finds them, with no look at the
    // folders on the way.
    sys::ReadOnlyFile file;
    if (!file.open(nativeSeparators(path)) && file.missing()) (void)file.open(resolve(path));
    const std::optional<std::uintmax_t> size = file.regularFileSize();
    if (!size) return fail(ReadOutcome::Unreadable);
    if (*size > limit) return fail(ReadOutcome::TooLarge);
    // The size the file has now is read, in one call unless the system splits it; a file that
    // shrinks meanwhile gives what it still holds. Only what goes beyond the last file's size
    // is cleared first.
    bytes.resize(static_cast<std::size_t>(*size));
    const std::optional<std::size_t> got = file.readInto(bytes.data(), bytes.size());
    if (!got) return fail(ReadOutcome::Unreadable);
    bytes.resize(*got);
    return ReadOutcome::Read;
}

std::optional<std::string> LocalFileSystem::writeChunk(std::FILE* file, std::uintmax_t,
                                                       std::string_view chunk) {
    errno = 0;
    if (std::fwrite(chunk.data(), 1, chunk.size(), file) == chunk.size()) return std::nullopt;
    return errorText(errno);
}

// Writes the temporary file whole and on the disk; nullopt when done, else why not.
std::optional<std::string> LocalFileSystem::writeTemporary(std::FILE* file,
                                                           std::string_view bytes) {
    std::optional<std::string> failure;
    for (std::size_t offset = 0; offset < bytes.size() && !failure; offset += kChunkSize)
        failure = writeChunk(file, offset, bytes.substr(offset, kChunkSize));
    if (failure) return failure;
    if (const int error = sys::syncFile(file)) return errorText(error);
    return std::nullopt;
}

WriteResult LocalFileSystem::writeFile(const std::string& path, std::string_view bytes) {
    const std::string target = resolve(path);
    const std::string folder = folderOf(target);
    // A file the user marked read-only is kept, whoever runs the program (root writes anything).
    std::error_code ec;
    const fs::file_status existing = fs::status(sys::fsPath(target), ec);
    if (!ec && fs::is_regular_file(existing) &&
        (existing.permissions() & fs::perms::owner_write) == fs::perms::none)
        return WriteResult{false, "The file " + target + " is read-only."};
    removeStaleTemporaries(folder);

    // The temporary's name is short, whatever the target's length, so it always fits in the
    // folder; on any failure the temporary goes with it.
    TemporaryFile temporary;
    if (!temporary.open(folder)) return WriteResult{false, errorText(temporary.error())};
    std::optional<std::string> failure = writeTemporary(temporary.file(), bytes);
    if (!failure && !temporary.nameAndClose()) failure = errorText(temporary.error());
    if (!failure) {
        const fs::file_status old = fs::status(sys::fsPath(target), ec);
        if (!ec && fs::is_regular_file(old)) {
            // A kept file keeps its permissions; failing that, it gets the usual ones.
            fs::permissions(sys::fsPath(temporary.path()), old.permissions(), fs::perm_options::replace,
                            ec);
        }
        ec = sys::replaceFile(temporary.path(), target);
        if (ec) {
            failure = ec.message();
        } else {
            temporary.release();
        }
    }
    forgetListing(folder);
    if (failure) return WriteResult{false, *failure};
    sys::syncFolder(folder);
    return WriteResult{true, {}};
}

bool LocalFileSystem::appendFile(const std::string& path, std::string_view bytes) {
    const std::string target = existingPath(path);
    std::FILE* file = sys::openFile(target, "ab");
    if (!file) return false;
    // Only a file that was not there changes its folder's listing: reports get thousands of
    // appends in a row.
    const bool wasThere = std::fseek(file, 0, SEEK_END) == 0 && std::ftell(file) > 0;
    bool written = std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size();
    written = std::fclose(file) == 0 && written;
    if (!wasThere) forgetListing(folderOf(target));
    return written;
}

// The writes of a whole set look the folder up once and drop its listing once: a listing per
// file would make thousands of files take quadratic time.
bool LocalFileSystem::writeWorkFiles(const std::string& folder,
                                     const std::vector<NamedBytes>& files) {
    const std::string where = resolve(folder);
    bool all = true;
    for (const auto& [name, bytes] : files) {
        std::FILE* file = sys::openFile(joinPath(where, name), "wb");
        if (!file) {
            all = false;
            continue;
        }
        const bool written = std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size();
        all = std::fclose(file) == 0 && written && all;
    }
    forgetListing(where);
    return all;
}

bool LocalFileSystem::removeFile(const std::string& path) {
    const std::string target = existingPath(path);
    std::error_code ec;
    if (fs::is_directory(sys::fsPath(target), ec)) return false;
    const bool removed = fs::remove(sys::fsPath(target), ec) && !ec;
    forgetListing(folderOf(target));
    return removed;
}

bool LocalFileSystem::renameFile(const std::string& from, const std::string& to) {
    const std::string source = existingPath(from);
    const std::string folder = resolve(parentPath(to));
    const std::string target = joinPath(folder, lastPathPart(to));
    std::error_code ec;
    if (!fs::is_regular_file(sys::fsPath(source), ec)) return false;
    ec = sys::replaceFile(source, target);
    forgetListing(folderOf(source));
    forgetListing(folder);
    return !ec;
}

bool LocalFileSystem::isLink(const std::string& path) {
    std::error_code ec;
    return !path.empty() && fs::is_symlink(sys::fsPath(resolve(path)), ec);
}

bool LocalFileSystem::createFolder(const std::string& path) {
    if (path.empty()) return false;
    const std::string target = resolve(path);
    std::error_code ec;
    fs::create_directories(sys::fsPath(target), ec);
    forgetListing(folderOf(target));
    return fs::is_directory(sys::fsPath(target), ec);
}

}  // namespace rakeyard
