#pragma once
#include <chrono>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "core/platform/local_file_system.h"
#include "core/platform/services.h"

namespace rakeyard::test {

// Records every message and question; answers questions from a script, then with the
// default answer.
class FakeDialogs : public Dialogs {
public:
    struct Shown {
        std::string text;
        Icon icon;
        std::string title;
        bool question;
    };
    void report(std::string_view text, Icon icon, std::string_view title) override;
    Answer ask(std::string_view text, Buttons buttons, Icon icon, Answer safeAnswer,
               std::string_view title) override;

    std::vector<Shown> shown;
    std::deque<Answer> answers;              // taken in order
    std::optional<Answer> defaultAnswer;     // when the script is used up; else No/Cancel
    std::vector<std::string> texts() const;  // every text shown, in order
};

class FakeProgress : public Progress {
public:
    void start(std::string_view label, int maximum) override;
    void step() override;
    void showDebug(bool visible) override { debugVisible = visible; }
    void debugText(int label, std::string_view text) override;

    std::vector<std::string> labels;
    std::vector<int> maximums;
    int steps = 0;
    bool debugVisible = false;
    std::vector<std::string> debugTexts;  // "3:Removing COMMENTS - Engines"
    std::function<void()> onStep;         // runs inside step(), as a pending event would
};

class FakeDesktop : public Desktop {
public:
    bool moveToTrash(const std::string& path) override;
    bool startProgram(const std::string& program,
                      const std::vector<std::string>& arguments) override;
    void openUrl(std::string_view url) override { urls.emplace_back(url); }

    std::vector<std::string> trashed;  // paths handed to the recycle bin
    std::vector<std::string> started;  // program + " " + arguments joined by blanks
    std::vector<std::string> urls;
    bool trashRemovesFiles = true;  // really removes what goes to the bin
    bool startSucceeds = true;
};

// The real file system, made to fail on demand: a safe write fails after failAfterBytes bytes
// of the temporary file, with the message of a full disk; a read of a path whose last part is
// in unreadableNames fails, as a file without read permission would.
class FailingFileSystem : public LocalFileSystem {
public:
    std::optional<std::size_t> failAfterBytes;
    std::vector<std::string> unreadableNames;
    // Each read waits this long first, as a slow disk would: a test of a run that must still
    // be going when a button is pressed does not hang on the machine's speed.
    std::chrono::milliseconds readDelay{0};
    ReadOutcome readFileInto(const std::string& path, std::uintmax_t limit,
                             std::string& bytes) override;

protected:
    std::optional<std::string> writeChunk(std::FILE* file, std::uintmax_t offset,
                                          std::string_view chunk) override;
};

struct FakeServices {
    FailingFileSystem fs;
    FakeDialogs dialogs;
    FakeProgress progress;
    FakeDesktop desktop;
    Services services{fs, dialogs, progress, desktop};
};

}  // namespace rakeyard::test
