#include "core/msts/unit_list.h"

#include <algorithm>

#include "core/msts/find_unit.h"
#include "core/platform/paths.h"
#include "core/platform/text_utf.h"
#include "core/settings/shell_helpers.h"

namespace rakeyard {

namespace {

constexpr std::size_t kNameWidth = 30;
constexpr std::size_t kNameColumn = 31;

std::vector<std::string> linesOf(std::vector<UnitListRow> rows) {
    std::vector<std::string> lines;
    lines.reserve(rows.size());
    for (UnitListRow& row : rows)
        lines.push_back(std::move(row.line));
    return lines;
}

std::string withoutTrailingSeparators(std::string path) {
    while (path.size() > 1 && isPathSeparator(path.back()))
        path.pop_back();
    return path;
}

bool isPlainFolderName(std::string_view name) {
    return !name.empty() && name != "." && name != ".." &&
           std::none_of(name.begin(), name.end(), isPathSeparator);
}

}  // namespace

std::string unitListLine(const UnitRecord& record, bool isEngine) {
    std::string line = utf8Left(record.displayName, kNameWidth);
    line.append(kNameColumn - utf8Length(line), ' ');
    line += "[" + record.couplerFront + record.couplerRear + "] ";
    line += isEngine ? record.maxPower : record.unitType;
    line += std::string(8, ' ') + "^" + record.fileName;
    return line;
}

bool engineShown(const UnitRecord& engine, std::string_view engineFilter) {
    if (engineFilter == "AI" && !engine.hasCab) return true;
    return wagonShown(engine, engineFilter);
}

bool wagonShown(const UnitRecord& wagon, std::string_view wagonFilter) {
    const std::string filter = upperAscii(wagonFilter);
    if (upperAscii(wagon.unitType) == filter && filter != "ALL") return true;
    return wagonFilter == "All";
}

std::vector<UnitListRow> unitListRows(std::span<const UnitRecord> records, UnitClass which,
                                      std::string_view filter) {
    const bool isEngine = which == UnitClass::Engine;
    struct Keyed {
        std::string upper;
        UnitListRow row;
    };
    std::vector<Keyed> keyed;
    for (std::size_t i = 0; i < records.size(); ++i) {
        const UnitRecord& record = records[i];
        if (!(isEngine ? engineShown(record, filter) : wagonShown(record, filter))) continue;
        std::string line = unitListLine(record, isEngine);
        keyed.push_back({upperAscii(line), {i, std::move(line)}});
    }
    // Equal upper-cased lines fall back to the exact line, then to catalogue order.
    std::sort(keyed.begin(), keyed.end(), [](const Keyed& a, const Keyed& b) {
        if (a.upper != b.upper) return a.upper < b.upper;
        if (a.row.line != b.row.line) return a.row.line < b.row.line;
        return a.row.record < b.row.record;
    });
    std::vector<UnitListRow> rows;
    rows.reserve(keyed.size());
    for (Keyed& k : keyed)
        rows.push_back(std::move(k.row));
    return rows;
}

std::vector<std::string> readEngFilter(std::span<const UnitRecord> engines,
                                       std::string_view engineFilter) {
    return linesOf(unitListRows(engines, UnitClass::Engine, engineFilter));
}

std::vector<std::string> readWagFilter(std::span<const UnitRecord> wagons,
                                       std::string_view wagonFilter) {
    return linesOf(unitListRows(wagons, UnitClass::Wagon, wagonFilter));
}

bool listsBefore(std::string_view a, std::string_view b) {
    const std::string upperA = upperAscii(a);
    const std::string upperB = upperAscii(b);
    return upperA != upperB ? upperA < upperB : a < b;
}

std::string keyOfLine(std::string_view line) {
    const std::size_t caret = line.rfind('^');
    return std::string(caret == std::string_view::npos ? line : line.substr(caret + 1));
}

std::optional<std::size_t> findUnitByKey(std::span<const UnitRecord> records, std::string_view key,
                                         KeyCase keyCase) {
    if (keyCase == KeyCase::Ignore) return findUnit(records, key);
    for (std::size_t i = 0; i < records.size(); ++i)
        if (records[i].fileName == key) return i;
    return std::nullopt;
}

std::optional<std::size_t> findUnitOfLine(std::span<const UnitRecord> records,
                                          std::string_view line) {
    const std::string wanted = upperAscii(keyOfLine(line));
    const std::string shownName = trimBlanks(line.substr(0, line.find('[')));
    for (std::size_t i = 0; i < records.size(); ++i) {
        if (upperAscii(records[i].fileName) == wanted &&
            records[i].displayName.find(shownName) != std::string::npos)
            return i;
    }
    return std::nullopt;
}

std::string unitStatusText(const UnitRecord& record) {
    return record.folderName + kPathSeparator + record.fileName + " -- " + record.displayName;
}

bool openUnitInEditor(const PathGlobals& paths, std::span<const UnitRecord> records,
                      std::string_view line, Services& services) {
    if (paths.editorPath.empty()) {
        services.dialogs.report(
            "Please select \"Options\" from the menu and choose a text editor program.",
            Icon::Exclamation);
        return false;
    }
    const std::optional<std::size_t> index = findUnitOfLine(records, line);
    if (!index) return false;
    const UnitRecord& unit = records[*index];
    return startTextEditor(paths, joinPath(unit.folderPath, unit.fileName), services) ==
           EditorStart::Started;
}

bool deleteUnitFolder(const PathGlobals& paths, const UnitRecord& record, Services& services) {
    FileSystem& fs = services.fs;
    const std::string trainset = paths.trainsetPath.empty()
                                     ? std::string()
                                     : withoutTrailingSeparators(fs.resolve(paths.trainsetPath));
    const std::string target = isPlainFolderName(record.folderName) && !trainset.empty()
                                   ? fs.resolve(joinPath(trainset, record.folderName))
                                   : std::string();
    if (target.empty() || parentPath(target) != trainset || !fs.isFolder(target)) {
        services.dialogs.report("The folder \"" + record.folderName +
                                    "\" is not a folder of the Trainset folder, so it is not "
                                    "sent to the " +
                                    std::string(kTrashName) + ".",
                                Icon::Stop);
        return false;
    }
    if (!services.desktop.moveToTrash(target)) {
        services.dialogs.report(
            "The folder " + target + " couldn't be sent to the " + std::string(kTrashName) + ".",
            Icon::Stop);
        return false;
    }
    return true;
}

std::string filterSummary(std::string_view filter, std::size_t shown, std::size_t total) {
    const std::string word = filter == "AI" ? "AI engines" : std::string(filter);
    return word + " - " + std::to_string(shown) + " of " + std::to_string(total);
}

}  // namespace rakeyard
