// Any bytes as settings.bin: the record read from them must write out at its fixed size and
// read back to the same record, and the raw editor must show and store it.
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "core/settings/settings_editor.h"
#include "core/settings/settings_record.h"
#include "core/settings/shell_helpers.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace rakeyard;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const SettingsRecord record = parseSettings(bytes);
    const std::string written = serializeSettings(record);
    if (written.size() != kSettingsRecordSize) std::abort();
    if (bytes.size() >= kSettingsRecordSize && bytes.substr(0, kSettingsRecordSize) != written)
        std::abort();
    if (!(parseSettings(written) == record)) std::abort();

    for (const SettingsBox& box : settingsBoxes(record)) {
        (void)toSettingsNumber(box.text);
        (void)isUnset(box.text);
    }
    SettingsRecord edited = record;
    setText(edited, &SettingsRecord::mstsPath, bytes.substr(0, 300));
    if (serializeSettings(edited).size() != kSettingsRecordSize) std::abort();
    (void)toSettingsNumber(bytes);
    // Each character of one to four bytes gives one or two UTF-16 units.
    const std::string wide = toWideBytes(bytes);
    if (wide.size() % 2 || wide.size() > 2 * bytes.size() || 3 * wide.size() < 2 * bytes.size())
        std::abort();
    return 0;
}
