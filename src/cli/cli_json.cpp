#include "cli/cli_json.h"

#include <charconv>
#include <cstdio>
#include <cstdlib>

namespace rakeyard::cli {

double shortestDouble(float value) {
    char text[32];
    const auto result = std::to_chars(text, text + sizeof text - 1, value);
    *result.ptr = '\0';
    return std::strtod(text, nullptr);
}

namespace {

// UiDs are whole numbers in practice; one that is not stays a fraction.
Json uidJson(float uid) {
    const double value = shortestDouble(uid);
    if (value == static_cast<double>(static_cast<long long>(value)))
        return static_cast<long long>(value);
    return value;
}

}  // namespace

Json catalogueRecordJson(const UnitRecord& record) {
    return Json{{"folderPath", record.folderPath},
                {"folderName", record.folderName},
                {"fileName", record.fileName},
                {"displayName", record.displayName},
                {"unitType", record.unitType},
                {"couplerFront", record.couplerFront},
                {"couplerRear", record.couplerRear},
                {"mass", shortestDouble(record.mass)},
                {"length", shortestDouble(record.length)},
                {"maxPower", record.maxPower},
                {"shapeName", record.shapeName},
                {"hasCab", record.hasCab}};
}

Json slotJson(const ConsistSlot& slot) {
    return Json{{"folderPath", slot.folderPath},
                {"folderName", slot.folderName},
                {"fileName", slot.fileName},
                {"displayName", slot.displayName},
                {"uid", uidJson(slot.uid)},
                {"flipped", slot.flipped},
                {"unitType", slot.unitType},
                {"imageKey", slot.imageKey},
                {"position", slot.position},
                {"couplerFront", slot.couplerFront},
                {"couplerRear", slot.couplerRear},
                {"mass", shortestDouble(slot.mass)},
                {"length", shortestDouble(slot.length)},
                {"markedForDelete", slot.markedForDelete},
                {"maxPower", slot.maxPower},
                {"shapeName", slot.shapeName},
                {"hasCab", slot.hasCab}};
}

void printJson(const Json& value) {
    const std::string text = value.dump(2, ' ', false, Json::error_handler_t::replace);
    std::fputs(text.c_str(), stdout);
    std::fputc('\n', stdout);
}

}  // namespace rakeyard::cli
