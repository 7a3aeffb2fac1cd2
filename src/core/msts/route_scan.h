#pragma once
// The route and activity scan: which consists an installed activity uses, and which of them are
// missing. It reads the route files (.trk), the activities (.act) and the services (.srv) of the
// routes under the MSTS folder's Routes folder.
#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "core/platform/services.h"
#include "core/settings/settings_record.h"

namespace rakeyard {

// A route folder with its route file, in the order the Routes folder lists them.
struct RouteEntry {
    std::string folder;     // the route's folder, its own name upper-cased
    std::string trackFile;  // the .trk file's name, upper-cased
    std::string routeName;  // its display name
};
// An activity of the route last selected: row i is the route's i-th .act file.
struct ActivityEntry {
    std::string fileName;  // as listed
    std::string activityName;
};

// The tables the route windows share for the whole run. Entries past the end are neither
// stored nor listed.
struct RouteTables {
    static constexpr std::size_t kRoutes = 2001;
    static constexpr std::size_t kActivities = 1001;
    std::array<RouteEntry, kRoutes> routes;
    std::array<ActivityEntry, kActivities> activities;
};

// The state of the window "Consists from activities".
struct ActivityScan {
    std::vector<std::string> routeNames;     // listRoutes
    std::vector<std::string> activityNames;  // listAct
    std::vector<std::string> consistLines;   // listCon: "[PLAYER]  name  [stem.con]"
    std::vector<std::string> missing;        // listMiss: "stem.con"
    int looseCount = 0;                      // the WAGONSLIST lines of the activity
    std::string routeName, routeFolder, trackFile;
    bool reportsExist = false;     // activity reports are there to show
    bool clearActReports = false;  // the next loose test deletes the activity reports first
};

// The paths the scan reads.
[[nodiscard]] std::string routesFolder(const PathGlobals& paths);

// Opening the window: every route folder with a route file takes a row, and its display name
// is listed. A failure is told and ends the scan where the table says.
void openActivityScan(const PathGlobals& paths, RouteTables& tables, ActivityScan& scan,
                      Services& services);
// A route chosen: its activities are listed, and its services read through for faults. False
// when a failure ended the pass.
bool selectRoute(const PathGlobals& paths, RouteTables& tables, ActivityScan& scan,
                 Services& services, const std::string& routeName);
// An activity chosen: the consists of its player and traffic services, those that are there
// and those that are missing, and the count of its loose consists. Every activity of that name
// counts.
void selectActivity(const PathGlobals& paths, const RouteTables& tables, ActivityScan& scan,
                    Services& services, const std::string& activityName);

// The consist a line of the consists' list names: the text between its last "[" and last "]",
// in the Consists folder; nothing when the line has no such name or it is no plain file name.
[[nodiscard]] std::optional<std::string> getConsistName(const PathGlobals& paths,
                                                       const std::string& line);
// The file names the consists' lines name, as the tester's consist rows.
[[nodiscard]] std::vector<std::string> consistRowsOf(const std::vector<std::string>& lines);

}  // namespace rakeyard
