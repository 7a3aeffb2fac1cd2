// The unit line reader on the forms MSTS and the editors write, and on lines it must refuse.
#include "core/msts/unit_line.h"

#include <gtest/gtest.h>

namespace rakeyard {
namespace {

struct Case {
    const char* line;
    UnitLineKind kind;
    const char* name;  // nullptr: the line is in error
    const char* folder;
};

const Case kCases[] = {
    {"\t\tEngineData ( RY_Class08 RY_Shunter )", UnitLineKind::Engine, "RY_Class08.eng",
     "RY_Shunter"},
    // One word: the folder is the name.
    {"EngineData ( gp38 )", UnitLineKind::Engine, "gp38.eng", "gp38"},
    // An unquoted folder with blanks is taken whole, a quoted one without its quotes.
    {"WagonData ( RY_Van12t RY Box Vans )", UnitLineKind::Wagon, "RY_Van12t.wag", "RY Box Vans"},
    {"WagonData ( RY_Van12t \"RY Box Vans\" )", UnitLineKind::Wagon, "RY_Van12t.wag",
     "RY Box Vans"},
    {"WagonData ( \"my van\" \"Box Vans\" )", UnitLineKind::Wagon, "my van.wag", "Box Vans"},
    {"WagonData ( \"my van\" )", UnitLineKind::Wagon, "my van.wag", "my van"},
    // The name's text leaves the line wherever it stands, so the folder keeps the rest.
    {"WagonData ( van vans )", UnitLineKind::Wagon, "van.wag", "vans"},
    {"EngineData ( $MT_#47 MT & Co )", UnitLineKind::Engine, "$MT_#47.eng", "MT & Co"},
    {"WagonData ( RY_Coal16t RY_Wagons", UnitLineKind::Wagon, nullptr, nullptr},
    {"WagonData RY_Coal16t RY_Wagons )", UnitLineKind::Wagon, nullptr, nullptr},
    {"EngineData (gp38)", UnitLineKind::Engine, nullptr, nullptr},
    {"WagonData ( \"open name folder )", UnitLineKind::Wagon, nullptr, nullptr},
    {"WagonData ( van \"folder )", UnitLineKind::Wagon, nullptr, nullptr},
    {"\tTrain_Config ( RY_Coal_Up )", UnitLineKind::TrainConfig, "RY_Coal_Up", ""},
    {"Train_Config ( \"RY Steam Excursion\" )", UnitLineKind::TrainConfig, "RY Steam Excursion",
     ""},
    {"Train_Config ( pre \"quoted\" post )", UnitLineKind::TrainConfig, "pre", ""},
    {"Train_Config (x)", UnitLineKind::TrainConfig, nullptr, nullptr},
    {"Train_Config ( \"never closed )", UnitLineKind::TrainConfig, nullptr, nullptr},
};

TEST(ReadUnitLine, NamesAndFoldersOfTheFormsWritten) {
    for (const Case& c : kCases) {
        const std::optional<UnitLine> unit = readUnitLine(c.line, c.kind);
        if (!c.name) {
            EXPECT_FALSE(unit) << c.line;
            continue;
        }
        ASSERT_TRUE(unit) << c.line;
        EXPECT_EQ(unit->name, c.name) << c.line;
        EXPECT_EQ(unit->folder, c.folder) << c.line;
    }
}

}  // namespace
}  // namespace rakeyard
