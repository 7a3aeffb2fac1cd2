#pragma once
#include <string>

#include "core/platform/dialogs.h"

namespace rakeyard {

// The boxes of the maximum velocity calculator as texts, and the memory of which speed box the
// user typed in last.
struct MaxVelocityBoxes {
    std::string mphMax;             // Text1
    std::string kmhMax;             // Text2
    std::string efficiency = "75";  // Text3, percent
    std::string mphMin;             // Text4
    std::string kmhMin;             // Text5
    std::string first;              // Text6: the first number of "MaxVelocity ( a b )"
    std::string second;             // Text7: the second
    std::string lastMaxBox;         // "mphmax", "kmhmax" or ""
    std::string lastMinBox;         // "mphmin", "kmhmin" or ""
};

// Sign(x) * Int(Abs(x) * 10000 + 0.0005) / 10000 as a 32-bit float: in effect a cut to four
// decimals.
float round4(float x);

// The boxes on opening: efficiency 75, and the two result boxes split from the consist's
// maximum velocity text at its first blank (both empty when it has none).
MaxVelocityBoxes openMaxVelocity(const std::string& maxVelocityText);

// "Calculate": the speed last typed in converts into its twin box, then the two numbers follow
// from the km/h boxes and the efficiency. An efficiency of 0 or less is refused with a message
// and changes nothing; a top speed of 0 sets the first number only, keeps the second and says
// why. True when both numbers were worked out.
bool calculateMaxVelocity(MaxVelocityBoxes& boxes, Dialogs& dialogs);

// The text "Use values" hands to the consist: the two numbers with one blank between.
std::string usedMaxVelocity(const MaxVelocityBoxes& boxes);

}  // namespace rakeyard
