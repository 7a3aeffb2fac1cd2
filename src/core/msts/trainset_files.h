#pragma once
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "core/platform/services.h"
#include "core/settings/settings_record.h"

namespace rakeyard {

// A file in a direct subfolder of Trainset.
struct TrainsetFile {
    std::string file;    // its name as on disk
    std::string folder;  // the full path of its folder
};

// The files one folder below Trainset whose names `wanted` takes, folder by folder in listing
// order (files right in Trainset and deeper ones are not units). Progress: label, with a step
// per folder. The folders are listed on up to `workers` threads; wanted and the progress are
// called on the caller's thread only.
[[nodiscard]] std::vector<TrainsetFile> listTrainsetFiles(
    const PathGlobals& paths, Services& services, std::string_view label,
    const std::function<bool(std::string_view name)>& wanted, unsigned workers = 1);
// The same for a Trainset folder given by its path.
[[nodiscard]] std::vector<TrainsetFile> listTrainsetFiles(
    const std::string& trainsetPath, FileSystem& fs, Progress& progress, std::string_view label,
    const std::function<bool(std::string_view name)>& wanted, unsigned workers = 1);

// True when the name ends in the extension (".ENG"), whatever the letter case.
[[nodiscard]] bool hasExtension(std::string_view name, std::string_view upperExtension);

}  // namespace rakeyard
