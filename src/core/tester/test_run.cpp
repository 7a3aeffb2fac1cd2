#include "core/tester/test_run.h"

#include <algorithm>
#include <unordered_map>

#include "core/consist/consist_chooser.h"
#include "core/msts/unit_list.h"
#include "core/platform/file_names.h"
#include "core/platform/paths.h"
#include "core/platform/text_utf.h"
#include "core/settings/shell_helpers.h"
#include "core/tester/reports.h"
#include "core/tester/unit_tests.h"

namespace rakeyard {

namespace {

std::span<const UnitRecord> recordsOf(const TestContext& context, TestSection section) {
    return usedRecords(context.catalogue,
                       section == TestSection::Engines ? UnitClass::Engine : UnitClass::Wagon);
}

// Clears what a section press and the start of a run clear alike.
void clearLogs(TestRun& run) {
    run.testedShapes.clear();
    run.testedSounds.clear();
    run.failed.clear();
    run.errorsFound = false;
    run.counts.levels = {};
}

// The selected rows in order, each tested by the section's test; rows are read again after
// every yield, as Stop refills them.
bool testSelectedRows(TestRun& run, const TestContext& context) {
    const bool consists = run.section == TestSection::Consists;
    const auto selectedCount = std::count(run.selected.begin(), run.selected.end(), 1);
    context.services.progress.start("Testing", static_cast<int>(selectedCount));
    // A unit's row stands for the first record of its display name and file name, in any case.
    std::unordered_map<std::string, std::size_t> byRow;
    if (!consists) {
        const auto records = recordsOf(context, *run.section);
        for (std::size_t i = 0; i < records.size(); ++i)
            byRow.emplace(upperAscii(unitTestRow(records[i])), i);
    }
    bool tookRow = false;
    for (std::size_t i = 0;; ++i) {
        context.host.yield();
        // Stop acts between consists: the one under test is finished with its failures, and
        // the refill then clears the selection and the failed lists alike.
        if (consists && run.stopRequested) {
            run.stopRequested = false;
            (void)fillSection(run, context, TestSection::Consists, {});
        }
        if (i >= run.rows.size()) break;
        if (!run.selected[i]) continue;
        tookRow = true;
        if (consists) {
            testThisConsist(run, context, run.rows[i]);
        } else {
            const auto found = byRow.find(upperAscii(run.rows[i]));
            if (found == byRow.end()) continue;  // a unit no longer in the catalogue
            if (run.section == TestSection::Engines)
                testThisEngine(run, context, found->second);
            else
                testThisWagon(run, context, found->second);
        }
        context.services.progress.step();
    }
    if (run.duplicates && !consists) checkDuplicates(run, context);
    return tookRow;
}

}  // namespace

std::string unitTestRow(const UnitRecord& unit) {
    return unit.displayName + std::string(40, ' ') + "^" + unit.fileName;
}

bool fillSection(TestRun& run, const TestContext& context, TestSection section,
                 std::string_view filter) {
    clearLogs(run);
    run.unitShown.clear();
    run.filesTestedText.clear();
    run.section = section;
    run.testMode = std::string(testModeOf(section));
    run.rows.clear();
    const bool engines = section == TestSection::Engines;
    run.cabViewsEnabled = engines && filter != "AI";
    if (section == TestSection::Consists) {
        run.rows = consistFileNames(context.services.fs, context.paths.consistsPath);
    } else {
        for (const UnitRecord& unit : recordsOf(context, section)) {
            if (unit.displayName.empty()) break;
            if (engines ? engineShown(unit, filter) : wagonShown(unit, filter))
                run.rows.push_back(unitTestRow(unit));
        }
    }
    run.selected.assign(run.rows.size(), 0);
    const char* what = engines ? " engines" : section == TestSection::Wagons ? " wagons" : " consists";
    run.countText = "Found " + std::to_string(run.rows.size()) + what;
    return sectionReportsExist(context.paths, context.services.fs, section);
}

void selectAllRows(TestRun& run, bool selected) {
    std::fill(run.selected.begin(), run.selected.end(), selected ? 1 : 0);
}

bool runTests(TestRun& run, const TestContext& context) {
    Dialogs& dialogs = context.services.dialogs;
    if (run.rows.empty()) return false;
    run.counts = {};
    clearLogs(run);
    const bool anySelected = std::find(run.selected.begin(), run.selected.end(), 1) !=
                             run.selected.end();
    if (!run.rows.front().empty() && !anySelected) {
        dialogs.report("You must select at least one item to test!", Icon::Exclamation, "Error");
        return false;
    }
    if (!run.section) {
        dialogs.report("First, you must provide a section to test (engines, wagons or consists)",
                       Icon::Exclamation, "Test units");
        return false;
    }
    deleteSectionReports(context.paths, context.services.fs, *run.section, run.cabViews,
                         run.sounds, run.duplicates);
    run.running = true;
    run.stopRequested = false;
    const bool tookRow = testSelectedRows(run, context);
    run.running = false;
    if (!tookRow) {
        dialogs.report("You must select at least one item from the list!", Icon::Stop,
                       "Test units");
        return false;
    }
    if (run.counts.errorCount == 0) return false;
    if (!context.paths.editorPath.empty()) return true;
    dialogs.report(
        "It isn't possible to show the error list.\nPlease select \"Options\" from the menu and "
        "select a text editor program.",
        Icon::Exclamation);
    return false;
}

void stopTests(TestRun& run, const TestContext& context, std::string_view filter) {
    const bool testingConsists = run.running && run.section == TestSection::Consists;
    if (run.section && !testingConsists) (void)fillSection(run, context, *run.section, filter);
    run.stopRequested = true;
}

void deleteFailedConsists(TestRun& run, const TestContext& context) {
    for (const std::string& name : run.testedSounds) {
        if (name.empty()) break;
        if (!isValidFileName(name)) continue;
        (void)context.services.desktop.moveToTrash(
            context.services.fs.resolve(joinPath(context.paths.consistsPath, name)));
    }
    run.testedSounds.clear();
}

std::optional<std::string> consistOfRow(const TestContext& context, std::string_view row) {
    const std::string name(row);
    if (upperAscii(name).ends_with(".CON") && isValidFileName(name))
        return joinPath(context.paths.consistsPath, name);
    return std::nullopt;
}

void openTestRowInEditor(const TestContext& context, std::string_view row) {
    if (context.paths.editorPath.empty()) {
        context.services.dialogs.report(
            "Please select \"Options\" from the menu and choose a text editor program.",
            Icon::Exclamation);
        return;
    }
    const std::string name = upperAscii(trimBlanks(row.substr(0, row.rfind('^'))));
    for (UnitClass which : {UnitClass::Engine, UnitClass::Wagon}) {
        for (const UnitRecord& unit : usedRecords(context.catalogue, which)) {
            if (upperAscii(unit.displayName) != name) continue;
            (void)startTextEditor(context.paths, joinPath(unit.folderPath, unit.fileName),
                                  context.services);
            return;
        }
    }
}

void checkDuplicates(TestRun& run, const TestContext& context) {
    run.stopRequested = false;
    const auto records = recordsOf(context, *run.section);
    const bool engines = run.section == TestSection::Engines;
    // Each name's units in catalogue order: the pairs come out as a walk over all pairs meets
    // them, without the walk.
    std::unordered_map<std::string_view, std::vector<std::size_t>> byName;
    for (std::size_t i = 0; i < records.size(); ++i)
        byName[records[i].fileName].push_back(i);
    context.services.progress.start("Checking duplicated files",
                                    static_cast<int>(records.size()));
    std::string blocks;
    const std::string sep(1, kPathSeparator);
    for (std::size_t i = 0; i < records.size(); ++i) {
        if (i % 64 == 0) context.host.yield();
        if (run.stopRequested) break;
        context.services.progress.step();
        const std::vector<std::size_t>& twins = byName[records[i].fileName];
        for (std::size_t j : twins) {
            if (j <= i) continue;
            blocks += std::string(engines ? "The Engine" : "The Wagon") + "\t.." + sep +
                      records[i].folderName + sep + records[i].fileName +
                      "\r\nhas the same file name as\r\n\t.." + sep + records[j].folderName +
                      sep + records[j].fileName + "\r\n" + std::string(40, '-') + "\r\n";
            ++run.counts.errorCount;
        }
    }
    if (blocks.empty()) return;
    (void)context.services.fs.appendFile(
        joinPath(reportsFolder(context.paths), duplicatesReportName(run.testMode)), blocks);
}

}  // namespace rakeyard
