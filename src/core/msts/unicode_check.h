#pragma once
#include <string>
#include <vector>

#include "core/platform/services.h"
#include "core/settings/settings_record.h"

namespace rakeyard {

// The unit, cab view, sound and shape description files (".wag", ".eng", ".sd", ".cvf",
// ".sms", any letter case) in the direct subfolders of Trainset that fail isUnicodeFile, as
// full paths in listing order. When none fails the user is told so. Progress: "Please wait.
// Checking files..." with a step per folder.
[[nodiscard]] std::vector<std::string> checkUnicode(const PathGlobals& paths, Services& services);

// Rewrites each file as UTF-16: every byte becomes one UTF-16 unit (no code page), with FF FE
// in front and nothing else added, through the safe writer. The first file that cannot be
// read or written ends the run, and the user is told; the files before it stay converted.
// Returns the files converted, in order. Progress: "Please wait. Converting files...".
[[nodiscard]] std::vector<std::string> convertToUnicode(const std::vector<std::string>& files,
                                                        Services& services);

}  // namespace rakeyard
