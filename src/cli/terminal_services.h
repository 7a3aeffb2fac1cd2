#pragma once
#include <cstdio>
#include <string>
#include <string_view>

#include "cli/cli_options.h"
#include "core/platform/dialogs.h"
#include "core/platform/progress.h"

namespace rakeyard::cli {

// Message boxes on a terminal: each report is one "error: ", "warning: " or "info: " line (its
// line breaks kept) on stderr, and each question a "question: TEXT -> ANSWER" line, answered
// from --yes/--no or else with the safe answer the question names.
class TerminalDialogs : public Dialogs {
public:
    TerminalDialogs(DefaultAnswer answer, std::FILE* out) : answer_(answer), out_(out) {}
    void report(std::string_view text, Icon icon, std::string_view title = {}) override;
    Answer ask(std::string_view text, Buttons buttons, Icon icon, Answer safeAnswer,
               std::string_view title = {}) override;
    // Runs before each message, so that a progress bar can clear its line first.
    void setBeforeMessage(class TerminalProgress* progress) { progress_ = progress; }
    int errorsReported() const { return errorsReported_; }

private:
    void print(std::string_view prefix, std::string_view text, std::string_view suffix = {});

    DefaultAnswer answer_;
    std::FILE* out_;
    class TerminalProgress* progress_ = nullptr;
    int errorsReported_ = 0;
};

// A progress bar on stderr, drawn only when stderr is a terminal.
class TerminalProgress : public Progress {
public:
    explicit TerminalProgress(bool visible) : visible_(visible) {}
    void start(std::string_view label, int maximum) override;
    void step() override;
    // Clears the bar's line so that other output starts on a clean line.
    void clearLine();

private:
    void draw();

    bool visible_;
    bool drawn_ = false;
    std::string label_;
    int maximum_ = 0;
    int value_ = 0;
    int lastPercent_ = -1;
};

}  // namespace rakeyard::cli
