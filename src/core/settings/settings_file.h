#pragma once
#include <string>
#include <string_view>

#include "core/platform/file_system.h"
#include "core/platform/services.h"
#include "core/settings/settings_record.h"

namespace rakeyard {

inline constexpr std::string_view kSettingsFileName = "settings.bin";

// settings.bin in the program's folder.
std::string settingsFilePath(const std::string& programFolder);

// A fresh copy of the record from settings.bin. A missing file is created empty (zero length)
// and reads as all zero bytes; a file of another length is read as far as it goes; an
// unreadable one reads as zeros.
SettingsRecord readSettings(FileSystem& fs, const std::string& programFolder);

// Puts the whole record, 1664 bytes, through the safe writer. On failure the old file is whole
// and the result says why.
[[nodiscard]] WriteResult writeSettings(FileSystem& fs, const std::string& programFolder,
                                        const SettingsRecord& record);

// writeSettings into paths.programFolder, telling the user when it failed. True when written.
bool saveSettings(const SettingsRecord& record, const PathGlobals& paths, Services& services);

}  // namespace rakeyard
