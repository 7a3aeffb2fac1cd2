#include "core/settings/settings_file.h"

#include "core/platform/paths.h"

namespace rakeyard {

std::string settingsFilePath(const std::string& programFolder) {
    return joinPath(programFolder, kSettingsFileName);
}

SettingsRecord readSettings(FileSystem& fs, const std::string& programFolder) {
    const std::string path = settingsFilePath(programFolder);
    if (!fs.isFile(path) && !fs.isFolder(path)) {
        // The first run: the file exists from now on, empty, as the first open leaves it. A
        // folder that can't take it only loses this; the record still reads as zeros.
        (void)fs.writeFile(path, {});
        return SettingsRecord{};
    }
    return parseSettings(fs.readFile(path).value_or(std::string()));
}

WriteResult writeSettings(FileSystem& fs, const std::string& programFolder,
                          const SettingsRecord& record) {
    return fs.writeFile(settingsFilePath(programFolder), serializeSettings(record));
}

bool saveSettings(const SettingsRecord& record, const PathGlobals& paths, Services& services) {
    const WriteResult written = writeSettings(services.fs, paths.programFolder, record);
    if (written) return true;
    services.dialogs.report("The settings could not be saved in \"" +
                                settingsFilePath(paths.programFolder) + "\":\n" + written.message,
                            Icon::Stop, "ERROR");
    return false;
}

}  // namespace rakeyard
