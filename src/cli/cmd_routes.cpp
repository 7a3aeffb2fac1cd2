// routes, activities: the route and activity scan of the window "Consists from activities".
#include <cstdio>
#include <string>
#include <vector>

#include "cli/cli_json.h"
#include "cli/commands.h"
#include "core/msts/route_scan.h"
#include "core/platform/text_utf.h"

namespace rakeyard::cli {
namespace {

// The route a ROUTE operand names: its display name as listed, or its folder in any case.
const RouteEntry* findRoute(const RouteTables& tables, const std::string& given) {
    for (const RouteEntry& route : tables.routes)
        if (!route.routeName.empty() && route.routeName == given) return &route;
    const std::string folder = upperAscii(given);
    for (const RouteEntry& route : tables.routes) {
        if (route.routeName.empty()) continue;
        const std::size_t cut = route.folder.find_last_of("/\\");
        if (route.folder.substr(cut + 1) == folder || upperAscii(route.folder) == folder)
            return &route;
    }
    return nullptr;
}

// The activity an ACTIVITY operand names: its name as listed, or its file with or without
// ".act", in any case.
const ActivityEntry* findActivity(const RouteTables& tables, const ActivityScan& scan,
                                  const std::string& given) {
    for (const std::string& name : scan.activityNames)
        if (name == given)
            for (const ActivityEntry& entry : tables.activities)
                if (entry.activityName == name) return &entry;
    const std::string file = upperAscii(given);
    for (std::size_t i = 0; i < scan.activityNames.size() + 1 && i < RouteTables::kActivities; ++i) {
        const ActivityEntry& entry = tables.activities[i];
        const std::string upper = upperAscii(entry.fileName);
        if (!entry.activityName.empty() && (upper == file || upper == file + ".ACT"))
            return &entry;
    }
    return nullptr;
}

void printLines(const std::vector<std::string>& lines) {
    for (const std::string& line : lines)
        std::printf("%s\n", line.c_str());
}

}  // namespace

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
    openActivityScan(paths, tables, scan, context.services);
    const RouteEntry* route = findRoute(tables, operands[0]);
    if (!route) return usageError(context, "no route " + operands[0]);
    if (!selectRoute(paths, tables, scan, context.services, route->routeName)) return kExitFound;
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

}  // namespace rakeyard::cli
