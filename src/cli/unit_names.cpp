#include "cli/unit_names.h"

#include <filesystem>
#include <span>

#include "core/platform/paths.h"
#include "core/platform/text_utf.h"

namespace rakeyard::cli {
namespace {

bool endsWithNoCase(std::string_view text, std::string_view ending) {
    return text.size() >= ending.size() &&
           upperAscii(text.substr(text.size() - ending.size())) == upperAscii(ending);
}

int findInCatalogue(std::span<const UnitRecord> catalogue, std::string_view fileName,
                    std::string_view folder) {
    const std::string wanted = upperAscii(fileName);
    for (std::size_t i = 0; i < catalogue.size() && !catalogue[i].fileName.empty(); ++i) {
        if (upperAscii(catalogue[i].fileName) != wanted) continue;
        if (folder.empty() || upperAscii(catalogue[i].folderName) == upperAscii(folder))
            return static_cast<int>(i);
    }
    return -1;
}

}  // namespace

std::optional<NamedUnit> findNamedUnit(const UnitCatalogue& catalogue, std::string_view name) {
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
    if (stem.empty()) return std::nullopt;
    if (engines) {
        if (int index = findInCatalogue(catalogue.engines, stem + ".eng", folder); index >= 0)
            return NamedUnit{true, index};
    }
    if (wagons) {
        if (int index = findInCatalogue(catalogue.wagons, stem + ".wag", folder); index >= 0)
            return NamedUnit{false, index};
    }
    return std::nullopt;
}

std::string consistPathOf(FileSystem& fs, const PathGlobals& paths, std::string_view argument) {
    const std::string given = nativeSeparators(argument);
    const bool isPath = given.find(kPathSeparator) != std::string::npos || fs.isFile(given);
    std::string path = isPath ? std::filesystem::absolute(given).lexically_normal().string()
                              : joinPath(paths.consistsPath, given);
    if (!fs.isFile(path) && !endsWithNoCase(path, ".con")) path += ".con";
    return fs.resolve(path);
}

std::string consistFileBoxText(std::string_view name) {
    std::string text(name);
    if (endsWithNoCase(text, ".con")) text.resize(text.size() - 4);
    return text;
}

}  // namespace rakeyard::cli
