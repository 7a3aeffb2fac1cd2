#include "core/platform/local_file_system.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <thread>

#include "core/platform/paths.h"
#include "core/platform/system.h"
#include "core/platform/text_utf.h"
#include "support/fakes.h"
#include "support/msts_tree.h"

namespace fs = std::filesystem;

namespace rakeyard {
namespace {

void writeText(const std::string& path, std::string_view text) {
    fs::create_directories(fs::path(path).parent_path());
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out.write(text.data(), static_cast<std::streamsize>(text.size()));
}

// The names in a folder as the disk has them, sorted plainly.
std::vector<std::string> namesIn(const std::string& folder) {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder))
        names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

// Makes a folder's last change old enough for the cache to keep its listing. Windows' C runtime
// sets no folder's time: there the listing is read anew each time, and every result must be the
// same.
void ageFolder(const std::string& folder) {
    std::error_code ec;
    fs::last_write_time(folder, fs::file_time_type::clock::now() - std::chrono::hours(1), ec);
}

std::string native(std::string_view path) {
    return nativeSeparators(path);
}

TEST(ListFolder, SortsByUpperCasedNameThenExactNameSoUnderscoreFollowsLetters) {
    test::TempFolder temp;
    const bool caseApart = test::keepsCaseApart(temp.path());
    for (const char* name : {"b", "_x", "A", "a", "Z", "1", "a_b", "ab"})
        writeText(temp / name, name);
    fs::create_directory(temp / "Folder");

    LocalFileSystem files;
    std::vector<std::string> names;
    for (const DirEntry& entry : files.listFolder(temp.path()))
        names.push_back(entry.name);

    std::vector<std::string> expected{"1", "A", "a", "ab", "a_b", "b", "Folder", "Z", "_x"};
    if (!caseApart) expected.erase(expected.begin() + 2);  // "a" was written into "A"
    EXPECT_EQ(names, expected);
}

TEST(ListFolder, TellsFoldersAndFileSizesAndIsEmptyForAMissingFolder) {
    test::TempFolder temp;
    writeText(temp / "sub/file.txt", "12345");
    LocalFileSystem files;

    const std::vector<DirEntry> top = files.listFolder(temp.path());
    ASSERT_EQ(top.size(), 1u);
    EXPECT_TRUE(top[0].isFolder);
    const std::vector<DirEntry> sub = files.listFolder(temp / "SUB");
    ASSERT_EQ(sub.size(), 1u);
    EXPECT_FALSE(sub[0].isFolder);
    EXPECT_EQ(files.fileSize(temp / "sub/FILE.TXT"), 5u);
    EXPECT_TRUE(files.listFolder(temp / "missing").empty());
}

TEST(ListFolder, RealTrainsetIsListedInOrder) {
    const std::string trainset =
        std::string(RAKEYARD_REALDATA_DIR) + "/cjakeman_Demo-Model-1/TRAINS/TRAINSET";
    if (!fs::is_directory(trainset))
        GTEST_SKIP() << "no real MSTS content at " << trainset << " (set RAKEYARD_REALDATA_DIR)";
    LocalFileSystem files;
    const std::vector<DirEntry> entries = files.listFolder(trainset);
    ASSERT_GT(entries.size(), 1u);
    for (std::size_t i = 1; i < entries.size(); ++i) {
        const std::string a = upperAscii(entries[i - 1].name);
        const std::string b = upperAscii(entries[i].name);
        EXPECT_TRUE(a < b || (a == b && entries[i - 1].name < entries[i].name))
            << entries[i - 1].name << " before " << entries[i].name;
    }
}

// A path given and the path it resolves to, under the test's folder.
struct PathCase {
    std::string given;
    std::string expected;
};

class Resolve : public ::testing::Test {
protected:
    void SetUp() override {
        writeText(temp / "Trains/Trainset/GP38/gp38.eng", "x");
        writeText(temp / "Trains/Consists/a.con", "x");
        fs::create_directories(temp / "Twin/case");
        fs::create_directories(temp / "Twin/CASE");  // the same folder where case is not kept
    }
    test::TempFolder temp;
    LocalFileSystem files;
};

TEST_F(Resolve, MatchesEachPartWithoutRegardToCaseAndWithEitherSeparator) {
    const std::string root = temp.path();
    const PathCase cases[] = {
        {root + "\\TRAINS\\TRAINSET\\gp38\\GP38.ENG", "Trains/Trainset/GP38/gp38.eng"},
        {root + "/trains/trainset/Gp38/Gp38.Eng", "Trains/Trainset/GP38/gp38.eng"},
        {root + "/trains\\TRAINSET/gp38\\gp38.eng", "Trains/Trainset/GP38/gp38.eng"},
        {root + "//trains\\\\consists//A.CON", "Trains/Consists/a.con"},
        // Parts below a missing one are kept as given.
        {root + "\\trains\\NoSuch\\gp38\\GP38.ENG", "Trains/NoSuch/gp38/GP38.ENG"},
        {root + "\\trains\\trainset\\new.con", "Trains/Trainset/new.con"},
        {root + "/trains/trainset/", "Trains/Trainset/"},
    };
    for (const PathCase& c : cases) {
        EXPECT_EQ(files.resolve(c.given), native(root + "/" + c.expected)) << c.given;
    }
}

TEST_F(Resolve, TakesTheExactNameWhereTwoDifferOnlyInCaseElseTheFirstListed) {
    if (!test::keepsCaseApart(temp.path())) GTEST_SKIP() << "this file system takes both for one name";
    const std::string root = temp.path();
    const PathCase cases[] = {
        {root + "/twin/case", "Twin/case"},
        {root + "/twin/CASE", "Twin/CASE"},
        {root + "/twin/Case", "Twin/CASE"},
    };
    for (const PathCase& c : cases) {
        EXPECT_EQ(files.resolve(c.given), native(root + "/" + c.expected)) << c.given;
    }
}

TEST_F(Resolve, EveryOtherMethodFindsTheFileInAnyCase) {
    const std::string wrongCase = temp.path() + "\\TRAINS\\trainset\\gp38\\GP38.ENG";
    EXPECT_TRUE(files.isFile(wrongCase));
    EXPECT_FALSE(files.isFolder(wrongCase));
    EXPECT_TRUE(files.isFolder(temp.path() + "\\TRAINS\\trainset"));
    EXPECT_EQ(files.fileSize(wrongCase), 1u);
    EXPECT_EQ(files.readFile(wrongCase), "x");
    EXPECT_EQ(files.listFolder(temp.path() + "/TRAINS/TRAINSET/gp38").size(), 1u);

    ASSERT_TRUE(files.writeFile(wrongCase, "new"));
    EXPECT_EQ(namesIn(temp / "Trains/Trainset/GP38"), std::vector<std::string>{"gp38.eng"});
    EXPECT_EQ(test::readWholeFile(temp / "Trains/Trainset/GP38/gp38.eng"), "new");

    ASSERT_TRUE(files.appendFile(wrongCase, "er"));
    EXPECT_EQ(test::readWholeFile(temp / "Trains/Trainset/GP38/gp38.eng"), "newer");
    EXPECT_TRUE(files.removeFile(wrongCase));
    EXPECT_FALSE(fs::exists(temp / "Trains/Trainset/GP38/gp38.eng"));
}

TEST_F(Resolve, SeesAFolderRenamedBehindItsBack) {
    if (!test::renamesCase(temp.path())) GTEST_SKIP() << "no rename changes a name's case here";
    ageFolder(temp / "Trains/Trainset");
    EXPECT_EQ(files.resolve(temp / "trains/trainset/gp38"),
              native(temp.path() + "/Trains/Trainset/GP38"));
    // The rename changes the folder's modification time, which the cached listing is checked
    // against.
    fs::rename(temp / "Trains/Trainset/GP38", temp / "Trains/Trainset/Gp38");
    EXPECT_EQ(files.resolve(temp / "trains/trainset/gp38"),
              native(temp.path() + "/Trains/Trainset/Gp38"));
}

TEST_F(Resolve, SeesWhatItCreatedItself) {
    ageFolder(temp / "Trains/Consists");
    EXPECT_FALSE(files.isFile(temp / "trains/consists/B.con"));
    ASSERT_TRUE(files.writeFile(temp / "Trains/Consists/b.con", "x"));
    EXPECT_TRUE(files.isFile(temp / "trains/consists/B.con"));
    ASSERT_TRUE(files.createFolder(temp / "trains/consists/New/Deeper"));
    EXPECT_TRUE(fs::is_directory(temp / "Trains/Consists/New/Deeper"));
    EXPECT_TRUE(files.isFolder(temp / "TRAINS/CONSISTS/NEW/deeper"));
}

TEST_F(Resolve, RenameKeepsTheNewNamesCaseAndReplacesOnlyThatExactName) {
    ageFolder(temp / "Trains/Trainset/GP38");
    writeText(temp / "Trains/Trainset/GP38/gp38.eng.bk", "backup");
    if (!test::renamesCase(temp.path())) GTEST_SKIP() << "no rename changes a name's case here";
    const bool caseApart = test::keepsCaseApart(temp / "Trains/Trainset/GP38");
    ASSERT_TRUE(files.renameFile(temp / "trains/trainset/gp38/GP38.ENG.BK",
                                 temp / "trains/trainset/gp38/GP38.ENG"));
    std::vector<std::string> names;
    for (const DirEntry& entry : files.listFolder(temp / "Trains/Trainset/GP38"))
        names.push_back(entry.name);
    // Where case is not kept apart, the file of the other case is the one replaced.
    const std::vector<std::string> expected =
        caseApart ? std::vector<std::string>{"GP38.ENG", "gp38.eng"}
                  : std::vector<std::string>{"GP38.ENG"};
    EXPECT_EQ(names, expected);
    writeText(temp / "Trains/Trainset/GP38/new", "newer");
    ASSERT_TRUE(files.renameFile(temp / "Trains/Trainset/GP38/new",
                                 temp / "Trains/Trainset/GP38/GP38.ENG"));
    EXPECT_EQ(test::readWholeFile(temp / "Trains/Trainset/GP38/GP38.ENG"), "newer");
    EXPECT_FALSE(files.renameFile(temp / "Trains/Trainset/GP38/gone", temp / "x"));
}

TEST_F(Resolve, TellsALinkFromWhatItPointsTo) {
    std::error_code ec;
    fs::create_directory_symlink(temp / "Trains/Consists", temp / "Trains/Trainset/GP38/CABVIEW",
                                 ec);
    if (ec) GTEST_SKIP() << "no symbolic link can be made here: " << ec.message();
    EXPECT_TRUE(files.isLink(temp / "trains/trainset/gp38/cabview"));
    EXPECT_TRUE(files.isFolder(temp / "trains/trainset/gp38/cabview"));
    EXPECT_FALSE(files.isLink(temp / "Trains/Consists"));
    EXPECT_FALSE(files.isLink(temp / "Trains/missing"));
}

TEST(ResolveRealData, FindsAUnitFileWhoseNameDiffersInCaseFromItsFolder) {
    const std::string root = std::string(RAKEYARD_REALDATA_DIR) + "/cjakeman_Demo-Model-1";
    const std::string onDisk =
        root + "/TRAINS/TRAINSET/mt_dd_class_27_27207/MT_DD_CLASS_27_27207.eng";
    if (!fs::exists(onDisk))
        GTEST_SKIP() << "no real MSTS content at " << onDisk << " (set RAKEYARD_REALDATA_DIR)";
    LocalFileSystem files;
    EXPECT_EQ(
        files.resolve(root + "\\trains\\trainset\\MT_DD_CLASS_27_27207\\mt_dd_class_27_27207.ENG"),
        native(onDisk));
}

class SafeWriter : public ::testing::Test {
protected:
    test::TempFolder temp;
    test::FailingFileSystem files;
    const std::string target = temp / "unit.eng";
    const std::string oldText = "the old file, whole";
};

TEST_F(SafeWriter, FailureAtAnyByteLeavesTheOldFileWholeAndNoTemporaryFile) {
    writeText(target, oldText);
    // Long enough for the writer to go through more than one chunk.
    std::string newText(200000, 'n');
    for (std::size_t i = 0; i < newText.size(); i += 7)
        newText[i] = static_cast<char>('a' + i % 26);
    for (std::size_t failAt : {std::size_t{0}, std::size_t{1}, std::size_t{65536},
                               std::size_t{65537}, std::size_t{150000}, newText.size() - 1}) {
        files.failAfterBytes = failAt;
        const WriteResult result = files.writeFile(target, newText);
        EXPECT_FALSE(result.ok) << failAt;
        EXPECT_EQ(result.message, "No space left on device") << failAt;
        EXPECT_EQ(test::readWholeFile(target), oldText) << failAt;
        EXPECT_EQ(namesIn(temp.path()), std::vector<std::string>{"unit.eng"}) << failAt;
    }
    files.failAfterBytes = newText.size();
    EXPECT_TRUE(files.writeFile(target, newText));
    EXPECT_EQ(test::readWholeFile(target), newText);
    EXPECT_EQ(namesIn(temp.path()), std::vector<std::string>{"unit.eng"});
}

TEST_F(SafeWriter, FailedFirstWriteLeavesNoFileAtAll) {
    files.failAfterBytes = 3;
    EXPECT_FALSE(files.writeFile(target, "abcdef"));
    EXPECT_TRUE(namesIn(temp.path()).empty());
}

TEST_F(SafeWriter, TargetThatCannotBeReplacedIsToldAndLeavesNothingBehind) {
    fs::create_directory(temp / "unit.eng");
    const WriteResult intoFolder = files.writeFile(target, "abc");
    EXPECT_FALSE(intoFolder.ok);
    EXPECT_FALSE(intoFolder.message.empty());
    EXPECT_EQ(namesIn(temp.path()), std::vector<std::string>{"unit.eng"});

    const WriteResult missingFolder = files.writeFile(temp / "nowhere/unit.eng", "abc");
    EXPECT_FALSE(missingFolder.ok);
    EXPECT_EQ(missingFolder.message, "No such file or directory");
}

TEST_F(SafeWriter, WritesAFileWhoseNameIsAsLongAsTheFolderAllows) {
    const std::string longName = temp / std::string(250, 'n');
    writeText(longName, oldText);
    ASSERT_TRUE(files.writeFile(longName, "new"));
    EXPECT_EQ(test::readWholeFile(longName), "new");
    EXPECT_EQ(namesIn(temp.path()).size(), 1u);
}

TEST_F(SafeWriter, AReadOnlyFileIsRefusedByNameAndKeptWhole) {
    writeText(target, oldText);
    fs::permissions(target, fs::perms::owner_read | fs::perms::group_read);
    const WriteResult result = files.writeFile(target, "new");
    EXPECT_FALSE(result.ok);
    EXPECT_EQ(result.message, "The file " + target + " is read-only.");
    EXPECT_EQ(test::readWholeFile(target), oldText);
    EXPECT_EQ(namesIn(temp.path()), std::vector<std::string>{"unit.eng"});
}

TEST_F(SafeWriter, ReplacedFileKeepsItsPermissions) {
    writeText(target, oldText);
    // Windows keeps no more than a read-only mark: there every writable file reads as 0666.
    fs::permissions(target, fs::perms::owner_read | fs::perms::owner_write);
    const fs::perms before = fs::status(target).permissions();
    ASSERT_TRUE(files.writeFile(target, "new"));
    EXPECT_EQ(fs::status(target).permissions(), before);
}

TEST_F(SafeWriter, TwoWritersOfOneFileNeverSpoilEachOther) {
    const std::string first(100000, 'a');
    const std::string second(70000, 'b');
    for (int round = 0; round < 200; ++round) {
        std::atomic<int> failures{0};
        const auto save = [&](const std::string& text) {
            LocalFileSystem own;  // each writer its own, as two programs would be
            if (!own.writeFile(target, text)) ++failures;
        };
        std::thread one(save, first);
        std::thread two(save, second);
        one.join();
        two.join();
        ASSERT_EQ(failures, 0) << "round " << round;
        const std::string saved = test::readWholeFile(target);
        ASSERT_TRUE(saved == first || saved == second) << "round " << round;
        ASSERT_EQ(namesIn(temp.path()), std::vector<std::string>{"unit.eng"}) << "round " << round;
    }
}

TEST_F(SafeWriter, TwoProcessesWritingOneFileLeaveItWholeAndNoTemporary) {
    const auto writeInCopy = [this] {
        return LocalFileSystem().writeFile(target, std::string(50000, 'c')).ok ? 0 : 1;
    };
    for (int round = 0; round < 50; ++round) {
        const long copy = sys::startCopyOfProcess(writeInCopy);
        if (copy < 0) GTEST_SKIP() << "this system makes no copy of a running process";
        const bool written = LocalFileSystem().writeFile(target, std::string(60000, 'p')).ok;
        ASSERT_TRUE(written && sys::waitForCopy(copy) == 0) << round;
        const std::string saved = test::readWholeFile(target);
        ASSERT_TRUE(saved == std::string(50000, 'c') || saved == std::string(60000, 'p'));
        ASSERT_EQ(namesIn(temp.path()), std::vector<std::string>{"unit.eng"}) << round;
    }
}

TEST_F(SafeWriter, TemporariesOfProcessesThatAreGoneAreRemovedOthersKept) {
    // No process can have a number above Linux's largest, 2^22, and Windows gives none so high.
    // Process 1 always runs on Linux; no process but this one is sure to run on Windows.
    const std::string running = std::to_string(sys::kWindows ? sys::currentProcess() : 1);
    writeText(temp / "~rakeyard4194400-3.tmp", "left by a killed run");
    writeText(temp / ("~rakeyard" + running + "-0.tmp"), "a running process is writing this");
    writeText(temp / "~rakeyardnotes.tmp", "not one of ours");
    ASSERT_TRUE(files.writeFile(target, "new"));
    const std::vector<std::string> kept{"unit.eng", "~rakeyard" + running + "-0.tmp",
                                        "~rakeyardnotes.tmp"};
    EXPECT_EQ(namesIn(temp.path()), kept);
}

TEST(ProcessRuns, TellsThisProcessFromOneThatIsGone) {
    EXPECT_TRUE(sys::processRuns(sys::currentProcess()));
    EXPECT_FALSE(sys::processRuns(4194400));
}

TEST(LocalFileSystem, ReadsIntoOneBufferFileAfterFileNothingOfTheLastOneStays) {
    test::TempFolder temp;
    LocalFileSystem files;
    writeText(temp / "long.eng", std::string(100000, 'l'));
    writeText(temp / "short.eng", "short");
    writeText(temp / "limit.eng", std::string(64, 'x'));
    fs::create_directory(temp / "folder.eng");

    std::string bytes;
    EXPECT_EQ(files.readFileInto(temp / "LONG.ENG", 100000, bytes), ReadOutcome::Read);
    EXPECT_EQ(bytes, std::string(100000, 'l'));
    EXPECT_EQ(files.readFileInto(temp / "short.eng", 100000, bytes), ReadOutcome::Read);
    EXPECT_EQ(bytes, "short");
    EXPECT_EQ(files.readFileInto(temp / "limit.eng", 63, bytes), ReadOutcome::TooLarge);
    EXPECT_EQ(bytes, "");
    EXPECT_EQ(files.readFileInto(temp / "limit.eng", 64, bytes), ReadOutcome::Read);
    EXPECT_EQ(files.readFileInto(temp / "missing.eng", 64, bytes), ReadOutcome::Unreadable);
    EXPECT_EQ(bytes, "");
    EXPECT_EQ(files.readFileInto(temp / "limit.eng", 64, bytes), ReadOutcome::Read);
    EXPECT_EQ(files.readFileInto(temp / "folder.eng", 64, bytes), ReadOutcome::Unreadable);
    EXPECT_EQ(bytes, "");
}

TEST(LocalFileSystem, SmallOperationsReportWhatHappened) {
    test::TempFolder temp;
    LocalFileSystem files;
    fs::create_directory(temp / "folder");

    EXPECT_EQ(files.readFile(temp / "missing"), std::nullopt);
    EXPECT_EQ(files.readFile(temp / "folder"), std::nullopt);
    EXPECT_EQ(files.fileSize(temp / "folder"), std::nullopt);
    EXPECT_FALSE(files.removeFile(temp / "missing"));
    EXPECT_FALSE(files.removeFile(temp / "folder"));  // folders go to the bin, not through here
    EXPECT_TRUE(fs::is_directory(temp / "folder"));
    EXPECT_FALSE(files.isFile(""));
    EXPECT_FALSE(files.createFolder(""));

    ASSERT_TRUE(files.appendFile(temp / "log.txt", "one\n"));
    ASSERT_TRUE(files.appendFile(temp / "LOG.TXT", "two\n"));
    EXPECT_EQ(files.readFile(temp / "log.txt"), "one\ntwo\n");
    EXPECT_FALSE(files.appendFile(temp / "nowhere/log.txt", "x"));
    ASSERT_TRUE(files.writeFile(temp / "empty.bin", ""));
    EXPECT_EQ(files.fileSize(temp / "empty.bin"), 0u);
}

}  // namespace
}  // namespace rakeyard
