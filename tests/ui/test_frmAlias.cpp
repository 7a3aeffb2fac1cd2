#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QStatusBar>
#include <QTest>
#include <QTimer>
#include <filesystem>

#include "core/app/app_state.h"
#include "core/settings/settings_file.h"
#include "support/alias_fixture.h"
#include "ui/widgets/path_chooser.h"
#include "ui/windows/Dialog.h"
#include "ui/windows/frmAlias.h"
#include "ui/windows/frmAliasEngCab.h"

using namespace rakeyard;

namespace {

// A source with a cab view and sounds of its own and a target with an empty CABVIEW, in the
// state the window reads.
struct AliasWindowFixture : test::AliasFixture {
    explicit AliasWindowFixture(bool showWarning = false) {
        addEngine("Src", "src.eng", test::engineText("src", "e.sms", "c.sms", "s.cvf"));
        write("Src/CABVIEW/s.cvf", "CabViewFile ( f.ace )\n");
        write("Src/SOUND/e.sms", "File ( \"e.wav\" )\n");
        write("Src/SOUND/c.sms", "File ( \"c.wav\" )\n");
        addEngine("Tgt", "tgt.eng", test::engineText("tgt", "x.sms", "y.sms", "t.cvf"));
        std::filesystem::create_directories(path("Tgt/CABVIEW"));
        catalogue->engines[0].displayName = "Source engine";
        state->paths = paths;
        state->catalogue = *catalogue;
        state->settings.showAliasWarning = showWarning ? 0 : 1;
        (void)saveSettings(state->settings, state->paths, fake.services);
    }
    std::unique_ptr<AppState> state = std::make_unique<AppState>();
};

void choose(QListWidget* list, const QString& line) {
    const auto items = list->findItems(line, Qt::MatchExactly);
    QVERIFY2(!items.isEmpty(), qPrintable(line));
    list->setCurrentItem(items.front());
}

}  // namespace

class AliasWindow : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void opensOnTheListsWithTheBackupTicked();
    void warningComesFirstUntilTickedOff();
    void aliasesTheChosenLinesAndRestoresTheEngine();
    void fileWindowShowsTheReferenceAsItWillBeWritten();
    void exitMovesLeftCopiesOutOfTheProgramsFolder();
};

void AliasWindow::opensOnTheListsWithTheBackupTicked() {
    AliasWindowFixture f;
    ui::frmAlias window(*f.state, f.fake.services);
    window.Form_Load();
    QCOMPARE(window.windowTitle(), QString("Aliases"));
    QVERIFY(window.Check1->isChecked());
    QCOMPARE(window.Check1->text(), QString("  Backup aliased engine"));
    QCOMPARE(window.cmdEngAlias->toolTip(),
             QString("Alias cabview and sounds from an existing engine"));
    QCOMPARE(window.listNotAliased->count(), 1);
    QCOMPARE(window.listNotAliased->item(0)->text(), QString("tgt.eng"));
    QCOMPARE(window.listBaseEngineCabs->item(0)->text(), QString("-- NO ALIAS --"));
    QCOMPARE(window.listBaseEngineCabs->item(1)->text(), QString("src.eng"));
    QCOMPARE(window.listBaseEngineSounds->count(), 2);

    choose(window.listBaseEngineCabs, "src.eng");
    QCOMPARE(window.StatusBar->currentMessage(), QString("Src  -  Source engine"));
    choose(window.listBaseEngineCabs, "-- NO ALIAS --");
    QCOMPARE(window.StatusBar->currentMessage(), QString());
    // The lists take the room a larger window gives them.
    window.resize(600, 400);
    window.show();
    const int before = window.listNotAliased->height();
    window.resize(1200, 800);
    QApplication::processEvents();
    QVERIFY(window.listNotAliased->height() > before);
}

void AliasWindow::warningComesFirstUntilTickedOff() {
    AliasWindowFixture f(true);
    bool warned = false;
    QTimer::singleShot(0, [&] {
        auto* warning = qobject_cast<ui::Dialog*>(QApplication::activeModalWidget());
        if (!warning) return;
        warned = true;
        warning->Check1->setChecked(true);
        QTest::mouseClick(warning->OKButton, Qt::LeftButton);
    });
    ui::frmAlias window(*f.state, f.fake.services);
    window.Form_Load();
    QVERIFY(warned);
    QCOMPARE(readSettings(f.fake.fs, f.paths.programFolder).showAliasWarning, std::int16_t(1));
    QCOMPARE(window.listNotAliased->count(), 1);  // the lists are built behind it
}

void AliasWindow::aliasesTheChosenLinesAndRestoresTheEngine() {
    AliasWindowFixture f;
    const std::string original = f.read("Tgt/tgt.eng");
    ui::frmAlias window(*f.state, f.fake.services);
    window.Form_Load();
    QTest::mouseClick(window.cmdEngAlias, Qt::LeftButton);
    QCOMPARE(f.fake.dialogs.texts().back(), std::string("You must provide an engine to alias!"));

    choose(window.listNotAliased, "tgt.eng");
    choose(window.listBaseEngineCabs, "src.eng");
    choose(window.listBaseEngineSounds, "-- NO ALIAS --");
    QTest::mouseClick(window.cmdEngAlias, Qt::LeftButton);
    QVERIFY(f.fake.dialogs.texts().back().starts_with("The locomotive has been aliased!"));
    QCOMPARE(f.read("Tgt/tgt.eng.bk"), original);
    QVERIFY(f.exists("Tgt/CABVIEW/s.cvf"));

    QTest::mouseClick(window.cmdRestore, Qt::LeftButton);
    QCOMPARE(f.fake.dialogs.texts().back(), std::string("The engine tgt.eng has been restored!"));
    QCOMPARE(f.read("Tgt/TGT.ENG"), original);
}

void AliasWindow::fileWindowShowsTheReferenceAsItWillBeWritten() {
    AliasWindowFixture f;
    ui::frmAliasEngCab window(*f.state, f.fake.services);
    QCOMPARE(window.windowTitle(), QString("Alias engine cabview from folder"));
    QCOMPARE(window.Label1->text(), QString("Please select the path for the source cabview"));
    window.chooser->Text1->setText(QString::fromStdString(f.path("Src/CABVIEW/s.cvf")));
    QCOMPARE(window.lblPath->text(), QString("..\\\\..\\\\Src\\\\CABVIEW\\\\s.cvf"));
    QCOMPARE(window.Label3->text(), QString::fromStdString(f.path("Src/CABVIEW/s.cvf")));
    QTest::mouseClick(window.Command1, Qt::LeftButton);
    QCOMPARE(window.chosen(), QString::fromStdString(f.path("Src/CABVIEW/s.cvf")));

    ui::frmAliasEngCab cancelled(*f.state, f.fake.services);
    cancelled.chooser->Text1->setText(QString::fromStdString(f.path("Src/CABVIEW/s.cvf")));
    QCOMPARE(cancelled.Command2->text(), QString("&Cancel"));
    QTest::mouseClick(cancelled.Command2, Qt::LeftButton);
    QVERIFY(cancelled.chosen().isEmpty());
}

void AliasWindow::exitMovesLeftCopiesOutOfTheProgramsFolder() {
    AliasWindowFixture f;
    f.msts.writeBytes("../home/left.eng", "x");
    ui::frmAlias window(*f.state, f.fake.services);
    window.Form_Load();
    QCOMPARE(f.fake.desktop.trashed.size(), std::size_t(1));
    f.msts.writeBytes("../home/again.ENG", "x");
    QTest::mouseClick(window.Command1, Qt::LeftButton);
    QCOMPARE(f.fake.desktop.trashed.size(), std::size_t(2));

    // Where the program's folder is the MSTS folder, such files are engines: they stay.
    AliasWindowFixture inside;
    inside.state->paths.programFolder = inside.paths.trainsetPath + "/Src";
    (void)saveSettings(inside.state->settings, inside.state->paths, inside.fake.services);
    ui::frmAlias guarded(*inside.state, inside.fake.services);
    guarded.Form_Load();
    QTest::mouseClick(guarded.Command1, Qt::LeftButton);
    QVERIFY(inside.fake.desktop.trashed.empty());
    QVERIFY(inside.exists("Src/src.eng"));
}

QTEST_MAIN(AliasWindow)
#include "test_frmAlias.moc"
