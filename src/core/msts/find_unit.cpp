#include "core/msts/find_unit.h"

#include "core/platform/text_utf.h"

namespace rakeyard {

std::vector<std::size_t> findUnits(std::span<const UnitRecord> records, std::string_view fileName,
                                   std::string_view folderName) {
    const std::string wantedFile = upperAscii(fileName);
    const std::string wantedFolder = upperAscii(folderName);
    std::vector<std::size_t> found;
    for (std::size_t i = 0; i < records.size(); ++i) {
        if (upperAscii(records[i].fileName) != wantedFile) continue;
        if (folderName.empty() || upperAscii(records[i].folderName) == wantedFolder)
            found.push_back(i);
    }
    return found;
}

std::optional<std::size_t> findUnit(std::span<const UnitRecord> records, std::string_view fileName,
                                    std::string_view folderName) {
    const std::vector<std::size_t> found = findUnits(records, fileName, folderName);
    if (found.empty()) return std::nullopt;
    return found.front();
}

}  // namespace rakeyard
