#include "core/msts/unicode_check.h"

#include <optional>

#include "core/msts/msts_text.h"
#include "core/platform/paths.h"
#include "core/platform/text_utf.h"

namespace rakeyard {

namespace {

bool isCheckedFile(std::string_view name) {
    const std::size_t dot = name.rfind('.');
    if (dot == std::string_view::npos) return false;
    const std::string extension = upperAscii(name.substr(dot));
    return extension == ".WAG" || extension == ".ENG" || extension == ".SD" ||
           extension == ".CVF" || extension == ".SMS";
}

// FF FE and each byte as the low half of one UTF-16 unit.
std::string widenedBytes(std::string_view bytes) {
    std::string wide = "\xFF\xFE";
    wide.reserve(2 + 2 * bytes.size());
    for (char c : bytes) {
        wide += c;
        wide += '\0';
    }
    return wide;
}

}  // namespace

std::vector<std::string> checkUnicode(const PathGlobals& paths, Services& services) {
    FileSystem& fs = services.fs;
    const std::string trainset = fs.resolve(paths.trainsetPath);
    std::vector<std::string> folders;
    for (const DirEntry& entry : fs.listFolder(trainset)) {
        if (entry.isFolder) folders.push_back(joinPath(trainset, entry.name));
    }
    services.progress.start("Please wait. Checking files...", static_cast<int>(folders.size()));
    std::vector<std::string> failing;
    for (const std::string& folder : folders) {
        services.progress.step();
        for (const DirEntry& entry : fs.listFolder(folder)) {
            if (entry.isFolder || !isCheckedFile(entry.name)) continue;
            const std::string path = joinPath(folder, entry.name);
            if (!isUnicodeFile(fs, path)) failing.push_back(path);
        }
    }
    if (failing.empty())
        services.dialogs.report("All scanned files are in Unicode format", Icon::Information);
    return failing;
}

std::vector<std::string> convertToUnicode(const std::vector<std::string>& files,
                                          Services& services) {
    services.progress.start("Please wait. Converting files...", static_cast<int>(files.size()));
    std::vector<std::string> converted;
    for (const std::string& path : files) {
        services.progress.step();
        const std::optional<std::string> bytes = services.fs.readFile(path);
        if (!bytes) {
            services.dialogs.report("The file " + path + " couldn't be read.", Icon::Stop);
            break;
        }
        const WriteResult written = services.fs.writeFile(path, widenedBytes(*bytes));
        if (!written) {
            services.dialogs.report(
                "The file " + path + " couldn't be converted:\n" + written.message, Icon::Stop);
            break;
        }
        converted.push_back(path);
    }
    return converted;
}

}  // namespace rakeyard
