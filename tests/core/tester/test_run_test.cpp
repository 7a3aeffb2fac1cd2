#include <gmock/gmock.h>

#include "tester_fixture.h"
#include "core/platform/paths.h"

namespace rakeyard::test {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

// A host whose yield runs a step once, as a press of a button does while a run yields.
class ScriptedHost : public TestHost {
public:
    void yield() override {
        ++yields;
        if (yields == pressAt && press) press();
    }
    bool allowsWorkers() const override { return onWorkers; }
    bool yieldsToUser() const override { return onWorkers; }
    int yields = 0;
    int pressAt = 0;
    std::function<void()> press;
    bool onWorkers = false;  // as the window tests: on all cores, yielding between rows
};

class TestRuns : public TesterTest {
protected:
    TestContext scripted() { return {state->paths, state->catalogue, fake.services, scriptedHost}; }
    ScriptedHost scriptedHost;
};

TEST_F(TestRuns, SectionRowsFollowTheFilterAndTheCountsTheyKeep) {
    addEngine("A", "a.eng", soundEngine("a"), true, "Alpha");
    addEngine("B", "b.eng", soundEngine("b"), true, "Beta");
    state->catalogue.engines[1].hasCab = false;
    run.counts.errorCount = 7;
    run.counts.categories[2] = 3;
    run.counts.levels[1] = 2;
    run.testedShapes = {"x.s"};
    fillSection(run, context(), TestSection::Engines, "AI");
    EXPECT_THAT(run.rows, ElementsAre("Beta" + std::string(40, ' ') + "^b.eng"));
    EXPECT_EQ(run.countText, "Found 1 engines");
    EXPECT_FALSE(run.cabViewsEnabled);
    EXPECT_EQ(run.testMode, "eng");
    // Errors and categories stay; levels and logs go.
    EXPECT_EQ(run.counts.errorCount, 7);
    EXPECT_EQ(run.counts.categories[2], 3);
    EXPECT_EQ(run.counts.levels[1], 0);
    EXPECT_THAT(run.testedShapes, IsEmpty());

    fillSection(run, context(), TestSection::Engines, "All");
    EXPECT_EQ(run.rows.size(), 2u);
    EXPECT_TRUE(run.cabViewsEnabled);
}

TEST_F(TestRuns, NothingSelectedIsToldAndNothingDeleted) {
    addEngine("A", "a.eng", soundEngine("a"));
    msts.writeBytes("../home/Reports/EngSyntax.txt", "old");
    fillSection(run, context(), TestSection::Engines, "All");
    EXPECT_FALSE(runTests(run, context()));
    EXPECT_EQ(fake.dialogs.texts(),
              std::vector<std::string>{"You must select at least one item to test!"});
    EXPECT_EQ(report("EngSyntax.txt"), "old");
}

TEST_F(TestRuns, ARunDeletesOnlyItsSectionsReportsAndThoseOfItsOptions) {
    addEngine("A", "a.eng", soundEngine("a"));
    for (const char* name : {"EngSyntax.txt", "EngSounds.txt", "EngCabViews.txt",
                             "EngDuplicate.txt", "WagSyntax.txt", "ActMissing.txt"})
        msts.writeBytes(std::string("../home/Reports/") + name, "old");
    fillSection(run, context(), TestSection::Engines, "All");
    selectAllRows(run, true);
    run.duplicates = true;
    EXPECT_FALSE(runTests(run, context())) << "no errors: no reports to offer";
    EXPECT_FALSE(reportExists("EngSyntax.txt"));
    EXPECT_FALSE(reportExists("EngDuplicate.txt"));
    EXPECT_TRUE(reportExists("EngSounds.txt")) << "the sound option was off";
    EXPECT_TRUE(reportExists("EngCabViews.txt"));
    EXPECT_TRUE(reportExists("WagSyntax.txt"));
    EXPECT_TRUE(anyReportExists(state->paths, fake.fs));
    deleteAllReports(state->paths, fake.fs);
    EXPECT_FALSE(anyReportExists(state->paths, fake.fs)) << "activity reports are not looked at";
    EXPECT_TRUE(reportExists("ActMissing.txt"));
}

// Rows are matched to records by their text: two units alike in name and file, in two
// folders, both test the first.
TEST_F(TestRuns, RowsAreTestedByTheFirstRecordTheirTextNames) {
    addEngine("A", "gp.eng", "Wagon ( gp x\n)\n", false, "Twin");
    addEngine("B", "gp.eng", soundEngine("gp"), true, "Twin");
    fillSection(run, context(), TestSection::Engines, "All");
    ASSERT_EQ(run.rows[0], run.rows[1]);
    selectAllRows(run, true);
    EXPECT_TRUE(runTests(run, context()));
    // Both rows test folder A's engine: its two findings twice, and B's shape is never looked at.
    EXPECT_EQ(run.counts.errorCount, 4);
    EXPECT_EQ(run.counts.filesTested, 0);
    EXPECT_EQ(run.unitShown, "A" + std::string(1, kPathSeparator) + "gp.eng");
}

TEST_F(TestRuns, DuplicatesAreEveryPairInWalkOrderOverTheWholeCatalogue) {
    addEngine("A", "gp.eng", soundEngine("gp"));
    addEngine("B", "gp.eng", soundEngine("gp"));
    addEngine("C", "GP.eng", soundEngine("GP"));  // another case: no duplicate
    addEngine("D", "gp.eng", soundEngine("gp"));
    addEngine("E", "other.eng", soundEngine("other"), true, "Other");
    fillSection(run, context(), TestSection::Engines, "All");
    run.selected.back() = 1;  // only "Other" is tested
    run.duplicates = true;
    EXPECT_TRUE(runTests(run, context()));
    const std::string sep(1, kPathSeparator);
    auto block = [&](const char* a, const char* b) {
        return std::string("The Engine\t..") + sep + a + sep + "gp.eng\r\nhas the same file name "
               "as\r\n\t.." + sep + b + sep + "gp.eng\r\n" + std::string(40, '-') + "\r\n";
    };
    EXPECT_EQ(report("EngDuplicate.txt"), block("A", "B") + block("A", "D") + block("B", "D"));
    EXPECT_EQ(run.counts.errorCount, 3);
    EXPECT_EQ(run.counts.levels, (std::array<long long, 3>{}));
    EXPECT_EQ(run.counts.categories, (std::array<long long, 6>{}));
}

// Stop refills the rows, so the walk ends after the unit under test; the categories found so
// far stay, and the duplicate check still runs afterwards.
TEST_F(TestRuns, StopEndsTheWalkKeepsWhatWasFoundAndStillChecksDuplicates) {
    addEngine("A", "a.eng", "Wagon ( a b\n)\n", false, "Alpha");
    addEngine("B", "b.eng", "Wagon ( b c\n)\n", false, "Beta");
    addEngine("C", "a.eng", soundEngine("a"), true, "Gamma");
    fillSection(run, context(), TestSection::Engines, "All");
    selectAllRows(run, true);
    run.duplicates = true;
    scriptedHost.pressAt = 5;  // after the first unit's faulty line
    scriptedHost.press = [&] { stopTests(run, scripted(), "All"); };
    EXPECT_TRUE(runTests(run, scripted()));
    EXPECT_THAT(run.selected, ElementsAre(0, 0, 0));
    EXPECT_THAT(report("EngSyntax.txt"), HasSubstr("a b"));
    EXPECT_THAT(report("EngSyntax.txt"), ::testing::Not(HasSubstr("b c")));
    EXPECT_EQ(run.counts.categories[0], 1);
    EXPECT_EQ(run.counts.categories[5], 1);
    EXPECT_EQ(run.counts.levels, (std::array<long long, 3>{})) << "the press cleared the levels";
    EXPECT_TRUE(reportExists("EngDuplicate.txt"));
    EXPECT_EQ(run.counts.errorCount, 3);
}

// Stop between consists refills the section: the failed lists empty, so the window offers no
// deletion of what had failed.
TEST_F(TestRuns, ConsistsStopBetweenFilesAndTheFailedGoToTheTrashFromTheirFolderOnly) {
    for (const char* name : {"a.con", "b.con", "c.con"})
        msts.write(std::string("TRAINS/CONSISTS/") + name,
                   "\nTrain (\n\t\tEngineData ( gone gone )\n)");
    fillSection(run, context(), TestSection::Consists, "All");
    EXPECT_THAT(run.rows, ElementsAre("a.con", "b.con", "c.con"));
    EXPECT_EQ(run.countText, "Found 3 consists");
    selectAllRows(run, true);
    EXPECT_TRUE(runTests(run, context()));
    EXPECT_THAT(run.testedSounds, ElementsAre("a.con", "b.con", "c.con"));

    fillSection(run, context(), TestSection::Consists, "All");
    selectAllRows(run, true);
    scriptedHost.pressAt = 4;  // within the first consist's lines
    scriptedHost.press = [&] { stopTests(run, scripted(), "All"); };
    EXPECT_TRUE(runTests(run, scripted()));
    EXPECT_THAT(run.failed, IsEmpty());
    EXPECT_EQ(run.counts.errorCount, 1);

    run.testedSounds = {"b.con", "../outside.con", "a.con", ""};
    deleteFailedConsists(run, context());
    EXPECT_THAT(fake.desktop.trashed, ElementsAre(HasSubstr("b.con"), HasSubstr("a.con")));
    EXPECT_THAT(run.testedSounds, IsEmpty());
    EXPECT_EQ(consistOfRow(context(), "c.CON"), msts.consists() + kPathSeparator + "c.CON");
    EXPECT_EQ(consistOfRow(context(), "own.wav"), std::nullopt);
}

// With no window the rows are tested on all cores: the reports, logs and counts must be those
// of the run on one thread, record for record.
TEST_F(TestRuns, ARunOnAllCoresWritesWhatARunOnOneThreadWrites) {
    for (int i = 0; i < 40; ++i) {
        const std::string name = "u" + std::to_string(i);
        addEngine("F" + std::to_string(i % 7), name + ".eng",
                  i % 3 ? soundEngine(name) : "Wagon ( " + name + " x\n\tMass ( 1t\n)\n",
                  i % 5 != 0, "Unit " + name);
    }
    const auto testAll = [&](const TestContext& test) {
        run = TestRun{};
        fillSection(run, test, TestSection::Engines, "All");
        selectAllRows(run, true);
        run.duplicates = true;
        (void)runTests(run, test);
        return std::make_pair(run, report("EngSyntax.txt") + report("EngShapes.txt"));
    };
    const auto [onCores, coresReports] = testAll(context());
    scriptedHost.pressAt = -1;
    const auto [onOne, oneReports] = testAll(scripted());
    EXPECT_EQ(coresReports, oneReports);
    EXPECT_GT(onCores.counts.errorCount, 20);
    EXPECT_EQ(onCores.counts.errorCount, onOne.counts.errorCount);
    EXPECT_EQ(onCores.counts.categories, onOne.counts.categories);
    EXPECT_EQ(onCores.testedShapes, onOne.testedShapes);
    EXPECT_EQ(onCores.filesTestedText, onOne.filesTestedText);
}

// On all cores with a window, Stop acts between two rows: what is written is what the run on
// one thread wrote up to the last row added, and the rows tested ahead leave no trace.
TEST_F(TestRuns, StopOnAllCoresWritesAPrefixOfTheWholeRun) {
    for (int i = 0; i < 300; ++i) {
        const std::string name = "u" + std::to_string(i);
        addEngine("F", name + ".eng", "Wagon ( " + name + " x\n)\n", false, "Unit " + name);
    }
    addEngine("G", "u0.eng", "Wagon ( u0 x\n)\n", false, "Twin");
    fillSection(run, context(), TestSection::Engines, "All");
    selectAllRows(run, true);
    (void)runTests(run, context());
    const std::string whole = report("EngSyntax.txt");

    fillSection(run, context(), TestSection::Engines, "All");
    selectAllRows(run, true);
    run.duplicates = true;
    scriptedHost.onWorkers = true;
    scriptedHost.pressAt = 3;
    scriptedHost.press = [&] { stopTests(run, scripted(), "All"); };
    (void)runTests(run, scripted());
    const std::string part = report("EngSyntax.txt");
    EXPECT_FALSE(part.empty());
    EXPECT_LT(part.size(), whole.size());
    EXPECT_EQ(whole.substr(0, part.size()), part);
    EXPECT_EQ(run.counts.categories[0], run.counts.categories[5]);
    EXPECT_THAT(run.selected, ::testing::Each(0));
    EXPECT_TRUE(reportExists("EngDuplicate.txt")) << "the duplicate check runs after a Stop";
}

TEST_F(TestRuns, ReportsByModeAndCategory) {
    EXPECT_EQ(reportName("eng", 7), "EngShapes.txt");
    EXPECT_EQ(reportName("eng", 4), "EngCabViews.txt");
    EXPECT_EQ(reportName("wag", 4), std::nullopt);
    EXPECT_EQ(reportName("con", 3), std::nullopt);
    EXPECT_EQ(reportName("act", 1), "ActMissing.txt");
    EXPECT_EQ(reportName("eng", 0), std::nullopt);
    EXPECT_EQ(reportName("eng", 8), std::nullopt);
    EXPECT_EQ(reportName("", 1), std::nullopt);

    run.testMode = "wag";
    writeErrorByType(run, state->paths, fake.fs, "[X]\r\nlost", 4);
    EXPECT_EQ(run.counts.categories, (std::array<long long, 6>{})) << "no report: no count";
    run.testMode = "eng";
    writeErrorByType(run, state->paths, fake.fs, "[X]\r\ncab", 4);
    EXPECT_EQ(report("EngCabViews.txt"), "[X]\r\ncab\r\n" + std::string(40, '-') + "\r\n");
    EXPECT_EQ(run.counts.categories[2], 1);

    EXPECT_EQ(reportOfKind("wag", 3), std::nullopt);
    EXPECT_EQ(reportOfKind("con", 2), std::nullopt);
    EXPECT_EQ(reportOfKind("eng", 6), "EngDuplicate.txt");
    EXPECT_THAT(existingReports(state->paths, fake.fs, "eng"), ElementsAre("EngCabViews.txt"));
}

}  // namespace
}  // namespace rakeyard::test
