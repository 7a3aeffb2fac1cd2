// routes, activities, loose-test: the route and activity scan of the window "Consists from
// activities"; deps: the dependency tree of the window "Dependencies".
#include <cstdio>
#include <string>
#include <vector>

#include "cli/cli_json.h"
#include "cli/commands.h"
#include "core/msts/route_deps.h"
#include "core/msts/route_scan.h"
#include "core/platform/paths.h"
#include "core/platform/text_utf.h"
#include "core/tester/loose_test.h"
#include "core/tester/reports.h"

namespace rakeyard::cli {
namespace {

// The activity an ACTIVITY operand names: its name as listed, or its file with or without
// ".act", in any case.
const ActivityEntry* findActivity(const RouteTables& tables, const ActivityScan& scan,
                                  const std::string& given) {
    for (const std::string& name : scan.activityNames)
        if (name == given)
            for (const ActivityEntry& entry : tables.activities)
                if (entry.activityName == name) return &entry;
    const std::string file = upperAscii(given);
    for (std::size_t i = 0; i < scan.activityNames.size() + 1 && i < RouteTables::kActivities;
         ++i) {
        const ActivityEntry& entry = tables.activities[i];
        const std::string upper = upperAscii(entry.fileName);
        if (!entry.activityName.empty() && (upper == file || upper == file + ".ACT")) return &entry;
    }
    return nullptr;
}

// Opens the scan and selects the route a ROUTE operand names. kExitDone, or the status to end
// with: bad usage for an unknown route, found when a failure ended the route's pass.
int openRoute(CliContext& context, const std::string& given, ActivityScan& scan) {
    const PathGlobals& paths = context.state->paths;
    RouteTables& tables = context.state->routes;
    openActivityScan(paths, tables, scan, context.services);
    const RouteEntry* route = findRoute(tables, given);
    if (!route) return usageError(context, "no route " + given);
    if (!selectRoute(paths, tables, scan, context.services, route->routeName)) return kExitFound;
    return kExitDone;
}

void printLines(const std::vector<std::string>& lines) {
    for (const std::string& line : lines)
        std::printf("%s\n", line.c_str());
}

Json nodeJson(const DependencyTree& tree, std::size_t index) {
    const DependencyNode& node = tree[index];
    Json children = Json::array();
    for (std::size_t child : node.children)
        children.push_back(nodeJson(tree, child));
    return Json{{"kind", kindName(node.kind)}, {"text", node.text}, {"children", children}};
}

}  // namespace

const RouteEntry* findRoute(const RouteTables& tables, const std::string& given) {
    for (const RouteEntry& route : tables.routes)
        if (!route.routeName.empty() && route.routeName == given) return &route;
    const std::string folder = upperAscii(given);
    for (const RouteEntry& route : tables.routes) {
        if (route.routeName.empty()) continue;
        const std::size_t cut = route.folder.find_last_of("/\\");
        if (upperAscii(route.folder.substr(cut + 1)) == folder ||
            upperAscii(route.folder) == folder)
            return &route;
    }
    return nullptr;
}

// The routes listed, as the window lists them.
int runRoutes(CliContext& context, CommandArguments& arguments) {
    const std::vector<std::string> operands = arguments.operands();
    if (!arguments.error().empty()) return usageError(context, arguments.error());
    if (!operands.empty()) return usageError(context, "unexpected " + operands.front());
    if (int status = context.startUp(); status != kExitDone) return status;
    ActivityScan scan;
    RouteTables& tables = context.state->routes;
    openActivityScan(context.state->paths, tables, scan, context.services);
    context.endProgress();
    if (!context.options.json) {
        printLines(scan.routeNames);
        return kExitDone;
    }
    Json list = Json::array();
    for (const RouteEntry& route : tables.routes)
        if (!route.routeName.empty())
            list.push_back(Json{{"name", route.routeName},
                                {"folder", context.fs.resolve(route.folder)},
                                {"trackFile", route.trackFile}});
    printJson(list);
    return kExitDone;
}

// The activities of a route, or for one activity its consists, the missing ones and the count
// of its loose consists.
int runActivities(CliContext& context, CommandArguments& arguments) {
    const std::vector<std::string> operands = arguments.operands();
    if (!arguments.error().empty()) return usageError(context, arguments.error());
    if (operands.empty() || operands.size() > 2)
        return usageError(context, "activities takes ROUTE [ACTIVITY]");
    if (int status = context.startUp(); status != kExitDone) return status;
    const PathGlobals& paths = context.state->paths;
    RouteTables& tables = context.state->routes;
    ActivityScan scan;
    if (int status = openRoute(context, operands[0], scan); status != kExitDone) return status;
    context.endProgress();
    if (operands.size() == 1) {
        if (!context.options.json) {
            printLines(scan.activityNames);
            return kExitDone;
        }
        Json list = Json::array();
        for (std::size_t i = 0; i < scan.activityNames.size() && i < RouteTables::kActivities; ++i)
            if (!tables.activities[i].activityName.empty())
                list.push_back(Json{{"name", tables.activities[i].activityName},
                                    {"file", tables.activities[i].fileName}});
        printJson(list);
        return kExitDone;
    }
    const ActivityEntry* activity = findActivity(tables, scan, operands[1]);
    if (!activity) return usageError(context, "no activity " + operands[1] + " in " + operands[0]);
    selectActivity(paths, tables, scan, context.services, activity->activityName);
    context.endProgress();
    if (context.options.json) {
        printJson(Json{{"consists", scan.consistLines},
                       {"missing", scan.missing},
                       {"loose", scan.looseCount}});
        return kExitDone;
    }
    printLines(scan.consistLines);
    for (const std::string& missing : scan.missing)
        std::printf("Missing: %s\n", missing.c_str());
    std::printf("Loose: %d\n", scan.looseCount);
    return kExitDone;
}

// The loose consist test of the activities named, or of all with --all, in one set of reports.
int runLooseTest(CliContext& context, CommandArguments& arguments) {
    const bool all = arguments.takeFlag("--all");
    const std::vector<std::string> operands = arguments.operands();
    if (!arguments.error().empty()) return usageError(context, arguments.error());
    if (operands.empty() || (all == (operands.size() > 1)))
        return usageError(context, "loose-test takes ROUTE and ACTIVITY... or --all");
    if (int status = context.startUp(); status != kExitDone) return status;
    const PathGlobals& paths = context.state->paths;
    RouteTables& tables = context.state->routes;
    ActivityScan scan;
    if (int status = openRoute(context, operands[0], scan); status != kExitDone) return status;
    std::vector<std::string> names = scan.activityNames;
    if (!all) {
        names.clear();
        for (std::size_t i = 1; i < operands.size(); ++i) {
            const ActivityEntry* activity = findActivity(tables, scan, operands[i]);
            if (!activity)
                return usageError(context, "no activity " + operands[i] + " in " + operands[0]);
            names.push_back(activity->activityName);
        }
    }
    const bool found = testLooseConsists(paths, tables, scan, context.services, names);
    context.endProgress();
    const std::string folder = context.fs.resolve(reportsFolder(paths));
    const std::vector<std::string> reports = existingReports(paths, context.fs, "act");
    if (context.options.json) {
        Json written = Json::array();
        for (const std::string& report : reports)
            written.push_back(joinPath(folder, report));
        printJson(Json{{"activities", names.size()}, {"faults", found}, {"reports", written}});
    } else {
        std::printf("Activities tested: %zu\n%s\n", names.size(),
                    found ? "Faults found" : "No errors found.");
        for (const std::string& report : reports)
            std::printf("Report: %s\n", joinPath(folder, report).c_str());
    }
    return found ? kExitFound : kExitDone;
}

// The dependency tree of a route, as the window "Dependencies" shows it.
int runDeps(CliContext& context, CommandArguments& arguments) {
    const std::vector<std::string> operands = arguments.operands();
    if (!arguments.error().empty()) return usageError(context, arguments.error());
    if (operands.size() != 1) return usageError(context, "deps takes ROUTE");
    if (int status = context.startUp(); status != kExitDone) return status;
    const PathGlobals& paths = context.state->paths;
    RouteTables& tables = context.state->routes;
    DependencyScan scan;
    (void)getRoutes(paths, tables, context.services, scan.stopFlag);
    const RouteEntry* route = findRoute(tables, operands[0]);
    if (!route) return usageError(context, "no route " + operands[0]);
    scanOne(paths, tables, route->routeName, scan, context.services);
    context.endProgress();
    if (context.options.json) {
        printJson(nodeJson(scan.tree, 0));
    } else {
        printLines(indentedLines(scan.tree));
    }
    return kExitDone;
}

}  // namespace rakeyard::cli
