#include "core/tools/unit_picture.h"

#include "core/platform/paths.h"
#include "core/platform/text_utf.h"

namespace rakeyard {

std::string findUnitPicture(FileSystem& fs, const UnitRecord& unit,
                            std::initializer_list<std::string_view> endings, PictureChoice choice) {
    if (unit.fileName.size() < 4 || unit.folderPath.empty()) return {};
    const std::string stem = upperAscii(unit.fileName.substr(0, unit.fileName.size() - 4));
    std::string found;
    for (std::string_view ending : endings) {
        const std::string candidate = joinPath(unit.folderPath, stem + std::string(ending));
        const auto size = fs.fileSize(candidate);
        if (!size || *size == 0) continue;
        found = fs.resolve(candidate);
        if (choice == PictureChoice::FirstFound) break;
    }
    return found;
}

}  // namespace rakeyard
