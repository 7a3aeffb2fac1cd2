#include <QAction>
#include <QApplication>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTest>
#include <QToolButton>
#include <algorithm>
#include <filesystem>
#include <functional>
#include <fstream>

#include "core/settings/settings_record.h"
#include "main_window_fixture.h"

using rakeyard::test::MainWindowFixture;

class MainWindow : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void menuEntriesCarryTheirCaptions();
    void entriesOfWindowsNotBuiltAreHidden();
    void filterItemRunsTheMenuEntryAndStoresTheWord();
    void listsShowTheCatalogueWithCounts();
    void searchBoxNarrowsSixThousandEnginesAsOneTypes();
    void headerClickSortsAColumnAndKeepsTheLines();
    void listLinesKeepTheirActionsWhateverTheOrder();
    void doubleClickWithUnitThreeSelectedPutsTheNewUnitInSlotThree();
    void pasteAppendsTheClickedUnitsInClickOrder();
    void deleteRemovesOnlyTheShiftClickedSlots();
    void rightClickFlipsTheUnitAndLeavesItAloneSelected();
    void keyboardMovesBetweenSlotsSelectsAndMarks();
    void uidTooBigIsRefusedAndKeepsTheOldNumber();
    void startErrorsButtonOpensTheEditorOrTrashesTheReport();
    void windowTakesItsStoredSizeAndGrowsItsContents();
    void cancelOnEverySaveQuestionKeepsTheConsistAndTheWindow();
    void aSaveThatFailsOnExitKeepsTheWindowOpen();
    void alwaysShowPictureIsAStoredCheckMark();
};

void MainWindow::menuEntriesCarryTheirCaptions() {
    MainWindowFixture f;
    // The menu bar is reached by name, and every entry has a caption and a name of its own.
    const auto menus = f.window->findChildren<QMenu*>();
    QVERIFY(menus.size() >= 8);
    QStringList names;
    for (const QAction* entry : f.window->findChildren<QAction*>()) {
        if (!entry->objectName().startsWith("mnu")) continue;
        QVERIFY2(!names.contains(entry->objectName()), qPrintable(entry->objectName()));
        names << entry->objectName();
        if (!entry->isSeparator() && !entry->objectName().startsWith("mnuEmpty"))
            QVERIFY2(!entry->text().isEmpty(), qPrintable(entry->objectName()));
    }
    QCOMPARE(f.window->findChild<QMenu*>("mnuConsists")->title(), QString("&Consists"));
    QCOMPARE(f.window->findChild<QAction*>("mnuUnicode")->text(),
             QString("&Check for non-Unicode files"));
    // The recent consists and their separator stay hidden until a consist was loaded.
    for (const char* name : {"mnuDummy3", "mnuEmpty_1", "mnuEmpty_2", "mnuEmpty_3", "mnuEmpty_4"})
        QVERIFY2(!f.window->findChild<QAction*>(name)->isVisible(), name);
}

void MainWindow::entriesOfWindowsNotBuiltAreHidden() {
    MainWindowFixture f;
    for (const char* name :
         {"mnuEditFile"}) {
        QVERIFY2(!f.window->findChild<QAction*>(name)->isEnabled(), name);
        QVERIFY2(!f.window->findChild<QAction*>(name)->isVisible(), name);
    }
    QVERIFY(f.window->findChild<QMenu*>("mnuMisc")->menuAction()->isVisible());
    QVERIFY(f.window->findChild<QMenu*>("mnuView")->menuAction()->isVisible());
    QVERIFY(f.window->findChild<QMenu*>("mnuTests")->menuAction()->isVisible());
    for (const char* name :
         {"mnuLoad",     "mnuSave",        "mnuNew",      "mnuExit",  "mnuRenumber", "mnuAdd",
          "mnuInsert",   "mnuDelete",      "mnuUnicode",  "mnuSteam", "mnuMSTSpath", "mnuEditor",
          "mnu3Dviewer", "mnuScreenshots", "mnuHelpFile", "mnuAbout", "tbr_open",    "tbr_save",
          "tbr_paste",   "tbr_delete",     "mnuShowPic",  "mnuMissing", "tbr_test",
          "mnuAliasing", "tbr_alias",      "mnuMaxvel",  "tbr_random", "mnuBigones",
          "mnuAllocated", "mnuPicture",    "mnuPreview", "mnuConsUse", "tbr_dependencies",
          "mnuEditUnit", "mnuActsUse", "tbr_activitydependencies", "mnuLoose", "tbr_loose"})
        QVERIFY2(f.window->findChild<QAction*>(name)->isEnabled(), name);
}

void MainWindow::filterItemRunsTheMenuEntryAndStoresTheWord() {
    MainWindowFixture f;
    f.window->findChild<QAction*>("tbr_filter_carriages")->trigger();
    QCOMPARE(f.state->paths.wagonFilter, std::string("Carriage"));
    QVERIFY(f.window->mnuCarriages->isChecked());
    QVERIFY(!f.window->mnuWagAll->isChecked());
    QCOMPARE(f.window->wagList->count(), 2);
    QCOMPARE(f.window->Label4->text(), QString("2"));
    QVERIFY(f.msts.exists("home/settings.bin"));
    QVERIFY(f.msts.read("home/settings.bin").substr(1640, 10) == "Carriage  ");
    // The engine list is left as it was.
    QCOMPARE(f.window->locList->count(), 2);
}

void MainWindow::listsShowTheCatalogueWithCounts() {
    MainWindowFixture f;
    QCOMPARE(f.window->Label3->text(), QString("2"));
    QCOMPARE(f.window->Label4->text(), QString("4"));
    QCOMPARE(f.window->lblLocFilter->text(), QString("All - 2 of 2"));
    QCOMPARE(f.window->lblWagFilter->text(), QString("All - 4 of 4"));
    // Sorted by display name; the key stands behind "^".
    QVERIFY(f.window->locList->lineOfRow(0).startsWith("4F goods"));
    QVERIFY(f.window->locList->lineOfRow(0).endsWith("^4f.eng"));
    f.window->wagList->setCurrentRow(0);
    QCOMPARE(f.window->StatusBar1->text().endsWith(" -- Brake coach"), true);

    // The edit icon beside a list edits that list's unit, wherever the focus stood.
    f.window->wagList->setCurrentRow(-1);
    f.window->locList->setFocus();
    QTest::mouseClick(f.window->Image4, Qt::LeftButton);
    QCOMPARE(f.fake.dialogs.texts().back(), std::string("You must select a wagon from the list."));
}

void MainWindow::searchBoxNarrowsSixThousandEnginesAsOneTypes() {
    MainWindowFixture f;
    auto& catalogue = f.state->catalogue;
    for (int i = 0; i < 6000; ++i) {
        const std::string number = QString("%1").arg(i, 4, 10, QChar('0')).toStdString();
        catalogue.engines[i] = rakeyard::test::unit(i % 2 ? "ODD" : "EVEN", "e" + number + ".eng",
                                                    "Engine " + number, "Diesel", true);
        catalogue.engines[i].folderPath = f.msts.trainset() + "/" + catalogue.engines[i].folderName;
    }
    catalogue.engineCount = 6000;
    f.window->showUnitLists();
    QCOMPARE(f.window->locList->count(), 6000);

    QTest::keyClicks(f.window->txtLocSearch, "odd 004");
    QStringList shown;
    for (int i = 0; i < f.window->locList->count(); ++i)
        shown << f.window->locList->lineOfRow(i).section('^', -1);
    QCOMPARE(shown, QStringList({"e0041.eng", "e0043.eng", "e0045.eng", "e0047.eng", "e0049.eng"}));
    QCOMPARE(f.window->Label3->text(), QString("5"));
    QCOMPARE(f.window->lblLocFilter->text(), QString("All - 6000 of 6000, 5 found"));

    // Enter adds the one unit left; Escape brings every line back.
    QTest::keyClicks(f.window->txtLocSearch, "7");
    QCOMPARE(f.window->locList->count(), 1);
    QTest::keyClick(f.window->txtLocSearch, Qt::Key_Return);
    QCOMPARE(f.slot(0).fileName, std::string("e0047.eng"));
    QTest::keyClick(f.window->txtLocSearch, Qt::Key_Escape);
    QCOMPARE(f.window->locList->count(), 6000);
    QCOMPARE(f.window->lblLocFilter->text(), QString("All - 6000 of 6000"));

    // Down goes into the list, where the unit found is still the current line.
    QTest::keyClick(f.window->txtLocSearch, Qt::Key_Down);
    QCOMPARE(f.window->focusWidget(), f.window->locList);
    QTest::keyClick(f.window->locList, Qt::Key_Down);
    QTest::keyClick(f.window->locList, Qt::Key_Return);
    QCOMPARE(f.slot(1).fileName, std::string("e0048.eng"));
}

void MainWindow::headerClickSortsAColumnAndKeepsTheLines() {
    MainWindowFixture f;
    auto* header = f.window->wagList->header();
    const int fileColumn = 3;
    QCOMPARE(f.window->wagList->model()->headerData(fileColumn, Qt::Horizontal).toString(),
             QString("File"));
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {},
                      QPoint(header->sectionViewportPosition(fileColumn) + 5, 5));
    QStringList files;
    for (int i = 0; i < f.window->wagList->count(); ++i)
        files << f.window->wagList->lineOfRow(i).section('^', -1);
    const QStringList ascending{"brake.wag", "coal.wag", "open.wag", "van.wag"};
    QVERIFY(files == ascending || files == QStringList(ascending.rbegin(), ascending.rend()));
    // The other way round on the next click, and the lines' order (by name) on the one after.
    auto shownFiles = [&] {
        QStringList shown;
        for (int i = 0; i < f.window->wagList->count(); ++i)
            shown << f.window->wagList->lineOfRow(i).section('^', -1);
        return shown;
    };
    const QStringList byName{"brake.wag", "coal.wag", "van.wag", "open.wag"};
    const QPoint section(header->sectionViewportPosition(fileColumn) + 5, 5);
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, section);
    QCOMPARE(shownFiles(), QStringList(files.rbegin(), files.rend()));
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, section);
    QCOMPARE(shownFiles(), byName);
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, section);
    f.window->wagList->sortAsLines();
    QVERIFY(f.window->wagList->lineOfRow(0).startsWith("Brake coach"));
    QVERIFY(f.window->wagList->lineOfRow(3).startsWith("Open coach"));
}

// Sorted by a column and narrowed by a search, a line still stands for its own unit: double
// click adds it, Ctrl+click opens its file, Delete offers its folder to the trash.
void MainWindow::listLinesKeepTheirActionsWhateverTheOrder() {
    MainWindowFixture f;
    f.state->paths.editorPath = "/usr/bin/gedit";
    auto* list = f.window->wagList;
    list->sortByColumn(3, Qt::DescendingOrder);  // by file: van, open, coal, brake
    QVERIFY(list->lineOfRow(0).endsWith("^van.wag"));
    QTest::keyClicks(f.window->txtWagSearch, "coaches");
    QCOMPARE(list->count(), 2);
    QVERIFY(list->lineOfRow(0).endsWith("^open.wag"));

    f.addWagon("brake.wag");
    QCOMPARE(f.slot(0).fileName, std::string("brake.wag"));

    const QPoint first = list->visualRowRect(0).center();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::ControlModifier, first);
    QCOMPARE(f.fake.desktop.started.size(), std::size_t(1));
    QVERIFY(f.fake.desktop.started[0].ends_with("open.wag"));

    std::filesystem::create_directories(f.msts.trainset() + "/COACHES");
    f.fake.dialogs.answers = {rakeyard::Answer::No};
    list->setCurrentRow(0);
    QTest::keyClick(list, Qt::Key_Delete);
    QVERIFY(f.fake.dialogs.shown.back().question);
    QVERIFY(f.fake.dialogs.shown.back().text.find("COACHES") != std::string::npos);
    QVERIFY(f.fake.desktop.trashed.empty());
}

void MainWindow::doubleClickWithUnitThreeSelectedPutsTheNewUnitInSlotThree() {
    MainWindowFixture f;
    for (const char* wagon : {"van.wag", "coal.wag", "open.wag", "brake.wag"})
        f.addWagon(wagon);
    QCOMPARE(f.slot(3).fileName, std::string("brake.wag"));
    QCOMPARE(f.window->lblWagons->text(), QString("4"));
    f.clickSlot(2);
    QCOMPARE(f.shownKey(2), QString("CARSEL"));
    f.addEngine("class37.eng");
    QCOMPARE(f.slot(2).fileName, std::string("class37.eng"));
    QCOMPARE(f.slot(3).fileName, std::string("open.wag"));
    QCOMPARE(f.slot(4).fileName, std::string("brake.wag"));
    QCOMPARE(f.shownKey(2), QString("DSL"));
    QCOMPARE(f.window->Label1[2]->text(), QString("Class 37 diesel"));
    QCOMPARE(f.window->Label1[3]->text(), QString("Open coach"));
    QVERIFY(f.state->consist.consistChanged);
    // An engine is no wagon.
    QCOMPARE(f.window->lblWagons->text(), QString("4"));
    QCOMPARE(f.window->lblLenght->text(), QString("50"));
}

void MainWindow::pasteAppendsTheClickedUnitsInClickOrder() {
    MainWindowFixture f;
    for (const char* wagon : {"van.wag", "coal.wag", "open.wag"})
        f.addWagon(wagon);
    f.clickSlot(2);                       // A
    f.clickSlot(0, Qt::ControlModifier);  // B
    QCOMPARE(f.shownKey(0), QString("WAGSEL"));
    QCOMPARE(f.shownKey(2), QString("CARSEL"));
    f.window->findChild<QAction*>("tbr_paste")->trigger();
    QVERIFY(f.fake.dialogs.shown.empty());
    QCOMPARE(f.slot(3).fileName, std::string("open.wag"));
    QCOMPARE(f.slot(4).fileName, std::string("van.wag"));
    QCOMPARE(f.slot(5).fileName, std::string(""));
    QCOMPARE(f.shownKey(3), QString("CARSEL"));
    QCOMPARE(f.shownKey(4), QString("WAGSEL"));
    QCOMPARE(f.window->lblWagons->text(), QString("5"));
}

void MainWindow::deleteRemovesOnlyTheShiftClickedSlots() {
    MainWindowFixture f;
    for (const char* wagon : {"van.wag", "coal.wag", "open.wag"})
        f.addWagon(wagon);
    f.clickSlot(0);
    f.clickSlot(1, Qt::ShiftModifier);
    QCOMPARE(f.shownKey(0), QString("WAGSEL"));
    QCOMPARE(f.shownKey(1), QString("DEL"));
    f.window->mnuDelete->trigger();  // the question to close the gap gets No
    QCOMPARE(f.fake.dialogs.texts().back(),
             std::string("Do you wish to shift and clear the gaps?"));
    QCOMPARE(f.slot(0).fileName, std::string("van.wag"));
    QCOMPARE(f.slot(1).fileName, std::string(""));
    QCOMPARE(f.slot(2).fileName, std::string("open.wag"));
    QCOMPARE(f.shownKey(1), QString("EMP"));
    QCOMPARE(f.window->Label1[1]->text(), QString());
    QCOMPARE(f.window->Text1[1]->text(), QString());
    QCOMPARE(f.window->lblWagons->text(), QString("2"));
}

void MainWindow::rightClickFlipsTheUnitAndLeavesItAloneSelected() {
    MainWindowFixture f;
    for (const char* wagon : {"van.wag", "coal.wag", "open.wag"})
        f.addWagon(wagon);
    f.clickSlot(0);
    f.clickSlot(1, Qt::ControlModifier);
    f.clickSlot(2, {}, Qt::RightButton);
    QVERIFY(f.slot(2).flipped);
    QCOMPARE(f.shownKey(2), QString("CARINVSEL"));
    QCOMPARE(f.shownKey(0), QString("WAG"));
    QCOMPARE(f.shownKey(1), QString("WAG"));
    QVERIFY(!f.slot(0).flipped);
    // One selected unit and the spare entry.
    QCOMPARE(f.state->consist.selectionBuffer.size(), std::size_t(2));
    QCOMPARE(f.state->consist.selectionBuffer[0].fileName, std::string("open.wag"));
    // A double click with the right button deletes nothing.
    QTest::mouseDClick(f.window->Picture1[2], Qt::RightButton);
    QCOMPARE(f.slot(2).fileName, std::string("open.wag"));
}

void MainWindow::keyboardMovesBetweenSlotsSelectsAndMarks() {
    MainWindowFixture f;
    for (const char* wagon : {"van.wag", "coal.wag"})
        f.addWagon(wagon);
    QApplication::setActiveWindow(f.window.get());
    f.window->Picture1[0]->setFocus();
    QTest::keyClick(f.window->Picture1[0], Qt::Key_Right);
    QVERIFY(f.window->Picture1[1]->hasFocus());
    QTest::keyClick(f.window->Picture1[1], Qt::Key_Return);
    QCOMPARE(f.shownKey(1), QString("WAGSEL"));
    QTest::keyClick(f.window->Picture1[1], Qt::Key_Left);
    QTest::keyClick(f.window->Picture1[0], Qt::Key_Delete);
    QCOMPARE(f.shownKey(0), QString("DEL"));
    QVERIFY(f.slot(0).markedForDelete);
    QCOMPARE(f.shownKey(1), QString("WAGSEL"));
}

void MainWindow::uidTooBigIsRefusedAndKeepsTheOldNumber() {
    MainWindowFixture f;
    f.addWagon("van.wag");
    f.window->Text1[0]->selectAll();
    // Each key stores the number so far: 999999 is taken, 9999999 is refused.
    QTest::keyClicks(f.window->Text1[0], "9999999");
    QCOMPARE(f.slot(0).uid, 999999.0f);
    QCOMPARE(f.fake.dialogs.texts().back(),
             std::string("Number too big! You must choose a smaller one."));
    f.window->Text1[0]->clear();
    QTest::keyClicks(f.window->Text1[0], "42");
    QCOMPARE(f.slot(0).uid, 42.0f);
}

void MainWindow::startErrorsButtonOpensTheEditorOrTrashesTheReport() {
    MainWindowFixture f;
    f.state->paths.editorPath = "/usr/bin/gedit";
    std::filesystem::create_directories(f.msts.home() + "/Reports");
    const std::string report = f.msts.home() + "/Reports/StartErrors.txt";
    std::ofstream(report) << "finding\r\n";
    f.window->showStartErrorsButton();
    QVERIFY(f.window->cmdStartErrors->isVisible());
    QTest::mouseClick(f.window->cmdStartErrors, Qt::LeftButton);
    QCOMPARE(f.fake.desktop.started.size(), std::size_t(1));
    QVERIFY(f.fake.desktop.started[0].starts_with("/usr/bin/gedit "));
    QVERIFY(f.fake.desktop.started[0].ends_with("StartErrors.txt"));
    Q_EMIT f.window->cmdStartErrors->customContextMenuRequested(QPoint(2, 2));
    QVERIFY(!f.window->cmdStartErrors->isVisible());
    QCOMPARE(f.fake.desktop.trashed.size(), std::size_t(1));
    QVERIFY(!std::filesystem::exists(report));
}

void MainWindow::windowTakesItsStoredSizeAndGrowsItsContents() {
    MainWindowFixture f;
    f.state->settings.mainWidth = 15000;
    f.state->settings.mainHeight = 9000;
    f.window->placeFromSettings();
    QCOMPARE(f.window->size(), QSize(1000, 600));
    // A stored size below the minimum is raised to it.
    f.state->settings.mainWidth = 1500;
    f.state->settings.mainHeight = 1500;
    f.window->placeFromSettings();
    QCOMPARE(f.window->size(), f.window->minimumSize());

    f.window->resize(700, 450);
    QApplication::processEvents();
    const QSize list = f.window->locList->size();
    const QRect picture = f.window->Picture1[0]->pictureRect();
    f.window->resize(1600, 1000);
    QApplication::processEvents();
    QVERIFY(f.window->locList->width() > list.width() + 300);
    QVERIFY(f.window->locList->height() > list.height() + 200);
    const QRect grown = f.window->Picture1[0]->pictureRect();
    QVERIFY(grown.width() > picture.width() * 3 / 2);
    QVERIFY(qAbs(grown.width() - grown.height() * 2) <= 2);  // the pictures keep their shape
}

void MainWindow::cancelOnEverySaveQuestionKeepsTheConsistAndTheWindow() {
    MainWindowFixture f;
    f.addWagon("van.wag");
    const std::pair<const char*, std::function<void()>> actions[] = {
        {"New", [&] { f.window->mnuNew->trigger(); }},
        {"Exit", [&] { f.window->mnuExit->trigger(); }},
        {"close button", [&] { f.window->close(); }},
        {"refresh", [&] { QTest::mouseClick(f.window->Command2, Qt::LeftButton); }},
    };
    for (const auto& [name, action] : actions) {
        f.fake.dialogs.shown.clear();
        f.fake.dialogs.answers = {rakeyard::Answer::Cancel};
        action();
        QVERIFY2(!f.fake.dialogs.shown.empty() && f.fake.dialogs.shown[0].question, name);
        QVERIFY2(f.window->isVisible(), name);
        QVERIFY2(f.slot(0).fileName == "van.wag", name);
        QVERIFY2(f.state->consist.consistChanged, name);
        QVERIFY2(f.window->windowTitle().contains('*'), name);
    }
    QCOMPARE(f.state->catalogue.wagonCount, std::size_t(4));  // not read again
}

void MainWindow::aSaveThatFailsOnExitKeepsTheWindowOpen() {
    MainWindowFixture f;
    std::filesystem::create_directories(f.msts.consists());
    f.addWagon("van.wag");
    f.window->Text2[0]->setText("Kept");
    f.state->consist.header.fileName = "Kept";
    f.fake.fs.failAfterBytes = 10;  // the disk fills up during the save
    f.fake.dialogs.answers = {rakeyard::Answer::Yes, rakeyard::Answer::Yes};
    f.window->mnuExit->trigger();
    QVERIFY(f.window->isVisible());
    f.window->close();
    QVERIFY(f.window->isVisible());
    QCOMPARE(f.slot(0).fileName, std::string("van.wag"));
    QVERIFY(f.state->consist.consistChanged);
    QVERIFY(!std::filesystem::exists(f.msts.consists() + "/Kept.con"));
    const auto texts = f.fake.dialogs.texts();
    QVERIFY(std::any_of(texts.begin(), texts.end(), [](const std::string& text) {
        return text.find("could not be saved") != std::string::npos;
    }));
}

void MainWindow::alwaysShowPictureIsAStoredCheckMark() {
    MainWindowFixture f;
    rakeyard::setText(f.state->settings, &rakeyard::SettingsRecord::showDescription, "on");
    f.window->showStoredOptions();
    QVERIFY(f.window->mnuShowPic->isChecked());
    const int windows = QApplication::topLevelWidgets().size();

    f.window->mnuShowPic->trigger();
    QVERIFY(!f.window->mnuShowPic->isChecked());
    QCOMPARE(f.state->settings.showDescription, std::string("off"));
    QCOMPARE(f.msts.read("home/settings.bin").substr(1627, 3), std::string("off"));

    f.window->mnuShowPic->trigger();
    QVERIFY(f.window->mnuShowPic->isChecked());
    QCOMPARE(f.msts.read("home/settings.bin").substr(1627, 3), std::string("on "));
    // No window opens and no message is shown.
    QCOMPARE(QApplication::topLevelWidgets().size(), windows);
    QVERIFY(f.fake.dialogs.shown.empty());

    // A record that never held the choice, or holds "off", leaves the entry unchecked.
    for (const std::string& stored : {std::string("off"), std::string(3, '\0')}) {
        f.state->settings.showDescription = stored;
        f.window->showStoredOptions();
        QVERIFY(!f.window->mnuShowPic->isChecked());
    }
}

QTEST_MAIN(MainWindow)
#include "test_frmMain.moc"
