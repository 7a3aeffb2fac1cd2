#include "core/alias/alias_rewrite.h"

#include <gtest/gtest.h>

#include "core/alias/alias_steps.h"

namespace rakeyard {
namespace {

using Lines = std::vector<std::u16string>;
const std::u16string kPrefix = trainsetReference("Src/CABVIEW") + u"\\\\";

TEST(TrainsetReference, DoublesEverySeparator) {
    EXPECT_EQ(trainsetReference("ABC/CABVIEW\\X.CVF"), u"..\\\\..\\\\ABC\\\\CABVIEW\\\\X.CVF");
    EXPECT_EQ(kPrefix, u"..\\\\..\\\\Src\\\\CABVIEW\\\\");
}

TEST(ReadEngineReferences, TakesCabViewAndSoundOnlyAsFirstWords) {
    const EngineReferences found = readEngineReferences({
        u"Wagon ( x",
        u"\tName ( \"Sound ( \\\"no.sms\\\" )\" )",
        u"\tSound ( \"eng.sms\" ) comment ( \"not.sms\" )",
        u"\tInside (",
        u"\t\tPassengerCabinFile ( p.s )",
        u"\t\tPassengerCabinHeadPos ( 0 2 0 )",
        u"\t\tRotationLimit ( 40 0 0 )",
        u"\t\tStartDirection ( 0 0 0 )",
        u"\t\tSound ( \"inside.sms\" )",
        u"\t)",
        u"\tCabViewFile ( no.cvf )",
        u"\tCabView ( \"My Cab.cvf\" )",
        u"\tSound ( \"cab.sms\" )",
        u"\tSound ( \"third.sms\" )",
    });
    ASSERT_TRUE(found.cabView);
    EXPECT_EQ(*found.cabView, u"My Cab.cvf");
    EXPECT_EQ(found.sounds, (Lines{u"eng.sms", u"cab.sms"}));
    EXPECT_FALSE(found.cabLineFaulty || found.soundLineFaulty);
}

TEST(ReadEngineReferences, MarksLinesWithoutTheirParenthesesOrQuotes) {
    EXPECT_TRUE(readEngineReferences({u"\tCabView ( a.cvf"}).cabLineFaulty);
    EXPECT_TRUE(readEngineReferences({u"\tSound ( a.sms )"}).soundLineFaulty);
    EXPECT_TRUE(readEngineReferences({u"\tSound ( \"a.sms )"}).soundLineFaulty);
    const EngineReferences none = readEngineReferences({u"comment CabView ( a.cvf )"});
    EXPECT_FALSE(none.cabView || none.cabLineFaulty);
}

TEST(RewriteEngineLines, ReplacesTheLinesAndPutsTheirTailsBack) {
    EngineLineRule rule;
    rule.soundNeedsQuotes = true;
    rule.firstCabLine = rule.laterCabLine = u"\tCabView ( new.cvf )";
    rule.firstSoundLine = u"\tSound ( \"e.sms\" )";
    rule.laterSoundLine = u"\tSound ( \"c.sms\" )";
    const EngineRewrite rewrite = rewriteEngineLines(
        {u"\tSound ( \"old.sms\" )", u"\tInside (", u"\t\tSound ( \"inside.sms\" )", u"", u"", u"",
         u"", u"", u"CabView ( old.cvf ) Comment ( mine )", u"  sound(\"x.sms\")",
         u"\tcomment CabView ( kept )"},
        rule);
    EXPECT_EQ(rewrite.lines,
              (Lines{u"\tSound ( \"e.sms\" )", u"\tInside (", u"\t\tSound ( \"inside.sms\" )", u"",
                     u"", u"", u"", u"", u"\tCabView ( new.cvf ) Comment ( mine )",
                     u"\tSound ( \"c.sms\" )", u"\tcomment CabView ( kept )"}));
    EXPECT_EQ(rewrite.changedLines, 3u);
    EXPECT_FALSE(rewrite.faultyLine);
}

TEST(RewriteEngineLines, FindsALineWithoutItsParenthesesOrQuotes) {
    EngineLineRule rule;
    rule.soundNeedsQuotes = true;
    rule.firstSoundLine = rule.laterSoundLine = u"\tSound ( \"e.sms\" )";
    EXPECT_EQ(rewriteEngineLines({u"a", u"\tSound ( e.sms )"}, rule).faultyLine, 1u);
    EXPECT_EQ(rewriteEngineLines({u"\tSound \"e.sms\""}, rule).faultyLine, 0u);
}

TEST(RewriteEngineLines, TakesOnlyWordsBehindATabOrFourBlanksWhenAsked) {
    EngineLineRule rule;
    rule.indentedOnly = true;
    rule.firstCabLine = u"\tCabView ( ref )";
    rule.laterCabLine = u"\tCabView (  )";
    const Lines lines = {u"CabView ( a.cvf )", u"  CabView ( b.cvf )", u"    CabView ( c.cvf )",
                         u" \tCabView ( d.cvf )"};
    const EngineRewrite rewrite = rewriteEngineLines(lines, rule);
    EXPECT_EQ(rewrite.lines, (Lines{u"CabView ( a.cvf )", u"  CabView ( b.cvf )",
                                    u"\tCabView ( ref )", u"\tCabView (  )"}));
    EXPECT_EQ(rewrite.changedLines, 2u);
}

TEST(PrefixAceNames, PointsEachAceNameIntoTheSource) {
    const auto out =
        prefixAceNames({u"\tCabViewFile ( front.ace )", u"\t\tGraphic ( \"dial one.ACE\" )",
                        u"\t\tGraphic (x.ace)", u"\tPosition ( 1 2 )",
                        u"\tCabViewFile ( b.ace ) comment ( c.ace )", u"\tcomment ( z.ace )"},
                       kPrefix);
    ASSERT_TRUE(out);
    EXPECT_EQ(*out, (Lines{u"\tCabViewFile ( " + kPrefix + u"front.ace )",
                           u"\t\tGraphic ( \"" + kPrefix + u"dial one.ACE\" )",
                           u"\t\tGraphic (" + kPrefix + u"x.ace)", u"\tPosition ( 1 2 )",
                           u"\tCabViewFile ( " + kPrefix + u"b.ace ) comment ( c.ace )",
                           u"\tcomment ( z.ace )"}));
    EXPECT_FALSE(prefixAceNames({u"\tfront.ace"}, kPrefix));
}

TEST(PrefixWavNames, PointsEveryQuotedWavNameIntoTheSource) {
    const auto out = prefixWavNames({u"File ( \"a.wav\" -1 )", u"Files ( 2 \"b.WAV\" \"c.wav\" )",
                                     u"Name ( \"idle\" ) File ( \"d.wav\" -1 )", u"Volume ( 1 )"},
                                    kPrefix);
    ASSERT_TRUE(out);
    EXPECT_EQ(*out,
              (Lines{u"File ( \"" + kPrefix + u"a.wav\" -1 )",
                     u"Files ( 2 \"" + kPrefix + u"b.WAV\" \"" + kPrefix + u"c.wav\" )",
                     u"Name ( \"idle\" ) File ( \"" + kPrefix + u"d.wav\" -1 )", u"Volume ( 1 )"}));
}

TEST(PrefixWavNames, RefusesAWavNameOutsideQuotes) {
    for (const std::u16string& line :
         {std::u16string(u"File ( a.wav -1 )"), std::u16string(u"File ( \"a.wav\" b.wav )"),
          std::u16string(u"File ( \"a.wav )"), std::u16string(u"File ( a.wav \"b\" )")})
        EXPECT_FALSE(prefixWavNames({line}, kPrefix)) << testing::PrintToString(line);
}

}  // namespace
}  // namespace rakeyard

namespace rakeyard {
namespace {

TEST(AliasRewriters, TakeAMegabyteLineAndTenThousandAceLinesWhole) {
    const std::u16string name(1 << 20, u'a');
    const auto longLine = prefixAceNames({u"\tGraphic ( " + name + u".ace )"}, kPrefix);
    ASSERT_TRUE(longLine);
    EXPECT_EQ(longLine->at(0), u"\tGraphic ( " + kPrefix + name + u".ace )");
    const auto longWav = prefixWavNames({u"File ( \"" + name + u".wav\" )"}, kPrefix);
    ASSERT_TRUE(longWav);
    EXPECT_EQ(longWav->at(0).size(), name.size() + kPrefix.size() + 15);
    std::vector<std::u16string> lines(10000, u"\tGraphic ( d.ace )");
    const auto many = prefixAceNames(lines, kPrefix);
    ASSERT_TRUE(many);
    EXPECT_EQ(many->size(), 10000u);
    EXPECT_EQ(many->back(), u"\tGraphic ( " + kPrefix + u"d.ace )");
}

}  // namespace
}  // namespace rakeyard
