// The cab views and sound definitions an engine names, and what they name in turn.
#include <gmock/gmock.h>

#include "tester_fixture.h"

namespace rakeyard::test {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

// An engine whose lines name a cab view and a sound definition.
std::string cabSoundEngine(const std::string& name, const std::string& cab,
                           const std::string& sound) {
    return "Wagon ( " + name + "\n\tWagonShape ( " + name + ".s )\n\tSound ( \"" + sound +
           "\" )\n)\nEngine ( " + name + "\n\tCabView ( " + cab +
           " )\n\tName ( \"x\" )\n\tDescription ( \"Fine\" )\n)\n";
}

// One File line of a sound definition.
std::string fileLine(const std::string& files) {
    return "\t\t\t\t\tInitial_Trigger ( StartLoopRelease ( 1 " + files + " ) )\n";
}

class CabViews : public TesterTest {
protected:
    CabViews() {
        run.cabViews = true;
        addEngine("GP", "GP38.eng", cabSoundEngine("GP38", "GP38.cvf", "none.sms"));
        msts.writeBytes("TRAINS/TRAINSET/GP/CABVIEW/front.ace", "ace");
    }
    void testCabView(const std::string& lines) {
        msts.write("TRAINS/TRAINSET/GP/CABVIEW/GP38.cvf", "Tr_CabViewFile (\n" + lines + ")\n");
        testEngine(0);
    }
};

TEST_F(CabViews, OnlyTexturesOfTheirOwnLinesAreLookedUp) {
    testCabView("\tCabViewFile ( front.ace )\n"
                "\tCabViewWindowFile ( gone1.ace )\n"  // not a line of its own kind
                "\t\tGraphic ( gone2.ace )\n"          // two TABs: not a control's graphic
                "\t\t\tGraphic ( \"dial0.ace\" )\n"    // a 0: never looked for
                "\t\t\tGraphic ( acwndlft.ace )\n"     // shipped with every cab
                "\t\t\tGraphic ( ACWNDRGT.ACE )\n"
                "\t\t\tGraphic ( \"\" )\n");
    EXPECT_EQ(run.counts.errorCount, 0);
    EXPECT_THAT(run.testedShapes, ElementsAre("GP38.s", "GP38.sd", "GP38.cvf", "front.ace"));
}

TEST_F(CabViews, MissingTexturesAreCriticalAndNamedByTheirFolder) {
    testCabView("\t\t\tGraphic ( gone.ace )\n\t\t\tGraphic ( ..\\\\..\\\\Other\\\\CABVIEW\\\\a.ace )\n");
    const std::string D = upperFolder("GP");
    const std::string tail = " specified by the file GP38.cvf does not exist in the folder \r\n";
    EXPECT_EQ(report("EngCabViews.txt"),
              record("[TEXTURE FILE MISSING] ", "The texture file gone.ace\r\n" + tail + D +
                                                    "CABVIEW\r\nThe error was found on this line: "
                                                    "Graphic ( gone.ace )") +
                  record("[TEXTURE FILE MISSING] ",
                         "The texture file ..\\\\..\\\\Other\\\\CABVIEW\\\\a.ace\r\n" + tail + D +
                             "\r\nThe error was found on this line: Graphic ( "
                             "..\\\\..\\\\Other\\\\CABVIEW\\\\a.ace )"));
    EXPECT_EQ(run.counts.levels[2], 2);
    EXPECT_EQ(run.counts.categories[2], 2);  // Cabview
}

// The cab view's own comment cut takes the character in front of the word: here the ")".
TEST_F(CabViews, ACommentTakesTheCharacterBeforeItAndTheFindingRunsIntoItsHint) {
    testCabView("\t\t\tGraphic ( front.ace )Comment\n");
    EXPECT_THAT(report("EngCabViews.txt"),
                StartsWith(
              record("[SYNTAX ERROR]",
                     "The cab definition file GP38.cvf has missing parenthesis in the line "
                     "\r\n\"CabViewWindowFile\" or \"Graphic\".\r\nThe error was found on this "
                     "line: Graphic ( front.aceHINT: Edit this file and search for a line like: "
                     "Graphic ( youracefile.ace\r\nand add the missing parenthesis so it will be "
                     "like: Graphic ( youracefile.ace )\r\nAn incorrect ENTER character can also "
                     "cause this error, in this case you\r\nwon't be able to really see it.")));
}

TEST_F(CabViews, AreTestedOnlyWithTheOptionAndNotForAiEngines) {
    testCabView("\t\t\tGraphic ( gone.ace )\n");
    EXPECT_EQ(run.counts.errorCount, 1);
    run = TestRun{};
    testEngine(0);
    EXPECT_EQ(run.counts.errorCount, 0);
    run = TestRun{};
    run.cabViews = true;
    run.cabViewsEnabled = false;  // the engine filter "AI"
    testEngine(0);
    EXPECT_EQ(run.counts.errorCount, 0);
    EXPECT_THAT(run.testedShapes, ElementsAre("GP38.s", "GP38.sd"));
}

TEST_F(CabViews, AMissingCabViewOrOneThatCannotBeOpenedIsReported) {
    msts.write("TRAINS/TRAINSET/GP/GP38.eng", cabSoundEngine("GP38", "gone.cvf", "none.sms"));
    testEngine(0);
    EXPECT_EQ(report("EngCabViews.txt"),
              record("[CAB DEFINITION FILE]",
                     "The cab definition file gone.cvf specified by the file GP38.ENG\r\n is "
                     "missing from the folder " +
                         upperFolder("GP") +
                         "CABVIEW\r\nThe error was found on this line: \r\nCabView ( gone.cvf )"));
    // Called for a file that went missing since its lookup.
    const UnitNames names(state->catalogue.engines[0]);
    testCab(run, context(), names, u"gone.cvf");
    EXPECT_THAT(report("EngCabViews.txt"),
                HasSubstr("The cab definition file gone.cvf does not exist in the folder\r\n" +
                          upperFolder("GP") + "CABVIEW\r\n"));
}

class Sounds : public TesterTest {
protected:
    Sounds() {
        run.sounds = true;
        msts.writeBytes("SOUND/main.wav", "wav");
        msts.writeBytes("TRAINS/TRAINSET/GP/SOUND/own.wav", "wav");
    }
    void testSound(const std::string& lines, const std::string& sms = "GP38.sms") {
        msts.write("TRAINS/TRAINSET/GP/SOUND/" + sms, "Tr_SMS (\n" + lines + ")\n");
        testEngine(addEngine("GP", "GP38.eng", cabSoundEngine("GP38", "x.cvf", sms)));
    }
    std::string missingWav(const std::string& wav, const std::string& place,
                           const std::string& line, const std::string& sms = "GP38.sms") {
        return record("[SOUND FILE MISSING]",
                      "The sound file " + wav + " specified by the file " + sms +
                          " does not exist in the folder \r\n" + upperFolder("GP") +
                          "SOUND\r\nIf this file is aliased it should exist in " + place +
                          " .\r\nThe error was found on this line: \r\n" + line);
    }
};

TEST_F(Sounds, WavFilesAreFoundInTheUnitsOrTheMainSoundFolder) {
    testSound(fileLine("File ( \"own.wav\" -1 )") + fileLine("File ( \"main.wav\" -1 )") +
              fileLine("File ( \"own.wav\" -1 ) File ( \"main.wav\" -1 )"));
    EXPECT_EQ(run.counts.errorCount, 0);
    EXPECT_THAT(run.testedSounds,
                ElementsAre("own.wav", "main.wav", "own.wav", "main.wav", "GP38.sms"));
    // Each File line counts once, then the definition itself, the shape and its definition.
    EXPECT_EQ(run.counts.filesTested, 3 + 1 + 2);
}

TEST_F(Sounds, EachMissingFileOfALineIsReportedWithThePlaceItNames) {
    const std::string two = "Initial_Trigger ( StartLoopRelease ( 1 File ( \"own.wav\" -1 ) "
                            "File ( \"gone2.wav\" -1 ) ) )";
    const std::string one = "Initial_Trigger ( StartLoopRelease ( 1 File ( \"gone1.wav\" -1 ) ) )";
    testSound("\t\t\t\t\t" + two + "\n\t\t\t\t\t" + one + "\n");
    EXPECT_EQ(report("EngSounds.txt"), missingWav("gone2.wav", "gone2.wav", two) +
                                           missingWav("gone1.wav", " the aliased sound folder ", one));
    EXPECT_EQ(run.counts.levels[1], 2);
}

// A line without quotes is a finding, and the lines after it are still tested.
TEST_F(Sounds, SkipWithinTheFirstTenCharactersAndUnquotedNames) {
    const std::string late = "\t\t\t\t\t\t\t\tSkip ( File ( \"late.wav\" -1 ) )";
    testSound("\t\t\tSkip ( File ( \"early.wav\" -1 ) )\n" + late + "\n" +
              fileLine("File ( bare.wav -1 )") + fileLine("File ( \"after.wav\" -1 )"));
    const std::string text = report("EngSounds.txt");
    EXPECT_THAT(text, Not(HasSubstr("early.wav")));
    EXPECT_THAT(text, HasSubstr("The sound file late.wav"));
    EXPECT_THAT(text, HasSubstr("[SYNTAX ERROR]\r\nThe sound file GP38.sms belonging to the file "
                                "GP38.ENG is missing the quotes enclosing a wav file in one of "
                                "the lines.\r\nThe error was found on this line: "
                                "Initial_Trigger ( StartLoopRelease ( 1 File ( bare.wav -1 ) ) )"));
    EXPECT_THAT(text, HasSubstr("The sound file after.wav"));
    EXPECT_EQ(run.counts.errorCount, 3);
}

// An engine aliased to another's sounds has no SOUND folder: its names climb out of the one
// that isn't there, and the definition's .wav files are sought beside it.
TEST_F(Sounds, AnAliasedDefinitionFindsItsWavFilesInItsOwnFolder) {
    msts.write("TRAINS/TRAINSET/Other/SOUND/other.sms",
               "Tr_SMS (\n" + fileLine("File ( \"theirs.wav\" -1 )") + ")\n");
    msts.writeBytes("TRAINS/TRAINSET/Other/SOUND/theirs.wav", "wav");
    testEngine(addEngine(
        "Aliased", "A1.eng",
        cabSoundEngine("A1", "x.cvf", "..\\\\..\\\\Other\\\\SOUND\\\\other.sms")));
    EXPECT_EQ(run.counts.errorCount, 0);
    EXPECT_THAT(run.testedSounds, ElementsAre("theirs.wav", "..\\\\..\\\\Other\\\\SOUND\\\\other.sms"));
}

TEST_F(Sounds, ADefinitionNamedByTwoEnginesIsTestedForEach) {
    msts.write("SOUND/shared.sms", "Tr_SMS (\n" + fileLine("File ( \"gone.wav\" -1 )") + ")\n");
    testEngine(addEngine("A", "A1.eng", cabSoundEngine("A1", "x.cvf", "shared.sms")));
    testEngine(addEngine("B", "B1.eng", cabSoundEngine("B1", "x.cvf", "shared.sms")));
    EXPECT_EQ(run.counts.categories[3], 2);
    EXPECT_THAT(run.testedSounds, ElementsAre("gone.wav", "shared.sms", "gone.wav", "shared.sms"));
}

// A missing definition: its folder when the last lookup found no folder on the way, else the
// file; missing quotes are a sound finding, not a syntax one.
TEST_F(Sounds, MissingDefinitionsAndQuotes) {
    const std::size_t gp = addEngine(
        "GP", "GP38.eng",
        "Wagon ( GP38\n\tSound ( gone.sms )\n\tSound ( \"sub\\\\gone.sms\" )\n)\n");
    testEngine(gp);
    const std::string D = upperFolder("GP");
    const std::string main = msts.msts() + "/SOUND";
    EXPECT_EQ(report("EngSounds.txt"),
              record("[SYNTAX ERROR]",
                     "The engine file GP38.ENG in the folder GP" + std::string(1, kPathSeparator) +
                         "GP38.eng\r\nhas missing quotes in the line \"Sound\".\r\nThe error was "
                         "found on this line: Sound ( gone.sms )") +
                  record("[SOUND DEFINITION FILE]",
                         "The sound definition file gone.sms specified by the file GP38.ENG\r\n "
                         "is missing from the folder " +
                             D + "SOUND\r\nor from the main sound folder (" + main +
                             ")\r\nThe error was found on this line: Sound ( gone.sms )") +
                  record("[SOUND DEFINITION FILE]",
                         "The engine GP38.ENG is missing its SOUND folder where the file "
                         "sub\\\\gone.sms\r\nshould exist. The complete path is the following:\r\n" +
                             D + "\r\nThe error was found on this line: Sound ( \"sub\\\\gone.sms\" )"));
    EXPECT_EQ(run.counts.categories, (std::array<long long, 6>{0, 0, 0, 3, 0, 0}));
}

TEST_F(Sounds, NothingIsLookedUpWithoutTheOption) {
    run.sounds = false;
    testSound(fileLine("File ( \"gone.wav\" -1 )"));
    EXPECT_EQ(run.counts.errorCount, 0);
    EXPECT_THAT(run.testedSounds, IsEmpty());
}

}  // namespace
}  // namespace rakeyard::test
