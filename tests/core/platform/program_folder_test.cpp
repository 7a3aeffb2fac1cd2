#include "core/platform/program_folder.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "support/msts_tree.h"

namespace rakeyard {
namespace {

TEST(ChooseProgramFolder, TakesTheOptionThenTheEnvironmentThenTheProgramsFolderThenTheUsers) {
    test::TempFolder temp;
    const std::string writable = temp / "beside";
    std::filesystem::create_directories(writable);
    const std::string user = temp / "user";

    EXPECT_EQ(chooseProgramFolder({temp / "given", temp / "env", writable, user}), temp / "given");
    EXPECT_EQ(chooseProgramFolder({std::nullopt, temp / "env", writable, user}), temp / "env");
    EXPECT_EQ(chooseProgramFolder({std::nullopt, "", writable, user}), writable);
    // A program folder that can't take a file (here: one that does not exist) is passed over.
    EXPECT_EQ(chooseProgramFolder({std::nullopt, "", temp / "missing", user}), user);
    EXPECT_EQ(chooseProgramFolder({std::string(), "", "", user}), user);
    EXPECT_TRUE(std::filesystem::is_empty(writable)) << "the write test leaves nothing behind";
}

TEST(ProgramFolder, IsMadeAndGivenWhole) {
    test::TempFolder temp;
    const std::string folder = programFolder(temp / "a/b/../c/");
    EXPECT_EQ(folder, temp / "a/c");
    EXPECT_TRUE(std::filesystem::is_directory(folder));
}

}  // namespace
}  // namespace rakeyard
