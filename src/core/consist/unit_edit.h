#pragma once
#include <string>
#include <string_view>
#include <vector>

#include "core/msts/unit_record.h"
#include "core/platform/services.h"

namespace rakeyard {

// What the unit parameter editors change: the name, the two couplings ("Automatic", "Bar",
// "Chain", or "" to leave one alone) and the engine's power (digits and "kW" or "Hp") or the
// wagon's mass (digits, tonnes).
struct UnitEdit {
    std::string name;
    std::string front;
    std::string rear;
    std::string value;
    std::string powerUnit;  // engines only
};

// A unit file's bytes rewritten, and the messages of the changes that could not be made (each
// leaves its line as it was; the other changes still take effect).
struct UnitRewrite {
    std::string bytes;  // FF FE and UTF-16 LE, CR LF line ends
    std::vector<std::string> messages;
};

// The rewrite of a unit file: the first coupling block's Type takes the rear box, the second
// the front box (each Type sought inside its own block, before the brake equipment), every
// MaxPower (engine) or Mass (wagon) line not behind a comment takes the value, and the first
// Name line the name (a file without one gets it as the last line of its outer block).
[[nodiscard]] UnitRewrite rewriteUnitFile(std::string_view bytes, const UnitEdit& edit,
                                          bool isEngine);

enum class UnitEditOutcome { Written, WrittenWithMessages, Refused };

// writeToEngFile / writeToWagFile: the unit's file rewritten in place through the safe writer,
// then the record updated. A name with a double quote, a file name that is not a plain name in
// its folder, an unreadable file and a failed write change nothing and are told; the messages
// of the rewrite are told as well.
UnitEditOutcome writeToEngFile(UnitRecord& unit, const UnitEdit& edit, Services& services);
UnitEditOutcome writeToWagFile(UnitRecord& unit, const UnitEdit& edit, Services& services);

// What the editors show on opening: the display name, the couplings' texts ("" for "?"), and
// the power's number with its unit ("kW" when the text holds "KW", "Hp" when it holds "HP") or
// the mass.
UnitEdit editOfUnit(const UnitRecord& unit, bool isEngine);

// "Automatic" "A", "Bar" "B", "Chain" "C" and back; "" for anything else.
std::string couplerCode(std::string_view text);
std::string couplerText(std::string_view code);

}  // namespace rakeyard
