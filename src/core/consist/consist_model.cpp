#include "core/consist/consist_model.h"

#include <cfloat>
#include <cmath>
#include <cstdio>

#include "core/consist/image_keys.h"
#include "core/msts/msts_text.h"
#include "core/platform/text_utf.h"

namespace rakeyard {

namespace {

constexpr double kMetresPerFoot = 0.3048;
constexpr double kImperialTonsPerTonne = 0.9842065;

// Labels whose text grows past 7 characters get the smaller font.
int fontSizeFor(std::string_view text) {
    return utf8Length(trimBlanks(text)) > 7 ? 8 : 10;
}

std::string wholeText(long long value) {
    return std::to_string(value);
}

}  // namespace

long long wholeNumber(double value) {
    if (std::isnan(value)) return 0;
    const double whole = std::floor(value);
    if (whole >= 9.2e18) return 9200000000000000000LL;
    if (whole <= -9.2e18) return -9200000000000000000LL;
    return static_cast<long long>(whole);
}

void setLengthText(ConsistTotals& totals, std::string text) {
    totals.length = std::move(text);
    if (numberValue(totals.length) < 0) totals.length = "0";
    const float feet = round2(toSingle(numberValue(totals.length) / kMetresPerFoot));
    totals.feet = singleText(feet);
    totals.feetFontSize = fontSizeFor(totals.feet);
}

void setMassText(ConsistTotals& totals, std::string text) {
    totals.mass = std::move(text);
    if (numberValue(totals.mass) < 0) totals.mass = "0";
    totals.massFontSize = fontSizeFor(totals.mass);
    const float impTons = round2(toSingle(numberValue(totals.mass) * kImperialTonsPerTonne));
    totals.impTons = singleText(impTons);
    totals.impTonsFontSize = fontSizeFor(totals.impTons);
}

void changeWagonCount(ConsistTotals& totals, int delta) {
    totals.wagons = wholeText(wholeNumber(numberValue(totals.wagons)) + delta);
}

void addInsertedUnit(ConsistTotals& totals, const ConsistSlot& unit) {
    setLengthText(totals, singleText(numberValue(totals.length) + unit.length));
    setMassText(totals, singleText(numberValue(totals.mass) + unit.mass));
}

void addPastedUnit(ConsistTotals& totals, const ConsistSlot& unit) {
    setLengthText(totals,
                  singleText(round2(double(round2(numberValue(totals.length))) + unit.length)));
    setMassText(totals, singleText(round2(double(round2(numberValue(totals.mass))) + unit.mass)));
}

void subtractUnit(ConsistTotals& totals, const ConsistSlot& unit) {
    setLengthText(totals,
                  singleText(round2(double(round2(numberValue(totals.length))) - unit.length)));
    setMassText(totals, singleText(round2(double(round2(numberValue(totals.mass))) - unit.mass)));
}

bool isWagonUnit(const ConsistSlot& slot) {
    const std::string& name = slot.fileName;
    return name.size() >= 4 && upperAscii(name.substr(name.size() - 4)) == ".WAG";
}

void clearSlot(ConsistSlot& slot) {
    slot = ConsistSlot{};
}

void copyCatalogueFields(ConsistSlot& slot, const UnitRecord& unit, bool isEngine) {
    slot.folderPath = unit.folderPath;
    slot.folderName = unit.folderName;
    slot.fileName = unit.fileName;
    slot.displayName = unit.displayName;
    slot.unitType = unit.unitType;
    slot.couplerFront = unit.couplerFront;
    slot.couplerRear = unit.couplerRear;
    slot.mass = unit.mass;
    slot.length = unit.length;
    slot.shapeName = unit.shapeName;
    if (isEngine) {
        slot.maxPower = unit.maxPower;
        slot.hasCab = unit.hasCab;
    }
    // A type of the other list's kind (or none known) leaves the picture key as it was.
    const std::string_view stem = stemOfType(unit.unitType);
    if (!stem.empty() && isEngineType(unit.unitType) == isEngine) slot.imageKey = std::string(stem);
}

long long highestUid(const ConsistState& state) {
    long long highest = wholeNumber(state.slots[0].uid);
    for (int i = 1; i < kUsedSlots; ++i)
        highest = std::max(highest, wholeNumber(state.slots[i].uid));
    return highest;
}

int highestPosition(const ConsistState& state) {
    int highest = 0;
    for (int i = 0; i < kUsedSlots; ++i)
        highest = std::max<int>(highest, state.slots[i].position);
    return highest;
}

void checkCoupling(ConsistState& state, int j) {
    const auto& slots = state.slots;
    // A neighbour with no front coupler is a gap or a unit missing from the catalogue.
    const auto fits = [&](int a, int b) {
        return slots[a].couplerRear == slots[b].couplerFront || slots[b].couplerFront.empty();
    };
    bool inOrder = true;
    if (j > 0 && j < 149) {
        inOrder = fits(j, j + 1) && (slots[j - 1].couplerRear == slots[j].couplerFront ||
                                     slots[j - 1].couplerFront.empty());
    } else if (j == 149) {
        inOrder =
            slots[148].couplerRear == slots[149].couplerFront || slots[148].couplerFront.empty();
    } else if (j == 0) {
        inOrder = fits(0, 1);
    }
    if (!inOrder) state.pendingWarning = "WARNING: Different coupling type !";
}

std::string consistWindowTitle(const ConsistState& state) {
    std::string file =
        state.header.fileName.empty() ? std::string() : state.header.fileName + ".con";
    if (state.consistChanged) file += file.empty() ? "(new consist)*" : "*";
    return file.empty() ? "Rake Yard" : file + " - Rake Yard";
}

void clearAll(ConsistState& state) {
    ++state.replaced;
    state.consistChanged = false;
    for (ConsistSlot& slot : state.slots)
        clearSlot(slot);
    state.view.fill(SlotView{});
    state.header = ConsistHeader{};
    state.totals.wagons = "0";
    setLengthText(state.totals, "0");
    setMassText(state.totals, "0");
    state.currentPage = 0;
    state.savedPage = 0;
    state.leftArrowVisible = false;
    state.rightArrowVisible = false;
    state.selectionBuffer.assign(1, ConsistSlot{});
}

}  // namespace rakeyard
