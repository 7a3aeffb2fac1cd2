// catalogue engines | wagons: the main window's unit lists, or the records behind them.
#include <cstdio>
#include <span>
#include <string>
#include <vector>

#include "cli/cli_json.h"
#include "cli/commands.h"
#include "core/msts/unit_list.h"
#include "core/msts/unit_search.h"

namespace rakeyard::cli {
namespace {

void printCatalogueJson(std::span<const UnitRecord> records, bool engines,
                        const std::string& filter, const UnitSearch& search) {
    Json list = Json::array();
    for (const UnitRecord& record : records) {
        if ((engines ? engineShown(record, filter) : wagonShown(record, filter)) &&
            search.matches(record))
            list.push_back(catalogueRecordJson(record));
    }
    printJson(list);
}

// The list lines under the filter (the stored one unless --filter names another, which is not
// stored) and the words of --search, or with --json the records shown, in catalogue order.
int runCatalogue(CliContext& context, CommandArguments& arguments, bool engines) {
    const std::optional<std::string> filterOption = arguments.takeValue("--filter");
    const UnitSearch search(arguments.takeValue("--search").value_or(""));
    const std::vector<std::string> operands = arguments.operands();
    if (!arguments.error().empty()) return usageError(context, arguments.error());
    if (!operands.empty()) return usageError(context, "unexpected " + operands.front());
    if (int status = context.startUp(); status != kExitDone) return status;

    const PathGlobals& paths = context.state->paths;
    const std::string filter =
        filterOption ? *filterOption : (engines ? paths.engineFilter : paths.wagonFilter);
    const UnitCatalogue& catalogue = context.state->catalogue;
    const std::span<const UnitRecord> records =
        usedRecords(catalogue, engines ? UnitClass::Engine : UnitClass::Wagon);
    if (context.options.json) {
        printCatalogueJson(records, engines, filter, search);
        return kExitDone;
    }
    const UnitClass which = engines ? UnitClass::Engine : UnitClass::Wagon;
    for (const UnitListRow& row : unitListRows(records, which, filter))
        if (search.matches(records[row.record])) std::printf("%s\n", row.line.c_str());
    return kExitDone;
}

}  // namespace

int runCatalogueEngines(CliContext& context, CommandArguments& arguments) {
    return runCatalogue(context, arguments, true);
}

int runCatalogueWagons(CliContext& context, CommandArguments& arguments) {
    return runCatalogue(context, arguments, false);
}

}  // namespace rakeyard::cli
