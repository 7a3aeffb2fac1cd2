// The loose consist editor on the sample installation: the activities listed, the yard opened
// as tree, strip and length, unit 2 of consist 1 replaced and Cancel, the filter popups and the
// work files gone with the window.
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QSignalSpy>
#include <QStandardItemModel>
#include <QStatusBar>
#include <QTabWidget>
#include <QTest>
#include <QTreeView>
#include <filesystem>

#include "core/app/app_state.h"
#include "core/msts/catalogue_reader.h"
#include "core/platform/text_utf.h"
#include "support/fakes.h"
#include "support/msts_tree.h"
#include "ui/widgets/unit_list_view.h"
#include "ui/windows/frmLoose.h"

using namespace rakeyard;

namespace {

struct SampleYard {
    test::TempFolder folder;
    test::FakeServices fake;
    std::unique_ptr<AppState> state = std::make_unique<AppState>();
    std::string msts = folder / "msts";
    std::string act = msts + "/ROUTES/RY_Valley/ACTIVITIES/RY_Loose_Yard.act";

    SampleYard() {
        std::filesystem::copy(std::string(RAKEYARD_SOURCE_DIR) + "/samples/msts", msts,
                              std::filesystem::copy_options::recursive);
        std::filesystem::create_directories(folder / "home");
        PathGlobals& paths = state->paths;
        paths.programFolder = folder / "home";
        paths.mstsPath = msts;
        paths.trainsetPath = msts + "/TRAINS/TRAINSET";
        paths.consistsPath = msts + "/TRAINS/CONSISTS";
        paths.engineFilter = paths.wagonFilter = "All";
        fake.dialogs.defaultAnswer = Answer::Ok;
        readEngineFiles(paths, state->catalogue, fake.services, false);
        readWagonFiles(paths, state->catalogue, fake.services, false);
    }
};

// The yard chosen and opened by a double click.
void openYard(ui::frmLoose& window) {
    window.Combo1->setCurrentIndex(window.Combo1->findText("Rakeyard Valley Line"));
    window.Combo1_Click();
    QCOMPARE(window.ListView1->count(), 2);
    QCOMPARE(window.ListView1->item(0)->text(), QString("RY_Loose_Yard.act --> \"Yard shunt\""));
    window.ListView1_DblClick(window.ListView1->item(0));
}

QModelIndex nodeIndex(ui::frmLoose& window, const QString& path) {
    auto* model = static_cast<QStandardItemModel*>(window.TreeView->model());
    QModelIndex index = model->index(0, 0);
    for (const QString& row : path.split('/', Qt::SkipEmptyParts))
        index = model->index(row.toInt(), 0, index);
    return index;
}

void selectRow(ui::UnitListView* list, const QString& file) {
    for (int row = 0; row < list->count(); ++row)
        if (list->lineOfRow(row).endsWith("^" + file)) return list->setCurrentRow(row);
    QFAIL(qPrintable("no row of " + file));
}

}  // namespace

class LooseWindowTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void wagonsButtonSwapsTheListsAndTheRouteBoxTakesNoTyping();
    void openingShowsTreeStripAndLength();
    void replaceShowsTheNewUnitAndCancelBringsBackTheFile();
    void aWagonChosenForAnEngineIsRefused();
    void filterPopupsTickAndAskTheMainWindow();
    void closingRemovesTheWorkFiles();
};

void LooseWindowTest::wagonsButtonSwapsTheListsAndTheRouteBoxTakesNoTyping() {
    SampleYard t;
    ui::frmLoose window(*t.state, t.fake.services);
    QCOMPARE(window.Command1->text(), QString("&Wagons"));
    QVERIFY(window.mnuLocAll->isChecked());
    // Typing into the route box does nothing.
    QTest::keyClick(window.Combo1, Qt::Key_Down);
    QCOMPARE(window.Combo1->currentIndex(), -1);
    window.show();
    QVERIFY(window.locList->isVisible());
    window.Command1->click();
    QVERIFY(window.wagList->isVisible());
    QVERIFY(!window.locList->isVisible());
    QCOMPARE(window.Command1->text(), QString("&Engines"));
}

void LooseWindowTest::openingShowsTreeStripAndLength() {
    SampleYard t;
    ui::frmLoose window(*t.state, t.fake.services);
    window.show();
    openYard(window);
    auto* model = static_cast<QStandardItemModel*>(window.TreeView->model());
    const QModelIndex activity = model->index(0, 0);
    QCOMPARE(model->rowCount(activity), 3);
    QCOMPARE(nodeIndex(window, "0").data().toString(), QString("LOOSE CONSIST 1"));
    QCOMPARE(nodeIndex(window, "2").data().toString(), QString("LOOSE CONSIST 3"));
    QCOMPARE(model->rowCount(nodeIndex(window, "2")), 8);
    QCOMPARE(nodeIndex(window, "1/0").data().toString(), QString("RY_Plate_Wagon.wag"));
    QCOMPARE(window.Label9->text(), QString("Now editing:    --> \"Yard shunt\""));

    window.TreeView_Click(nodeIndex(window, "2/7").data(Qt::UserRole + 1).toULongLong());
    QCOMPARE(window.lblLenght->text(), QString("57.9"));
    QVERIFY(window.SSTab1->isTabVisible(1));
    QVERIFY(!window.SSTab1->isTabVisible(2));
    QCOMPARE(window.SSTab1->currentIndex(), 1);
    QCOMPARE(window.StatusBar1->currentMessage(), QString("Open wagon, 12.4 m"));
    QVERIFY(!window.Picture1[7]->pixmap().isNull());  // the drawn picture beside the wagon
    QCOMPARE(window.Picture1[7]->frameShape(), QFrame::Box);
}

void LooseWindowTest::replaceShowsTheNewUnitAndCancelBringsBackTheFile() {
    SampleYard t;
    const std::string original = test::readWholeFile(t.act);
    ui::frmLoose window(*t.state, t.fake.services);
    window.show();
    openYard(window);
    window.TreeView_Click(nodeIndex(window, "0/1").data(Qt::UserRole + 1).toULongLong());
    QCOMPARE(window.lblLenght->text(), QString("46.6"));
    window.Command1_Click();  // the wagons
    selectRow(window.wagList, "RY_Open126.wag");
    window.Command2_Click();
    QCOMPARE(nodeIndex(window, "0/1").data().toString(), QString("RY_Open126.wag"));
    QCOMPARE(window.lblLenght->text(), QString("47.6"));
    QCOMPARE(window.lblFeet->text(), QString("156.16"));
    QVERIFY(window.Label8->isVisible());
    QVERIFY(test::readWholeFile(t.act) != original);
    QCOMPARE(test::readWholeFile(t.act + ".bak"), original);
    // A click on a list takes the warning away.
    QTest::mouseClick(window.wagList->viewport(), Qt::LeftButton, {},
                      window.wagList->visualRowRect(0).center());
    QVERIFY(!window.Label8->isVisible());

    window.Command6_Click();
    QCOMPARE(test::readWholeFile(t.act), original);
    QCOMPARE(nodeIndex(window, "0/1").data().toString(), QString("RY_Open124.wag"));
    QCOMPARE(window.TreeView->currentIndex(), nodeIndex(window, ""));
}

void LooseWindowTest::aWagonChosenForAnEngineIsRefused() {
    SampleYard t;
    const std::string original = test::readWholeFile(t.act);
    ui::frmLoose window(*t.state, t.fake.services);
    window.show();
    openYard(window);
    window.TreeView_Click(nodeIndex(window, "0/0").data(Qt::UserRole + 1).toULongLong());
    window.Command1_Click();
    selectRow(window.wagList, "RY_Open126.wag");
    const std::string length = window.lblLenght->text().toStdString();
    window.Command2_Click();
    QVERIFY(t.fake.dialogs.texts().back().find("only be replaced by an engine") !=
            std::string::npos);
    QCOMPARE(window.lblLenght->text().toStdString(), length);
    QCOMPARE(nodeIndex(window, "0/0").data().toString(), QString("RY_Shunter.eng"));
    QCOMPARE(test::readWholeFile(t.act), original);
}

void LooseWindowTest::filterPopupsTickAndAskTheMainWindow() {
    SampleYard t;
    ui::frmLoose window(*t.state, t.fake.services);
    QSignalSpy engines(&window, &ui::frmLoose::engineFilterChosen);
    window.mnuDiesel->trigger();
    QCOMPARE(engines.count(), 1);
    QCOMPARE(t.state->paths.engineFilter, std::string("Diesel"));
    QVERIFY(window.mnuDiesel->isChecked());
    QVERIFY(!window.mnuLocAll->isChecked());
    QSignalSpy wagons(&window, &ui::frmLoose::wagonFilterChosen);
    window.mnuCarriages->trigger();
    QCOMPARE(wagons.count(), 1);
    QCOMPARE(t.state->paths.wagonFilter, std::string("Carriage"));
}

void LooseWindowTest::closingRemovesTheWorkFiles() {
    SampleYard t;
    {
        ui::frmLoose window(*t.state, t.fake.services);
        window.show();
        openYard(window);
        QVERIFY(std::filesystem::exists(t.folder / "home/LOOSE CONSIST 3.old.lse"));
        QVERIFY(std::filesystem::exists(t.folder / "home/RY_Loose_Yard.act"));
        window.Command5->click();
    }
    QVERIFY(!std::filesystem::exists(t.folder / "home/LOOSE CONSIST 3.old.lse"));
    QVERIFY(!std::filesystem::exists(t.folder / "home/RY_Loose_Yard.act"));
    QVERIFY(std::filesystem::exists(t.folder / "home/settings.bin"));
}

QTEST_MAIN(LooseWindowTest)
#include "test_frmLoose.moc"
