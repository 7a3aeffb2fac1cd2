#pragma once
#include <array>
#include <string>
#include <vector>

#include "core/consist/recent_consists.h"
#include "core/msts/unit_record.h"

namespace rakeyard {

inline constexpr int kConsistSlots = 600;  // the array bound; the reader alone goes past 299
inline constexpr int kUsedSlots = 300;     // 50 pages of 6
inline constexpr int kSlotsPerPage = 6;
inline constexpr int kLastPage = 49;

// The mouse button of a press on a slot.
enum class SlotButton { None, Left, Right };

// What one of the six screen slots shows.
struct SlotView {
    std::string pictureKey = "EMP";
    std::string toolTip;
    std::string uidText;  // Text1(i)
    std::string name;     // Label1(i)
};

// The running totals as the labels show them, with the font sizes the window applies.
struct ConsistTotals {
    std::string length = "0";   // lblLenght, metres
    std::string feet = "0";     // lblFeet
    std::string mass = "0";     // lblWeight, tonnes
    std::string impTons = "0";  // lblImpTon
    std::string wagons = "0";   // lblWagons
    int feetFontSize = 10;
    int massFontSize = 10;
    int impTonsFontSize = 10;
};

// The header boxes of the consist: Text2(0) to Text2(4).
struct ConsistHeader {
    std::string fileName;     // Text2(0): the file's name in the Consists folder, less ".con"
    std::string name;         // Text2(1)
    std::string maxVelocity;  // Text2(2)
    std::string durability;   // Text2(3)
    std::string serial;       // Text2(4)

    static constexpr int kBoxes = 5;
    // The box of Text2(index), for the window's control array.
    std::string& box(int index) {
        std::string* boxes[kBoxes] = {&fileName, &name, &maxVelocity, &durability, &serial};
        return *boxes[index];
    }
    bool operator==(const ConsistHeader&) const = default;
};

// The one consist under edit and the editor's state around it.
struct ConsistState {
    std::array<ConsistSlot, kConsistSlots> slots;
    int currentPage = 0;
    int savedPage = 0;
    bool consistChanged = false;
    bool selectionActive = false;
    std::vector<ConsistSlot> selectionBuffer = std::vector<ConsistSlot>(1);
    SlotButton lastButton = SlotButton::None;
    std::string consistToLoad;
    std::string calculatedMaxVelocity;
    std::string trainCfgWord;
    ConsistHeader header;
    unsigned replaced = 0;  // counts the times the consist was emptied or loaded
    ConsistTotals totals;
    // The strip as refreshPics last drew it, with the page arrows.
    std::array<SlotView, kSlotsPerPage> view;
    bool leftArrowVisible = false;
    bool rightArrowVisible = false;
    // A warning for the blinking Label2 that the window has not shown yet ("" when none).
    std::string pendingWarning;
    RecentConsists recent;
};

}  // namespace rakeyard
