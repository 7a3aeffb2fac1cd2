// unit describe: the description window's text and picture for a catalogued unit.
#include <cstdio>
#include <string>

#include "cli/commands.h"
#include "cli/unit_names.h"
#include "core/platform/paths.h"
#include "core/tools/unit_description.h"
#include "core/tools/unit_picture.h"

namespace rakeyard::cli {
namespace {

// The text with its CR LF line ends as this platform's.
std::string plainLines(const std::string& text) {
    std::string lines;
    for (char c : text)
        if (c != '\r') lines += c;
    return lines;
}

}  // namespace

int runUnitDescribe(CliContext& context, CommandArguments& arguments) {
    const std::vector<std::string> operands = arguments.operands();
    if (!arguments.error().empty()) return usageError(context, arguments.error());
    if (operands.size() != 1) return usageError(context, "unit describe takes one FILE");
    if (int status = context.startUp(); status != kExitDone) return status;
    const NamedUnitResult found = findNamedUnit(context.state->catalogue, operands[0]);
    if (!found.ambiguity.empty()) return usageError(context, found.ambiguity);
    if (!found.unit) {
        context.dialogs.report("Unknown unit: " + operands[0], Icon::Stop);
        return kExitFound;
    }
    const UnitCatalogue& catalogue = context.state->catalogue;
    const UnitRecord& unit = found.unit->isEngine ? catalogue.engines[found.unit->index]
                                                  : catalogue.wagons[found.unit->index];
    const std::string text =
        describeUnitFile(joinPath(unit.folderPath, unit.fileName), context.services);
    const std::string picture = descriptionPicture(context.fs, unit);
    context.endProgress();
    if (context.options.json) {
        printJson(
            Json{{"fileName", unit.fileName}, {"text", plainLines(text)}, {"picture", picture}});
    } else {
        std::printf("%s\n", plainLines(text).c_str());
        std::printf("Picture: %s\n", picture.empty() ? "(none)" : picture.c_str());
    }
    return kExitDone;
}

}  // namespace rakeyard::cli
