// Tests the bytes as a consist file: its unit lines name folders and files anywhere; nothing
// may be looked at outside the installation, and every failure lists the consist.
#include <cstdint>
#include <string>

#include "tester_fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace rakeyard;
    fuzz::TesterFuzz fuzz(TestSection::Consists);
    fuzz.quiet.tree.files["/msts/TRAINS/CONSISTS/c.con"] =
        std::string(reinterpret_cast<const char*>(data), size);
    fuzz.file("/GP38.eng") = "engine";
    testThisConsist(fuzz.run, fuzz.context(), "c.con");
    fuzz.check();
    const long long found = fuzz.run.counts.errorCount;
    if (static_cast<long long>(fuzz.run.failed.size()) != found) __builtin_trap();
    if (fuzz.run.testedSounds.size() != (found > 0 ? 1u : 0u)) __builtin_trap();
    return 0;
}
