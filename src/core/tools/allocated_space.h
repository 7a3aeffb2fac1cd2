#pragma once
#include <cstdint>
#include <string>

#include "core/msts/unit_record.h"
#include "core/platform/file_system.h"
#include "core/platform/progress.h"
#include "core/platform/services.h"
#include "core/settings/settings_record.h"

namespace rakeyard {

// What the allocated space window shows: counts, and byte totals by kind of file.
struct SpaceTotals {
    std::size_t engines = 0;
    std::size_t wagons = 0;
    std::size_t consists = 0;
    std::uint64_t consistBytes = 0;
    std::uint64_t engineBytes = 0;  // every file of an engine's folder
    std::uint64_t cabBytes = 0;     // the files of an engine folder's CABVIEW
    std::uint64_t soundBytes = 0;   // the files of an engine folder's SOUND
    std::uint64_t wagonBytes = 0;   // files of other folders, and those in front of the ".eng"
    std::uint64_t engineFolderBytes() const { return engineBytes + cabBytes + soundBytes; }
};

// Counts the catalogued units and the consists, and adds up the sizes of the consist files and
// of the Trainset folders. A folder whose name ends in "DEFAULT" (any case) is passed over. In a
// folder the files are taken in listing order: each adds to the wagon total until the first
// ".eng", which makes it an engine folder: then all its files add to the engine total, its
// CABVIEW and SOUND folders to theirs, and the folder is done. Progress steps once a folder.
SpaceTotals allocatedSpace(const UnitCatalogue& catalogue, const PathGlobals& paths, FileSystem& fs,
                           Progress& progress);

// A whole number with "," between thousands and no decimals ("1,234,567"); "" for 0, as the
// window's format shows nothing there.
std::string thousandsText(std::uint64_t value);
// A number with "," between thousands and two decimals ("1,205.57", "0.00"), whatever the
// locale.
std::string thousandsTextTwoDecimals(double value);
// bytes / 1024 / 1000 with two decimals: the window's megabytes.
std::string megabytesText(std::uint64_t bytes);

// The three forms of the unit lists.
enum class ListForm { CommaDelimited, Spreadsheet, FileNamesOnly };

// The two files of a form in the Reports folder ("Engines list.txt" and "Wagons list.txt", or
// "Engs1.txt" and "Wags1.txt"), written whole; then the message that they are ready. False,
// after telling why, when one could not be written.
bool writeUnitLists(const UnitCatalogue& catalogue, const PathGlobals& paths, ListForm form,
                    Services& services);
// The text of one list: engines when engines is true, else wagons. Each row a delimited record
// ending in CR LF; in the comma-delimited form each field ends in a TAB inside its quotes, in
// the spreadsheet form mass and length stand bare.
std::string unitListText(const UnitCatalogue& catalogue, ListForm form, bool engines);

}  // namespace rakeyard
