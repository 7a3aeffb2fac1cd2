// The system calls of core/platform/system.h on Linux and other POSIX systems.
#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <new>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>

#include "core/platform/system.h"

extern char** environ;

namespace fs = std::filesystem;

namespace rakeyard::sys {

bool isTerminal(std::FILE* stream) {
    return ::isatty(fileno(stream)) == 1;
}

void prepareConsole() {}

std::vector<std::string> commandLineArguments(int argc, char** argv) {
    return std::vector<std::string>(argv + (argc > 0 ? 1 : 0), argv + argc);
}

std::string environment(const char* name) {
    const char* value = std::getenv(name);
    return value ? std::string(value) : std::string();
}

void setEnvironment(const char* name, const std::string& value) {
    if (value.empty()) {
        ::unsetenv(name);
    } else {
        ::setenv(name, value.c_str(), 1);
    }
}

std::string executablePath() {
    std::error_code ec;
    const fs::path program = fs::read_symlink("/proc/self/exe", ec);
    return ec ? std::string() : program.string();
}

std::string userDataFolder() {
    const std::string dataHome = environment("XDG_DATA_HOME");
    if (!dataHome.empty()) return (fs::path(dataHome) / "rakeyard").string();
    const std::string home = environment("HOME");
    return (fs::path(home.empty() ? "." : home) / ".local/share/rakeyard").string();
}

std::optional<WindowsVersion> windowsVersion() {
    return std::nullopt;
}

namespace {

std::vector<char*> argumentVector(const std::string& program,
                                  const std::vector<std::string>& arguments) {
    std::vector<char*> argv;
    argv.push_back(const_cast<char*>(program.c_str()));
    for (const std::string& argument : arguments)
        argv.push_back(const_cast<char*>(argument.c_str()));
    argv.push_back(nullptr);
    return argv;
}

}  // namespace

bool startProgram(const std::string& program, const std::vector<std::string>& arguments) {
    std::vector<char*> argv = argumentVector(program, arguments);
    pid_t child = 0;
    if (posix_spawnp(&child, program.c_str(), nullptr, nullptr, argv.data(), environ) != 0)
        return false;
    // Not waited for: the child is reaped only if it has already ended.
    (void)waitpid(child, nullptr, WNOHANG);
    return true;
}

int runProgram(const std::string& program, const std::vector<std::string>& arguments,
               const std::string& outPath, const std::string& errPath) {
    std::vector<char*> argv = argumentVector(program, arguments);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 0, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&actions, 1, outPath.c_str(), O_WRONLY | O_CREAT | O_TRUNC,
                                     0600);
    posix_spawn_file_actions_addopen(&actions, 2, errPath.c_str(), O_WRONLY | O_CREAT | O_TRUNC,
                                     0600);
    pid_t child = 0;
    const int spawned =
        posix_spawn(&child, program.c_str(), &actions, nullptr, argv.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    if (spawned != 0) return -1;
    int status = 0;
    if (waitpid(child, &status, 0) != child || !WIFEXITED(status)) return -1;
    return WEXITSTATUS(status);
}

void openUrl(std::string_view url) {
    (void)startProgram("xdg-open", {std::string(url)});
}

bool moveToTrash(const std::string& path) {
    std::error_code error;
    const fs::path source = fs::absolute(path, error);
    if (error || !fs::exists(source, error)) return false;
    const std::string dataHome = environment("XDG_DATA_HOME");
    const std::string home = environment("HOME");
    if (dataHome.empty() && home.empty()) return false;
    const fs::path trash =
        !dataHome.empty() ? fs::path(dataHome) / "Trash" : fs::path(home) / ".local/share/Trash";
    fs::create_directories(trash / "files", error);
    fs::create_directories(trash / "info", error);
    // A name already in the bin gets a number, as file managers do.
    std::string name = source.filename().string();
    for (int n = 2; fs::exists(trash / "files" / name, error) ||
                    fs::exists(trash / "info" / (name + ".trashinfo"), error);
         ++n)
        name = source.filename().string() + "." + std::to_string(n);
    char deleted[32];
    const std::time_t now = std::time(nullptr);
    std::strftime(deleted, sizeof deleted, "%Y-%m-%dT%H:%M:%S", std::localtime(&now));
    std::ofstream(trash / "info" / (name + ".trashinfo"))
        << "[Trash Info]\nPath=" << source.string() << "\nDeletionDate=" << deleted << "\n";
    fs::rename(source, trash / "files" / name, error);
    if (error) fs::remove(trash / "info" / (name + ".trashinfo"), error);
    return !error;
}

std::FILE* openFile(const std::string& path, const char* mode) {
    return std::fopen(path.c_str(), mode);
}

bool ReadOnlyFile::open(const std::string& path) {
    close();
    descriptor_ = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    error_ = descriptor_ < 0 ? errno : 0;
    return descriptor_ >= 0;
}

bool ReadOnlyFile::missing() const {
    return error_ == ENOENT || error_ == ENOTDIR;
}

std::optional<std::uintmax_t> ReadOnlyFile::regularFileSize() const {
    struct stat status {};
    if (descriptor_ < 0 || ::fstat(descriptor_, &status) != 0 || !S_ISREG(status.st_mode))
        return std::nullopt;
    return static_cast<std::uintmax_t>(status.st_size);
}

std::optional<std::size_t> ReadOnlyFile::readInto(char* data, std::size_t size) {
    std::size_t got = 0;
    while (got < size) {
        const ssize_t n = ::read(descriptor_, data + got, size - got);
        if (n < 0 && errno == EINTR) continue;
        if (n < 0) return std::nullopt;
        if (n == 0) break;
        got += static_cast<std::size_t>(n);
    }
    return got;
}

void ReadOnlyFile::close() {
    if (descriptor_ >= 0) ::close(descriptor_);
    descriptor_ = -1;
}

std::optional<std::uintmax_t> regularFileSize(const std::string& path, bool& missing) {
    struct stat status {};
    const bool found = ::stat(path.c_str(), &status) == 0;
    missing = !found && (errno == ENOENT || errno == ENOTDIR);
    if (!found || !S_ISREG(status.st_mode)) return std::nullopt;
    return static_cast<std::uintmax_t>(status.st_size);
}

int syncFile(std::FILE* file) {
    errno = 0;
    if (std::fflush(file) != 0 || ::fsync(fileno(file)) != 0) return errno == 0 ? EIO : errno;
    return 0;
}

void syncFolder(const std::string& folder) {
    const int descriptor = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY);
    if (descriptor < 0) return;
    // The rename is made; a failed sync of the folder only weakens its durability.
    (void)::fsync(descriptor);
    ::close(descriptor);
}

std::error_code replaceFile(const std::string& from, const std::string& to) {
    if (std::rename(from.c_str(), to.c_str()) == 0) return {};
    return std::error_code(errno, std::generic_category());
}

std::FILE* openUnnamedFile([[maybe_unused]] const std::string& folder, int& error) {
    error = 0;
#ifdef O_TMPFILE
    const mode_t mask = ::umask(0);
    ::umask(mask);
    const int descriptor = ::open(folder.c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, 0666 & ~mask);
    if (descriptor < 0) return nullptr;  // some file systems have no unnamed files
    std::FILE* file = ::fdopen(descriptor, "wb");
    if (!file) {
        error = errno;
        ::close(descriptor);
    }
    return file;
#else
    return nullptr;
#endif
}

int nameUnnamedFile(std::FILE* file, const std::string& path) {
    const std::string link = "/proc/self/fd/" + std::to_string(fileno(file));
    if (::linkat(AT_FDCWD, link.c_str(), AT_FDCWD, path.c_str(), AT_SYMLINK_FOLLOW) == 0) return 0;
    return errno;
}

long currentProcess() {
    return static_cast<long>(::getpid());
}

bool processRuns(long process) {
    return ::kill(static_cast<pid_t>(process), 0) == 0 || errno == EPERM;
}

long startCopyOfProcess(const std::function<int()>& work) {
    const pid_t child = ::fork();
    if (child == 0) ::_exit(work());
    return static_cast<long>(child);
}

int waitForCopy(long process) {
    int status = 0;
    if (::waitpid(static_cast<pid_t>(process), &status, 0) != process || !WIFEXITED(status))
        return -1;
    return WEXITSTATUS(status);
}

double cpuSeconds() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    const auto seconds = [](const timeval& t) { return t.tv_sec + t.tv_usec / 1e6; };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

long peakMegabytes() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss / 1024;
}

namespace {
constexpr std::size_t kHugePage = std::size_t{2} << 20;

std::size_t roundToHugePages(std::size_t size) {
    return (size + kHugePage - 1) & ~(kHugePage - 1);
}
}  // namespace

// The block starts on a huge page's edge, which the kernel needs to back it with huge pages;
// the mapping's unaligned ends are given back at once.
void* allocateLargeBlock(std::size_t size) {
    const std::size_t length = roundToHugePages(size);
    void* mapped = ::mmap(nullptr, length + kHugePage, PROT_READ | PROT_WRITE,
                          MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (mapped == MAP_FAILED) throw std::bad_alloc();
    const auto start = reinterpret_cast<std::uintptr_t>(mapped);
    const std::uintptr_t aligned = (start + kHugePage - 1) & ~(std::uintptr_t{kHugePage} - 1);
    if (aligned > start) ::munmap(mapped, aligned - start);
    const std::size_t tail = kHugePage - (aligned - start);
    if (tail > 0) ::munmap(reinterpret_cast<void*>(aligned + length), tail);
    auto* block = reinterpret_cast<void*>(aligned);
#ifdef MADV_HUGEPAGE
    (void)::madvise(block, length, MADV_HUGEPAGE);  // a hint: without it the pages are small
#endif
    return block;
}

void freeLargeBlock(void* block, std::size_t size) noexcept {
    if (block) ::munmap(block, roundToHugePages(size));
}

}  // namespace rakeyard::sys
