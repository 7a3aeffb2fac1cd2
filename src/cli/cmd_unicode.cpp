// unicode check | convert: the non-Unicode files window without its window.
#include <cstdio>
#include <string>
#include <vector>

#include "cli/cli_json.h"
#include "cli/commands.h"
#include "core/msts/unicode_check.h"

namespace rakeyard::cli {
namespace {

// One full path a line, or with --json one array of them.
void printPaths(CliContext& context, const std::vector<std::string>& paths) {
    context.endProgress();
    if (context.options.json) return printJson(Json(paths));
    for (const std::string& path : paths)
        std::printf("%s\n", path.c_str());
}

// Starts up for a command that takes no operands; kExitDone when the command may go on.
int startUpWithoutOperands(CliContext& context, CommandArguments& arguments) {
    const std::vector<std::string> operands = arguments.operands();
    if (!arguments.error().empty()) return usageError(context, arguments.error());
    if (!operands.empty()) return usageError(context, "unexpected " + operands.front());
    return context.startUp();
}

}  // namespace

// Lists the files that are not in Unicode, one full path a line: status 1 when there are any.
int runUnicodeCheck(CliContext& context, CommandArguments& arguments) {
    if (int status = startUpWithoutOperands(context, arguments); status != kExitDone) return status;
    const std::vector<std::string> failing = checkUnicode(context.state->paths, context.services);
    printPaths(context, failing);
    return failing.empty() ? kExitDone : kExitFound;
}

// Checks, as the window does when it opens, then converts what the check listed and prints the
// files converted. Status 1 when a file could not be converted.
int runUnicodeConvert(CliContext& context, CommandArguments& arguments) {
    if (int status = startUpWithoutOperands(context, arguments); status != kExitDone) return status;
    const std::vector<std::string> failing = checkUnicode(context.state->paths, context.services);
    if (failing.empty()) {
        printPaths(context, failing);
        return kExitDone;
    }
    const std::vector<std::string> converted = convertToUnicode(failing, context.services);
    printPaths(context, converted);
    return converted.size() == failing.size() ? kExitDone : kExitFound;
}

}  // namespace rakeyard::cli
