#include "core/platform/file_names.h"

#include <gtest/gtest.h>

namespace rakeyard {
namespace {

TEST(FileNameProblem, RefusesNamesThatLeaveTheFolderOrBreakOnWindows) {
    using namespace std::string_view_literals;
    for (std::string_view name : std::initializer_list<std::string_view>{
             ""sv,         "."sv,      "..",      "../x",      "../../escaped", "a/b",      "a\\b",
             "C:",         "C:x",      "x?",      "a*b",       "a<b",           "a>b",      "a|b",
             "say \"hi\"", "name.",    "name ",   "tab\there", "cr\rlf\n",      "CON",      "con",
             "Con.con",    "nul.txt",  "PRN",     "aux",       "COM1",          "com9.con", "LPT1",
             "lpt5.x.y",   "CON .con", "nul\0l"sv}) {
        EXPECT_FALSE(fileNameProblem(name).empty()) << name;
    }
}

TEST(FileNameProblem, AcceptsOrdinaryConsistNames) {
    for (std::string_view name : std::initializer_list<std::string_view>{
             "RY Steam Excursion", "a", "...a", ".hidden", "x.con", "CONSIST", "COM", "COM0",
             "COM10", "LPT", "console", "NULL", "Kč 日本", "a b", "-dash", "con_1"}) {
        EXPECT_EQ(fileNameProblem(name), "") << name;
    }
}

}  // namespace
}  // namespace rakeyard
