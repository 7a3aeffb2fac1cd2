// loose list, loose replace: the loose consist editor's activities, units and replaces.
#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

#include "cli/cli_json.h"
#include "cli/commands.h"
#include "cli/unit_names.h"
#include "core/msts/loose_replace.h"
#include "core/platform/paths.h"
#include "core/platform/text_utf.h"

namespace rakeyard::cli {
namespace {

// The editor of one command, its route chosen.
struct LooseRun {
    explicit LooseRun(CliContext& context)
        : context{context.state->paths, context.state->routes, context.state->catalogue,
                  context.state->looseUnits, context.services} {}
    LooseContext context;
    LooseEditor editor;
};

int chooseRoute(CliContext& cli, LooseRun& run, const std::string& given) {
    readRoutes(run.context, run.editor);
    const RouteEntry* route = findRoute(cli.state->routes, given);
    if (!route) return usageError(cli, "no route " + given);
    SearchActsForLoose(run.context, run.editor, route->routeName);
    return kExitDone;
}

// Opens the activity an ACTIVITY operand names: a listed .act of the route, by its file name
// with or without ".act", in any letter case.
int openActivity(CliContext& cli, LooseRun& run, const std::string& route,
                 const std::string& given) {
    if (given.find_first_of("/\\") != std::string::npos)
        return usageError(cli, "ACTIVITY is a file of the route's ACTIVITIES folder: " + given);
    const std::string wanted = upperAscii(given);
    for (const std::string& line : run.editor.activityLines) {
        const std::string file = upperAscii(line.substr(0, line.find(" --> ")));
        if (file != wanted && file != wanted + ".ACT") continue;
        if (!openLooseActivity(run.context, run.editor, line)) {
            removeLooseWorkFiles(run.context);
            cli.dialogs.report("The activity " + given + " could not be opened.", Icon::Stop);
            return kExitFound;
        }
        return kExitDone;
    }
    return usageError(cli, "no activity " + given + " with loose consists in " + route);
}

std::string kindOf(const LooseNode& node) {
    return node.key.front() == 'E' ? "engine" : "wagon";
}

void printConsists(CliContext& cli, LooseRun& run) {
    const LooseUnitTable& table = cli.state->looseUnits;
    Json consists = Json::array();
    std::size_t row = 0;
    for (std::size_t i = 1; i < run.editor.nodes.size(); ++i) {
        const LooseNode& node = run.editor.nodes[i];
        if (node.parent == 0) {
            showLooseConsist(run.context, run.editor, node.text);
            if (cli.options.json) {
                consists.push_back(Json{{"name", node.text},
                                        {"length", run.editor.lengthText},
                                        {"feet", run.editor.feetText},
                                        {"units", Json::array()}});
            } else {
                std::printf("%s  %s m  %s ft\n", node.text.c_str(), run.editor.lengthText.c_str(),
                            run.editor.feetText.c_str());
            }
            continue;
        }
        const LooseUnitEntry* entry = row < table.count ? &table.rows[row] : nullptr;
        ++row;
        const bool installed = node.image == LooseImage::Engine || node.image == LooseImage::Wagon;
        const std::string folder = installed && entry ? cli.fs.resolve(entry->folderPath) : "";
        const std::string name = entry ? entry->displayName : "";
        const std::size_t k = i - node.parent;
        if (cli.options.json) {
            consists.back()["units"].push_back(
                Json{{"k", k},
                     {"kind", kindOf(node)},
                     {"file", node.text},
                     {"folder", installed ? Json(folder) : Json(nullptr)},
                     {"installed", installed},
                     {"displayName", name}});
        } else {
            std::printf("  %zu  %s  %s  %s%s\n", k, kindOf(node).c_str(), node.text.c_str(),
                        installed ? folder.c_str() : "not installed",
                        name.empty() ? "" : ("  " + name).c_str());
        }
    }
    if (cli.options.json)
        printJson(Json{{"activity", run.editor.activityFile},
                       {"line", run.editor.activityLine},
                       {"consists", consists}});
}

}  // namespace

int runLooseList(CliContext& context, CommandArguments& arguments) {
    const std::vector<std::string> operands = arguments.operands();
    if (!arguments.error().empty()) return usageError(context, arguments.error());
    if (operands.empty() || operands.size() > 2)
        return usageError(context, "loose list takes ROUTE [ACTIVITY]");
    if (int status = context.startUp(); status != kExitDone) return status;
    LooseRun run(context);
    if (int status = chooseRoute(context, run, operands[0]); status != kExitDone) return status;
    if (operands.size() == 1) {
        context.endProgress();
        if (!context.options.json) {
            for (const std::string& line : run.editor.activityLines)
                std::printf("%s\n", line.c_str());
            return kExitDone;
        }
        Json list = Json::array();
        for (const std::string& line : run.editor.activityLines) {
            const std::size_t arrow = line.find(" --> ");
            list.push_back(Json{{"file", line.substr(0, arrow)}, {"name", line.substr(arrow + 5)}});
        }
        printJson(list);
        return kExitDone;
    }
    if (int status = openActivity(context, run, operands[0], operands[1]); status != kExitDone)
        return status;
    context.endProgress();
    printConsists(context, run);
    removeLooseWorkFiles(run.context);
    return kExitDone;
}

int runLooseReplace(CliContext& context, CommandArguments& arguments) {
    const bool all = arguments.takeFlag("--all");
    const std::vector<std::string> operands = arguments.operands();
    if (!arguments.error().empty()) return usageError(context, arguments.error());
    if (operands.size() != 5)
        return usageError(context, "loose replace takes ROUTE ACTIVITY N K UNITFILE");
    const std::string& n = operands[2];
    const std::string& k = operands[3];
    std::size_t consist = 0, unit = 0;
    if (!looseKeyNumbers("C" + n + "_" + k, consist, unit))
        return usageError(context, "N and K are numbers from 1");
    if (int status = context.startUp(); status != kExitDone) return status;
    const NamedUnitResult named = findNamedUnit(context.state->catalogue, operands[4]);
    if (!named.ambiguity.empty()) return usageError(context, named.ambiguity);
    if (!named.unit) {
        context.dialogs.report("Unknown unit: " + operands[4], Icon::Stop);
        return kExitFound;
    }
    const UnitClass kind = named.unit->isEngine ? UnitClass::Engine : UnitClass::Wagon;
    const std::string newFile =
        usedRecords(context.state->catalogue, kind)[static_cast<std::size_t>(named.unit->index)]
            .fileName;

    LooseRun run(context);
    if (int status = chooseRoute(context, run, operands[0]); status != kExitDone) return status;
    if (int status = openActivity(context, run, operands[0], operands[1]); status != kExitDone)
        return status;
    std::size_t node = 0;
    for (std::size_t i = 0; i < run.editor.nodes.size() && !node; ++i) {
        const std::string& key = run.editor.nodes[i].key;
        if (key == "E" + std::to_string(consist) + "_" + std::to_string(unit) ||
            key == "C" + std::to_string(consist) + "_" + std::to_string(unit))
            node = i;
    }
    if (!node) {
        removeLooseWorkFiles(run.context);
        return usageError(context, "loose consist " + n + " has no unit " + k);
    }
    selectLooseNode(run.context, run.editor, node);
    const std::string oldFile = run.editor.unitToReplace;
    const auto unitsNamed = [&](const std::string& file) {
        std::size_t count = 0;
        for (const LooseNode& other : run.editor.nodes)
            count += other.parent != 0 && other.text == file;
        return count;
    };
    const std::size_t before = unitsNamed(newFile);
    const bool written = all ? replaceAllOccurrences(run.context, run.editor, newFile, kind)
                             : replaceLooseUnit(run.context, run.editor, newFile, kind);
    removeLooseWorkFiles(run.context);
    context.endProgress();
    if (!written) return kExitFound;
    // A unit replaced by one of its own name counts once.
    const std::size_t replaced = std::max<std::size_t>(unitsNamed(newFile) - before, 1);
    if (context.options.json) {
        printJson(Json{{"oldUnit", oldFile},
                       {"newUnit", newFile},
                       {"replaced", replaced},
                       {"length", run.editor.lengthText},
                       {"feet", run.editor.feetText},
                       {"lengthExceeded", run.editor.lengthExceeded},
                       {"backup", context.fs.resolve(run.editor.activityPath + ".bak")}});
    } else {
        std::printf("Old unit: %s\nNew unit: %s\n", oldFile.c_str(), newFile.c_str());
        if (all) std::printf("Units replaced: %zu\n", replaced);
        std::printf("Length: %s m  %s ft\n", run.editor.lengthText.c_str(),
                    run.editor.feetText.c_str());
        if (run.editor.lengthExceeded) std::printf("Length exceeded\n");
        std::printf("Backup: %s\n", context.fs.resolve(run.editor.activityPath + ".bak").c_str());
    }
    return kExitDone;
}

}  // namespace rakeyard::cli
