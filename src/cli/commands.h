#pragma once
#include <string_view>

#include "cli/cli_context.h"

namespace rakeyard::cli {

// A command of rakeyard-cli: its words ("catalogue engines"), its usage and what it does.
// run gets the context (not yet started up) and the words behind the command's own.
struct Command {
    std::string_view words;
    std::string_view usage;
    std::string_view summary;
    int (*run)(CliContext& context, CommandArguments& arguments);
};

int runUnicodeCheck(CliContext& context, CommandArguments& arguments);
int runUnicodeConvert(CliContext& context, CommandArguments& arguments);
int runCatalogueEngines(CliContext& context, CommandArguments& arguments);
int runCatalogueWagons(CliContext& context, CommandArguments& arguments);
int runConsistShow(CliContext& context, CommandArguments& arguments);
int runConsistCopy(CliContext& context, CommandArguments& arguments);
int runConsistNew(CliContext& context, CommandArguments& arguments);
int runTestEngines(CliContext& context, CommandArguments& arguments);
int runTestWagons(CliContext& context, CommandArguments& arguments);
int runTestConsists(CliContext& context, CommandArguments& arguments);
int runRoutes(CliContext& context, CommandArguments& arguments);
int runActivities(CliContext& context, CommandArguments& arguments);
int runLooseTest(CliContext& context, CommandArguments& arguments);
int runAliasList(CliContext& context, CommandArguments& arguments);
int runAliasEngine(CliContext& context, CommandArguments& arguments);
int runAliasCabFolder(CliContext& context, CommandArguments& arguments);
int runAliasSoundFolder(CliContext& context, CommandArguments& arguments);
int runAliasRestore(CliContext& context, CommandArguments& arguments);

// Reports a usage error of a command and returns kExitUsage.
int usageError(CliContext& context, std::string_view text);

}  // namespace rakeyard::cli
