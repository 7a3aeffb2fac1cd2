#pragma once
#include <optional>
#include <string>
#include <vector>

namespace rakeyard::cli {

// Exit statuses of every command.
inline constexpr int kExitDone = 0;   // done, nothing found
inline constexpr int kExitFound = 1;  // done and faults found, or the operation was refused
inline constexpr int kExitUsage = 2;  // bad usage, a command not available, no usable MSTS folder

enum class DefaultAnswer { Safe, Yes, No };

// The options every command takes, wherever they stand on the command line.
struct GlobalOptions {
    std::optional<std::string> home;             // --home DIR
    std::optional<std::string> msts;             // --msts DIR
    std::optional<std::string> editor;           // --editor PATH
    std::optional<std::string> viewer;           // --viewer PATH|NO
    DefaultAnswer answer = DefaultAnswer::Safe;  // --yes / --no
    bool json = false;                           // --json
    bool help = false;                           // --help / -h
    bool version = false;                        // --version
};

struct ParsedCommandLine {
    GlobalOptions options;
    std::vector<std::string> words;  // the command's words and its own options, in order
    std::string error;               // "" when the global options were understood
};

// Takes the global options out of the arguments (argv without the program's name). "--opt
// VALUE" and "--opt=VALUE" are both understood. "--" and everything after it are kept as words.
ParsedCommandLine parseCommandLine(const std::vector<std::string>& arguments);

// The rest of a command's words, read by the command: its own options and its operands.
class CommandArguments {
public:
    // Words after "--" are operands whatever they look like.
    explicit CommandArguments(std::vector<std::string> words);
    // Removes "--name VALUE" or "--name=VALUE" and returns the value. A missing value is an
    // error kept for error().
    std::optional<std::string> takeValue(const std::string& name);
    // Removes every "--name"; true when there was one.
    bool takeFlag(const std::string& name);
    // What is left once the command took its options. An option it did not take is an error.
    std::vector<std::string> operands();
    const std::string& error() const { return error_; }

private:
    std::vector<std::string> words_;
    std::vector<std::string> verbatim_;  // the words after "--"
    std::string error_;
};

}  // namespace rakeyard::cli
