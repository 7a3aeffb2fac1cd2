#pragma once
#include <future>
#include <optional>
#include <string>
#include <string_view>

#include "core/app/app_state.h"
#include "core/msts/catalogue_reader.h"
#include "core/platform/services.h"

namespace rakeyard {

// The windows that start-up may have to show, blocking. The window program shows the real
// ones; the CLI has none of them but the MSTS path, which it takes from --msts.
class StartUpWindows {
public:
    virtual ~StartUpWindows() = default;
    // frmPath. False when the user cancelled with an empty box: the program ends.
    [[nodiscard]] virtual bool showPathWindow() = 0;
    virtual void showDefaultEditorWindow() = 0;  // Defeditor
    virtual void showViewerOptionWindow() = 0;   // SFVOption
    virtual void showScreenshotsWindow() = 0;    // frmScrshots
    // The toolbar's 3D view button, enabled or not, with its tool-tip.
    virtual void setViewerButton(bool /*enabled*/, std::string_view /*toolTip*/) {}
};

// What the command line asks for: "/D" or "/d" alone turns on the debug window; any other
// text is a consist file to open, with its double quotes removed.
struct CommandLine {
    bool debugMode = false;
    std::string consistToOpen;
};
CommandLine parseCommandLine(std::string_view commandLine);

enum class StartUpResult { Ready, Ended };

// The unit files read on other threads from the Trainset folder that settings.bin names, while
// the window program makes its windows, and their records stored in the catalogue given by
// fillInto. Start-up keeps them when it comes to the catalogues and their folder is still the
// one to read; nothing is started when settings.bin names none.
class UnitFilesReadAtStart {
public:
    UnitFilesReadAtStart(const std::string& programFolder, FileSystem& fs);
    // Waits for the reading, if it is still going; one never given a catalogue stops once its
    // files are listed.
    ~UnitFilesReadAtStart();
    UnitFilesReadAtStart(const UnitFilesReadAtStart&) = delete;
    UnitFilesReadAtStart& operator=(const UnitFilesReadAtStart&) = delete;
    // Where the records go. It must outlive the reading: take() or the destructor ends it. Once.
    void fillInto(UnitCatalogue& catalogue);
    // Waits for the reading; nothing when none was started or it failed. Once only.
    UnitFilesAhead* take();

private:
    std::promise<UnitCatalogue*> catalogue_;
    bool catalogueGiven_ = false;
    std::future<UnitFilesAhead> reading_;
    std::optional<UnitFilesAhead> taken_;
};

// Reads settings.bin from state.paths.programFolder, insists on a usable MSTS folder, asks for
// the editor, viewer and screenshots folder when unset, prepares the Reports folder (the old
// StartErrors.txt deleted), reads both catalogues (taking the files read ahead, when given) and
// settles the two filters. Ended when the user gave up at the MSTS path window.
StartUpResult initProg(AppState& state, Services& services, StartUpWindows& windows,
                       UnitFilesReadAtStart* readAhead = nullptr);

// Window place stored at shutdown (twips, as the record keeps them).
struct WindowPlace {
    int left = 0;
    int top = 0;
    int height = 0;
    int width = 0;
};
// The last steps of a run: the window's place written into settings.bin.
void storeMainWindowPlace(AppState& state, Services& services, const WindowPlace& place);

// The MSTS path changed at run time: catalogues and the consist are emptied and start-up's
// steps run again. The caller has shown frmPath; oldMstsPath is the path before it. A changed
// consist is offered for saving first; when that save fails nothing else happens.
StartUpResult changeMstsPath(AppState& state, Services& services, StartUpWindows& windows,
                             const std::string& oldMstsPath);

}  // namespace rakeyard
