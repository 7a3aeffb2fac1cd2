#include "cli/terminal_services.h"

#include <chrono>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <vector>

namespace rakeyard::cli {
namespace {

std::string_view prefixOf(Icon icon) {
    switch (icon) {
        case Icon::Stop:
            return "error: ";
        case Icon::Exclamation:
            return "warning: ";
        default:
            return "info: ";
    }
}

std::string_view answerText(Answer answer, Buttons buttons) {
    const bool saving = buttons == Buttons::SaveDiscardCancel;
    switch (answer) {
        case Answer::Ok:
            return "OK";
        case Answer::Cancel:
            return "Cancel";
        case Answer::Yes:
            return saving ? "Save" : "Yes";
        case Answer::No:
            return saving ? "Discard" : "No";
    }
    return "";
}

// CR LF and lone CRs of a message become the terminal's LF.
std::string terminalLines(std::string_view text) {
    std::string lines;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\r') {
            lines += '\n';
            if (i + 1 < text.size() && text[i + 1] == '\n') ++i;
        } else {
            lines += text[i];
        }
    }
    return lines;
}

Answer affirmative(Buttons buttons) {
    return buttons == Buttons::YesNo || buttons == Buttons::SaveDiscardCancel ? Answer::Yes
                                                                              : Answer::Ok;
}
Answer negative(Buttons buttons) {
    switch (buttons) {
        case Buttons::YesNo:
        case Buttons::SaveDiscardCancel:  // --no saves nothing and goes on
            return Answer::No;
        case Buttons::OkCancel:
            return Answer::Cancel;
        case Buttons::Ok:
            break;
    }
    return Answer::Ok;
}

}  // namespace

void TerminalDialogs::print(std::string_view prefix, std::string_view text,
                            std::string_view suffix) {
    if (progress_) progress_->clearLine();
    const std::string line = std::string(prefix) + terminalLines(text) + std::string(suffix);
    std::fprintf(out_, "%s\n", line.c_str());
    std::fflush(out_);
}

void TerminalDialogs::report(std::string_view text, Icon icon, std::string_view /*title*/) {
    if (icon == Icon::Stop) ++errorsReported_;
    print(prefixOf(icon), text);
}

Answer TerminalDialogs::ask(std::string_view text, Buttons buttons, Icon /*icon*/,
                            Answer safeAnswer, std::string_view /*title*/) {
    Answer answer = safeAnswer;
    if (answer_ == DefaultAnswer::Yes) answer = affirmative(buttons);
    if (answer_ == DefaultAnswer::No) answer = negative(buttons);
    print("question: ", text, " -> " + std::string(answerText(answer, buttons)));
    return answer;
}

void TerminalProgress::start(std::string_view label, int maximum) {
    clearLine();
    label_ = label;
    maximum_ = maximum;
    value_ = 0;
    lastPercent_ = -1;
    draw();
}

void TerminalProgress::step() {
    ++value_;
    draw();
}

void TerminalProgress::draw() {
    if (!visible_ || maximum_ <= 0) return;
    const int percent = std::min(100, value_ * 100 / maximum_);
    if (percent == lastPercent_) return;
    lastPercent_ = percent;
    constexpr int kWidth = 30;
    const int filled = percent * kWidth / 100;
    std::fprintf(stderr, "\r%s [%s%s] %3d%%", label_.c_str(), std::string(filled, '#').c_str(),
                 std::string(kWidth - filled, ' ').c_str(), percent);
    std::fflush(stderr);
    drawn_ = true;
}

void TerminalProgress::clearLine() {
    if (!drawn_) return;
    std::fputs("\r\033[K", stderr);
    std::fflush(stderr);
    drawn_ = false;
}

}  // namespace rakeyard::cli
