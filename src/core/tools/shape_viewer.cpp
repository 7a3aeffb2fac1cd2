#include "core/tools/shape_viewer.h"

#include "core/msts/inside_path.h"
#include "core/msts/unit_list.h"
#include "core/platform/paths.h"
#include "core/platform/text_utf.h"

namespace rakeyard {

namespace {

// The pictures a viewer saves there, so that only new ones are found after it ran.
void clearScreenshots(const PathGlobals& paths, Services& services) {
    const std::string& folder = paths.screenshotsPath;
    if (folder.empty() || !services.fs.isFolder(folder)) return;
    if (joinInside(paths.mstsPath, folder, "x")) return;
    for (const DirEntry& entry : services.fs.listFolder(folder)) {
        const std::string upper = upperAscii(entry.name);
        if (entry.isFolder || !(upper.ends_with(".BMP") || upper.ends_with(".JPG"))) continue;
        (void)services.desktop.moveToTrash(services.fs.resolve(joinPath(folder, entry.name)));
    }
}

}  // namespace

bool TriDviewer(const PathGlobals& paths, const UnitCatalogue& catalogue, Services& services,
                bool engines, const std::string& line) {
    if (paths.viewerPath.empty() || upperAscii(paths.viewerPath) == "NO") {
        services.dialogs.report(
            "You must set the path for the program you wish to use as a shape viewer!\nUnder the "
            "Menu select Options - Select 3D viewer",
            Icon::Stop);
        return false;
    }
    clearScreenshots(paths, services);
    const auto records = usedRecords(catalogue, engines ? UnitClass::Engine : UnitClass::Wagon);
    const auto index =
        line.empty() ? std::nullopt : findUnitByKey(records, keyOfLine(line), KeyCase::Ignore);
    if (!index) {
        services.dialogs.report("You must select an engine or a wagon first!", Icon::Stop);
        return false;
    }
    const UnitRecord& unit = records[*index];
    const std::string shape = joinPath(
        joinPath(joinPath(paths.mstsPath, "TRAINS\\TRAINSET"), unit.folderName), unit.shapeName);
    return services.desktop.startProgram(paths.viewerPath, {services.fs.resolve(shape)});
}

}  // namespace rakeyard
