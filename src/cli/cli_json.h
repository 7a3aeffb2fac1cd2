#pragma once
#include <nlohmann/json.hpp>

#include "core/msts/unit_record.h"

namespace rakeyard::cli {

// Keys in the order they are put in, so that output reads as the records are laid out.
using Json = nlohmann::ordered_json;

// A 32-bit value as the shortest decimal that reads back as the same float (49.1, not
// 49.099998474121094).
double shortestDouble(float value);

// The twelve fields a catalogue fills, by their names; maxPower "" and hasCab false for wagons.
Json catalogueRecordJson(const UnitRecord& record);
// All seventeen fields of a consist slot, by their names.
Json slotJson(const ConsistSlot& slot);

// Prints the value on stdout, indented, with a line end.
void printJson(const Json& value);

}  // namespace rakeyard::cli
