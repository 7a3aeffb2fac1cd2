#include "core/msts/loose_editor.h"

#include <algorithm>
#include <unordered_map>

#include "core/msts/file_lookup.h"
#include "core/msts/msts_text.h"
#include "core/msts/route_deps.h"
#include "core/msts/route_files.h"
#include "core/platform/file_names.h"
#include "core/platform/paths.h"
#include "core/platform/text_utf.h"
#include "core/settings/work_files.h"

namespace rakeyard {

namespace {

constexpr double kMetresPerFoot = 0.3048;
constexpr std::size_t kPageStarts[] = {7, 13, 19, 25, 31, 37, 43, 49, 55};

std::string groupNameOf(std::size_t n) {
    return "LOOSE CONSIST " + std::to_string(n);
}

// The first catalogue entry of each file name, upper-cased: what a search from entry 0 finds.
std::unordered_map<std::string, std::size_t> firstByFileName(std::span<const UnitRecord> records) {
    std::unordered_map<std::string, std::size_t> first;
    for (std::size_t i = 0; i < records.size(); ++i)
        first.try_emplace(upperAscii(records[i].fileName), i);
    return first;
}

// Whether name is "LOOSE CONSIST n.old.lse" for an n from 1 to count.
bool isOldWorkFile(std::string_view name, std::size_t count) {
    constexpr std::string_view head = "LOOSE CONSIST ", tail = ".old.lse";
    if (!name.starts_with(head) || !name.ends_with(tail)) return false;
    const std::string_view number =
        name.substr(head.size(), name.size() - head.size() - tail.size());
    if (number.empty() || number.size() > 9 || number.front() == '0' ||
        number.find_first_not_of("0123456789") != std::string_view::npos)
        return false;
    return std::stoul(std::string(number)) <= count;
}

void clearStrip(LooseEditor& editor) {
    editor.pictures.fill({});
    editor.pagesShown = 1;
}

void addUnit(LooseContext& context, LooseEditor& editor, std::size_t n, std::size_t k,
             std::string fileName, const UnitRecord* unit) {
    const bool engine = upperAscii(fileName).ends_with(".ENG");
    const std::string key = (engine ? "E" : "C") + std::to_string(n) + "_" + std::to_string(k);
    const LooseImage image = unit ? (engine ? LooseImage::Engine : LooseImage::Wagon)
                                  : (engine ? LooseImage::MissingEngine : LooseImage::MissingWagon);
    const std::size_t consistNode = editor.nodes.size() - k;  // the consist's node stands first
    editor.nodes.push_back({key, fileName, consistNode, image});
    LooseUnitTable& table = context.units;
    if (table.count >= LooseUnitTable::kRows) return;
    LooseUnitEntry& row = table.rows[table.count++];
    row = LooseUnitEntry{groupNameOf(n),
                         0,
                         " ",
                         fileName,
                         "",
                         " ",
                         static_cast<std::int16_t>(std::min<std::size_t>(k, 32767))};
    if (!unit) return;
    row.length = unit->length;
    row.folderPath = unit->folderPath;
    row.displayName = unit->displayName;
    row.pictureFile = fileName.substr(0, fileName.size() - 4) + ".jpg";
}

}  // namespace

std::string looseWorkFile(std::size_t n, bool old) {
    return groupNameOf(n) + (old ? ".old.lse" : ".lse");
}

void readRoutes(LooseContext& context, LooseEditor& editor) {
    const bool neverStop = false;
    editor.routeNames = getRoutes(context.paths, context.routes, context.services, neverStop);
}

void SearchActsForLoose(LooseContext& context, LooseEditor& editor, const std::string& routeName) {
    editor.activityLines.clear();
    const PathGlobals& paths = context.paths;
    FileSystem& fs = context.services.fs;
    if (paths.mstsPath.empty()) return;
    if (!fs.isFolder(routesFolder(paths))) {
        context.services.dialogs.report(
            "The folder \"ROUTES\" does not exist or cannot be read from!", Icon::Stop);
        return;
    }
    const auto route = std::find_if(
        context.routes.routes.begin(), context.routes.routes.begin() + 1001,
        [&](const RouteEntry& r) { return !r.routeName.empty() && r.routeName == routeName; });
    if (route == context.routes.routes.begin() + 1001) return;
    editor.activitiesFolder = joinPath(route->folder, "ACTIVITIES");
    std::string bytes;
    for (const std::string& file : filesEndingIn(fs, editor.activitiesFolder, ".ACT")) {
        context.services.progress.step();
        // A file that can't be read is passed over without a word.
        if (!readInside(fs, paths.mstsPath, editor.activitiesFolder, file, kRouteFileSizeLimit,
                        bytes) ||
            bytes.empty())
            continue;
        const std::optional<std::string> name = looseActivityName(decodeActivity(bytes).text);
        if (name) editor.activityLines.push_back(file + " --> " + *name);
    }
}

bool openLooseActivity(LooseContext& context, LooseEditor& editor, const std::string& line) {
    const PathGlobals& paths = context.paths;
    FileSystem& fs = context.services.fs;
    context.units.count = 0;
    context.units.rows.fill({});
    editor.nodes.clear();
    editor.selected = LooseEditor::kNoNode;
    editor.oldLength = editor.newLength = 0;
    editor.unitToReplace.clear();
    editor.activity = {};
    editor.activitySize = 0;
    clearStrip(editor);

    const std::size_t arrow = line.find("-->");
    if (arrow == std::string::npos || arrow < 1) {
        removeLooseWorkFiles(context);
        return false;
    }
    editor.activityLine = line;
    editor.activityFile = line.substr(0, arrow - 1);
    editor.activityPath = joinPath(editor.activitiesFolder, editor.activityFile);
    editor.nodes.push_back({"Activity", line, 0, LooseImage::Activity});

    std::string bytes;
    if (!isValidFileName(editor.activityFile) ||
        !readInside(fs, paths.mstsPath, editor.activitiesFolder, editor.activityFile,
                    kRouteFileSizeLimit, bytes) ||
        bytes.empty()) {
        removeLooseWorkFiles(context);
        return false;
    }
    editor.activity = decodeActivity(bytes);
    const std::vector<LooseBlock> blocks = looseBlocks(editor.activity.text);
    // The files written again below are kept: deleting and making anew thousands of files
    // costs the file system far more than writing over them.
    removeLooseWorkFiles(context, [&](std::string_view name) {
        return name == editor.activityFile || isOldWorkFile(name, blocks.size());
    });
    editor.nowEditing = "Now editing:    " + line.substr(arrow);
    // The copy Cancel restores from; without it no change could be taken back.
    const WriteResult copied =
        fs.writeFile(joinPath(paths.programFolder, editor.activityFile), bytes);
    if (!copied) {
        context.services.dialogs.report(copied.message, Icon::Stop);
        removeLooseWorkFiles(context);
        return false;
    }
    editor.activitySize = bytes.size();

    const auto engines = firstByFileName(usedRecords(context.catalogue, UnitClass::Engine));
    const auto wagons = firstByFileName(usedRecords(context.catalogue, UnitClass::Wagon));
    const std::u16string& text = editor.activity.text;
    std::size_t n = 0;
    std::vector<FileSystem::NamedBytes> workFiles;
    for (const LooseBlock& block : blocks) {
        ++n;
        editor.nodes.push_back({"A" + std::to_string(n), groupNameOf(n), 0, LooseImage::Consist});
        const std::u16string_view header(text.data() + block.begin, block.end - block.begin);
        workFiles.emplace_back(looseWorkFile(n, true), toUtf8(header));
        std::size_t k = 0;
        for (const LooseUnitLine& unit : block.units) {
            const std::u16string_view unitLine(text.data() + unit.begin, unit.end - unit.begin);
            std::string fileName = unitFileOfLine(unitLine, unit.engine);
            const auto& found = unit.engine ? engines : wagons;
            const auto entry = found.find(upperAscii(fileName));
            const UnitRecord* record =
                entry == found.end() ? nullptr
                                     : &usedRecords(context.catalogue,
                                                    unit.engine ? UnitClass::Engine
                                                                : UnitClass::Wagon)[entry->second];
            addUnit(context, editor, n, ++k, std::move(fileName), record);
        }
    }
    // A block that can't be kept makes a replace in it refuse, which is told then.
    (void)writeWorkFiles(paths, fs, workFiles);
    editor.selected = 0;
    return true;
}

void setLooseLength(LooseEditor& editor, double metres) {
    editor.lengthText = singleText(round2(metres));
    editor.feetText = singleText(round2(numberValue(editor.lengthText) / kMetresPerFoot));
}

void showLooseConsist(LooseContext& context, LooseEditor& editor, const std::string& groupName) {
    clearStrip(editor);
    const LooseUnitTable& table = context.units;
    const auto begin = table.rows.begin();
    const auto end = begin + static_cast<std::ptrdiff_t>(table.count);
    auto row =
        std::find_if(begin, end, [&](const LooseUnitEntry& r) { return r.groupName == groupName; });
    if (row == end) return;
    editor.shownConsist = groupName;
    double sum = 0;
    for (; row != end && row->groupName == groupName; ++row) {
        const auto position = static_cast<std::size_t>(row->position);
        const auto* page = std::find(std::begin(kPageStarts), std::end(kPageStarts), position);
        if (page != std::end(kPageStarts))
            editor.pagesShown = static_cast<int>(page - std::begin(kPageStarts)) + 2;
        if (position >= 1 && position <= LooseEditor::kBoxes) {
            // A unit the catalogue lacks has no folder to look in: " " would name a path
            // relative to wherever the program runs.
            const bool listed = row->folderPath != " ";
            const std::string picture = joinPath(row->folderPath, row->pictureFile);
            const std::optional<std::uintmax_t> size =
                listed ? context.services.fs.fileSize(picture) : std::nullopt;
            editor.pictures[position - 1] = size && *size > 0
                                                ? LoosePicture{LoosePicture::Shows::File, picture}
                                                : LoosePicture{LoosePicture::Shows::FirstImage, {}};
        }
        sum = round2(sum + row->length);
    }
    setLooseLength(editor, sum);
}

void selectLooseNode(LooseContext& context, LooseEditor& editor, std::size_t node) {
    if (node >= editor.nodes.size()) return;
    editor.selected = node;
    editor.pictures.fill({});
    editor.borderedBox = 0;
    if (node == 0) return;
    const LooseNode& chosen = editor.nodes[node];
    const bool consist = chosen.parent == 0;
    showLooseConsist(context, editor, editor.nodes[consist ? node : chosen.parent].text);
    if (consist) return;
    editor.unitToReplace = chosen.text;
    const std::size_t box = node - chosen.parent;
    if (box >= 1 && box <= LooseEditor::kBoxes) {
        editor.borderedBox = static_cast<int>(box);
        editor.currentPage = static_cast<int>((box - 1) / 6);
    }
    const LooseUnitTable& table = context.units;
    for (std::size_t i = 0; i < table.count; ++i) {
        if (table.rows[i].fileName == chosen.text) {
            editor.statusText = table.rows[i].displayName;
            break;
        }
    }
}

bool looseKeyNumbers(const std::string& key, std::size_t& n, std::size_t& k) {
    const std::size_t cut = key.rfind('_');
    if (cut == std::string::npos || key.size() < 2 || (key[0] != 'E' && key[0] != 'C'))
        return false;
    const std::string front = trimBlanks(key.substr(1, cut - 1));
    const std::string back = key.substr(cut + 1);
    if (front.empty() || back.empty() ||
        front.find_first_not_of("0123456789") != std::string::npos ||
        back.find_first_not_of("0123456789") != std::string::npos || front.size() > 9 ||
        back.size() > 9)
        return false;
    n = std::stoul(front);
    k = std::stoul(back);
    return n > 0 && k > 0;
}

void removeLooseWorkFiles(LooseContext& context,
                          const std::function<bool(std::string_view)>& keep) {
    if (removeWorkFiles(context.paths, context.services.fs, {".lse", ".act"}, keep)) return;
    if (context.paths.programFolder.empty()) return;
    context.services.dialogs.report(
        "The program's folder " + context.services.fs.resolve(context.paths.programFolder) +
            " is the MSTS folder or lies inside it: the loose consist editor's work files there "
            "(*.lse, *.act) are not deleted.",
        Icon::Exclamation);
}

}  // namespace rakeyard
