// tools maxvelocity: the maximum velocity calculator without its window.
#include <cstdio>
#include <string>
#include <vector>

#include "cli/cli_json.h"
#include "cli/commands.h"
#include "core/tools/max_velocity.h"

namespace rakeyard::cli {
namespace {

void printBoxes(const MaxVelocityBoxes& boxes) {
    std::printf("Maximum expected speed: %s mph, %s Km/h\n", boxes.mphMax.c_str(),
                boxes.kmhMax.c_str());
    std::printf("Minimum expected speed: %s mph, %s Km/h\n", boxes.mphMin.c_str(),
                boxes.kmhMin.c_str());
    std::printf("Efficiency factor:      %s\n", boxes.efficiency.c_str());
    std::printf("MaxVelocity ( %s )\n", usedMaxVelocity(boxes).c_str());
}

Json boxesJson(const MaxVelocityBoxes& boxes) {
    return Json{{"mphMax", boxes.mphMax},         {"kmhMax", boxes.kmhMax},
                {"mphMin", boxes.mphMin},         {"kmhMin", boxes.kmhMin},
                {"efficiency", boxes.efficiency}, {"maxVelocity", usedMaxVelocity(boxes)}};
}

// The consist takes the two numbers as "Use values" hands them, and is saved in its place.
int applyTo(CliContext& context, const std::string& consist, const MaxVelocityBoxes& boxes) {
    const LoadOutcome loaded = loadNamedConsist(context, consist);
    if (loaded == LoadOutcome::Incomplete)
        context.dialogs.report("Nothing was written: a save would lose what was not loaded.",
                               Icon::Stop);
    if (loaded != LoadOutcome::Loaded) return kExitFound;
    context.state->consist.calculatedMaxVelocity = usedMaxVelocity(boxes);
    return saveAs(context, context.state->consist.header.fileName);
}

}  // namespace

int runToolsMaxVelocity(CliContext& context, CommandArguments& arguments) {
    const bool mph = arguments.takeFlag("--mph");
    const bool kmh = arguments.takeFlag("--kmh");
    const std::optional<std::string> efficiency = arguments.takeValue("--efficiency");
    const std::optional<std::string> consist = arguments.takeValue("--apply");
    const std::vector<std::string> operands = arguments.operands();
    if (!arguments.error().empty()) return usageError(context, arguments.error());
    if (mph == kmh) return usageError(context, "say one of --mph and --kmh");
    if (operands.size() != 2) return usageError(context, "tools maxvelocity takes MAX and MIN");
    if (int status = context.startUp(); status != kExitDone) return status;

    // The speeds are typed as in the window: the boxes of the unit said are the ones last typed.
    MaxVelocityBoxes boxes = openMaxVelocity("");
    if (efficiency) boxes.efficiency = *efficiency;
    (mph ? boxes.mphMax : boxes.kmhMax) = operands[0];
    (mph ? boxes.mphMin : boxes.kmhMin) = operands[1];
    boxes.lastMaxBox = mph ? "mphmax" : "kmhmax";
    boxes.lastMinBox = mph ? "mphmin" : "kmhmin";
    const bool calculated = calculateMaxVelocity(boxes, context.dialogs);
    context.endProgress();
    if (context.options.json)
        printJson(boxesJson(boxes));
    else
        printBoxes(boxes);
    if (!calculated) return kExitFound;
    return consist ? applyTo(context, *consist, boxes) : kExitDone;
}

}  // namespace rakeyard::cli
