#pragma once
// The loose consist editor: the activities of a route that hold loose consists, one activity's
// consists broken down into units as a tree, a row per unit and a strip of pictures, and the
// replacing of a unit inside the .act (loose_replace.h).
#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "core/msts/loose_activity.h"
#include "core/msts/route_scan.h"
#include "core/msts/unit_record.h"
#include "core/platform/services.h"
#include "core/settings/settings_record.h"

namespace rakeyard {

// One unit of a loose consist of the open activity.
struct LooseUnitEntry {
    std::string groupName;      // "LOOSE CONSIST " & n, n from 1
    float length = 0;           // metres, from the catalogue
    std::string folderPath;     // the catalogue's folder; " " for a unit not in the catalogue
    std::string fileName;       // with its extension
    std::string displayName;    // "" for a unit not in the catalogue
    std::string pictureFile;    // fileName less its last four characters & ".jpg"; " " when not
                                // in the catalogue
    std::int16_t position = 0;  // within its consist, from 1, engines and wagons together
};

// The units of the open activity, in file order; units past the last row have none.
struct LooseUnitTable {
    static constexpr std::size_t kRows = 2000;
    std::array<LooseUnitEntry, kRows> rows;
    std::size_t count = 0;
};

// The pictures of the tree's nodes, in the order of the image list.
enum class LooseImage { Activity = 1, Consist, Engine, Wagon, MissingEngine, MissingWagon };

struct LooseNode {
    std::string key;  // "Activity", "A" & n, "E" & n & "_" & k (engine) or "C" & n & "_" & k
    std::string text;
    std::size_t parent = 0;  // the activity node is its own parent
    LooseImage image = LooseImage::Activity;
};

// A box of the picture strip: empty, the first image of the image list, or a picture file.
struct LoosePicture {
    enum class Shows { Nothing, FirstImage, File } shows = Shows::Nothing;
    std::string path;
};

// The state of the window "Loose consist editor".
struct LooseEditor {
    static constexpr std::size_t kBoxes = 60;  // Picture1(1..60), six to a page
    static constexpr std::size_t kNoNode = static_cast<std::size_t>(-1);

    std::vector<std::string> routeNames;     // Combo1
    std::string activitiesFolder;            // of the route chosen
    std::vector<std::string> activityLines;  // ListView1: file & " --> " & name

    std::string activityLine;  // the line opened
    std::string activityFile;  // its file name
    std::string activityPath;
    ActivityText activity;  // the activity as it stands on disk after the last change
    std::uintmax_t activitySize = 0;
    std::string nowEditing;  // Label9

    std::vector<LooseNode> nodes;
    std::size_t selected = kNoNode;
    std::string unitToReplace;
    int oldLength = 0, newLength = 0;  // whole metres

    std::array<LoosePicture, kBoxes> pictures;
    int pagesShown = 1;  // pages 0 to pagesShown - 1 of SSTab1 are shown
    int currentPage = 0;
    int borderedBox = 0;           // the box with a border, 1 to 60; 0 for none
    std::string lengthText = "0";  // lblLenght
    std::string feetText = "0";    // lblFeet
    bool lengthExceeded = false;   // imgErrors and Label8 "Length exceeded" shown
    std::string statusText;        // panel 1 of StatusBar1
    std::string shownConsist;      // the consist showLooseConsist showed last
};

// Everything the editor's routines read and change besides the window's own state.
struct LooseContext {
    const PathGlobals& paths;
    RouteTables& routes;
    const UnitCatalogue& catalogue;
    LooseUnitTable& units;
    Services& services;
};

// Opening the window: the routes listed as the dependency tree lists them.
void readRoutes(LooseContext& context, LooseEditor& editor);

// A route chosen: the activities of its ACTIVITIES folder whose text holds "LOOSE CONSIST", as
// "file --> name". Only ".act" files are looked at, so the .act.bak backups never show.
void SearchActsForLoose(LooseContext& context, LooseEditor& editor, const std::string& routeName);

// Opens the activity of a line of the activities' list: the work files of the activity before
// are removed, a copy of the .act goes to the program's folder (Cancel's source), and each
// loose consist adds a node with its units below, a row per unit and its block as
// "LOOSE CONSIST n.old.lse". oldLength and newLength start at 0. False when nothing was opened
// (the file missing or empty, or its copy could not be written, which is told).
bool openLooseActivity(LooseContext& context, LooseEditor& editor, const std::string& line);

// Shows the consist of that group name on the picture strip and its length in lblLenght and
// lblFeet.
void showLooseConsist(LooseContext& context, LooseEditor& editor, const std::string& groupName);

// A click on a node: the boxes emptied, then its consist shown; for a unit, unitToReplace, the
// box with a border, its page and its display name in the status bar.
void selectLooseNode(LooseContext& context, LooseEditor& editor, std::size_t node);

// lblLenght set, and lblFeet from it.
void setLooseLength(LooseEditor& editor, double metres);

// The n and k of a unit node's key ("E3_2": 3 and 2); false for any other key.
[[nodiscard]] bool looseKeyNumbers(const std::string& key, std::size_t& n, std::size_t& k);

// The window closed, or another activity opened: "*.old.lse", "*.lse" and "*.act" of the
// program's folder removed (but those keep names, which are about to be written again),
// refused with a message when that folder is the MSTS folder or lies inside it.
void removeLooseWorkFiles(LooseContext& context,
                          const std::function<bool(std::string_view)>& keep = {});

// The name of consist n's work file in the program's folder: "LOOSE CONSIST n.old.lse" or,
// while a replace is written, "LOOSE CONSIST n.lse".
[[nodiscard]] std::string looseWorkFile(std::size_t n, bool old);

}  // namespace rakeyard
