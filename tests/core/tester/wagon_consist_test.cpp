// The wagon test, with its differences from the engine's, and the consist test.
#include <gmock/gmock.h>

#include "tester_fixture.h"

namespace rakeyard::test {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

const std::string kSep(1, kPathSeparator);

class WagonLines : public TesterTest {
protected:
    void testLines(const std::string& lines, const std::string& file = "freight1.wag") {
        testWagon(addWagon("W", file, lines));
    }
};

// A ")" stays in the head name, so a closed line holds a blank; the name is compared in any
// case, and "MASS" needs no parenthesis after it.
TEST_F(WagonLines, HeadNameAndMass) {
    testLines("Wagon ( FREIGHT1\n\tWagonShape ( freight1.s )\n\tMass ( 10t )\n)\n");
    EXPECT_EQ(run.counts.errorCount, 0);
    run = TestRun{};
    testLines("Wagon ( freight1 )\n\tORTSMass ( \"10t )\n)\n", "freight1.wag");
    const std::string P = "W" + kSep + "freight1.wag";
    EXPECT_EQ(report("WagSyntax.txt"),
              record("[SYNTAX ERROR]",
                     "The wagon file with the name FREIGHT1.WAG in the folder " + P +
                         "\r\ncontains a name with a space and no quotes in the line "
                         "\"Wagon\".\r\nThe error was found on this line: Wagon ( freight1 )") +
                  record("[SYNTAX ERROR]", "The \"Mass\" line specified by the file "
                                           "FREIGHT1.WAG\r\n in the folder " +
                                               upperFolder("W") +
                                               " has the wrong syntax!\r\nThe error was found "
                                               "on this line: ORTSMass ( \"10t )"));
    EXPECT_THAT(report("WagOthers.txt"), HasSubstr("The wagon file FREIGHT1.WAG in the folder " +
                                                   P + "\r\ndoes not match with the name"));
    EXPECT_EQ(run.counts.levels, (std::array<long long, 3>{1, 1, 1}));
}

// Lines with "NAME " are passed over: a display name, "WagonName ( x )"; a description does not
// end the reading.
TEST_F(WagonLines, NameLinesArePassedOverAndTheWholeFileIsRead) {
    testLines("Wagon ( freight1\n\tWagonName ( x y )\n\tName ( \"broken )\n"
              "\tDescription ( \"A wagon\" )\n\tMass ( 10t\n)\n");
    EXPECT_EQ(run.counts.errorCount, 1);
    EXPECT_THAT(report("WagSyntax.txt"),
                HasSubstr("has missing parenthesis in the line \"Mass\".\r\nThe error was "
                          "found on this line: Mass ( 10t\r\n"));
}

// A wagon's missing sound definition is Serious and names its folder by P with "SOUND" behind.
TEST_F(WagonLines, AMissingSoundDefinitionIsSerious) {
    run.sounds = true;
    testLines("Wagon ( freight1\n\tSound ( \"gone.sms\" )\n)\n");
    EXPECT_EQ(report("WagSounds.txt"),
              record("[SOUND DEFINITION FILE]",
                     "The sound definition file gone.sms specified by the file FREIGHT1.WAG\r\n "
                     "is missing from the folder W" +
                         kSep + "freight1.wagSOUND\r\nor from the main sound folder (" +
                         msts.msts() +
                         "/SOUND)\r\nThe error was found on this line: Sound ( \"gone.sms\" )"));
    EXPECT_EQ(run.counts.levels[1], 1);
    EXPECT_EQ(run.counts.categories[3], 1);
}

class ConsistLines : public TesterTest {
protected:
    ConsistLines() {
        msts.write("TRAINS/TRAINSET/GP38/GP38.eng", "Wagon ( GP38\n)\n");
        msts.write("TRAINS/TRAINSET/GP38 BNSF/GP38 BNSF.eng", "Wagon ( GP38 BNSF\n)\n");
        msts.write("TRAINS/TRAINSET/Box Cars/box.wag", "Wagon ( box\n)\n");
    }
    void testLines(const std::string& units, const std::string& name = "c.con") {
        msts.write("TRAINS/CONSISTS/" + name, "\nTrain (\n\tTrainCfg ( c\n" + units + "\t)\n)");
        testConsist(name);
    }
    std::string failedPath(const std::string& name) const { return msts.consists() + kSep + name; }
};

TEST_F(ConsistLines, NamesAndFoldersInEveryQuoteForm) {
    testLines("\t\tEngineData ( GP38 GP38 )\n\t\tEngineData ( \"GP38 BNSF\" \"GP38 BNSF\" )\n"
              "\t\tEngineData ( \"GP38\" GP38 )\n\t\tWagonData ( box \"Box Cars\" )\n"
              "\t\tWagonData ( \"box\" \"Box Cars\" ) comment ( x )\n");
    EXPECT_EQ(run.counts.errorCount, 0);
    EXPECT_EQ(run.counts.filesTested, 5);
    EXPECT_THAT(run.testedShapes, ElementsAre("c.con"));
    EXPECT_THAT(run.testedSounds, IsEmpty());
}

TEST_F(ConsistLines, MissingUnitsListTheConsistOnceAndEachFailure) {
    testLines("\t\tEngineData ( GP40 GP38 )\n\t\tWagonData ( box Flats )\n"
              "\t\tWagonData ( bare )\n\t\tWagonData ( box ..\\\\..\\\\..\\\\Cars )\n");
    const std::string T = msts.trainset();
    EXPECT_EQ(report("ConMissing.txt"),
              record("[ENGINE FILE MISSING]", "The engine file GP40.eng does not exist in the "
                                              "folder\r\n" +
                                                  T + kSep + "GP38\r\n(CONSIST c.con)") +
                  record("[WAGON FILE MISSING]", "The wagon file box.wag does not exist in the "
                                                 "folder\r\n" +
                                                     T + kSep + "Flats\r\n(CONSIST c.con)") +
                  record("[WAGON FILE MISSING]", "The wagon file bare.wag does not exist in the "
                                                 "folder\r\n" +
                                                     T + kSep + "\r\n(CONSIST c.con)") +
                  record("[WAGON FILE MISSING]",
                         "The wagon file box.wag does not exist in the folder\r\n" + T + kSep +
                             "..\\\\..\\\\..\\\\Cars\r\n(CONSIST c.con)"));
    EXPECT_EQ(run.failed, std::vector<std::string>(4, failedPath("c.con")));
    EXPECT_THAT(run.testedSounds, ElementsAre("c.con"));
}

// A unit line without its ")" keeps its whole text, whose blanks then call for quotes: the
// reading of the file ends there.
TEST_F(ConsistLines, MissingParenthesisThenMissingQuotesEndTheFile) {
    testLines("\t\tEngineData ( GP38 GP38\n\t\tWagonData ( gone Flats )\n");
    const std::string C = "The consist file with the name c.con\r\n";
    EXPECT_EQ(report("ConSyntax.txt"),
              record("[SYNTAX ERROR]",
                     C + "has missing parenthesis in the line \"EngineData\".\r\nThe error was "
                         "found on this line: \t\tEngineData ( GP38 GP38\r\nHINT: Edit this file "
                         "and search for a line like: EngineData ( yourloco yourlocofolder\r\n"
                         "and add the missing parenthesis so it will be like: EngineData ( "
                         "yourloco yourlocofolder )\r\nAn incorrect ENTER character can also "
                         "cause this error, in this case you\r\nwon't be able to really see it.") +
                  record("[SYNTAX ERROR]",
                         C + "has missing quotes in the line \"EngineData\".\r\nHINT: Edit this "
                             "file and search for a line like: EngineData ( your engine your "
                             "engine folder\r\nand add the missing quotes so it will be like: "
                             "EngineData ( \"your engine\" \"your engine folder\" )\r\nNames "
                             "containing spaces must always be between quotes."));
    EXPECT_FALSE(reportExists("ConMissing.txt"));
    EXPECT_THAT(run.testedShapes, ElementsAre("c.con"));
}

TEST_F(ConsistLines, AWagonLineWithoutItsParenthesisShowsNoLine) {
    testLines("\t\tWagonData box Flats )\n");
    EXPECT_THAT(report("ConSyntax.txt"),
                HasSubstr("has missing parenthesis in the line \"WagonData\".HINT: Edit this "
                          "file and search for a line like: WagonData ( yourwagon "
                          "yourwagonfolder\r\n"));
}

TEST_F(ConsistLines, ThreeUnquotedWordsHideTheUnitsBelow) {
    testLines("\t\tWagonData ( Box Car Folder )\n\t\tWagonData ( gone Flats )\n");
    EXPECT_THAT(report("ConSyntax.txt"), HasSubstr("in the line \"WagonData\".\r\n"));
    EXPECT_FALSE(reportExists("ConMissing.txt"));
    EXPECT_EQ(run.counts.filesTested, 0);
}

// A file not in Unicode is a finding, and its units are still looked up; a consist that isn't
// there lists its path only.
TEST_F(ConsistLines, EightBitAndMissingFiles) {
    msts.writeBytes("TRAINS/CONSISTS/old.con",
                    "SIMISA@@@@@@@@@@JINX0D0t______\r\n\r\nTrain (\r\n\t\tEngineData ( GP40 GP38 "
                    ")\r\n)");
    testConsist("old.con");
    EXPECT_THAT(report("ConSyntax.txt"),
                HasSubstr("The consist file with the name old.conisn't in Unicode format.\r\n"
                          "HINT: Edit this file in a text editor and save it as a Unicode file,"
                          "\r\noverwriting the old file."));
    EXPECT_THAT(report("ConMissing.txt"), HasSubstr("GP40.eng"));
    run = TestRun{};
    testConsist("gone.con");
    EXPECT_EQ(run.failed, std::vector<std::string>{failedPath("gone.con")});
    EXPECT_THAT(run.testedSounds, IsEmpty());
    EXPECT_THAT(run.testedShapes, IsEmpty());
}

}  // namespace
}  // namespace rakeyard::test
