// The activities window driven through its lists and buttons on a small route.
#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <filesystem>

#include "core/app/app_state.h"
#include "support/fakes.h"
#include "support/msts_tree.h"
#include "ui/widgets/log_list.h"
#include "ui/windows/frmAct.h"
#include "ui/windows/frmDiag.h"

using namespace rakeyard;

namespace {

struct ActivityRoute {
    test::MstsTree msts;
    test::FakeServices fake;
    std::unique_ptr<AppState> state = std::make_unique<AppState>();

    ActivityRoute() {
        state->paths.programFolder = msts.home();
        state->paths.mstsPath = msts.msts();
        state->paths.consistsPath = msts.consists();
        state->paths.trainsetPath = msts.trainset();
        std::filesystem::create_directories(msts.home() + "/Reports");
        msts.write("ROUTES/Valley/valley.trk", "Tr_RouteFile (\n\tName ( \"Valley\" )\n)\n");
        msts.write("ROUTES/Valley/ACTIVITIES/a.act",
                   "Tr_Activity (\n\tName ( Coal run )\n"
                   "\tPlayer_Service_Definition ( Coal (\n"
                   "\t\tService_Definition ( Gone 10 )\n"
                   "\tActivityObjects ( WagonsList ( ) )\n)\n");
        msts.write("ROUTES/Valley/SERVICES/Coal.srv", "Train_Config ( coal )\n");
        msts.write("ROUTES/Valley/SERVICES/Gone.srv", "Train_Config ( nowhere )\n");
        msts.write("TRAINS/CONSISTS/coal.con",
                   "Train (\n\tTrainCfg ( coal\n\t\tName ( \"Coal\" )\n"
                   "\t\tEngineData ( gone gone )\n\t)\n)");
    }
};

}  // namespace

class ActivitiesWindowTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void anActivityShowsItsConsistsAndTheMissingOnes();
    void itsConsistsGoToTheTesterTheTrashOrTheEditor();
};

void ActivitiesWindowTest::anActivityShowsItsConsistsAndTheMissingOnes() {
    ActivityRoute t;
    ui::frmAct window(*t.state, t.fake.services);
    window.show();
    QCOMPARE(window.lblRoutes->text(), QString("1"));
    window.listRoutes->setCurrentRow(0);
    QCOMPARE(window.lblActivities->text(), QString("1"));
    window.listAct->setCurrentRow(0);
    QCOMPARE(window.listCon->item(0)->text(), QString("[PLAYER]  Coal  [coal.con]"));
    QCOMPARE(window.listMiss->item(0)->text(), QString("nowhere.con"));
    QCOMPARE(window.Label9->text(), QString("1"));
    QVERIFY(!window.cmdLoad->isEnabled());
    QTest::mouseClick(window.cmdTestLoose, Qt::LeftButton);  // no unit lines in it
    QCOMPARE(t.fake.dialogs.texts().back(), std::string("No errors found."));

    // A missing consist's name goes to the editor to be built.
    window.listMiss->setCurrentRow(0);
    Q_EMIT window.listMiss->itemActivated(window.listMiss->item(0));
    QCOMPARE(window.missingToBuild().value_or(""), std::string("nowhere"));
}

void ActivitiesWindowTest::itsConsistsGoToTheTesterTheTrashOrTheEditor() {
    ActivityRoute t;
    ui::frmAct window(*t.state, t.fake.services);
    window.show();
    window.listRoutes->setCurrentRow(0);
    window.listAct->setCurrentRow(0);

    // The tester runs the activity's consists at once; its window is closed when it shows.
    bool tested = false;
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, &window, [&] {
        auto* diag = qobject_cast<ui::frmDiag*>(QApplication::activeModalWidget());
        if (!diag || diag->run().running) return;
        tested = diag->run().counts.errorCount == 1 && diag->listTestedSounds->count() == 1;
        diag->close();
    });
    poll.start(10);
    QTest::mouseClick(window.cmdTest, Qt::LeftButton);
    poll.stop();
    QVERIFY(tested);

    window.listCon->setCurrentRow(0);
    QVERIFY(window.cmdLoad->isEnabled());
    t.fake.dialogs.answers = {Answer::No};
    QTest::keyClick(window.listCon, Qt::Key_Delete);
    QVERIFY(t.fake.desktop.trashed.empty());
    QCOMPARE(window.listCon->count(), 1);
    t.fake.dialogs.answers = {Answer::Yes};
    QTest::keyClick(window.listCon, Qt::Key_Delete);
    QCOMPARE(t.fake.desktop.trashed.size(), std::size_t(1));
    QCOMPARE(window.listMiss->item(0)->text(), QString("coal.con"));

    // Put back, it goes to the editor on a double click.
    t.msts.write("TRAINS/CONSISTS/coal.con", "Train (\n\tTrainCfg ( coal\n\t)\n)");
    window.listAct->setCurrentRow(-1);
    window.listAct->setCurrentRow(0);
    window.listCon->setCurrentRow(0);
    Q_EMIT window.listCon->itemActivated(window.listCon->item(0));
    QVERIFY(window.consistToEdit() && window.consistToEdit()->ends_with("coal.con"));
}

QTEST_MAIN(ActivitiesWindowTest)
#include "test_frmAct.moc"
