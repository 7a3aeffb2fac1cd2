#pragma once
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/platform/services.h"
#include "core/settings/settings_record.h"

namespace rakeyard {

// The unit, cab view, sound and shape description files (".wag", ".eng", ".sd", ".cvf",
// ".sms", any letter case) in the direct subfolders of Trainset that fail the Unicode test, as
// full paths in listing order. Files that cannot be read are not listed: the user is told of
// them apart. When none fails the user is told so. Progress: "Please wait. Checking files..."
// with a step per folder.
[[nodiscard]] std::vector<std::string> checkUnicode(const PathGlobals& paths, Services& services);

// The bytes of a file rewritten as MSTS keeps text: FF FE and UTF-16 LE, the characters kept.
// A big-endian file (FE FF) is turned round, one with the UTF-8 mark (EF BB BF) decoded as
// UTF-8, any other as Windows-1252. nullopt for a file that starts with FF FE: it is UTF-16
// already, and widening it again would double every byte.
[[nodiscard]] std::optional<std::string> unicodeFileBytes(std::string_view bytes);

// Rewrites each file with unicodeFileBytes through the safe writer. A file already starting
// with FF FE is left as it is and the user told why. The first file that cannot be read or
// written ends the run, and the user is told; the files before it stay converted. Returns the
// files converted, in order. Progress: "Please wait. Converting files...".
[[nodiscard]] std::vector<std::string> convertToUnicode(const std::vector<std::string>& files,
                                                        Services& services);

}  // namespace rakeyard
