// The dependencies window on a small route: the scan, Stop, the legend, a consist loaded from
// the tree and the window's place kept.
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <QTreeView>
#include <filesystem>

#include "core/app/app_state.h"
#include "core/settings/settings_file.h"
#include "main_window_fixture.h"
#include "support/fakes.h"
#include "support/msts_tree.h"
#include "ui/widgets/dependency_model.h"
#include "ui/windows/frmDep1.h"

using namespace rakeyard;

namespace {

struct DependencyRoute {
    test::MstsTree msts;
    test::FakeServices fake;
    std::unique_ptr<AppState> state = std::make_unique<AppState>();

    DependencyRoute() {
        state->paths.programFolder = msts.home();
        state->paths.mstsPath = msts.msts();
        state->paths.consistsPath = msts.consists();
        state->paths.trainsetPath = msts.trainset();
        std::filesystem::create_directories(msts.home());
        msts.write("ROUTES/Valley/valley.trk", "Tr_RouteFile (\n\tName ( \"Valley\" )\n)\n");
        std::string filler;  // long enough for events to run while it is read
        for (int i = 0; i < 600; ++i)
            filler += "\t\tUiD ( 0 )\n";
        msts.write("ROUTES/Valley/ACTIVITIES/a.act",
                   "Tr_Activity (\n\tRouteID ( Valley )\n\tName ( Coal run )\n"
                   "\tName ( \"Loose consist.\" )\n\tWagonData ( van W )\n" +
                       filler + "\tEngineData ( gone E )\n)\n");
        msts.write("ROUTES/Valley/ACTIVITIES/b.act",
                   "Tr_Activity (\n\tRouteID ( Valley )\n\tName ( Later )\n"
                   "\tName ( \"Loose consist.\" )\n)\n");
        msts.write("ROUTES/Valley/SERVICES/Coal.srv", "Train_Config ( coal )\n");
        msts.write("ROUTES/Valley/SERVICES/Gone.srv", "Train_Config ( nowhere )\n");
        msts.write("TRAINS/CONSISTS/coal.con",
                   "Train (\n\tTrainCfg ( coal\n\t\tName ( \"Coal\" )\n"
                   "\t\tWagonData ( van W )\n\t)\n)");
        msts.write("TRAINS/TRAINSET/W/van.wag", "Wagon ( van )\n");
    }
};

QModelIndex child(ui::DependencyModel& model, const QModelIndex& parent, int row) {
    return model.index(row, 0, parent);
}

QString textOf(const QModelIndex& index) {
    return index.data().toString();
}

void choose(ui::frmDep1& window, int row) {
    window.Combo1->setCurrentIndex(row);
    Q_EMIT window.Combo1->activated(row);
}

}  // namespace

class DependenciesWindowTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void aScanShowsTheRouteWithTheMissingOnesOpened();
    void stopEndsTheScanAtTheNextFile();
    void theLegendShowsTheSixPictures();
    void aConsistNodeLoadsItsConsist();
    void placeAndSizeAreKept();
    void theMainWindowOpensItAndShowsTheConsistLoaded();
};

void DependenciesWindowTest::aScanShowsTheRouteWithTheMissingOnesOpened() {
    DependencyRoute t;
    ui::frmDep1 window(*t.state, t.fake.services);
    window.show();
    QCOMPARE(window.windowTitle(), QString("Dependencies"));
    QCOMPARE(window.Combo1->count(), 1);
    QCOMPARE(window.Combo1->placeholderText(), QString("Please select a route..."));
    QVERIFY(window.Command1[1]->isVisible());
    QVERIFY(!window.Command1[0]->isVisible());
    QVERIFY(!window.Command1[1]->isEnabled());
    choose(window, 0);
    QVERIFY(window.Command1[1]->isEnabled());
    QTest::mouseClick(window.Command1[1], Qt::LeftButton);

    QCOMPARE(window.Label1->text(), QString("Valley"));
    QCOMPARE(window.Label2->text(), QString("Loading data from route..."));
    ui::DependencyModel& model = window.model();
    const QModelIndex root = model.index(0, 0);
    QCOMPARE(textOf(root), QString("ROUTE"));
    QCOMPARE(window.TreeView->currentIndex(), root);
    const QModelIndex route = child(model, root, 0);
    QCOMPARE(textOf(route), QString("Valley"));
    QCOMPARE(model.rowCount(route), 4);
    const QModelIndex coalRun = child(model, route, 0);
    QCOMPARE(textOf(coalRun), QString("Coal run"));
    QCOMPARE(textOf(child(model, coalRun, 0)), QString("van.wag"));
    QCOMPARE(textOf(child(model, coalRun, 1)), QString("gone.eng"));
    QCOMPARE(textOf(child(model, route, 1)), QString("Later"));
    const QModelIndex coal = child(model, route, 2);
    QCOMPARE(textOf(coal), QString("coal.con"));
    QCOMPARE(textOf(child(model, route, 3)), QString("nowhere.con"));
    // The path to each missing one is open; the rest waits for Expand tree.
    QVERIFY(window.TreeView->isExpanded(root));
    QVERIFY(window.TreeView->isExpanded(route));
    QVERIFY(window.TreeView->isExpanded(coalRun));
    QVERIFY(!window.TreeView->isExpanded(coal));
    QVERIFY(!coal.data(Qt::DecorationRole).value<QIcon>().isNull());
    QVERIFY(root.data(Qt::DecorationRole).value<QIcon>().isNull());
    QTest::mouseClick(window.Command2, Qt::LeftButton);
    QVERIFY(window.TreeView->isExpanded(coal));
    QVERIFY(window.Command2->isEnabled());
    QVERIFY(t.fake.dialogs.texts().empty());
}

// Stop pressed while the first activity is read: that file is read to its end, and the scan
// ends there.
void DependenciesWindowTest::stopEndsTheScanAtTheNextFile() {
    DependencyRoute t;
    ui::frmDep1 window(*t.state, t.fake.services);
    window.show();
    choose(window, 0);
    bool stopVisible = false, expandEnabled = true;
    t.fake.progress.onStep = [&] {
        if (!window.Command1[0]->isVisible() || window.scan().tree.size() < 4) return;
        stopVisible = true;
        expandEnabled = window.Command2->isEnabled();
        window.Command1[0]->click();
    };
    QTest::mouseClick(window.Command1[1], Qt::LeftButton);
    QVERIFY(stopVisible);
    QVERIFY(!expandEnabled);
    QVERIFY(window.Command1[1]->isVisible());
    QVERIFY(!window.Command1[0]->isVisible());
    ui::DependencyModel& model = window.model();
    const QModelIndex route = child(model, model.index(0, 0), 0);
    QCOMPARE(model.rowCount(route), 1);
    QCOMPARE(model.rowCount(child(model, route, 0)), 2);
}

void DependenciesWindowTest::theLegendShowsTheSixPictures() {
    DependencyRoute t;
    ui::frmDep1 window(*t.state, t.fake.services);
    window.show();
    QVERIFY(!window.Frame1->isVisible());
    QTest::mouseClick(window.Command4, Qt::LeftButton);
    QVERIFY(window.Frame1->isVisible());
    int pictures = 0;
    QStringList texts;
    for (QLabel* label : window.Frame1->findChildren<QLabel*>()) {
        if (!label->pixmap().isNull()) ++pictures;
        if (!label->text().isEmpty()) texts << label->text();
    }
    QCOMPARE(pictures, 6);
    QVERIFY(texts.contains("Normal consist related with a service"));
    QVERIFY(texts.contains("Missing consist"));
    QVERIFY(window.Frame1->geometry().bottom() <= window.TreeView->geometry().bottom());
    QTest::mouseClick(window.Command3, Qt::LeftButton);
    QVERIFY(!window.Frame1->isVisible());
}

// Only a consist's node loads: a loose consist's or a unit's does nothing.
void DependenciesWindowTest::aConsistNodeLoadsItsConsist() {
    DependencyRoute t;
    ui::frmDep1 window(*t.state, t.fake.services);
    window.show();
    choose(window, 0);
    QTest::mouseClick(window.Command1[1], Qt::LeftButton);
    QSignalSpy loaded(&window, &ui::frmDep1::consistLoaded);
    ui::DependencyModel& model = window.model();
    const QModelIndex route = child(model, model.index(0, 0), 0);
    Q_EMIT window.TreeView->activated(child(model, route, 0));
    Q_EMIT window.TreeView->activated(child(model, child(model, route, 0), 0));
    QCOMPARE(loaded.count(), 0);
    Q_EMIT window.TreeView->activated(child(model, route, 2));
    QCOMPARE(loaded.count(), 1);
    QCOMPARE(QString::fromStdString(t.state->consist.header.name), QString("Coal"));
}

void DependenciesWindowTest::placeAndSizeAreKept() {
    DependencyRoute t;
    {
        ui::frmDep1 window(*t.state, t.fake.services);
        window.show();
        window.resize(640, 480);
        QTest::keyClick(&window, Qt::Key_Escape);
        QVERIFY(!window.isVisible());
    }
    const SettingsRecord record = readSettings(t.fake.fs, t.state->paths.programFolder);
    QCOMPARE(int(record.dependenciesWidth), 640 * 15);
    QCOMPARE(int(record.dependenciesHeight), 480 * 15);
    ui::frmDep1 again(*t.state, t.fake.services);
    QCOMPARE(again.size(), QSize(640, 480));
}

// View > Dependencies opens the window over the main window, which shows a consist loaded from
// the tree while the window is still open.
void DependenciesWindowTest::theMainWindowOpensItAndShowsTheConsistLoaded() {
    test::MainWindowFixture f;
    f.msts.write("ROUTES/Valley/valley.trk", "Tr_RouteFile (\n\tName ( \"Valley\" )\n)\n");
    f.msts.write("ROUTES/Valley/SERVICES/Coal.srv", "Train_Config ( coal )\n");
    f.msts.write("TRAINS/CONSISTS/coal.con",
                 "Train (\n\tTrainCfg ( coal\n\t\tName ( \"Coal\" )\n"
                 "\t\tWagonData ( van WAGONS )\n\t)\n)");
    QString shownBehind;
    bool opened = false;
    QTimer::singleShot(0, [&] {
        auto* window = qobject_cast<ui::frmDep1*>(QApplication::activeModalWidget());
        if (!window) return;
        opened = true;
        choose(*window, 0);
        window->Command1[1]->click();
        ui::DependencyModel& model = window->model();
        Q_EMIT window->TreeView->activated(child(model, child(model, model.index(0, 0), 0), 0));
        shownBehind = f.window->findChild<QLineEdit*>("Text2_0")->text();
        window->close();
    });
    f.window->findChild<QAction*>("mnuActsUse")->trigger();
    QVERIFY(opened);
    QCOMPARE(shownBehind, QString("coal"));
}

QTEST_MAIN(DependenciesWindowTest)
#include "test_frmDep1.moc"
