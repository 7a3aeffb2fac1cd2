// test engines|wagons|consists: the tester's run without its window.
#include <cstdio>
#include <string>
#include <vector>

#include "cli/cli_json.h"
#include "cli/commands.h"
#include "core/platform/paths.h"
#include "core/platform/text_utf.h"
#include "core/tester/reports.h"
#include "core/tester/test_run.h"

namespace rakeyard::cli {
namespace {

// The file name of a row, as NAME gives it: any case, the extension may be left out. A consist
// may be named by its path: its file name counts.
bool rowNames(std::string_view row, std::string name, TestSection section) {
    const std::string file = upperAscii(row.substr(row.rfind('^') + 1));
    if (section == TestSection::Consists) {
        const std::size_t cut = name.find_last_of("/\\");
        if (cut != std::string::npos) name.erase(0, cut + 1);
    }
    const std::string wanted = upperAscii(name);
    const std::string_view extension = section == TestSection::Engines  ? ".ENG"
                                       : section == TestSection::Wagons ? ".WAG"
                                                                        : ".CON";
    return file == wanted || file == wanted + std::string(extension);
}

// The failed consists' names in consist mode; none for units.
const std::vector<std::string>& failedNames(const TestRun& run) {
    static const std::vector<std::string> none;
    return run.section == TestSection::Consists ? run.testedSounds : none;
}

void printCounts(const TestRun& run, const std::vector<std::string>& reports,
                 const std::string& folder) {
    const TestCounts& counts = run.counts;
    std::printf("Files tested: %lld\nErrors: %lld\nMinor: %lld\nSerious: %lld\nCritical: %lld\n",
                counts.filesTested, counts.errorCount, counts.levels[0], counts.levels[1],
                counts.levels[2]);
    for (std::size_t i = 0; i < kCategoryNames.size(); ++i)
        std::printf("%s: %lld\n", std::string(kCategoryNames[i]).c_str(), counts.categories[i]);
    for (const std::string& name : failedNames(run))
        std::printf("Failed: %s\n", name.c_str());
    for (const std::string& report : reports)
        std::printf("Report: %s\n", joinPath(folder, report).c_str());
}

void printCountsJson(const TestRun& run, const std::vector<std::string>& reports,
                     const std::string& folder) {
    const TestCounts& counts = run.counts;
    Json categories = Json::object();
    for (std::size_t i = 0; i < kCategoryNames.size(); ++i)
        categories[std::string(kCategoryNames[i])] = counts.categories[i];
    Json written = Json::array();
    for (const std::string& report : reports)
        written.push_back(joinPath(folder, report));
    printJson(Json{{"filesTested", counts.filesTested},
                   {"errors", counts.errorCount},
                   {"minor", counts.levels[0]},
                   {"serious", counts.levels[1]},
                   {"critical", counts.levels[2]},
                   {"categories", categories},
                   {"failed", failedNames(run)},
                   {"reports", written}});
}

// Tests the rows named (all rows when none), as "Start test" does with those rows selected and
// the options as the window's boxes allow them in the section. Status 1 when anything was found.
int runTest(CliContext& context, CommandArguments& arguments, TestSection section) {
    const std::optional<std::string> filterOption = arguments.takeValue("--filter");
    const bool cabViews = arguments.takeFlag("--cab");
    const bool sounds = arguments.takeFlag("--sound");
    const bool duplicates = arguments.takeFlag("--duplicates");
    const std::vector<std::string> names = arguments.operands();
    if (!arguments.error().empty()) return usageError(context, arguments.error());
    const bool consists = section == TestSection::Consists;
    if (cabViews && section != TestSection::Engines)
        return usageError(context, "--cab tests the cab views of engines only");
    if (consists && (sounds || duplicates || filterOption))
        return usageError(context, "consists are tested without --sound, --duplicates or --filter");
    if (int status = context.startUp(); status != kExitDone) return status;

    const PathGlobals& paths = context.state->paths;
    const std::string filter = filterOption.value_or(
        section == TestSection::Wagons ? paths.wagonFilter : paths.engineFilter);
    NoYield host;
    const TestContext test{paths, context.state->catalogue, context.services, host};
    TestRun run;
    (void)fillSection(run, test, section, filter);
    run.cabViews = cabViews;
    run.sounds = sounds;
    run.duplicates = duplicates;
    selectAllRows(run, names.empty());
    for (const std::string& name : names) {
        bool found = false;
        for (std::size_t i = 0; i < run.rows.size(); ++i) {
            if (!rowNames(run.rows[i], name, section)) continue;
            run.selected[i] = 1;
            found = true;
        }
        if (found) continue;
        if (consists) return usageError(context, "no consist " + name + " in the Consists folder");
        return usageError(context, std::string(section == TestSection::Engines ? "no engine "
                                                                               : "no wagon ") +
                                       name + " under the filter " + filter);
    }
    (void)runTests(run, test);
    context.endProgress();
    const std::vector<std::string> reports =
        existingReports(paths, context.services.fs, testModeOf(section));
    const std::string folder = context.services.fs.resolve(reportsFolder(paths));
    if (context.options.json) {
        printCountsJson(run, reports, folder);
    } else {
        printCounts(run, reports, folder);
    }
    return run.counts.errorCount > 0 ? kExitFound : kExitDone;
}

}  // namespace

int runTestEngines(CliContext& context, CommandArguments& arguments) {
    return runTest(context, arguments, TestSection::Engines);
}
int runTestWagons(CliContext& context, CommandArguments& arguments) {
    return runTest(context, arguments, TestSection::Wagons);
}
int runTestConsists(CliContext& context, CommandArguments& arguments) {
    return runTest(context, arguments, TestSection::Consists);
}

}  // namespace rakeyard::cli
