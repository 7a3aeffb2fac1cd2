#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <filesystem>

#include "core/app/app_state.h"
#include "support/fakes.h"
#include "support/msts_tree.h"
#include "ui/frmAbout.h"
#include "ui/frmLoadCon.h"
#include "ui/frmQtd.h"

using namespace rakeyard;

class Windows : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void numberBoxTakesDigitsOnlyAndCancelGivesZero();
    void chooserListsConsistsLoadsAndDeletes();
    void aboutLinkOpensTheHomePage();
};

void Windows::numberBoxTakesDigitsOnlyAndCancelGivesZero() {
    ui::frmQtd window("Coal wagon");
    QCOMPARE(window.Label1->text(), QString("Coal wagon"));
    QCOMPARE(window.Label2->text(), QString("Select the number of wagons to insert:"));
    QTest::keyClicks(window.Text1, "1a2-3 ");
    QCOMPARE(window.Text1->text(), QString("123"));
    QTest::keyClick(window.Text1, Qt::Key_Backspace);
    QTest::mouseClick(window.OKButton, Qt::LeftButton);
    QCOMPARE(window.number(), 12);

    ui::frmQtd cancelled("Coal wagon");
    QTest::keyClicks(cancelled.Text1, "7");
    QTest::mouseClick(cancelled.CancelButton, Qt::LeftButton);
    QCOMPARE(cancelled.number(), 0);
}

void Windows::chooserListsConsistsLoadsAndDeletes() {
    test::MstsTree msts;
    test::FakeServices fake;
    auto state = std::make_unique<AppState>();
    state->paths.programFolder = msts.home();
    state->paths.consistsPath = msts.consists();
    std::filesystem::create_directories(msts.home());
    const char* body =
        "\r\nTrain (\n\tTrainCfg ( %1\n\t\tName ( \"%2\" )\n\t\tSerial ( 1 )\n"
        "\t\tMaxVelocity ( 40.00000 1.00000 )\n\t\tNextWagonUID ( 1 )\n"
        "\t\tDurability ( 1.00000 )\n\t\tWagon (\n\t\t\tWagonData ( van WAGONS )\n"
        "\t\t\tUiD ( 1 )\n\t\t)\n\t)\n)";
    msts.write("TRAINS/CONSISTS/Alpha.con",
               QString(body).arg("Alpha", "Alpha goods").toStdString());
    msts.write("TRAINS/CONSISTS/Beta.con", QString(body).arg("Beta", "Beta goods").toStdString());

    ui::frmLoadCon window(*state, fake.services);
    QCOMPARE(window.conList->count(), 2);
    QCOMPARE(window.Label2->text(), QString("2"));
    QVERIFY(window.conList->item(1)->text().startsWith("Beta.con"));
    QVERIFY(window.conList->item(1)->text().endsWith(" 1 wagons"));
    window.show();
    QTest::keyClicks(window.conList, "b");
    QCOMPARE(window.conList->currentRow(), 1);
    QCOMPARE(window.Label1->text(), QString("Beta goods"));

    QTest::keyClick(window.conList, Qt::Key_Delete);
    QCOMPARE(fake.desktop.trashed.size(), std::size_t(1));
    QCOMPARE(window.conList->count(), 1);
    QVERIFY(!msts.exists("msts/TRAINS/CONSISTS/Beta.con"));

    window.conList->setCurrentRow(0);
    QTest::mouseClick(window.OKButton, Qt::LeftButton);
    QVERIFY(window.loaded());
    QCOMPARE(state->consist.headerBoxes[0], std::string("Alpha"));
    QCOMPARE(state->consist.headerBoxes[1], std::string("Alpha goods"));
    QCOMPARE(state->consist.recent.names[0], std::string("Alpha.con"));
}

void Windows::aboutLinkOpensTheHomePage() {
    test::FakeServices fake;
    auto state = std::make_unique<AppState>();
    ui::frmAbout window(*state, fake.services);
    QCOMPARE(window.windowTitle(), QString("About Rakeyard"));
    QVERIFY(window.lblVersion->text().startsWith("Version "));
    QTest::mouseClick(window.lblHomePage, Qt::LeftButton);
    QCOMPARE(fake.desktop.urls, std::vector<std::string>{ui::frmAbout::kHomePage});
}

QTEST_MAIN(Windows)
#include "test_windows.moc"
