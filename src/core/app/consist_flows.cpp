#include "core/app/consist_flows.h"

#include "core/consist/consist_reader.h"
#include "core/consist/save_offer.h"
#include "core/msts/catalogue_reader.h"
#include "core/msts/unit_list.h"
#include "core/platform/paths.h"
#include "core/settings/settings_file.h"

namespace rakeyard {

namespace {

// The files in a folder and all its subfolders.
std::size_t filesIn(FileSystem& fs, const std::string& folder) {
    std::size_t count = 0;
    for (const DirEntry& entry : fs.listFolder(folder))
        count += entry.isFolder ? filesIn(fs, joinPath(folder, entry.name)) : 1;
    return count;
}

bool goesOn(SaveOffer offer) {
    return offer != SaveOffer::Failed && offer != SaveOffer::Cancelled;
}

}  // namespace

bool confirmExit(AppState& state, Services& services) {
    if (!goesOn(offerToSaveConsist(state, services))) return false;
    state.consist.consistChanged = false;
    return true;
}

bool offerSaveOnUnload(AppState& state, Services& services) {
    return goesOn(offerToSaveConsist(state, services));
}

void loadChosenConsist(AppState& state, Services& services, const ConsistChooser& chooser,
                       int index) {
    if (index >= 0 && static_cast<std::size_t>(index) < chooser.files.size()) {
        const auto at = static_cast<std::size_t>(index);
        setText(state.settings, &SettingsRecord::lastConsist, chooser.lines[at]);
        (void)saveSettings(state.settings, state.paths, services);  // a failure is told there
        state.consist.consistToLoad = chosenConsistPath(state, chooser.files[at]);
    }
    if (!clearConsist(state, services)) return;
    (void)loadConsistFile(state, services);
}

bool refreshCatalogue(AppState& state, Services& services, UnitClass which) {
    if (!clearConsist(state, services)) return false;
    if (which == UnitClass::Engine) {
        readEngineFiles(state.paths, state.catalogue, services, state.debugMode);
    } else {
        readWagonFiles(state.paths, state.catalogue, services, state.debugMode);
    }
    services.progress.showDebug(false);
    return true;
}

bool deleteUnitOfLine(AppState& state, Services& services, UnitClass which,
                      std::string_view listLine) {
    const auto records = usedRecords(state.catalogue, which);
    const auto index = findUnitByKey(records, keyOfLine(listLine), KeyCase::Exact);
    if (!index) return false;
    const UnitRecord unit = records[*index];  // a copy: the catalogue is read again after
    const std::size_t files = filesIn(services.fs, unit.folderPath);
    const std::string question =
        std::string(which == UnitClass::Engine ? "Do you really want to delete this locomotive?"
                                               : "Do you really want to delete this wagon?") +
        "\nIts folder " + unit.folderName + " and the " + std::to_string(files) +
        (files == 1 ? " file" : " files") + " in it will all be sent to the " +
        std::string(kTrashName) + ", with every other unit of that folder.";
    if (services.dialogs.ask(question, Buttons::YesNo, Icon::Question, Answer::No) != Answer::Yes)
        return false;
    return deleteUnitFolder(state.paths, unit, services);
}

}  // namespace rakeyard
