#include "core/msts/msts_text.h"

#include <gtest/gtest.h>

#include <random>

#include "core/platform/text_utf.h"
#include "support/fakes.h"
#include "support/msts_tree.h"

namespace rakeyard {
namespace {

std::string mark() {
    return "\xFF\xFE";
}

std::string bigEndian(std::string_view text) {
    std::string bytes = test::utf16Bytes(text);
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2)
        std::swap(bytes[i], bytes[i + 1]);
    return bytes;
}

class IsUnicodeFile : public ::testing::Test {
protected:
    test::MstsTree msts;
    test::FakeServices fake;
};

TEST_F(IsUnicodeFile, PassesOnlyAFirstLineOfThirtyTwoCharacters) {
    struct Case {
        const char* name;
        std::string bytes;
        bool passes;
    } cases[] = {
        {"utf16 header", mark() + test::utf16Bytes("SIMISA@@@@@@@@@@JINX0D0t______\r\nWagon"),
         true},
        {"header of 31 behind the mark",
         mark() + test::utf16Bytes("SIMISA@@@@@@@@@@JINX0D0t_______\r\n"), false},
        {"8-bit header of 30", "SIMISA@@@@@@@@@@JINX0D0t______\r\nWagon", false},
        {"no line end at all", mark() + test::utf16Bytes("SIMISA@@@@@@@@@@JINX0D0t______"), true},
        // U+010D holds the byte 0D; only the character CR ends the line.
        {"letter with byte 0D",
         mark() + test::utf16Bytes("SIMISA@@@@@@@@@@JINX0D0t____\xC4\x8D\r\n"), true},
        {"lone LF stays inside the line",
         mark() + test::utf16Bytes("SIMISA@@@@@@@@@@JINX0D0t_____\n\r\n"), true},
        // Its first line also counts 32 once the zero bytes are gone.
        {"big-endian mark", bigEndian("\uFEFFSIMISA@@@@@@@@@@JINX0D0t______\r\n"), true},
        {"empty", "", false},
    };
    for (const Case& c : cases) {
        const std::string path =
            msts.writeBytes(std::string("TRAINS/TRAINSET/U/") + c.name, c.bytes);
        EXPECT_EQ(isUnicodeFile(fake.fs, path), c.passes) << c.name;
    }
    EXPECT_FALSE(isUnicodeFile(fake.fs, msts.trainset() + "/U/missing.eng"));
}

TEST(DecodeMstsText, WidensLineEndsAndTabsAsTheReadersExpect) {
    const MstsText text =
        decodeMstsText(mark() + test::utf16Bytes("a\tb\r\nc\nd\re") + std::string("\x41", 1));
    EXPECT_EQ(text, u"\uFEFFa b\r\r\n\r\nc\r\nd\r\r\ne");
}

// Characters whose one byte looks like a tab, CR or LF, beside the real ones.
const char16_t kAwkward[] = {u'\t', u'\r', u'\n', 0x0D00, 0x0A0D, 0x0900, 0x2009, u'a', u'E', u'N'};

TEST(DecodeMstsText, AgreesWithDecodingOneCharacterAtATime) {
    std::mt19937 random(11);
    for (int round = 0; round < 2000; ++round) {
        std::u16string text;
        for (int i = 0, n = static_cast<int>(random() % 40); i < n; ++i)
            text += kAwkward[random() % std::size(kAwkward)];
        std::u16string plain;
        for (char16_t c : text)
            plain += c == u'\r'   ? u"\r\r\n"
                     : c == u'\n' ? u"\r\n"
                     : c == u'\t' ? u" "
                                  : std::u16string(1, c);
        std::string bytes = encodeMstsText(text).substr(2);
        if (round % 3 == 0) bytes += 'x';  // a last odd byte is dropped
        ASSERT_EQ(decodeMstsText(bytes), plain) << round;
    }
}

TEST(FindFrom, AgreesWithAPlainSearchWhereverTheMatchStands) {
    std::mt19937 random(5);
    const std::u16string needles[] = {u"E", u"EN", u"ENE", u"NE\tE", u"\r\n", u"EaNa",
                                      u"\u0D00E\u0A0DEN", u"ENENE"};
    for (int round = 0; round < 3000; ++round) {
        std::u16string text;
        for (int i = 0, n = static_cast<int>(random() % 30); i < n; ++i)
            text += kAwkward[random() % std::size(kAwkward)];
        const std::u16string& needle = needles[random() % std::size(needles)];
        const std::size_t from = random() % (text.size() + 3);
        const std::size_t plain =
            from > text.size() ? std::u16string::npos : text.find(needle, from == 0 ? 0 : from - 1);
        ASSERT_EQ(findFrom(text, needle, from), plain == std::u16string::npos ? 0 : plain + 1)
            << round;
    }
}

TEST(FindKeywordLine, MatchesOnlyAKeywordThatBeginsItsLineBeforeAParen) {
    struct Case {
        std::u16string text;
        std::u16string keyword;
        KeywordOutcome outcome;
        std::size_t keywordPos;
        std::size_t parenPos;
    } cases[] = {
        {u"\n WagonShape ( a.s )\r\n Wagon ( x", u"WAGON", KeywordOutcome::Found, 24, 30},
        {u"\nWagon( x", u"WAGON", KeywordOutcome::Found, 2, 7},
        {u"\n\t Size\t ( 1 2 3 )", u"SIZE", KeywordOutcome::Found, 4, 10},
        {u" Coupling ( Type ( Automatic )\n", u"TYPE", KeywordOutcome::NotFound, 0, 0},
        {u" Coupling ( Type ( Automatic )\n Type ( Bar )", u"TYPE", KeywordOutcome::Found, 33, 38},
        {u"\nType ) (", u"TYPE", KeywordOutcome::NotFound, 0, 0},
        {u"\nMassive ( 3 )\nMass ( 4 )", u"MASS", KeywordOutcome::Found, 16, 21},
        {u"\nName", u"NAME", KeywordOutcome::NotFound, 0, 0},
        {u"", u"NAME", KeywordOutcome::NotFound, 0, 0},
    };
    for (const Case& c : cases) {
        const KeywordMatch m = findKeywordLine(upperText(c.text), c.keyword, 1);
        EXPECT_EQ(m.outcome, c.outcome) << toUtf8(c.text);
        EXPECT_EQ(m.keywordPos, c.keywordPos) << toUtf8(c.text);
        EXPECT_EQ(m.parenPos, c.parenPos) << toUtf8(c.text);
    }
}

TEST(FindKeywordLine, LooksAtFiftyOneMatchesAtMost) {
    const auto withMisses = [](int misses, bool goodLineLast) {
        std::u16string text = u"\uFEFF";
        for (int i = 0; i < misses; ++i)
            text += u"x Type ( no )\r\n";
        if (goodLineLast) text += u" Type ( Freight )\r\n";
        return upperText(text);
    };
    EXPECT_EQ(findKeywordLine(withMisses(50, true), u"TYPE", 1).outcome, KeywordOutcome::Found);
    EXPECT_EQ(findKeywordLine(withMisses(51, true), u"TYPE", 1).outcome,
              KeywordOutcome::LimitReached);
    EXPECT_EQ(findKeywordLine(withMisses(51, false), u"TYPE", 1).outcome, KeywordOutcome::NotFound);
    EXPECT_EQ(findKeywordLine(withMisses(10000, true), u"TYPE", 1).outcome,
              KeywordOutcome::LimitReached);
}

TEST(FindKeywordLine, StartsAtTheGivenPositionAndRetriesWithAnotherWord) {
    const std::u16string text = upperText(u"\nType ( A )\n Engine ( x Type ( B )\n Type(Diesel)");
    EXPECT_EQ(findKeywordLine(text, u"TYPE", 3).keywordPos, 37u);
    // "TYPE " finds no "Type(", but after a mid-line match the search goes on for "TYPE".
    EXPECT_EQ(findKeywordLine(text, u"TYPE ", 13).outcome, KeywordOutcome::NotFound);
    EXPECT_EQ(findKeywordLine(text, u"TYPE ", 13, u"TYPE").keywordPos, 37u);
}

TEST(ParenAndLineValue, CutAtTheCloseOrTheLineEnd) {
    std::size_t close = 99;
    EXPECT_EQ(parenValue(u"Mass (  75.5t  ) x", 6, &close), u"75.5t");
    EXPECT_EQ(close, 16u);
    EXPECT_EQ(parenValue(u"Mass ( 75", 6, &close), u"");
    EXPECT_EQ(close, 0u);
    EXPECT_EQ(lineValue(u"Wagon ( \"GP 38\" )\r\r\n\r\nType", 7), u"\"GP 38\" )");
    EXPECT_EQ(lineValue(u"Wagon ( GP38", 7), u"GP38");
}

}  // namespace
}  // namespace rakeyard
