#pragma once
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/consist/consist_context.h"
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

// The consist files ("*.con") of the Consists folder, in the order the folder lists them.
[[nodiscard]] std::vector<std::string> consistFileNames(FileSystem& fs,
                                                        const std::string& consistsPath);

// The full path of a chooser file in the Consists folder.
[[nodiscard]] std::string chosenConsistPath(const ConsistContext& app, const std::string& fileName);

// Fills the chooser from the Consists folder: each line is the file name, blanks up to column 50,
// and the number of its "WagonData" lines ("No wagons", " 7 wagons", "12 wagons"). A file that
// can't be read is reported and left out.
void readConsistFiles(const ConsistContext& app, Services& services, ConsistChooser& chooser);

// A click on line index: it becomes the consist to load, and the text for Label1 is returned:
// the consist's name, or the file name when it has no "Name" line. nullopt, with a message, when
// the file can't be read or its name is in error.
std::optional<std::string> chooseConsistLine(const ConsistContext& app, Services& services,
                                             ConsistChooser& chooser, int index);

// The line to select when the window opens: the one equal to the stored last consist (settings
// padding ignored); -1 when there is none.
int lineOfLastConsist(const ConsistChooser& chooser, std::string_view lastConsist);
// The first line whose first character equals the typed one (UTF-8) regardless of case; -1.
int lineStartingWith(const ConsistChooser& chooser, std::string_view typed);

// The Delete key: the file of line index goes to the recycle bin, without a question, and its
// line leaves the lists.
void deleteChosenConsist(const ConsistContext& app, Services& services, ConsistChooser& chooser,
                         int index);
// Ctrl + left button: the file opens in the user's text editor.
void editChosenConsist(const ConsistContext& app, Services& services, const ConsistChooser& chooser,
                       int index);

}  // namespace rakeyard
