#pragma once
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace rakeyard {

inline constexpr std::size_t kSettingsRecordSize = 1664;
inline constexpr std::size_t kPathFieldWidth = 200;

// The one record of settings.bin, field by field in file order. Texts are kept at their fixed
// width as read: 8-bit, padded with blanks when set, zero bytes when never set (a new record is
// all zero bytes). Numbers are 16-bit. Change texts with setText, which pads and cuts.
struct SettingsRecord {
    std::string viewerPath = std::string(kPathFieldWidth, '\0');  // "NO": no viewer is used
    std::string consistsPath = std::string(kPathFieldWidth, '\0');
    std::string editorPath = std::string(kPathFieldWidth, '\0');
    std::string mstsPath = std::string(kPathFieldWidth, '\0');
    std::string screenshotsPath = std::string(kPathFieldWidth, '\0');
    std::string soundPath = std::string(kPathFieldWidth, '\0');
    std::string trainsetPath = std::string(kPathFieldWidth, '\0');
    std::string notUsed1 = std::string(3, '\0');
    std::int16_t descriptionLeft = 0;
    std::int16_t descriptionTop = 0;
    std::int16_t mainWidth = 0;  // twips; 0 gives the window its first width
    std::string lastConsist = std::string(kPathFieldWidth, '\0');
    std::int16_t looseLeft = 0;
    std::int16_t looseTop = 0;
    std::int16_t mainHeight = 0;
    std::int16_t mainLeft = 0;
    std::int16_t mainTop = 0;
    std::int16_t previewLeft = 0;
    std::int16_t previewTop = 0;
    std::int16_t randomLeft = 0;
    std::int16_t randomTop = 0;
    std::string showDescription = std::string(3, '\0');  // "on" or "off"
    std::string showLocoType = std::string(10, '\0');    // engine filter
    std::string showWagonType = std::string(10, '\0');   // wagon filter
    std::int16_t showAliasWarning = 0;                   // 0 shows the warning, 1 doesn't
    std::int16_t pictureWidth = 0;                       // 0 means 3840
    std::int16_t pictureHeight = 0;                      // 0 means 2463
    std::int16_t dependenciesHeight = 0;
    std::int16_t dependenciesLeft = 0;
    std::int16_t dependenciesTop = 0;
    std::int16_t dependenciesWidth = 0;

    bool operator==(const SettingsRecord&) const = default;
};

// One field of the record as it lies in the file. Exactly one of text and number is set.
struct SettingsField {
    std::string_view name;  // the field's name for the user: the raw editor's tool-tip
    std::size_t offset;
    std::size_t width;
    std::string SettingsRecord::*text;
    std::int16_t SettingsRecord::*number;
};

inline constexpr std::size_t kSettingsFieldCount = 31;
// All fields in file order.
const std::array<SettingsField, kSettingsFieldCount>& settingsFields();

// The record in bytes as settings.bin holds it. Bytes past the record are ignored; a shorter
// input fills the fields it reaches, the rest stay zero. Never fails.
SettingsRecord parseSettings(std::string_view bytes);
// Exactly kSettingsRecordSize bytes, numbers little-endian, each text padded with blanks or cut
// to its width.
std::string serializeSettings(const SettingsRecord& record);

// Sets a text field: padded with blanks to its width, or cut to it (never inside a UTF-8
// character; the bytes freed become blanks).
void setText(SettingsRecord& record, std::string SettingsRecord::*field, std::string_view text);
// The width of a text field in the file.
std::size_t textWidth(std::string SettingsRecord::*field);

// The test for a field that holds nothing: after trimming blanks the text is empty, or its
// first character is character 0. Works on fields and on their trimmed values alike.
bool isUnset(std::string_view text);
// The text with blanks trimmed at both ends. An unset field's zero bytes are kept, so the value
// still tells "never set" (begins with character 0) from "set empty".
std::string trimmedValue(std::string_view field);

// The trimmed copies of the record's paths and filters that every routine reads.
struct PathGlobals {
    std::string programFolder;  // holds settings.bin and Reports
    std::string mstsPath;
    std::string consistsPath;
    std::string trainsetPath;
    std::string soundPath;
    std::string editorPath;
    std::string viewerPath;
    std::string screenshotsPath;
    std::string engineFilter;
    std::string wagonFilter;
};

// Every global but programFolder becomes the trimmed value of its field.
void refreshPathGlobals(const SettingsRecord& record, PathGlobals& paths);

}  // namespace rakeyard
