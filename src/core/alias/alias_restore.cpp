#include "core/alias/alias_restore.h"

#include "core/alias/alias_lists.h"
#include "core/platform/paths.h"
#include "core/platform/text_utf.h"

namespace rakeyard {

namespace {

// True when the folder holds a file of exactly this name.
bool holdsExactly(FileSystem& fs, const std::string& folder, const std::string& name) {
    for (const DirEntry& entry : fs.listFolder(folder))
        if (!entry.isFolder && entry.name == name) return true;
    return false;
}

}  // namespace

AliasOutcome restoreEngine(const std::string& line, const UnitCatalogue& catalogue,
                           Services& services) {
    if (line.empty()) {
        services.dialogs.report("You must provide an engine to restore!", Icon::Exclamation);
        return AliasOutcome::Refused;
    }
    const EngineRecord* engine = findAliasEngine(catalogue, line);
    if (!engine || !services.fs.isFile(backupPath(*engine))) {
        services.dialogs.report("There is no engine to restore!", Icon::Exclamation);
        return AliasOutcome::Refused;
    }
    FileSystem& fs = services.fs;
    const std::string folder = fs.resolve(engine->folderPath);
    const std::string oldName = lastPathPart(fs.resolve(enginePath(*engine)));
    const std::string restoredName = upperAscii(engine->fileName);
    const std::string backup = fs.resolve(backupPath(*engine));

    bool restored = fs.renameFile(backup, joinPath(folder, restoredName));
    // On a file system that ignores letter case the rename has replaced the old file already.
    if (restored && oldName != restoredName && holdsExactly(fs, folder, oldName) &&
        holdsExactly(fs, folder, restoredName))
        restored = services.desktop.moveToTrash(joinPath(folder, oldName));
    if (!restored) {
        services.dialogs.report(
            "There was an error while trying to restore the engine " + engine->fileName + " !",
            Icon::Stop);
        return AliasOutcome::Failed;
    }
    services.dialogs.report("The engine " + engine->fileName + " has been restored!",
                            Icon::Information);
    return AliasOutcome::Done;
}

}  // namespace rakeyard
