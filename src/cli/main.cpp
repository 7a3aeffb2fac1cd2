// rakeyard-cli: the headless face of Rakeyard. Parses the command line, runs start-up's data
// steps and one command on the same core as the window program, prints, and exits 0 (done,
// nothing found), 1 (faults found, or refused) or 2 (bad usage, no usable MSTS folder).
#include <cstdio>
#include <exception>
#include <span>
#include <string>
#include <vector>

#include "cli/commands.h"
#include "core/platform/system.h"

namespace rakeyard::cli {
namespace {

// The commands built so far. A command that is not here is not available.
constexpr Command kCommands[] = {
    {"catalogue engines", "catalogue engines [--filter WORD] [--search TEXT] [--json]",
     "the engine list's lines under the filter (default: the stored one) and search", runCatalogueEngines},
    {"catalogue wagons", "catalogue wagons [--filter WORD] [--search TEXT] [--json]",
     "the wagon list's lines under the filter (default: the stored one) and search", runCatalogueWagons},
    {"consist show", "consist show FILE [--json]",
     "load a consist and show its header, totals and units", runConsistShow},
    {"consist copy", "consist copy FILE NAME", "load a consist and save it as NAME",
     runConsistCopy},
    {"consist new", "consist new NAME UNIT...",
     "build a consist of units (eng:/wag: may prefix one) and save it", runConsistNew},
    {"alias list", "alias list [--json]",
     "the aliasing lists: engines to alias, cab view and sound sources", runAliasList},
    {"alias engine", "alias engine TARGET CABSOURCE SOUNDSOURCE [--no-backup]",
     "give TARGET the cab view and sounds of the sources (- for none)", runAliasEngine},
    {"alias cab-folder", "alias cab-folder TARGET CVF [--no-backup]",
     "point TARGET's cab view at a .cvf under Trainset", runAliasCabFolder},
    {"alias sound-folder", "alias sound-folder TARGET ENGSMS CABSMS [--no-backup]",
     "point TARGET's sounds at two .sms under Trainset", runAliasSoundFolder},
    {"alias restore", "alias restore TARGET", "put an aliased engine's backup back",
     runAliasRestore},
    {"test engines", "test engines [--cab] [--sound] [--duplicates] [--filter WORD] [NAME...]",
     "test the engines named (all under the filter when none) for missing and faulty files",
     runTestEngines},
    {"test wagons", "test wagons [--sound] [--duplicates] [--filter WORD] [NAME...]",
     "test the wagons named (all under the filter when none) for missing and faulty files",
     runTestWagons},
    {"test consists", "test consists [NAME...]",
     "test the consists named (all when none) for faulty lines and missing units",
     runTestConsists},
    {"routes", "routes [--json]", "the routes of the MSTS folder, by their names", runRoutes},
    {"activities", "activities ROUTE [ACTIVITY] [--json]",
     "a route's activities, or an activity's consists, missing consists and loose count",
     runActivities},
    {"loose-test", "loose-test ROUTE (ACTIVITY...|--all) [--json]",
     "test the units of the activities' loose consists; faults go to the activity reports",
     runLooseTest},
    {"deps", "deps ROUTE [--json]",
     "a route's dependency tree: loose and service consists, their units, what is missing",
     runDeps},
    {"loose list", "loose list ROUTE [ACTIVITY] [--json]",
     "a route's activities with loose consists, or an activity's loose consists unit by unit",
     runLooseList},
    {"loose replace", "loose replace ROUTE ACTIVITY N K UNITFILE [--all] [--json]",
     "replace unit K of loose consist N in the .act (--all: every unit of that file)",
     runLooseReplace},
    {"tools maxvelocity",
     "tools maxvelocity --mph|--kmh MAX MIN [--efficiency N] [--apply CONSIST]",
     "the two numbers of MaxVelocity from a top and a low speed; --apply saves them in a consist",
     runToolsMaxVelocity},
    {"tools stats", "tools stats [--lists normal|spreadsheet|names] [--json]",
     "units, consists and the disk space they take; --lists writes the unit lists to Reports",
     runToolsStats},
    {"tools bigones", "tools bigones [--json]",
     "the most powerful, longest and heaviest engine and the longest and heaviest wagon",
     runToolsBigOnes},
    {"tools random",
     "tools random --coupler A|B|C --type Freight|Carriage --count N (--all|WAGON...) [--save NAME]",
     "a train mixed from the wagons named (or all of the coupler and type)", runToolsRandom},
    {"unit edit",
     "unit edit FILE [--name T] [--front A|B|C] [--rear A|B|C] [--power N] [--mass N]",
     "change the name, couplings and power or mass of a unit in its file", runUnitEdit},
    {"unit describe", "unit describe FILE [--json]",
     "the description window's text and picture of a unit", runUnitDescribe},
    {"unit consists", "unit consists FILE [--json]", "the consists that name a unit",
     runUnitConsists},
    {"unicode check", "unicode check", "list the unit files that are not in Unicode",
     runUnicodeCheck},
    {"unicode convert", "unicode convert", "convert the files that unicode check lists",
     runUnicodeConvert},
};

constexpr std::string_view kGlobalOptions =
    "Options, before or after the command's words:\n"
    "  --home DIR       the program's folder (settings.bin, Reports)\n"
    "  --msts DIR       set the MSTS folder, as the MSTS path window's OK does\n"
    "  --editor PATH    set the text editor, as the editor path window's OK does\n"
    "  --viewer PATH|NO set the 3D viewer, or NO for none\n"
    "  --yes, --no      answer every question Yes/OK or No/Cancel (default: the answer\n"
    "                   that changes and deletes nothing)\n"
    "  --json           machine-readable output on stdout\n"
    "  --help, --version\n"
    "Exit status: 0 done, 1 faults found or refused, 2 bad usage or no usable MSTS folder.\n";

void printHelp(std::FILE* out) {
    std::string help = "Usage: rakeyard-cli [OPTIONS] COMMAND [ARGS]\n\nCommands:\n";
    for (const Command& command : kCommands) {
        std::string usage(command.usage);
        usage.resize(std::max<std::size_t>(usage.size() + 2, 44), ' ');
        help += "  " + usage + std::string(command.summary) + "\n";
    }
    help += "\n" + std::string(kGlobalOptions);
    std::fputs(help.c_str(), out);
}

// The command whose words begin the given words; the number of words it took goes to taken.
const Command* findCommand(const std::vector<std::string>& words, std::size_t& taken) {
    for (const Command& command : kCommands) {
        std::size_t count = 0;
        std::string joined;
        for (const std::string& word : words) {
            joined += (count++ ? " " : "") + word;
            if (joined == command.words) {
                taken = count;
                return &command;
            }
            if (joined.size() >= command.words.size()) break;
        }
    }
    return nullptr;
}

int run(const std::vector<std::string>& arguments) {
    ParsedCommandLine parsed = parseCommandLine(arguments);
    if (!parsed.error.empty()) {
        std::fprintf(stderr, "error: %s\n", parsed.error.c_str());
        return kExitUsage;
    }
    if (parsed.options.version) {
        std::puts("rakeyard-cli " RAKEYARD_VERSION);
        return kExitDone;
    }
    if (parsed.options.help) {
        printHelp(stdout);
        return kExitDone;
    }
    if (parsed.words.empty()) {
        std::fputs("error: no command given\n", stderr);
        printHelp(stderr);
        return kExitUsage;
    }
    std::size_t taken = 0;
    const Command* command = findCommand(parsed.words, taken);
    if (!command) {
        std::string asked;
        for (std::size_t i = 0; i < parsed.words.size() && i < 2; ++i)
            asked += (i ? " " : "") + parsed.words[i];
        std::fprintf(stderr, "error: %s: not available\n", asked.c_str());
        return kExitUsage;
    }
    CliContext context(std::move(parsed.options));
    CommandArguments commandArguments(
        std::vector<std::string>(parsed.words.begin() + taken, parsed.words.end()));
    const int status = command->run(context, commandArguments);
    // Whatever a command returns, a run that told an error does not end as done.
    return status == kExitDone && context.dialogs.errorsReported() > 0 ? kExitFound : status;
}

}  // namespace

int usageError(CliContext& context, std::string_view text) {
    context.dialogs.report(text, Icon::Stop);
    return kExitUsage;
}

}  // namespace rakeyard::cli

int main(int argc, char** argv) {
    rakeyard::sys::prepareConsole();
    try {
        return rakeyard::cli::run(rakeyard::sys::commandLineArguments(argc, argv));
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "error: %s\n", failure.what());
        return rakeyard::cli::kExitUsage;
    }
}
