#pragma once
#include <string>
#include <vector>

namespace rakeyard::test {

// One run of the rakeyard-cli binary: its exit status and what it wrote.
struct CliRun {
    int status = -1;
    std::string out;
    std::string err;
};

// Runs rakeyard-cli with the arguments, stdin empty, stdout and stderr captured.
CliRun runCli(const std::vector<std::string>& arguments);

// The lines of a text, without their line ends; no empty line for a final line end.
std::vector<std::string> linesOf(const std::string& text);

// Copies the bundled sample installation into folder/msts, so that a test may change it.
std::string copySamples(const std::string& folder);

}  // namespace rakeyard::test
