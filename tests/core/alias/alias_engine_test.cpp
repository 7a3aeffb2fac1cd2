#include "core/alias/alias_engine.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "core/alias/alias_restore.h"
#include "support/alias_fixture.h"

namespace rakeyard {
namespace {

using ::testing::HasSubstr;
using Texts = std::vector<std::string>;
using test::kAliased;

// A source with a real cab view and sounds, and a target with an empty CABVIEW folder.
class AliasFromEngine : public ::testing::Test, public test::AliasFixture {
protected:
    void SetUp() override {
        addEngine("Src", "src.eng",
                  test::engineText("src", "src_eng.sms", "src_cab.sms", "src.cvf"));
        write("Src/CABVIEW/src.cvf",
              "Tr_CabViewFile (\n\tCabViewFile ( front.ace )\n"
              "\tGraphic ( \"dial.ace\" ) comment ( x.ace )\n)\n");
        write("Src/SOUND/src_eng.sms", "\tFile ( \"idle.wav\" -1 )\n");
        write("Src/SOUND/src_cab.sms", "\tFiles ( 2 \"a.wav\" \"b.wav\" )\n");
        targetEng = addEngine("Tgt", "Tgt.eng",
                              test::engineText("tgt", "old_eng.sms", "old_cab.sms", "old.cvf"));
        write("Tgt/CABVIEW/old.cvf", "CabViewFile ( ..\\\\..\\\\Old\\\\CABVIEW\\\\o.ace )\n");
        write("Tgt/SOUND/old_eng.sms", "File ( \"old.wav\" -1 )\n");
        lists = buildAliasLists(*catalogue, fake.services);
    }
    AliasOutcome alias(EngineAliasChoice choice) {
        return aliasFromEngine(lists, choice, *catalogue, paths, fake.services);
    }
    std::string targetEng;
    AliasLists lists;
};

TEST_F(AliasFromEngine, PointsTheTargetAtTheSourcesFilesAndKeepsABackup) {
    const std::string before = read("Tgt/Tgt.eng");
    EXPECT_EQ(alias({"tgt.eng", "src.eng", "src.eng", true}), AliasOutcome::Done);
    EXPECT_EQ(fake.dialogs.texts(), Texts{kAliased});
    EXPECT_EQ(read("Tgt/Tgt.eng.bk"), before);
    EXPECT_EQ(text("Tgt/Tgt.eng"),
              "SIMISA@@@@@@@@@@JINX0D0t______\r\n"
              "Wagon ( tgt\r\n\tType ( Engine )\r\n\tSound ( \"src_eng.sms\" )\r\n)\r\n"
              "Engine ( tgt\r\n\tSound ( \"src_cab.sms\" )\r\n\tCabView ( src.cvf )\r\n"
              "\tName ( \"tgt\" )\r\n)\r\n");
    const std::string cab = "..\\\\..\\\\Src\\\\CABVIEW\\\\";
    EXPECT_EQ(text("Tgt/CABVIEW/src.cvf"),
              "SIMISA@@@@@@@@@@JINX0D0t______\r\nTr_CabViewFile (\r\n\tCabViewFile ( " + cab +
                  "front.ace )\r\n\tGraphic ( \"" + cab +
                  "dial.ace\" ) comment ( x.ace )\r\n)\r\n");
    const std::string sound = "..\\\\..\\\\Src\\\\SOUND\\\\";
    EXPECT_THAT(text("Tgt/SOUND/src_eng.sms"), HasSubstr("File ( \"" + sound + "idle.wav\" -1 )"));
    EXPECT_THAT(text("Tgt/SOUND/src_cab.sms"),
                HasSubstr("Files ( 2 \"" + sound + "a.wav\" \"" + sound + "b.wav\" )"));
    // What was replaced is in the trash, not lost.
    EXPECT_EQ(fake.desktop.trashed,
              (Texts{path("Tgt/CABVIEW/old.cvf"), path("Tgt/SOUND/old_eng.sms")}));
    // The source is untouched, and the target now counts as aliased.
    EXPECT_FALSE(exists("Src/src.eng.bk"));
    EXPECT_EQ(buildAliasLists(*catalogue, fake.services).notAliased, Texts{"Tgt.eng"});
}

TEST_F(AliasFromEngine, RefusesAnIncompleteChoiceOrTheEngineItself) {
    const std::string before = read("Tgt/Tgt.eng");
    const std::string leave = "\n\"-- NO ALIAS --\" to leave it unchanged!";
    struct Case {
        EngineAliasChoice choice;
        std::string message;
    };
    const Case cases[] = {
        {{"", "src.eng", "src.eng"}, "You must provide an engine to alias!"},
        {{"tgt.eng", "", "src.eng"},
         "You must provide a cabview source to alias from or choose" + leave},
        {{"tgt.eng", "src.eng", ""},
         "You must provide a sound source to alias from or choose" + leave},
        {{"TGT.ENG", "-- NO ALIAS --", "tgt.eng"}, "You cannot alias an engine to itself!"},
        {{"tgt.eng", "Tgt.Eng", "-- NO ALIAS --"}, "You cannot alias an engine to itself!"},
    };
    for (const Case& c : cases) {
        fake.dialogs.shown.clear();
        EXPECT_EQ(alias(c.choice), AliasOutcome::Refused) << c.message;
        EXPECT_EQ(fake.dialogs.texts(), Texts{c.message});
    }
    lists.notAliased.clear();
    fake.dialogs.shown.clear();
    EXPECT_EQ(alias({"tgt.eng", "src.eng", "src.eng"}), AliasOutcome::Refused);
    EXPECT_EQ(fake.dialogs.texts(), Texts{"There are no engines to alias!"});
    EXPECT_EQ(read("Tgt/Tgt.eng"), before);
    EXPECT_FALSE(exists("Tgt/Tgt.eng.bk"));
}

TEST_F(AliasFromEngine, QuotesACabNameWithABlank) {
    addEngine("Blank", "blank.eng", test::engineText("blank", "", "", "\"My Cab.cvf\""));
    write("Blank/CABVIEW/My Cab.cvf", "CabViewFile ( f.ace )\n");
    EXPECT_EQ(alias({"tgt.eng", "blank.eng", "-- NO ALIAS --"}), AliasOutcome::Done);
    EXPECT_THAT(text("Tgt/Tgt.eng"), HasSubstr("\tCabView ( \"My Cab.cvf\" )\r\n"));
    EXPECT_THAT(text("Tgt/Tgt.eng"), HasSubstr("Sound ( \"old_cab.sms\" )"));  // sounds kept
    EXPECT_TRUE(exists("Tgt/CABVIEW/My Cab.cvf"));
    EXPECT_TRUE(exists("Tgt/SOUND/old_eng.sms"));
}

TEST_F(AliasFromEngine, AnExistingBackupRefusesASecondAliasAndStaysAsItWas) {
    ASSERT_EQ(alias({"tgt.eng", "src.eng", "-- NO ALIAS --", true}), AliasOutcome::Done);
    const std::string backup = read("Tgt/Tgt.eng.bk");
    const std::string aliased = read("Tgt/Tgt.eng");
    fake.dialogs.shown.clear();
    EXPECT_EQ(alias({"tgt.eng", "-- NO ALIAS --", "src.eng", true}), AliasOutcome::Refused);
    ASSERT_EQ(fake.dialogs.texts().size(), 1u);
    EXPECT_THAT(fake.dialogs.texts()[0], HasSubstr("An error ocurred while aliasing this engine"));
    EXPECT_EQ(read("Tgt/Tgt.eng.bk"), backup);
    EXPECT_EQ(read("Tgt/Tgt.eng"), aliased);
    // Without a backup the alias goes on, and the old backup is still kept.
    EXPECT_EQ(alias({"tgt.eng", "-- NO ALIAS --", "src.eng", false}), AliasOutcome::Done);
    EXPECT_EQ(read("Tgt/Tgt.eng.bk"), backup);
}

TEST_F(AliasFromEngine, RefusesASourceNameThatLeavesTheTargetsFolder) {
    addEngine("Bad", "bad.eng", test::engineText("bad", "..\\..\\x.sms", "c.sms", "..\\evil.cvf"));
    write("Bad/CABVIEW/real.cvf", "CabViewFile ( f.ace )\n");
    write("Bad/SOUND/c.sms", "File ( \"a.wav\" )\n");
    write("evil.cvf", "CabViewFile ( f.ace )\n");
    for (EngineAliasChoice choice : {EngineAliasChoice{"tgt.eng", "bad.eng", "-- NO ALIAS --"},
                                     EngineAliasChoice{"tgt.eng", "-- NO ALIAS --", "bad.eng"}}) {
        fake.dialogs.shown.clear();
        EXPECT_EQ(alias(choice), AliasOutcome::Refused);
        EXPECT_THAT(fake.dialogs.texts().at(0), HasSubstr("which is not a file of its own folder"));
    }
    EXPECT_FALSE(exists("Tgt/Tgt.eng.bk"));
    EXPECT_TRUE(exists("Tgt/CABVIEW/old.cvf"));
    EXPECT_TRUE(fake.desktop.trashed.empty());
}

TEST_F(AliasFromEngine, RefusesToRemoveAFileAnotherEngineOfTheFolderNames) {
    write("Tgt/Twin.eng", test::engineText("twin", "old_eng.sms", "old_cab.sms", "OLD.CVF"));
    const std::string before = read("Tgt/Tgt.eng");
    EXPECT_EQ(alias({"tgt.eng", "src.eng", "-- NO ALIAS --"}), AliasOutcome::Refused);
    EXPECT_THAT(fake.dialogs.texts().at(0), HasSubstr("Twin.eng"));
    EXPECT_EQ(read("Tgt/Tgt.eng"), before);
    EXPECT_TRUE(exists("Tgt/CABVIEW/old.cvf"));
}

TEST_F(AliasFromEngine, RefusesACabViewFolderThatLinksElsewhere) {
    std::filesystem::rename(path("Tgt/CABVIEW"), path("Elsewhere"));
    std::error_code ec;
    std::filesystem::create_directory_symlink(path("Elsewhere"), path("Tgt/CABVIEW"), ec);
    if (ec) GTEST_SKIP() << "no symbolic link can be made here: " << ec.message();
    EXPECT_EQ(alias({"tgt.eng", "src.eng", "-- NO ALIAS --"}), AliasOutcome::Refused);
    EXPECT_THAT(fake.dialogs.texts().at(0), HasSubstr("is a link to another place"));
    EXPECT_TRUE(exists("Elsewhere/old.cvf"));
    EXPECT_FALSE(exists("Elsewhere/src.cvf"));
    EXPECT_FALSE(exists("Tgt/Tgt.eng.bk"));
}

TEST_F(AliasFromEngine, RefusesAWavNameWithoutQuotesBeforeAnyChange) {
    write("Src/SOUND/src_cab.sms", "\tFile ( a.wav -1 )\n");
    EXPECT_EQ(alias({"tgt.eng", "-- NO ALIAS --", "src.eng"}), AliasOutcome::Refused);
    EXPECT_EQ(fake.dialogs.shown.at(0).title, "ERROR");
    EXPECT_THAT(fake.dialogs.texts().at(0), HasSubstr("src_cab.sms contains an error!"));
    EXPECT_FALSE(exists("Tgt/Tgt.eng.bk"));
}

TEST_F(AliasFromEngine, AReadOnlyTargetIsToldAndKeptWithoutABackup) {
    const std::string before = read("Tgt/Tgt.eng");
    std::filesystem::permissions(path("Tgt/Tgt.eng"), std::filesystem::perms::owner_write,
                                 std::filesystem::perm_options::remove);
    EXPECT_EQ(alias({"tgt.eng", "src.eng", "src.eng", true}), AliasOutcome::Refused);
    EXPECT_THAT(fake.dialogs.texts().at(0), HasSubstr("read-only"));
    EXPECT_EQ(read("Tgt/Tgt.eng"), before);
    EXPECT_FALSE(exists("Tgt/Tgt.eng.bk"));  // the old file is whole: no copy is needed
    EXPECT_TRUE(exists("Tgt/CABVIEW/old.cvf"));
}

// A write that fails at a chosen byte (a full disk) leaves the engine whole or restorable.
TEST_F(AliasFromEngine, AFailedWriteLeavesTheEngineRestorable) {
    std::string bigCab = "Tr_CabViewFile (\n";
    for (int i = 0; i < 100; ++i)
        bigCab += "\tGraphic ( dial" + std::to_string(i) + ".ace )\n";
    write("Src/CABVIEW/src.cvf", bigCab + ")\n");
    const std::string before = read("Tgt/Tgt.eng");
    // Failing at 0 or inside the backup changes nothing; failing past the size of the ".eng"
    // lets the backup and the new ".eng" through and stops at the cab view.
    for (std::size_t failAt : {std::size_t{0}, before.size() / 2, before.size() + 64}) {
        fake.fs.failAfterBytes = failAt;
        fake.dialogs.shown.clear();
        EXPECT_NE(alias({"tgt.eng", "src.eng", "src.eng", true}), AliasOutcome::Done);
        EXPECT_THAT(fake.dialogs.texts().at(0),
                    HasSubstr("An error ocurred while aliasing this engine"));
        fake.fs.failAfterBytes.reset();
        const bool changed = read("Tgt/Tgt.eng") != before;
        EXPECT_EQ(changed, failAt > before.size()) << failAt;
        if (changed) {
            EXPECT_EQ(restoreEngine("tgt.eng", *catalogue, fake.services), AliasOutcome::Done);
            EXPECT_EQ(read("Tgt/TGT.ENG"), before);
            return;
        }
        EXPECT_FALSE(exists("Tgt/Tgt.eng.bk")) << failAt;
    }
    ADD_FAILURE() << "no write got past the .eng";
}

}  // namespace
}  // namespace rakeyard
