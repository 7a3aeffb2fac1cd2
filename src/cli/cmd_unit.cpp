// unit edit | describe | consists: the unit parameter editors, the description window's text and
// picture for a catalogued unit, and the consists that use it.
#include <cstdio>
#include <string>

#include "cli/commands.h"
#include "cli/unit_names.h"
#include "core/consist/unit_edit.h"
#include "core/msts/unit_list.h"
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
UnitRecord* namedUnit(CliContext& context, const std::string& name, bool& isEngine) {
    const NamedUnitResult found = findNamedUnit(context.state->catalogue, name);
    if (!found.ambiguity.empty()) {
        context.dialogs.report(found.ambiguity, Icon::Stop);
        return nullptr;
    }
    if (!found.unit) {
        context.dialogs.report("Unknown unit: " + name, Icon::Stop);
        return nullptr;
    }
    UnitCatalogue& catalogue = context.state->catalogue;
    isEngine = found.unit->isEngine;
    return isEngine ? &catalogue.engines[found.unit->index] : &catalogue.wagons[found.unit->index];
}

}  // namespace

// Options left out keep the values the editor would show; a coupling is A, B or C.
int runUnitEdit(CliContext& context, CommandArguments& arguments) {
    const auto name = arguments.takeValue("--name");
    const auto front = arguments.takeValue("--front");
    const auto rear = arguments.takeValue("--rear");
    const auto power = arguments.takeValue("--power");
    const auto mass = arguments.takeValue("--mass");
    const std::vector<std::string> operands = arguments.operands();
    if (!arguments.error().empty()) return usageError(context, arguments.error());
    if (operands.size() != 1) return usageError(context, "unit edit takes one FILE");
    for (const auto* coupler : {&front, &rear})
        if (*coupler && couplerText(**coupler).empty())
            return usageError(context, "a coupling is A, B or C");
    for (const auto* number : {&power, &mass})
        if (*number && (number->value().empty() ||
                        number->value().find_first_not_of("0123456789") != std::string::npos))
            return usageError(context, "--power and --mass take digits only");
    if (int status = context.startUp(); status != kExitDone) return status;
    bool isEngine = true;
    UnitRecord* found = namedUnit(context, operands[0], isEngine);
    if (!found) return kExitFound;
    if ((isEngine && mass) || (!isEngine && power))
        return usageError(context, isEngine ? "an engine has --power, not --mass"
                                            : "a wagon has --mass, not --power");
    UnitRecord& unit = *found;
    UnitEdit edit = editOfUnit(unit, isEngine);
    if (name) edit.name = *name;
    if (front) edit.front = couplerText(*front);
    if (rear) edit.rear = couplerText(*rear);
    if (power) edit.value = *power;
    if (mass) edit.value = *mass;
    const UnitEditOutcome outcome = isEngine ? writeToEngFile(unit, edit, context.services)
                                             : writeToWagFile(unit, edit, context.services);
    context.endProgress();
    if (context.options.json)
        printJson(catalogueRecordJson(unit));
    else
        std::printf("%s\n", unitListLine(unit, isEngine).c_str());
    return outcome == UnitEditOutcome::Written ? kExitDone : kExitFound;
}

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
