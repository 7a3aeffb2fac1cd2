#include "cli/terminal_services.h"

#include <spawn.h>
#include <sys/wait.h>

#include <chrono>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <vector>

extern char** environ;

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

std::string_view answerText(Answer answer) {
    switch (answer) {
        case Answer::Ok:
            return "OK";
        case Answer::Cancel:
            return "Cancel";
        case Answer::Yes:
            return "Yes";
        case Answer::No:
            return "No";
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
    return buttons == Buttons::YesNo ? Answer::Yes : Answer::Ok;
}
Answer negative(Buttons buttons) {
    switch (buttons) {
        case Buttons::YesNo:
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
    print("question: ", text, " -> " + std::string(answerText(answer)));
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

bool TerminalDesktop::moveToTrash(const std::string& path) {
    namespace fs = std::filesystem;
    std::error_code error;
    const fs::path source = fs::absolute(path, error);
    if (error || !fs::exists(source, error)) return false;
    const char* dataHome = std::getenv("XDG_DATA_HOME");
    const char* home = std::getenv("HOME");
    if (!dataHome && !home) return false;
    const fs::path trash =
        dataHome ? fs::path(dataHome) / "Trash" : fs::path(home) / ".local/share/Trash";
    fs::create_directories(trash / "files", error);
    fs::create_directories(trash / "info", error);
    // A name already in the bin gets a number, as file managers do.
    std::string name = source.filename().string();
    for (int n = 2; fs::exists(trash / "files" / name, error) ||
                    fs::exists(trash / "info" / (name + ".trashinfo"), error);
         ++n)
        name = source.filename().string() + "." + std::to_string(n);
    char deleted[32];
    const std::time_t now = std::time(nullptr);
    std::strftime(deleted, sizeof deleted, "%Y-%m-%dT%H:%M:%S", std::localtime(&now));
    std::ofstream(trash / "info" / (name + ".trashinfo"))
        << "[Trash Info]\nPath=" << source.string() << "\nDeletionDate=" << deleted << "\n";
    fs::rename(source, trash / "files" / name, error);
    if (error) fs::remove(trash / "info" / (name + ".trashinfo"), error);
    return !error;
}

bool TerminalDesktop::startProgram(const std::string& program,
                                   const std::vector<std::string>& arguments) {
    std::vector<char*> argv;
    argv.push_back(const_cast<char*>(program.c_str()));
    for (const std::string& argument : arguments)
        argv.push_back(const_cast<char*>(argument.c_str()));
    argv.push_back(nullptr);
    pid_t child = 0;
    if (posix_spawnp(&child, program.c_str(), nullptr, nullptr, argv.data(), environ) != 0)
        return false;
    // Not waited for: the child is reaped only if it has already ended.
    (void)waitpid(child, nullptr, WNOHANG);
    return true;
}

void TerminalDesktop::openUrl(std::string_view url) {
    (void)startProgram("xdg-open", {std::string(url)});
}

}  // namespace rakeyard::cli
