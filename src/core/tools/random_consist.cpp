#include "core/tools/random_consist.h"

#include <algorithm>
#include <charconv>

#include "core/consist/consist_model.h"
#include "core/consist/editing.h"
#include "core/consist/slot_view.h"
#include "core/msts/msts_text.h"
#include "core/msts/unit_list.h"
#include "core/platform/text_utf.h"

namespace rakeyard {

namespace {

// The count typed: a whole number, or 0 for anything else (a blank box, letters, a fraction).
long long countOf(std::string_view text) {
    const std::string trimmed = trimBlanks(text);
    long long count = 0;
    const auto [end, error] =
        std::from_chars(trimmed.data(), trimmed.data() + trimmed.size(), count);
    return error == std::errc() && end == trimmed.data() + trimmed.size() ? count : 0;
}

// The ticked wagons in mixed order. Each gets a key of a random row number followed by its own
// row number, read as a 32-bit number and sorted as text, so "10" comes before "9".
std::vector<int> shuffled(const std::vector<int>& ticked, RandomSource& random) {
    struct Keyed {
        std::string key;
        int row;
    };
    std::vector<Keyed> keyed;
    const auto count = static_cast<double>(ticked.size());
    for (std::size_t i = 0; i < ticked.size(); ++i) {
        const long long drawn = wholeNumber(random.next() * count + 1);
        const std::string digits = std::to_string(drawn) + std::to_string(i);
        keyed.push_back({singleText(numberValue(digits)), static_cast<int>(i)});
    }
    std::stable_sort(keyed.begin(), keyed.end(),
                     [](const Keyed& a, const Keyed& b) { return a.key < b.key; });
    std::vector<int> mixed;
    for (const Keyed& k : keyed)
        mixed.push_back(ticked[k.row]);
    return mixed;
}

// A repeat: a line drawn from 1 to the count, so the first line is never drawn and the count
// misses. Two misses are drawn again; a third takes the first line, so every unit is ticked.
int repeatOf(const std::vector<int>& mixed, RandomSource& random) {
    const auto count = static_cast<long long>(mixed.size());
    for (int attempt = 0; attempt < 3; ++attempt) {
        const long long x = wholeNumber(count * double(random.next()) + 1);
        if (x < count) return mixed[x];
    }
    return mixed.front();
}

}  // namespace

float RandomSource::next() {
    state_ = (state_ * 1140671485u + 12820163u) & 0xFFFFFFu;
    return static_cast<float>(state_) / 16777216.0f;
}

std::vector<std::string> randomWagonLines(const UnitCatalogue& catalogue,
                                          std::string_view couplerFilter,
                                          std::string_view typeFilter) {
    std::vector<std::string> lines;
    const auto wagons = usedRecords(catalogue, UnitClass::Wagon);
    for (std::size_t i = 0; i < wagons.size(); ++i) {
        const UnitRecord& wagon = wagons[i];
        if (wagon.couplerFront == couplerFilter && wagon.unitType == typeFilter)
            lines.push_back(wagon.displayName + std::string(45, ' ') + "^" + std::to_string(i));
    }
    return lines;
}

int wagonIndexOfLine(std::string_view line) {
    if (line.find('^') == std::string_view::npos) return -1;
    const std::string key = keyOfLine(line);
    int index = -1;
    const auto [end, error] = std::from_chars(key.data(), key.data() + key.size(), index);
    return error == std::errc() && end == key.data() + key.size() ? index : -1;
}

std::vector<int> getRandomWagons(const std::vector<int>& ticked, std::string_view countText,
                                 RandomSource& random, Dialogs& dialogs) {
    if (ticked.empty()) return {};
    const long long wagonCount = countOf(countText);
    if (wagonCount <= 0) return {};
    if (wagonCount > kMostRandomWagons) {
        dialogs.report("The maximum number of wagons you can add is 150!", Icon::Exclamation);
        return {};
    }
    const std::vector<int> mixed = shuffled(ticked, random);
    std::vector<int> train;
    for (long long j = 0; j < wagonCount; ++j)
        train.push_back(j < static_cast<long long>(mixed.size()) ? mixed[j]
                                                                 : repeatOf(mixed, random));
    return train;
}

void transferConsist(ConsistState& consist, const UnitCatalogue& catalogue,
                     const std::vector<int>& train, std::string_view typeFilter) {
    consist.consistChanged = false;
    clearAll(consist);
    const auto wagons = usedRecords(catalogue, UnitClass::Wagon);
    int j = 0;
    for (int index : train) {
        if (index < 0 || static_cast<std::size_t>(index) >= wagons.size() || j >= kUsedSlots)
            continue;
        ConsistSlot& slot = consist.slots[j];
        copyCatalogueFields(slot, wagons[index], false);
        slot.flipped = false;
        slot.uid = static_cast<float>(j);
        slot.position = static_cast<std::int16_t>(j + 1);
        slot.imageKey = typeFilter == "Freight" ? "WAG" : "CAR";
        addPastedUnit(consist.totals, slot);
        changeWagonCount(consist.totals, 1);
        ++j;
    }
    consist.consistChanged = true;
    showLastUnitPage(consist);
    refreshPics(consist);
}

}  // namespace rakeyard
