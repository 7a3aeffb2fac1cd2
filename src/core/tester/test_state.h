#pragma once
#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/msts/unit_record.h"
#include "core/platform/services.h"
#include "core/settings/settings_record.h"

namespace rakeyard {

enum class TestSection { Engines, Wagons, Consists };
// The report family of a section: "eng", "wag" or "con".
[[nodiscard]] constexpr std::string_view testModeOf(TestSection section) {
    return section == TestSection::Engines ? "eng" : section == TestSection::Wagons ? "wag" : "con";
}
enum class ErrorLevel { Minor = 0, Serious = 1, Critical = 2 };
// A finding's category as the reports take it: 7 is a shape of a freight animation.
enum class ErrorCategory {
    Missing = 1,
    Syntax = 2,
    Shapes = 3,
    Cabview = 4,
    Sounds = 5,
    Others = 6,
    AnimationShape = 7
};

// The six category counters in the order the tester shows them.
inline constexpr std::array<std::string_view, 6> kCategoryNames = {
    "Syntax", "Missing", "Cabview", "Sounds", "Shapes", "Others"};

// Where a test run lets the window breathe: between the lines and files it reads. A press of
// Stop runs there and changes the run's rows, which the walk reads again after each yield.
class TestHost {
public:
    virtual ~TestHost() = default;
    virtual void yield() = 0;
    // Whether rows may be tested on worker threads. A host that yields to a user then has its
    // yield called between the rows' outcomes rather than between lines, and a press of Stop
    // acts there.
    virtual bool allowsWorkers() const { return false; }
    virtual bool yieldsToUser() const { return false; }
};
class NoYield : public TestHost {
public:
    void yield() override {}
    bool allowsWorkers() const override { return true; }
};

struct TestCounts {
    long long filesTested = 0;
    long long errorCount = 0;  // findings written, and duplicate pairs
    std::array<long long, 3> levels{};      // by ErrorLevel
    std::array<long long, 6> categories{};  // in kCategoryNames order
};

// The state of the tester window, plain, so that the CLI and tests run it with no window.
struct TestRun {
    std::string testMode;  // "eng", "wag", "con" or "act"; "" before any section was chosen
    std::optional<TestSection> section;
    std::vector<std::string> rows;  // "display name" + 40 blanks + "^" + file name
    std::vector<char> selected;     // one flag a row: the user's choice of what to test
    bool cabViews = false;          // Check1
    bool sounds = false;            // Check2
    bool duplicates = false;        // Check3
    bool cabViewsEnabled = true;
    TestCounts counts;
    std::vector<std::string> testedShapes;  // logs of what was looked at, not caches
    std::vector<std::string> testedSounds;
    std::vector<std::string> failed;
    std::string unitShown;        // the unit under test: folder and file name
    std::string filesTestedText;  // "12 files tested"
    std::string countText;        // "Found 25 engines"
    bool errorsFound = false;     // the error mark beside the counters
    bool stopRequested = false;
    bool running = false;
};

// What a test reads and where it tells: the catalogue, the paths, the services, the host.
struct TestContext {
    const PathGlobals& paths;
    const UnitCatalogue& catalogue;
    Services& services;
    TestHost& host;
};

}  // namespace rakeyard
