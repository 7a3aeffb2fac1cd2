// test engines: the tester's run without its window.
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

// The file name of a row, as NAME gives it: any case, ".eng" may be left out.
bool rowNamesUnit(std::string_view row, const std::string& name) {
    const std::string file = upperAscii(row.substr(row.rfind('^') + 1));
    const std::string wanted = upperAscii(name);
    return file == wanted || file == wanted + ".ENG";
}

void printCounts(const TestRun& run, const std::vector<std::string>& reports,
                 const std::string& folder) {
    const TestCounts& counts = run.counts;
    std::printf("Files tested: %lld\nErrors: %lld\nMinor: %lld\nSerious: %lld\nCritical: %lld\n",
                counts.filesTested, counts.errorCount, counts.levels[0], counts.levels[1],
                counts.levels[2]);
    for (std::size_t i = 0; i < kCategoryNames.size(); ++i)
        std::printf("%s: %lld\n", std::string(kCategoryNames[i]).c_str(), counts.categories[i]);
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
                   {"failed", run.failed},
                   {"reports", written}});
}

}  // namespace

// Tests the engines named (all shown under the filter when none), as "Start test" does with
// those rows selected. Status 1 when anything was found.
int runTestEngines(CliContext& context, CommandArguments& arguments) {
    const std::optional<std::string> filterOption = arguments.takeValue("--filter");
    const bool duplicates = arguments.takeFlag("--duplicates");
    const std::vector<std::string> names = arguments.operands();
    if (!arguments.error().empty()) return usageError(context, arguments.error());
    if (int status = context.startUp(); status != kExitDone) return status;

    const PathGlobals& paths = context.state->paths;
    const std::string filter = filterOption.value_or(paths.engineFilter);
    NoYield host;
    const TestContext test{paths, context.state->catalogue, context.services, host};
    TestRun run;
    (void)fillSection(run, test, TestSection::Engines, filter);
    run.duplicates = duplicates;
    selectAllRows(run, names.empty());
    for (const std::string& name : names) {
        bool found = false;
        for (std::size_t i = 0; i < run.rows.size(); ++i) {
            if (!rowNamesUnit(run.rows[i], name)) continue;
            run.selected[i] = 1;
            found = true;
        }
        if (!found) return usageError(context, "no engine " + name + " under the filter " + filter);
    }
    (void)runTests(run, test);
    context.endProgress();
    const std::vector<std::string> reports = existingReports(paths, context.services.fs, "eng");
    const std::string folder = context.services.fs.resolve(reportsFolder(paths));
    if (context.options.json) {
        printCountsJson(run, reports, folder);
    } else {
        printCounts(run, reports, folder);
    }
    return run.counts.errorCount > 0 ? kExitFound : kExitDone;
}

}  // namespace rakeyard::cli
