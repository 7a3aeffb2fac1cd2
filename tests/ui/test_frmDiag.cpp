// The tester's window driven through its controls on a small installation.
#include <QCheckBox>
#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <filesystem>

#include "core/app/app_state.h"
#include "support/fakes.h"
#include "support/msts_tree.h"
#include "ui/widgets/log_list.h"
#include "ui/windows/frmDiag.h"
#include "ui/windows/frmErrTyp.h"

using namespace rakeyard;

namespace {

struct TesterWindow {
    test::MstsTree msts;
    test::FakeServices fake;
    std::unique_ptr<AppState> state = std::make_unique<AppState>();

    TesterWindow() {
        state->paths.programFolder = msts.home();
        state->paths.mstsPath = msts.msts();
        state->paths.consistsPath = msts.consists();
        state->paths.trainsetPath = msts.trainset();
        state->paths.editorPath = "/usr/bin/gedit";
        state->paths.engineFilter = "All";
        std::filesystem::create_directories(msts.home() + "/Reports");
        std::filesystem::create_directories(msts.consists());
    }
    // An engine of lines lines; faulty ones have a blank in their Engine name.
    void addEngine(const std::string& folder, const std::string& name, bool faulty,
                   int lines = 0) {
        std::string text = "Wagon ( " + name + "\n";
        for (int i = 0; i < lines; ++i)
            text += "\tFriction ( 1 )\n";
        text += ")\nEngine ( " + name + (faulty ? " x" : "") + "\n\tName ( \"" + name +
                "\" )\n)\n";
        msts.write("TRAINS/TRAINSET/" + folder + "/" + name + ".eng", text);
        auto& catalogue = state->catalogue;
        UnitRecord& unit = catalogue.engines[catalogue.engineCount++];
        unit.folderName = folder;
        unit.folderPath = msts.trainset() + "/" + folder;
        unit.fileName = name + ".eng";
        unit.displayName = name;
        unit.unitType = "Diesel";
        unit.hasCab = true;
    }
};

}  // namespace

class TesterWindowTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void aRunShowsItsCountsAndOffersTheReportsWritten();
    void stopEndsTheWalkAfterTheUnitUnderTest();
    void failedConsistsGoToTheEditorOrTheTrash();
    void theOptionsFollowTheSection();
};

void TesterWindowTest::aRunShowsItsCountsAndOffersTheReportsWritten() {
    TesterWindow t;
    t.addEngine("A", "alpha", false);
    t.addEngine("B", "beta", true);
    t.addEngine("C", "alpha", false);
    ui::frmDiag window(*t.state, t.fake.services);
    window.show();
    QTest::mouseClick(window.Command1[0], Qt::LeftButton);
    QCOMPARE(window.lblCount->text(), QString("Found 3 engines"));
    QCOMPARE(window.diagList->model()->rowCount(), 3);

    QTest::mouseClick(window.cmdTest, Qt::LeftButton);  // nothing selected yet
    QCOMPARE(t.fake.dialogs.texts().back(), std::string("You must select at least one item to test!"));
    QVERIFY(window.cmdTest->isEnabled());
    QVERIFY(!window.cmdStop->isVisible());

    QTest::mouseClick(window.cmdCheckAll, Qt::LeftButton);
    QCOMPARE(window.diagList->selectionModel()->selectedIndexes().size(), 3);
    window.Check3->setChecked(true);
    QTest::mouseClick(window.cmdTest, Qt::LeftButton);
    // Beta's blank and name: one syntax (serious) and one name finding (critical); the two
    // alphas are one duplicate pair.
    QCOMPARE(window.lblErrors->text(), QString("3"));
    QVERIFY(window.lblErrors->isVisible());
    QCOMPARE(window.Label6[1]->text(), QString("1"));
    QCOMPARE(window.Label6[2]->text(), QString("1"));
    QCOMPARE(window.Label9[0]->text(), QString("1"));
    QCOMPARE(window.Label9[5]->text(), QString("1"));
    QVERIFY(window.imgErrors->isVisible());
    QVERIFY(window.cmdDelRep->isEnabled());
    QVERIFY(window.errorTypes() && window.errorTypes()->isVisible());
    QVERIFY(window.errorTypes()->Command1[1]->isEnabled());   // syntax
    QVERIFY(window.errorTypes()->Command1[5]->isEnabled());   // others
    QVERIFY(window.errorTypes()->Command1[6]->isEnabled());   // duplicates
    QVERIFY(!window.errorTypes()->Command1[0]->isEnabled());  // nothing missing
    QTest::mouseClick(window.errorTypes()->Command1[6], Qt::LeftButton);
    QVERIFY(t.fake.desktop.started.back().ends_with("EngDuplicate.txt"));

    QTest::mouseClick(window.cmdDelRep, Qt::LeftButton);
    QCOMPARE(t.fake.dialogs.texts().back(), std::string("Reports deleted!"));
    QVERIFY(!t.msts.exists("home/Reports/EngSyntax.txt"));
    QCOMPARE(window.Label9[0]->text(), QString("0"));
    QVERIFY(!window.cmdDelRep->isEnabled());
}

// Stop refills the rows while a run yields: the walk ends with the unit it was testing, and
// the window answers at once.
void TesterWindowTest::stopEndsTheWalkAfterTheUnitUnderTest() {
    TesterWindow t;
    for (int i = 0; i < 200; ++i)
        t.addEngine("F" + std::to_string(i), "unit" + std::to_string(i), true, 400);
    t.fake.fs.readDelay = std::chrono::milliseconds(2);  // the run lasts some 200 ms at least
    ui::frmDiag window(*t.state, t.fake.services);
    window.show();
    QTest::mouseClick(window.Command1[0], Qt::LeftButton);
    QTest::mouseClick(window.cmdCheckAll, Qt::LeftButton);
    // Stop is pressed as soon as the window shows a unit's findings.
    bool stopped = false;
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, &window, [&] {
        if (stopped || window.Label4->text().toInt() < 2) return;
        QVERIFY(window.cmdStop->isVisible());
        QVERIFY(!window.cmdExit->isEnabled());
        QTest::mouseClick(window.cmdStop, Qt::LeftButton);
        stopped = true;
    });
    poll.start(1);
    QTest::mouseClick(window.cmdTest, Qt::LeftButton);
    QVERIFY(stopped);
    const long long tested = window.run().counts.errorCount / 2;
    QVERIFY2(tested >= 1 && tested < 200, qPrintable(QString::number(tested)));
    QCOMPARE(window.diagList->selectionModel()->selectedIndexes().size(), 0);
    QVERIFY(!window.cmdStop->isVisible());
    QVERIFY(window.cmdExit->isEnabled());
    // The categories found so far stay; the press cleared the levels, which count at most the
    // findings of the unit that was finished after it.
    QCOMPARE(window.Label9[0]->text(), QString::number(tested));
    QVERIFY(window.Label6[1]->text().toInt() + window.Label6[2]->text().toInt() <= 2);
}

namespace {
std::string consistText(const std::string& units) {
    return "\nTrain (\n\tTrainCfg ( x\n" + units + "\t)\n)";
}
}  // namespace

void TesterWindowTest::failedConsistsGoToTheEditorOrTheTrash() {
    TesterWindow t;
    t.addEngine("A", "alpha", false);
    t.msts.write("TRAINS/CONSISTS/good.con",
                 consistText("\t\tEngineData ( alpha A )\n"));
    t.msts.write("TRAINS/CONSISTS/three.con",
                 consistText("\t\tEngineData ( gone A )\n\t\tWagonData ( w1 B )\n"
                             "\t\tWagonData ( w2 B )\n"));
    ui::frmDiag window(*t.state, t.fake.services);
    window.show();
    QTest::mouseClick(window.Command1[2], Qt::LeftButton);
    QCOMPARE(window.lblCount->text(), QString("Found 2 consists"));
    QVERIFY(!window.Check1->isEnabled() && !window.Check2->isEnabled() &&
            !window.Check3->isEnabled());
    QTest::mouseClick(window.cmdCheckAll, Qt::LeftButton);
    QTest::mouseClick(window.cmdTest, Qt::LeftButton);
    QCOMPARE(window.lblErrors->text(), QString("3"));
    QCOMPARE(window.listFailed->count(), 3);
    QCOMPARE(window.listTestedSounds->count(), 1);
    QVERIFY(window.cmdDelCon->isVisible());
    QVERIFY(window.cmdEditCon->isEnabled());
    // The consist reports only: the buttons of the other kinds are not there.
    QVERIFY(window.errorTypes()->Command1[0]->isEnabled());
    QVERIFY(window.errorTypes()->Command1[2]->isHidden());

    // A double click on the failed consist's name sends it to the editor.
    const QModelIndex failed = window.listTestedSounds->model()->index(0, 0);
    window.listTestedSounds->doubleClicked(failed);
    QVERIFY(window.consistToEdit() && window.consistToEdit()->ends_with("three.con"));

    QTest::mouseClick(window.cmdDelCon, Qt::LeftButton);
    QCOMPARE(t.fake.desktop.trashed.size(), std::size_t(1));
    QVERIFY(t.fake.desktop.trashed.front().ends_with("three.con"));
    QCOMPARE(window.lblCount->text(), QString("Found 1 consists"));
    QVERIFY(!window.cmdDelCon->isVisible());
}

void TesterWindowTest::theOptionsFollowTheSection() {
    TesterWindow t;
    t.addEngine("A", "alpha", false);
    ui::frmDiag window(*t.state, t.fake.services);
    window.show();
    QTest::mouseClick(window.Command1[0], Qt::LeftButton);
    QVERIFY(window.Check1->isEnabled() && window.Check2->isEnabled());
    QTest::mouseClick(window.Command1[1], Qt::LeftButton);
    QVERIFY(!window.Check1->isEnabled() && window.Check2->isEnabled());
    QCOMPARE(window.lblCount->text(), QString("Found 0 wagons"));
    t.state->paths.engineFilter = "AI";
    QTest::mouseClick(window.Command1[0], Qt::LeftButton);
    QVERIFY(!window.Check1->isEnabled());
}

QTEST_MAIN(TesterWindowTest)
#include "test_frmDiag.moc"
