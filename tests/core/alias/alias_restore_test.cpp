#include "core/alias/alias_restore.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "support/alias_fixture.h"
#include "support/msts_tree.h"

namespace rakeyard {
namespace {

using Texts = std::vector<std::string>;

class RestoreEngine : public ::testing::Test, public test::AliasFixture {};

TEST_F(RestoreEngine, PutsTheBackupBackUnderTheNameInUpperCase) {
    addEngine("Tgt", "Tgt.eng", "aliased\n");
    msts.writeBytes("TRAINS/TRAINSET/Tgt/TGT.Eng.BK", "\xFF\xFEoriginal");
    const bool caseApart = test::keepsCaseApart(path("Tgt"));
    const bool caseRenamed = test::renamesCase(path("Tgt"));
    EXPECT_EQ(restoreEngine("tgt.eng", *catalogue, fake.services), AliasOutcome::Done);
    EXPECT_EQ(fake.dialogs.texts(), Texts{"The engine Tgt.eng has been restored!"});
    EXPECT_EQ(read("Tgt/TGT.ENG"), "\xFF\xFEoriginal");
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(path("Tgt")))
        names.push_back(entry.path().filename().string());
    if (caseRenamed) {
        EXPECT_EQ(names, Texts{"TGT.ENG"});
    }
    EXPECT_EQ(names.size(), 1u);
    // Where case is one, the rename has replaced the old file: nothing is left for the bin.
    EXPECT_EQ(fake.desktop.trashed, caseApart ? Texts{path("Tgt/Tgt.eng")} : Texts{});

    fake.dialogs.shown.clear();
    EXPECT_EQ(restoreEngine("tgt.eng", *catalogue, fake.services), AliasOutcome::Refused);
    EXPECT_EQ(fake.dialogs.texts(), Texts{"There is no engine to restore!"});
    EXPECT_EQ(read("Tgt/TGT.ENG"), "\xFF\xFEoriginal");
}

TEST_F(RestoreEngine, WantsAnEngineChosen) {
    EXPECT_EQ(restoreEngine("", *catalogue, fake.services), AliasOutcome::Refused);
    EXPECT_EQ(fake.dialogs.texts(), Texts{"You must provide an engine to restore!"});
}

TEST_F(RestoreEngine, ReplacesAnEngineNamedInUpperCaseInOneStep) {
    addEngine("Tgt", "TGT.ENG", "aliased\n");
    msts.writeBytes("TRAINS/TRAINSET/Tgt/tgt.eng.bk", "original");
    EXPECT_EQ(restoreEngine("tgt.eng", *catalogue, fake.services), AliasOutcome::Done);
    EXPECT_EQ(read("Tgt/TGT.ENG"), "original");
    EXPECT_FALSE(exists("Tgt/tgt.eng.bk"));
    EXPECT_TRUE(fake.desktop.trashed.empty());
}

}  // namespace
}  // namespace rakeyard
