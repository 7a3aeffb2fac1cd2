#pragma once
// The loose consist test: the units an activity's loose consists name, each looked for under
// the Trainset folder. Findings go to the activity reports.
#include <string>
#include <vector>

#include "core/msts/route_scan.h"
#include "core/tester/test_state.h"

namespace rakeyard {

// "Test loose consists": the activities named (lines of the activities' list) tested in order.
// The first test after the window opened deletes the activity reports; the next ones add to
// them. True when a fault was written.
bool testLooseConsists(const PathGlobals& paths, const RouteTables& tables, ActivityScan& scan,
                       Services& services, const std::vector<std::string>& activityNames);

}  // namespace rakeyard
