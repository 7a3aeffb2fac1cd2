#pragma once
// The calls that differ from one system to another, in one place: system_posix.cpp implements
// them on Linux, system_windows.cpp on Windows, and every other file of the program reaches the
// system through these or through the standard library. Strings and paths are UTF-8; "\" and
// "/" are both separators on Windows.
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace rakeyard::sys {

#ifdef _WIN32
inline constexpr bool kWindows = true;
#else
inline constexpr bool kWindows = false;
#endif
// What stands between the folders of a search path such as PATH.
inline constexpr char kSearchPathSeparator = kWindows ? ';' : ':';

// The console and the command line.

// True when the stream goes to a terminal (not a file or a pipe).
[[nodiscard]] bool isTerminal(std::FILE* stream);
// Makes stdout and stderr carry the program's UTF-8 bytes as they are. On Windows the console
// is told to show UTF-8 and the streams stop turning "\n" into CR LF; elsewhere nothing changes.
void prepareConsole();
// The program's arguments without its own name, in UTF-8. Windows hands argv over in the ANSI
// code page, so there they are read again from the wide command line.
[[nodiscard]] std::vector<std::string> commandLineArguments(int argc, char** argv);
// An environment variable's value; "" when it is unset.
[[nodiscard]] std::string environment(const char* name);
// Sets an environment variable of this process and of the programs it starts; an empty value
// removes it.
void setEnvironment(const char* name, const std::string& value);

// The program and the user.

// The full path of the running program; "" when it can't be known.
[[nodiscard]] std::string executablePath();
// The user's own data folder for Rakeyard: $XDG_DATA_HOME/rakeyard, else
// ~/.local/share/rakeyard; %APPDATA%\Rakeyard on Windows. "" when none can be named.
[[nodiscard]] std::string userDataFolder();
// The version GetVersionExA tells on Windows (platform 2 for the NT line); nullopt elsewhere
// and when the system would not tell.
struct WindowsVersion {
    unsigned long platformId = 0;
    unsigned long major = 0;
    unsigned long minor = 0;
};
[[nodiscard]] std::optional<WindowsVersion> windowsVersion();

// Other programs and the desktop.

// Starts a program with an argument list, never through a shell, and does not wait for it.
[[nodiscard]] bool startProgram(const std::string& program,
                                const std::vector<std::string>& arguments);
// Runs a program and waits for it: stdin empty, stdout and stderr into the files named. The exit
// status; -1 when it could not be started or did not end by itself.
[[nodiscard]] int runProgram(const std::string& program, const std::vector<std::string>& arguments,
                             const std::string& outPath, const std::string& errPath);
// A command line that Windows programs split back into exactly these words (the rules of
// CommandLineToArgvW and the C runtime): a word with a blank, a tab or a double quote, or an
// empty one, is quoted, with its backslashes doubled where a quote follows them.
[[nodiscard]] std::string windowsCommandLine(const std::vector<std::string>& words);
// Opens a web page or a local page in the user's browser.
void openUrl(std::string_view url);
// Moves a file or a whole folder to the user's trash (the Recycle Bin on Windows, the
// freedesktop.org trash elsewhere); false when that failed.
[[nodiscard]] bool moveToTrash(const std::string& path);

// Files.

// A UTF-8 path as std::filesystem takes it (a plain string would be read in the ANSI code page
// on Windows), and a std::filesystem path as UTF-8.
[[nodiscard]] std::filesystem::path fsPath(std::string_view path);
[[nodiscard]] std::string utf8Path(const std::filesystem::path& path);

// std::fopen of a UTF-8 path ("x" in the mode makes a new file alone, on every system); errno
// tells why when it returns null.
[[nodiscard]] std::FILE* openFile(const std::string& path, const char* mode);

// A file open for reading: one open, one look at its size and as few reads as the system
// allows, which is what the catalogue readers do thousands of times in a row. A pipe named as a
// file is opened without blocking and is no regular file, so nothing is read from it.
class ReadOnlyFile {
public:
    ReadOnlyFile() = default;
    ReadOnlyFile(const ReadOnlyFile&) = delete;
    ReadOnlyFile& operator=(const ReadOnlyFile&) = delete;
    ~ReadOnlyFile() { close(); }

    // False when the file can't be opened; missing() then tells whether it wasn't found.
    bool open(const std::string& path);
    bool missing() const;
    // The size of a regular file; nullopt for a folder or anything else.
    std::optional<std::uintmax_t> regularFileSize() const;
    // Reads up to size bytes, fewer only at the end of the file; nullopt on an error.
    std::optional<std::size_t> readInto(char* data, std::size_t size);
    void close();

private:
    int descriptor_ = -1;
    int error_ = 0;
};

// The size of a regular file at exactly path; nullopt for anything else. missing tells a path
// that was not found from other failures.
[[nodiscard]] std::optional<std::uintmax_t> regularFileSize(const std::string& path, bool& missing);
// Flushes a stream and the system's buffers of its file to the disk: 0, else an errno value.
[[nodiscard]] int syncFile(std::FILE* file);
// Makes a rename in folder durable where the system needs that done apart.
void syncFolder(const std::string& folder);
// Renames a file over another in one step, replacing it, and on Windows not before the move is
// on the disk.
[[nodiscard]] std::error_code replaceFile(const std::string& from, const std::string& to);
// A new file in folder without a name, open for writing, where the system has such files: a run
// killed meanwhile leaves nothing behind. Null with error 0 where it has none, so that a named
// file is made instead; null with error set on a failure.
[[nodiscard]] std::FILE* openUnnamedFile(const std::string& folder, int& error);
// Gives a file of openUnnamedFile the path given: 0, else an errno value (EEXIST when taken).
[[nodiscard]] int nameUnnamedFile(std::FILE* file, const std::string& path);

// Processes.

[[nodiscard]] long currentProcess();
// Whether a process of this number runs (one that can't be looked at counts as running).
[[nodiscard]] bool processRuns(long process);
// Runs work in a copy of this process (fork), its result the copy's exit status, and returns
// the copy's number without waiting; -1 where the system makes no copies (Windows).
[[nodiscard]] long startCopyOfProcess(const std::function<int()>& work);
// Waits for a copy made by startCopyOfProcess; its exit status, -1 when it did not end by itself.
[[nodiscard]] int waitForCopy(long process);
// The processor time this process has used, user and system, in seconds.
[[nodiscard]] double cpuSeconds();
// The most memory this process has held at once, in megabytes.
[[nodiscard]] long peakMegabytes();

// Zeroed memory for one large object, taken from the system in pieces as large as it offers
// (huge pages on Linux), so that its first writes take a few page faults rather than one every
// few kilobytes. Throws std::bad_alloc; freeLargeBlock gives it back with the same size.
[[nodiscard]] void* allocateLargeBlock(std::size_t size);
void freeLargeBlock(void* block, std::size_t size) noexcept;

}  // namespace rakeyard::sys
