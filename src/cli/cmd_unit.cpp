// unit describe | consists: the description window's text and picture for a catalogued unit,
// and the consists that use it.
#include <cstdio>
#include <string>

#include "cli/commands.h"
#include "cli/unit_names.h"
#include "core/platform/paths.h"
#include "core/tools/consists_using.h"
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

// The catalogued unit a name on the command line means; nullptr, after saying why, when none.
const UnitRecord* namedUnit(CliContext& context, const std::string& name, bool& isEngine) {
    const NamedUnitResult found = findNamedUnit(context.state->catalogue, name);
    if (!found.ambiguity.empty()) {
        context.dialogs.report(found.ambiguity, Icon::Stop);
        return nullptr;
    }
    if (!found.unit) {
        context.dialogs.report("Unknown unit: " + name, Icon::Stop);
        return nullptr;
    }
    const UnitCatalogue& catalogue = context.state->catalogue;
    isEngine = found.unit->isEngine;
    return isEngine ? &catalogue.engines[found.unit->index] : &catalogue.wagons[found.unit->index];
}

}  // namespace

int runUnitConsists(CliContext& context, CommandArguments& arguments) {
    const std::vector<std::string> operands = arguments.operands();
    if (!arguments.error().empty()) return usageError(context, arguments.error());
    if (operands.size() != 1) return usageError(context, "unit consists takes one FILE");
    if (int status = context.startUp(); status != kExitDone) return status;
    bool isEngine = true;
    const UnitRecord* unit = namedUnit(context, operands[0], isEngine);
    if (!unit) return kExitFound;
    const std::vector<std::string> names =
        consistsUsingUnit(*unit, context.state->paths.consistsPath, context.fs);
    context.endProgress();
    if (context.options.json) {
        printJson(Json(names));
    } else {
        for (const std::string& name : names)
            std::printf("%s\n", name.c_str());
    }
    if (names.empty())
        context.dialogs.report("There are no consists using this unit!", Icon::Information);
    return kExitDone;
}

int runUnitDescribe(CliContext& context, CommandArguments& arguments) {
    const std::vector<std::string> operands = arguments.operands();
    if (!arguments.error().empty()) return usageError(context, arguments.error());
    if (operands.size() != 1) return usageError(context, "unit describe takes one FILE");
    if (int status = context.startUp(); status != kExitDone) return status;
    bool isEngine = true;
    const UnitRecord* found = namedUnit(context, operands[0], isEngine);
    if (!found) return kExitFound;
    const UnitRecord& unit = *found;
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
