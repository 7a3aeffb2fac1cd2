#include "cli/cli_runner.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <sstream>

#include "support/msts_tree.h"

namespace rakeyard::test {

CliRun runCli(const std::vector<std::string>& arguments) {
    TempFolder capture;
    const std::string outPath = capture / "out";
    const std::string errPath = capture / "err";
    std::vector<char*> argv{const_cast<char*>(RAKEYARD_CLI_PATH)};
    for (const std::string& argument : arguments)
        argv.push_back(const_cast<char*>(argument.c_str()));
    argv.push_back(nullptr);

    const pid_t child = fork();
    if (child == 0) {
        const int in = open("/dev/null", O_RDONLY);
        const int out = open(outPath.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
        const int err = open(errPath.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
        dup2(in, 0);
        dup2(out, 1);
        dup2(err, 2);
        execv(RAKEYARD_CLI_PATH, argv.data());
        _exit(127);
    }
    CliRun run;
    int status = 0;
    if (child > 0 && waitpid(child, &status, 0) == child && WIFEXITED(status))
        run.status = WEXITSTATUS(status);
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
