// Decodes the bytes as an MSTS file, cleans the text both ways and searches it for the
// keywords the catalogue readers use, reading each value found.
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "core/msts/msts_text.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace rakeyard;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    (void)isUnicodeText(bytes);
    (void)decodeMstsText(bytes);
    UnitText unit;
    for (bool cutDescription : {false, true}) {
        stripUnitText(bytes, cutDescription, unit);
        const std::u16string_view text = unit.text();
        const std::u16string_view upper = unit.upper();
        if (upper != upperText(text)) __builtin_trap();
        for (std::u16string_view keyword :
             {u"WAGON", u"WAGONSHAPE", u"SIZE", u"MASS", u"TYPE", u"NAME", u"MAXPOWER"}) {
            for (std::size_t start :
                 {std::size_t{0}, std::size_t{1}, text.size() / 2, text.size(), text.size() + 5}) {
                const KeywordMatch match = findKeywordLine(upper, keyword, start, u"TYPE");
                if (!match) continue;
                std::size_t close = 0;
                (void)parenValue(text, match.parenPos, &close);
                (void)lineValue(text, match.parenPos);
                (void)numberValue(parenValue(text, match.parenPos));
            }
        }
        (void)findLastUpTo(upper, u".CVF", upper.size());
    }
    return 0;
}
