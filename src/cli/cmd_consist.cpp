// consist show | copy | new: the consist editor without its window.
#include <cstdio>
#include <string>
#include <vector>

#include "cli/cli_json.h"
#include "cli/commands.h"
#include "cli/unit_names.h"
#include "core/consist/consist_model.h"
#include "core/consist/consist_reader.h"
#include "core/consist/consist_writer.h"
#include "core/consist/editing.h"

namespace rakeyard::cli {

LoadOutcome loadNamedConsist(CliContext& context, const std::string& argument) {
    AppState& state = *context.state;
    const std::string path = consistPathOf(context.fs, state.paths, argument);
    if (!context.fs.isFile(path)) {
        context.dialogs.report("There is no consist file " + path, Icon::Stop);
        return LoadOutcome::Failed;
    }
    clearAll(state.consist);
    state.consist.consistToLoad = path;
    return loadConsistFile(state, context.services);
}

namespace {

// The slots that hold a unit, 0..299.
std::vector<int> usedSlots(const ConsistState& consist) {
    std::vector<int> used;
    for (int i = 0; i < kUsedSlots; ++i) {
        if (!consist.slots[i].displayName.empty()) used.push_back(i);
    }
    return used;
}

std::string padded(std::string text, std::size_t width) {
    if (text.size() < width) text.resize(width, ' ');
    return text;
}

// Prints the warnings the main window would blink in Label2.
void printPendingWarning(CliContext& context) {
    std::string& warning = context.state->consist.pendingWarning;
    if (warning.empty()) return;
    context.dialogs.report(warning, Icon::Exclamation);
    warning.clear();
}

}  // namespace

Json consistJson(const ConsistState& consist) {
    const ConsistTotals& totals = consist.totals;
    Json slots = Json::array();
    for (int i : usedSlots(consist)) {
        Json slot{{"index", i}};
        slot.update(slotJson(consist.slots[i]));
        slots.push_back(std::move(slot));
    }
    return Json{{"fileName", consist.header.fileName},
                {"name", consist.header.name},
                {"maxVelocity", consist.header.maxVelocity},
                {"durability", consist.header.durability},
                {"serial", consist.header.serial},
                {"length", totals.length},
                {"feet", totals.feet},
                {"mass", totals.mass},
                {"impTons", totals.impTons},
                {"wagons", totals.wagons},
                {"slots", std::move(slots)}};
}

void printConsist(const ConsistState& consist) {
    const ConsistTotals& totals = consist.totals;
    std::string text;
    text += "File name:    " + consist.header.fileName + "\n";
    text += "Name:         " + consist.header.name + "\n";
    text += "Max velocity: " + consist.header.maxVelocity + "\n";
    text += "Durability:   " + consist.header.durability + "\n";
    text += "Serial:       " + consist.header.serial + "\n";
    text += "Length:       " + totals.length + " m, " + totals.feet + " ft\n";
    text += "Mass:         " + totals.mass + " t, " + totals.impTons + " imperial tons\n";
    text += "Wagons:       " + totals.wagons + "\n";
    text += "Slot  UiD    Flip  Type      Couplers  Unit\n";
    for (int i : usedSlots(consist)) {
        const ConsistSlot& slot = consist.slots[i];
        const std::string unit =
            slot.fileName.empty() ? slot.displayName + " (not installed)"
                                  : slot.folderName + "/" + slot.fileName + "  " + slot.displayName;
        text += padded(std::to_string(i), 6) +
                padded(singleText(slot.uid), 7) +  // as the UiD box shows it
                padded(slot.flipped ? "yes" : "", 6) + padded(slot.unitType, 10) +
                padded("[" + slot.couplerFront + slot.couplerRear + "]", 10) + unit + "\n";
    }
    std::fputs(text.c_str(), stdout);
}

int saveAs(CliContext& context, const std::string& name) {
    context.state->consist.header.fileName = consistFileBoxText(name);
    const SaveResult saved = saveConsist(*context.state, context.services);
    if (saved.outcome == SaveOutcome::Declined)
        context.dialogs.report("The consist was not saved: nothing was written.",
                               Icon::Exclamation);
    return saved ? kExitDone : kExitFound;
}

int runConsistShow(CliContext& context, CommandArguments& arguments) {
    const std::vector<std::string> operands = arguments.operands();
    if (!arguments.error().empty()) return usageError(context, arguments.error());
    if (operands.size() != 1) return usageError(context, "consist show takes one FILE");
    if (int status = context.startUp(); status != kExitDone) return status;
    const LoadOutcome loaded = loadNamedConsist(context, operands[0]);
    if (loaded != LoadOutcome::Loaded && loaded != LoadOutcome::Incomplete) return kExitFound;
    if (context.options.json) {
        printJson(consistJson(context.state->consist));
    } else {
        printConsist(context.state->consist);
    }
    return loaded == LoadOutcome::Loaded ? kExitDone : kExitFound;
}

int runConsistCopy(CliContext& context, CommandArguments& arguments) {
    const std::vector<std::string> operands = arguments.operands();
    if (!arguments.error().empty()) return usageError(context, arguments.error());
    if (operands.size() != 2) return usageError(context, "consist copy takes FILE and NAME");
    if (int status = context.startUp(); status != kExitDone) return status;
    const LoadOutcome loaded = loadNamedConsist(context, operands[0]);
    if (loaded == LoadOutcome::Incomplete)
        context.dialogs.report("Nothing was written: a copy would lose what was not loaded.",
                               Icon::Stop);
    if (loaded != LoadOutcome::Loaded) return kExitFound;
    return saveAs(context, operands[1]);
}

int runConsistNew(CliContext& context, CommandArguments& arguments) {
    const std::vector<std::string> operands = arguments.operands();
    if (!arguments.error().empty()) return usageError(context, arguments.error());
    if (operands.size() < 2) return usageError(context, "consist new takes NAME and UNIT...");
    if (int status = context.startUp(); status != kExitDone) return status;

    AppState& state = *context.state;
    std::vector<NamedUnit> units;
    for (auto name = operands.begin() + 1; name != operands.end(); ++name) {
        const NamedUnitResult found = findNamedUnit(state.catalogue, *name);
        if (!found.ambiguity.empty()) return usageError(context, found.ambiguity);
        if (!found.unit) {
            context.dialogs.report("Unknown unit: " + *name, Icon::Stop);
            return kExitFound;
        }
        units.push_back(*found.unit);
    }
    clearAll(state.consist);
    for (const NamedUnit& unit : units) {
        const auto records =
            usedRecords(state.catalogue, unit.isEngine ? UnitClass::Engine : UnitClass::Wagon);
        addCatalogueUnit(state.consist, records[unit.index], unit.isEngine);
        printPendingWarning(context);
    }
    return saveAs(context, operands[0]);
}

}  // namespace rakeyard::cli
