// The system calls of core/platform/system.h on Windows. Every path goes to the system as
// UTF-16, so names in any script work whatever the ANSI code page is.
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
// After windows.h, which these need.
#include <fcntl.h>
#include <io.h>
#include <psapi.h>
#include <shellapi.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <new>
#include <cstdlib>
#include <filesystem>

#include "core/platform/system.h"

namespace fs = std::filesystem;

namespace rakeyard::sys {
namespace {

std::wstring widen(std::string_view text) {
    if (text.empty()) return {};
    const int size =
        MultiByteToWideChar(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(size), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), wide.data(), size);
    return wide;
}

std::string narrow(std::wstring_view text) {
    if (text.empty()) return {};
    const int size = WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()),
                                         nullptr, 0, nullptr, nullptr);
    std::string utf8(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), utf8.data(), size,
                        nullptr, nullptr);
    return utf8;
}

// A path with Windows' own separators, which the shell's file operations insist on.
std::wstring widePath(std::string_view path) {
    std::wstring wide = widen(path);
    for (wchar_t& c : wide)
        if (c == L'/') c = L'\\';
    return wide;
}

// Starts the command line; the process's handle, or null. inheritHandles passes the handles in
// startup's standard handles on.
HANDLE createProcess(const std::string& program, const std::vector<std::string>& arguments,
                     STARTUPINFOW& startup, bool inheritHandles) {
    std::vector<std::string> words{program};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::wstring commandLine = widen(windowsCommandLine(words));
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, inheritHandles,
                        CREATE_UNICODE_ENVIRONMENT, nullptr, nullptr, &startup, &process))
        return nullptr;
    CloseHandle(process.hThread);
    return process.hProcess;
}

HANDLE inheritableFile(const std::string& path, DWORD access, DWORD disposition) {
    SECURITY_ATTRIBUTES inherit{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
    return CreateFileW(widePath(path).c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE, &inherit,
                       disposition, FILE_ATTRIBUTE_NORMAL, nullptr);
}

}  // namespace

bool isTerminal(std::FILE* stream) {
    return _isatty(_fileno(stream)) != 0;
}

void prepareConsole() {
    SetConsoleOutputCP(CP_UTF8);
    _setmode(_fileno(stdout), _O_BINARY);
    _setmode(_fileno(stderr), _O_BINARY);
}

std::vector<std::string> commandLineArguments(int, char**) {
    int count = 0;
    wchar_t** words = CommandLineToArgvW(GetCommandLineW(), &count);
    std::vector<std::string> arguments;
    for (int i = 1; words && i < count; ++i)
        arguments.push_back(narrow(words[i]));
    LocalFree(words);
    return arguments;
}

std::string environment(const char* name) {
    const wchar_t* value = _wgetenv(widen(name).c_str());
    return value ? narrow(value) : std::string();
}

void setEnvironment(const char* name, const std::string& value) {
    // An empty value removes the variable, here and in the programs started after.
    (void)_wputenv_s(widen(name).c_str(), widen(value).c_str());
}

std::string executablePath() {
    std::wstring buffer(32768, L'\0');
    const DWORD length =
        GetModuleFileNameW(nullptr, buffer.data(), static_cast<DWORD>(buffer.size()));
    if (length == 0 || length >= buffer.size()) return {};
    buffer.resize(length);
    return narrow(buffer);
}

std::string userDataFolder() {
    const std::string appData = environment("APPDATA");
    return appData.empty() ? std::string() : appData + "\\Rakeyard";
}

std::optional<WindowsVersion> windowsVersion() {
    OSVERSIONINFOA version{};
    version.dwOSVersionInfoSize = sizeof version;
    if (!GetVersionExA(&version)) return std::nullopt;
    return WindowsVersion{version.dwPlatformId, version.dwMajorVersion, version.dwMinorVersion};
}

bool startProgram(const std::string& program, const std::vector<std::string>& arguments) {
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    const HANDLE process = createProcess(program, arguments, startup, false);
    if (!process) return false;
    CloseHandle(process);
    return true;
}

int runProgram(const std::string& program, const std::vector<std::string>& arguments,
               const std::string& outPath, const std::string& errPath) {
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdInput = inheritableFile("NUL", GENERIC_READ, OPEN_EXISTING);
    startup.hStdOutput = inheritableFile(outPath, GENERIC_WRITE, CREATE_ALWAYS);
    startup.hStdError = inheritableFile(errPath, GENERIC_WRITE, CREATE_ALWAYS);
    const HANDLE process = createProcess(program, arguments, startup, true);
    for (HANDLE handle : {startup.hStdInput, startup.hStdOutput, startup.hStdError})
        if (handle != INVALID_HANDLE_VALUE) CloseHandle(handle);
    if (!process) return -1;
    DWORD status = 0;
    const bool ended = WaitForSingleObject(process, INFINITE) == WAIT_OBJECT_0 &&
                       GetExitCodeProcess(process, &status);
    CloseHandle(process);
    return ended ? static_cast<int>(status) : -1;
}

void openUrl(std::string_view url) {
    ShellExecuteW(nullptr, L"open", widen(url).c_str(), nullptr, nullptr, SW_SHOWNORMAL);
}

bool moveToTrash(const std::string& path) {
    std::error_code ec;
    const fs::path source = fs::absolute(fs::path(widePath(path)), ec);
    if (ec || !fs::exists(source, ec)) return false;
    // The shell's file operation takes a list of paths, each ended by a null, and a null after
    // the last. The user has been asked already: the shell asks nothing more.
    std::wstring from = source.wstring();
    from.push_back(L'\0');
    SHFILEOPSTRUCTW operation{};
    operation.wFunc = FO_DELETE;
    operation.pFrom = from.c_str();
    operation.fFlags = FOF_ALLOWUNDO | FOF_NOCONFIRMATION | FOF_NOERRORUI | FOF_SILENT;
    return SHFileOperationW(&operation) == 0 && !operation.fAnyOperationsAborted &&
           !fs::exists(source, ec);
}

std::FILE* openFile(const std::string& path, const char* mode) {
    const std::string_view modeText(mode);
    if (modeText.find('x') == std::string_view::npos)
        return _wfopen(widen(path).c_str(), widen(mode).c_str());
    // The C runtime takes no "x": a new file alone is made through the descriptor's O_EXCL.
    const int descriptor = _wopen(widen(path).c_str(), _O_WRONLY | _O_CREAT | _O_EXCL | _O_BINARY,
                                  _S_IREAD | _S_IWRITE);
    if (descriptor < 0) return nullptr;
    std::FILE* file = _fdopen(descriptor, "wb");
    if (!file) _close(descriptor);
    return file;
}

bool ReadOnlyFile::open(const std::string& path) {
    close();
    descriptor_ = _wopen(widen(path).c_str(), _O_RDONLY | _O_BINARY);
    error_ = descriptor_ < 0 ? errno : 0;
    return descriptor_ >= 0;
}

bool ReadOnlyFile::missing() const {
    return error_ == ENOENT || error_ == ENOTDIR;
}

std::optional<std::uintmax_t> ReadOnlyFile::regularFileSize() const {
    struct _stat64 status {};
    if (descriptor_ < 0 || _fstat64(descriptor_, &status) != 0 ||
        (status.st_mode & _S_IFMT) != _S_IFREG)
        return std::nullopt;
    return static_cast<std::uintmax_t>(status.st_size);
}

std::optional<std::size_t> ReadOnlyFile::readInto(char* data, std::size_t size) {
    std::size_t got = 0;
    while (got < size) {
        const std::size_t chunk = std::min<std::size_t>(size - got, 1u << 30);
        const int n = _read(descriptor_, data + got, static_cast<unsigned>(chunk));
        if (n < 0) return std::nullopt;
        if (n == 0) break;
        got += static_cast<std::size_t>(n);
    }
    return got;
}

void ReadOnlyFile::close() {
    if (descriptor_ >= 0) _close(descriptor_);
    descriptor_ = -1;
}

std::optional<std::uintmax_t> regularFileSize(const std::string& path, bool& missing) {
    struct _stat64 status {};
    const bool found = _wstat64(widen(path).c_str(), &status) == 0;
    missing = !found && (errno == ENOENT || errno == ENOTDIR);
    if (!found || (status.st_mode & _S_IFMT) != _S_IFREG) return std::nullopt;
    return static_cast<std::uintmax_t>(status.st_size);
}

int syncFile(std::FILE* file) {
    errno = 0;
    if (std::fflush(file) != 0) return errno == 0 ? EIO : errno;
    const HANDLE handle = reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(file)));
    if (handle == INVALID_HANDLE_VALUE || !FlushFileBuffers(handle)) return EIO;
    return 0;
}

void syncFolder(const std::string&) {}  // MOVEFILE_WRITE_THROUGH has made the move durable

std::error_code replaceFile(const std::string& from, const std::string& to) {
    const std::wstring source = widen(from);
    const std::wstring target = widen(to);
    DWORD error = 0;
    // A target that another program has open for a moment (a second writer's move, a virus
    // scanner) refuses to be replaced until it is closed: the move is tried again for a while.
    for (int attempt = 0; attempt < 100; ++attempt) {
        if (MoveFileExW(source.c_str(), target.c_str(),
                        MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH))
            return {};
        error = GetLastError();
        if (error != ERROR_ACCESS_DENIED && error != ERROR_SHARING_VIOLATION) break;
        if (GetFileAttributesW(target.c_str()) & FILE_ATTRIBUTE_DIRECTORY) break;
        Sleep(10);
    }
    return std::error_code(static_cast<int>(error), std::system_category());
}

std::FILE* openUnnamedFile(const std::string&, int& error) {
    error = 0;  // Windows has no files without a name
    return nullptr;
}

int nameUnnamedFile(std::FILE*, const std::string&) {
    return ENOSYS;
}

long currentProcess() {
    return static_cast<long>(GetCurrentProcessId());
}

bool processRuns(long process) {
    const HANDLE handle =
        OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, static_cast<DWORD>(process));
    if (!handle) return GetLastError() != ERROR_INVALID_PARAMETER;
    DWORD status = 0;
    const bool running = GetExitCodeProcess(handle, &status) && status == STILL_ACTIVE;
    CloseHandle(handle);
    return running;
}

long startCopyOfProcess(const std::function<int()>&) {
    return -1;
}

int waitForCopy(long) {
    return -1;
}

double cpuSeconds() {
    FILETIME created, exited, kernel, user;
    if (!GetProcessTimes(GetCurrentProcess(), &created, &exited, &kernel, &user)) return 0;
    const auto seconds = [](const FILETIME& t) {
        return ((static_cast<unsigned long long>(t.dwHighDateTime) << 32) | t.dwLowDateTime) / 1e7;
    };
    return seconds(kernel) + seconds(user);
}

long peakMegabytes() {
    PROCESS_MEMORY_COUNTERS counters{};
    if (!GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters)) return 0;
    return static_cast<long>(counters.PeakWorkingSetSize / (1024 * 1024));
}

// Large pages need a privilege users seldom hold: plain committed pages, zeroed by the system.
void* allocateLargeBlock(std::size_t size) {
    void* block = VirtualAlloc(nullptr, size, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE);
    if (!block) throw std::bad_alloc();
    return block;
}

void freeLargeBlock(void* block, std::size_t) noexcept {
    if (block) VirtualFree(block, 0, MEM_RELEASE);
}

}  // namespace rakeyard::sys
