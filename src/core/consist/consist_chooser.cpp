#include "core/consist/consist_chooser.h"

#include "core/consist/consist_model.h"
#include "core/consist/consist_reader.h"
#include "core/platform/paths.h"
#include "core/platform/text_utf.h"
#include "core/settings/settings_file.h"
#include "core/settings/shell_helpers.h"

namespace rakeyard {

namespace {

constexpr std::size_t kCountColumn = 50;

bool isConsistFile(const DirEntry& entry) {
    const std::string& name = entry.name;
    return !entry.isFolder && name.size() > 4 && upperAscii(name.substr(name.size() - 4)) == ".CON";
}

std::string chooserLine(const std::string& fileName, int wagons) {
    std::string line = fileName;
    const std::size_t length = utf8Length(line);
    if (length < kCountColumn) line.append(kCountColumn - length, ' ');
    if (wagons == 0) return line + "No wagons";
    if (wagons < 10) line += ' ';
    return line + std::to_string(wagons) + " wagons";
}

int countWagons(const TextLines& file) {
    int count = 0;
    for (const std::u16string& line : file.lines) {
        if (line.find(u"WagonData") != std::u16string::npos) ++count;
    }
    return count;
}

bool validIndex(const ConsistChooser& chooser, int index) {
    return index >= 0 && static_cast<std::size_t>(index) < chooser.files.size();
}

}  // namespace

std::vector<std::string> consistFileNames(FileSystem& fs, const std::string& consistsPath) {
    std::vector<std::string> names;
    for (const DirEntry& entry : fs.listFolder(consistsPath))
        if (isConsistFile(entry)) names.push_back(entry.name);
    return names;
}

std::string chosenConsistPath(const ConsistContext& app, const std::string& fileName) {
    return joinPath(app.paths.consistsPath, fileName);
}

void readConsistFiles(const ConsistContext& app, Services& services, ConsistChooser& chooser) {
    chooser.files.clear();
    chooser.lines.clear();
    for (const std::string& name : consistFileNames(services.fs, app.paths.consistsPath)) {
        const std::optional<std::string> bytes = services.fs.readFile(chosenConsistPath(app, name));
        if (!bytes) {
            services.dialogs.report("There has been an error in the consist file " + name,
                                    Icon::Stop);
            continue;
        }
        chooser.files.push_back(name);
        chooser.lines.push_back(chooserLine(name, countWagons(textLines(*bytes))));
    }
}

std::optional<std::string> chooseConsistLine(const ConsistContext& app, Services& services,
                                             ConsistChooser& chooser, int index) {
    if (!validIndex(chooser, index)) return std::nullopt;
    chooser.currentFile = chooser.files[static_cast<std::size_t>(index)];
    app.consist.consistToLoad = chosenConsistPath(app, chooser.currentFile);
    const std::optional<std::string> bytes =
        services.fs.readFile(services.fs.resolve(app.consist.consistToLoad));
    if (!bytes) {
        services.dialogs.report("There is an error in the consist file " + chooser.currentFile,
                                Icon::Stop);
        return std::nullopt;
    }
    for (const std::u16string& line : textLines(*bytes).lines) {
        if (line.find(u"Name") == std::u16string::npos) continue;
        const ConsistName name = nameOfLine(line);
        if (name.inError) {
            services.dialogs.report("There is an error in the name of this consist!", Icon::Stop);
            return std::nullopt;
        }
        return toUtf8(name.name);
    }
    return chooser.currentFile;
}

int lineOfLastConsist(const ConsistChooser& chooser, std::string_view lastConsist) {
    std::size_t end = lastConsist.size();
    while (end > 0 && (lastConsist[end - 1] == ' ' || lastConsist[end - 1] == '\0'))
        --end;
    const std::string_view wanted = lastConsist.substr(0, end);
    if (wanted.empty()) return -1;
    for (std::size_t i = 0; i < chooser.lines.size(); ++i) {
        if (chooser.lines[i] == wanted) return static_cast<int>(i);
    }
    return -1;
}

int lineStartingWith(const ConsistChooser& chooser, std::string_view typed) {
    const std::string wanted = upperAscii(utf8Left(typed, 1));
    if (wanted.empty()) return -1;
    for (std::size_t i = 0; i < chooser.lines.size(); ++i) {
        if (upperAscii(utf8Left(chooser.lines[i], 1)) == wanted) return static_cast<int>(i);
    }
    return -1;
}

void deleteChosenConsist(const ConsistContext& app, Services& services, ConsistChooser& chooser,
                         int index) {
    if (!validIndex(chooser, index)) return;
    const std::string fileName = chooser.files[static_cast<std::size_t>(index)];
    // As with the shell's recycle bin, the outcome is not looked at: the line goes either way.
    (void)services.desktop.moveToTrash(services.fs.resolve(chosenConsistPath(app, fileName)));
    chooser.files.erase(chooser.files.begin() + index);
    chooser.lines.erase(chooser.lines.begin() + index);
    if (chooser.currentFile == fileName) chooser.currentFile.clear();
}

void editChosenConsist(const ConsistContext& app, Services& services, const ConsistChooser& chooser,
                       int index) {
    if (!validIndex(chooser, index)) return;
    if (app.paths.editorPath.empty()) {
        services.dialogs.report(
            "Please select \"Options\" from the menu and choose a text editor program.",
            Icon::Exclamation);
        return;
    }
    const std::string path =
        services.fs.resolve(chosenConsistPath(app, chooser.files[static_cast<std::size_t>(index)]));
    (void)startTextEditor(app.paths, path, services);
}

}  // namespace rakeyard
