#pragma once
#include <string>
#include <string_view>
#include <vector>

#include "core/msts/unit_record.h"
#include "core/platform/file_system.h"
#include "core/platform/services.h"

namespace rakeyard {

// True when the consist file's bytes name the unit by its file stem and folder, in any of the
// four forms: stem and folder bare or each in double quotes, a blank between them. A file that
// begins with FF FE is narrowed to the low byte of each character; the search is in upper case
// and looks at the two words only, wherever they stand.
bool consistNamesUnit(std::string_view bytes, const UnitRecord& unit);

// The ".con" files of the Consists folder, in listing order, that name the unit, each once.
// A file that cannot be read does not name it.
std::vector<std::string> consistsUsingUnit(const UnitRecord& unit, const std::string& consistsPath,
                                           FileSystem& fs);

// Moves a consist of the list to the trash. Only a plain file name inside the Consists folder is
// taken; a failure is told. True when it went.
bool trashListedConsist(const std::string& consistsPath, const std::string& name,
                        Services& services);

}  // namespace rakeyard
