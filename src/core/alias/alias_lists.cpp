#include "core/alias/alias_lists.h"

#include <algorithm>
#include <optional>
#include <thread>

#include "core/msts/find_unit.h"
#include "core/msts/ordered_work.h"
#include "core/msts/trainset_files.h"
#include "core/platform/paths.h"
#include "core/platform/text_utf.h"

namespace rakeyard {

namespace {

// What the two passes learn of one engine.
struct EngineFindings {
    enum class Cab { NoFolder, Missing, Aliased, Real, Unreadable } cab = Cab::NoFolder;
    bool realSounds = false;
    std::string unreadableCab;    // the file that stops the cab pass
    std::string unreadableSound;  // the file that stops the sound pass
};

// The files of a folder with the extension, as on disk, in listing order.
std::vector<std::string> filesWith(FileSystem& fs, const std::string& folder,
                                   std::string_view upperExtension) {
    std::vector<std::string> files;
    for (const DirEntry& entry : fs.listFolder(folder))
        if (!entry.isFolder && hasExtension(entry.name, upperExtension))
            files.push_back(joinPath(folder, entry.name));
    return files;
}

// Opening is all that is asked of an engine without a CABVIEW folder: a read limited to no
// bytes opens the file and stops there.
bool opens(FileSystem& fs, const std::string& path) {
    std::string nothing;
    return fs.readFileInto(path, 0, nothing) != ReadOutcome::Unreadable;
}

void examineCab(const EngineRecord& engine, FileSystem& fs, EngineFindings& found) {
    const std::string folder = joinPath(engine.folderPath, "CABVIEW");
    if (!fs.isFolder(folder)) {
        const std::string eng = joinPath(engine.folderPath, engine.fileName);
        if (!opens(fs, eng)) {
            found.cab = EngineFindings::Cab::Unreadable;
            found.unreadableCab = eng;
        }
        return;
    }
    const std::vector<std::string> cabs = filesWith(fs, folder, ".CVF");
    if (cabs.empty()) {
        found.cab = EngineFindings::Cab::Missing;
        return;
    }
    const std::optional<std::string> bytes = fs.readFile(cabs.front());
    if (!bytes) {
        found.cab = EngineFindings::Cab::Unreadable;
        found.unreadableCab = cabs.front();
        return;
    }
    found.cab =
        holdsParentReference(*bytes) ? EngineFindings::Cab::Aliased : EngineFindings::Cab::Real;
}

// Only the first two ".sms" decide; a single one decides alone.
void examineSounds(const EngineRecord& engine, FileSystem& fs, EngineFindings& found) {
    const std::vector<std::string> sounds =
        filesWith(fs, joinPath(engine.folderPath, "SOUND"), ".SMS");
    if (sounds.empty()) return;
    for (std::size_t i = 0; i < std::min<std::size_t>(2, sounds.size()); ++i) {
        const std::optional<std::string> bytes = fs.readFile(sounds[i]);
        if (!bytes) {
            found.unreadableSound = sounds[i];
            return;
        }
        if (holdsParentReference(*bytes)) return;
    }
    found.realSounds = true;
}

void reportUnreadable(const std::string& path, Services& services) {
    services.dialogs.report("There has been an error while opening the file " + path, Icon::Stop);
}

}  // namespace

bool holdsParentReference(std::string_view bytes) {
    using namespace std::string_view_literals;
    if (bytes.find("\x2E\0\x2E\0\\\0"sv) != std::string_view::npos ||
        bytes.find("\x2E\0\x2E\0/\0"sv) != std::string_view::npos)
        return true;
    const bool utf16 = bytes.starts_with("\xFF\xFE"sv) || bytes.starts_with("\xFE\xFF"sv);
    return !utf16 && (bytes.find("..\\"sv) != std::string_view::npos ||
                      bytes.find("../"sv) != std::string_view::npos);
}

AliasLists buildAliasLists(const UnitCatalogue& catalogue, Services& services) {
    const std::span<const UnitRecord> engines = usedRecords(catalogue, UnitClass::Engine);
    std::vector<EngineFindings> findings(engines.size());
    // Each engine's files are read on both cores; what they show is applied in catalogue order.
    forEachInOrder<EngineFindings>(
        engines.size(), std::clamp(std::thread::hardware_concurrency(), 1u, 8u),
        [&](std::size_t i) {
            EngineFindings found;
            examineCab(engines[i], services.fs, found);
            examineSounds(engines[i], services.fs, found);
            return found;
        },
        [&](std::size_t i, EngineFindings& found) { findings[i] = std::move(found); });

    AliasLists lists;
    lists.cabSources.emplace_back(kNoAlias);
    lists.soundSources.emplace_back(kNoAlias);
    for (std::size_t i = 0; i < engines.size(); ++i) {
        switch (findings[i].cab) {
            case EngineFindings::Cab::Unreadable:
                reportUnreadable(findings[i].unreadableCab, services);
                lists.complete = false;
                return lists;
            case EngineFindings::Cab::Missing:
            case EngineFindings::Cab::Aliased:
                lists.notAliased.push_back(engines[i].fileName);
                break;
            case EngineFindings::Cab::Real:
                lists.cabSources.push_back(engines[i].fileName);
                break;
            case EngineFindings::Cab::NoFolder:
                break;
        }
    }
    for (std::size_t i = 0; i < engines.size(); ++i) {
        if (!findings[i].unreadableSound.empty()) {
            reportUnreadable(findings[i].unreadableSound, services);
            lists.complete = false;
            return lists;
        }
        if (findings[i].realSounds) lists.soundSources.push_back(engines[i].fileName);
    }
    return lists;
}

const EngineRecord* findAliasEngine(const UnitCatalogue& catalogue, std::string_view line) {
    const std::span<const UnitRecord> engines = usedRecords(catalogue, UnitClass::Engine);
    const std::optional<std::size_t> found = findUnit(engines, line);
    return found ? &engines[*found] : nullptr;
}

bool listHolds(const std::vector<std::string>& list, std::string_view line) {
    const std::string upper = upperAscii(line);
    return std::any_of(list.begin(), list.end(),
                       [&](const std::string& entry) { return upperAscii(entry) == upper; });
}

}  // namespace rakeyard
