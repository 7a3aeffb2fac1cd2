#include "core/msts/trainset_files.h"

#include "core/msts/ordered_work.h"
#include "core/platform/paths.h"
#include "core/platform/text_utf.h"

namespace rakeyard {

bool hasExtension(std::string_view name, std::string_view upperExtension) {
    return name.size() >= upperExtension.size() &&
           upperAscii(name.substr(name.size() - upperExtension.size())) == upperExtension;
}

std::vector<TrainsetFile> listTrainsetFiles(const PathGlobals& paths, Services& services,
                                            std::string_view label,
                                            const std::function<bool(std::string_view)>& wanted,
                                            unsigned workers) {
    return listTrainsetFiles(paths.trainsetPath, services.fs, services.progress, label, wanted,
                             workers);
}

std::vector<TrainsetFile> listTrainsetFiles(const std::string& trainsetPath, FileSystem& fs,
                                            Progress& progress, std::string_view label,
                                            const std::function<bool(std::string_view)>& wanted,
                                            unsigned workers) {
    const std::string trainset = fs.resolve(trainsetPath);
    std::vector<std::string> folders;
    for (const DirEntry& entry : fs.listFolder(trainset)) {
        if (entry.isFolder) folders.push_back(joinPath(trainset, entry.name));
    }
    progress.start(label, static_cast<int>(folders.size()));
    std::vector<TrainsetFile> files;
    forEachInOrder<std::vector<DirEntry>>(
        folders.size(), workers, [&](std::size_t i) { return fs.listFolder(folders[i]); },
        [&](std::size_t i, const std::vector<DirEntry>& entries) {
            progress.step();
            for (const DirEntry& entry : entries) {
                if (!entry.isFolder && !entry.name.empty() && wanted(entry.name))
                    files.push_back({entry.name, folders[i]});
            }
        });
    return files;
}

}  // namespace rakeyard
