#pragma once
// The unit lines of a consist, of an activity's loose consists and of a service: an EngineData
// or WagonData line names a unit's file and its folder under Trainset, a Train_Config line the
// stem of a consist file.
#include <optional>
#include <string>
#include <string_view>

namespace rakeyard {

enum class UnitLineKind { Engine, Wagon, TrainConfig };

struct UnitLine {
    std::string name;    // a unit's file name with ".eng" or ".wag"; a consist's stem
    std::string folder;  // the unit's folder under Trainset; empty for a Train_Config line
};

// Reads the name (and for a unit its folder) from a line holding "EngineData (", "WagonData ("
// or "Train_Config (", in the line's own case. The name is what stands after the first "(" up
// to the next blank, or between double quotes when it begins with one; a unit's folder is what
// then remains before the ")", quoted or not, and the name itself when nothing does. Nothing
// when the line lacks a "(", a blank, a closing quote or a ")" that it needs: such a line is
// in error.
[[nodiscard]] std::optional<UnitLine> readUnitLine(std::string_view line, UnitLineKind kind);

}  // namespace rakeyard
