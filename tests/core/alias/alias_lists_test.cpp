#include "core/alias/alias_lists.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "core/platform/paths.h"
#include "support/alias_fixture.h"

namespace rakeyard {
namespace {

using Lines = std::vector<std::string>;
const Lines kNoneYet = {std::string(kNoAlias)};

TEST(HoldsParentReference, TellsAliasedBytesInEitherForm) {
    using namespace std::string_view_literals;
    struct Case {
        std::string_view bytes;
        bool aliased;
    };
    const Case cases[] = {
        {"\xFF\xFE"
         "a\0.\0.\0\\\0b\0"sv,
         true},  // UTF-16 "..\"
        {"\xFF\xFE"
         ".\0.\0/\0"sv,
         true},  // UTF-16 "../"
        {"\xFF\xFE"
         ".\0.\0a\0\\\0"sv,
         false},  // no separator right behind
        {"\xFF\xFE"
         ".\0\\\0"sv,
         false},                                        // one dot
        {"CabViewFile ( ..\\\\..\\\\x.ace )"sv, true},  // 8-bit text
        {"CabViewFile ( ../x.ace )"sv, true},
        {"CabViewFile ( x.ace )"sv, false},
        // In a UTF-16 file, the bytes 2E 2E 5C are other letters, not "..\".
        {"\xFF\xFE"
         "\x2E\x2E\x5C\x00"sv,
         false},
        {""sv, false},
    };
    for (const Case& c : cases)
        EXPECT_EQ(holdsParentReference(c.bytes), c.aliased) << testing::PrintToString(c.bytes);
}

class BuildAliasLists : public ::testing::Test, public test::AliasFixture {};

TEST_F(BuildAliasLists, SortsEnginesByTheirCabViewAndSounds) {
    addEngine("Real", "real.eng", test::engineText("real", "e.sms", "c.sms", "r.cvf"));
    write("Real/CABVIEW/r.cvf", "Tr_CabViewFile (\n\tCabViewFile ( front.ace )\n)\n");
    write("Real/SOUND/c.sms", "File ( \"a.wav\" -1 )\n");
    write("Real/SOUND/e.sms", "File ( \"b.wav\" -1 )\n");
    addEngine("Empty", "empty.eng", test::engineText("empty", "", "", "x.cvf"));
    std::filesystem::create_directories(path("Empty/CABVIEW"));
    addEngine("Aliased", "aliased.eng", test::engineText("aliased", "", "", "a.cvf"));
    write("Aliased/CABVIEW/a.cvf", "CabViewFile ( ..\\\\..\\\\Real\\\\CABVIEW\\\\front.ace )\n");
    // The second ".sms" is aliased: the engine has no sounds of its own to give.
    write("Aliased/SOUND/1.sms", "File ( \"a.wav\" -1 )\n");
    write("Aliased/SOUND/2.sms", "File ( \"../x/a.wav\" -1 )\n");
    addEngine("NoCab", "nocab.eng", test::engineText("nocab", "n.sms", "n.sms", ""));
    write("NoCab/SOUND/n.sms", "File ( \"n.wav\" -1 )\n");  // one file decides alone
    // A CABVIEW that is a file is no cab view folder.
    addEngine("CabFile", "cabfile.eng", test::engineText("cabfile", "", "", ""));
    write("CabFile/CABVIEW", "not a folder");

    const AliasLists lists = buildAliasLists(*catalogue, fake.services);
    EXPECT_EQ(lists.notAliased, (Lines{"empty.eng", "aliased.eng"}));
    EXPECT_EQ(lists.cabSources, (Lines{std::string(kNoAlias), "real.eng"}));
    EXPECT_EQ(lists.soundSources, (Lines{std::string(kNoAlias), "real.eng", "nocab.eng"}));
    EXPECT_TRUE(lists.complete);
    EXPECT_TRUE(fake.dialogs.shown.empty());
}

TEST_F(BuildAliasLists, TakesTheFirstCabViewInListingOrder) {
    addEngine("Two", "two.eng", test::engineText("two", "", "", "b.cvf"));
    write("Two/CABVIEW/b.cvf", "CabViewFile ( x.ace )\n");
    write("Two/CABVIEW/A.CVF", "CabViewFile ( ..\\\\x.ace )\n");
    const AliasLists lists = buildAliasLists(*catalogue, fake.services);
    EXPECT_EQ(lists.notAliased, (Lines{"two.eng"}));
    EXPECT_EQ(lists.cabSources, kNoneYet);
}

TEST_F(BuildAliasLists, StopsAtAFileThatCannotBeReadAndKeepsWhatWasFound) {
    addEngine("A", "a.eng", test::engineText("a", "", "", "a.cvf"));
    std::filesystem::create_directories(path("A/CABVIEW"));
    addEngine("B", "b.eng", test::engineText("b", "", "", "b.cvf"));
    write("B/CABVIEW/b.cvf", "CabViewFile ( x.ace )\n");
    addEngine("C", "c.eng", test::engineText("c", "", "", "c.cvf"));
    std::filesystem::create_directories(path("C/CABVIEW"));
    fake.fs.unreadableNames = {"b.cvf"};
    const AliasLists lists = buildAliasLists(*catalogue, fake.services);
    EXPECT_EQ(lists.notAliased, (Lines{"a.eng"}));
    EXPECT_EQ(lists.soundSources, kNoneYet);  // the sound pass never ran
    EXPECT_FALSE(lists.complete);
    EXPECT_EQ(fake.dialogs.texts(),
              (Lines{"There has been an error while opening the file " + path("B/CABVIEW/b.cvf")}));
}

TEST_F(BuildAliasLists, NeedsAnEngineWithoutCabViewToOpen) {
    addEngine("Gone", "gone.eng", "Wagon ( gone\n)\n");
    fake.fs.unreadableNames = {"gone.eng"};
    const AliasLists lists = buildAliasLists(*catalogue, fake.services);
    EXPECT_FALSE(lists.complete);
    EXPECT_EQ(fake.dialogs.texts(),
              (Lines{"There has been an error while opening the file " + path("Gone/gone.eng")}));
}

TEST_F(BuildAliasLists, SeesOnlyTheEnginesTheCatalogueHolds) {
    addEngine("A", "a.eng", test::engineText("a", "", "", "a.cvf"));
    std::filesystem::create_directories(path("A/CABVIEW"));
    // A record behind the last one may hold the fields of a refused file.
    catalogue->engines[1] = catalogue->engines[0];
    catalogue->engines[1].fileName = "refused.eng";
    EXPECT_EQ(buildAliasLists(*catalogue, fake.services).notAliased, (Lines{"a.eng"}));
}

TEST(RealCabView, AReferenceIntoACommonFolderIsFoundAliased) {
    const std::string file = std::string(RAKEYARD_REALDATA_DIR) +
                             "/cjakeman_Demo-Model-1/TRAINS/TRAINSET/mt_common.cabs/hp/class26/"
                             "Class26.cvf";
    if (!std::filesystem::exists(file))
        GTEST_SKIP() << "no real MSTS content at " << file << " (set RAKEYARD_REALDATA_DIR)";
    test::FakeServices fake;
    EXPECT_TRUE(holdsParentReference(*fake.fs.readFile(file)));
}

TEST(FindAliasEngine, FindsALineInAnyCase) {
    test::AliasFixture fixture;
    fixture.addEngine("A", "Gp38.eng", "Wagon ( gp38\n)\n");
    const EngineRecord* found = findAliasEngine(*fixture.catalogue, "GP38.ENG");
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(found->fileName, "Gp38.eng");
    EXPECT_EQ(findAliasEngine(*fixture.catalogue, "gp39.eng"), nullptr);
    EXPECT_TRUE(listHolds({"a.eng", "Gp38.eng"}, "gP38.ENG"));
    EXPECT_FALSE(listHolds({"a.eng"}, "b.eng"));
}

}  // namespace
}  // namespace rakeyard
