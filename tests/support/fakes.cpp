#include "support/fakes.h"

#include <filesystem>
#include <system_error>
#include <thread>

#include "core/platform/paths.h"

namespace rakeyard::test {

void FakeDialogs::report(std::string_view text, Icon icon, std::string_view title) {
    shown.push_back({std::string(text), icon, std::string(title), false});
}

Answer FakeDialogs::ask(std::string_view text, Buttons buttons, Icon icon, Answer /*safeAnswer*/,
                        std::string_view title) {
    shown.push_back({std::string(text), icon, std::string(title), true});
    if (!answers.empty()) {
        const Answer answer = answers.front();
        answers.pop_front();
        return answer;
    }
    if (defaultAnswer) return *defaultAnswer;
    return buttons == Buttons::YesNo ? Answer::No : Answer::Cancel;
}

std::vector<std::string> FakeDialogs::texts() const {
    std::vector<std::string> all;
    for (const Shown& s : shown)
        all.push_back(s.text);
    return all;
}

void FakeProgress::start(std::string_view label, int maximum) {
    labels.emplace_back(label);
    maximums.push_back(maximum);
}

void FakeProgress::step() {
    ++steps;
    if (onStep) onStep();
}

void FakeProgress::debugText(int label, std::string_view text) {
    debugTexts.push_back(std::to_string(label) + ":" + std::string(text));
}

bool FakeDesktop::moveToTrash(const std::string& path) {
    trashed.push_back(path);
    if (!trashRemovesFiles) return true;
    std::error_code ec;
    return std::filesystem::remove_all(path, ec) > 0 && !ec;
}

bool FakeDesktop::startProgram(const std::string& program,
                               const std::vector<std::string>& arguments) {
    std::string line = program;
    for (const std::string& a : arguments)
        line += " " + a;
    started.push_back(line);
    return startSucceeds;
}

std::optional<std::string> FailingFileSystem::writeChunk(std::FILE* file, std::uintmax_t offset,
                                                         std::string_view chunk) {
    if (!failAfterBytes || offset + chunk.size() <= *failAfterBytes)
        return LocalFileSystem::writeChunk(file, offset, chunk);
    const std::uintmax_t allowed = *failAfterBytes > offset ? *failAfterBytes - offset : 0;
    if (auto failure = LocalFileSystem::writeChunk(file, offset, chunk.substr(0, allowed)))
        return failure;
    return std::make_error_code(std::errc::no_space_on_device).message();
}

ReadOutcome FailingFileSystem::readFileInto(const std::string& path, std::uintmax_t limit,
                                            std::string& bytes) {
    if (readDelay.count() > 0) std::this_thread::sleep_for(readDelay);
    const std::string name = lastPathPart(path);
    for (const std::string& unreadable : unreadableNames) {
        if (name == unreadable) {
            bytes.clear();
            return ReadOutcome::Unreadable;
        }
    }
    return LocalFileSystem::readFileInto(path, limit, bytes);
}

}  // namespace rakeyard::test
