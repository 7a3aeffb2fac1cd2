#include "core/consist/image_keys.h"

#include <array>

#include "core/platform/text_utf.h"

namespace rakeyard {

namespace {

constexpr std::array<std::string_view, 28> kPictureKeys = {
    "ENG",       "ENGSEL",    "ENGINV", "ENGINVSEL", "CAR",       "CARSEL",    "CARINV",
    "CARINVSEL", "WAG",       "WAGSEL", "WAGINV",    "WAGINVSEL", "TEN",       "TENSEL",
    "TENINV",    "TENINVSEL", "EMP",    "EMPSEL",    "NOTFOUND",  "DSL",       "DSLSEL",
    "DSLINV",    "DSLINVSEL", "ELE",    "ELESEL",    "ELEINV",    "ELEINVSEL", "DEL"};

constexpr std::array<std::string_view, 6> kUnitStems = {"ENG", "DSL", "ELE", "CAR", "WAG", "TEN"};

bool isUnitStem(std::string_view stem) {
    for (std::string_view s : kUnitStems) {
        if (s == stem) return true;
    }
    return false;
}

bool endsWith(std::string_view text, std::string_view tail) {
    return text.size() >= tail.size() && text.substr(text.size() - tail.size()) == tail;
}

}  // namespace

std::string_view pictureKey(int number) {
    if (number < 1 || number > static_cast<int>(kPictureKeys.size())) return {};
    return kPictureKeys[static_cast<std::size_t>(number - 1)];
}

bool isUnselectedUnitKey(std::string_view key) {
    if (key.size() == 3) return isUnitStem(key);
    return key.size() == 6 && endsWith(key, "INV") && isUnitStem(key.substr(0, 3));
}

bool isSelectedUnitKey(std::string_view key) {
    return endsWith(key, "SEL") && isUnselectedUnitKey(key.substr(0, key.size() - 3));
}

std::string selectedKey(std::string_view key) {
    if (isUnselectedUnitKey(key) || key == "EMP") return std::string(key) + "SEL";
    return std::string(key);
}

std::string unselectedKey(std::string_view key) {
    if (isSelectedUnitKey(key) || key == "EMPSEL")
        return std::string(key.substr(0, key.size() - 3));
    return std::string(key);
}

bool isEngineType(std::string_view unitType) {
    const std::string stem(stemOfType(unitType));
    return stem == "ENG" || stem == "DSL" || stem == "ELE";
}

std::string_view stemOfType(std::string_view unitType) {
    const std::string upper = upperAscii(unitType);
    if (upper == "STEAM") return "ENG";
    if (upper == "DIESEL") return "DSL";
    if (upper == "ELECTRIC") return "ELE";
    if (upper == "CARRIAGE") return "CAR";
    if (upper == "FREIGHT") return "WAG";
    if (upper == "TENDER") return "TEN";
    return {};
}

}  // namespace rakeyard
