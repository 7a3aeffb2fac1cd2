#include "core/app/start_up.h"
#include "core/platform/text_utf.h"

namespace rakeyard {

CommandLine parseCommandLine(std::string_view commandLine) {
    CommandLine parsed;
    if (commandLine.empty()) return parsed;
    if (upperAscii(commandLine) == "/D") {
        parsed.debugMode = true;
        return parsed;
    }
    std::string path(commandLine);
    for (char& c : path) {
        if (c == '"') c = ' ';
    }
    parsed.consistToOpen = trimBlanks(path);
    return parsed;
}

}  // namespace rakeyard
