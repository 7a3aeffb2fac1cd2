#include "core/msts/route_scan.h"

#include <algorithm>
#include <functional>

#include "core/msts/route_files.h"
#include "core/platform/file_names.h"
#include "core/platform/paths.h"
#include "core/platform/text_utf.h"

namespace rakeyard {

namespace {

using Line = std::u16string;

// The first line holding word (upper-cased) at or after from; lines.size() when none does.
std::size_t lineWith(const std::vector<Line>& lines, std::u16string_view word,
                     std::size_t from = 0) {
    for (std::size_t i = from; i < lines.size(); ++i)
        if (upperAscii(lines[i]).find(word) != Line::npos) return i;
    return lines.size();
}

Line trimmedBlanks(std::u16string_view text) {
    const std::size_t first = text.find_first_not_of(u' ');
    if (first == std::u16string_view::npos) return {};
    return Line(text.substr(first, text.find_last_not_of(u' ') - first + 1));
}

Line quotesToBlanks(Line text) {
    std::replace(text.begin(), text.end(), u'"', u' ');
    return trimmedBlanks(text);
}

// The trimmed text between the first "(" and the last ")"; nothing without both.
std::optional<Line> inParentheses(const Line& line) {
    const std::size_t open = line.find(u'(');
    const std::size_t close = line.rfind(u')');
    if (open == Line::npos || close == Line::npos || close < open) return std::nullopt;
    return trimmedBlanks(std::u16string_view(line).substr(open + 1, close - open - 1));
}

// A leading and then a trailing double quote dropped, each on its own.
Line withoutEndQuotes(Line text) {
    if (!text.empty() && text.front() == u'"') text.erase(0, 1);
    if (!text.empty() && text.back() == u'"') text.pop_back();
    return text;
}

void critical(Services& services, const std::string& text) {
    services.dialogs.report(text, Icon::Stop);
}

const std::string kActivitiesFailed =
    "The folder \"ACTIVITIES\" does not exist or cannot be read from!";
const std::string kServicesFailed =
    "The folder \"SERVICES\" does not exist or cannot be read from!";

// Reading a selection stops at the first failure, which has been told (or is silent).
struct SelectionStop {};

class ActivityReader {
public:
    ActivityReader(const PathGlobals& paths, ActivityScan& scan, Services& services)
        : paths_(paths), scan_(scan), services_(services) {}

    void readActivity(const std::string& fileName);

private:
    void followService(const Line& serviceName, bool player);
    const PathGlobals& paths_;
    ActivityScan& scan_;
    Services& services_;
};

void ActivityReader::readActivity(const std::string& fileName) {
    const auto lines =
        linesOf(services_.fs, paths_, joinPath(scan_.routeFolder, "ACTIVITIES"), fileName);
    if (!lines) {
        critical(services_, kActivitiesFailed);
        throw SelectionStop{};
    }
    for (const Line& line : *lines) {
        const Line upper = upperAscii(line);
        if (upper.find(u"WAGONSLIST") != Line::npos) ++scan_.looseCount;
        const std::size_t open = line.find(u'(');
        const auto behindOpen = [&] {
            return trimmedBlanks(
                std::u16string_view(line).substr(open == Line::npos ? 0 : open + 1));
        };
        // An unquoted name ends at its first blank.
        const auto firstWord = [](Line text) {
            if (const std::size_t blank = text.find(u' '); blank != Line::npos)
                text = trimmedBlanks(std::u16string_view(text).substr(0, blank));
            return text;
        };
        if (upper.find(u"PLAYER_SERVICE_DEFINITION") != Line::npos) {
            Line name = behindOpen();
            if (!name.empty() && name.front() == u'"') {
                name.erase(0, 1);
                if (!name.empty() && name.back() == u'"') name.pop_back();
            } else {
                name = firstWord(name);
            }
            followService(name, true);
        }
        if (upper.find(u"\tSERVICE_DEFINITION") != Line::npos) {
            Line name = behindOpen();
            if (!name.empty() && name.front() == u'"') {
                const std::size_t next = name.find(u'"', 1);
                name = name.substr(1, next == Line::npos ? Line::npos : next - 1);
            } else {
                name = firstWord(name);
            }
            followService(name, false);
        }
    }
}

// The first consist of the service that is there is listed; those before it that are not go
// to the missing ones.
void ActivityReader::followService(const Line& serviceName, bool player) {
    const auto service = linesOf(services_.fs, paths_, joinPath(scan_.routeFolder, "SERVICES"),
                                 toUtf8(serviceName) + ".srv");
    if (!service) {
        critical(services_, kServicesFailed);
        throw SelectionStop{};
    }
    for (std::size_t at = lineWith(*service, u"TRAIN_CONFIG"); at < service->size();
         at = lineWith(*service, u"TRAIN_CONFIG", at + 1)) {
        const std::optional<Line> inside = inParentheses((*service)[at]);
        if (!inside) throw SelectionStop{};
        Line stem = *inside;
        if (player) {
            stem = withoutEndQuotes(stem);
        } else if (const std::size_t first = stem.find(u'"'), last = stem.rfind(u'"');
                   first != Line::npos && last != first) {
            stem = stem.substr(first + 1, last - first - 1);
        }
        const std::string file = toUtf8(stem) + ".con";
        const auto consist = linesOf(services_.fs, paths_, paths_.consistsPath, file);
        if (!consist) {
            scan_.missing.push_back(file);
            continue;
        }
        Line display;
        if (const std::size_t named = lineWith(*consist, u"NAME"); named < consist->size()) {
            const std::optional<Line> inside = inParentheses((*consist)[named]);
            if (!inside) throw SelectionStop{};
            display = quotesToBlanks(*inside);
        }
        const std::string marker = player ? "[PLAYER]  " : "[TRAFFIC] ";
        scan_.consistLines.push_back(display.empty()
                                         ? marker + "[" + file + "]"
                                         : marker + toUtf8(display) + "  [" + file + "]");
        return;
    }
}

}  // namespace

std::string routesFolder(const PathGlobals& paths) {
    return joinPath(paths.mstsPath, "Routes");
}

void openActivityScan(const PathGlobals& paths, RouteTables& tables, ActivityScan& scan,
                      Services& services) {
    scan = ActivityScan{};
    if (paths.mstsPath.empty()) return;
    FileSystem& fs = services.fs;
    const std::string routes = routesFolder(paths);
    if (!fs.isFolder(routes)) {
        critical(services, "The folder \"ROUTES\" does not exist or cannot be read from!");
        return;
    }
    scan.clearActReports = true;
    for (const char* kind : {"ActMissing.txt", "ActSyntax.txt"})
        scan.reportsExist = scan.reportsExist ||
                            fs.isFile(joinPath(joinPath(paths.programFolder, "Reports"), kind));
    std::size_t row = 0;
    for (const DirEntry& entry : fs.listFolder(routes)) {
        if (!entry.isFolder) continue;
        const std::string folder = joinPath(routes, upperAscii(entry.name));
        const std::vector<std::string> tracks = filesEndingIn(fs, folder, ".TRK");
        if (tracks.empty()) continue;
        const std::string track = upperAscii(tracks.front());
        const bool stored = row < RouteTables::kRoutes;
        RouteEntry unused;
        RouteEntry& route = stored ? tables.routes[row] : unused;
        ++row;
        route = RouteEntry{};
        route.trackFile = track;
        const auto lines = linesOf(fs, paths, folder, track);
        if (!lines) {
            critical(services, "There has been an error in the file " + track);
            return;
        }
        std::string name;
        const RouteName found = routeNameOf(*lines, name);
        if (found == RouteName::Malformed)
            critical(services, "Couldn't get the route name from the file " + track);
        if (found != RouteName::Found || !stored) continue;
        scan.routeNames.push_back(name);
        route.folder = folder;
        route.routeName = name;
    }
}

bool selectRoute(const PathGlobals& paths, RouteTables& tables, ActivityScan& scan,
                 Services& services, const std::string& routeName) {
    FileSystem& fs = services.fs;
    scan.activityNames.clear();
    scan.consistLines.clear();
    scan.missing.clear();
    const auto route = std::find_if(tables.routes.begin(), tables.routes.end(),
                                    [&](const RouteEntry& r) { return r.routeName == routeName; });
    if (route == tables.routes.end()) return false;
    scan.routeName = routeName;
    scan.routeFolder = route->folder;
    scan.trackFile = route->trackFile;

    const std::string activities = joinPath(scan.routeFolder, "ACTIVITIES");
    if (!fs.isFolder(activities)) {
        critical(services, kActivitiesFailed);
        return false;
    }
    const std::vector<std::string> acts = filesEndingIn(fs, activities, ".ACT");
    for (std::size_t i = 0; i < acts.size(); ++i) {
        const auto lines = linesOf(fs, paths, activities, acts[i]);
        if (!lines) {
            critical(services, "The file " + acts[i] + " does not exist or cannot be read from!");
            return false;
        }
        ActivityEntry unused;
        ActivityEntry& entry = i < RouteTables::kActivities ? tables.activities[i] : unused;
        entry = ActivityEntry{};
        const std::size_t at = lineWith(*lines, u"NAME");
        if (at == lines->size()) continue;
        const std::optional<Line> inside = inParentheses((*lines)[at]);
        if (!inside) {
            critical(services, "There has been an error with the file " + acts[i]);
            return false;
        }
        if (i >= RouteTables::kActivities) continue;
        entry.fileName = acts[i];
        entry.activityName = toUtf8(quotesToBlanks(*inside));
        scan.activityNames.push_back(entry.activityName);
    }

    // The services are read through for faults only.
    constexpr std::size_t kServices = 6001;
    const std::string servicesFolder = joinPath(scan.routeFolder, "SERVICES");
    if (!fs.isFolder(servicesFolder)) {
        critical(services, kServicesFailed);
        return false;
    }
    std::vector<std::string> srvs = filesEndingIn(fs, servicesFolder, ".SRV");
    if (srvs.size() > kServices) srvs.resize(kServices);
    for (const std::string& file : srvs) {
        const auto lines = linesOf(fs, paths, servicesFolder, file);
        if (!lines) {
            critical(services, "The file " + file + " does not exist or cannot be read from!");
            return false;
        }
        for (const Line& line : *lines) {
            const Line upper = upperAscii(line);
            const bool named =
                upper.find(u"NAME") != Line::npos || upper.find(u"TRAIN_CONFIG") != Line::npos;
            if (named && !inParentheses(line)) {
                critical(services, "There has been an error with the file " + file);
                return false;
            }
        }
    }
    return true;
}

void selectActivity(const PathGlobals& paths, const RouteTables& tables, ActivityScan& scan,
                    Services& services, const std::string& activityName) {
    scan.consistLines.clear();
    scan.missing.clear();
    scan.looseCount = 0;
    ActivityReader reader(paths, scan, services);
    try {
        for (const ActivityEntry& entry : tables.activities)
            if (!entry.fileName.empty() && entry.activityName == activityName)
                reader.readActivity(entry.fileName);
    } catch (const SelectionStop&) {
        // told where it happened, or silent as the file's fault asks
    }
}

std::optional<std::string> getConsistName(const PathGlobals& paths, const std::string& line) {
    const std::size_t open = line.rfind('[');
    const std::size_t close = line.rfind(']');
    if (open == std::string::npos || close == std::string::npos || close < open)
        return std::nullopt;
    const std::string name = line.substr(open + 1, close - open - 1);
    if (!isValidFileName(name)) return std::nullopt;
    return joinPath(paths.consistsPath, name);
}

std::vector<std::string> consistRowsOf(const std::vector<std::string>& lines) {
    std::vector<std::string> rows;
    for (const std::string& line : lines) {
        // From the 10th character on: the markers' own brackets come before it.
        const std::size_t open = line.find('[', 9);
        const std::size_t close = line.find(']', 9);
        if (open == std::string::npos || close == std::string::npos || close < open) continue;
        rows.push_back(line.substr(open + 1, close - open - 1));
    }
    return rows;
}

}  // namespace rakeyard
