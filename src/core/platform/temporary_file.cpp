#include "core/platform/temporary_file.h"

#include <atomic>
#include <cerrno>
#include <charconv>
#include <filesystem>

#include "core/platform/paths.h"

#ifdef _WIN32
#include <process.h>
#else
#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace fs = std::filesystem;

namespace rakeyard {
namespace {

constexpr std::string_view kPrefix = "~rakeyard";
constexpr std::string_view kSuffix = ".tmp";

fs::path toPath(const std::string& text) {
    return fs::path(std::u8string(text.begin(), text.end()));
}

long currentProcess() {
#ifdef _WIN32
    return static_cast<long>(_getpid());
#else
    return static_cast<long>(::getpid());
#endif
}

bool processRuns(long process) {
#ifdef _WIN32
    (void)process;
    return true;  // without a cheap test, another process's temporaries are left alone
#else
    return ::kill(static_cast<pid_t>(process), 0) == 0 || errno == EPERM;
#endif
}

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
    if (!path_.empty()) fs::remove(toPath(path_), ec);
}

std::string TemporaryFile::nextName() {
    static std::atomic<unsigned> count{0};
    return joinPath(folder_, std::string(kPrefix) + std::to_string(currentProcess()) + "-" +
                                 std::to_string(count++) + std::string(kSuffix));
}

bool TemporaryFile::open(const std::string& folder) {
    folder_ = folder;
#ifdef O_TMPFILE
    const mode_t mask = ::umask(0);
    ::umask(mask);
    const int descriptor = ::open(folder.c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, 0666 & ~mask);
    if (descriptor >= 0) {
        file_ = ::fdopen(descriptor, "wb");
        if (file_) return true;
        error_ = errno;
        ::close(descriptor);
        return false;
    }
    // Some file systems have no unnamed files: fall back to a named one.
#endif
    return makeNamed();
}

bool TemporaryFile::makeNamed() {
    for (int attempt = 0; attempt < 100; ++attempt) {
        const std::string candidate = nextName();
        errno = 0;
#ifdef _WIN32
        file_ = _wfopen(toPath(candidate).c_str(), L"wbx");
#else
        file_ = std::fopen(candidate.c_str(), "wbx");
#endif
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
#ifndef _WIN32
    if (path_.empty() && file_) {
        const std::string link = "/proc/self/fd/" + std::to_string(fileno(file_));
        for (int attempt = 0; attempt < 100 && path_.empty(); ++attempt) {
            const std::string candidate = nextName();
            if (::linkat(AT_FDCWD, link.c_str(), AT_FDCWD, candidate.c_str(), AT_SYMLINK_FOLLOW) ==
                0) {
                path_ = candidate;
            } else if (errno != EEXIST) {
                error_ = errno;
                break;
            }
        }
    }
#endif
    const bool closed = std::fclose(file_) == 0;
    if (!closed && error_ == 0) error_ = errno == 0 ? EIO : errno;
    file_ = nullptr;
    if (path_.empty() && error_ == 0) error_ = EEXIST;
    return closed && !path_.empty();
}

void removeStaleTemporaries(const std::string& folder) {
    std::error_code ec;
    for (fs::directory_iterator it(toPath(folder), ec), end; !ec && it != end; it.increment(ec)) {
        const std::u8string name = it->path().filename().u8string();
        const long maker =
            makerOf(std::string_view(reinterpret_cast<const char*>(name.data()), name.size()));
        if (maker != 0 && maker != currentProcess() && !processRuns(maker)) {
            std::error_code ignored;
            fs::remove(it->path(), ignored);
        }
    }
}

}  // namespace rakeyard
