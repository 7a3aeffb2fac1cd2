// Takes the bytes as a cab view or sound file for the alias test, and as the lines of an ".eng",
// a ".cvf" and a ".sms" for the aliasing's readers and rewriters.
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "core/alias/alias_lists.h"
#include "core/alias/alias_rewrite.h"
#include "core/msts/msts_lines.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace rakeyard;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    (void)holdsParentReference(bytes);
    const std::vector<std::u16string> lines = readTextLines(bytes);
    (void)readEngineReferences(lines);
    EngineLineRule rule;
    rule.soundNeedsQuotes = true;
    rule.firstCabLine = rule.laterCabLine = u"\tCabView ( x.cvf )";
    rule.firstSoundLine = rule.laterSoundLine = u"\tSound ( \"x.sms\" )";
    (void)rewriteEngineLines(lines, rule);
    rule.indentedOnly = true;
    (void)rewriteEngineLines(lines, rule);
    const std::u16string prefix = u"..\\\\..\\\\A\\\\CABVIEW\\\\";
    if (const auto cab = prefixAceNames(lines, prefix)) (void)writeTextLines(*cab);
    if (const auto sounds = prefixWavNames(lines, prefix)) (void)writeTextLines(*sounds);
    return 0;
}
