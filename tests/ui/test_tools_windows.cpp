// The tools' windows: maximum velocity, random consist, allocated space, big ones.
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QTest>
#include <filesystem>
#include <fstream>
#include <memory>

#include "core/app/app_state.h"
#include "main_window_fixture.h"
#include "support/fakes.h"
#include "support/msts_tree.h"
#include "ui/widgets/space_chart.h"
#include "ui/windows/frmBigOnes.h"
#include "ui/windows/frmDep.h"
#include "ui/windows/frmDesc.h"
#include "ui/windows/frmMaxVelocity.h"
#include "ui/windows/frmPreview.h"
#include "ui/windows/frmRand.h"
#include "ui/windows/frmStats.h"
#include "ui/windows/unit_edit_window.h"

using namespace rakeyard;

class ToolsWindows : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void maxVelocityConvertsWhatWasTypedAndUsesTheValues();
    void maxVelocityCancelChangesNothing();
    void randomFiltersTicksAndPutsTheTrainInTheEditor();
    void bigOnesShowTheFirstOfEqualUnits();
    void statsShowsTotalsChartAndWritesLists();
    void descriptionFollowsTheListWithTheJpegBesideTheUnit();
    void previewShowsTheBmpOfThePageAndDependenciesLoadAndDelete();
    void engineEditorWritesTheFileAndTheListFollows();
};

void ToolsWindows::maxVelocityConvertsWhatWasTypedAndUsesTheValues() {
    test::FakeServices fake;
    ConsistState consist;
    consist.header.maxVelocity = "40.00000 1.00000";
    ui::frmMaxVelocity window(consist, fake.services);
    QCOMPARE(window.windowTitle(), QString("Maxvelocity calculator"));
    QCOMPARE(window.Text3->text(), QString("75"));
    QCOMPARE(window.Text6->text(), QString("40.00000"));
    QCOMPARE(window.Text7->text(), QString("1.00000"));
    QTest::keyClicks(window.Text1, "6x0");  // the letter is not let through
    QTest::keyClicks(window.Text4, "30");
    QTest::mouseClick(window.Command1, Qt::LeftButton);
    QCOMPARE(window.Text1->text(), QString("60"));
    QCOMPARE(window.Text2->text(), QString("96.5606"));
    QCOMPARE(window.Text4->text(), QString("30"));
    QCOMPARE(window.Text5->text(), QString("48.2803"));
    QCOMPARE(window.Text6->text(), QString("35.7631"));
    QCOMPARE(window.Text7->text(), QString("0.5"));

    // Typing in the km/h box converts the other way at the next calculation.
    window.Text2->clear();
    QTest::keyClicks(window.Text2, "100");
    QTest::mouseClick(window.Command1, Qt::LeftButton);
    QCOMPARE(window.Text1->text(), QString("62.1371"));

    const QString before = window.Label12->styleSheet();
    QTest::qWait(600);
    QVERIFY(window.Label12->styleSheet() != before);  // the warning blinks

    QTest::mouseClick(window.Command4, Qt::LeftButton);
    QCOMPARE(QString::fromStdString(consist.calculatedMaxVelocity), QString("37.037 0.4828"));
    QCOMPARE(window.result(), int(QDialog::Accepted));
}

void ToolsWindows::maxVelocityCancelChangesNothing() {
    test::FakeServices fake;
    ConsistState consist;
    ui::frmMaxVelocity window(consist, fake.services);
    QVERIFY(window.Text6->text().isEmpty());
    window.Text3->setText("0");
    QTest::mouseClick(window.Command1, Qt::LeftButton);
    QCOMPARE(fake.dialogs.texts().back(),
             std::string("The efficiency factor must be greater than 0"));
    QTest::mouseClick(window.Command3, Qt::LeftButton);
    QVERIFY(consist.calculatedMaxVelocity.empty());
}

namespace {

UnitRecord wagon(const std::string& name, const char* coupler, const char* type) {
    UnitRecord record;
    record.fileName = name + ".wag";
    record.folderName = "W";
    record.displayName = name;
    record.couplerFront = record.couplerRear = coupler;
    record.unitType = type;
    record.mass = 20;
    record.length = 10;
    return record;
}

}  // namespace

void ToolsWindows::randomFiltersTicksAndPutsTheTrainInTheEditor() {
    test::MstsTree msts;
    test::FakeServices fake;
    auto state = std::make_unique<AppState>();
    state->paths.programFolder = msts.home();
    std::filesystem::create_directories(msts.home());
    auto& wagons = state->catalogue.wagons;
    wagons[0] = wagon("hopper", "A", "Freight");
    wagons[1] = wagon("van", "C", "Freight");
    wagons[2] = wagon("coach", "A", "Carriage");
    wagons[3] = wagon("tank", "A", "Freight");
    for (int i = 0; i < 4; ++i)
        wagons[i].folderPath = msts.trainset() + "/W";
    state->catalogue.wagonCount = 4;
    // The picture beside the hopper shows when its line is clicked.
    QImage picture(40, 20, QImage::Format_RGB32);
    picture.fill(Qt::red);
    std::filesystem::create_directories(msts.trainset() + "/W");
    QVERIFY(picture.save(QString::fromStdString(msts.trainset() + "/W/HOPPER.jpg")));
    RandomSource random;

    ui::frmRand window(*state, fake.services, random);
    QCOMPARE(window.windowTitle(), QString("Random consist"));
    QCOMPARE(window.wagList->count(), 2);  // automatic freight: hopper, tank
    QCOMPARE(window.lblWag->text(), QString("2"));
    QCOMPARE(window.Label3->text(), QString("wagons"));
    window.Option1[1]->setChecked(true);  // Chain
    QCOMPARE(window.wagList->count(), 1);
    QCOMPARE(window.Label3->text(), QString("wagon"));
    window.Option1[0]->setChecked(true);
    window.wagList->setCurrentRow(0);
    QVERIFY(!window.Picture1->pixmap().isNull());
    window.wagList->setCurrentRow(1);
    QVERIFY(window.Picture1->pixmap().isNull());

    QTest::mouseClick(window.cmdCheckAll, Qt::LeftButton);
    QTest::keyClicks(window.Text1, "151");
    QTest::mouseClick(window.Command1, Qt::LeftButton);
    QCOMPARE(fake.dialogs.texts().back(),
             std::string("The maximum number of wagons you can add is 150!"));
    QVERIFY(state->consist.slots[0].displayName.empty());
    window.Text1->setText("5");
    QTest::mouseClick(window.Command1, Qt::LeftButton);
    QCOMPARE(window.result(), int(QDialog::Accepted));
    QCOMPARE(QString::fromStdString(state->consist.totals.wagons), QString("5"));
    for (int i = 0; i < 5; ++i)
        QVERIFY(state->consist.slots[i].fileName == "hopper.wag" ||
                state->consist.slots[i].fileName == "tank.wag");
    QVERIFY(state->consist.slots[5].displayName.empty());
}

void ToolsWindows::bigOnesShowTheFirstOfEqualUnits() {
    auto catalogue = std::make_unique<UnitCatalogue>();
    catalogue->engines[0] = wagon("first", "A", "Diesel");
    catalogue->engines[1] = wagon("second", "A", "Diesel");
    catalogue->engines[1].maxPower = "2000kW";
    catalogue->engineCount = 2;
    ui::frmBigOnes window(*catalogue);
    QCOMPARE(window.windowTitle(), QString("The big ones"));
    QCOMPARE(window.findChild<QLabel*>("Label1")->text(), QString("second"));
    QCOMPARE(window.findChild<QLabel*>("Label2")->text(), QString("2000kW"));
    QCOMPARE(window.findChild<QLabel*>("Label5")->text(), QString("first"));
    QCOMPARE(window.findChild<QLabel*>("Label6")->text(), QString("20t"));
    QCOMPARE(window.findChild<QLabel*>("Label7")->text(), QString(""));
    QCOMPARE(window.findChild<QLabel*>("Label8")->text(), QString("0m"));
}

void ToolsWindows::statsShowsTotalsChartAndWritesLists() {
    test::MstsTree msts;
    test::FakeServices fake;
    auto state = std::make_unique<AppState>();
    state->paths.programFolder = msts.home();
    state->paths.consistsPath = msts.consists();
    state->paths.trainsetPath = msts.trainset();
    std::filesystem::create_directories(msts.home() + "/Reports");
    msts.writeBytes("TRAINS/TRAINSET/E/e.eng", std::string(2048000, 'x'));
    msts.writeBytes("TRAINS/TRAINSET/W/w.wag", std::string(1234, 'x'));
    msts.writeBytes("TRAINS/CONSISTS/c.con", std::string(10, 'x'));
    state->catalogue.wagons[0] = wagon("w", "A", "Freight");
    state->catalogue.wagonCount = 1;

    ui::frmStats window(*state, fake.services);
    window.Form_Load();
    QCOMPARE(window.windowTitle(), QString("Allocated space"));
    QCOMPARE(window.Label13[1]->text(), QString(" 1"));
    QCOMPARE(window.Label13[2]->text(), QString(" 1"));
    QCOMPARE(window.Label13[3]->text(), QString(" 2,048,000"));
    QCOMPARE(window.Label15[3]->text(), QString(" 2.00"));
    QCOMPARE(window.Label13[7]->text(), QString(" 1,234"));
    QCOMPARE(window.Label15[7]->text(), QString(" 0.00"));  // the consists' megabytes
    QCOMPARE(window.chartSpace->bars().size(), std::size_t(5));
    QCOMPARE(window.chartSpace->bars()[0].bytes, std::uint64_t(2048000));
    QCOMPARE(window.Frame1->title(), QString(" Select which type of output you wish "));
    window.Option2->click();
    QCOMPARE(msts.read("home/Reports/Wags1.txt"), std::string("\"w.wag\"\r\n"));
    QVERIFY(!msts.exists("home/Reports/Wagons list.txt"));
}

void ToolsWindows::descriptionFollowsTheListWithTheJpegBesideTheUnit() {
    test::MainWindowFixture f;
    f.msts.write("TRAINS/TRAINSET/CLASS37/class37.eng",
                 "Wagon ( class37\n\tMass ( 102t )\n)\nEngine ( class37\n\tDescription (\n"
                 "\t\t\"Power: 1,750 hp\\n\"\n\t)\n)\n");
    // Both pictures stand beside the unit: the description shows the .jpg, the last found.
    for (const char* name : {"CLASS37.bmp", "CLASS37.jpg"}) {
        QImage picture(40, 20, QImage::Format_RGB32);
        picture.fill(QString(name).endsWith("jpg") ? Qt::green : Qt::blue);
        QVERIFY(picture.save(QString::fromStdString(f.msts.trainset() + "/CLASS37/") + name));
    }
    f.window->findChild<QAction*>("mnuPicture")->trigger();
    auto* desc = f.window->findChild<ui::frmDesc*>("frmDesc");
    QVERIFY(desc && desc->isVisible());
    QCOMPARE(desc->windowTitle(), QString("Description of this unit"));
    QCOMPARE(desc->Text1->toPlainText(), QString("No description available for this unit!"));
    QCOMPARE(desc->SliderH->toolTip(), QString("Horizontal picture size"));

    int row = 0;
    while (!f.window->locList->lineOfRow(row).contains("class37.eng"))
        ++row;
    f.window->locList->setCurrentRow(row);
    QVERIFY(desc->Text1->toPlainText().startsWith("Power: 1,750 hp\n\n" + QString(33, '*')));
    QVERIFY(desc->Text1->toPlainText().contains("Mass: 102t"));
    QVERIFY(desc->Image1->isVisible());
    QVERIFY(!desc->Image2->isVisible());
    const QImage shown = desc->Image1->pixmap().toImage();
    const QColor colour(shown.pixel(5, 5));
    QVERIFY(colour.green() > 200 && colour.blue() < 50);  // the green .jpg, not the blue .bmp

    // A corrupt picture shows as none; an empty one is not taken, and the .bmp stands.
    std::ofstream(f.msts.trainset() + "/CLASS37/CLASS37.jpg", std::ios::trunc) << "not a jpeg";
    desc->showPicOnScreen();
    QVERIFY(!desc->Image1->isVisible() && desc->Image2->isVisible());
    std::ofstream(f.msts.trainset() + "/CLASS37/CLASS37.jpg", std::ios::trunc);
    desc->showPicOnScreen();
    QVERIFY(desc->Image1->isVisible());

    desc->SliderH->setValue(4500);
    QCOMPARE(desc->Image1->width(), 300);
    desc->close();
    QCOMPARE(f.state->settings.pictureWidth, std::int16_t(4500));
}

void ToolsWindows::previewShowsTheBmpOfThePageAndDependenciesLoadAndDelete() {
    test::MainWindowFixture f;
    std::filesystem::create_directories(f.msts.trainset() + "/WAGONS");
    for (const char* name : {"VAN.jpg", "VAN.bmp"}) {
        QImage picture(40, 20, QImage::Format_RGB32);
        picture.fill(QString(name).endsWith("bmp") ? Qt::blue : Qt::green);
        QVERIFY(picture.save(QString::fromStdString(f.msts.trainset() + "/WAGONS/") + name));
    }
    f.addWagon("van.wag");
    f.addWagon("coal.wag");
    f.window->findChild<QAction*>("mnuPreview")->trigger();
    auto* preview = f.window->findChild<ui::frmPreview*>("frmPreview");
    QVERIFY(preview && preview->isVisible());
    const QColor first(preview->Picture1[0]->pixmap().toImage().pixel(5, 5));
    QVERIFY(first.blue() > 200 && first.green() < 50);  // the .bmp wins over the .jpg
    for (int i = 1; i < 6; ++i)
        QVERIFY(preview->Picture1[i]->pixmap().isNull());
    f.window->findChild<QAction*>("mnuPreview")->trigger();  // a second press closes it
    QVERIFY(!f.window->findChild<ui::frmPreview*>("frmPreview") ||
            !f.window->findChild<ui::frmPreview*>("frmPreview")->isVisible());

    f.msts.write("TRAINS/CONSISTS/Vans.con",
                 "Train (\n\tTrainCfg ( Vans\n\t\tName ( \"Vans\" )\n\t\tWagon (\n"
                 "\t\t\tWagonData ( \"van\" WAGONS )\n\t\t\tUiD ( 1 )\n\t\t)\n\t)\n)");
    const UnitRecord& van = f.state->catalogue.wagons[0];
    ui::frmDep window(*f.state, f.fake.services, van, false);
    QCOMPARE(window.windowTitle(), QString("Wagon dependencies..."));
    QVERIFY(window.Form_Load());
    QCOMPARE(window.conList->count(), 1);
    f.state->consist.consistChanged = false;
    window.conList->setCurrentRow(0);
    Q_EMIT window.conList->itemDoubleClicked(window.conList->item(0));
    QCOMPARE(QString::fromStdString(f.state->consist.header.name), QString("Vans"));
    window.conList->item(0)->setSelected(true);
    QTest::mouseClick(window.Command1, Qt::LeftButton);
    QCOMPARE(window.conList->count(), 0);
    QCOMPARE(f.fake.desktop.trashed.size(), std::size_t(1));

    ui::frmDep none(*f.state, f.fake.services, f.state->catalogue.wagons[2], false);
    QVERIFY(!none.Form_Load());
    QCOMPARE(f.fake.dialogs.texts().back(), std::string("There are no consists using this unit!"));
}

void ToolsWindows::engineEditorWritesTheFileAndTheListFollows() {
    test::MainWindowFixture f;
    UnitRecord& engine = f.state->catalogue.engines[0];
    engine.maxPower = "1305kW";
    engine.couplerFront = "?";
    f.msts.write("TRAINS/TRAINSET/CLASS37/class37.eng",
                 "Wagon ( class37\n\tCoupling (\n\t\tType ( Automatic )\n\t)\n)\n"
                 "Engine ( class37\n\tMaxPower ( 1305kW )\n)\n");
    ui::frmEngEdit window(engine, f.fake.services);
    QCOMPARE(window.windowTitle(), QString("Change engine parameters"));
    QCOMPARE(window.Text2->text(), QString("1305"));
    QCOMPARE(window.Label4->text(), QString("kW"));
    QCOMPARE(window.Combo1->currentText(), QString(""));  // "?" leaves the box empty
    QCOMPARE(window.Combo2->currentText(), QString("Chain"));
    window.Text1->setText("Class 37/4");
    window.Text2->clear();
    QTest::keyClicks(window.Text2, "16x00");
    window.Combo2->setCurrentText("Bar");
    QTest::mouseClick(window.Command1, Qt::LeftButton);
    QCOMPARE(window.result(), int(QDialog::Accepted));
    const std::string file = test::readWholeFile(f.msts.trainset() + "/CLASS37/class37.eng");
    QVERIFY(file.find(test::utf16Bytes("MaxPower ( 1600kW )")) != std::string::npos);
    QVERIFY(file.find(test::utf16Bytes("Type ( Bar )")) != std::string::npos);
    QVERIFY(file.find(test::utf16Bytes("Name ( \"Class 37/4\" )")) != std::string::npos);
    QCOMPARE(QString::fromStdString(engine.maxPower), QString("1600kW"));
    QCOMPARE(QString::fromStdString(engine.couplerRear), QString("B"));
    QCOMPARE(QString::fromStdString(engine.couplerFront), QString("?"));
}

QTEST_MAIN(ToolsWindows)
#include "test_tools_windows.moc"
