#include <gmock/gmock.h>

#include <fstream>

#include "tester_fixture.h"
#include "core/platform/paths.h"

namespace rakeyard::test {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;

constexpr char kSep = kPathSeparator;

class EngineLines : public TesterTest {};

TEST_F(EngineLines, ASoundEngineGivesNothingAndLogsItsShapeAndDefinition) {
    testEngine(addEngine("GP", "GP38.eng", soundEngine("GP38")));
    EXPECT_EQ(run.counts.errorCount, 0);
    EXPECT_EQ(run.counts.filesTested, 2);
    EXPECT_THAT(run.testedShapes, ElementsAre("GP38.s", "GP38.sd"));
    EXPECT_EQ(run.filesTestedText, "2 files tested");
    EXPECT_FALSE(reportExists("EngSyntax.txt"));
    EXPECT_FALSE(reportExists("EngShapes.txt"));
}

TEST_F(EngineLines, HeadNameFindingsAreWrittenByteForByte) {
    const std::size_t gp38 = addEngine(
        "GP", "GP38.eng",
        "Wagon ( GP38 BNSF\n\tWagonShape ( GP38.s )\n)\nEngine ( GP38x\n\tName ( \"A\" )\n)\n");
    testEngine(gp38);
    const std::string D = upperFolder("GP");
    const std::string P = std::string("GP") + kSep + "GP38.eng";
    EXPECT_EQ(report("EngSyntax.txt"),
              record("[SYNTAX ERROR]",
                     "The engine file with the name GP38.ENG in the folder \r\n" + P +
                         "contains a name with a space and no quotes in the line \"Wagon\".\r\n"
                         "The error was found on this line: Wagon ( GP38 BNSF\r\n"
                         "HINT: Edit this file and search for a line like: Wagon ( GP38 BNSF ) "
                         "and change it\r\nto: Wagon ( \"GP38 BNSF\" )"));
    const std::string tail =
        "Edit this file and make this line the same as its file name without the .eng "
        "extension.\r\nA difference in capitalization or a wrong linefeed character can also "
        "generate this error.\r\nThe error was found on this line: ";
    EXPECT_EQ(report("EngOthers.txt"),
              record("[NAME ERROR]", "The engine file GP38.eng in the folder \r\n" + D +
                                         "\r\ndoes not match with the name found on the line "
                                         "\"Wagon\".\r\n" +
                                         tail + "Wagon ( GP38 BNSF") +
                  record("[NAME ERROR]", "The engine file GP38.eng in the folder \r\n" + D +
                                             "\r\ndoes not match with the name found on the "
                                             "line \"Engine\"." +
                                             tail + "Engine ( GP38x"));
    EXPECT_EQ(run.counts.errorCount, 3);
    EXPECT_EQ(run.counts.levels, (std::array<long long, 3>{0, 1, 2}));
    EXPECT_EQ(run.counts.categories, (std::array<long long, 6>{1, 0, 0, 0, 0, 2}));
}

// A line that ends in a lone LF keeps it: the trim takes blanks only, so the name differs.
TEST_F(EngineLines, ALineFeedLeftInTheHeadLineIsANameError) {
    const std::size_t gp38 = addEngine("GP", "gp38.eng", "");
    msts.writeBytes("TRAINS/TRAINSET/GP/gp38.eng",
                    "\xFF\xFE" + utf16Bytes("SIMISA@@@@@@@@@@JINX0D0t______\r\n\r\n"
                                            "Wagon ( gp38\n\r\n\tWagonShape ( gp38.s )\r\n)\r\n"
                                            "Engine ( gp38\r\n)\r\n"));
    testEngine(gp38);
    EXPECT_THAT(report("EngOthers.txt"), HasSubstr("the line \"Wagon\""));
    EXPECT_EQ(run.counts.errorCount, 1);
}

TEST_F(EngineLines, MissingShapesNameTheFolderOrTheUnitAsEachFindingDoes) {
    const std::size_t gp38 =
        addEngine("GP", "GP38.eng",
                  "Wagon ( GP38\n\tWagonShape ( \"GP38.s\" )\n\tFreightAnim ( \"coal.s\" 0.0 6.1 0.0 )\n"
                  ")\nEngine ( GP38\n)\n",
                  false);
    msts.writeBytes("TRAINS/TRAINSET/GP/GP38.s", "");  // no bytes: missing
    testEngine(gp38);
    const std::string D = upperFolder("GP");
    const std::string P = std::string("GP") + kSep + "GP38.eng";
    EXPECT_EQ(report("EngShapes.txt"),
              record("[Engine SHAPE FILE]",
                     "The shape file GP38.s specified by the file GP38.ENG\r\nis missing from the "
                     "folder \r\n" +
                         D + "\r\nThe error was found on this line: WagonShape ( \"GP38.s\" )") +
                  record("[SHAPE DEFINITION FILE MISSING]",
                         "The shape definition file GP38.sd belonging to the file "
                         "GP38.ENG\r\nis missing from the folder \r\n" +
                             D) +
                  record("[ANIMATION SHAPE FILE]",
                         "The animation shape file coal.s specified by the file GP38.ENG\r\nis "
                         "missing from the folder \r\n" +
                             P + "\r\nThe error was found on this line: FreightAnim ( "
                                 "\"coal.s\" 0.0 6.1 0.0 )"));
    EXPECT_EQ(run.counts.categories[4], 3) << "an animation shape counts as a shape";
    EXPECT_EQ(run.counts.levels[0], 3);
    EXPECT_THAT(run.testedShapes, ElementsAre("GP38.s", "coal.s"));
}

TEST_F(EngineLines, AShapeDefinitionNamesItsShapeOnItsFirstShapeLine) {
    const std::size_t gp38 = addEngine("GP", "GP38.eng", soundEngine("GP38"));
    msts.write("TRAINS/TRAINSET/GP/GP38.sd", "shape ( \"Other.s\"\n\tshape ( GP38.s )\n");
    testEngine(gp38);
    EXPECT_EQ(report("EngShapes.txt"),
              record("[SHAPE FILE MISSING]",
                     "The shape definition file GP38.sd located in the folder \r\n" +
                         upperFolder("GP") +
                         "\r\nis pointing to a file named Other.s that doesn't exist in the same "
                         "folder.\r\nThe error was found on this line: shape ( \"Other.s\""));
    EXPECT_EQ(run.counts.filesTested, 2);
}

TEST_F(EngineLines, MassAndNameLinesByTheirQuotesAndParentheses) {
    const std::size_t gp38 = addEngine(
        "GP", "GP38.eng",
        "Wagon ( GP38\n\tWagonShape ( GP38.s )\n\tMass ( \"75.5t )\n\tMass(75t)\n"
        "\tMass ( 75.5t\n)\nEngine ( GP38\n\tName( \"Loco\" )\n\tName ( \"Loco )\n)\n");
    testEngine(gp38);
    const std::string syntax = report("EngSyntax.txt");
    EXPECT_THAT(syntax, HasSubstr("The \"Mass\" line specified by the file GP38.ENG\r\nin the "
                                  "folder " +
                                  upperFolder("GP") + " has the wrong syntax!"));
    EXPECT_THAT(syntax, HasSubstr("has missing parenthesis in the line \"Mass\".\r\nThe error "
                                  "was found on this line: Mass ( 75.5t\r\n"));
    EXPECT_THAT(syntax, HasSubstr("has a missing space in the line \"Name\"."));
    EXPECT_THAT(syntax, HasSubstr("The \"Name\" line specified by the file GP38.ENG"));
    EXPECT_THAT(syntax, Not(HasSubstr("Mass(75t)")));
    EXPECT_EQ(run.counts.errorCount, 4);
    // The two wrong-syntax findings are minor, the missing parenthesis and space serious.
    EXPECT_EQ(run.counts.levels, (std::array<long long, 3>{2, 2, 0}));
    EXPECT_EQ(run.counts.categories[0], 4);
}

TEST_F(EngineLines, LinesPassedOverOrCutBeforeTheChecks) {
    const std::size_t gp38 = addEngine(
        "GP", "GP38.eng",
        "Wagon ( GP38\n\tWagonShape ( GP38.s )\n\tBrake_Engine ( 1 )\n"
        "\tcomment ( Name( x )\n"                    // a comment line: passed over
        "\tName ( \"A\" ) Comment ( Name( x )\n"     // cut before the word
        "\t#_ Name( x )\n"                           // a mark line: passed over
        "\tName ( \"Loco\" #_ old\n"                 // cut with the blank before the mark
        ")\nEngine ( GP38\n\tDescription ( \"x\" )\n\tName( \"after\" )\n)\n");
    testEngine(gp38);
    // Only the cut line is faulty: it has no ")", so its value runs from the tenth character
    // to all but the last, the closing quote, now that the blank went with the mark. Had the
    // blank stayed, the value would end in that quote and be a wrong-syntax finding too.
    EXPECT_EQ(run.counts.errorCount, 1);
    const std::string syntax = report("EngSyntax.txt");
    EXPECT_THAT(syntax, HasSubstr("has missing parenthesis in the line \"Name\".\r\nThe error was "
                                  "found on this line: Name ( \"Loco\"\r\n"));
    EXPECT_THAT(syntax, Not(HasSubstr("The \"Name\" line specified by the file")));
    EXPECT_THAT(syntax, Not(HasSubstr("after")));
    EXPECT_FALSE(reportExists("EngOthers.txt")) << "Brake_Engine is no head line";
}

TEST_F(EngineLines, AnEngineGoneSinceStartIsMissingAndNothingElse) {
    const std::size_t gp38 = addEngine("GP", "GP38.eng", soundEngine("GP38"));
    std::filesystem::remove(msts.trainset() + "/GP/GP38.eng");
    testEngine(gp38);
    EXPECT_EQ(report("EngMissing.txt"),
              record("[ENGINE FILE MISSING]",
                     "The engine file with the name GP38.ENG is missing from the folder \r\nGP" +
                         std::string(1, kSep) + "GP38.eng"));
    EXPECT_EQ(run.counts.categories[1], 1);
    EXPECT_EQ(run.filesTestedText, "");
}

// Names are joined as text and kept inside the MSTS folder: whatever a line names, nothing
// outside it is looked at, and a folder is no file.
TEST_F(EngineLines, NamesLeavingTheInstallationOrNamingNoFileAreMissing) {
    std::ofstream(msts.root() + "/outside.s") << "shape";
    std::filesystem::create_directories(msts.trainset() + "/GP/Folder.s");
    const std::size_t gp38 = addEngine(
        "GP", "GP38.eng",
        "Wagon ( GP38\n\tWagonShape ( ..\\..\\..\\..\\outside.s )\n\tWagonShape ( /etc/passwd )\n"
        "\tWagonShape ( Folder.s )\n\tWagonShape ( C:\\x.s )\n\tWagonShape ( *.s )\n)\n",
        true);
    testEngine(gp38);
    EXPECT_EQ(std::count(run.testedShapes.begin(), run.testedShapes.end(), "GP38.s"), 0);
    // Each line: the shape missing and its definition missing.
    EXPECT_EQ(run.counts.errorCount, 10);
    EXPECT_EQ(joinInside(msts.msts(), msts.trainset() + "/GP", "..\\..\\..\\..\\outside.s"),
              std::nullopt);
    EXPECT_EQ(joinInside(msts.msts(), msts.trainset() + "/GP", "../../../x.s"),
              joinPath(msts.msts(), "x.s"));
    EXPECT_EQ(joinInside(msts.msts(), msts.trainset() + "/GP", "..\\GP\\\\GP38.s"),
              joinPath(msts.trainset(), "GP/GP38.s"));
}

}  // namespace
}  // namespace rakeyard::test
