// Reads the bytes as a route file, an activity, a service and a consist of one route, and runs
// the route and activity scan over them: no crash, no hang, nothing looked at outside the
// installation whatever the names in the files say.
#include <cstdint>
#include <memory>
#include <string>

#include "core/app/app_state.h"
#include "core/msts/route_scan.h"
#include "memory_tree.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace rakeyard;
    static auto state = std::make_unique<AppState>();
    for (RouteEntry& entry : state->routes.routes) entry = {};
    for (ActivityEntry& entry : state->routes.activities) entry = {};
    state->paths.mstsPath = "/msts";
    state->paths.consistsPath = "/msts/TRAINS/CONSISTS";
    state->paths.programFolder = "/home";
    fuzz::QuietServices quiet;
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    auto& files = quiet.tree.files;
    const std::string route = "/msts/Routes/R";
    files[route + "/R.TRK"] = bytes;
    files[route + "/ACTIVITIES/a.act"] = bytes;
    files[route + "/ACTIVITIES/b.act"] =
        "\xFF\xFE" + std::string("N\0a\0m\0e\0 \0(\0 \0x\0 \0)\0\r\0", 22);
    files[route + "/SERVICES/s.srv"] = bytes;
    files["/msts/TRAINS/CONSISTS/c.CON"] = bytes;
    ActivityScan scan;
    openActivityScan(state->paths, state->routes, scan, quiet.services);
    for (const std::string& name : std::vector<std::string>(scan.routeNames))
        (void)selectRoute(state->paths, state->routes, scan, quiet.services, name);
    for (const std::string& name : std::vector<std::string>(scan.activityNames))
        selectActivity(state->paths, state->routes, scan, quiet.services, name);
    for (const std::string& line : scan.consistLines)
        (void)getConsistName(state->paths, line);
    if (!quiet.tree.touchedOnlyBelow({"/msts", "/home/Reports"})) __builtin_trap();
    return 0;
}
