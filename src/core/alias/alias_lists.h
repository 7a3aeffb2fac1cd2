#pragma once
#include <string>
#include <string_view>
#include <vector>

#include "core/msts/unit_record.h"
#include "core/platform/services.h"

namespace rakeyard {

// The first line of both source lists: leave the cab view or the sounds as they are.
inline constexpr std::string_view kNoAlias = "-- NO ALIAS --";

// The aliasing window's lists, each line an engine's file name as the catalogue holds it.
struct AliasLists {
    std::vector<std::string> notAliased;    // engines that may be aliased or restored
    std::vector<std::string> cabSources;    // kNoAlias, then engines with a cab view of their own
    std::vector<std::string> soundSources;  // kNoAlias, then engines with sounds of their own
    bool complete = true;                   // false when a file could not be read
};

// True when a cab view or sound file already points elsewhere: its raw bytes hold "..\" or
// "../" as UTF-16 LE (each character followed by a zero byte), or, in a file without a UTF-16
// mark, as 8-bit text.
[[nodiscard]] bool holdsParentReference(std::string_view bytes);

// Sorts the catalogued engines into the lists, in catalogue order. An engine with a CABVIEW
// folder goes into notAliased when its first ".cvf" is missing or aliased, else into cabSources;
// one without a CABVIEW folder into neither, once its ".eng" is seen to open. An engine whose
// first ".sms" (and second, when there is one) is not aliased goes into soundSources. A file
// that cannot be read is reported, and the lists stay as far as they got.
[[nodiscard]] AliasLists buildAliasLists(const UnitCatalogue& catalogue, Services& services);

// The catalogued engine whose file name is line, in any letter case; null when there is none.
[[nodiscard]] const EngineRecord* findAliasEngine(const UnitCatalogue& catalogue,
                                                  std::string_view line);

// True when the list holds the line, in any letter case.
[[nodiscard]] bool listHolds(const std::vector<std::string>& list, std::string_view line);

}  // namespace rakeyard
