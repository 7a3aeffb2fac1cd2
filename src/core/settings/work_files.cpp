#include "core/settings/work_files.h"

#include "core/platform/file_names.h"
#include "core/platform/paths.h"
#include "core/platform/text_utf.h"

namespace rakeyard {

bool liesInside(const std::string& path, const std::string& folder) {
    const std::string upperPath = upperAscii(path);
    std::string upperFolder = upperAscii(folder);
    if (upperPath == upperFolder) return true;
    if (upperFolder.empty() || upperFolder.back() != kPathSeparator) upperFolder += kPathSeparator;
    return upperPath.starts_with(upperFolder);
}

bool programFolderIsOwn(const PathGlobals& paths, FileSystem& fs) {
    if (paths.programFolder.empty()) return false;
    return paths.mstsPath.empty() ||
           !liesInside(fs.resolve(paths.programFolder), fs.resolve(paths.mstsPath));
}

bool removeWorkFiles(const PathGlobals& paths, FileSystem& fs,
                     std::initializer_list<std::string_view> endings,
                     const std::function<bool(std::string_view)>& keep) {
    if (!programFolderIsOwn(paths, fs)) return false;
    for (const DirEntry& entry : fs.listFolder(paths.programFolder)) {
        if (entry.isFolder || (keep && keep(entry.name))) continue;
        const std::string upper = upperAscii(entry.name);
        for (std::string_view ending : endings) {
            if (upper.size() > ending.size() && upper.ends_with(upperAscii(ending))) {
                // A work file that can't be removed is overwritten by the next one of its name.
                (void)fs.removeFile(joinPath(paths.programFolder, entry.name));
                break;
            }
        }
    }
    return true;
}

bool writeWorkFiles(const PathGlobals& paths, FileSystem& fs,
                    const std::vector<FileSystem::NamedBytes>& files) {
    for (const auto& [name, bytes] : files)
        if (!isValidFileName(name)) return false;
    return !paths.programFolder.empty() && fs.writeWorkFiles(paths.programFolder, files);
}

}  // namespace rakeyard
