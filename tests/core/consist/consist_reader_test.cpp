#include "core/consist/consist_reader.h"

#include <filesystem>
#include <span>
#include <sstream>

#include "consist_fixture.h"
#include "core/consist/consist_model.h"
#include "core/consist/consist_writer.h"
#include "core/consist/editing.h"
#include "core/platform/text_utf.h"

namespace rakeyard::test {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;

// Header lines as the writer puts them, behind the SIMISA line that MstsTree adds.
const std::string kHeader =
    "\nTrain (\n\tTrainCfg ( T\n\t\tSerial ( 1 )\n\t\tMaxVelocity ( 40.00000 1.00000 )\n"
    "\t\tNextWagonUID ( 1 )\n\t\tDurability ( 1.00000 )\n";
const std::string kEnd = "\t)\n)";

std::string engine(const std::string& words, int uid) {
    return "\t\tEngine (\n\t\t\tUiD ( " + std::to_string(uid) + " )\n\t\t\tEngineData ( " + words +
           " )\n\t\t)\n";
}
std::string wagon(const std::string& words, int uid) {
    return "\t\tWagon (\n\t\t\tWagonData ( " + words + " )\n\t\t\tUiD ( " + std::to_string(uid) +
           " )\n\t\t)\n";
}

// Every field of a slot in one line, so that two models compare slot by slot.
std::string describe(const ConsistSlot& s) {
    std::ostringstream out;
    out << s.folderPath << '|' << s.folderName << '|' << s.fileName << '|' << s.displayName << '|'
        << s.uid << '|' << s.flipped << '|' << s.unitType << '|' << s.imageKey << '|' << s.position
        << '|' << s.couplerFront << s.couplerRear << '|' << s.mass << '|' << s.length << '|'
        << s.markedForDelete << '|' << s.maxPower << '|' << s.shapeName << '|' << s.hasCab;
    return out.str();
}
std::vector<std::string> describeAll(const ConsistState& state) {
    std::vector<std::string> all;
    for (const ConsistSlot& s : state.slots)
        all.push_back(describe(s));
    return all;
}

class LoadConsist : public ConsistTest {};

TEST_F(LoadConsist, SavedAndLoadedAgainIsTheSameModelAndTheSameBytes) {
    add({"eng:GP38.eng", "wag:Box.wag", "eng:Big Boy.eng", "wag:Tend(1).wag"});
    slot(2).flipped = true;
    slot(2).imageKey = "ENGINV";
    state().header = {"Trip", "Night Mail", "30 1", "0.5", "4"};
    ASSERT_TRUE(saveConsist(*app, fake.services));
    const std::vector<std::string> before = describeAll(state());
    const ConsistHeader header = state().header;
    const std::string bytes = readWholeFile(consistPath("Trip.con"));

    clearAll(state());
    state().consistToLoad = consistPath("Trip.con");
    (void)loadConsistFile(*app, fake.services);
    EXPECT_EQ(describeAll(state()), before);
    EXPECT_EQ(state().header, header);
    EXPECT_THAT(fake.dialogs.texts(), IsEmpty());

    fake.dialogs.answers = {Answer::Yes};
    ASSERT_TRUE(saveConsist(*app, fake.services));
    EXPECT_EQ(readWholeFile(consistPath("Trip.con")), bytes);
}

TEST_F(LoadConsist, HandWrittenConsistSavesBackByteForByte) {
    const std::string text =
        "\nTrain (\n\tTrainCfg ( Hand\n\t\tName ( \"Hand made\" )\n\t\tSerial ( 2 )\n"
        "\t\tMaxVelocity ( 20.00000 1.00000 )\n\t\tNextWagonUID ( 8 )\n\t\tDurability ( 0.8 )\n"
        "\t\tEngine (\n\t\t\tFlip ( )\n\t\t\tUiD ( 7 )\n\t\t\tEngineData ( gp38 GP38 )\n\t\t)\n"
        "\t\tWagon (\n\t\t\tWagonData ( Box Box )\n\t\t\tUiD ( 3 )\n\t\t\tFlip ( )\n\t\t)\n" +
        kEnd;
    loadText("Hand.con", text);
    EXPECT_EQ(slot(0).fileName, "GP38.eng") << "the catalogue's spelling";

    const std::string original = readWholeFile(consistPath("Hand.con"));
    fake.dialogs.answers = {Answer::Yes};
    ASSERT_TRUE(saveConsist(*app, fake.services));
    const std::string rewritten = readWholeFile(consistPath("Hand.con"));
    EXPECT_EQ(rewritten, std::string(original).replace(original.find(utf16Bytes("gp38")), 8,
                                                       utf16Bytes("GP38")));
}

TEST_F(LoadConsist, TotalsAreRoundedPerUnitAndShownAtTheEnd) {
    loadText("Three.con", kHeader + engine("GP38 GP38", 1) + wagon("Box Box", 2) +
                              wagon("Coach Coach", 3) + wagon("Nowhere Nowhere", 4) + kEnd);
    const ConsistTotals& t = state().totals;
    EXPECT_EQ(t.length, "56.62");
    EXPECT_EQ(t.feet, "185.76");
    EXPECT_EQ(t.mass, "188.51");
    EXPECT_EQ(t.impTons, "185.53");
    EXPECT_EQ(t.wagons, "2") << "a wagon not found is not counted";
    EXPECT_EQ(slot(3).imageKey, "NOTFOUND");
    EXPECT_EQ(slot(3).displayName, "Nowhere");
    EXPECT_EQ(state().view[3].pictureKey, "NOTFOUND");
    EXPECT_EQ(state().header.fileName, "Three");
    EXPECT_EQ(state().recent.names[0], "Three.con");
}

TEST_F(LoadConsist, UnitsNotInstalledAreToldOnceAndKeepTheStripsArrows) {
    std::string units;
    for (int i = 1; i <= 15; ++i)
        units += wagon("Gone" + std::to_string(i) + " Gone", i);
    loadText("Gone.con", kHeader + units + kEnd);
    EXPECT_THAT(fake.dialogs.texts(),
                ElementsAre("15 units of this consist are not installed: Gone1, Gone2, Gone3 and "
                            "12 more."));
    EXPECT_EQ(fake.dialogs.shown[0].icon, Icon::Exclamation);
    EXPECT_TRUE(state().rightArrowVisible) << "units follow on the next page";
    showLastUnitPage(state());
    EXPECT_TRUE(state().leftArrowVisible);

    fake.dialogs.shown.clear();
    loadText("One.con", kHeader + engine("GP38 GP38", 1) + wagon("Nowhere Nowhere", 2) + kEnd);
    EXPECT_THAT(fake.dialogs.texts(),
                ElementsAre("1 unit of this consist is not installed: Nowhere."));
}

TEST_F(LoadConsist, WordsAreReadAsTheLinesStand) {
    const struct {
        std::string words;
        const char* fileName;
        const char* displayName;
    } cases[] = {
        {"\"Big Boy\" \"Big Boy\"", "Big Boy.eng", "Big Boy unit"},
        {"gp38 SomeOtherFolder", "GP38.eng", "GP38 unit"},
        {"X GP38", "", "X GP38"},      // a one-letter word runs on into the folder word
        {"\"Big Boy GP38", "", "Bi"},  // no closing quote: the cut word less its ends
    };
    for (const auto& c : cases) {
        loadText("Words.con", kHeader + engine(c.words, 1) + kEnd);
        EXPECT_EQ(slot(0).fileName, c.fileName) << c.words;
        EXPECT_EQ(slot(0).displayName, c.displayName) << c.words;
    }
}

TEST_F(LoadConsist, OnlyTabExactFlipAndBlockEndsCount) {
    const std::string spaced =
        "\t\tEngine (\n   Flip ( )\n\t\t\tUiD ( 1 )\n"
        "\t\t\tEngineData ( GP38 GP38 )\n\t\t)\n";
    const std::string badEnd = "\t\tWagon (\n\t\t\tWagonData ( Box Box )\n\t\t\tUiD ( 2 )\n  )\n";
    loadText("Flip.con", kHeader + spaced + badEnd + wagon("Coach Coach", 3) + kEnd);
    EXPECT_FALSE(slot(0).flipped);
    EXPECT_EQ(slot(0).imageKey, "DSL");
    EXPECT_EQ(slot(1).fileName, "Coach.wag") << "the badly ended block shares the slot";
    EXPECT_EQ(slot(1).uid, 3);
    EXPECT_EQ(slot(2).fileName, "");
    EXPECT_EQ(state().totals.wagons, "2");
}

TEST_F(LoadConsist, HeaderFaultsEndTheLoadWithTheirMessages) {
    const struct {
        const char* what;
        std::string text;
        const char* message;
        const char* name;  // Text2(1) afterwards
        bool unitRead;
    } cases[] = {
        {"two unquoted words", "\n\t\tName ( Night Mail )\n" + engine("GP38 GP38", 1) + kEnd,
         "There is an error in the name of this consist!", "Night Mail", false},
        {"one quote", "\n\t\tName ( \"Night )\n" + engine("GP38 GP38", 1) + kEnd,
         "There is an error in the name of this consist!", "", false},
        {"no closing parenthesis", "\n\t\tMaxVelocity ( 40\n" + engine("GP38 GP38", 1) + kEnd,
         "This consist contains an error.\nPlease test it!", "", false},
        {"UiD without a blank", kHeader + engine("GP38 GP38", 1) + "\t\t\tUiD (7)\n" + kEnd,
         "This consist contains an error.\nPlease test it!", "", true},
        {"one unquoted word",
         "\n\t\tName ( Mail )\n\t\tDurability ( 1 )\n" + engine("GP38 GP38", 1) + kEnd, nullptr,
         "Mail", true},
        {"Durability before Name",
         "\n\t\tDurability ( 1 )\n\t\tName ( \"Late\" )\n" + engine("GP38 GP38", 1) + kEnd, nullptr,
         "", true},
    };
    for (const auto& c : cases) {
        fake.dialogs.shown.clear();
        state().totals = ConsistTotals{};
        loadText("Bad.con", c.text);
        if (c.message) {
            EXPECT_THAT(fake.dialogs.texts(), ElementsAre(c.message)) << c.what;
            EXPECT_EQ(fake.dialogs.shown[0].icon, Icon::Stop) << c.what;
            if (std::string_view(c.message).starts_with("This consist contains")) {
                EXPECT_EQ(fake.dialogs.shown[0].title, "Critical error") << c.what;
            }
            EXPECT_EQ(state().totals.mass, "0") << c.what << ": totals not shown";
        } else {
            EXPECT_THAT(fake.dialogs.texts(), IsEmpty()) << c.what;
            EXPECT_EQ(state().totals.mass, "113.5") << c.what;
        }
        EXPECT_EQ(state().header.name, c.name) << c.what;
        EXPECT_EQ(slot(0).fileName, c.unitRead ? "GP38.eng" : "") << c.what;
    }
}

TEST_F(LoadConsist, EightBitFileIsNotUnicode) {
    state().consistToLoad = msts.writeBytes("TRAINS/CONSISTS/Plain.con",
                                            "SIMISA@@@@@@@@@@JINX0D0t______\r\n\r\nTrain (\r\n)");
    (void)loadConsistFile(*app, fake.services);
    EXPECT_THAT(fake.dialogs.texts(), ElementsAre("This consist isn't in Unicode format!"));
}

TEST_F(LoadConsist, UnicodeLinesEndOnlyAtTheCharacterCr) {
    // U+010D has the byte 0D in it, and a lone LF stays inside its line.
    loadText("Czech.con", "\nTrain (\n\tTrainCfg ( T\n\t\tName ( \"Vlak \xC4\x8D\xC4\x8D\" )\n" +
                              engine("GP38 GP38", 1) + kEnd);
    EXPECT_EQ(state().header.name, "Vlak \xC4\x8D\xC4\x8D");
    const TextLines lines = textLines("\xFF\xFE" + utf16Bytes("ab\ncd\r\nef\rg"));
    EXPECT_EQ(lines.lines, (std::vector<std::u16string>{u"ab\ncd", u"ef", u"g"}));
    EXPECT_EQ(lines.firstLineLength(), 7u);
}

TEST_F(LoadConsist, ThousandUnitsAndAMegabyteLineAreReadWithinTheArray) {
    std::string text = kHeader + std::string(1 << 20, 'x') + "\n";
    for (int i = 1; i <= 1000; ++i)
        text += wagon("Box Box", i);
    loadText("Long.con", text + kEnd);
    EXPECT_THAT(fake.dialogs.texts(),
                ElementsAre("Not all of this consist could be loaded.\nIt holds 1000 units: only "
                            "the first 300 were loaded, 700 were left out."));
    EXPECT_EQ(slot(599).position, 600);
    EXPECT_EQ(slot(599).uid, 600);
    EXPECT_EQ(state().totals.wagons, "1000") << "units past the array still count";
}

TEST_F(LoadConsist, FilesCutShortLoadAsFarAsTheyGoAndSaySo) {
    const auto fileOf = [&](const std::string& text) {
        return readWholeFile(msts.write("TRAINS/CONSISTS/Made.con", text));
    };
    const std::string bytes = fileOf(kHeader + engine("GP38 GP38", 1) + kEnd);
    std::string units;
    for (int i = 1; i <= 301; ++i)
        units += wagon("Box Box", i);
    const struct {
        const char* what;
        std::string bytes;
        const char* reason;
    } cases[] = {
        {"inside a unit", fileOf(kHeader + "\t\tEngine (\n\t\t\tEngineData ( GP38 GP38 )"),
         "The file ends early"},
        {"before the last parenthesis", bytes.substr(0, bytes.size() - 2), "The file ends early"},
        {"in half a character", bytes + "\x29", "in the middle of a character"},
        {"301 units", fileOf(kHeader + units + kEnd),
         "It holds 301 units: only the first 300 were loaded, 1 were left out."},
    };
    for (const auto& c : cases) {
        fake.dialogs.shown.clear();
        state().consistToLoad = msts.writeBytes("TRAINS/CONSISTS/Cut.con", c.bytes);
        EXPECT_EQ(loadConsistFile(*app, fake.services), LoadOutcome::Incomplete) << c.what;
        ASSERT_EQ(fake.dialogs.shown.size(), 1u) << c.what;
        EXPECT_EQ(fake.dialogs.shown[0].icon, Icon::Exclamation) << c.what;
        EXPECT_THAT(fake.dialogs.shown[0].text,
                    StartsWith("Not all of this consist could be loaded.\n"));
        EXPECT_THAT(fake.dialogs.shown[0].text, HasSubstr(c.reason)) << c.what;
        EXPECT_FALSE(slot(0).fileName.empty()) << c.what << ": what was there is loaded";
    }
    state().consistToLoad = msts.writeBytes("TRAINS/CONSISTS/Whole.con", bytes);
    EXPECT_EQ(loadConsistFile(*app, fake.services), LoadOutcome::Loaded);
}

TEST_F(LoadConsist, MissingFileIsOfferedForCreation) {
    state().header.name = "old";
    state().consistToLoad = consistPath("sub/Ghost.con");
    (void)loadConsistFile(*app, fake.services);
    EXPECT_THAT(fake.dialogs.texts(),
                ElementsAre("This consist does not exist! Do you wish to create a new one?"));
    EXPECT_EQ(state().header.fileName, "") << "Cancel";

    fake.dialogs.answers = {Answer::Ok};
    (void)loadConsistFile(*app, fake.services);
    EXPECT_EQ(state().header.fileName, "Ghost");
    EXPECT_EQ(state().header.name, "");
}

TEST(ConsistNameOf, TakesThePartBehindTheConsistsFolder) {
    const struct {
        const char* path;
        const char* name;
    } cases[] = {{"C:\\MSTS\\TRAINS\\CONSISTS\\Freight.con", "Freight"},
                 {"/msts/TRAINS/CONSISTS/sub/Freight.con", "sub/Freight"},
                 {"/msts/trains/consists/Freight.con", "Freight"},
                 {"/x.c", ""}};
    for (const auto& c : cases)
        EXPECT_EQ(consistNameOf(c.path), c.name) << c.path;
}

// Every real consist loads, with a catalogue made from its own unit words, and comes back the
// same after a save.
TEST_F(LoadConsist, RealConsistsLoadAndSurviveASave) {
    namespace fs = std::filesystem;
    const fs::path folder =
        fs::path(RAKEYARD_REALDATA_DIR) / "YoRyan_openrails-timetables/TRAINS/CONSISTS";
    if (!fs::is_directory(folder))
        GTEST_SKIP() << "no real MSTS content at " << folder << " (set RAKEYARD_REALDATA_DIR)";
    int loaded = 0;
    for (const auto& entry : fs::directory_iterator(folder)) {
        std::unique_ptr<AppState> fresh = std::make_unique<AppState>();
        fresh->paths.consistsPath = msts.consists();
        int units = 0;
        for (const std::u16string& line : textLines(readWholeFile(entry.path().string())).lines) {
            const bool isEngine = line.find(u"EngineData (") != std::u16string::npos;
            if (!isEngine && line.find(u"WagonData (") == std::u16string::npos) continue;
            std::istringstream words(toUtf8(line.substr(line.find(u'(') + 1)));
            std::string file, folderName;
            words >> file >> folderName;
            UnitCatalogue& catalogue = fresh->catalogue;
            std::size_t& count = isEngine ? catalogue.engineCount : catalogue.wagonCount;
            (isEngine ? catalogue.engines.data() : catalogue.wagons.data())[count++] =
                unit(folderName, file + (isEngine ? ".eng" : ".wag"),
                     isEngine ? "Electric" : "Carriage", "A", "A", 50, 20, true);
            ++units;
        }
        fresh->consist.consistToLoad = entry.path().string();
        (void)loadConsistFile(*fresh, fake.services);
        EXPECT_THAT(fake.dialogs.texts(), IsEmpty()) << entry.path();
        EXPECT_EQ(fresh->consist.slots[units - 1].position, units) << entry.path();
        EXPECT_EQ(fresh->consist.slots[units].displayName, "") << entry.path();
        const std::vector<std::string> before = describeAll(fresh->consist);

        fresh->consist.header.fileName = "copy";
        fake.dialogs.defaultAnswer = Answer::Yes;
        ASSERT_TRUE(saveConsist(*fresh, fake.services)) << entry.path();
        fresh->consist.consistToLoad = consistPath("copy.con");
        (void)loadConsistFile(*fresh, fake.services);
        EXPECT_EQ(describeAll(fresh->consist), before) << entry.path();
        fake.dialogs.shown.clear();
        ++loaded;
    }
    EXPECT_EQ(loaded, 32);
}

}  // namespace
}  // namespace rakeyard::test
