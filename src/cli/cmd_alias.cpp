// alias list | engine | cab-folder | sound-folder | restore: the aliasing window without its
// window. Targets and sources are the lines its lists show; "-" stands for "-- NO ALIAS --".
#include <cstdio>
#include <string>
#include <vector>

#include "cli/cli_json.h"
#include "cli/commands.h"
#include "core/alias/alias_engine.h"
#include "core/alias/alias_folder.h"
#include "core/alias/alias_restore.h"
#include "core/msts/trainset_files.h"
#include "core/platform/paths.h"
#include "core/platform/text_utf.h"

namespace rakeyard::cli {
namespace {

// The operands after the command's own options, exactly `count` of them; kExitDone when the
// command may go on (started up), else the status to end with.
int startUpWith(CliContext& context, CommandArguments& arguments, std::size_t count,
                std::vector<std::string>& operands) {
    operands = arguments.operands();
    if (!arguments.error().empty()) return usageError(context, arguments.error());
    if (operands.size() < count) return usageError(context, "missing operands");
    if (operands.size() > count) return usageError(context, "unexpected " + operands[count]);
    return context.startUp();
}

// The list's line that a name on the command line means: the file name with or without
// ".eng", any letter case, or "-" for the first line of the source lists. "" when the list does
// not show it, which is told.
std::string lineOf(CliContext& context, const std::vector<std::string>& list,
                   const std::string& name, std::string_view caption) {
    if (name == "-" && !list.empty() && list.front() == kNoAlias) return list.front();
    const std::string file = hasExtension(name, ".ENG") ? name : name + ".eng";
    for (const std::string& line : list)
        if (upperAscii(line) == upperAscii(file)) return line;
    context.dialogs.report("\"" + name + "\" is not in the list \"" + std::string(caption) + "\".",
                           Icon::Stop);
    return {};
}

// A ".cvf" or ".sms" named on the command line: a path, absolute or relative to Trainset.
std::string chosenFile(const PathGlobals& paths, const std::string& argument) {
    const bool absolute =
        isPathSeparator(argument.front()) || (argument.size() > 1 && argument[1] == ':');
    return absolute ? argument : joinPath(paths.trainsetPath, argument);
}

int statusOf(AliasOutcome outcome) {
    return outcome == AliasOutcome::Done ? kExitDone : kExitFound;
}

void printList(std::string_view caption, const std::vector<std::string>& lines) {
    std::printf("%.*s:\n", static_cast<int>(caption.size()), caption.data());
    for (const std::string& line : lines)
        std::printf("  %s\n", line.c_str());
}

}  // namespace

// The three lists, each under its caption, or with --json as one object.
int runAliasList(CliContext& context, CommandArguments& arguments) {
    std::vector<std::string> operands;
    if (int status = startUpWith(context, arguments, 0, operands); status != kExitDone)
        return status;
    const AliasLists lists = buildAliasLists(context.state->catalogue, context.services);
    context.endProgress();
    if (context.options.json) {
        printJson(Json{{"notAliased", lists.notAliased},
                       {"cabSources", lists.cabSources},
                       {"soundSources", lists.soundSources}});
    } else {
        printList("Engine to alias", lists.notAliased);
        printList("Sources for cabviews", lists.cabSources);
        printList("Sources for sounds", lists.soundSources);
    }
    return lists.complete ? kExitDone : kExitFound;
}

int runAliasEngine(CliContext& context, CommandArguments& arguments) {
    const bool noBackup = arguments.takeFlag("--no-backup");
    std::vector<std::string> operands;
    if (int status = startUpWith(context, arguments, 3, operands); status != kExitDone)
        return status;
    const AliasLists lists = buildAliasLists(context.state->catalogue, context.services);
    EngineAliasChoice choice;
    choice.target = lineOf(context, lists.notAliased, operands[0], "Engine to alias");
    choice.cabSource = lineOf(context, lists.cabSources, operands[1], "Sources for cabviews");
    choice.soundSource = lineOf(context, lists.soundSources, operands[2], "Sources for sounds");
    choice.backup = !noBackup;
    if (choice.target.empty() || choice.cabSource.empty() || choice.soundSource.empty())
        return kExitFound;
    return statusOf(aliasFromEngine(lists, choice, context.state->catalogue, context.state->paths,
                                    context.services));
}

int runAliasCabFolder(CliContext& context, CommandArguments& arguments) {
    const bool noBackup = arguments.takeFlag("--no-backup");
    std::vector<std::string> operands;
    if (int status = startUpWith(context, arguments, 2, operands); status != kExitDone)
        return status;
    const AliasLists lists = buildAliasLists(context.state->catalogue, context.services);
    const std::string target = lineOf(context, lists.notAliased, operands[0], "Engine to alias");
    if (target.empty()) return kExitFound;
    const PathGlobals& paths = context.state->paths;
    return statusOf(aliasCabsFromFolder(target, chosenFile(paths, operands[1]), !noBackup,
                                        context.state->catalogue, paths, context.services));
}

int runAliasSoundFolder(CliContext& context, CommandArguments& arguments) {
    const bool noBackup = arguments.takeFlag("--no-backup");
    std::vector<std::string> operands;
    if (int status = startUpWith(context, arguments, 3, operands); status != kExitDone)
        return status;
    const AliasLists lists = buildAliasLists(context.state->catalogue, context.services);
    const std::string target = lineOf(context, lists.notAliased, operands[0], "Engine to alias");
    if (target.empty()) return kExitFound;
    const PathGlobals& paths = context.state->paths;
    return statusOf(aliasSoundsFromFolder(target, chosenFile(paths, operands[1]),
                                          chosenFile(paths, operands[2]), !noBackup,
                                          context.state->catalogue, paths, context.services));
}

// Any catalogued engine may be restored, aliased by this program or not.
int runAliasRestore(CliContext& context, CommandArguments& arguments) {
    std::vector<std::string> operands;
    if (int status = startUpWith(context, arguments, 1, operands); status != kExitDone)
        return status;
    const std::string& name = operands[0];
    const std::string line = hasExtension(name, ".ENG") ? name : name + ".eng";
    return statusOf(restoreEngine(line, context.state->catalogue, context.services));
}

}  // namespace rakeyard::cli
