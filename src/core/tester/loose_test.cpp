// Every EngineData and WagonData line of an activity stands in one of its loose consists: each
// names a unit by its file name and folder.
#include "core/tester/loose_test.h"

#include "core/msts/file_lookup.h"
#include "core/msts/inside_path.h"
#include "core/msts/text_lines.h"
#include "core/platform/paths.h"
#include "core/platform/text_utf.h"
#include "core/tester/reports.h"

namespace rakeyard {

namespace {

constexpr std::uintmax_t kActivitySizeLimit = 64u << 20;

std::string trimmedText(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return std::string(text.substr(first, text.find_last_not_of(' ') - first + 1));
}

// A unit's file name and folder in the text between a unit line's parentheses: a quoted name,
// then a folder after it, quoted or not; else the name up to the first blank and the folder
// after it.
void unitOf(const std::string& text, std::string& name, std::string& folder) {
    const std::string s = trimmedText(text);
    if (!s.empty() && s.front() == '"') {
        const std::size_t a = s.find('"', 1);
        name = s.substr(1, a == std::string::npos ? std::string::npos : a - 1);
        if (a == std::string::npos) {
            folder.clear();
            return;
        }
        const std::size_t b = s.find('"', a + 1);
        if (b == std::string::npos) {
            folder = trimmedText(std::string_view(s).substr(a + 1));
        } else {
            const std::size_t end = s.find('"', b + 1);
            folder = s.substr(b + 1, end == std::string::npos ? std::string::npos : end - b - 1);
        }
        return;
    }
    const std::size_t blank = s.find(' ');
    name = trimmedText(std::string_view(s).substr(0, blank == std::string::npos ? 0 : blank));
    folder = trimmedText(std::string_view(s).substr(blank == std::string::npos ? 0 : blank + 1));
    if (folder.size() >= 2 && folder.front() == '"') folder = folder.substr(1, folder.size() - 2);
}

class LooseTest {
public:
    LooseTest(const PathGlobals& paths, const RouteTables& tables, const ActivityScan& scan,
              Services& services)
        : paths_(paths), tables_(tables), scan_(scan), services_(services) {
        run_.testMode = "act";
    }
    // False when the ACTIVITIES folder failed and the test ended.
    bool testActivity(const std::string& line);
    bool errorsFound() const { return errorsFound_; }

private:
    void unitLine(const std::string& line, bool engine, const ActivityEntry& activity);
    void write(const std::string& message, int category) {
        writeErrorByType(run_, paths_, services_.fs, message, category);
        errorsFound_ = true;
    }

    const PathGlobals& paths_;
    const RouteTables& tables_;
    const ActivityScan& scan_;
    Services& services_;
    TestRun run_;
    bool errorsFound_ = false;
};

bool LooseTest::testActivity(const std::string& line) {
    // Names are compared upper-cased here: the first of two names differing in case is tested.
    const std::string wanted = upperAscii(line);
    const ActivityEntry* activity = nullptr;
    for (const ActivityEntry& entry : tables_.activities) {
        if (upperAscii(entry.activityName) != wanted) continue;
        activity = &entry;
        break;
    }
    if (!activity || activity->fileName.empty()) return true;
    const std::optional<std::string> path =
        joinInside(paths_.mstsPath, joinPath(scan_.routeFolder, "ACTIVITIES"), activity->fileName);
    std::string bytes;
    if (!path || services_.fs.readFileInto(*path, kActivitySizeLimit, bytes) != ReadOutcome::Read) {
        services_.dialogs.report("The folder \"ACTIVITIES\" does not exist or cannot be read from!",
                                 Icon::Stop);
        return false;
    }
    std::u16string text;
    (void)forEachTextLine(bytes, text, [&](std::u16string_view read) {
        const std::string unit = toUtf8(read);
        const std::string upper = upperAscii(unit);
        if (upper.find("WAGONDATA") != std::string::npos) unitLine(unit, false, *activity);
        if (upper.find("ENGINEDATA") != std::string::npos) unitLine(unit, true, *activity);
        return true;
    });
    return true;
}

// A wagon's text ends at the first ")", an engine's at the last.
void LooseTest::unitLine(const std::string& line, bool engine, const ActivityEntry& activity) {
    const std::size_t p = line.find('(');
    const std::size_t q = p == std::string::npos ? std::string::npos
                          : engine               ? line.rfind(')')
                                                 : line.find(')', p);
    if (q == std::string::npos || q < p) {
        write("The activity file " + activity.fileName + " has missing parenthesis in the line \"" +
                  (engine ? "EngineData" : "WagonData") + "\".\r\n[SYNTAX ERROR]",
              static_cast<int>(ErrorCategory::Syntax));
        return;
    }
    std::string name, folder;
    unitOf(line.substr(p + 1, q - p - 1), name, folder);
    const std::string extension = engine ? ".ENG" : ".WAG";
    if (sizeInside(services_.fs, paths_.mstsPath, paths_.trainsetPath,
                   folder + "\\" + name + extension) != 0)
        return;
    write(std::string(engine ? "The engine file " : "The wagon file ") + name + extension +
              " does not exist in the folder\r\n" + paths_.trainsetPath + kPathSeparator + folder +
              "\r\n(ACTIVITY " + activity.activityName + ")\r\n" +
              (engine ? "[ENGINE FILE MISSING]" : "[WAGON FILE MISSING]"),
          static_cast<int>(ErrorCategory::Missing));
}

}  // namespace

bool testLooseConsists(const PathGlobals& paths, const RouteTables& tables, ActivityScan& scan,
                       Services& services, const std::vector<std::string>& activityNames) {
    const std::string folder = reportsFolder(paths);
    if (scan.clearActReports) {
        for (const char* name :
             {"ActMissing.txt", "ActSyntax.txt", "ActCritical.txt", "ActSerious.txt"})
            (void)services.fs.removeFile(joinPath(folder, name));
        scan.clearActReports = false;
    }
    (void)services.fs.removeFile(joinPath(folder, "ActErrList.txt"));
    LooseTest test(paths, tables, scan, services);
    for (const std::string& line : activityNames)
        if (!test.testActivity(line)) break;
    return test.errorsFound();
}

}  // namespace rakeyard
