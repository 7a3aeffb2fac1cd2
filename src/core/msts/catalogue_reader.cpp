#include "core/msts/catalogue_reader.h"

#include <optional>
#include <span>
#include <thread>
#include <vector>

#include "core/msts/ordered_work.h"
#include "core/msts/trainset_files.h"
#include "core/msts/unit_file.h"
#include "core/platform/paths.h"
#include "core/platform/text_utf.h"

namespace rakeyard {

namespace {

// What sets the two readers apart.
struct UnitKind {
    std::string_view extension;  // upper case
    std::string_view loadingLabel;
    std::string_view retrievingLabel;
    std::string_view plural;
    std::size_t loadLimit;  // the count above which the user is warned
    std::string_view errorsQuestion;
    UnitFileResult (*readFile)(std::optional<std::string_view>, const std::string&,
                               const std::string&, bool, UnitText&);
    bool skipsDefaultWagon;
};

const UnitKind kEngines{".ENG",
                        "Loading engine files...",
                        "Retrieving engine data...",
                        "engines",
                        6000,
                        "WARNING: one or more errors have been found while reading engine files.",
                        readEngineFile,
                        false};

const UnitKind kWagons{".WAG",
                       "Loading wagon files...",
                       "Retrieving wagon data...",
                       "wagons",
                       8000,
                       "WARNING: one or more errors have been found while reading wagon files.",
                       readWagonFile,
                       true};

// What a worker keeps from file to file: the bytes read and the text made of them.
struct WorkerBuffers {
    std::string bytes;
    UnitText text;
};

unsigned defaultWorkerCount() {
    const unsigned cores = std::thread::hardware_concurrency();
    return cores == 0 ? 1 : std::min(cores, 8u);
}

// The findings go to StartErrors.txt as they come; when some could not be written there is no
// report to keep, and the user is told so instead of being asked.
void offerToKeepStartErrors(const PathGlobals& paths, const UnitKind& kind, bool reportWhole,
                            Services& services) {
    if (!reportWhole) {
        services.dialogs.report(std::string(kind.errorsQuestion) + "\n" +
                                    "They could not all be written to " + startErrorsFile(paths) +
                                    " (the disk may be full or the folder read-only).",
                                Icon::Exclamation);
        return;
    }
    const std::string question = std::string(kind.errorsQuestion) + "\r\n" +
                                 "Do you wish to save these errors to a file?" + "\n" +
                                 "The report will be saved with the name StartErrors.txt under " +
                                 joinPath(paths.programFolder, "Reports");
    if (services.dialogs.ask(question, Buttons::OkCancel, Icon::Exclamation, Answer::Ok) ==
        Answer::Cancel)
        (void)services.fs.removeFile(startErrorsFile(paths));
}

// The unit files of one kind, or of both, listed once.
std::vector<TrainsetFile> listUnitFiles(const std::string& trainsetPath, FileSystem& fs,
                                        Progress& progress, const UnitKind& kind, bool bothKinds,
                                        unsigned workers) {
    return listTrainsetFiles(
        trainsetPath, fs, progress, kind.loadingLabel,
        [&](std::string_view name) {
            return hasExtension(name, kind.extension) ||
                   (bothKinds && hasExtension(name, kWagons.extension));
        },
        workers);
}

// Both kinds' files from one listing, engines and wagons apart, each in listing order.
void listBothKinds(const std::string& trainsetPath, FileSystem& fs, Progress& progress,
                   unsigned workers, std::vector<TrainsetFile>& engines,
                   std::vector<TrainsetFile>& wagons) {
    for (TrainsetFile& file : listUnitFiles(trainsetPath, fs, progress, kEngines, true, workers))
        (hasExtension(file.file, kEngines.extension) ? engines : wagons).push_back(std::move(file));
}

// One listed file read and worked on, nothing stored yet.
UnitFileResult readListedFile(const UnitKind& kind, const TrainsetFile& entry, FileSystem& fs,
                              bool debugMode, WorkerBuffers& buffers) {
    if (kind.skipsDefaultWagon && upperAscii(entry.file) == "DEFAULT.WAG") return {};
    try {
        const ReadOutcome read =
            fs.readFileInto(joinPath(entry.folder, entry.file), kUnitFileSizeLimit, buffers.bytes);
        if (read == ReadOutcome::TooLarge) return tooLargeUnitFile(entry.file, entry.folder);
        const std::optional<std::string_view> bytes =
            read == ReadOutcome::Read ? std::optional<std::string_view>(buffers.bytes)
                                      : std::nullopt;
        return kind.readFile(bytes, entry.file, entry.folder, debugMode, buffers.text);
    } catch (const std::exception&) {
        // Memory ran out for this file: it is refused like an unreadable one, and the reading
        // goes on.
        return kind.readFile(std::nullopt, entry.file, entry.folder, debugMode, buffers.text);
    }
}

// A file's record takes the catalogue's next free place when the file began one; a valid unit
// keeps it. Past the catalogue's end nothing is stored.
void placeRecord(std::span<UnitRecord> records, std::size_t& next, UnitFileResult& result) {
    if (next >= records.size()) return;
    if (result.recordBegun) records[next] = std::move(result.record);
    if (result.accepted) ++next;
}

void emptyRecords(std::span<UnitRecord> records) {
    for (UnitRecord& record : records)
        record = UnitRecord{};
}

// What was read ahead of one kind: its records already stand in the catalogue.
struct StoredAhead {
    const std::vector<std::vector<std::string>>& findings;
    std::size_t count;
};

// Reads the listed files of the kind into the records, or takes them as stored ahead.
void readUnitFiles(const UnitKind& kind, const std::vector<TrainsetFile>& listing,
                   const PathGlobals& paths, std::span<UnitRecord> records, std::size_t& count,
                   Services& services, bool debugMode, unsigned workers,
                   const StoredAhead* stored = nullptr) {
    const StoredAhead* ahead =
        stored && stored->findings.size() == listing.size() ? stored : nullptr;
    if (!ahead) emptyRecords(records);
    count = ahead ? ahead->count : 0;
    if (listing.size() > kind.loadLimit) {
        services.dialogs.report(
            std::to_string(listing.size()) + " " + std::string(kind.plural) +
                " have been found, but Rakeyard can only load " + std::to_string(kind.loadLimit) +
                " " + std::string(kind.plural) + "!" + "\n" + "Not all of them have been loaded.",
            Icon::Stop);
    }
    if (debugMode) services.progress.showDebug(true);
    if (listing.empty()) return;

    services.progress.start(kind.retrievingLabel, static_cast<int>(listing.size()));
    bool errorsFound = false;
    bool reportWhole = true;
    const auto logFindings = [&](const std::vector<std::string>& findings) {
        for (const std::string& finding : findings) {
            reportWhole = logStartError(services.fs, paths, finding) && reportWhole;
            errorsFound = true;
        }
    };
    if (ahead) {
        for (const std::vector<std::string>& findings : ahead->findings) {
            services.progress.step();
            logFindings(findings);
        }
    } else {
        std::size_t next = 0;
        forEachInOrder<UnitFileResult, WorkerBuffers>(
            listing.size(), workers,
            [&](std::size_t i, WorkerBuffers& buffers) {
                return readListedFile(kind, listing[i], services.fs, debugMode, buffers);
            },
            [&](std::size_t i, UnitFileResult& result) {
                services.progress.step();
                if (debugMode) {
                    services.progress.debugText(1, listing[i].file);
                    services.progress.debugText(2, listing[i].folder);
                    for (const std::string& title : result.passTitles)
                        services.progress.debugText(3, title);
                }
                logFindings(result.findings);
                placeRecord(records, next, result);
            });
        count = next;
    }
    if (errorsFound) offerToKeepStartErrors(paths, kind, reportWhole, services);
}

// Reads the listed files into the records, emptied first, keeping each file's findings.
// Returns the records stored.
std::size_t storeAll(const UnitKind& kind, const std::vector<TrainsetFile>& listing,
                     std::span<UnitRecord> records,
                     std::vector<std::vector<std::string>>& findings, FileSystem& fs,
                     unsigned workers) {
    emptyRecords(records);
    findings.reserve(listing.size());
    std::size_t next = 0;
    forEachInOrder<UnitFileResult, WorkerBuffers>(
        listing.size(), workers,
        [&](std::size_t i, WorkerBuffers& buffers) {
            return readListedFile(kind, listing[i], fs, false, buffers);
        },
        [&](std::size_t, UnitFileResult& result) {
            findings.push_back(std::move(result.findings));
            placeRecord(records, next, result);
        });
    return next;
}

}  // namespace

std::string startErrorsFile(const PathGlobals& paths) {
    return joinPath(joinPath(paths.programFolder, "Reports"), "StartErrors.txt");
}

bool logStartError(FileSystem& fs, const PathGlobals& paths, std::string_view text) {
    return fs.appendFile(startErrorsFile(paths), std::string(text) + "\r\n");
}

void readEngineFiles(const PathGlobals& paths, UnitCatalogue& catalogue, Services& services,
                     bool debugMode, unsigned workerThreads) {
    const unsigned workers = workerThreads == 0 ? defaultWorkerCount() : workerThreads;
    readUnitFiles(kEngines,
                  listUnitFiles(paths.trainsetPath, services.fs, services.progress, kEngines,
                                false, workers),
                  paths, catalogue.engines, catalogue.engineCount, services, debugMode, workers);
}

void readWagonFiles(const PathGlobals& paths, UnitCatalogue& catalogue, Services& services,
                    bool debugMode, unsigned workerThreads) {
    const unsigned workers = workerThreads == 0 ? defaultWorkerCount() : workerThreads;
    readUnitFiles(kWagons,
                  listUnitFiles(paths.trainsetPath, services.fs, services.progress, kWagons,
                                false, workers),
                  paths, catalogue.wagons, catalogue.wagonCount, services, debugMode, workers);
}

UnitFilesAhead readUnitFilesAhead(const std::string& trainsetPath, FileSystem& fs,
                                  const std::function<UnitCatalogue*()>& catalogueToFill,
                                  unsigned workerThreads) {
    const unsigned workers = workerThreads == 0 ? defaultWorkerCount() : workerThreads;
    NoProgress quiet;
    UnitFilesAhead ahead;
    ahead.trainsetPath = trainsetPath;
    listBothKinds(trainsetPath, fs, quiet, workers, ahead.engines, ahead.wagons);
    UnitCatalogue* catalogue = catalogueToFill();
    if (!catalogue) return ahead;
    catalogue->engineCount = storeAll(kEngines, ahead.engines, catalogue->engines,
                                      ahead.engineFindings, fs, workers);
    catalogue->wagonCount = storeAll(kWagons, ahead.wagons, catalogue->wagons,
                                     ahead.wagonFindings, fs, workers);
    ahead.filled = catalogue;
    return ahead;
}

void readUnitCatalogue(const PathGlobals& paths, UnitCatalogue& catalogue, Services& services,
                       bool debugMode, unsigned workerThreads, UnitFilesAhead* ahead) {
    const unsigned workers = workerThreads == 0 ? defaultWorkerCount() : workerThreads;
    if (ahead && (debugMode || ahead->trainsetPath != paths.trainsetPath ||
                  ahead->filled != &catalogue))
        ahead = nullptr;
    UnitFilesAhead listed;
    if (!ahead) {
        listBothKinds(paths.trainsetPath, services.fs, services.progress, workers, listed.engines,
                      listed.wagons);
    }
    const UnitFilesAhead& files = ahead ? *ahead : listed;
    const std::optional<StoredAhead> engines =
        ahead ? std::optional<StoredAhead>({ahead->engineFindings, catalogue.engineCount})
              : std::nullopt;
    const std::optional<StoredAhead> wagons =
        ahead ? std::optional<StoredAhead>({ahead->wagonFindings, catalogue.wagonCount})
              : std::nullopt;
    readUnitFiles(kEngines, files.engines, paths, catalogue.engines, catalogue.engineCount,
                  services, debugMode, workers, engines ? &*engines : nullptr);
    readUnitFiles(kWagons, files.wagons, paths, catalogue.wagons, catalogue.wagonCount, services,
                  debugMode, workers, wagons ? &*wagons : nullptr);
}

}  // namespace rakeyard
