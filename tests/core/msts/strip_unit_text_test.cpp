#include <gtest/gtest.h>

#include <random>

#include "core/msts/msts_text.h"
#include "core/platform/text_utf.h"
#include "support/fakes.h"

namespace rakeyard {
namespace {

std::u16string stripped(std::u16string text, bool cutDescription) {
    stripUnitText(text, cutDescription);
    return text;
}

// The comment pass as plainly as it can be put: find, take the piece, replace it everywhere.
std::u16string plainCommentPass(std::u16string text) {
    std::size_t p = upperText(text).find(u"COMMENT");
    while (p != std::u16string::npos) {
        std::size_t q = text.find(u')', p + 1);
        if (q == std::u16string::npos) q = text.find(u'\n', p + 1);
        if (q != std::u16string::npos) {
            const std::u16string piece = text.substr(p, q - p + 1);
            std::u16string out;
            std::size_t from = 0;
            for (std::size_t at = text.find(piece); at != std::u16string::npos;
                 at = text.find(piece, from)) {
                out += text.substr(from, at - from) + u" ";
                from = at + piece.size();
            }
            text = out + text.substr(from);
        }
        p = upperText(text).find(u"COMMENT", p + 1);
    }
    return text;
}

TEST(StripUnitText, CommentPassAgreesWithPlainReplacingOnRandomTexts) {
    const std::u16string parts[] = {u"Comment", u"comment", u"COMMENT", u"(", u")",
                                    u"\n",      u"a",       u" ",       u"b"};
    std::mt19937 random(7);
    for (int round = 0; round < 300; ++round) {
        std::u16string text;
        const int length = round < 150 ? 40 : 400;  // the long ones have many words
        for (int i = 0; i < length; ++i)
            text += parts[random() % std::size(parts)];
        EXPECT_EQ(toUtf8(stripped(text, false)), toUtf8(plainCommentPass(text))) << toUtf8(text);
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
    };
    for (const Case& c : cases) {
        EXPECT_EQ(toUtf8(stripped(c.text, false)), toUtf8(c.expected)) << c.what;
    }
}

TEST(StripUnitText, CutsAtTheLastDescriptionOnlyWhenAsked) {
    const std::u16string text = u"A\nDescription ( one )\nB\nDescription ( two )\nC";
    EXPECT_EQ(stripped(text, true), u"A\nDescription ( one )\nB\n");
    EXPECT_EQ(stripped(text, false), text);
    EXPECT_EQ(stripped(u"A\nDescription \"x\"\nDescription(y)", true), u"A\n");
    EXPECT_EQ(stripped(u"A\ndescription ( x )", true), u"A\ndescription ( x )");
}

TEST(StripUnitText, ShowsEachPassTitleInTheDebugWindow) {
    test::FakeProgress debug;
    const StripTitles titles{"d", "c", "k"};
    std::u16string text = u"x";
    stripUnitText(text, true, &titles, &debug);
    stripUnitText(text, false, &titles, &debug);
    EXPECT_EQ(debug.debugTexts, (std::vector<std::string>{"3:d", "3:c", "3:k", "3:c", "3:k"}));
}

TEST(StripUnitText, ManyCommentsInABigTextFinishQuickly) {
    std::u16string text;
    for (int i = 0; i < 20000; ++i)
        text += u"Comment ( " + toUtf16(std::to_string(i)) + u" )\n";
    stripUnitText(text, false);
    EXPECT_EQ(text.size(), 40000u);
}

}  // namespace
}  // namespace rakeyard
