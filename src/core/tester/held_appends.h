#pragma once
// The file system a unit's test sees on a worker thread: everything goes to the real one but
// the appends to the reports, which are held, in order, for the calling thread to write when
// the unit's turn comes. The reports then read as a run on one thread writes them.
#include <string>
#include <utility>
#include <vector>

#include "core/platform/file_system.h"

namespace rakeyard {

class HeldAppends : public FileSystem {
public:
    explicit HeldAppends(FileSystem& fs) : fs_(fs) {}
    std::vector<std::pair<std::string, std::string>> appends;

    bool appendFile(const std::string& path, std::string_view bytes) override {
        appends.emplace_back(path, bytes);
        return true;
    }
    std::vector<DirEntry> listFolder(const std::string& folder) override {
        return fs_.listFolder(folder);
    }
    bool isFolder(const std::string& path) override { return fs_.isFolder(path); }
    bool isFile(const std::string& path) override { return fs_.isFile(path); }
    std::optional<std::uintmax_t> fileSize(const std::string& path) override {
        return fs_.fileSize(path);
    }
    std::optional<std::string> readFile(const std::string& path) override {
        return fs_.readFile(path);
    }
    ReadOutcome readFileInto(const std::string& path, std::uintmax_t limit,
                             std::string& bytes) override {
        return fs_.readFileInto(path, limit, bytes);
    }
    WriteResult writeFile(const std::string& path, std::string_view bytes) override {
        return fs_.writeFile(path, bytes);
    }
    bool removeFile(const std::string& path) override { return fs_.removeFile(path); }
    bool renameFile(const std::string& from, const std::string& to) override {
        return fs_.renameFile(from, to);
    }
    bool isLink(const std::string& path) override { return fs_.isLink(path); }
    bool createFolder(const std::string& path) override { return fs_.createFolder(path); }
    std::string resolve(const std::string& path) override { return fs_.resolve(path); }

private:
    FileSystem& fs_;
};

}  // namespace rakeyard
