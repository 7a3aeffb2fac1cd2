#pragma once
#include <algorithm>
#include <cstdint>

namespace rakeyard::ui {

// Window places are kept in twips, as settings.bin stores them: 15 twips to a pixel.
inline constexpr int kTwipsPerPixel = 15;
// The main window's size on a first run.
inline constexpr int kMainWidthTwips = 13500;
inline constexpr int kMainHeightTwips = 9000;

inline int twipsToPixels(int twips) {
    return twips / kTwipsPerPixel;
}
// Pixels in twips, held within the 16 bits that settings.bin has for them.
inline std::int16_t pixelsToTwips(int pixels) {
    return static_cast<std::int16_t>(std::clamp(pixels * kTwipsPerPixel, -32768, 32767));
}

}  // namespace rakeyard::ui
