#include "core/tester/test_run.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <thread>
#include <unordered_map>

#include "core/consist/consist_chooser.h"
#include "core/msts/ordered_work.h"
#include "core/msts/unit_list.h"
#include "core/platform/file_names.h"
#include "core/platform/paths.h"
#include "core/platform/text_utf.h"
#include "core/settings/shell_helpers.h"
#include "core/tester/held_appends.h"
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

// One selected row's test: a unit's record index, or a consist's file name.
struct RowTest {
    std::size_t index = 0;
    std::string consist;
};

void testRow(TestRun& run, const TestContext& context, const RowTest& row) {
    switch (*run.section) {
    case TestSection::Engines: testThisEngine(run, context, row.index); break;
    case TestSection::Wagons: testThisWagon(run, context, row.index); break;
    case TestSection::Consists: testThisConsist(run, context, row.consist); break;
    }
}

// What one row's test came to on a worker: its own run state and the report records it wrote.
struct RowOutcome {
    TestRun part;
    std::vector<std::pair<std::string, std::string>> appends;
};

template <class T>
void appendAll(std::vector<T>& to, std::vector<T>& from) {
    to.insert(to.end(), std::make_move_iterator(from.begin()), std::make_move_iterator(from.end()));
}

// Adds a row's outcome to the run, as if the row had been tested on it.
void addOutcome(TestRun& run, FileSystem& fs, RowOutcome& outcome) {
    for (const auto& [path, bytes] : outcome.appends)
        (void)fs.appendFile(path, bytes);
    TestRun& part = outcome.part;
    run.counts.filesTested += part.counts.filesTested;
    run.counts.errorCount += part.counts.errorCount;
    for (std::size_t i = 0; i < run.counts.levels.size(); ++i)
        run.counts.levels[i] += part.counts.levels[i];
    for (std::size_t i = 0; i < run.counts.categories.size(); ++i)
        run.counts.categories[i] += part.counts.categories[i];
    run.errorsFound = run.errorsFound || part.errorsFound;
    appendAll(run.testedShapes, part.testedShapes);
    appendAll(run.testedSounds, part.testedSounds);
    appendAll(run.failed, part.failed);
    run.unitShown = part.unitShown;
    if (!part.filesTestedText.empty())
        run.filesTestedText = std::to_string(run.counts.filesTested) + " files tested";
}

// Ends the walk on all cores when a press of Stop was seen between two rows.
struct WalkStopped {};

// The rows tested on all cores, each on a run state of its own, and added to the run in their
// order: findings, reports and logs are those of a run on one thread. A host that lets a user
// press Stop yields between the rows' outcomes, and Stop acts there: the rows tested ahead are
// dropped, their findings never written.
void testOnWorkers(TestRun& run, const TestContext& context, const std::vector<RowTest>& rows) {
    const unsigned workers = std::clamp(std::thread::hardware_concurrency(), 1u, 8u);
    std::function<void()> idle;
    if (context.host.yieldsToUser()) {
        idle = [&] {
            context.host.yield();
            if (!run.stopRequested) return;
            if (run.section == TestSection::Consists) {
                run.stopRequested = false;
                (void)fillSection(run, context, TestSection::Consists, {});
            }
            throw WalkStopped{};
        };
    }
    // The options each row's run starts from, copied: a press of Stop may refill the run.
    TestRun start;
    start.testMode = run.testMode;
    start.section = run.section;
    start.cabViews = run.cabViews;
    start.sounds = run.sounds;
    start.cabViewsEnabled = run.cabViewsEnabled;
    try {
        forEachInOrder<RowOutcome>(
            rows.size(), workers,
            [&](std::size_t i) {
                HeldAppends held(context.services.fs);
                Services services{held, context.services.dialogs, context.services.progress,
                                  context.services.desktop};
                NoYield host;
                RowOutcome outcome{start, {}};
                testRow(outcome.part, {context.paths, context.catalogue, services, host}, rows[i]);
                outcome.appends = std::move(held.appends);
                return outcome;
            },
            [&](std::size_t, RowOutcome& outcome) {
                addOutcome(run, context.services.fs, outcome);
                context.services.progress.step();
            },
            idle);
    } catch (const WalkStopped&) {
    }
}

// The selected rows in order, each tested by the section's test. On one thread the rows are
// read again after every yield, as Stop refills them; where the host allows workers, the rows
// are taken at once and tested on all cores, and Stop ends the walk between two rows.
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
    // The test of row i; nothing for a unit no longer in the catalogue.
    const auto rowTest = [&](std::size_t i) -> std::optional<RowTest> {
        if (consists) return RowTest{0, run.rows[i]};
        const auto found = byRow.find(upperAscii(run.rows[i]));
        if (found == byRow.end()) return std::nullopt;
        return RowTest{found->second, {}};
    };
    bool tookRow = false;
    if (context.host.allowsWorkers()) {
        std::vector<RowTest> rows;
        for (std::size_t i = 0; i < run.rows.size(); ++i) {
            if (!run.selected[i]) continue;
            tookRow = true;
            if (auto test = rowTest(i)) rows.push_back(std::move(*test));
        }
        testOnWorkers(run, context, rows);
    } else {
        for (std::size_t i = 0;; ++i) {
            context.host.yield();
            // Stop acts between consists: the one under test is finished with its failures,
            // and the refill then clears the selection and the failed lists alike.
            if (consists && run.stopRequested) {
                run.stopRequested = false;
                (void)fillSection(run, context, TestSection::Consists, {});
            }
            if (i >= run.rows.size()) break;
            if (!run.selected[i]) continue;
            tookRow = true;
            if (auto test = rowTest(i)) testRow(run, context, *test);
            context.services.progress.step();
        }
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

void fillGivenConsists(TestRun& run, const TestContext& context, std::vector<std::string> rows) {
    (void)fillSection(run, context, TestSection::Consists, {});
    run.rows = std::move(rows);
    run.selected.assign(run.rows.size(), 1);
    run.countText = "Found " + std::to_string(run.rows.size()) + " consists";
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
    dialogs.report(kNoEditorForReports, Icon::Exclamation);
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
    context.services.progress.start("Checking duplicated files", static_cast<int>(records.size()));
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
                      "\r\nhas the same file name as\r\n\t.." + sep + records[j].folderName + sep +
                      records[j].fileName + "\r\n" + std::string(40, '-') + "\r\n";
            ++run.counts.errorCount;
        }
    }
    if (blocks.empty()) return;
    (void)context.services.fs.appendFile(
        joinPath(reportsFolder(context.paths), duplicatesReportName(run.testMode)), blocks);
}

}  // namespace rakeyard
