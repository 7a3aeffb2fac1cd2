// Reads the bytes as a unit file for the description window: no crash or hang, the description
// found only when the text names one, and every line of the figures a figure or a shown comment.
#include <cstdint>
#include <string>
#include <string_view>

#include "core/tools/unit_description.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace rakeyard;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    std::string text(kNoDescription);
    const bool found = getDescription(bytes, text);
    if (!found && text != kNoDescription) __builtin_trap();
    if (found && text.find(std::string(33, '*')) == std::string::npos) __builtin_trap();
    std::string figures;
    getInfo(bytes, figures);
    if (!figures.empty() && !figures.ends_with("\r\n")) __builtin_trap();
    return 0;
}
