#include "core/consist/consist_writer.h"

#include "consist_fixture.h"
#include "core/consist/consist_model.h"

namespace rakeyard::test {
namespace {

using ::testing::ElementsAre;

std::string fileBytes(std::string text) {
    std::string crlf;
    for (char c : text)
        crlf += c == '\n' ? std::string("\r\n") : std::string(1, c);
    return "\xFF\xFE" + utf16Bytes(crlf);
}

class SaveConsist : public ConsistTest {
protected:
    std::string saved(const std::string& name) { return readWholeFile(consistPath(name)); }
};

TEST_F(SaveConsist, OneUnitWithEmptyBoxesWritesTheDefaults) {
    add({"wag:Box.wag"});
    slot(0).uid = 0;
    state().header.fileName = "Solo";
    ASSERT_TRUE(saveConsist(*app, fake.services));
    EXPECT_EQ(saved("Solo.con"), fileBytes("SIMISA@@@@@@@@@@JINX0D0t______\n"
                                           "\n"
                                           "Train (\n"
                                           "\tTrainCfg ( Solo\n"
                                           "\t\tSerial ( 1 )\n"
                                           "\t\tMaxVelocity ( 40.00000 1.00000 )\n"
                                           "\t\tNextWagonUID ( 1 )\n"
                                           "\t\tDurability ( 1.00000 )\n"
                                           "\t\tWagon (\n"
                                           "\t\t\tWagonData ( Box Box )\n"
                                           "\t\t\tUiD ( 0 )\n"
                                           "\t\t)\n"
                                           "\t)\n"
                                           ")"));
    EXPECT_FALSE(state().consistChanged);
    EXPECT_TRUE(fake.dialogs.shown.empty());
}

TEST_F(SaveConsist, BlocksPlaceFlipAndQuoteWordsByUnitKind) {
    add({"eng:Big Boy.eng", "wag:Tend(1).wag", "eng:GP38.eng"});
    slot(0).flipped = true;
    slot(1).flipped = true;
    slot(2).fileName = "GP(2).eng";  // an engine word with a parenthesis is quoted
    state().header = {"My Train", "Night Mail", "30.5 1.0", "0.5", "7"};
    state().calculatedMaxVelocity = "55.00000 1.00000";  // preferred to the box
    ASSERT_TRUE(saveConsist(*app, fake.services));
    EXPECT_EQ(saved("My Train.con"), fileBytes("SIMISA@@@@@@@@@@JINX0D0t______\n"
                                               "\n"
                                               "Train (\n"
                                               "\tTrainCfg ( \"My Train\"\n"
                                               "\t\tName ( \"Night Mail\" )\n"
                                               "\t\tSerial ( 7 )\n"
                                               "\t\tMaxVelocity ( 55.00000 1.00000 )\n"
                                               "\t\tNextWagonUID ( 4 )\n"
                                               "\t\tDurability ( 0.5 )\n"
                                               "\t\tEngine (\n"
                                               "\t\t\tFlip ( )\n"
                                               "\t\t\tUiD ( 1 )\n"
                                               "\t\t\tEngineData ( \"Big Boy\" \"Big Boy\" )\n"
                                               "\t\t)\n"
                                               "\t\tWagon (\n"
                                               "\t\t\tWagonData ( Tend(1) Tend(1) )\n"
                                               "\t\t\tUiD ( 2 )\n"
                                               "\t\t\tFlip ( )\n"
                                               "\t\t)\n"
                                               "\t\tEngine (\n"
                                               "\t\t\tUiD ( 3 )\n"
                                               "\t\t\tEngineData ( \"GP(2)\" GP38 )\n"
                                               "\t\t)\n"
                                               "\t)\n"
                                               ")"));
}

TEST_F(SaveConsist, NextWagonUidIsTheHighestUpToTheFirstEmptySlotPlusOne) {
    const std::vector<float> uids[] = {{0}, {5, 3}, {1.9f, 9}};
    const long long next[] = {1, 6, 10};
    for (int c = 0; c < 3; ++c) {
        for (ConsistSlot& s : state().slots)
            clearSlot(s);
        for (std::size_t i = 0; i < uids[c].size(); ++i) {
            slot(int(i)).displayName = "x";
            slot(int(i)).uid = uids[c][i];
        }
        EXPECT_EQ(nextWagonUid(state()), next[c]) << c;
    }
    for (int i = 0; i < kUsedSlots; ++i) {
        slot(i) = app->catalogue.wagons[0];
        slot(i).uid = float(i + 1);
    }
    const std::string bytes = consistFileBytes(state());
    EXPECT_NE(bytes.find(utf16Bytes("NextWagonUID ( 300 )")), std::string::npos);
    const std::string end = utf16Bytes("UiD ( 300 )\r\n\t\t)\r\n\t)\r\n)");
    EXPECT_EQ(bytes.substr(bytes.size() - end.size()), end) << "all 300 units written";
}

TEST_F(SaveConsist, RefusalsLeaveTheFileAndTheFlagAlone) {
    EXPECT_FALSE(saveConsist(*app, fake.services));
    EXPECT_THAT(fake.dialogs.texts(), ElementsAre("The consist is empty!"));

    add({"eng:GP38.eng"});
    fake.dialogs.shown.clear();
    EXPECT_FALSE(saveConsist(*app, fake.services));
    EXPECT_THAT(fake.dialogs.texts(),
                ElementsAre("You must provide a file name for this consist!"));
    EXPECT_EQ(fake.dialogs.shown[0].icon, Icon::Exclamation);
    EXPECT_TRUE(state().consistChanged);

    msts.write("TRAINS/CONSISTS/Old.con", "old");
    const std::string before = saved("Old.con");
    state().header.fileName = "Old";
    fake.dialogs.shown.clear();
    fake.dialogs.answers = {Answer::No};
    EXPECT_FALSE(saveConsist(*app, fake.services));
    EXPECT_THAT(fake.dialogs.texts(),
                ElementsAre("Overwrite this consist?\n" + consistPath("Old.con")));
    EXPECT_EQ(saved("Old.con"), before);
    EXPECT_TRUE(state().consistChanged);

    fake.dialogs.answers = {Answer::Yes};
    EXPECT_TRUE(saveConsist(*app, fake.services));
    EXPECT_NE(saved("Old.con"), before);
}

TEST_F(SaveConsist, SaveAsWritesTheNewFileAndARefusedNameKeepsTheOld) {
    add({"eng:GP38.eng"});
    state().header.fileName = "First";
    ASSERT_TRUE(saveConsist(*app, fake.services));
    const std::string first = saved("First.con");

    EXPECT_FALSE(saveConsistAs(*app, fake.services, "../Second"));
    EXPECT_EQ(state().header.fileName, "First") << "Save still means the first file";

    const SaveResult second = saveConsistAs(*app, fake.services, "Second");
    ASSERT_TRUE(second);
    EXPECT_EQ(second.path, consistPath("Second.con"));
    EXPECT_EQ(state().header.fileName, "Second");
    EXPECT_EQ(saved("First.con"), first) << "the old file is left as it was";
    EXPECT_NE(saved("Second.con"), "");
}

TEST_F(SaveConsist, TwoGapsAreClosedWithOneMessage) {
    add({"eng:GP38.eng", "wag:Box.wag", "wag:Coach.wag", "wag:Box.wag", "wag:Coach.wag"});
    clearSlot(slot(1));
    clearSlot(slot(3));
    state().header.fileName = "Gaps";
    ASSERT_TRUE(saveConsist(*app, fake.services));
    EXPECT_THAT(
        fake.dialogs.texts(),
        ElementsAre("This consist contained gaps and one or more units had to be shifted!"));
    EXPECT_EQ(slot(0).fileName, "GP38.eng");
    EXPECT_EQ(slot(1).fileName, "Coach.wag");
    EXPECT_EQ(slot(2).fileName, "Coach.wag");
    EXPECT_EQ(slot(3).fileName, "");
    EXPECT_NE(saved("Gaps.con").find(utf16Bytes("UiD ( 5 )\r\n\t\t)\r\n\t)")), std::string::npos);
}

TEST_F(SaveConsist, MissingUnitIsRefusedAfterTheGapsAreClosed) {
    add({"eng:GP38.eng", "wag:Box.wag", "wag:Box.wag"});
    clearSlot(slot(1));
    slot(2) = ConsistSlot{};
    slot(2).displayName = "Lost";
    slot(2).imageKey = "NOTFOUND";
    state().header.fileName = "Lost";
    EXPECT_FALSE(saveConsist(*app, fake.services));
    EXPECT_THAT(fake.dialogs.texts(),
                ElementsAre("This consist contained gaps and one or more units had to be shifted!",
                            "This consist contains unit(s) not found!\n"
                            "You must erase it from the consist before saving."));
    EXPECT_EQ(slot(1).displayName, "Lost") << "the repair stays";
    EXPECT_FALSE(msts.exists("msts/TRAINS/CONSISTS/Lost.con"));
}

TEST_F(SaveConsist, FailedWriteIsToldAndKeepsTheOldFileWhole) {
    msts.write("TRAINS/CONSISTS/Full.con", "the old consist");
    const std::string before = saved("Full.con");
    add({"eng:GP38.eng", "wag:Box.wag"});
    state().header.fileName = "Full";
    fake.dialogs.answers = {Answer::Yes};
    fake.fs.failAfterBytes = 40;
    EXPECT_FALSE(saveConsist(*app, fake.services));
    EXPECT_EQ(saved("Full.con"), before);
    ASSERT_EQ(fake.dialogs.shown.size(), 2u);
    EXPECT_THAT(fake.dialogs.shown[1].text,
                ::testing::StartsWith("The consist could not be saved"));
    EXPECT_TRUE(state().consistChanged) << "the changes are still unsaved";
}

}  // namespace
}  // namespace rakeyard::test
