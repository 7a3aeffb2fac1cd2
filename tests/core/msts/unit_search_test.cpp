#include "core/msts/unit_search.h"

#include <gtest/gtest.h>

#include "core/msts/unit_list.h"

namespace rakeyard {
namespace {

UnitRecord unit(std::string folder, std::string file, std::string name, std::string type) {
    UnitRecord r;
    r.folderName = std::move(folder);
    r.fileName = std::move(file);
    r.displayName = std::move(name);
    r.unitType = std::move(type);
    r.couplerFront = r.couplerRear = "C";
    return r;
}

TEST(UnitSearch, EveryWordMustStandInNameFileOrFolderInAnyCase) {
    const UnitRecord gp38 = unit("UP_GP38", "gp38_2.eng", "Union Pacific GP38-2", "Diesel");
    struct Case {
        const char* text;
        bool matches;
    } cases[] = {
        {"", true},             {"   ", true},          {"union", true},
        {"UNION gp38", true},   {"gp38 union", true},   {"up_", true},
        {"_2.ENG", true},       {"pacific\tgp", true},  {"union santa", false},
        {"diesel", false},  // the type is not searched
        {"GP38-2x", false},
    };
    for (const Case& c : cases)
        EXPECT_EQ(UnitSearch(c.text).matches(gp38), c.matches) << '"' << c.text << '"';
    EXPECT_TRUE(UnitSearch(" ").empty());
    EXPECT_FALSE(UnitSearch("a").empty());
}

TEST(UnitSearch, LettersBeyondAsciiMatchAsWritten) {
    const UnitRecord skoda = unit("CD", "cd.eng", "\xC5\xA0koda \xC4\x8D" "D", "Electric");
    EXPECT_TRUE(UnitSearch("\xC5\xA0KODA").matches(skoda));
    EXPECT_TRUE(UnitSearch("\xC4\x8D" "d").matches(skoda));
    EXPECT_FALSE(UnitSearch("skoda").matches(skoda));
}

TEST(UnitListRows, CarryTheLinesOfTheListWithTheirRecords) {
    const UnitRecord records[] = {
        unit("B", "b.wag", "Box van", "Freight"),
        unit("A", "a.wag", "Coach", "Carriage"),
        unit("C", "c.wag", "box van", "Freight"),
        unit("D", "d.wag", "Ash wagon", "Freight"),
    };
    const auto rows = unitListRows(records, UnitClass::Wagon, "Freight");
    const auto lines = readWagFilter(records, "Freight");
    ASSERT_EQ(rows.size(), lines.size());
    ASSERT_EQ(rows.size(), 3u);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        EXPECT_EQ(rows[i].line, lines[i]);
        EXPECT_EQ(rows[i].line, unitListLine(records[rows[i].record], false));
    }
    EXPECT_EQ(rows[0].record, 3u);  // Ash wagon
    EXPECT_EQ(rows[1].record, 0u);  // "Box van" before "box van": equal when upper-cased
    EXPECT_EQ(rows[2].record, 2u);
}

}  // namespace
}  // namespace rakeyard
