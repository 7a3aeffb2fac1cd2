#pragma once
#include <map>
#include <memory>
#include <mutex>
#include <string>

#include "core/platform/file_system.h"

namespace rakeyard {

// The file system of this machine. Paths are resolved part by part without regard to case,
// with a cache of folder listings that is checked against each folder's modification time.
class LocalFileSystem : public FileSystem {
public:
    std::vector<DirEntry> listFolder(const std::string& folder) override;
    bool isFolder(const std::string& path) override;
    bool isFile(const std::string& path) override;
    std::optional<std::uintmax_t> fileSize(const std::string& path) override;
    std::optional<std::string> readFile(const std::string& path) override;
    WriteResult writeFile(const std::string& path, std::string_view bytes) override;
    bool appendFile(const std::string& path, std::string_view bytes) override;
    bool removeFile(const std::string& path) override;
    bool createFolder(const std::string& path) override;
    std::string resolve(const std::string& path) override;

private:
    struct CachedListing;
    std::mutex cacheMutex_;  // readers may run on both cores
    std::map<std::string, std::shared_ptr<const CachedListing>> cache_;
};

}  // namespace rakeyard
