#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/platform/paths.h"

namespace rakeyard {

struct DirEntry {
    std::string name;  // as on disk
    bool isFolder = false;
};

// What a read with a size limit came to.
enum class ReadOutcome { Read, Unreadable, TooLarge };

struct WriteResult {
    bool ok = false;
    std::string message;  // why it failed, for the user; empty when ok
    explicit operator bool() const { return ok; }
};

// Every file and folder access of the core goes through this. Paths may use "\" and "/"
// alike and are resolved without regard to letter case, part by part. The catalogue readers
// call listFolder, isFolder, isFile, fileSize, readFile, readFileInto and resolve from several
// threads at once: an implementation must allow that (the writing calls come from one thread).
class FileSystem {
public:
    virtual ~FileSystem() = default;
    // Entries of a folder, sorted by their upper-cased names and then by exact name (the order
    // NTFS lists them in), whatever the file system's own order. Empty when it can't be listed.
    [[nodiscard]] virtual std::vector<DirEntry> listFolder(const std::string& folder) = 0;
    [[nodiscard]] virtual bool isFolder(const std::string& path) = 0;
    [[nodiscard]] virtual bool isFile(const std::string& path) = 0;
    [[nodiscard]] virtual std::optional<std::uintmax_t> fileSize(const std::string& path) = 0;
    // The whole file; nullopt when it can't be read.
    [[nodiscard]] virtual std::optional<std::string> readFile(const std::string& path) = 0;
    // The whole file into bytes, whose storage is kept for the next file, when it holds at most
    // limit bytes; a larger one is not read, so that memory stays bounded whatever a folder
    // holds. bytes is empty unless the outcome is Read.
    [[nodiscard]] virtual ReadOutcome readFileInto(const std::string& path, std::uintmax_t limit,
                                                   std::string& bytes) = 0;
    // The one safe writer: a temporary file beside the target, flushed, renamed over it. On any
    // failure the old file stays whole and no temporary file is left behind. A read-only target
    // is refused with a message naming it.
    [[nodiscard]] virtual WriteResult writeFile(const std::string& path,
                                                std::string_view bytes) = 0;
    // Appends to a report or log of the program's own (not a user's MSTS file).
    [[nodiscard]] virtual bool appendFile(const std::string& path, std::string_view bytes) = 0;
    // Writes work files of the program's own into folder, each replacing the file of exactly its
    // name, with plain writes not flushed to the disk: thousands of small files at once, which
    // nothing needs after a crash. False when one of them could not be written.
    using NamedBytes = std::pair<std::string, std::string>;
    [[nodiscard]] virtual bool writeWorkFiles(const std::string& folder,
                                              const std::vector<NamedBytes>& files) {
        bool all = true;
        for (const auto& [name, bytes] : files) {
            const std::string path = joinPath(folder, name);
            (void)removeFile(path);  // none there is the usual case
            all = appendFile(path, bytes) && all;
        }
        return all;
    }
    [[nodiscard]] virtual bool removeFile(const std::string& path) = 0;
    // Gives a file another name. The folder of `to` is resolved, its last part is taken exactly
    // as given (so a name's letter case can change), and a file of exactly that name is replaced
    // in one step.
    [[nodiscard]] virtual bool renameFile(const std::string& from, const std::string& to) = 0;
    // True when the path itself is a symbolic link, whatever it points to.
    [[nodiscard]] virtual bool isLink(const std::string& path) = 0;
    [[nodiscard]] virtual bool createFolder(const std::string& path) = 0;
    // The path as it stands on disk: separators of this platform, each existing part in its
    // on-disk case. Parts that don't exist are kept as given.
    [[nodiscard]] virtual std::string resolve(const std::string& path) = 0;
};

}  // namespace rakeyard
