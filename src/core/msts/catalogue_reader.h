#pragma once
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "core/msts/trainset_files.h"
#include "core/msts/unit_file.h"
#include "core/msts/unit_record.h"
#include "core/platform/services.h"
#include "core/settings/settings_record.h"

namespace rakeyard {

// <programFolder>/Reports/StartErrors.txt.
[[nodiscard]] std::string startErrorsFile(const PathGlobals& paths);

// Appends text and one more CR LF to StartErrors.txt, so that findings stand apart by a blank
// line. False when it could not be written.
[[nodiscard]] bool logStartError(FileSystem& fs, const PathGlobals& paths, std::string_view text);

// Fills catalogue.engines from the ".eng" files one folder below the Trainset folder, in
// listing order, from index 0 without gaps; the rest of the array is emptied. A file that
// cannot be catalogued is skipped, and why goes to StartErrors.txt; when anything went there,
// the user is asked whether to keep the report (Cancel deletes it), or told that the report
// could not be written. Past the array's end files
// are still read and checked but not stored. Progress: "Loading engine files..." with a step
// per folder, then "Retrieving engine data..." with a step per file; with debugMode the debug
// window is shown and given each file, folder and pass. Files are read on up to workerThreads
// threads (0: one per core); the result does not depend on it.
void readEngineFiles(const PathGlobals& paths, UnitCatalogue& catalogue, Services& services,
                     bool debugMode, unsigned workerThreads = 0);

// The twin of readEngineFiles for catalogue.wagons and the ".wag" files; "DEFAULT.WAG" is
// passed over.
void readWagonFiles(const PathGlobals& paths, UnitCatalogue& catalogue, Services& services,
                    bool debugMode, unsigned workerThreads = 0);

// Both catalogues' files listed, read and worked on, and their records stored in a catalogue,
// with nothing logged, shown or asked: the window program does this on other threads while it
// makes its windows, and start-up then only logs the findings and asks its questions. The
// catalogue is asked for once the files are listed, so that its owner can make it meanwhile; a
// null one ends the reading there. Its records are emptied first, as the readers do.
struct UnitFilesAhead {
    std::string trainsetPath;               // as it was given
    const UnitCatalogue* filled = nullptr;  // where the records were stored
    std::vector<TrainsetFile> engines, wagons;
    // Each file's texts for StartErrors.txt, in listing order.
    std::vector<std::vector<std::string>> engineFindings, wagonFindings;
};
[[nodiscard]] UnitFilesAhead readUnitFilesAhead(
    const std::string& trainsetPath, FileSystem& fs,
    const std::function<UnitCatalogue*()>& catalogueToFill, unsigned workerThreads = 0);

// Both catalogues, as readEngineFiles and then readWagonFiles fill them, from one listing of
// the Trainset folders: what start-up reads. Records read ahead into this catalogue from the
// same Trainset path are kept instead of being read again (not in debug mode, whose window shows
// each file's passes); the findings are logged and the questions asked all the same, in the
// same order.
void readUnitCatalogue(const PathGlobals& paths, UnitCatalogue& catalogue, Services& services,
                       bool debugMode, unsigned workerThreads = 0,
                       UnitFilesAhead* ahead = nullptr);

}  // namespace rakeyard
