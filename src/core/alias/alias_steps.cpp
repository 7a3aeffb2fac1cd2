#include "core/alias/alias_steps.h"

#include "core/alias/alias_rewrite.h"
#include "core/msts/msts_lines.h"
#include "core/msts/trainset_files.h"
#include "core/platform/file_names.h"
#include "core/platform/paths.h"
#include "core/platform/text_utf.h"
#include "core/settings/work_files.h"

namespace rakeyard {

namespace {

bool climbs(std::string_view relative) {
    std::size_t begin = 0;
    while (begin <= relative.size()) {
        std::size_t end = begin;
        while (end < relative.size() && !isPathSeparator(relative[end]))
            ++end;
        const std::string_view part = relative.substr(begin, end - begin);
        if (part == ".." || part == ".") return true;
        begin = end + 1;
    }
    return false;
}

}  // namespace

void reportCannotOpen(const std::string& path, Services& services) {
    services.dialogs.report("There has been an error while opening the file " + path, Icon::Stop);
}

void reportFileError(const std::string& path, Services& services) {
    services.dialogs.report("The file " + path + " contains an error!", Icon::Stop, "ERROR");
}

void reportAliased(Services& services) {
    services.dialogs.report(
        "The locomotive has been aliased! Please test it to search for missing files\nand check "
        "if the alias has been sucsessful.",
        Icon::Information);
}

std::optional<std::string> readOrReport(const std::string& path, Services& services) {
    std::optional<std::string> bytes = services.fs.readFile(path);
    if (!bytes) reportCannotOpen(path, services);
    return bytes;
}

std::optional<std::string> relativeToTrainset(const PathGlobals& paths, FileSystem& fs,
                                              const std::string& path) {
    if (paths.trainsetPath.empty() || path.empty()) return std::nullopt;
    const std::string resolved = fs.resolve(path);
    std::string root = fs.resolve(paths.trainsetPath);
    if (!root.empty() && root.back() != kPathSeparator) root += kPathSeparator;
    if (!liesInside(resolved, root) || resolved.size() <= root.size()) return std::nullopt;
    std::string relative = resolved.substr(root.size());
    if (climbs(relative)) return std::nullopt;
    return relative;
}

std::u16string trainsetReference(std::string_view relativePath) {
    std::u16string reference = u"..\\\\..\\\\";
    for (char16_t c : toUtf16(relativePath)) {
        if (c == u'\\' || c == u'/') {
            reference += u"\\\\";
        } else {
            reference += c;
        }
    }
    return reference;
}

std::string enginePath(const EngineRecord& engine) {
    return joinPath(engine.folderPath, engine.fileName);
}

std::string backupPath(const EngineRecord& engine) {
    return enginePath(engine) + ".bk";
}

bool backupIsFree(const EngineRecord& engine, bool backup, Services& services) {
    if (!backup || !services.fs.isFile(backupPath(engine))) return true;
    services.dialogs.report(std::string(kAliasFailed) + "\nIts backup " +
                                services.fs.resolve(backupPath(engine)) +
                                " is there already and is kept: restore the engine first, or "
                                "alias it without a backup.",
                            Icon::Stop);
    return false;
}

bool writeAliasedEngine(const EngineRecord& engine, std::string_view oldBytes,
                        std::string_view newBytes, bool backup, Services& services) {
    const auto fail = [&](const std::string& why) {
        services.dialogs.report(std::string(kAliasFailed) + "\n" + why, Icon::Stop);
        return false;
    };
    if (backup) {
        if (WriteResult made = services.fs.writeFile(backupPath(engine), oldBytes); !made)
            return fail("The backup " + backupPath(engine) +
                        " could not be written: " + made.message);
    }
    if (WriteResult written = services.fs.writeFile(enginePath(engine), newBytes); !written) {
        // The old ".eng" is whole, so the copy just made is not needed.
        if (backup) (void)services.fs.removeFile(backupPath(engine));
        return fail("The file " + enginePath(engine) + " could not be written: " + written.message);
    }
    return true;
}

std::vector<NamedFile> namesOfOtherEngines(const EngineRecord& engine, FileSystem& fs) {
    std::vector<NamedFile> names;
    const std::string own = upperAscii(engine.fileName);
    for (const DirEntry& entry : fs.listFolder(engine.folderPath)) {
        if (entry.isFolder || !hasExtension(entry.name, ".ENG") || upperAscii(entry.name) == own)
            continue;
        const std::string path = joinPath(engine.folderPath, entry.name);
        const std::optional<std::string> bytes = fs.readFile(path);
        if (!bytes) continue;  // an engine that can't be read names nothing MSTS could load
        const EngineReferences references = readEngineReferences(readTextLines(*bytes));
        std::vector<std::u16string> named = references.sounds;
        if (references.cabView) named.push_back(*references.cabView);
        for (const std::u16string& name : named) {
            const std::string text = toUtf8(name);
            if (isValidFileName(text)) names.push_back({upperAscii(text), path});
        }
    }
    return names;
}

bool folderIsOwn(const std::string& folder, Services& services) {
    if (!services.fs.isLink(folder)) return true;
    services.dialogs.report("The folder " + services.fs.resolve(folder) +
                                " is a link to another place, which aliasing does not change.\n"
                                "Nothing was changed.",
                            Icon::Exclamation);
    return false;
}

void removeLeftoverCopies(const PathGlobals& paths, Services& services) {
    if (!programFolderIsOwn(paths, services.fs)) return;
    const std::string home = services.fs.resolve(paths.programFolder);
    for (const DirEntry& entry : services.fs.listFolder(home)) {
        // A copy that can't be moved stays; it harms nothing but the space it takes.
        if (!entry.isFolder && hasExtension(entry.name, ".ENG"))
            (void)services.desktop.moveToTrash(joinPath(home, entry.name));
    }
}

}  // namespace rakeyard
