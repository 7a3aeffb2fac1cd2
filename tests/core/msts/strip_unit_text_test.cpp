#include <gtest/gtest.h>

#include <random>

#include "core/msts/msts_text.h"
#include "core/platform/text_utf.h"
#include "support/fakes.h"
#include "support/plain_unit_text.h"

namespace rakeyard {
namespace {

// The working text made of a unit file that holds text, less the mark it starts with.
std::u16string stripped(std::u16string_view text, bool cutDescription) {
    UnitText unit;
    stripUnitText(encodeMstsText(text), cutDescription, unit);
    return std::u16string(unit.text().substr(1));
}

// The text with its line ends as decoding makes them, for the expected results.
std::u16string decoded(std::u16string_view text) {
    return decodeMstsText(encodeMstsText(text)).substr(1);
}

TEST(StripUnitText, AgreesWithThePlainPassesOnRandomFiles) {
    const std::u16string parts[] = {
        u"Comment", u"comment",     u"COMMENT",  u"(",          u")",
        u"\n",      u"\r",          u"\t",       u"a",          u" ",
        u"b",       u"Description", u"Coupling", u"UniqueType", u"HasRigidConnection",
        u"Descr",   u"D",
    };
    std::mt19937 random(7);
    UnitText unit;  // reused, as a catalogue worker does: nothing of one file may stay
    for (int round = 0; round < 600; ++round) {
        std::u16string text;
        const int length = round % 2 == 0 ? 40 : 400;  // the long ones have many words
        for (int i = 0; i < length; ++i)
            text += parts[random() % std::size(parts)];
        std::string bytes = encodeMstsText(text);
        if (round % 5 == 0) bytes.pop_back();  // an odd byte at the end is dropped
        const bool cutDescription = round % 3 != 0;
        stripUnitText(bytes, cutDescription, unit);
        const std::u16string plain = test::plainUnitText(bytes, cutDescription);
        ASSERT_EQ(toUtf8(unit.text()), toUtf8(plain)) << toUtf8(text);
        ASSERT_EQ(unit.upper(), upperText(plain)) << toUtf8(text);
    }
}

TEST(StripUnitText, RemovesCommentsAsThePassesDo) {
    struct Case {
        const char* what;
        std::u16string text;
        std::u16string expected;
    } cases[] = {
        {"nested close loses only up to the first one", u"a comment ( x ( y ) z ) b", u"a   z ) b"},
        {"no close behind it loses its line", u"Mass ( 1 )\nComment no close\nEnd\n",
         u"Mass ( 1 )\n End\n"},
        {"any letter case", u"x COMMENT(1) y Comment(2) z comment(3)", u"x   y   z  "},
        {"identical pieces vanish everywhere, even inside another line",
         u"Comment(a) Mass ( Comment(a) 5 )", u"  Mass (   5 )"},
        // The second comment is taken as it stands once the first piece is gone.
        {"pieces are taken from the text as cut so far",
         u"Comment(a)\nComment ( x Comment(a) y )\n", u" \n \n"},
        // COMMENT(a) is no occurrence of Comment(a): the next comment takes it up to its ")".
        {"pieces match in exact case only", u"Comment(a) Comment ( COMMENT(a) )", u"    )"},
        {"no close and no line end keeps the rest", u"a Comment b", u"a Comment b"},
        {"coupling words", u"CouplingUniqueType ( x ) CouplingHasRigidConnection ( 1 )",
         u"  ( x )   ( 1 )"},
        {"a coupling word inside a comment goes with it",
         u"Comment ( CouplingUniqueType ) CouplingUniqueTypeX", u"   X"},
        {"tabs are blanks to the pieces", u"Comment\t(a)\tComment (a)", u"   "},
    };
    UnitText unit;
    for (const Case& c : cases) {
        stripUnitText(encodeMstsText(c.text), false, unit);
        EXPECT_EQ(toUtf8(unit.text().substr(1)), toUtf8(decoded(c.expected))) << c.what;
        EXPECT_EQ(unit.upper(), upperText(unit.text())) << c.what;
    }
}

TEST(StripUnitText, CutsAtTheLastDescriptionOnlyWhenAsked) {
    const std::u16string text = u"A\nDescription ( one )\nB\nDescription ( two )\nC";
    EXPECT_EQ(stripped(text, true), decoded(u"A\nDescription ( one )\nB\n"));
    EXPECT_EQ(stripped(text, false), decoded(text));
    EXPECT_EQ(stripped(u"A\nDescription \"x\"\nDescription(y)", true), decoded(u"A\n"));
    EXPECT_EQ(stripped(u"A\ndescription ( x )", true), decoded(u"A\ndescription ( x )"));
    // A tab after the word is the blank; a line end is not.
    EXPECT_EQ(stripped(u"A Description\t( x ) Description y", true), u"A ");
    EXPECT_EQ(stripped(u"A Description\n( x )", true), decoded(u"A Description\n( x )"));
    EXPECT_EQ(stripped(u"A Description", true), u"A Description");
}

TEST(StripUnitText, ShowsEachPassTitleInTheDebugWindow) {
    test::FakeProgress debug;
    const StripTitles titles{"d", "c", "k"};
    UnitText unit;
    stripUnitText(encodeMstsText(u"x"), true, unit, &titles, &debug);
    stripUnitText(encodeMstsText(u"x"), false, unit, &titles, &debug);
    EXPECT_EQ(debug.debugTexts, (std::vector<std::string>{"3:d", "3:c", "3:k", "3:c", "3:k"}));
}

TEST(StripUnitText, ManyCommentsInABigTextFinishQuickly) {
    std::u16string text;
    for (int i = 0; i < 20000; ++i)
        text += u"Comment ( " + toUtf16(std::to_string(i)) + u" )\n";
    UnitText unit;
    stripUnitText(encodeMstsText(text), false, unit);
    EXPECT_EQ(unit.text().size(), 1 + 60000u);
}

}  // namespace
}  // namespace rakeyard
