// The loose consist editor on activities written for each case, on the sample's way of writing
// them and on published content: what is listed and shown, and what a replace does to the .act.
#include <gmock/gmock.h>

#include <filesystem>
#include <memory>

#include "core/app/app_state.h"
#include "core/msts/loose_replace.h"
#include "core/platform/paths.h"
#include "core/platform/text_utf.h"
#include "support/fakes.h"
#include "support/msts_tree.h"

namespace rakeyard::test {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

// A loose consist of the units given ("E Loco Locos" for an engine line, "W name folder" for a
// wagon line, the rest of the line as it is to stand between the parentheses).
std::string looseConsist(std::initializer_list<std::string> units, const std::string& above = "") {
    std::string text = "\t\tActivityObject (\n" + above + "\t\t\tTrain_Config (\n" +
                       "\t\t\t\tTrainCfg ( \"\"\n\t\t\t\t\tName ( \"Loose consist.\" )\n";
    int uid = 0;
    for (const std::string& unit : units) {
        const bool engine = unit[0] == 'E';
        text += std::string("\t\t\t\t\t") + (engine ? "Engine (\n" : "Wagon (\n");
        text += "\t\t\t\t\t\t" + std::string(engine ? "EngineData ( " : "WagonData ( ") +
                unit.substr(2) + " )\n";
        text += "\t\t\t\t\t\tUiD ( " + std::to_string(uid++) + " )\n\t\t\t\t\t)\n";
    }
    return text + "\t\t\t\t)\n\t\t\t)\n\t\t\tDirection ( 1 )\n\t\t\tID ( 32768 )\n\t\t)\n";
}

std::string activityOf(const std::string& consists, const std::string& name = "\"Yard\"") {
    return "Tr_Activity (\n\tTr_Activity_Header (\n\t\tRouteID ( R )\n\t\tName ( " + name +
           " )\n\t)\n\tActivityObjects (\n" + consists + "\t)\n)\n";
}

// The lines of UTF-16 LE bytes (mark included in line 1) that differ, by number from 1.
std::vector<std::size_t> differingLines(const std::string& a, const std::string& b) {
    const auto split = [](const std::string& bytes) {
        std::vector<std::string> lines(1);
        for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
            lines.back() += bytes.substr(i, 2);
            if (bytes.compare(i, 2, std::string("\n\0", 2)) == 0) lines.emplace_back();
        }
        return lines;
    };
    const std::vector<std::string> x = split(a), y = split(b);
    std::vector<std::size_t> differ;
    for (std::size_t i = 0; i < std::max(x.size(), y.size()); ++i)
        if (i >= x.size() || i >= y.size() || x[i] != y[i]) differ.push_back(i + 1);
    return differ;
}

// Each consist's block and unit lines, as [begin, end) texts.
std::vector<std::vector<std::u16string>> unitTexts(std::u16string_view text) {
    std::vector<std::vector<std::u16string>> consists;
    for (const LooseBlock& block : looseBlocks(text)) {
        consists.emplace_back();
        for (const LooseUnitLine& unit : block.units)
            consists.back().emplace_back(text.substr(unit.begin, unit.end - unit.begin));
    }
    return consists;
}

TEST(LooseBlocks, ConsistsEndAtTheirDirectionOrAtTheNextConsist) {
    // No "Direction (" behind the first: it ends where the second's line begins.
    const std::u16string text =
        u"\uFEFFa\r\n\tTrain_Config (\r\n\tWagonData ( A x )\r\n"
        u"\tTrain_Config (\r\n\tEngineData ( B )\r\n\tDirection ( 1 )\r\n"
        u"\tWagonData ( C x )\r\n";
    EXPECT_THAT(unitTexts(text), ElementsAre(ElementsAre(u"\tWagonData ( A x )"),
                                             ElementsAre(u"\tEngineData ( B )")));
    const std::vector<LooseBlock> blocks = looseBlocks(text);
    EXPECT_EQ(blocks[0].end, blocks[1].begin);
    EXPECT_TRUE(blocks[1].units[0].engine);
}

TEST(LooseBlocks, ALoneLineFeedStaysInsideItsLine) {
    const std::u16string text = u"Train_Config (\nWagonData ( A x )\nWagonData ( B x )\rX";
    const auto units = unitTexts(text);
    ASSERT_EQ(units.size(), 1u);
    EXPECT_THAT(units[0], ElementsAre(u"Train_Config (\nWagonData ( A x )\nWagonData ( B x )"));
}

TEST(LooseBlocks, NewUnitLinesKeepTheHeadAndQuoteWhatHoldsABlank) {
    UnitRecord unit;
    unit.fileName = "Open 12.wag";
    unit.folderName = "Stock";
    EXPECT_EQ(newUnitLine(u"\t\tWagonData ( \"Old one\" \"A B\" )", unit),
              u"\t\tWagonData ( \"Open 12\" Stock )");
    EXPECT_EQ(wholeMetres(12.5f), 13);
    EXPECT_EQ(wholeMetres(12.4f), 12);
    EXPECT_EQ(wholeMetres(-2.5f), -3);
}

class LooseEditing : public ::testing::Test {
protected:
    LooseEditing() {
        state->paths.mstsPath = msts.msts();
        state->paths.consistsPath = msts.consists();
        state->paths.trainsetPath = msts.trainset();
        state->paths.programFolder = msts.home();
        std::filesystem::create_directories(msts.home());
        msts.write("ROUTES/R/R.trk", "Tr_RouteFile (\n\tName ( \"R\" )\n)\n");
        unit("Loco.eng", "Locos", 20.4f, "A loco");
        unit("W124.wag", "Stock", 12.4f, "Wagon of 12.4 m");
        unit("W126.wag", "Stock", 12.6f, "Wagon of 12.6 m");
        unit("W127.wag", "Stock", 12.7f, "Wagon of 12.7 m");
        unit("W134.wag", "Box Vans", 13.4f, "Wagon of 13.4 m");
        unit("Shunter.eng", "Locos", 9.0f, "A shunter");
    }
    void unit(const std::string& file, const std::string& folder, float length,
              const std::string& name) {
        UnitCatalogue& catalogue = state->catalogue;
        const bool engine = file.ends_with(".eng");
        UnitRecord& record = engine ? catalogue.engines[catalogue.engineCount++]
                                    : catalogue.wagons[catalogue.wagonCount++];
        record.fileName = file;
        record.folderName = folder;
        record.folderPath = joinPath(msts.trainset(), folder);
        record.length = length;
        record.displayName = name;
    }
    std::string actPath(const std::string& file = "A.act") const {
        return msts.msts() + "/ROUTES/R/ACTIVITIES/" + file;
    }
    std::string act(const std::string& text, const std::string& file = "A.act") {
        return msts.write("ROUTES/R/ACTIVITIES/" + file, text);
    }
    // The route chosen and the activity of that file opened.
    bool open(const std::string& file = "A.act") {
        readRoutes(context, editor);
        SearchActsForLoose(context, editor, "R");
        for (const std::string& line : editor.activityLines)
            if (line.starts_with(file + " -->")) return openLooseActivity(context, editor, line);
        return false;
    }
    std::size_t node(const std::string& key) const {
        for (std::size_t i = 0; i < editor.nodes.size(); ++i)
            if (editor.nodes[i].key == key) return i;
        ADD_FAILURE() << "no node " << key;
        return 0;
    }
    bool replace(const std::string& key, const std::string& file) {
        selectLooseNode(context, editor, node(key));
        return replaceLooseUnit(context, editor, file,
                                file.ends_with(".eng") ? UnitClass::Engine : UnitClass::Wagon);
    }
    std::string bytes(const std::string& file = "A.act") const {
        return readWholeFile(actPath(file));
    }
    std::vector<std::string> unitLines(const std::string& file = "A.act") const {
        std::vector<std::string> lines;
        const std::string text = toUtf8(decodeActivity(bytes(file)).text);
        for (std::size_t at = 0, end; at < text.size(); at = end + 1) {
            end = text.find('\n', at);
            if (end == std::string::npos) end = text.size();
            const std::string line = text.substr(at, end - at);
            if (line.find("Data (") != std::string::npos)
                lines.push_back(trimBlanks(line.substr(line.find_first_not_of('\t'))));
        }
        for (std::string& line : lines)
            if (!line.empty() && line.back() == '\r') line.pop_back();
        return lines;
    }

    MstsTree msts;
    FakeServices fake;
    std::unique_ptr<AppState> state = std::make_unique<AppState>();
    LooseEditor editor;
    LooseContext context{state->paths, state->routes, state->catalogue, state->looseUnits,
                         fake.services};
};

TEST_F(LooseEditing, ListsOnlyActivitiesWithLooseConsistsAndNeverTheirBackups) {
    act(activityOf(looseConsist({"W W124 Stock"})), "A.act");
    act(activityOf(""), "NoLoose.act");
    act(activityOf(looseConsist({"W W124 Stock"}), "Odd \"quoted\""), "B.ACT");
    act(activityOf(looseConsist({"W W124 Stock"})), "A.act.bak");
    act(activityOf(looseConsist({"W W124 Stock"})), "A.was_act");
    readRoutes(context, editor);
    SearchActsForLoose(context, editor, "R");
    EXPECT_THAT(editor.activityLines,
                ElementsAre("A.act --> \"Yard\"", "B.ACT --> Odd \"quoted\""));
}

TEST_F(LooseEditing, OpeningBuildsTreeRowsAndWorkFiles) {
    act(activityOf(looseConsist({"E Loco Locos", "W W124 Stock", "W Gone Nowhere"}) +
                   looseConsist({"E Shunter Locos"})));
    ASSERT_TRUE(open());
    std::vector<std::string> keys, texts;
    for (const LooseNode& n : editor.nodes) {
        keys.push_back(n.key);
        texts.push_back(n.text);
    }
    EXPECT_THAT(keys, ElementsAre("Activity", "A1", "E1_1", "C1_2", "C1_3", "A2", "E2_1"));
    EXPECT_THAT(texts, ElementsAre("A.act --> \"Yard\"", "LOOSE CONSIST 1", "Loco.eng", "W124.wag",
                                   "Gone.wag", "LOOSE CONSIST 2", "Shunter.eng"));
    EXPECT_EQ(editor.nodes[node("C1_3")].image, LooseImage::MissingWagon);
    EXPECT_EQ(editor.nodes[node("C1_2")].image, LooseImage::Wagon);
    EXPECT_EQ(editor.nowEditing, "Now editing:    --> \"Yard\"");
    ASSERT_EQ(state->looseUnits.count, 4u);
    const LooseUnitEntry& missing = state->looseUnits.rows[2];
    EXPECT_EQ(missing.groupName, "LOOSE CONSIST 1");
    EXPECT_EQ(missing.position, 3);
    EXPECT_EQ(missing.folderPath, " ");
    EXPECT_EQ(missing.pictureFile, " ");
    EXPECT_EQ(state->looseUnits.rows[1].pictureFile, "W124.jpg");
    EXPECT_EQ(msts.read("home/A.act"), bytes());
    EXPECT_THAT(msts.read("home/LOOSE CONSIST 2.old.lse"),
                HasSubstr("EngineData ( Shunter Locos )"));

    selectLooseNode(context, editor, node("C1_2"));
    EXPECT_EQ(editor.lengthText, "32.8");
    EXPECT_EQ(editor.feetText, "107.61");
    EXPECT_EQ(editor.unitToReplace, "W124.wag");
    EXPECT_EQ(editor.statusText, "Wagon of 12.4 m");
    EXPECT_EQ(editor.borderedBox, 2);
    EXPECT_EQ(editor.pictures[2].shows, LoosePicture::Shows::FirstImage);
}

TEST_F(LooseEditing, LengthsCompareInWholeMetres) {
    act(activityOf(looseConsist({"W W127 Stock", "W W124 Stock"})));
    ASSERT_TRUE(open());
    selectLooseNode(context, editor, node("C1_1"));
    ASSERT_EQ(editor.lengthText, "25.1");
    // 12.7 and 13.4 are both 13 m: no warning and the length unchanged.
    ASSERT_TRUE(replace("C1_1", "W134.wag"));
    EXPECT_FALSE(editor.lengthExceeded);
    EXPECT_EQ(editor.lengthText, "25.1");
    // 12.4 is 12 m, 12.6 is 13 m: the warning and exactly one metre more than the 13.4 + 12.4
    // the rows now hold.
    ASSERT_TRUE(replace("C1_2", "W126.wag"));
    EXPECT_TRUE(editor.lengthExceeded);
    EXPECT_EQ(editor.lengthText, "26.8");
}

TEST_F(LooseEditing, TheKthUnitLineIsReplacedWhateverTheKindsBeforeIt) {
    act(activityOf(looseConsist({"E Loco Locos", "W W124 Stock", "W W124 Stock"})));
    ASSERT_TRUE(open());
    const std::string before = bytes();
    ASSERT_TRUE(replace("C1_2", "W134.wag"));
    EXPECT_THAT(unitLines(),
                ElementsAre("EngineData ( Loco Locos )", "WagonData ( W134 \"Box Vans\" )",
                            "WagonData ( W124 Stock )"));
    EXPECT_EQ(differingLines(before, bytes()).size(), 1u);
    EXPECT_EQ(readWholeFile(actPath() + ".bak"), before);
    EXPECT_EQ(editor.nodes[node("C1_2")].text, "W134.wag");
    EXPECT_EQ(state->looseUnits.rows[1].displayName, "Wagon of 13.4 m");
    EXPECT_THAT(msts.read("home/LOOSE CONSIST 1.old.lse"), HasSubstr("W134 \"Box Vans\""));
    EXPECT_FALSE(msts.exists("home/LOOSE CONSIST 1.lse"));
}

TEST_F(LooseEditing, QuotesFollowTheNewUnitNotTheOldLine) {
    act(activityOf(looseConsist({"W \"W 134\" \"Box Vans\"", "W W124 Stock"})));
    unit("W 134.wag", "Box Vans", 13.4f, "Spaced");
    ASSERT_TRUE(open());
    ASSERT_TRUE(replace("C1_1", "W127.wag"));
    ASSERT_TRUE(replace("C1_2", "W 134.wag"));
    EXPECT_THAT(unitLines(),
                ElementsAre("WagonData ( W127 Stock )", "WagonData ( \"W 134\" \"Box Vans\" )"));
}

TEST_F(LooseEditing, TheBackupHoldsTheStateBeforeTheLastReplaceAndCancelTheOriginal) {
    act(activityOf(looseConsist({"W W124 Stock", "W W124 Stock"})));
    ASSERT_TRUE(open());
    const std::string original = bytes();
    ASSERT_TRUE(replace("C1_1", "W126.wag"));
    const std::string afterFirst = bytes();
    ASSERT_TRUE(replace("C1_2", "W127.wag"));
    EXPECT_EQ(readWholeFile(actPath() + ".bak"), afterFirst);
    EXPECT_NE(bytes(), afterFirst);

    // A stale copy of another activity in the program's folder is not what Cancel takes.
    msts.writeBytes("../home/AAA.act", "stale");
    ASSERT_TRUE(restoreOpenedActivity(context, editor));
    EXPECT_EQ(bytes(), original);
    EXPECT_EQ(readWholeFile(actPath() + ".bak"), afterFirst);
    EXPECT_EQ(editor.nodes[node("C1_1")].text, "W124.wag");
    EXPECT_EQ(editor.selected, 0u);
    EXPECT_EQ(editor.lengthText, "24.8");
}

TEST_F(LooseEditing, TheLineAboveTheConsistIsKeptByteForByte) {
    // "ActivityObject (" right above, no ")" between it and "Train_Config (".
    act(activityOf(looseConsist({"W W124 Stock"}, "") + looseConsist({"W W124 Stock"})));
    ASSERT_TRUE(open());
    const std::string before = bytes();
    ASSERT_TRUE(replace("C2_1", "W127.wag"));
    EXPECT_EQ(differingLines(before, bytes()).size(), 1u);
    EXPECT_THAT(unitLines(), ElementsAre("WagonData ( W124 Stock )", "WagonData ( W127 Stock )"));
}

TEST_F(LooseEditing, OldLengthStaysFromTheLastReplaceForAUnitNotInstalled) {
    act(activityOf(looseConsist({"W W127 Stock", "W Gone Nowhere"})));
    ASSERT_TRUE(open());
    selectLooseNode(context, editor, node("C1_1"));
    ASSERT_TRUE(replace("C1_1", "W124.wag"));
    EXPECT_EQ(editor.oldLength, 13);
    EXPECT_EQ(editor.newLength, 12);
    ASSERT_TRUE(replace("C1_2", "W126.wag"));
    EXPECT_EQ(editor.oldLength, 13);  // Gone.wag has no length: the 13 of W127 stays
    EXPECT_EQ(editor.newLength, 13);
    EXPECT_FALSE(editor.lengthExceeded);
    EXPECT_EQ(editor.nodes[node("C1_2")].image, LooseImage::Wagon);
    EXPECT_THAT(unitLines(), ElementsAre("WagonData ( W124 Stock )", "WagonData ( W126 Stock )"));
}

TEST_F(LooseEditing, RefusalsChangeNothing) {
    act(activityOf(looseConsist({"E Loco Locos", "W W124 Stock"})));
    ASSERT_TRUE(open());
    selectLooseNode(context, editor, node("C1_2"));
    const std::string length = editor.lengthText;
    const std::string before = bytes();

    EXPECT_FALSE(replace("C1_2", "Shunter.eng"));  // an engine for a wagon line
    EXPECT_FALSE(replace("E1_1", "W124.wag"));     // a wagon for an engine line
    EXPECT_FALSE(replace("C1_2", "Nothing.wag"));  // not in the catalogue
    EXPECT_EQ(fake.dialogs.shown.size(), 3u);
    EXPECT_EQ(editor.lengthText, length);
    EXPECT_FALSE(editor.lengthExceeded);
    EXPECT_EQ(editor.nodes[node("C1_2")].text, "W124.wag");
    EXPECT_EQ(editor.nodes[node("E1_1")].text, "Loco.eng");
    EXPECT_EQ(bytes(), before);
    EXPECT_FALSE(std::filesystem::exists(actPath() + ".bak"));

    // The consist node or the activity node: the label moves, no file does.
    selectLooseNode(context, editor, node("A1"));
    EXPECT_FALSE(replaceLooseUnit(context, editor, "W126.wag", UnitClass::Wagon));
    EXPECT_EQ(bytes(), before);
}

TEST_F(LooseEditing, AUnitLineWithALoneLineFeedIsRefusedAndTheFileUnchanged) {
    std::string text = activityOf(looseConsist({"W W124 Stock", "W W127 Stock"}));
    text.replace(text.find("W127 Stock )"), 12, "W127 Stock )\x01UiD ( 9 )");
    std::string bytes16 = "\xFF\xFE" + utf16Bytes(text);
    // Every "\n" becomes CR LF, but the one marked stays a lone LF inside its line.
    std::string crlf;
    for (std::size_t i = 0; i < bytes16.size(); i += 2) {
        if (bytes16.compare(i, 2, std::string("\n\0", 2)) == 0)
            crlf += std::string("\r\0\n\0", 4);
        else if (bytes16.compare(i, 2, std::string("\x01\0", 2)) == 0)
            crlf += std::string("\n\0", 2);
        else
            crlf += bytes16.substr(i, 2);
    }
    msts.writeBytes("ROUTES/R/ACTIVITIES/A.act", crlf);
    ASSERT_TRUE(open());
    ASSERT_EQ(editor.nodes.size(), 4u);
    EXPECT_FALSE(replace("C1_2", "W126.wag"));
    EXPECT_THAT(fake.dialogs.texts().back(), HasSubstr("line feed"));
    EXPECT_EQ(bytes(), crlf);
    EXPECT_EQ(editor.nodes[node("C1_2")].text, "W127.wag");
}

TEST_F(LooseEditing, AnActivityChangedSinceOpeningIsNotWritten) {
    act(activityOf(looseConsist({"W W124 Stock"})));
    ASSERT_TRUE(open());
    const std::string changed = act(activityOf(looseConsist({"W W127 Stock"})));
    const std::string before = readWholeFile(changed);
    EXPECT_FALSE(replace("C1_1", "W126.wag"));
    EXPECT_THAT(fake.dialogs.texts().back(),
                HasSubstr("An error ocurred while trying to change this activity and\nyour "
                          "original file hasn't been changed."));
    EXPECT_EQ(bytes(), before);
    EXPECT_FALSE(std::filesystem::exists(actPath() + ".bak"));
}

TEST_F(LooseEditing, AFailedWriteLeavesTheActivityWholeAtEveryByte) {
    act(activityOf(looseConsist({"W W124 Stock"})));
    const std::string before = bytes();
    for (std::size_t failAt :
         {std::size_t{0}, std::size_t{1}, before.size() / 2, before.size() - 1}) {
        std::filesystem::remove(actPath() + ".bak");
        ASSERT_TRUE(open());
        fake.fs.failAfterBytes = failAt;
        EXPECT_FALSE(replace("C1_1", "W126.wag")) << failAt;
        fake.fs.failAfterBytes.reset();
        EXPECT_EQ(bytes(), before) << failAt;
        EXPECT_THAT(fake.dialogs.texts().back(), HasSubstr("The cause for this error was:\n"));
    }
}

TEST_F(LooseEditing, AReadOnlyBackupRefusesTheReplace) {
    act(activityOf(looseConsist({"W W124 Stock"})));
    msts.writeBytes("ROUTES/R/ACTIVITIES/A.act.bak", "old backup");
    std::filesystem::permissions(actPath() + ".bak", std::filesystem::perms::owner_read);
    ASSERT_TRUE(open());
    const std::string before = bytes();
    EXPECT_FALSE(replace("C1_1", "W126.wag"));
    EXPECT_EQ(bytes(), before);
    EXPECT_EQ(readWholeFile(actPath() + ".bak"), "old backup");
    std::filesystem::permissions(actPath() + ".bak", std::filesystem::perms::owner_all);
}

TEST_F(LooseEditing, ReplaceAllTakesTheMatchingNodesAndWritesOnce) {
    act(activityOf(looseConsist({"W W124 Stock", "W W127 Stock", "W W124 Stock"}) +
                   looseConsist({"W W124 Stock"})));
    ASSERT_TRUE(open());
    const std::string before = bytes();
    selectLooseNode(context, editor, node("C1_1"));
    ASSERT_TRUE(replaceAllOccurrences(context, editor, "W126.wag", UnitClass::Wagon));
    EXPECT_THAT(unitLines(), ElementsAre("WagonData ( W126 Stock )", "WagonData ( W127 Stock )",
                                         "WagonData ( W126 Stock )", "WagonData ( W126 Stock )"));
    EXPECT_EQ(readWholeFile(actPath() + ".bak"), before);
    EXPECT_EQ(differingLines(before, bytes()).size(), 3u);
    // Three presses of one metre more each, as three presses would leave lblLenght.
    EXPECT_EQ(editor.lengthText, "40.5");
}

TEST_F(LooseEditing, AnOddLastByteAndTheMarkSurviveAReplace) {
    const std::string path = act(activityOf(looseConsist({"W W124 Stock"})));
    const std::string odd = readWholeFile(path) + "Z";
    msts.writeBytes("ROUTES/R/ACTIVITIES/A.act", odd);
    ASSERT_TRUE(open());
    EXPECT_EQ(encodeActivity(decodeActivity(odd)), odd);
    ASSERT_TRUE(replace("C1_1", "W126.wag"));
    const std::string after = bytes();
    EXPECT_EQ(after.substr(0, 2), "\xFF\xFE");
    EXPECT_EQ(after.back(), 'Z');
    EXPECT_EQ(differingLines(odd, after).size(), 1u);
}

TEST_F(LooseEditing, CharactersBeyondLatinAndLoneSurrogatesSurviveAReplace) {
    std::string bytes16 =
        readWholeFile(act(activityOf(looseConsist({"W W124 Stock", "W W127 Stock"}), "\"Č\"")));
    // A lone high surrogate in the consist's name line, and a letter whose low byte is 0D.
    const std::string name = utf16Bytes("Loose consist.");
    const std::string odd = name + std::string("\x00\xD8", 2) + utf16Bytes(" \xC4\x8D");
    bytes16.replace(bytes16.find(name), name.size(), odd);
    msts.writeBytes("ROUTES/R/ACTIVITIES/A.act", bytes16);
    ASSERT_TRUE(open());
    EXPECT_EQ(editor.activityLines[0], "A.act --> \"Č\"");
    ASSERT_TRUE(replace("C1_2", "W126.wag"));
    const std::string after = bytes();
    EXPECT_EQ(differingLines(bytes16, after).size(), 1u);
    EXPECT_NE(after.find(odd), std::string::npos);
}

TEST_F(LooseEditing, TenThousandConsistsWithoutDirectionOpenAndReplaceInLinearTime) {
    std::string consists = "\t\tName ( \"Loose consist.\" )\n";
    for (int i = 0; i < 10000; ++i)
        consists += "\t\tTrain_Config (\n\t\t\tWagonData ( W124 Stock )\n";
    act(activityOf(consists));
    ASSERT_TRUE(open());
    EXPECT_EQ(editor.nodes.size(), 1u + 2 * 10000);
    EXPECT_EQ(state->looseUnits.count, LooseUnitTable::kRows);
    ASSERT_TRUE(replace("C1999_1", "W126.wag"));
    EXPECT_THAT(msts.read("home/LOOSE CONSIST 1999.old.lse"), HasSubstr("W126 Stock"));
    // Past the rows the table holds: refused, nothing written.
    const std::string before = bytes();
    EXPECT_FALSE(replace("C2001_1", "W126.wag"));
    EXPECT_THAT(fake.dialogs.texts().back(), HasSubstr("past the last of the 2000 units"));
    EXPECT_EQ(bytes(), before);
}

TEST_F(LooseEditing, WorkFilesAreNotDeletedInsideTheMstsFolder) {
    act(activityOf(looseConsist({"W W124 Stock"})));
    state->paths.programFolder = msts.msts() + "/ROUTES/R/ACTIVITIES";
    removeLooseWorkFiles(context);
    EXPECT_TRUE(std::filesystem::exists(actPath()));
    EXPECT_THAT(fake.dialogs.texts().back(), HasSubstr("are not deleted"));

    state->paths.programFolder = msts.home();
    msts.writeBytes("../home/LOOSE CONSIST 9.old.lse", "x");
    msts.writeBytes("../home/keep.txt", "x");
    removeLooseWorkFiles(context);
    EXPECT_FALSE(msts.exists("home/LOOSE CONSIST 9.old.lse"));
    EXPECT_TRUE(msts.exists("home/keep.txt"));
}

TEST_F(LooseEditing, PublishedActivityWithTwoEqualConsistsChangesTheOneChosen) {
    const std::string published =
        std::string(RAKEYARD_REALDATA_DIR) + "/cjakeman_Demo-Model-1/ROUTES/SCE/ACTIVITIES";
    if (!std::filesystem::is_directory(published))
        GTEST_SKIP() << "no real MSTS content at " << published;
    std::filesystem::create_directories(msts.msts() + "/ROUTES/R/ACTIVITIES");
    for (const auto& entry : std::filesystem::directory_iterator(published))
        if (entry.is_regular_file()) {
            const std::string copy =
                msts.msts() + "/ROUTES/R/ACTIVITIES/" + entry.path().filename().string();
            std::filesystem::copy_file(entry.path(), copy);
            // The published files are kept read-only; the copies are to be written.
            std::filesystem::permissions(copy, std::filesystem::perms::owner_write,
                                         std::filesystem::perm_options::add);
        }
    const std::string file = "MT_MT_0930 Edinburgh-Glasgow Queen Street.act";
    readRoutes(context, editor);
    SearchActsForLoose(context, editor, "R");
    ASSERT_EQ(editor.activityLines.size(), 1u);  // the .was_act is no activity
    EXPECT_TRUE(editor.activityLines[0].starts_with(file + " --> "));
    ASSERT_TRUE(openLooseActivity(context, editor, editor.activityLines[0]));
    EXPECT_EQ(msts.read("home/LOOSE CONSIST 3.old.lse"), msts.read("home/LOOSE CONSIST 4.old.lse"));
    const std::string before = bytes(file);
    const std::vector<std::string> unitsBefore = unitLines(file);
    ASSERT_TRUE(replace("C4_2", "W124.wag")) << testing::PrintToString(fake.dialogs.texts());
    const std::vector<std::string> unitsAfter = unitLines(file);
    ASSERT_EQ(unitsAfter.size(), unitsBefore.size());
    std::vector<std::size_t> changed;
    for (std::size_t i = 0; i < unitsAfter.size(); ++i)
        if (unitsAfter[i] != unitsBefore[i]) changed.push_back(i);
    // Consists 1 to 3 hold 3 units each: the line changed is the second of consist 4.
    EXPECT_THAT(changed, ElementsAre(10u));
    EXPECT_EQ(differingLines(before, bytes(file)).size(), 1u);
    EXPECT_EQ(readWholeFile(actPath(file) + ".bak"), before);
}

}  // namespace
}  // namespace rakeyard::test
