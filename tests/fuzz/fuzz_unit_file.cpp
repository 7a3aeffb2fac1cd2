// Reads the bytes as one engine and as one wagon file, as the catalogue readers do.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "core/msts/unit_file.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace rakeyard;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    // One set of buffers for both, as a catalogue worker reuses them from file to file.
    UnitText buffers;
    const UnitFileResult engine =
        readEngineFile(bytes, "GP38.eng", "/msts/TRAINS/TRAINSET/GP38", true, buffers);
    const UnitFileResult wagon =
        readWagonFile(bytes, "GP38.wag", "/msts/TRAINS/TRAINSET/GP38", true, buffers);
    // A refused file has a finding; a taken one began its record.
    if (!engine.accepted && engine.findings.empty()) __builtin_trap();
    if (engine.accepted && !engine.recordBegun) __builtin_trap();
    if (!wagon.accepted && wagon.findings.empty()) __builtin_trap();
    return 0;
}
