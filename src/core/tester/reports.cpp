#include "core/tester/reports.h"

#include <array>

#include "core/platform/paths.h"
#include "core/platform/text_utf.h"

namespace rakeyard {

namespace {

constexpr std::string_view kLineEnd = "\r\n";

// The prefix of a mode's reports; "" for a mode with none.
std::string_view familyOf(std::string_view testMode) {
    if (testMode == "eng") return "Eng";
    if (testMode == "wag") return "Wag";
    if (testMode == "con") return "Con";
    if (testMode == "act") return "Act";
    return "";
}

// Where a category is counted among the six counters.
constexpr std::array<int, 8> kCounterOfCategory = {-1, 1, 0, 4, 2, 3, 5, 4};

// The eighteen reports "Del Reports" knows. The three error lists are only ever deleted.
constexpr std::string_view kKnownReports[] = {
    "EngCabViews.txt", "EngSounds.txt", "EngDuplicate.txt", "EngErrList.txt", "EngMissing.txt",
    "EngSyntax.txt",   "EngShapes.txt", "EngOthers.txt",    "WagSounds.txt",  "WagDuplicate.txt",
    "WagErrList.txt",  "WagMissing.txt", "WagSyntax.txt",   "WagShapes.txt",  "WagOthers.txt",
    "ConErrList.txt",  "ConMissing.txt", "ConSyntax.txt"};

std::string_view familyOf(TestSection section) {
    return familyOf(testModeOf(section));
}

void removeReport(const PathGlobals& paths, FileSystem& fs, std::string_view name) {
    (void)fs.removeFile(joinPath(reportsFolder(paths), name));  // one not there is no error
}

}  // namespace

std::string reportsFolder(const PathGlobals& paths) {
    return joinPath(paths.programFolder, "Reports");
}

std::optional<std::string> reportName(std::string_view testMode, int category) {
    const std::string_view family = familyOf(testMode);
    if (family.empty() || category < 1 || category > 7) return std::nullopt;
    const bool unitMode = family == "Eng" || family == "Wag";
    std::string_view kind;
    switch (category) {
        case 1: kind = "Missing"; break;
        case 2: kind = "Syntax"; break;
        case 3:
        case 7:
            if (!unitMode) return std::nullopt;
            kind = "Shapes";
            break;
        case 4:
            if (family != "Eng") return std::nullopt;
            kind = "CabViews";
            break;
        case 5:
            if (!unitMode) return std::nullopt;
            kind = "Sounds";
            break;
        case 6:
            if (!unitMode) return std::nullopt;
            kind = "Others";
            break;
    }
    return std::string(family) + std::string(kind) + ".txt";
}

std::string duplicatesReportName(std::string_view testMode) {
    return std::string(familyOf(testMode)) + "Duplicate.txt";
}

void writeErrorByType(TestRun& run, const PathGlobals& paths, FileSystem& fs,
                      std::string_view message, int category) {
    const std::optional<std::string> name = reportName(run.testMode, category);
    if (!name) return;
    std::string record(message);
    record += kLineEnd;
    record += std::string(40, '-');
    record += kLineEnd;
    (void)fs.appendFile(joinPath(reportsFolder(paths), *name), record);
    ++run.counts.categories[static_cast<std::size_t>(kCounterOfCategory[category])];
}

void deleteSectionReports(const PathGlobals& paths, FileSystem& fs, TestSection section,
                          bool cabViews, bool sounds, bool duplicates) {
    const std::string family(familyOf(section));
    std::vector<std::string_view> always = {"ErrList", "Missing", "Syntax"};
    if (section != TestSection::Consists) {
        always.push_back("Shapes");
        always.push_back("Others");
    }
    for (std::string_view kind : always)
        removeReport(paths, fs, family + std::string(kind) + ".txt");
    if (section == TestSection::Consists) return;
    if (cabViews && section == TestSection::Engines) removeReport(paths, fs, family + "CabViews.txt");
    if (sounds) removeReport(paths, fs, family + "Sounds.txt");
    if (duplicates) removeReport(paths, fs, family + "Duplicate.txt");
}

bool sectionReportsExist(const PathGlobals& paths, FileSystem& fs, TestSection section) {
    const std::string family = upperAscii(familyOf(section));
    for (const DirEntry& entry : fs.listFolder(reportsFolder(paths))) {
        const std::string name = upperAscii(entry.name);
        if (!entry.isFolder && name.starts_with(family) && name.ends_with(".TXT")) return true;
    }
    return false;
}

bool anyReportExists(const PathGlobals& paths, FileSystem& fs) {
    for (std::string_view name : kKnownReports)
        if (fs.isFile(joinPath(reportsFolder(paths), name))) return true;
    return false;
}

void deleteAllReports(const PathGlobals& paths, FileSystem& fs) {
    for (std::string_view name : kKnownReports)
        removeReport(paths, fs, name);
}

void reportError(TestRun& run, const TestContext& context, std::string_view mark,
                 std::string_view message, ErrorCategory category, ErrorLevel level) {
    ++run.counts.errorCount;
    run.errorsFound = true;
    const std::string record = std::string(mark) + "\r\n" + std::string(message);
    writeErrorByType(run, context.paths, context.services.fs, record, static_cast<int>(category));
    ++run.counts.levels[static_cast<std::size_t>(level)];
}

std::optional<std::string> reportOfKind(std::string_view testMode, int kind) {
    const std::string_view family = familyOf(testMode);
    if (family.empty() || kind < 0 || kind > 6) return std::nullopt;
    if ((family == "Con" || family == "Act") && kind > 1) return std::nullopt;
    if (family == "Wag" && kind == 3) return std::nullopt;
    return std::string(family) + std::string(kReportKinds[kind]) + ".txt";
}

std::vector<std::string> existingReports(const PathGlobals& paths, FileSystem& fs,
                                         std::string_view testMode) {
    std::vector<std::string> names;
    for (int kind = 0; kind < 7; ++kind) {
        const std::optional<std::string> name = reportOfKind(testMode, kind);
        if (name && fs.isFile(joinPath(reportsFolder(paths), *name))) names.push_back(*name);
    }
    return names;
}

}  // namespace rakeyard
