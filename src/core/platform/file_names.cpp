#include "core/platform/file_names.h"

#include <array>

namespace rakeyard {
namespace {

bool isForbiddenCharacter(unsigned char c) {
    if (c < 0x20 || c == 0x7F) return true;
    for (char forbidden : std::string_view("<>:\"|?*/\\"))
        if (c == static_cast<unsigned char>(forbidden)) return true;
    return false;
}

char upper(char c) {
    return (c >= 'a' && c <= 'z') ? static_cast<char>(c - 'a' + 'A') : c;
}

bool sameLetters(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i)
        if (upper(a[i]) != upper(b[i])) return false;
    return true;
}

// Windows takes "con.txt" and "CON .con" for the device as well: the part before the first dot,
// less trailing blanks, decides.
bool isReservedDeviceName(std::string_view name) {
    std::string_view base = name.substr(0, name.find('.'));
    while (!base.empty() && base.back() == ' ')
        base.remove_suffix(1);
    for (std::string_view device : {"CON", "PRN", "AUX", "NUL"})
        if (sameLetters(base, device)) return true;
    if (base.size() != 4 || base[3] < '1' || base[3] > '9') return false;
    return sameLetters(base.substr(0, 3), "COM") || sameLetters(base.substr(0, 3), "LPT");
}

}  // namespace

std::string fileNameProblem(std::string_view name) {
    if (name.empty()) return "The name is empty.";
    if (name == "." || name == "..") return "\"" + std::string(name) + "\" is not a file name.";
    for (char c : name) {
        if (c == '/' || c == '\\') return "A name may not hold a folder (\"/\" or \"\\\").";
        if (isForbiddenCharacter(static_cast<unsigned char>(c)))
            return "A name may not hold control characters or any of < > : \" | ? *";
    }
    if (name.back() == '.' || name.back() == ' ')
        return "A name may not end with a dot or a blank.";
    if (isReservedDeviceName(name))
        return "\"" + std::string(name) + "\" is a name Windows reserves for a device.";
    return {};
}

}  // namespace rakeyard
