// tools stats: the allocated space window without its window; --lists writes its lists.
#include <cstdio>
#include <string>

#include "cli/commands.h"
#include "core/tools/allocated_space.h"

namespace rakeyard::cli {
namespace {

void printRow(const char* heading, std::uint64_t bytes) {
    const std::string text = bytes == 0 ? "0" : thousandsText(bytes);
    std::printf("%-30s%20s bytes %15s MB\n", heading, text.c_str(), megabytesText(bytes).c_str());
}

void printTotals(const SpaceTotals& t) {
    std::printf("%-30s%20zu\n", "Locomotives found", t.engines);
    std::printf("%-30s%20zu\n", "Wagons found", t.wagons);
    std::printf("%-30s%20zu\n", "Consists found", t.consists);
    printRow("Space for Engines", t.engineFolderBytes());
    printRow("Engine totals", t.engineBytes);
    printRow("Cabview Totals", t.cabBytes);
    printRow("Sound Totals", t.soundBytes);
    printRow("Allocated space for wagons", t.wagonBytes);
    printRow("Allocated space for consists", t.consistBytes);
}

Json totalsJson(const SpaceTotals& t) {
    return Json{{"engines", t.engines},          {"wagons", t.wagons},
                {"consists", t.consists},        {"engineFolderBytes", t.engineFolderBytes()},
                {"engineBytes", t.engineBytes},  {"cabBytes", t.cabBytes},
                {"soundBytes", t.soundBytes},    {"wagonBytes", t.wagonBytes},
                {"consistBytes", t.consistBytes}};
}

}  // namespace

int runToolsStats(CliContext& context, CommandArguments& arguments) {
    const std::optional<std::string> lists = arguments.takeValue("--lists");
    const std::vector<std::string> operands = arguments.operands();
    if (!arguments.error().empty()) return usageError(context, arguments.error());
    if (!operands.empty()) return usageError(context, "unexpected " + operands.front());
    if (lists && *lists != "normal" && *lists != "spreadsheet" && *lists != "names")
        return usageError(context, "--lists takes normal, spreadsheet or names");
    if (int status = context.startUp(); status != kExitDone) return status;
    AppState& state = *context.state;
    const SpaceTotals totals =
        allocatedSpace(state.catalogue, state.paths, context.fs, context.progress);
    context.endProgress();
    if (context.options.json)
        printJson(totalsJson(totals));
    else
        printTotals(totals);
    if (!lists) return kExitDone;
    const ListForm form = *lists == "normal"        ? ListForm::CommaDelimited
                          : *lists == "spreadsheet" ? ListForm::Spreadsheet
                                                    : ListForm::FileNamesOnly;
    return writeUnitLists(state.catalogue, state.paths, form, context.services) ? kExitDone
                                                                                : kExitFound;
}

}  // namespace rakeyard::cli
