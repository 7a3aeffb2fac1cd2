#include "core/consist/consist_writer.h"

#include <algorithm>

#include "core/consist/consist_model.h"
#include "core/consist/editing.h"
#include "core/consist/image_keys.h"
#include "core/msts/msts_text.h"
#include "core/platform/file_names.h"
#include "core/platform/paths.h"
#include "core/platform/text_utf.h"

namespace rakeyard {

namespace {

std::string withoutExtension(const std::string& fileName) {
    const std::size_t length = utf8Length(fileName);
    return length < 4 ? std::string() : utf8Left(fileName, length - 4);
}

ConsistWord wordOf(const std::string& text, std::string_view specials) {
    return {text, text.find_first_of(specials) != std::string::npos};
}

// A slot's unit as the file gives it. An engine's words are quoted for a blank or a
// parenthesis, a wagon's for a blank only; an engine's block holds Flip and UiD before its data.
ConsistFileUnit fileUnitOf(const ConsistSlot& slot) {
    const bool isEngine = isEngineType(slot.unitType);
    const std::string_view specials = isEngine ? " ()" : " ";
    ConsistFileUnit unit;
    unit.isEngine = isEngine;
    unit.file = wordOf(withoutExtension(slot.fileName), specials);
    unit.folder = wordOf(slot.folderName, specials);
    unit.uid = std::to_string(wholeNumber(slot.uid));
    unit.flipped = slot.flipped;
    unit.uidBeforeData = isEngine;
    unit.flipFirst = isEngine;
    return unit;
}

ConsistFileHeader fileHeaderOf(const ConsistState& state) {
    const ConsistHeader& boxes = state.header;
    ConsistFileHeader header;
    header.trainCfg = wordOf(boxes.fileName, " ");
    header.name = boxes.name;
    header.serial = boxes.serial.empty() ? "1" : boxes.serial;
    header.maxVelocity = state.calculatedMaxVelocity;
    if (header.maxVelocity.empty())
        header.maxVelocity = boxes.maxVelocity.empty() ? "40.00000 1.00000" : boxes.maxVelocity;
    header.nextWagonUid = std::to_string(nextWagonUid(state));
    header.durability = boxes.durability.empty() ? "1.00000" : boxes.durability;
    return header;
}

bool isEmptyConsist(const ConsistState& state) {
    return std::all_of(state.slots.begin(), state.slots.begin() + kUsedSlots,
                       [](const ConsistSlot& s) { return s.displayName.empty(); });
}

// Every unit is moved forward over the empty slots in front of it, one left shift per empty
// slot seen; true when there was a gap.
bool closeGaps(ConsistState& state) {
    bool gapFound = false;
    for (int i = kUsedSlots - 1; i >= 0; --i) {
        if (state.slots[i].displayName.empty()) continue;
        for (int j = i; j >= 0; --j) {
            if (!state.slots[j].displayName.empty()) continue;
            shiftUnits(state, 0);
            gapFound = true;
        }
    }
    return gapFound;
}

bool hasMissingUnit(const ConsistState& state) {
    return std::any_of(state.slots.begin(), state.slots.begin() + kUsedSlots,
                       [](const ConsistSlot& s) { return s.imageKey == "NOTFOUND"; });
}

}  // namespace

long long nextWagonUid(const ConsistState& state) {
    long long next = 0;
    for (int i = 0; i < kUsedSlots; ++i) {
        next = std::max(next, wholeNumber(state.slots[i].uid));
        if (state.slots[i].displayName.empty()) return next + 1;
    }
    return next;
}

ConsistFile consistFileOf(const ConsistState& state) {
    ConsistFile file;
    file.header = fileHeaderOf(state);
    for (int i = 0; i < kUsedSlots && !state.slots[i].unitType.empty(); ++i)
        file.units.push_back(fileUnitOf(state.slots[i]));
    return file;
}

std::string consistFileBytes(const ConsistState& state) {
    return writeConsistFile(consistFileOf(state));
}

SaveResult saveConsist(const ConsistContext& app, Services& services) {
    ConsistState& state = app.consist;
    Dialogs& dialogs = services.dialogs;
    if (isEmptyConsist(state)) {
        dialogs.report("The consist is empty!", Icon::Exclamation);
        return {SaveOutcome::Refused, {}};
    }
    if (closeGaps(state)) {
        dialogs.report("This consist contained gaps and one or more units had to be shifted!",
                       Icon::Exclamation);
    }
    const std::string& fileName = state.header.fileName;
    if (fileName.empty()) {
        dialogs.report("You must provide a file name for this consist!", Icon::Exclamation);
        return {SaveOutcome::Refused, {}};
    }
    std::string problem = fileNameProblem(fileName);
    if (problem.empty()) problem = fileNameProblem(fileName + ".con");
    if (!problem.empty()) {
        dialogs.report("\"" + fileName + "\" cannot be the name of a consist file.\n" + problem,
                       Icon::Exclamation);
        return {SaveOutcome::Refused, {}};
    }
    const std::string path =
        services.fs.resolve(joinPath(app.paths.consistsPath, fileName + ".con"));
    if (services.fs.fileSize(path).value_or(0) > 0 &&
        dialogs.ask("Overwrite this consist?\n" + path, Buttons::YesNo, Icon::Question,
                    Answer::No) != Answer::Yes)
        return {SaveOutcome::Declined, {}};
    if (hasMissingUnit(state)) {
        dialogs.report(
            "This consist contains unit(s) not found!\n"
            "You must erase it from the consist before saving.",
            Icon::Exclamation);
        return {SaveOutcome::Refused, {}};
    }

    const bool wasChanged = state.consistChanged;
    state.consistChanged = false;
    const WriteResult written = services.fs.writeFile(path, consistFileBytes(state));
    if (!written) {
        state.consistChanged = wasChanged;
        dialogs.report("The consist could not be saved:\n" + written.message, Icon::Stop);
        return {SaveOutcome::Failed, {}};
    }
    return {SaveOutcome::Saved, path};
}

SaveResult saveConsistAs(const ConsistContext& app, Services& services, std::string_view name) {
    std::string kept = std::move(app.consist.header.fileName);
    app.consist.header.fileName = std::string(name);
    SaveResult saved = saveConsist(app, services);
    if (!saved) app.consist.header.fileName = std::move(kept);
    return saved;
}

}  // namespace rakeyard
