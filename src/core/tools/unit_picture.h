#pragma once
#include <initializer_list>
#include <string>
#include <string_view>

#include "core/msts/unit_record.h"
#include "core/platform/file_system.h"

namespace rakeyard {

// Which of the pictures found a window shows.
enum class PictureChoice { FirstFound, LastFound };

// The picture beside a unit's file: its folder, the file name less its last four characters
// upper-cased, and each ending in the order given. A candidate counts when it is a file of more
// than 0 bytes. The path on disk, or "" when none counts.
std::string findUnitPicture(FileSystem& fs, const UnitRecord& unit,
                            std::initializer_list<std::string_view> endings, PictureChoice choice);

// The orders of the windows that show a unit's picture.
inline std::string randomConsistPicture(FileSystem& fs, const UnitRecord& unit) {
    return findUnitPicture(fs, unit, {".bmp", ".gif", ".jpg"}, PictureChoice::FirstFound);
}
inline std::string previewPicture(FileSystem& fs, const UnitRecord& unit) {
    return findUnitPicture(fs, unit, {".JPG", ".GIF", ".BMP"}, PictureChoice::LastFound);
}
inline std::string descriptionPicture(FileSystem& fs, const UnitRecord& unit) {
    return findUnitPicture(fs, unit, {".bmp", ".gif", ".jpg"}, PictureChoice::LastFound);
}

}  // namespace rakeyard
