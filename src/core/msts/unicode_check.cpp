#include "core/msts/unicode_check.h"

#include <optional>

#include "core/msts/msts_text.h"
#include "core/msts/trainset_files.h"
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

bool startsWith(std::string_view bytes, std::string_view mark) {
    return bytes.substr(0, mark.size()) == mark;
}

// Big-endian UTF-16 after its mark, turned round; an odd last byte is kept as a character.
std::u16string fromBigEndian(std::string_view bytes) {
    std::u16string text;
    text.reserve(bytes.size() / 2 + 1);
    for (std::size_t i = 0; i < bytes.size(); i += 2) {
        const auto high = static_cast<unsigned char>(bytes[i]);
        const auto low = i + 1 < bytes.size() ? static_cast<unsigned char>(bytes[i + 1]) : 0;
        text += static_cast<char16_t>(high << 8 | low);
    }
    return text;
}

}  // namespace

std::optional<std::string> unicodeFileBytes(std::string_view bytes) {
    if (startsWith(bytes, "\xFF\xFE")) return std::nullopt;
    if (startsWith(bytes, "\xFE\xFF")) return encodeMstsText(fromBigEndian(bytes.substr(2)));
    if (startsWith(bytes, "\xEF\xBB\xBF")) return encodeMstsText(toUtf16(bytes.substr(3)));
    return encodeMstsText(fromWindows1252(bytes));
}

std::vector<std::string> checkUnicode(const PathGlobals& paths, Services& services) {
    std::vector<std::string> failing;
    std::string unreadable;
    for (const TrainsetFile& entry :
         listTrainsetFiles(paths, services, "Please wait. Checking files...", isCheckedFile)) {
        const std::string path = joinPath(entry.folder, entry.file);
        const std::optional<std::string> bytes = services.fs.readFile(path);
        if (!bytes) {
            unreadable += "\n" + path;
        } else if (!isUnicodeText(*bytes)) {
            failing.push_back(path);
        }
    }
    if (!unreadable.empty())
        services.dialogs.report("These files could not be read:" + unreadable, Icon::Exclamation);
    if (failing.empty() && unreadable.empty())
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
        const std::optional<std::string> rewritten = unicodeFileBytes(*bytes);
        if (!rewritten) {
            services.dialogs.report("The file " + path +
                                        " was left as it is: it is UTF-16 already (it starts "
                                        "with FF FE), but its first line is not the MSTS header "
                                        "line. Converting it again would double every byte.",
                                    Icon::Exclamation);
            continue;
        }
        const WriteResult written = services.fs.writeFile(path, *rewritten);
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
