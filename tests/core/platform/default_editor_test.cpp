#include "core/platform/default_editor.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "core/platform/paths.h"
#include "support/msts_tree.h"

namespace fs = std::filesystem;

namespace rakeyard {
namespace {

TEST(WordpadPathForVersion, FollowsThePlatformAndVersion) {
    struct Case {
        unsigned long platform, major, minor;
        std::string expected;
    };
    const std::string nineX = "C:\\Program Files\\Accessories\\wordpad.exe";
    const std::string nt = "C:\\Program Files\\Windows NT\\Accessories\\wordpad.exe";
    const Case cases[] = {
        {1, 4, 0, nineX},
        {1, 4, 10, nineX},
        {1, 4, 90, nineX},
        {1, 4, 50, ""},
        {2, 3, 51, "Not supported"},
        {2, 4, 0, nt},
        {2, 5, 1, nt},
        {2, 6, 2, ""},
        {2, 10, 0, ""},
        {0, 3, 1, "Failed"},
        {3, 5, 0, "Failed"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(wordpadPathForVersion(c.platform, c.major, c.minor), c.expected)
            << c.platform << " " << c.major << "." << c.minor;
    }
}

#ifndef _WIN32
void makeProgram(const std::string& path, bool executable) {
    fs::create_directories(fs::path(path).parent_path());
    std::ofstream(path) << "#!/bin/sh\n";
    fs::permissions(path, executable ? fs::perms::owner_all : fs::perms::owner_read);
}

TEST(FindEditorOnPath, TakesTheFirstEditorByPreferenceThatIsAnExecutableFile) {
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
#endif

}  // namespace
}  // namespace rakeyard
