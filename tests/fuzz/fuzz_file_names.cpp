// Checks the file name validator against a plain, obviously right version of the same rules.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "core/platform/file_names.h"

namespace {

std::string upperAll(std::string_view text) {
    std::string upper(text);
    for (char& c : upper)
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 32);
    return upper;
}

bool plainIsValid(std::string_view name) {
    if (name.empty() || name == "." || name == "..") return false;
    for (unsigned char c : name) {
        if (c < 32 || c == 127) return false;
        if (std::string_view("<>:\"|?*/\\").find(static_cast<char>(c)) != std::string_view::npos)
            return false;
    }
    if (name.back() == '.' || name.back() == ' ') return false;
    std::string base = upperAll(name.substr(0, name.find('.')));
    while (!base.empty() && base.back() == ' ')
        base.pop_back();
    for (const char* device : {"CON", "PRN", "AUX", "NUL"})
        if (base == device) return false;
    for (char digit = '1'; digit <= '9'; ++digit)
        if (base == std::string("COM") + digit || base == std::string("LPT") + digit) return false;
    return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view name(reinterpret_cast<const char*>(data), size);
    if (rakeyard::isValidFileName(name) != plainIsValid(name)) std::abort();
    return 0;
}
