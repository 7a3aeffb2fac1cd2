#pragma once
#include <cstdio>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

#include "core/platform/file_system.h"

namespace rakeyard {

// The file system of this machine. Paths are resolved part by part without regard to case,
// with a cache of folder listings that is checked against each folder's modification time and
// dropped for a folder whenever this object changes it. Safe to call from several threads.
class LocalFileSystem : public FileSystem {
public:
    std::vector<DirEntry> listFolder(const std::string& folder) override;
    bool isFolder(const std::string& path) override;
    bool isFile(const std::string& path) override;
    std::optional<std::uintmax_t> fileSize(const std::string& path) override;
    std::optional<std::string> readFile(const std::string& path) override;
    ReadOutcome readFileInto(const std::string& path, std::uintmax_t limit,
                             std::string& bytes) override;
    WriteResult writeFile(const std::string& path, std::string_view bytes) override;
    bool appendFile(const std::string& path, std::string_view bytes) override;
    bool writeWorkFiles(const std::string& folder, const std::vector<NamedBytes>& files) override;
    bool removeFile(const std::string& path) override;
    bool renameFile(const std::string& from, const std::string& to) override;
    bool isLink(const std::string& path) override;
    bool createFolder(const std::string& path) override;
    std::string resolve(const std::string& path) override;

protected:
    // Writes one chunk of the safe writer's temporary file, whose first `offset` bytes are
    // already written. Returns nullopt when done, else why it failed, for the user. A test
    // overrides this to fail at a chosen byte as a full disk would.
    [[nodiscard]] virtual std::optional<std::string> writeChunk(std::FILE* file,
                                                                std::uintmax_t offset,
                                                                std::string_view chunk);

private:
    struct CachedListing;
    std::shared_ptr<const CachedListing> cachedListing(const std::string& folder);
    void forgetListing(const std::string& folder);
    std::string existingPath(const std::string& path);
    std::optional<std::string> writeTemporary(std::FILE* file, std::string_view bytes);

    std::mutex cacheMutex_;  // readers may run on both cores
    std::map<std::string, std::shared_ptr<const CachedListing>> cache_;
};

}  // namespace rakeyard
