#include "core/msts/route_deps.h"

#include <algorithm>
#include <unordered_map>

#include "core/msts/file_lookup.h"
#include "core/msts/route_files.h"
#include "core/msts/text_lines.h"
#include "core/msts/unit_line.h"
#include "core/platform/paths.h"
#include "core/platform/text_utf.h"

namespace rakeyard {

namespace {

using Line = std::u16string_view;
constexpr std::size_t npos = Line::npos;

void critical(Services& services, const std::string& text, std::string_view title = {}) {
    services.dialogs.report(text, Icon::Stop, title);
}

const std::string kRoutesFailed = "The folder \"ROUTES\" does not exist or cannot be read from!";

// Whether line holds word, whose letters are capitals, in any case.
bool containsUpper(Line line, std::u16string_view word) {
    if (line.size() < word.size()) return false;
    for (std::size_t i = 0; i + word.size() <= line.size(); ++i) {
        std::size_t k = 0;
        while (k < word.size()) {
            char16_t c = line[i + k];
            if (c >= u'a' && c <= u'z') c = static_cast<char16_t>(c - 32);
            if (c != word[k]) break;
            ++k;
        }
        if (k == word.size()) return true;
    }
    return false;
}

bool contains(Line line, std::u16string_view word) {
    return line.find(word) != npos;
}

// The activity's name on the line after "RouteID (": between its first "(" and its last ")",
// every double quote made a blank; empty when the line lacks either.
std::string activityNameOf(Line line) {
    const std::size_t open = line.find(u'(');
    const std::size_t close = line.rfind(u')');
    if (open == npos || close == npos || close < open) return {};
    std::u16string text(line.substr(open + 1, close - open - 1));
    std::replace(text.begin(), text.end(), u'"', u' ');
    return toUtf8(trimBlanks(text));
}

class RouteScanner {
public:
    RouteScanner(const PathGlobals& paths, DependencyScan& scan, Services& services)
        : paths_(paths),
          scan_(scan),
          services_(services),
          trainset_(joinPath(paths.mstsPath, "TRAINS/TRAINSET")) {}

    // False when Stop ended the scan.
    bool readActivities(const std::string& routeFolder);
    bool readServices(const std::string& routeFolder);

private:
    bool read(const std::string& folder, const std::string& file, std::string& bytes) {
        return readInside(services_.fs, paths_.mstsPath, folder, file, kRouteFileSizeLimit,
                          bytes) &&
               !bytes.empty();
    }
    // Events run every few hundred lines: a long file keeps the window answering, and the
    // thousands of short ones do not pay for a look at the clock at every line.
    void lineRead() {
        if (++linesRead_ % kLinesPerStep == 0) services_.progress.step();
    }
    // Reads the unit line under the node holding parentKey; false when the line is in error.
    bool unitLine(Line line, UnitLineKind kind, const std::string& parentKey);
    void readActivity(const std::string& file);
    void readService(const std::string& file);
    // Reads the consist a service names under the node holding key; false at a line in error.
    bool readConsist(const std::string& key);
    // Whether the unit file is there and holds something. Each unit is looked for once a scan:
    // the same wagons stand in many consists.
    bool isPresent(const std::string& unit) {
        const auto [known, added] = present_.try_emplace(upperAscii(unit), false);
        if (added) known->second = sizeInside(services_.fs, paths_.mstsPath, trainset_, unit) != 0;
        return known->second;
    }

    const PathGlobals& paths_;
    DependencyScan& scan_;
    Services& services_;
    const std::string trainset_;
    static constexpr unsigned kLinesPerStep = 256;
    unsigned linesRead_ = 0;
    int looseCount_ = 1;        // "B": the loose consists of all activities
    int serviceCount_ = 1;      // "C": every service file, also one naming no consist
    std::string activityName_;  // from the last "RouteID (" line, in whichever file it was
    std::string fileBytes_, consistBytes_;  // kept from file to file
    std::u16string fileText_, consistText_;
    std::unordered_map<std::string, bool> present_;  // by the unit's path, upper-cased
};

bool RouteScanner::unitLine(Line line, UnitLineKind kind, const std::string& parentKey) {
    const std::optional<UnitLine> unit = readUnitLine(toUtf8(line), kind);
    if (!unit) return false;
    const bool present = isPresent(unit->folder + "\\" + unit->name);
    const std::size_t node = scan_.tree.add(
        parentKey, {}, present ? DependencyKind::PresentUnit : DependencyKind::MissingUnit,
        unit->name);
    if (!present) scan_.tree.reveal(node);
    return true;
}

bool RouteScanner::readActivities(const std::string& routeFolder) {
    const std::string folder = joinPath(routeFolder, "ACTIVITIES");
    for (const std::string& file : filesEndingIn(services_.fs, folder, ".ACT")) {
        services_.progress.step();
        if (scan_.stopFlag) return false;
        if (read(folder, file, fileBytes_)) readActivity(file);
    }
    return true;
}

// The words "LOOSE CONSIST" open a loose consist, and every unit line after them up to the end
// of the file is one of its units, whatever object it stands in.
void RouteScanner::readActivity(const std::string& file) {
    bool loose = false, nameLineNext = false, inError = false;
    std::string looseKey;
    (void)forEachTextLine(fileBytes_, fileText_, [&](Line line) {
        lineRead();
        if (nameLineNext) {
            activityName_ = activityNameOf(line);
            nameLineNext = false;
            return true;
        }
        if (contains(line, u"RouteID (")) nameLineNext = true;
        if (containsUpper(line, u"LOOSE CONSIST")) {
            loose = true;
            looseKey = "B" + std::to_string(++looseCount_);
            scan_.tree.add("A1", looseKey, DependencyKind::LooseConsist, activityName_);
        }
        if (!loose) return true;
        for (const auto& [word, kind] : {std::pair{u"EngineData (", UnitLineKind::Engine},
                                         std::pair{u"WagonData (", UnitLineKind::Wagon}}) {
            if (contains(line, word) && !unitLine(line, kind, looseKey)) {
                inError = true;
                return false;
            }
        }
        return true;
    });
    if (inError)
        critical(services_, "The activity " + file + " contains an error.", "Critical error");
}

bool RouteScanner::readServices(const std::string& routeFolder) {
    const std::string folder = joinPath(routeFolder, "SERVICES");
    for (const std::string& file : filesEndingIn(services_.fs, folder, ".SRV")) {
        services_.progress.step();
        if (scan_.stopFlag) return false;
        ++serviceCount_;
        if (read(folder, file, fileBytes_)) readService(file);
    }
    return true;
}

void RouteScanner::readService(const std::string& file) {
    const std::string key = "C" + std::to_string(serviceCount_);
    const std::string told = "The service " + file + " contains an error.";
    (void)forEachTextLine(fileBytes_, fileText_, [&](Line line) {
        lineRead();
        if (!contains(line, u"Train_Config (")) return true;
        const std::optional<UnitLine> stem = readUnitLine(toUtf8(line), UnitLineKind::TrainConfig);
        if (!stem) {
            critical(services_, told, "Critical error");
            return false;
        }
        const std::string text = stem->name + ".con";
        if (!readInside(services_.fs, paths_.mstsPath, paths_.consistsPath, stem->name + ".CON",
                        kRouteFileSizeLimit, consistBytes_) ||
            consistBytes_.empty()) {
            scan_.tree.reveal(scan_.tree.add("A1", key, DependencyKind::MissingConsist, text));
            return true;
        }
        // A second consist of the service is refused its node; its units go under the first.
        (void)scan_.tree.add("A1", key, DependencyKind::ServiceConsist, text);
        if (!readConsist(key)) critical(services_, told, "Critical error");
        return true;
    });
}

bool RouteScanner::readConsist(const std::string& key) {
    bool inError = false;
    (void)forEachTextLine(consistBytes_, consistText_, [&](Line line) {
        lineRead();
        const bool engine = contains(line, u"EngineData (");
        if (!engine && !contains(line, u"WagonData (")) return true;
        inError = !unitLine(line, engine ? UnitLineKind::Engine : UnitLineKind::Wagon, key);
        return !inError;
    });
    return !inError;
}

}  // namespace

std::vector<std::string> getRoutes(const PathGlobals& paths, RouteTables& tables,
                                   Services& services, const bool& stopFlag) {
    std::vector<std::string> names;
    FileSystem& fs = services.fs;
    const std::string routes = routesFolder(paths);
    if (paths.mstsPath.empty() || !fs.isFolder(routes)) {
        critical(services, kRoutesFailed);
        return names;
    }
    std::size_t row = 0;
    for (const DirEntry& entry : fs.listFolder(routes)) {
        if (!entry.isFolder) continue;
        services.progress.step();
        if (stopFlag) break;
        RouteEntry unused;
        RouteEntry& route = row < RouteTables::kRoutes ? tables.routes[row] : unused;
        ++row;
        route = RouteEntry{joinPath(routes, entry.name), {}, {}};
        const std::vector<std::string> tracks = filesEndingIn(fs, route.folder, ".TRK");
        if (tracks.empty()) continue;
        route.trackFile = upperAscii(tracks.front());
        const auto lines = linesOf(fs, paths, route.folder, route.trackFile);
        if (!lines) {
            critical(services, "Could not open the route file " + route.trackFile);
            continue;
        }
        std::string name;
        const RouteName found = routeNameOf(*lines, name);
        if (found == RouteName::Malformed)
            critical(services, "Couldn't get the route name from the file " + route.trackFile);
        if (found != RouteName::Found || &route == &unused) continue;
        route.routeName = name;
        names.push_back(name);
    }
    return names;
}

void scanOne(const PathGlobals& paths, const RouteTables& tables, const std::string& routeName,
             DependencyScan& scan, Services& services) {
    scan.tree.addRoot("R", "ROUTE");
    if (paths.mstsPath.empty()) return;
    if (!services.fs.isFolder(routesFolder(paths))) {
        critical(services, kRoutesFailed);
        return;
    }
    const auto route = std::find_if(
        tables.routes.begin(), tables.routes.end(),
        [&](const RouteEntry& r) { return !r.routeName.empty() && r.routeName == routeName; });
    if (route == tables.routes.end()) return;
    scan.tree.reveal(scan.tree.add("R", "A1", DependencyKind::Route, routeName));
    scan.routeName = routeName;
    RouteScanner scanner(paths, scan, services);
    if (scanner.readActivities(route->folder)) (void)scanner.readServices(route->folder);
}

}  // namespace rakeyard
