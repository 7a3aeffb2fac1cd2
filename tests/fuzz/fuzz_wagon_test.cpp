// Tests the bytes as a wagon file, read to its end: no crash, no hang, nothing looked at
// outside the installation, every finding counted once.
#include <cstdint>
#include <string>

#include "tester_fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace rakeyard;
    fuzz::TesterFuzz fuzz(TestSection::Wagons);
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    fuzz.file("/GP38.wag") = bytes;
    fuzz.file("/GP38.s") = "shape";
    fuzz.file("/SOUND/GP38.sms") = bytes;  // the same bytes as its sounds
    testThisWagon(fuzz.run, fuzz.context(), 0);
    fuzz.check();
    return 0;
}
