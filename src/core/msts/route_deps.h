#pragma once
// The dependency tree of a route: the loose consists of its activities and the consists of its
// services, each with the units it names, those found on disk and those missing.
#include <string>
#include <vector>

#include "core/msts/dependency_tree.h"
#include "core/msts/route_scan.h"
#include "core/platform/services.h"
#include "core/settings/settings_record.h"

namespace rakeyard {

// The state of the window "Dependencies".
struct DependencyScan {
    std::vector<std::string> routeNames;  // Combo1
    std::string routeName;                // Label1: the route scanned
    DependencyTree tree;
    // Set by Stop or Esc while the scan lets events run; the scan looks at it once per file, so
    // that a file in reading is read to its end.
    bool stopFlag = false;
};

// Lists the route folders: row i of the route table is the i-th folder, with its route file and
// display name when it has them (a folder without a route file keeps its row with the folder
// alone). Returns the display names, in listing order. Ends early when stopFlag is set.
[[nodiscard]] std::vector<std::string> getRoutes(const PathGlobals& paths, RouteTables& tables,
                                                 Services& services, const bool& stopFlag);

// Fills scan.tree for the route of that display name: the root, the route, a node for each
// loose consist of its activities and for each consist its services name, missing or not, and
// below them their units, present or missing. A line in error is told and ends the reading of
// its file (of its consist, in a service). Ends, keeping what it has, when scan.stopFlag is set.
void scanOne(const PathGlobals& paths, const RouteTables& tables, const std::string& routeName,
             DependencyScan& scan, Services& services);

}  // namespace rakeyard
