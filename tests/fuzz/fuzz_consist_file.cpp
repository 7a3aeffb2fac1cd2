// Reads arbitrary bytes as a consist file value and writes it back, kept lines and all: what is
// written reads back as the same value. The layout MSTS writes is made from the value too.
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "core/consist/consist_file.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace rakeyard;
    const ConsistFileRead read =
        parseConsistFile(std::string_view(reinterpret_cast<const char*>(data), size));
    if (!read.isUnicode) return 0;
    const ConsistFileRead again = parseConsistFile(writeConsistFile(read.file));
    if (!again.isUnicode || !(again.file.header == read.file.header) ||
        again.file.units != read.file.units)
        std::abort();
    ConsistFile made;
    made.header = read.file.header;
    made.units = read.file.units;
    (void)writeConsistFile(made);
    return 0;
}
