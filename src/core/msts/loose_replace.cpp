#include "core/msts/loose_replace.h"

#include <algorithm>
#include <map>

#include "core/msts/file_lookup.h"
#include "core/msts/find_unit.h"
#include "core/msts/msts_text.h"
#include "core/msts/route_files.h"
#include "core/platform/paths.h"
#include "core/platform/text_utf.h"
#include "core/settings/work_files.h"

namespace rakeyard {

namespace {

// A unit line to be written: unit k of consist n becomes the unit of the catalogue entry.
struct PendingLine {
    std::size_t n = 0, k = 0;
    const UnitRecord* unit = nullptr;
};

enum class Prepared { Stopped, Refused, Pending };

bool sameName(std::string_view a, std::string_view b) {
    return a.size() == b.size() && upperAscii(a) == upperAscii(b);
}

void refuse(LooseContext& context, const std::string& text) {
    context.services.dialogs.report(text, Icon::Exclamation);
}

// The row of unit k of consist n; count when it has none.
std::size_t rowOf(const LooseUnitTable& table, std::size_t n, std::size_t k) {
    const std::string group = "LOOSE CONSIST " + std::to_string(n);
    for (std::size_t i = 0; i < table.count; ++i)
        if (table.rows[i].groupName == group)
            return i + k - 1 < table.count ? i + k - 1 : table.count;
    return table.count;
}

// Why unit k of consist n can't be replaced by newFile of the list's kind; empty when it can.
std::string refusalOf(LooseContext& context, const LooseEditor& editor,
                      const std::vector<LooseBlock>& blocks, const LooseNode& node, std::size_t n,
                      std::size_t k, const std::string& newFile, UnitClass listKind) {
    const bool engineLine = node.key.front() == 'E';
    if (engineLine != (listKind == UnitClass::Engine))
        return engineLine ? "An engine of a loose consist can only be replaced by an engine: "
                            "choose one from the engines' list. Nothing was changed."
                          : "A wagon of a loose consist can only be replaced by a wagon: choose "
                            "one from the wagons' list. Nothing was changed.";
    if (rowOf(context.units, n, k) >= context.units.count)
        return "The unit " + node.text + " stands past the last of the " +
               std::to_string(LooseUnitTable::kRows) +
               " units the editor holds, and can't be replaced. Nothing was changed.";
    if (n <= blocks.size() && k <= blocks[n - 1].units.size()) {
        const LooseUnitLine& line = blocks[n - 1].units[k - 1];
        if (std::u16string_view(editor.activity.text)
                .substr(line.begin, line.end - line.begin)
                .find(u'\n') != std::u16string_view::npos)
            return "The line of the unit " + node.text +
                   " holds a line feed of its own, and what follows it on that line would be "
                   "lost. Nothing was changed.";
    }
    if (!findUnit(usedRecords(context.catalogue, listKind), newFile))
        return "Unknown unit: " + newFile + ". Nothing was changed.";
    return {};
}

Prepared prepare(LooseContext& context, LooseEditor& editor, const std::vector<LooseBlock>& blocks,
                 std::size_t node, const std::string& newFile, UnitClass listKind,
                 std::vector<PendingLine>& pending) {
    if (editor.nodes.empty() || editor.unitToReplace.empty() || node >= editor.nodes.size())
        return Prepared::Stopped;
    std::size_t n = 0, k = 0;
    const bool unitNode = node > 0 && looseKeyNumbers(editor.nodes[node].key, n, k);
    if (unitNode && !newFile.empty()) {
        const std::string why =
            refusalOf(context, editor, blocks, editor.nodes[node], n, k, newFile, listKind);
        if (!why.empty()) {
            refuse(context, why);
            return Prepared::Refused;
        }
    }
    // The loop runs to the catalogue's end: the last matching entries give the lengths.
    const std::span<const UnitRecord> records = usedRecords(context.catalogue, listKind);
    const UnitRecord* unit = nullptr;
    for (const UnitRecord& record : records) {
        if (sameName(record.fileName, editor.unitToReplace))
            editor.oldLength = wholeMetres(record.length);
        if (sameName(record.fileName, newFile)) {
            editor.newLength = wholeMetres(record.length);
            unit = &record;
        }
    }
    // Longer is a warning and no more: the replace goes on.
    if (editor.newLength > editor.oldLength) editor.lengthExceeded = true;
    setLooseLength(editor, numberValue(editor.lengthText) - editor.oldLength + editor.newLength);

    LooseNode& chosen = editor.nodes[node];
    if (newFile.empty() || node == 0 || chosen.text.find("LOOSE CONSIST") != std::string::npos ||
        !unitNode || !unit)
        return Prepared::Stopped;
    chosen.text = newFile;
    LooseUnitEntry& row = context.units.rows[rowOf(context.units, n, k)];
    row.folderPath = unit->folderPath;
    row.fileName = unit->fileName;
    row.displayName = unit->displayName;
    row.length = unit->length;
    row.pictureFile = unit->fileName.substr(0, unit->fileName.size() - 4) + ".jpg";
    chosen.image = upperAscii(newFile).ends_with("WAG") ? LooseImage::Wagon : LooseImage::Engine;
    if (k <= LooseEditor::kBoxes) {
        const std::string picture = joinPath(row.folderPath, row.pictureFile);
        const std::optional<std::uintmax_t> size = context.services.fs.fileSize(picture);
        editor.pictures[k - 1] =
            size && *size > 0 ? LoosePicture{LoosePicture::Shows::File, picture} : LoosePicture{};
    }
    pending.push_back({n, k, unit});
    return Prepared::Pending;
}

// The activity on disk with the pending lines written, its ".bak" first; every failure told
// with its cause and the activity left as it was.
bool writePending(LooseContext& context, LooseEditor& editor,
                  const std::vector<PendingLine>& pending) {
    FileSystem& fs = context.services.fs;
    const auto fail = [&](const std::string& cause) {
        context.services.dialogs.report(replaceFailedText(cause), Icon::Stop);
        return false;
    };
    const std::optional<std::string> bytes =
        readInside(fs, context.paths.mstsPath, editor.activitiesFolder, editor.activityFile,
                   kRouteFileSizeLimit);
    if (!bytes) return fail("The activity " + editor.activityPath + " could not be read.");
    ActivityText activity = decodeActivity(*bytes);
    const std::vector<LooseBlock> blocks = looseBlocks(activity.text);

    // Each consist is found by its own line, and must still hold the block last read or written.
    std::map<std::size_t, bool> consists;
    for (const PendingLine& line : pending)
        consists[line.n] = true;
    for (const auto& [n, unused] : consists) {
        const std::optional<std::string> kept =
            fs.readFile(joinPath(context.paths.programFolder, looseWorkFile(n, true)));
        if (!kept)
            return fail("The work file LOOSE CONSIST " + std::to_string(n) +
                        ".old.lse is missing.");
        const std::u16string_view text(activity.text);
        if (n > blocks.size() ||
            toUtf8(text.substr(blocks[n - 1].begin, blocks[n - 1].end - blocks[n - 1].begin)) !=
                *kept)
            return fail("The loose consist " + std::to_string(n) +
                        " is no longer in the activity as it was read.");
    }
    // The lines in text order, the last word for a line given twice kept.
    std::map<std::size_t, std::pair<std::size_t, std::u16string>> lines;
    for (const PendingLine& line : pending) {
        const LooseBlock& block = blocks[line.n - 1];
        if (line.k > block.units.size())
            return fail("The loose consist " + std::to_string(line.n) + " has no unit " +
                        std::to_string(line.k) + ".");
        const LooseUnitLine& unit = block.units[line.k - 1];
        const std::u16string_view old =
            std::u16string_view(activity.text).substr(unit.begin, unit.end - unit.begin);
        if (old.find(u'\n') != std::u16string_view::npos)
            return fail("A unit line holds a line feed of its own.");
        lines[unit.begin] = {unit.end, newUnitLine(old, *line.unit)};
    }
    ActivityText changed;
    changed.oddByte = activity.oddByte;
    changed.text.reserve(activity.text.size() + 64 * lines.size());
    std::size_t from = 0;
    for (const auto& [begin, line] : lines) {
        changed.text.append(activity.text, from, begin - from);
        changed.text += line.second;
        from = line.first;
    }
    changed.text.append(activity.text, from);

    const WriteResult backup = fs.writeFile(editor.activityPath + ".bak", *bytes);
    if (!backup) return fail(backup.message);
    const std::string written = encodeActivity(changed);
    const WriteResult result = fs.writeFile(editor.activityPath, written);
    if (!result) return fail(result.message);

    // The next replace in a consist starts from the block that now stands in the activity.
    // A block not kept makes the next replace in its consist refuse; nothing is lost.
    const std::vector<LooseBlock> now = looseBlocks(changed.text);
    std::vector<FileSystem::NamedBytes> blocksNow;
    for (const auto& [n, unused] : consists) {
        const std::u16string_view text(changed.text);
        if (n <= now.size())
            blocksNow.emplace_back(
                looseWorkFile(n, false),
                toUtf8(text.substr(now[n - 1].begin, now[n - 1].end - now[n - 1].begin)));
    }
    if (writeWorkFiles(context.paths, fs, blocksNow)) {
        const std::string& home = context.paths.programFolder;
        for (const auto& [n, unused] : consists)
            (void)fs.renameFile(joinPath(home, looseWorkFile(n, false)),
                                joinPath(home, looseWorkFile(n, true)));
    }
    editor.activity = std::move(changed);
    editor.activitySize = written.size();
    return true;
}

bool replaceNodes(LooseContext& context, LooseEditor& editor, const std::vector<std::size_t>& nodes,
                  const std::string& newFile, UnitClass listKind) {
    const std::vector<LooseBlock> blocks = looseBlocks(editor.activity.text);
    std::vector<PendingLine> pending;
    for (std::size_t node : nodes) {
        editor.selected = node;
        if (node < editor.nodes.size()) editor.unitToReplace = editor.nodes[node].text;
        (void)prepare(context, editor, blocks, node, newFile, listKind, pending);
    }
    return !pending.empty() && writePending(context, editor, pending);
}

}  // namespace

std::string replaceFailedText(const std::string& cause) {
    return "An error ocurred while trying to change this activity and\nyour original file hasn't "
           "been changed. The cause for this error was:\n" +
           cause;
}

bool replaceLooseUnit(LooseContext& context, LooseEditor& editor, const std::string& newFile,
                      UnitClass listKind) {
    if (editor.selected == LooseEditor::kNoNode) return false;
    const std::vector<LooseBlock> blocks = looseBlocks(editor.activity.text);
    std::vector<PendingLine> pending;
    if (prepare(context, editor, blocks, editor.selected, newFile, listKind, pending) !=
        Prepared::Pending)
        return false;
    return writePending(context, editor, pending);
}

bool replaceAllOccurrences(LooseContext& context, LooseEditor& editor, const std::string& newFile,
                           UnitClass listKind) {
    if (editor.nodes.empty() || editor.selected >= editor.nodes.size()) return false;
    // A node that got its new name no longer matches: the nodes are those matching now.
    const std::string text = editor.nodes[editor.selected].text;
    std::vector<std::size_t> matching;
    for (std::size_t i = 0; i < editor.nodes.size(); ++i)
        if (editor.nodes[i].text == text) matching.push_back(i);
    return replaceNodes(context, editor, matching, newFile, listKind);
}

bool restoreOpenedActivity(LooseContext& context, LooseEditor& editor) {
    if (editor.nodes.empty()) return false;
    FileSystem& fs = context.services.fs;
    const std::optional<std::string> copy =
        fs.readFile(joinPath(context.paths.programFolder, editor.activityFile));
    if (!copy) {
        context.services.dialogs.report("The copy of " + editor.activityFile +
                                            " made when it was opened is gone: nothing was "
                                            "restored.",
                                        Icon::Exclamation);
        return false;
    }
    const WriteResult written = fs.writeFile(editor.activityPath, *copy);
    if (!written) {
        context.services.dialogs.report(written.message, Icon::Stop);
        return false;
    }
    const std::string shown = editor.shownConsist;
    const std::string line = editor.activityLine;
    if (!openLooseActivity(context, editor, line)) return false;
    if (!shown.empty()) showLooseConsist(context, editor, shown);
    editor.selected = 0;
    return true;
}

}  // namespace rakeyard
