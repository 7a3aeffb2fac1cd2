#include <QApplication>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <filesystem>

#include "core/app/app_state.h"
#include "support/fakes.h"
#include "support/msts_tree.h"
#include "ui/windows/Defeditor.h"
#include "ui/windows/Dialog.h"
#include "ui/windows/SFVOption.h"
#include "ui/windows/frm3DViewer.h"
#include "ui/windows/frmAbout.h"
#include "ui/windows/frmEditor.h"
#include "ui/windows/frmLoadCon.h"
#include "ui/windows/frmPath.h"
#include "ui/windows/frmQtd.h"
#include "ui/windows/frmScrshots.h"
#include "ui/windows/frmSettings.h"
#include "ui/windows/frmUnicode.h"
#include "ui/windows/qt_services.h"
#include "ui/widgets/path_chooser.h"

using namespace rakeyard;

class Windows : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void numberBoxTakesDigitsOnlyAndCancelGivesZero();
    void chooserListsConsistsLoadsAndDeletes();
    void aboutLinkOpensTheHomePage();
    void pathWindowButtonsRunEachWindowsOwnSteps();
    void everyWindowCanBeResized();
    void progressBarShowsEachRunsEnd();
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
    QCOMPARE(state->consist.header.fileName, std::string("Alpha"));
    QCOMPARE(state->consist.header.name, std::string("Alpha goods"));
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

void Windows::pathWindowButtonsRunEachWindowsOwnSteps() {
    test::MstsTree msts;
    test::FakeServices fake;
    auto state = std::make_unique<AppState>();
    state->paths.programFolder = msts.home();
    std::filesystem::create_directories(msts.home());

    // An empty MSTS box and Cancel end the program.
    ui::frmPath mstsPath(*state, fake.services);
    QCOMPARE(mstsPath.chooser->text(), QString());
    QTest::mouseClick(mstsPath.Command2, Qt::LeftButton);
    QVERIFY(mstsPath.endProgram());
    QCOMPARE(mstsPath.result(), int(QDialog::Rejected));

    // A folder without TRAINS/TRAINSET is refused in the window: nothing is stored.
    ui::frmPath wrongFolder(*state, fake.services);
    wrongFolder.chooser->Text1->setText(QString::fromStdString(msts.home()));
    QTest::mouseClick(wrongFolder.Command1, Qt::LeftButton);
    QCOMPARE(wrongFolder.result(), int(QDialog::Rejected));
    QCOMPARE(fake.dialogs.shown.size(), std::size_t(1));
    QVERIFY(!msts.exists("home/settings.bin"));
    QVERIFY(state->paths.mstsPath.empty());
    fake.dialogs.shown.clear();

    // The editor must be a file; OK stays open until it is one.
    const std::string editor = msts.writeProgram("myeditor");
    ui::frmEditor editorWindow(*state, fake.services);
    editorWindow.chooser->Text1->setText(QString::fromStdString(msts.home() + "/none"));
    QTest::mouseClick(editorWindow.Command1, Qt::LeftButton);
    QCOMPARE(editorWindow.result(), int(QDialog::Rejected));
    QCOMPARE(fake.dialogs.shown.size(), std::size_t(1));
    editorWindow.chooser->Text1->setText(QString::fromStdString(editor));
    QTest::mouseClick(editorWindow.Command1, Qt::LeftButton);
    QCOMPARE(editorWindow.result(), int(QDialog::Accepted));
    QCOMPARE(state->paths.editorPath, editor);

    // Cancel of the viewer window writes nothing.
    const SettingsRecord before = state->settings;
    ui::frm3DViewer viewer(*state, fake.services);
    QTest::mouseClick(viewer.Command2, Qt::LeftButton);
    QCOMPARE(viewer.result(), int(QDialog::Rejected));
    QVERIFY(!viewer.screenshotsWanted());
    QVERIFY(state->settings == before);
}

QTEST_MAIN(Windows)
// No window is held to one size: each grows past its first size and its layout follows.
void Windows::everyWindowCanBeResized() {
    test::MstsTree msts;
    test::FakeServices fake;
    auto state = std::make_unique<AppState>();
    state->paths.programFolder = msts.home();
    state->paths.consistsPath = msts.consists();
    std::vector<std::unique_ptr<QWidget>> windows;
    windows.push_back(std::make_unique<ui::frmQtd>("Coal wagon"));
    windows.push_back(std::make_unique<ui::Defeditor>(*state, fake.services));
    windows.push_back(std::make_unique<ui::Dialog>(*state, fake.services));
    windows.push_back(std::make_unique<ui::SFVOption>(*state, fake.services));
    windows.push_back(std::make_unique<ui::frmAbout>(*state, fake.services));
    windows.push_back(std::make_unique<ui::frmPath>(*state, fake.services));
    windows.push_back(std::make_unique<ui::frmEditor>(*state, fake.services));
    windows.push_back(std::make_unique<ui::frm3DViewer>(*state, fake.services));
    windows.push_back(std::make_unique<ui::frmScrshots>(*state, fake.services));
    windows.push_back(std::make_unique<ui::frmLoadCon>(*state, fake.services));
    windows.push_back(std::make_unique<ui::frmUnicode>(*state, fake.services));
    windows.push_back(std::make_unique<ui::frmSettings>(*state, fake.services));
    for (const auto& window : windows) {
        const QString name = window->objectName();
        window->show();
        const QSize first = window->size();
        window->resize(first + QSize(200, 150));
        QApplication::processEvents();
        QVERIFY2(window->width() == first.width() + 200, qPrintable(name));
        QVERIFY2(window->height() == first.height() + 150, qPrintable(name));
        if (window->layout())
            QVERIFY2(window->layout()->geometry().width() > first.width(), qPrintable(name));
        window->hide();
    }
}

// The bar moves only every few milliseconds, but a run's last step always shows, however fast
// the steps came, and steps past the end leave it full.
void Windows::progressBarShowsEachRunsEnd() {
    QProgressBar bar;
    QLabel label;
    ui::QtProgress progress;
    progress.attach(&bar, &label);
    progress.start("Retrieving engine data...", 5000);
    QCOMPARE(label.text(), QString("Retrieving engine data..."));
    for (int i = 0; i < 5000; ++i)
        progress.step();
    QCOMPARE(bar.value(), 5000);
    progress.step();
    QCOMPARE(bar.value(), 5000);

    progress.start("Retrieving wagon data...", 3);
    QCOMPARE(bar.value(), 0);
    for (int i = 0; i < 3; ++i)
        progress.step();
    QCOMPARE(bar.value(), 3);
}

#include "test_windows.moc"
