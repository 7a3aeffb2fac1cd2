#pragma once
#include <cstdint>
#include <string>

namespace rakeyard {

inline constexpr std::size_t kSettingsRecordSize = 1664;

// The one record of settings.bin, field by field in file order. Texts are kept as read (8-bit,
// padded with blanks or holding zero bytes when unset); numbers are 16-bit.
struct SettingsRecord {
    std::string viewerPath;        // 200, "3D viewer path"; "NO" when no viewer is used
    std::string consistsPath;      // 200
    std::string editorPath;        // 200
    std::string mstsPath;          // 200
    std::string screenshotsPath;   // 200
    std::string soundPath;         // 200
    std::string trainsetPath;      // 200
    std::string notUsed1;          // 3
    std::int16_t descriptionLeft = 0;
    std::int16_t descriptionTop = 0;
    std::int16_t notUsed2 = 0;
    std::string lastConsist;       // 200
    std::int16_t looseLeft = 0;
    std::int16_t looseTop = 0;
    std::int16_t mainHeight = 0;
    std::int16_t mainLeft = 0;
    std::int16_t mainTop = 0;
    std::int16_t previewLeft = 0;
    std::int16_t previewTop = 0;
    std::int16_t randomLeft = 0;
    std::int16_t randomTop = 0;
    std::string showDescription;   // 3, "on" or "off"
    std::string showLocoType;      // 10, engine filter
    std::string showWagonType;     // 10, wagon filter
    std::int16_t showAliasWarning = 0;
    std::int16_t pictureWidth = 0;
    std::int16_t pictureHeight = 0;
    std::int16_t dependenciesHeight = 0;
    std::int16_t dependenciesLeft = 0;
    std::int16_t dependenciesTop = 0;
    std::int16_t dependenciesWidth = 0;
};

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

}  // namespace rakeyard
