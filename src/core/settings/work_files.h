#pragma once
// The program's own work files in its folder, and the one rule for deleting them: never when
// that folder is the MSTS folder or lies inside it, where such names are the user's content.
#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "core/platform/file_system.h"
#include "core/settings/settings_record.h"

namespace rakeyard {

// True when path lies inside folder (or is it), whatever the letter case; both as resolved.
[[nodiscard]] bool liesInside(const std::string& path, const std::string& folder);

// Whether the program's folder is set and is neither the MSTS folder nor inside it.
[[nodiscard]] bool programFolderIsOwn(const PathGlobals& paths, FileSystem& fs);

// Removes every file of the program's folder whose name ends in one of the endings, in any
// letter case, but those keep says are to stay. A file that can't be removed stays. False, with
// nothing removed, when the program's folder is not its own (programFolderIsOwn).
[[nodiscard]] bool removeWorkFiles(const PathGlobals& paths, FileSystem& fs,
                                   std::initializer_list<std::string_view> endings,
                                   const std::function<bool(std::string_view)>& keep = {});

// Writes work files into the program's folder (FileSystem::writeWorkFiles), after each name
// passed the file name check. False when a name was refused or a file not written.
[[nodiscard]] bool writeWorkFiles(const PathGlobals& paths, FileSystem& fs,
                                  const std::vector<FileSystem::NamedBytes>& files);

}  // namespace rakeyard
