#include "cli/cli_runner.h"

#include <filesystem>
#include <sstream>

#include "core/platform/system.h"
#include "support/msts_tree.h"

namespace rakeyard::test {

CliRun runCli(const std::vector<std::string>& arguments) {
    TempFolder capture;
    const std::string outPath = capture / "out";
    const std::string errPath = capture / "err";
    CliRun run;
    run.status = sys::runProgram(RAKEYARD_CLI_PATH, arguments, outPath, errPath);
    run.out = readWholeFile(outPath);
    run.err = readWholeFile(errPath);
    return run;
}

std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

std::string copySamples(const std::string& folder) {
    const std::filesystem::path target = std::filesystem::path(folder) / "msts";
    std::filesystem::copy(std::filesystem::path(RAKEYARD_SOURCE_DIR) / "samples" / "msts", target,
                          std::filesystem::copy_options::recursive);
    return target.string();
}

}  // namespace rakeyard::test
