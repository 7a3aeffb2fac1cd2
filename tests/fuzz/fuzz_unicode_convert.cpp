// Converts any bytes as the Unicode conversion does: the result is MSTS text with its mark, and
// converting it again changes nothing.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "core/msts/unicode_check.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const std::optional<std::string> converted = rakeyard::unicodeFileBytes(bytes);
    if (!converted) {
        if (!bytes.starts_with("\xFF\xFE")) std::abort();
        return 0;
    }
    if (!converted->starts_with("\xFF\xFE") || converted->size() % 2 != 0) std::abort();
    if (rakeyard::unicodeFileBytes(*converted)) std::abort();
    return 0;
}
