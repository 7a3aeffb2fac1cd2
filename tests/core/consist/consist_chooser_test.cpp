#include "core/consist/consist_chooser.h"

#include "consist_fixture.h"
#include "core/app/consist_flows.h"

namespace rakeyard::test {
namespace {

using ::testing::ElementsAre;

class ReadConsistFiles : public ConsistTest {
protected:
    void writeConsist(const std::string& name, int wagons, const std::string& nameLine = "") {
        std::string text = "\nTrain (\n\tTrainCfg ( x\n" + nameLine + "\t\tDurability ( 1 )\n";
        for (int i = 0; i < wagons; ++i)
            text += "\t\t\tWagonData ( Box Box )\n";
        msts.write("TRAINS/CONSISTS/" + name, text + "\t)\n)");
    }
    ConsistChooser chooser;
};

TEST_F(ReadConsistFiles, LinesShowNameAtColumnFiftyAndTheWagonCount) {
    const std::string fifty = std::string(46, 'L') + ".con";
    writeConsist("b.CON", 3);
    writeConsist("a.con", 0);
    writeConsist("c.con", 12);
    writeConsist(fifty, 1);
    writeConsist(fifty + "x.con", 1);
    msts.write("TRAINS/CONSISTS/notes.txt", "");
    readConsistFiles(*app, fake.services, chooser);
    const std::string pad = std::string(45, ' ');
    EXPECT_THAT(chooser.lines, ElementsAre("a.con" + pad + "No wagons", "b.CON" + pad + " 3 wagons",
                                           "c.con" + pad + "12 wagons", fifty + " 1 wagons",
                                           fifty + "x.con 1 wagons"));
    EXPECT_EQ(chooser.files[1], "b.CON");
    EXPECT_EQ(chooser.countText(), "5");
}

TEST_F(ReadConsistFiles, ClickShowsTheNameOrItsFault) {
    writeConsist("Named.con", 1, "\t\tName ( \"Night Mail\" )\n");
    writeConsist("Plain.con", 1);
    writeConsist("Broken.con", 1, "\t\tName ( Night Mail )\n");
    readConsistFiles(*app, fake.services, chooser);
    EXPECT_EQ(chooseConsistLine(*app, fake.services, chooser, 1).value_or("?"), "Night Mail");
    EXPECT_EQ(state().consistToLoad, consistPath("Named.con"));
    EXPECT_EQ(chooseConsistLine(*app, fake.services, chooser, 2).value_or("?"), "Plain.con");
    EXPECT_EQ(chooseConsistLine(*app, fake.services, chooser, 0), std::nullopt);
    EXPECT_THAT(fake.dialogs.texts(),
                ElementsAre("There is an error in the name of this consist!"));

    loadChosenConsist(*app, fake.services, chooser, 2);
    EXPECT_EQ(state().header.fileName, "Plain");
    EXPECT_EQ(slot(0).fileName, "Box.wag");
    EXPECT_EQ(trimmedValue(app->settings.lastConsist), chooser.lines[2]);
}

TEST_F(ReadConsistFiles, KeysFindLinesAndDeleteSendsTheFileToTheBin) {
    writeConsist("alpha.con", 0);
    writeConsist("Beta.con", 0);
    writeConsist("bravo.con", 0);
    readConsistFiles(*app, fake.services, chooser);
    EXPECT_EQ(lineStartingWith(chooser, "b"), 1);
    EXPECT_EQ(lineStartingWith(chooser, "Z"), -1);
    EXPECT_EQ(lineOfLastConsist(chooser, chooser.lines[2] + std::string(20, ' ')), 2);

    deleteChosenConsist(*app, fake.services, chooser, 1);
    EXPECT_THAT(fake.desktop.trashed, ElementsAre(consistPath("Beta.con")));
    EXPECT_FALSE(msts.exists("msts/TRAINS/CONSISTS/Beta.con"));
    EXPECT_THAT(chooser.files, ElementsAre("alpha.con", "bravo.con"));
    EXPECT_EQ(chooser.lines.size(), 2u);
}

}  // namespace
}  // namespace rakeyard::test
