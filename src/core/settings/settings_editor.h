#pragma once
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/platform/services.h"
#include "core/settings/settings_record.h"

namespace rakeyard {

// The raw editor of the whole record, frmSettings: one box per field in file order.
struct SettingsBox {
    std::string_view toolTip;  // the field's name
    std::string text;
};

// The boxes as the editor opens: texts trimmed (up to a first zero byte, as a text box shows
// them), numbers in decimal. kSettingsFieldCount of them.
std::vector<SettingsBox> settingsBoxes(const SettingsRecord& record);

// The editor's button: every box back into its field (numbers through toSettingsNumber), then
// the record written and the globals refreshed. Boxes past the given texts keep their fields.
// True when written.
bool storeSettingsBoxes(const std::vector<std::string>& texts, SettingsRecord& record,
                        PathGlobals& paths, Services& services);

// The number at the start of a text (blanks skipped; sign, digits, point, exponent), rounded to
// the nearest integer with halves to the even one, and held within 16 bits. A text that is no
// number gives 0.
std::int16_t toSettingsNumber(std::string_view text);

}  // namespace rakeyard
