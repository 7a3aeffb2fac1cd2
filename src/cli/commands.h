#pragma once
#include <string_view>

#include "cli/cli_context.h"
#include "cli/cli_json.h"
#include "core/consist/consist_reader.h"

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
int runDeps(CliContext& context, CommandArguments& arguments);
int runLooseList(CliContext& context, CommandArguments& arguments);
int runLooseReplace(CliContext& context, CommandArguments& arguments);

// The route a ROUTE operand names: its display name as listed, or its folder in any case.
const RouteEntry* findRoute(const RouteTables& tables, const std::string& given);
int runAliasList(CliContext& context, CommandArguments& arguments);
int runAliasEngine(CliContext& context, CommandArguments& arguments);
int runAliasCabFolder(CliContext& context, CommandArguments& arguments);
int runAliasSoundFolder(CliContext& context, CommandArguments& arguments);
int runAliasRestore(CliContext& context, CommandArguments& arguments);

int runToolsMaxVelocity(CliContext& context, CommandArguments& arguments);

// Loads the consist an argument names (a path, or a name in the Consists folder) into the
// editor's state, the loader telling what went wrong. A missing file is Failed here: the
// command line does not offer to create one.
LoadOutcome loadNamedConsist(CliContext& context, const std::string& argument);

int runToolsRandom(CliContext& context, CommandArguments& arguments);
int runToolsBigOnes(CliContext& context, CommandArguments& arguments);
int runToolsStats(CliContext& context, CommandArguments& arguments);
int runUnitDescribe(CliContext& context, CommandArguments& arguments);
int runUnitConsists(CliContext& context, CommandArguments& arguments);
int runUnitEdit(CliContext& context, CommandArguments& arguments);

// The consist under edit as `consist show` prints it, and as its --json gives it.
void printConsist(const ConsistState& consist);
Json consistJson(const ConsistState& consist);
// Saves the consist under name, in the Consists folder; kExitFound when the save refused.
int saveAs(CliContext& context, const std::string& name);

// Reports a usage error of a command and returns kExitUsage.
int usageError(CliContext& context, std::string_view text);

}  // namespace rakeyard::cli
