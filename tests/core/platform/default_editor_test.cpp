#include "core/platform/default_editor.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "core/platform/paths.h"
#include "core/platform/system.h"
#include "support/msts_tree.h"

namespace fs = std::filesystem;

namespace rakeyard {
namespace {

TEST(WordpadPathForVersion, TellsTheWindowsFamiliesApart) {
    EXPECT_EQ(wordpadPathForVersion(1, 4, 10), "C:\\Program Files\\Accessories\\wordpad.exe");
    EXPECT_EQ(wordpadPathForVersion(2, 5, 1),
              "C:\\Program Files\\Windows NT\\Accessories\\wordpad.exe");
    EXPECT_EQ(wordpadPathForVersion(2, 10, 0), "");  // later Windows: no editor preset
    EXPECT_EQ(wordpadPathForVersion(3, 5, 0), "Failed");
}

void makeProgram(const std::string& path, bool executable) {
    fs::create_directories(fs::path(path).parent_path());
    std::ofstream(path) << "#!/bin/sh\n";
    fs::permissions(path, executable ? fs::perms::owner_all : fs::perms::owner_read);
}

TEST(FindEditorOnPath, TakesTheFirstEditorByPreferenceThatIsAnExecutableFile) {
    if (sys::kWindows) GTEST_SKIP() << "Windows takes WordPad by the system's version";
    test::TempFolder temp;
    makeProgram(temp / "one/gedit", false);     // not executable
    fs::create_directories(temp / "one/kate");  // a folder, not a program
    makeProgram(temp / "one/mousepad", true);
    makeProgram(temp / "two/kate", true);
    makeProgram(temp / "two/xdg-open", true);
    const std::string searchPath = temp / "one" + ":" + temp / "two";

    EXPECT_EQ(findEditorOnPath(searchPath), temp / "two/kate");
    EXPECT_EQ(findEditorOnPath(":" + temp / "one"), temp / "one/mousepad");
    EXPECT_EQ(findEditorOnPath(temp / "missing"), "");
    EXPECT_EQ(findEditorOnPath(""), "");
}

}  // namespace
}  // namespace rakeyard
