#include "core/tools/consists_using.h"

#include "core/platform/file_names.h"
#include "core/platform/paths.h"
#include "core/platform/text_utf.h"

namespace rakeyard {

namespace {

// The text as one byte a character, upper-cased: UTF-16 narrowed to each character's low byte.
std::string narrowedUpper(std::string_view bytes) {
    std::string text;
    const bool wide = bytes.size() >= 2 && bytes[0] == '\xFF' && bytes[1] == '\xFE';
    if (wide) {
        text.reserve(bytes.size() / 2);
        for (std::size_t i = 2; i + 1 < bytes.size(); i += 2)
            text += bytes[i];
    } else {
        text.assign(bytes);
    }
    for (char& c : text)
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    return text;
}

}  // namespace

bool consistNamesUnit(std::string_view bytes, const UnitRecord& unit) {
    if (unit.fileName.size() < 4) return false;
    const std::string stem = upperAscii(unit.fileName.substr(0, unit.fileName.size() - 4));
    const std::string folder = upperAscii(unit.folderName);
    const std::string text = narrowedUpper(bytes);
    const std::string quotedStem = "\"" + stem + "\"";
    const std::string quotedFolder = "\"" + folder + "\"";
    for (const std::string& form : {stem + " " + folder, quotedStem + " " + folder,
                                    stem + " " + quotedFolder, quotedStem + " " + quotedFolder})
        if (text.find(form) != std::string::npos) return true;
    return false;
}

std::vector<std::string> consistsUsingUnit(const UnitRecord& unit, const std::string& consistsPath,
                                           FileSystem& fs) {
    std::vector<std::string> names;
    std::string bytes;
    for (const DirEntry& entry : fs.listFolder(consistsPath)) {
        if (entry.isFolder || entry.name.size() < 4 ||
            upperAscii(entry.name.substr(entry.name.size() - 4)) != ".CON")
            continue;
        // Consists are small; one of more than 16 MB is no consist the editor wrote.
        if (fs.readFileInto(joinPath(consistsPath, entry.name), 16u << 20, bytes) !=
            ReadOutcome::Read)
            continue;
        if (consistNamesUnit(bytes, unit)) names.push_back(entry.name);
    }
    return names;
}

bool trashListedConsist(const std::string& consistsPath, const std::string& name,
                        Services& services) {
    const std::string path = joinPath(consistsPath, name);
    if (!isValidFileName(name) || !services.desktop.moveToTrash(services.fs.resolve(path))) {
        services.dialogs.report("The consist " + path + " could not be moved to the Trash.",
                                Icon::Exclamation);
        return false;
    }
    return true;
}

}  // namespace rakeyard
