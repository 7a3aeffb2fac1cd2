// tools random: the random consist window without its window. The wagons named are ticked in
// the list of the coupler and type given; the train goes into the editor, is shown and may be
// saved.
#include <string>
#include <vector>

#include "cli/commands.h"
#include "core/platform/text_utf.h"
#include "core/tools/random_consist.h"

namespace rakeyard::cli {
namespace {

// The catalogue indices of the list's lines that the names tick (file names with or without
// ".wag", any case); -1 for a name the list does not show.
std::vector<int> tickedWagons(const UnitCatalogue& catalogue, const std::vector<std::string>& lines,
                              const std::vector<std::string>& names, std::string& unknown) {
    std::vector<int> ticked;
    const auto wagons = usedRecords(catalogue, UnitClass::Wagon);
    std::vector<bool> named(names.size(), false);
    for (const std::string& line : lines) {
        const int index = wagonIndexOfLine(line);
        const std::string file = upperAscii(wagons[index].fileName);
        for (std::size_t n = 0; n < names.size(); ++n) {
            const std::string name = upperAscii(names[n]);
            if (file == name || file == name + ".WAG") {
                ticked.push_back(index);
                named[n] = true;
                break;
            }
        }
    }
    for (std::size_t n = 0; n < names.size(); ++n)
        if (!named[n] && unknown.empty()) unknown = names[n];
    return ticked;
}

}  // namespace

int runToolsRandom(CliContext& context, CommandArguments& arguments) {
    const auto coupler = arguments.takeValue("--coupler");
    const auto type = arguments.takeValue("--type");
    const auto count = arguments.takeValue("--count");
    const auto saveName = arguments.takeValue("--save");
    const bool all = arguments.takeFlag("--all");
    const std::vector<std::string> names = arguments.operands();
    if (!arguments.error().empty()) return usageError(context, arguments.error());
    if (!coupler || (*coupler != "A" && *coupler != "B" && *coupler != "C"))
        return usageError(context, "--coupler takes A, B or C");
    if (!type || (*type != "Freight" && *type != "Carriage"))
        return usageError(context, "--type takes Freight or Carriage");
    if (!count) return usageError(context, "--count N is needed");
    if (all == !names.empty()) return usageError(context, "name the wagons to use, or say --all");
    if (int status = context.startUp(); status != kExitDone) return status;

    AppState& state = *context.state;
    const std::vector<std::string> lines = randomWagonLines(state.catalogue, *coupler, *type);
    std::vector<int> ticked;
    if (all) {
        for (const std::string& line : lines)
            ticked.push_back(wagonIndexOfLine(line));
    } else {
        std::string unknown;
        ticked = tickedWagons(state.catalogue, lines, names, unknown);
        if (!unknown.empty()) {
            context.dialogs.report("\"" + unknown + "\" is not in the list of " + *type +
                                       " wagons with coupler " + *coupler + ".",
                                   Icon::Stop);
            return kExitFound;
        }
    }
    RandomSource random;
    const std::vector<int> train = getRandomWagons(ticked, *count, random, context.dialogs);
    context.endProgress();
    if (train.empty()) {
        context.dialogs.report("No train was made.", Icon::Exclamation);
        return kExitFound;
    }
    transferConsist(state.consist, state.catalogue, train, *type);
    if (context.options.json)
        printJson(consistJson(state.consist));
    else
        printConsist(state.consist);
    return saveName ? saveAs(context, *saveName) : kExitDone;
}

}  // namespace rakeyard::cli
