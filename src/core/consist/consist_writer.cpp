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

constexpr std::string_view kHeaderLine = "SIMISA@@@@@@@@@@JINX0D0t______";
constexpr std::string_view kEnd = "\r\n";

std::string quotedIf(const std::string& word, std::string_view specials) {
    if (word.find_first_of(specials) == std::string::npos) return word;
    return '"' + word + '"';
}

std::string withoutExtension(const std::string& fileName) {
    const std::size_t length = utf8Length(fileName);
    return length < 4 ? std::string() : utf8Left(fileName, length - 4);
}

std::string uidLine(const ConsistSlot& slot) {
    return "\t\t\tUiD ( " + std::to_string(wholeNumber(slot.uid)) + " )\r\n";
}

// An engine's words are quoted for a blank or a parenthesis, a wagon's for a blank only.
std::string unitBlock(const ConsistSlot& slot) {
    std::string block;
    if (isEngineType(slot.unitType)) {
        const std::string file = quotedIf(withoutExtension(slot.fileName), " ()");
        const std::string folder = quotedIf(slot.folderName, " ()");
        block += "\t\tEngine (\r\n";
        if (slot.flipped) block += "\t\t\tFlip ( )\r\n";
        block += uidLine(slot);
        block += "\t\t\tEngineData ( " + file + " " + folder + " )\r\n";
    } else {
        const std::string file = quotedIf(withoutExtension(slot.fileName), " ");
        const std::string folder = quotedIf(slot.folderName, " ");
        block += "\t\tWagon (\r\n";
        block += "\t\t\tWagonData ( " + file + " " + folder + " )\r\n";
        block += uidLine(slot);
        if (slot.flipped) block += "\t\t\tFlip ( )\r\n";
    }
    block += "\t\t)\r\n";
    return block;
}

std::string headerText(const ConsistState& state) {
    const ConsistHeader& header = state.header;
    std::string maxVelocity = state.calculatedMaxVelocity;
    if (maxVelocity.empty())
        maxVelocity = header.maxVelocity.empty() ? "40.00000 1.00000" : header.maxVelocity;

    std::string text(kHeaderLine);
    text += "\r\n\r\nTrain (\r\n";
    text += "\tTrainCfg ( " + quotedIf(header.fileName, " ") + "\r\n";
    if (!header.name.empty()) text += "\t\tName ( \"" + header.name + "\" )\r\n";
    text += "\t\tSerial ( " + (header.serial.empty() ? std::string("1") : header.serial) + " )\r\n";
    text += "\t\tMaxVelocity ( " + maxVelocity + " )\r\n";
    text += "\t\tNextWagonUID ( " + std::to_string(nextWagonUid(state)) + " )\r\n";
    text += "\t\tDurability ( " +
            (header.durability.empty() ? std::string("1.00000") : header.durability) + " )";
    text += kEnd;
    return text;
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

std::string consistFileBytes(const ConsistState& state) {
    std::string text = headerText(state);
    for (int i = 0; i < kUsedSlots && !state.slots[i].unitType.empty(); ++i)
        text += unitBlock(state.slots[i]);
    text += "\t)\r\n)";

    return encodeMstsText(toUtf16(text));
}

SaveResult saveConsist(const ConsistContext& app, Services& services) {
    ConsistState& state = app.consist;
    Dialogs& dialogs = services.dialogs;
    if (isEmptyConsist(state)) {
        dialogs.report("The consist is empty!", Icon::Exclamation);
        return {SaveOutcome::Refused};
    }
    if (closeGaps(state)) {
        dialogs.report("This consist contained gaps and one or more units had to be shifted!",
                       Icon::Exclamation);
    }
    const std::string& fileName = state.header.fileName;
    if (fileName.empty()) {
        dialogs.report("You must provide a file name for this consist!", Icon::Exclamation);
        return {SaveOutcome::Refused};
    }
    std::string problem = fileNameProblem(fileName);
    if (problem.empty()) problem = fileNameProblem(fileName + ".con");
    if (!problem.empty()) {
        dialogs.report("\"" + fileName + "\" cannot be the name of a consist file.\n" + problem,
                       Icon::Exclamation);
        return {SaveOutcome::Refused};
    }
    const std::string path =
        services.fs.resolve(joinPath(app.paths.consistsPath, fileName + ".con"));
    if (services.fs.fileSize(path).value_or(0) > 0 &&
        dialogs.ask("Overwrite this consist?", Buttons::YesNo, Icon::Question, Answer::No) !=
            Answer::Yes)
        return {SaveOutcome::Declined};
    if (hasMissingUnit(state)) {
        dialogs.report(
            "This consist contains unit(s) not found!\n"
            "You must erase it from the consist before saving.",
            Icon::Exclamation);
        return {SaveOutcome::Refused};
    }

    const bool wasChanged = state.consistChanged;
    state.consistChanged = false;
    const WriteResult written = services.fs.writeFile(path, consistFileBytes(state));
    if (!written) {
        state.consistChanged = wasChanged;
        dialogs.report("The consist could not be saved:\n" + written.message, Icon::Stop);
        return {SaveOutcome::Failed};
    }
    return {SaveOutcome::Saved};
}

}  // namespace rakeyard
