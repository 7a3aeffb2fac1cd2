#pragma once
// An installation held in memory for the fuzz targets of the tester: files by path, and every
// path the code under test touched, so that a target can prove nothing outside was looked at.
#include <map>
#include <string>
#include <vector>

#include "core/platform/services.h"

namespace rakeyard::fuzz {

// Paths are kept with "/" whatever separators the code under test joins them with (Windows'
// "\\" among them).
class MemoryTree : public FileSystem {
public:
    std::map<std::string, std::string> files;
    std::vector<std::string> touched;

    // The files and folders right below folder, in name order.
    std::vector<DirEntry> listFolder(const std::string& folder) override {
        std::map<std::string, bool> below;
        const std::string prefix = touch(folder) + "/";
        for (const auto& [name, bytes] : files) {
            if (!name.starts_with(prefix)) continue;
            const std::string rest = name.substr(prefix.size());
            const std::size_t cut = rest.find('/');
            below[rest.substr(0, cut)] = below[rest.substr(0, cut)] || cut != std::string::npos;
        }
        std::vector<DirEntry> entries;
        for (const auto& [name, isFolder] : below)
            entries.push_back({name, isFolder});
        return entries;
    }
    bool isFolder(const std::string& path) override {
        const std::string prefix = touch(path) + "/";
        for (const auto& [name, bytes] : files)
            if (name.starts_with(prefix)) return true;
        return false;
    }
    bool isFile(const std::string& path) override { return files.count(touch(path)) > 0; }
    std::optional<std::uintmax_t> fileSize(const std::string& path) override {
        const auto found = files.find(touch(path));
        if (found == files.end()) return std::nullopt;
        return found->second.size();
    }
    std::optional<std::string> readFile(const std::string& path) override {
        const auto found = files.find(touch(path));
        if (found == files.end()) return std::nullopt;
        return found->second;
    }
    ReadOutcome readFileInto(const std::string& path, std::uintmax_t limit,
                             std::string& bytes) override {
        bytes.clear();
        const std::optional<std::string> read = readFile(path);
        if (!read) return ReadOutcome::Unreadable;
        if (read->size() > limit) return ReadOutcome::TooLarge;
        bytes = *read;
        return ReadOutcome::Read;
    }
    WriteResult writeFile(const std::string& path, std::string_view bytes) override {
        files[touch(path)] = std::string(bytes);
        return {true, ""};
    }
    bool appendFile(const std::string& path, std::string_view bytes) override {
        files[touch(path)] += bytes;
        return true;
    }
    bool removeFile(const std::string& path) override { return files.erase(touch(path)) > 0; }
    bool renameFile(const std::string& from, const std::string& to) override {
        const auto found = files.find(touch(from));
        const std::string target = touch(to);
        if (found == files.end()) return false;
        std::string bytes = std::move(found->second);
        files.erase(found);
        files[target] = std::move(bytes);
        return true;
    }
    bool isLink(const std::string& path) override {
        touch(path);
        return false;
    }
    bool createFolder(const std::string& path) override {
        touch(path);
        return true;
    }
    std::string resolve(const std::string& path) override { return path; }

    // Whether every path touched is one of the folders given or lies below one.
    bool touchedOnlyBelow(std::initializer_list<std::string_view> folders) const {
        for (const std::string& path : touched) {
            bool inside = false;
            for (std::string_view folder : folders)
                inside = inside || path == folder ||
                         (path.size() > folder.size() && path.starts_with(folder) &&
                          path[folder.size()] == '/');
            if (!inside) return false;
        }
        return true;
    }

private:
    // Records the path and gives it as the tree keeps it.
    const std::string& touch(std::string path) {
        for (char& c : path)
            if (c == '\\') c = '/';
        return touched.emplace_back(std::move(path));
    }
};

// Services that show nothing and start nothing, over a memory tree.
struct QuietServices {
    struct Quiet : Dialogs {
        void report(std::string_view, Icon, std::string_view) override {}
        Answer ask(std::string_view, Buttons, Icon, Answer safe, std::string_view) override {
            return safe;
        }
    } dialogs;
    struct NoDesktop : Desktop {
        bool moveToTrash(const std::string&) override { return false; }
        bool startProgram(const std::string&, const std::vector<std::string>&) override {
            return false;
        }
        void openUrl(std::string_view) override {}
    } desktop;
    NoProgress progress;
    MemoryTree tree;
    Services services{tree, dialogs, progress, desktop};
};

}  // namespace rakeyard::fuzz
