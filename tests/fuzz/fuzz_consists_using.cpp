// Searches the bytes as a consist file for a unit, as the consists-using window does: no crash
// or hang, and the answer the same whatever the unit's names' letter case.
#include <cstdint>
#include <string>
#include <string_view>

#include "core/tools/consists_using.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace rakeyard;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    UnitRecord unit;
    unit.fileName = "RY_Coal16t.wag";
    unit.folderName = "RY_Wagons";
    UnitRecord lower = unit;
    lower.fileName = "ry_coal16t.WAG";
    lower.folderName = "ry_wagons";
    if (consistNamesUnit(bytes, unit) != consistNamesUnit(bytes, lower)) __builtin_trap();
    return 0;
}
