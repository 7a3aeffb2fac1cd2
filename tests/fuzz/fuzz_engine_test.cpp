// Tests the bytes as an engine file, with its cab view and sounds: the tester must neither crash
// nor hang, look only inside the installation and write only its reports, and count every
// finding once by its level.
#include <cstdint>
#include <string>

#include "tester_fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace rakeyard;
    fuzz::TesterFuzz fuzz(TestSection::Engines);
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    fuzz.file("/GP38.eng") = bytes;
    fuzz.file("/GP38.s") = "shape";
    fuzz.file("/GP38.sd") = bytes;  // the same bytes as a definition
    testThisEngine(fuzz.run, fuzz.context(), 0);
    fuzz.check();
    return 0;
}
