// The editing operations of the main window, driven through its own controls: what the consist
// holds afterwards, and what the six slots show of it.
#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <functional>
#include <tuple>

#include "core/consist/consist_model.h"
#include "core/consist/slot_view.h"
#include "main_window_fixture.h"
#include "ui/windows/frmQtd.h"

using rakeyard::test::MainWindowFixture;

namespace {

// What the strip and the totals show, to compare before and after an operation.
struct Shown {
    QStringList names, uids, keys;
    QString wagons, length, mass;
    bool leftArrow, rightArrow;
    bool operator==(const Shown&) const = default;
};

Shown shownStrip(const MainWindowFixture& f) {
    Shown shown;
    for (int i = 0; i < 6; ++i) {
        shown.names << f.window->Label1[i]->text();
        shown.uids << f.window->Text1[i]->text();
        shown.keys << f.shownKey(i);
    }
    shown.wagons = f.window->lblWagons->text();
    shown.length = f.window->lblLenght->text();
    shown.mass = f.window->lblWeight->text();
    shown.leftArrow = f.window->imgLeft->isVisible();
    shown.rightArrow = f.window->imgRight->isVisible();
    return shown;
}

// Answers the next frmQtd: types the number and presses OK. Keeps the wagon name it showed.
void answerQuantity(const QString& number, QString* shownName) {
    auto* poll = new QTimer();
    QObject::connect(poll, &QTimer::timeout, poll, [=] {
        for (QWidget* top : QApplication::topLevelWidgets()) {
            auto* window = qobject_cast<rakeyard::ui::frmQtd*>(top);
            if (!window || !window->isVisible()) continue;
            poll->deleteLater();
            poll->stop();
            *shownName = window->Label1->text();
            QTest::keyClicks(window->Text1, number);
            QTest::mouseClick(window->OKButton, Qt::LeftButton);
            return;
        }
    });
    poll->start(10);
}

// Selects the line of a wagon without adding it.
void selectWagon(MainWindowFixture& f, const QString& fileName) {
    for (int i = 0; i < f.window->wagList->count(); ++i)
        if (f.window->wagList->lineOfRow(i).endsWith("^" + fileName))
            f.window->wagList->setCurrentRow(i);
}

// Slots 0..299 full of covered vans, numbered 1..300.
void fillConsist(MainWindowFixture& f) {
    for (int i = 0; i < rakeyard::kUsedSlots; ++i) {
        rakeyard::ConsistSlot& slot = f.state->consist.slots[i];
        rakeyard::copyCatalogueFields(slot, f.state->catalogue.wagons[0], false);
        slot.uid = float(i + 1);
        slot.position = std::int16_t(i + 1);
    }
}

}  // namespace

class MainWindowEditing : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void addSeveralAsksTheQuantityWindowAndShowsTheUnits();
    void shiftLeftClosesATwoSlotGapOneSlotPerPress();
    void renumberIsRefusedAboveTheLimitAndDoneAtIt();
    void theTitleMarksUnsavedChangesUntilTheSave();
    void saveAsAsksForTheNameAndLeavesTheOldFile();
    void undoAndRedoTakeBackEditsFromTheEditMenu();
    void everyKindOfEditIsUndoneAndRedoneExactly();
    void aNameBoxThatIsNoFileNameSavesNothing();
    void endShowsThePageOfTheFirstFreeSlot();
    void fullLastPageTakesNoMoreUnitsVisibly();
};

// The counting and renumbering are the core's, tested there; here the menu entry, the quantity
// window and the strip they refresh.
void MainWindowEditing::addSeveralAsksTheQuantityWindowAndShowsTheUnits() {
    MainWindowFixture f;
    f.addWagon("van.wag");
    selectWagon(f, "coal.wag");
    QString shownName;
    answerQuantity("3", &shownName);
    f.window->mnuAdd->trigger();
    QCOMPARE(shownName, QString("Coal wagon"));
    QCOMPARE(f.window->lblWagons->text(), QString("4"));
    QCOMPARE(shownStrip(f).names,
             QStringList({"Covered van", "Coal wagon", "Coal wagon", "Coal wagon", "", ""}));
    QCOMPARE(shownStrip(f).uids, QStringList({"1", "2", "3", "4", "", ""}));
}

void MainWindowEditing::shiftLeftClosesATwoSlotGapOneSlotPerPress() {
    MainWindowFixture f;
    for (const char* wagon : {"van.wag", "coal.wag", "open.wag", "brake.wag", "coal.wag"})
        f.addWagon(wagon);
    QTest::mouseDClick(f.window->Picture1[1], Qt::LeftButton);
    QTest::mouseDClick(f.window->Picture1[2], Qt::LeftButton);
    QCOMPARE(f.window->lblWagons->text(), QString("3"));
    QCOMPARE(shownStrip(f).names,
             QStringList({"Covered van", "", "", "Brake coach", "Coal wagon", ""}));

    QTest::mouseClick(f.window->cmdShift[0], Qt::LeftButton);
    QCOMPARE(shownStrip(f).names,
             QStringList({"Covered van", "", "Brake coach", "Coal wagon", "", ""}));
    QCOMPARE(f.slot(4).fileName, std::string());

    QTest::mouseClick(f.window->cmdShift[0], Qt::LeftButton);
    const Shown closed = shownStrip(f);
    QCOMPARE(closed.names, QStringList({"Covered van", "Brake coach", "Coal wagon", "", "", ""}));
    QCOMPARE(closed.uids, QStringList({"1", "4", "5", "", "", ""}));
    QCOMPARE(closed.keys, QStringList({"WAG", "CAR", "WAG", "EMP", "EMP", "EMP"}));
    QCOMPARE(f.slot(1).fileName, std::string("brake.wag"));
    QCOMPARE(f.slot(2).fileName, std::string("coal.wag"));
    QCOMPARE(f.slot(3).fileName, std::string());

    // Without a gap a further press leaves the consist as it is.
    QTest::mouseClick(f.window->cmdShift[0], Qt::LeftButton);
    QCOMPARE(shownStrip(f), closed);
}

void MainWindowEditing::renumberIsRefusedAboveTheLimitAndDoneAtIt() {
    MainWindowFixture f;
    for (const char* wagon : {"van.wag", "coal.wag", "open.wag"})
        f.addWagon(wagon);
    f.state->consist.slots[0].uid = 9999701.0f;
    rakeyard::refreshPics(f.state->consist);
    f.window->refreshPics();
    f.window->mnuRenumber->trigger();
    QCOMPARE(f.fake.dialogs.texts(),
             std::vector<std::string>{"Number too big! You must choose a smaller one."});
    QCOMPARE(f.slot(1).uid, 2.0f);
    QCOMPARE(shownStrip(f).uids, QStringList({"9999701", "2", "3", "", "", ""}));

    f.state->consist.slots[0].uid = 9999700.0f;
    f.window->mnuRenumber->trigger();
    QCOMPARE(f.fake.dialogs.shown.size(), std::size_t(1));
    QCOMPARE(f.slot(2).uid, 9999702.0f);
    QCOMPARE(shownStrip(f).uids, QStringList({"9999700", "9999701", "9999702", "", "", ""}));
}

void MainWindowEditing::theTitleMarksUnsavedChangesUntilTheSave() {
    MainWindowFixture f;
    QCOMPARE(f.window->windowTitle(), QString("Rake Yard"));
    f.addWagon("van.wag");
    f.window->Text2[0]->selectAll();
    QTest::keyClicks(f.window->Text2[0], "Vans");
    QCOMPARE(f.window->windowTitle(), QString("Vans.con* - Rake Yard"));
    QDir(QString::fromStdString(f.msts.msts())).mkpath("TRAINS/CONSISTS");
    f.window->mnuSave->trigger();
    QCOMPARE(f.window->windowTitle(), QString("Vans.con - Rake Yard"));
    QVERIFY(f.window->StatusBar1->text().startsWith("Saved as "));
    QVERIFY(f.window->StatusBar1->text().endsWith("Vans.con"));
}

void MainWindowEditing::saveAsAsksForTheNameAndLeavesTheOldFile() {
    MainWindowFixture f;
    QDir(QString::fromStdString(f.msts.msts())).mkpath("TRAINS/CONSISTS");
    f.addWagon("van.wag");
    f.window->Text2[0]->selectAll();
    QTest::keyClicks(f.window->Text2[0], "Old");
    f.window->mnuSave->trigger();
    auto* poll = new QTimer();
    QObject::connect(poll, &QTimer::timeout, poll, [poll] {
        for (QWidget* top : QApplication::topLevelWidgets()) {
            auto* dialog = qobject_cast<QInputDialog*>(top);
            if (!dialog || !dialog->isVisible()) continue;
            poll->deleteLater();
            poll->stop();
            dialog->setTextValue("New");
            dialog->accept();
            return;
        }
    });
    poll->start(10);
    f.window->mnuSaveAs->trigger();
    QCOMPARE(f.window->Text2[0]->text(), QString("New"));
    QCOMPARE(f.window->windowTitle(), QString("New.con - Rake Yard"));
    QVERIFY(QFileInfo::exists(QString::fromStdString(f.msts.consists() + "/Old.con")));
    QVERIFY(QFileInfo::exists(QString::fromStdString(f.msts.consists() + "/New.con")));
    QCOMPARE(f.window->mnuSaveAs->shortcut(), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S));
}

void MainWindowEditing::undoAndRedoTakeBackEditsFromTheEditMenu() {
    MainWindowFixture f;
    QVERIFY(!f.window->mnuUndo->isEnabled());
    f.addWagon("van.wag");
    f.addWagon("coal.wag");
    QCOMPARE(f.window->mnuUndo->text(), QString("&Undo Add wagon"));
    f.window->Text2[1]->selectAll();
    QTest::keyClicks(f.window->Text2[1], "Vans");
    QCOMPARE(f.window->mnuUndo->text(), QString("&Undo Edit consist name"));

    f.window->mnuUndo->trigger();
    QCOMPARE(f.window->Text2[1]->text(), QString());
    f.window->mnuUndo->trigger();
    QCOMPARE(shownStrip(f).names, QStringList({"Covered van", "", "", "", "", ""}));
    QCOMPARE(f.window->lblWagons->text(), QString("1"));
    QCOMPARE(f.window->mnuRedo->text(), QString("&Redo Add wagon"));

    f.window->mnuRedo->trigger();
    QCOMPARE(shownStrip(f).names, QStringList({"Covered van", "Coal wagon", "", "", "", ""}));
    QCOMPARE(f.window->mnuRedo->shortcuts().size(), 2);

    f.fake.dialogs.answers = {rakeyard::Answer::No};  // Discard
    f.window->mnuNew->trigger();  // the consist is replaced: nothing left to undo
    QVERIFY(!f.window->mnuUndo->isEnabled());
}

// What an edit may change: the units of the first pages with their side and number, and the
// header boxes.
struct ConsistSnapshot {
    std::vector<std::tuple<std::string, bool, float>> units;
    QStringList header;
    bool operator==(const ConsistSnapshot&) const = default;
};

ConsistSnapshot snapshotOf(const MainWindowFixture& f) {
    ConsistSnapshot snapshot;
    for (int i = 0; i < 18; ++i)
        snapshot.units.emplace_back(f.slot(i).fileName, f.slot(i).flipped, f.slot(i).uid);
    for (QLineEdit* box : f.window->Text2)
        snapshot.header << box->text();
    return snapshot;
}

void MainWindowEditing::everyKindOfEditIsUndoneAndRedoneExactly() {
    MainWindowFixture f;
    std::vector<ConsistSnapshot> states{snapshotOf(f)};
    std::vector<std::function<void()>> edits = {
        [&] { f.addEngine("class37.eng"); },
        [&] { f.addWagon("van.wag"); },
        [&] { f.addWagon("coal.wag"); },
        [&] { f.clickSlot(1, {}, Qt::RightButton); },  // flip
        [&] { QTest::keyClicks(f.window->Text2[1], "Mixed goods"); },
        [&] { QTest::keyClicks(f.window->Text2[2], "60"); },
        [&] {
            f.clickSlot(0);
            f.window->mnuInsert->trigger();  // paste
        },
        [&] {
            f.window->Text1[0]->selectAll();
            QTest::keyClicks(f.window->Text1[0], "40");  // a unit's number
        },
        [&] { f.window->mnuRenumber->trigger(); },  // the others follow it
        [&] {
            f.clickSlot(1, Qt::ShiftModifier);
            f.window->mnuDelete->trigger();
        },
        [&] { QTest::mouseClick(f.window->cmdShift[0], Qt::LeftButton); },
        [&] {
            selectWagon(f, "open.wag");
            QString shown;
            answerQuantity("2", &shown);
            f.window->mnuAdd->trigger();  // several
        },
        [&] { QTest::mouseDClick(f.window->Picture1[2], Qt::LeftButton); },  // leaves a gap
        [&] { QTest::mouseClick(f.window->cmdShift[1], Qt::LeftButton); },  // widens it
    };
    for (std::size_t i = 0; i < edits.size(); ++i) {
        edits[i]();
        states.push_back(snapshotOf(f));
        QVERIFY2(states.back() != states[states.size() - 2],
                 qPrintable(QString("edit %1 changed nothing").arg(i)));
    }
    for (std::size_t i = states.size() - 1; i > 0; --i) {
        QVERIFY2(f.window->mnuUndo->isEnabled(), qPrintable(QString("undo %1").arg(i)));
        f.window->mnuUndo->trigger();
        QVERIFY2(snapshotOf(f) == states[i - 1], qPrintable(QString("undo to %1").arg(i - 1)));
    }
    QVERIFY(!f.window->mnuUndo->isEnabled());
    for (std::size_t i = 1; i < states.size(); ++i) {
        f.window->mnuRedo->trigger();
        QVERIFY2(snapshotOf(f) == states[i], qPrintable(QString("redo to %1").arg(i)));
    }
    QVERIFY(!f.window->mnuRedo->isEnabled());
}

void MainWindowEditing::aNameBoxThatIsNoFileNameSavesNothing() {
    MainWindowFixture f;
    f.addWagon("van.wag");
    QDir(QString::fromStdString(f.msts.msts())).mkpath("TRAINS/CONSISTS");
    f.window->Text2[0]->selectAll();
    QTest::keyClicks(f.window->Text2[0], "../escaped");
    f.window->mnuSave->trigger();
    QVERIFY(f.fake.dialogs.texts().back().find("cannot be the name of a consist file") !=
            std::string::npos);
    QVERIFY(!QFileInfo::exists(QString::fromStdString(f.msts.msts() + "/TRAINS/escaped.con")));
    QVERIFY(QDir(QString::fromStdString(f.msts.consists())).isEmpty());
    QVERIFY(f.state->consist.consistChanged);
}

void MainWindowEditing::endShowsThePageOfTheFirstFreeSlot() {
    MainWindowFixture f;
    for (const char* wagon : {"van.wag", "coal.wag", "open.wag", "brake.wag", "van.wag"})
        f.addWagon(wagon);
    QTest::mouseClick(f.window->cmdEnd, Qt::LeftButton);
    QCOMPARE(f.state->consist.currentPage, 0);
    QCOMPARE(f.window->Label1[4]->text(), QString("Covered van"));

    f.addWagon("coal.wag");
    QCOMPARE(f.window->Label1[5]->text(), QString("Coal wagon"));
    QTest::mouseClick(f.window->cmdEnd, Qt::LeftButton);
    QCOMPARE(f.state->consist.currentPage, 1);
    const Shown page = shownStrip(f);
    QCOMPARE(page.names, QStringList(6, QString()));
    QCOMPARE(page.uids, QStringList(6, QString()));
    QCOMPARE(page.keys, QStringList(6, "EMP"));
    QVERIFY(page.leftArrow);
    QVERIFY(!page.rightArrow);
    QCOMPARE(page.wagons, QString("6"));
}

void MainWindowEditing::fullLastPageTakesNoMoreUnitsVisibly() {
    MainWindowFixture f;
    fillConsist(f);
    QTest::mouseClick(f.window->cmdEnd, Qt::LeftButton);
    QCOMPARE(f.state->consist.currentPage, 49);
    const Shown before = shownStrip(f);
    QCOMPARE(before.uids, QStringList({"295", "296", "297", "298", "299", "300"}));

    f.addWagon("open.wag");
    QCOMPARE(shownStrip(f), before);
    QCOMPARE(f.slot(299).fileName, std::string("van.wag"));
    QCOMPARE(f.slot(300).fileName, std::string());

    // A gap elsewhere takes the unit, but the full last page stays on screen as it was.
    rakeyard::clearSlot(f.state->consist.slots[10]);
    f.addWagon("open.wag");
    QCOMPARE(f.slot(10).fileName, std::string("open.wag"));
    QCOMPARE(f.state->consist.currentPage, 49);
    QCOMPARE(shownStrip(f), before);
}

QTEST_MAIN(MainWindowEditing)
#include "test_frmMain_editing.moc"
