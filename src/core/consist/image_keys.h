#pragma once
#include <string>
#include <string_view>

namespace rakeyard {

// The picture keys of a slot. A unit's key is a stem ("ENG" steam, "DSL" diesel, "ELE" electric,
// "CAR" carriage, "WAG" freight, "TEN" tender), then "INV" when it stands flipped, then "SEL"
// when it is selected. "EMP" and "EMPSEL" are an empty slot, "NOTFOUND" a unit missing from the
// catalogue, "DEL" a slot marked for deletion.

// The key of picture number 1..28 of the program's picture set; "" outside that range.
std::string_view pictureKey(int number);

// True for the twelve keys of a unit, unselected, flipped or not ("ENG" .. "ELEINV").
bool isUnselectedUnitKey(std::string_view key);
// True for the twelve selected keys of a unit ("ENGSEL" .. "ELEINVSEL"); "EMPSEL" is not one.
bool isSelectedUnitKey(std::string_view key);
// "ENGSEL" for "ENG", "EMPSEL" for "EMP"; any other key as it is.
std::string selectedKey(std::string_view key);
// "ENG" for "ENGSEL", "EMP" for "EMPSEL"; any other key as it is.
std::string unselectedKey(std::string_view key);

// True for "Steam", "Diesel" and "Electric" in any letter case.
bool isEngineType(std::string_view unitType);
// The stem of an engine or wagon type in any letter case ("DSL" for "Diesel"); "" for others.
std::string_view stemOfType(std::string_view unitType);

}  // namespace rakeyard
