#include "cli/unit_names.h"

#include <span>

#include "core/msts/find_unit.h"
#include "core/platform/paths.h"
#include "core/platform/text_utf.h"

namespace rakeyard::cli {
namespace {

bool endsWithNoCase(std::string_view text, std::string_view ending) {
    return text.size() >= ending.size() &&
           upperAscii(text.substr(text.size() - ending.size())) == upperAscii(ending);
}

// The matches of one catalogue: the exact one if there is one, else the only one, else all
// (ambiguous), or none.
std::vector<std::size_t> matchesOf(std::span<const UnitRecord> records, std::string_view fileName,
                                   std::string_view folder) {
    std::vector<std::size_t> found = findUnits(records, fileName, folder);
    for (std::size_t index : found)
        if (records[index].fileName == fileName) return {index};
    return found;
}

NamedUnitResult resultOf(std::span<const UnitRecord> records, const std::vector<std::size_t>& found,
                         bool isEngine) {
    if (found.size() == 1) return {NamedUnit{isEngine, static_cast<int>(found.front())}, ""};
    std::string names;
    for (std::size_t index : found)
        names += (names.empty() ? "" : " and ") +
                 joinPath(records[index].folderName, records[index].fileName);
    return {std::nullopt, names + " differ only in letter case: write the name exactly"};
}

}  // namespace

NamedUnitResult findNamedUnit(const UnitCatalogue& catalogue, std::string_view name) {
    bool engines = true;
    bool wagons = true;
    if (name.starts_with("eng:")) wagons = false;
    if (name.starts_with("wag:")) engines = false;
    if (!engines || !wagons) name.remove_prefix(4);

    std::string_view folder;
    if (const std::size_t cut = name.find_last_of("/\\"); cut != std::string_view::npos) {
        folder = name.substr(0, cut);
        if (const std::size_t before = folder.find_last_of("/\\"); before != std::string_view::npos)
            folder.remove_prefix(before + 1);
        name.remove_prefix(cut + 1);
    }
    std::string stem(name);
    if (endsWithNoCase(name, ".eng")) {
        wagons = false;
        stem.resize(stem.size() - 4);
    } else if (endsWithNoCase(name, ".wag")) {
        engines = false;
        stem.resize(stem.size() - 4);
    }
    if (stem.empty()) return {};
    for (const bool isEngine : {true, false}) {
        if (!(isEngine ? engines : wagons)) continue;
        const auto records =
            usedRecords(catalogue, isEngine ? UnitClass::Engine : UnitClass::Wagon);
        const std::string fileName = stem + (isEngine ? ".eng" : ".wag");
        const std::vector<std::size_t> found = matchesOf(records, fileName, folder);
        if (!found.empty()) return resultOf(records, found, isEngine);
    }
    return {};
}

std::string consistPathOf(FileSystem& fs, const PathGlobals& paths, std::string_view argument) {
    const std::string given = nativeSeparators(argument);
    const bool isPath = given.find(kPathSeparator) != std::string::npos || fs.isFile(given);
    std::string path = isPath ? wholePath(given) : joinPath(paths.consistsPath, given);
    if (!fs.isFile(path) && !endsWithNoCase(path, ".con")) path += ".con";
    return fs.resolve(path);
}

std::string consistFileBoxText(std::string_view name) {
    std::string text(name);
    if (endsWithNoCase(text, ".con")) text.resize(text.size() - 4);
    return text;
}

}  // namespace rakeyard::cli
