#include "core/alias/alias_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/platform/paths.h"
#include "support/alias_fixture.h"

namespace rakeyard {
namespace {

using ::testing::HasSubstr;
using Texts = std::vector<std::string>;
using test::kAliased;
const std::string kErase =
    "This engine contains a sub-folder no longer needed. Do you wish to erase it?";

class AliasFromFolder : public ::testing::Test, public test::AliasFixture {
protected:
    void SetUp() override {
        addEngine("Tgt", "tgt.eng",
                  "Wagon ( tgt\n\tSound ( \"e.sms\" ) comment ( mine )\n)\nEngine ( tgt\n"
                  "    Sound ( \"c.sms\" )\n\tCabView ( a.cvf )\n\tCabView ( b.cvf )\n)\n");
        write("Tgt/CABVIEW/a.cvf", "CabViewFile ( a.ace )\n");
        write("Tgt/SOUND/e.sms", "File ( \"e.wav\" )\n");
        write("Common/Cabs/My Cab.cvf", "CabViewFile ( x.ace )\n");
        write("Common/Sounds/eng.sms", "File ( \"x.wav\" )\n");
        write("Common/Sounds/cab.sms", "File ( \"y.wav\" )\n");
    }
    std::string engine() { return text("Tgt/tgt.eng"); }
};

TEST_F(AliasFromFolder, WritesTheCabReferenceBareAndEmptiesLaterLines) {
    fake.dialogs.answers = {Answer::No};
    EXPECT_EQ(aliasCabsFromFolder("TGT.ENG", path("COMMON/CABS/my cab.CVF"), true, *catalogue,
                                  paths, fake.services),
              AliasOutcome::Done);
    EXPECT_THAT(engine(), HasSubstr("\tCabView ( ..\\\\..\\\\Common\\\\Cabs\\\\My Cab.cvf )\r\n"
                                    "\tCabView (  )\r\n"));
    EXPECT_EQ(fake.dialogs.texts(), (Texts{kAliased, kErase}));
    EXPECT_TRUE(exists("Tgt/CABVIEW/a.cvf"));  // No keeps the folder
    EXPECT_TRUE(exists("Tgt/tgt.eng.bk"));
}

TEST_F(AliasFromFolder, QuotesSoundReferencesAndErasesTheFolderOnYes) {
    fake.dialogs.answers = {Answer::Yes};
    EXPECT_EQ(aliasSoundsFromFolder("tgt.eng", path("Common/Sounds/eng.sms"),
                                    path("Common/Sounds/cab.sms"), false, *catalogue, paths,
                                    fake.services),
              AliasOutcome::Done);
    EXPECT_THAT(
        engine(),
        HasSubstr("\tSound ( \"..\\\\..\\\\Common\\\\Sounds\\\\eng.sms\" ) comment ( mine )"));
    EXPECT_THAT(engine(), HasSubstr("\tSound ( \"..\\\\..\\\\Common\\\\Sounds\\\\cab.sms\" )"));
    EXPECT_FALSE(exists("Tgt/tgt.eng.bk"));
    EXPECT_EQ(fake.desktop.trashed, Texts{path("Tgt/SOUND")});
}

TEST_F(AliasFromFolder, AColumnOneCabViewIsNoMatchAndNothingChanges) {
    addEngine("Flat", "flat.eng", "Engine ( flat\nCabView ( a.cvf )\n)\n");
    const std::string before = read("Flat/flat.eng");
    EXPECT_EQ(aliasCabsFromFolder("flat.eng", path("Common/Cabs/My Cab.cvf"), true, *catalogue,
                                  paths, fake.services),
              AliasOutcome::Refused);
    EXPECT_THAT(fake.dialogs.texts().at(0), HasSubstr("Nothing was changed."));
    EXPECT_EQ(read("Flat/flat.eng"), before);
    EXPECT_FALSE(exists("Flat/flat.eng.bk"));
}

TEST_F(AliasFromFolder, RefusesFilesOutsideTrainsetAndIncompleteSoundSets) {
    msts.write("SOUND/outside.cvf", "x\n");
    EXPECT_EQ(aliasCabsFromFolder("tgt.eng", joinPath(msts.msts(), "SOUND/outside.cvf"), true,
                                  *catalogue, paths, fake.services),
              AliasOutcome::Refused);
    EXPECT_EQ(aliasCabsFromFolder("tgt.eng", path("../../SOUND/outside.cvf"), true, *catalogue,
                                  paths, fake.services),
              AliasOutcome::Refused);
    EXPECT_EQ(aliasSoundsFromFolder("tgt.eng", path("Common/Sounds/eng.sms"), "", true, *catalogue,
                                    paths, fake.services),
              AliasOutcome::Refused);
    EXPECT_EQ(fake.dialogs.texts(),
              (Texts{"An error ocurred while aliasing this engine",
                     "An error ocurred while aliasing this engine",
                     "The set of two files needed for the aliasing of this engine is not "
                     "complete!\nYou must choose one file for the cabview and two files for the "
                     "sounds."}));
    EXPECT_FALSE(exists("Tgt/tgt.eng.bk"));
}

TEST_F(AliasFromFolder, KeepsAFolderThatHoldsTheChoiceOrAnotherEngineNames) {
    write("Tgt/twin.eng", "Engine ( twin\n\tCabView ( A.CVF )\n)\n");
    fake.dialogs.defaultAnswer = Answer::Yes;
    EXPECT_EQ(aliasCabsFromFolder("tgt.eng", path("Common/Cabs/My Cab.cvf"), false, *catalogue,
                                  paths, fake.services),
              AliasOutcome::Done);
    EXPECT_THAT(fake.dialogs.texts().back(), HasSubstr("twin.eng uses its file a.cvf"));
    write("Tgt/SOUND/mine.sms", "File ( \"m.wav\" )\n");
    EXPECT_EQ(
        aliasSoundsFromFolder("tgt.eng", path("Tgt/SOUND/mine.sms"), path("Common/Sounds/cab.sms"),
                              false, *catalogue, paths, fake.services),
        AliasOutcome::Done);
    EXPECT_THAT(fake.dialogs.texts().back(), HasSubstr("you chose"));
    EXPECT_TRUE(fake.desktop.trashed.empty());
}

TEST_F(AliasFromFolder, ReferenceIsTheFilesPathBelowTrainset) {
    EXPECT_EQ(folderAliasReference(paths, fake.fs, path("COMMON/cabs/MY CAB.cvf")),
              u"..\\\\..\\\\Common\\\\Cabs\\\\My Cab.cvf");
    EXPECT_FALSE(folderAliasReference(paths, fake.fs, msts.msts() + "/x.cvf"));
}

}  // namespace
}  // namespace rakeyard
