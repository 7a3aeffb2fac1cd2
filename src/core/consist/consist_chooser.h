#pragma once
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/app/app_state.h"
#include "core/platform/services.h"

namespace rakeyard {

// The lists of frmLoadCon: the ".con" files of the Consists folder in listing order and the line
// shown for each, always in step (files[i] is the file of lines[i]).
struct ConsistChooser {
    std::vector<std::string> files;  // file names as on disk
    std::vector<std::string> lines;  // conList
    std::string currentFile;         // the file of the line last clicked
    std::string countText() const { return std::to_string(lines.size()); }  // Label2
};

// Fills the chooser from the Consists folder: each line is the file name, blanks up to column 50,
// and the number of its "WagonData" lines ("No wagons", " 7 wagons", "12 wagons"). A file that
// can't be read is reported and left out.
void readConsistFiles(AppState& app, Services& services, ConsistChooser& chooser);

// A click on line index: it becomes the consist to load, and the text for Label1 is returned:
// the consist's name, or the file name when it has no "Name" line. nullopt, with a message, when
// the file can't be read or its name is in error.
std::optional<std::string> conList_Click(AppState& app, Services& services, ConsistChooser& chooser,
                                         int index);

// The line to select when the window opens: the one equal to the stored last consist (settings
// padding ignored); -1 when there is none.
int lineOfLastConsist(const ConsistChooser& chooser, std::string_view lastConsist);
// The first line whose first character equals the typed one (UTF-8) regardless of case; -1.
int lineStartingWith(const ConsistChooser& chooser, std::string_view typed);

// OK or a double click on line index: the line is stored as settings.bin's last consist, and the
// chosen consist replaces the open one (which is offered for saving first). The caller closes
// the window.
void OKButton_Click(AppState& app, Services& services, const ConsistChooser& chooser, int index);

// The Delete key: the file of line index goes to the recycle bin, without a question, and its
// line leaves the lists.
void conList_Delete(AppState& app, Services& services, ConsistChooser& chooser, int index);
// Ctrl + left button: the file opens in the user's text editor.
void conList_CtrlClick(AppState& app, Services& services, const ConsistChooser& chooser, int index);

}  // namespace rakeyard
