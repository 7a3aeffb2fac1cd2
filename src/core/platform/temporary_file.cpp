#include "core/platform/temporary_file.h"

#include <atomic>
#include <cerrno>
#include <charconv>
#include <filesystem>

#include "core/platform/paths.h"
#include "core/platform/system.h"

namespace fs = std::filesystem;

namespace rakeyard {
namespace {

constexpr std::string_view kPrefix = "~rakeyard";
constexpr std::string_view kSuffix = ".tmp";

// The process that made a temporary of this name; 0 for any other name.
long makerOf(std::string_view name) {
    if (!name.starts_with(kPrefix) || !name.ends_with(kSuffix)) return 0;
    name.remove_prefix(kPrefix.size());
    long process = 0;
    const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), process);
    if (error != std::errc() || end == name.data() || *end != '-') return 0;
    return process;
}

}  // namespace

TemporaryFile::~TemporaryFile() {
    if (file_) std::fclose(file_);
    std::error_code ec;
    if (!path_.empty()) fs::remove(sys::fsPath(path_), ec);
}

std::string TemporaryFile::nextName() {
    static std::atomic<unsigned> count{0};
    return joinPath(folder_, std::string(kPrefix) + std::to_string(sys::currentProcess()) + "-" +
                                 std::to_string(count++) + std::string(kSuffix));
}

bool TemporaryFile::open(const std::string& folder) {
    folder_ = folder;
    file_ = sys::openUnnamedFile(folder, error_);
    if (file_ || error_ != 0) return file_ != nullptr;
    return makeNamed();
}

bool TemporaryFile::makeNamed() {
    for (int attempt = 0; attempt < 100; ++attempt) {
        const std::string candidate = nextName();
        errno = 0;
        file_ = sys::openFile(candidate, "wbx");
        if (file_) {
            path_ = candidate;
            return true;
        }
        error_ = errno == 0 ? EIO : errno;
        if (error_ != EEXIST) return false;  // another writer's name: never touched, try the next
    }
    return false;
}

bool TemporaryFile::nameAndClose() {
    for (int attempt = 0; attempt < 100 && path_.empty() && file_ && error_ == 0; ++attempt) {
        const std::string candidate = nextName();
        const int error = sys::nameUnnamedFile(file_, candidate);
        if (error == 0) {
            path_ = candidate;
        } else if (error != EEXIST) {
            error_ = error;
        }
    }
    const bool closed = std::fclose(file_) == 0;
    if (!closed && error_ == 0) error_ = errno == 0 ? EIO : errno;
    file_ = nullptr;
    if (path_.empty() && error_ == 0) error_ = EEXIST;
    return closed && !path_.empty();
}

void removeStaleTemporaries(const std::string& folder) {
    std::error_code ec;
    for (fs::directory_iterator it(sys::fsPath(folder), ec), end; !ec && it != end; it.increment(ec)) {
        const std::u8string name = it->path().filename().u8string();
        const long maker =
            makerOf(std::string_view(reinterpret_cast<const char*>(name.data()), name.size()));
        if (maker != 0 && maker != sys::currentProcess() && !sys::processRuns(maker)) {
            std::error_code ignored;
            fs::remove(it->path(), ignored);
        }
    }
}

}  // namespace rakeyard
