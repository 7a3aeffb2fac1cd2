#pragma once
#include <string>
#include <string_view>

namespace rakeyard {

// Why a name the program is about to write a file under would not stay a plain file name in its
// folder on Linux and on Windows; empty when the name is fine. Refused: an empty name, "." and
// "..", "/" and "\", control characters, the characters Windows forbids (< > : " | ? *, so a
// drive "C:" too), a trailing dot or blank, and the device names Windows reserves (CON, PRN, AUX,
// NUL, COM1-9, LPT1-9) in any case, with or without an extension. The name is UTF-8.
[[nodiscard]] std::string fileNameProblem(std::string_view name);

inline bool isValidFileName(std::string_view name) {
    return fileNameProblem(name).empty();
}

}  // namespace rakeyard
