#include "core/tools/allocated_space.h"

#include <cmath>
#include <cstdio>
#include <utility>
#include <vector>

#include "core/consist/consist_model.h"
#include "core/platform/file_names.h"
#include "core/platform/paths.h"
#include "core/platform/text_utf.h"

namespace rakeyard {

namespace {

bool endsWithUpper(const std::string& name, std::string_view ending) {
    return name.size() >= ending.size() &&
           upperAscii(std::string_view(name).substr(name.size() - ending.size())) == ending;
}

// The sizes of the files (not the folders) of a folder, added up.
std::uint64_t filesBytes(FileSystem& fs, const std::string& folder) {
    std::uint64_t total = 0;
    for (const DirEntry& entry : fs.listFolder(folder))
        if (!entry.isFolder) total += fs.fileSize(joinPath(folder, entry.name)).value_or(0);
    return total;
}

void addFolder(FileSystem& fs, const std::string& folder, SpaceTotals& totals) {
    for (const DirEntry& entry : fs.listFolder(folder)) {
        if (entry.isFolder) continue;
        if (!endsWithUpper(entry.name, "ENG")) {
            totals.wagonBytes += fs.fileSize(joinPath(folder, entry.name)).value_or(0);
            continue;
        }
        // The files in front of the ".eng" were added to the wagons already, and stay there.
        totals.engineBytes += filesBytes(fs, folder);
        totals.cabBytes += filesBytes(fs, joinPath(folder, "CABVIEW"));
        totals.soundBytes += filesBytes(fs, joinPath(folder, "SOUND"));
        return;
    }
}

std::string grouped(std::string digits) {
    for (int at = static_cast<int>(digits.size()) - 3; at > 0; at -= 3)
        digits.insert(static_cast<std::size_t>(at), ",");
    return digits;
}

// A field as a delimited record writes it: a text in double quotes.
std::string quoted(const std::string& text) {
    return "\"" + text + "\"";
}

std::string rowOf(const UnitRecord& unit, ListForm form, bool engine) {
    if (form == ListForm::FileNamesOnly) return quoted(unit.fileName) + "\r\n";
    std::vector<std::string> texts = {unit.unitType,   unit.displayName,  unit.fileName,
                                      unit.folderName, unit.couplerFront, unit.couplerRear};
    if (engine) texts.push_back(unit.maxPower);
    const std::string numbers[] = {singleText(unit.mass), singleText(unit.length)};
    std::string row;
    const bool tabbed = form == ListForm::CommaDelimited;
    for (const std::string& text : texts)
        row += quoted(tabbed ? text + "\t" : text) + ",";
    // With its TAB a number is a text like the others; bare it is a number of the record.
    for (const std::string& number : numbers)
        row += (tabbed ? quoted(number + "\t") : number) + ",";
    row.back() = '\r';
    return row + "\n";
}

}  // namespace

SpaceTotals allocatedSpace(const UnitCatalogue& catalogue, const PathGlobals& paths, FileSystem& fs,
                           Progress& progress) {
    SpaceTotals totals;
    totals.engines = catalogue.engineCount;
    totals.wagons = catalogue.wagonCount;
    for (const DirEntry& entry : fs.listFolder(paths.consistsPath)) {
        if (entry.isFolder || !endsWithUpper(entry.name, ".CON")) continue;
        ++totals.consists;
        totals.consistBytes += fs.fileSize(joinPath(paths.consistsPath, entry.name)).value_or(0);
    }
    const std::vector<DirEntry> folders = fs.listFolder(paths.trainsetPath);
    progress.start("Adding up the space...", static_cast<int>(folders.size()));
    for (const DirEntry& entry : folders) {
        progress.step();
        if (!entry.isFolder || endsWithUpper(entry.name, "DEFAULT")) continue;
        addFolder(fs, joinPath(paths.trainsetPath, entry.name), totals);
    }
    return totals;
}

std::string thousandsText(std::uint64_t value) {
    return value == 0 ? std::string() : grouped(std::to_string(value));
}

std::string thousandsTextTwoDecimals(double value) {
    const bool negative = value < 0;
    const long long hundredths = std::llround(std::fabs(value) * 100);
    char decimals[8];
    std::snprintf(decimals, sizeof decimals, ".%02lld", hundredths % 100);
    return (negative ? "-" : "") + grouped(std::to_string(hundredths / 100)) + decimals;
}

std::string megabytesText(std::uint64_t bytes) {
    return thousandsTextTwoDecimals(static_cast<double>(bytes) / 1024 / 1000);
}

std::string unitListText(const UnitCatalogue& catalogue, ListForm form, bool engines) {
    std::string text;
    for (const UnitRecord& unit :
         usedRecords(catalogue, engines ? UnitClass::Engine : UnitClass::Wagon))
        text += rowOf(unit, form, engines);
    return text;
}

bool writeUnitLists(const UnitCatalogue& catalogue, const PathGlobals& paths, ListForm form,
                    Services& services) {
    const bool namesOnly = form == ListForm::FileNamesOnly;
    const std::string reports = joinPath(paths.programFolder, "Reports");
    const std::pair<std::string, bool> lists[] = {
        {namesOnly ? "Engs1.txt" : "Engines list.txt", true},
        {namesOnly ? "Wags1.txt" : "Wagons list.txt", false}};
    for (const auto& [name, engines] : lists) {
        if (!isValidFileName(name)) return false;
        const WriteResult written =
            services.fs.writeFile(joinPath(reports, name), unitListText(catalogue, form, engines));
        if (!written) {
            services.dialogs.report(
                "The list \"" + name + "\" could not be written:\n" + written.message, Icon::Stop);
            return false;
        }
    }
    services.dialogs.report(
        "Lists ready! \"Engines list.txt\" and \"Wagons list.txt\" in the Rakeyard reports "
        "folder.",
        Icon::Information);
    return true;
}

}  // namespace rakeyard
