#pragma once
#include <cstdio>
#include <string>

namespace rakeyard {

// The temporary file of one safe write, open for writing, in the target's folder.
//
// Where the system allows it (Linux), the file has no name while it is written, so a run that is
// killed leaves nothing behind; it gets a name only just before it is renamed over the target.
// Elsewhere it is made under a name of its own at once. Names are "~rakeyard<pid>-<n>.tmp": the
// process and a count make them unique, and a writer only ever removes a name it made itself.
// A named temporary left by a process that no longer runs is removed by the next write into its
// folder.
class TemporaryFile {
public:
    TemporaryFile() = default;
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile();

    // Opens a new temporary file in folder; false (with error() set) when none can be made.
    [[nodiscard]] bool open(const std::string& folder);
    std::FILE* file() const { return file_; }
    int error() const { return error_; }

    // Gives the file its name (when it has none yet) and closes it; false with error() set.
    [[nodiscard]] bool nameAndClose();
    // The name the file has; "" while it has none.
    const std::string& path() const { return path_; }
    // Forgets the name: the file now belongs to the target it was renamed to.
    void release() { path_.clear(); }

private:
    bool makeNamed();
    std::string nextName();

    std::string folder_;
    std::string path_;
    std::FILE* file_ = nullptr;
    int error_ = 0;
};

// Removes the named temporaries of processes that no longer run from folder.
void removeStaleTemporaries(const std::string& folder);

}  // namespace rakeyard
