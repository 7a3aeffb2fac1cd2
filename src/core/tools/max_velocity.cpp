#include "core/tools/max_velocity.h"

#include <cmath>

#include "core/consist/consist_model.h"
#include "core/msts/msts_text.h"
#include "core/platform/text_utf.h"

namespace rakeyard {

namespace {

constexpr double kKmPerMile = 1.609344;
constexpr double kMilesPerKm = 0.6213712;

// The box of the speed last typed in converts into its twin; the memory is emptied after the
// box is set, so the twin's own change never converts back (30 mph stays 30, not 29.9999).
void convertLastTyped(std::string& mph, std::string& kmh, std::string& lastBox, const char* mphMark,
                      const char* kmhMark) {
    if (!mph.empty() && lastBox == mphMark) {
        kmh = singleText(round4(toSingle(numberValue(mph) * kKmPerMile)));
        lastBox.clear();
    }
    if (!kmh.empty() && lastBox == kmhMark) {
        mph = singleText(round4(toSingle(numberValue(kmh) * kMilesPerKm)));
        lastBox.clear();
    }
}

}  // namespace

float round4(float x) {
    // The addend is 0.0005, not 0.5: the value is cut to four decimals, not rounded.
    const double sign = x > 0 ? 1 : (x < 0 ? -1 : 0);
    return toSingle(sign * std::floor(std::fabs(double(x)) * 10000 + 0.0005) / 10000);
}

MaxVelocityBoxes openMaxVelocity(const std::string& maxVelocityText) {
    MaxVelocityBoxes boxes;
    const std::size_t blank = maxVelocityText.find(' ');
    if (blank != std::string::npos) {
        boxes.first = trimBlanks(maxVelocityText.substr(0, blank));
        boxes.second = trimBlanks(maxVelocityText.substr(blank + 1));
    }
    return boxes;
}

bool calculateMaxVelocity(MaxVelocityBoxes& boxes, Dialogs& dialogs) {
    const double efficiency = numberValue(boxes.efficiency);
    if (efficiency <= 0) {
        dialogs.report("The efficiency factor must be greater than 0", Icon::Stop);
        return false;
    }
    convertLastTyped(boxes.mphMax, boxes.kmhMax, boxes.lastMaxBox, "mphmax", "kmhmax");
    convertLastTyped(boxes.mphMin, boxes.kmhMin, boxes.lastMinBox, "mphmin", "kmhmin");
    const double topSpeed = numberValue(boxes.kmhMax);
    const double metresPerSecond = topSpeed * 1000 / 60 / 60;
    boxes.first = singleText(round4(toSingle(metresPerSecond / (efficiency / 100))));
    if (topSpeed == 0) {
        dialogs.report(
            "The maximum expected speed must be greater than 0: the second value stays as it was",
            Icon::Exclamation);
        return false;
    }
    boxes.second = singleText(round4(toSingle(numberValue(boxes.kmhMin) / topSpeed)));
    return true;
}

std::string usedMaxVelocity(const MaxVelocityBoxes& boxes) {
    return boxes.first + " " + boxes.second;
}

}  // namespace rakeyard
