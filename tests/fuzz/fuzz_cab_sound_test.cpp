// Tests the bytes as a cab view and as a sound definition of an engine: the lines name
// textures and .wav files anywhere, "..\..\" ones too; nothing may be looked at outside the
// installation, and a definition naming itself is only looked up.
#include <cstdint>
#include <string>

#include "tester_fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace rakeyard;
    fuzz::TesterFuzz fuzz(TestSection::Engines);
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    fuzz.file("/CABVIEW/GP38.cvf") = bytes;
    fuzz.file("/SOUND/GP38.sms") = bytes;
    fuzz.file("/SOUND/a.wav") = "wav";
    fuzz.quiet.tree.files["/msts/SOUND/main.sms"] = bytes;
    const UnitNames names = fuzz.names();
    testCab(fuzz.run, fuzz.context(), names, u"GP38.cvf");
    testSms(fuzz.run, fuzz.context(), names, u"GP38.sms");
    testSms(fuzz.run, fuzz.context(), names, u"..\\..\\GP38\\SOUND\\GP38.sms");
    testSms(fuzz.run, fuzz.context(), names, u"main.sms");
    fuzz.check();
    return 0;
}
