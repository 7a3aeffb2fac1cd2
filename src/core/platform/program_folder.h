#pragma once
#include <optional>
#include <string>

namespace rakeyard {

// Where a program folder may come from, in the order they are tried.
struct ProgramFolderSources {
    std::optional<std::string> option;  // --home DIR
    std::string environment;            // RAKEYARD_HOME, "" when unset
    std::string executableFolder;       // the folder of the running program, "" if unknown
    std::string userData;               // the user's own data folder for Rakeyard
};

// The program's folder, where settings.bin and Reports/ live, the same for the window program
// and rakeyard-cli: the folder --home names; else the one RAKEYARD_HOME names; else the folder
// of the program itself when it can be written to (a copy unpacked anywhere); else the user's
// data folder (an installed copy): $XDG_DATA_HOME/rakeyard, ~/.local/share/rakeyard, or
// %APPDATA%\Rakeyard on Windows. The folder is made when missing; the path is returned whole,
// without a trailing separator.
[[nodiscard]] std::string programFolder(const std::optional<std::string>& option);

// The choice programFolder makes, from sources given (for tests).
[[nodiscard]] std::string chooseProgramFolder(const ProgramFolderSources& sources);

}  // namespace rakeyard
