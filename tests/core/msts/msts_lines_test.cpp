#include "core/msts/msts_lines.h"

#include <gtest/gtest.h>

#include "support/msts_tree.h"

namespace rakeyard {
namespace {

using Lines = std::vector<std::u16string>;

TEST(ReadTextLines, EndsLinesAtTheCharacterCr) {
    using namespace std::string_view_literals;
    struct Case {
        std::string_view bytes;
        Lines lines;
    };
    const Case cases[] = {
        {"\xFF\xFE"
         "a\0\r\0\n\0b\0"sv,
         {u"a", u"b"}},
        {"\xFF\xFE"
         "a\0\r\0\n\0"sv,
         {u"a"}},  // no empty line behind the last end
        {"\xFF\xFE"
         "a\0\r\0\r\0\n\0b\0"sv,
         {u"a", u"", u"b"}},
        {"\xFF\xFE"
         "a\0\n\0b\0"sv,
         {u"a\nb"}},  // a lone LF stays inside its line
        {"\xFF\xFE"
         "\x0D\x01"
         "x\0"sv,
         {u"\u010Dx"}},  // U+010D holds the byte 0D
        {"\xFF\xFE"
         "\x3B\x04\r\0\n\0"sv,
         {u"\u043B"}},  // kept whole, above U+00FF
        {"\xFF\xFE"sv, {}},
        {"\xFF\xFE"
         "a"sv,
         {}},                                      // an odd last byte is dropped
        {"a\r\nb\x80\r\n"sv, {u"a", u"b\u20AC"}},  // 8-bit text is Windows-1252
        {"a\0b\0\r\0\n\0"sv, {u"ab"}},             // zero bytes dropped without a mark
        {""sv, {}},
    };
    for (const Case& c : cases)
        EXPECT_EQ(readTextLines(c.bytes), c.lines) << testing::PrintToString(c.bytes);
}

TEST(WriteTextLines, WritesTheMarkAndCrLfAfterEachLine) {
    EXPECT_EQ(writeTextLines({u"a", u"\u010D", u""}),
              std::string("\xFF\xFE", 2) + test::utf16Bytes("a\r\n\u010D\r\n\r\n"));
    EXPECT_EQ(writeTextLines({}), std::string("\xFF\xFE", 2));
    const Lines lines = {u"Wagon ( x", u"\tSound ( \"a b.sms\" )", u")"};
    EXPECT_EQ(readTextLines(writeTextLines(lines)), lines);
}

TEST(SplitCommentTail, KeepsTheTailFromTheCharacterBeforeComment) {
    struct Case {
        std::u16string_view line;
        std::u16string_view working;
        std::u16string_view tail;
        bool isComment;
    };
    const Case cases[] = {
        {u"\tCabView ( a.cvf ) Comment ( old )", u"\tCabView ( a.cvf )", u" Comment ( old )",
         false},
        {u"\tSound ( x.sms )#comment", u"\tSound ( x.sms )", u"#comment", false},
        {u"\tcomment ( all )", u"\tcomment ( all )", u"", true},
        {u"    COMMENT", u"    COMMENT", u"", true},  // ends at the 11th character
        {u"     COMMENT", u"    ", u" COMMENT", false},
        {u"\tCabView ( a.cvf )", u"\tCabView ( a.cvf )", u"", false},
    };
    for (const Case& c : cases) {
        const LineParts parts = splitCommentTail(c.line);
        EXPECT_EQ(parts.isComment, c.isComment) << testing::PrintToString(c.line);
        if (c.isComment) continue;
        EXPECT_EQ(parts.working, c.working) << testing::PrintToString(c.line);
        EXPECT_EQ(parts.tail, c.tail) << testing::PrintToString(c.line);
    }
}

TEST(FirstWordIs, CountsTheWordOnlyWhereItBeginsTheLine) {
    EXPECT_TRUE(firstWordIs(u"\t  CabView ( a )", u"CABVIEW"));
    EXPECT_TRUE(firstWordIs(u"cabview(a)", u"CABVIEW"));
    EXPECT_TRUE(firstWordIs(u"Sound", u"SOUND"));
    EXPECT_FALSE(firstWordIs(u"\tCabViewFile ( a )", u"CABVIEW"));
    EXPECT_FALSE(firstWordIs(u"\tName ( CabView ( a ) )", u"CABVIEW"));
    EXPECT_FALSE(firstWordIs(u"\tSoun", u"SOUND"));
}

}  // namespace
}  // namespace rakeyard
