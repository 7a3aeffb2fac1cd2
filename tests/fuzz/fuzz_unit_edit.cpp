// Rewrites the bytes as a unit file the way the unit parameter editors do: no crash or hang, the
// result is UTF-16 behind FF FE, holds the new name, and a second rewrite with the same values
// changes nothing more.
#include <cstdint>
#include <string>
#include <string_view>

#include "core/consist/unit_edit.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace rakeyard;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const bool isEngine = size % 2 == 0;
    const UnitEdit edit{"Fuzzed unit", "Chain", "Bar", "1600", isEngine ? "kW" : ""};
    const UnitRewrite once = rewriteUnitFile(bytes, edit, isEngine);
    if (once.bytes.size() < 2 || once.bytes.size() % 2 != 0) __builtin_trap();
    if (once.bytes[0] != '\xFF' || once.bytes[1] != '\xFE') __builtin_trap();
    const UnitRewrite twice = rewriteUnitFile(once.bytes, edit, isEngine);
    if (twice.bytes != once.bytes && once.messages.empty()) __builtin_trap();
    return 0;
}
