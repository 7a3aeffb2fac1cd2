// Reads the bytes as a route file, two activities, a service and the consist it names, and
// builds the route's dependency tree, then reads each of their lines as a unit line of every
// kind: no crash, no hang, nothing looked at outside the installation whatever the names in the
// files say.
#include <cstdint>
#include <memory>
#include <string>

#include "core/app/app_state.h"
#include "core/msts/route_deps.h"
#include "core/msts/unit_line.h"
#include "memory_tree.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace rakeyard;
    static auto state = std::make_unique<AppState>();
    for (RouteEntry& entry : state->routes.routes)
        entry = {};
    state->paths.mstsPath = "/msts";
    state->paths.consistsPath = "/msts/TRAINS/CONSISTS";
    state->paths.programFolder = "/home";
    fuzz::QuietServices quiet;
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    auto& files = quiet.tree.files;
    const std::string route = "/msts/Routes/R";
    files[route + "/R.TRK"] = bytes;
    files[route + "/ACTIVITIES/a.act"] = bytes;
    files[route + "/ACTIVITIES/b.act"] = "RouteID (\nLoose consist\nEngineData ( x )\n";
    files[route + "/SERVICES/s.srv"] = bytes;
    files[route + "/SERVICES/t.srv"] = "Train_Config ( c )\n";
    files["/msts/TRAINS/CONSISTS/c.CON"] = bytes;
    files["/msts/TRAINS/TRAINSET/x/x.eng"] = bytes;
    DependencyScan scan;
    for (const std::string& name :
         getRoutes(state->paths, state->routes, quiet.services, scan.stopFlag))
        scanOne(state->paths, state->routes, name, scan, quiet.services);
    (void)indentedLines(scan.tree);
    for (std::size_t start = 0; start <= bytes.size();) {
        std::size_t end = bytes.find('\n', start);
        if (end == std::string::npos) end = bytes.size();
        const std::string_view line(bytes.data() + start, end - start);
        for (UnitLineKind kind :
             {UnitLineKind::Engine, UnitLineKind::Wagon, UnitLineKind::TrainConfig})
            (void)readUnitLine(line, kind);
        start = end + 1;
    }
    if (!quiet.tree.touchedOnlyBelow({"/msts"})) __builtin_trap();
    return 0;
}
