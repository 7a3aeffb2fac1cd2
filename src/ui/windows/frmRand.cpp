#include "ui/windows/frmRand.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QPixmap>
#include <QRadioButton>
#include <QRegularExpressionValidator>
#include <QVBoxLayout>

#include "core/platform/text_utf.h"
#include "core/settings/settings_file.h"
#include "core/tools/unit_picture.h"
#include "ui/support/handler_guard.h"
#include "ui/support/twips.h"
#include "ui/support/window_helpers.h"
#include "ui/windows/qt_services.h"

namespace rakeyard::ui {

namespace {

QGroupBox* optionFrame(const QString& name, const QString& caption, QWidget* parent) {
    auto* frame = named(new QGroupBox(caption, parent), name);
    new QVBoxLayout(frame);
    return frame;
}

QRadioButton* option(const QString& name, const QString& caption, QGroupBox* frame) {
    auto* choice = named(new QRadioButton(caption, frame), name);
    frame->layout()->addWidget(choice);
    return choice;
}

}  // namespace

frmRand::frmRand(AppState& state, Services& services, RandomSource& random, QWidget* parent)
    : QDialog(parent), state_(state), services_(services), random_(random) {
    setObjectName("frmRand");
    setWindowTitle("Random consist");
    Frame2 = optionFrame("Frame2", " Coupler ", this);
    Option1 = {option("Option1_0", "&Automatic", Frame2), option("Option1_1", "C&hain", Frame2),
               option("Option1_2", "&Bar", Frame2)};
    Frame1 = optionFrame("Frame1", " Type ", this);
    Option2 = {option("Option2_0", "&Freight", Frame1), option("Option2_1", "Ca&rriage", Frame1)};
    wagList = named(new QListWidget(this), "wagList");
    wagList->setUniformItemSizes(true);
    Label2 = named(new QLabel("Found", this), "Label2");
    lblWag = named(new QLabel("0", this), "lblWag");
    Label3 = named(new QLabel("wagons", this), "Label3");
    cmdCheckAll = button("cmdCheckAll", "Check all", this);
    cmdUncheckAll = button("cmdUncheckAll", "Uncheck all", this);
    Text1 = named(new QLineEdit(this), "Text1");
    Text1->setValidator(new QRegularExpressionValidator(QRegularExpression("[0-9]*"), Text1));
    Text1->setMaxLength(5);
    auto* countLabel = new QLabel("&Number of wagons to insert", this);
    countLabel->setBuddy(Text1);
    Command1 = button("Command1", "&Get wagons", this);
    Command2 = button("Command2", "&Cancel", this);
    Picture1 = named(new QLabel(this), "Picture1");
    Picture1->setFixedSize(256, 160);
    Picture1->setAlignment(Qt::AlignCenter);
    Picture1->setFrameShape(QFrame::StyledPanel);
    Label1 = textLabel("Label1",
                       "NOTE: For some types of wagons like articulated cars, cranes, cabooses, "
                       "etc. this feature may not work correctly and will need some adjustment.",
                       this);

    auto* found = new QHBoxLayout();
    for (QWidget* w : {static_cast<QWidget*>(Label2), static_cast<QWidget*>(lblWag),
                       static_cast<QWidget*>(Label3)})
        found->addWidget(w);
    found->addStretch(1);
    auto* side = new QVBoxLayout();
    side->addWidget(Frame2);
    side->addWidget(Frame1);
    side->addLayout(found);
    side->addWidget(cmdCheckAll);
    side->addWidget(cmdUncheckAll);
    side->addWidget(countLabel);
    side->addWidget(Text1);
    side->addStretch(1);
    side->addWidget(Picture1);
    auto* top = new QHBoxLayout();
    top->addWidget(wagList, 1);
    top->addLayout(side);
    auto* buttons = new QHBoxLayout();
    buttons->addWidget(Label1, 1);
    buttons->addWidget(Command1);
    buttons->addWidget(Command2);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top, 1);
    layout->addLayout(buttons);
    resize(760, 520);

    const char* couplers[] = {"A", "C", "B"};
    for (int i = 0; i < 3; ++i)
        connect(Option1[i], &QRadioButton::toggled, this, [this, i, couplers](bool on) {
            if (!on) return;
            couplerFilter_ = couplers[i];
            applyFilter();
        });
    const char* types[] = {"Freight", "Carriage"};
    for (int i = 0; i < 2; ++i)
        connect(Option2[i], &QRadioButton::toggled, this, [this, i, types](bool on) {
            if (!on) return;
            typeFilter_ = types[i];
            applyFilter();
        });
    connect(cmdCheckAll, &QPushButton::clicked, this, [this] { setAllTicks(true); });
    connect(cmdUncheckAll, &QPushButton::clicked, this, [this] { setAllTicks(false); });
    connect(wagList, &QListWidget::currentRowChanged, this, &frmRand::wagList_Click);
    connect(Command1, &QPushButton::clicked, this, &frmRand::Command1_Click);
    connect(Command2, &QPushButton::clicked, this, &QDialog::reject);

    runGuarded(services_.dialogs, [&] {
        state_.settings = readSettings(services_.fs, state_.paths.programFolder);
        if (state_.settings.randomLeft || state_.settings.randomTop)
            move(twipsToPixels(state_.settings.randomLeft),
                 twipsToPixels(state_.settings.randomTop));
    });
    Option1[0]->setChecked(true);
    Option2[0]->setChecked(true);
    applyFilter();
}

void frmRand::applyFilter() {
    wagList->setUpdatesEnabled(false);
    wagList->clear();
    for (const std::string& line :
         randomWagonLines(state_.catalogue, couplerFilter_, typeFilter_)) {
        // The name shows; the whole line, with the wagon's index behind "^", is kept behind it.
        auto* item = new QListWidgetItem(qs(trimBlanks(line.substr(0, line.rfind('^')))), wagList);
        item->setData(Qt::UserRole, qs(line));
        item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
        item->setCheckState(Qt::Unchecked);
    }
    wagList->setUpdatesEnabled(true);
    lblWag->setText(QString::number(wagList->count()));
    Label3->setText(wagList->count() == 1 ? "wagon" : "wagons");
}

void frmRand::setAllTicks(bool ticked) {
    wagList->setUpdatesEnabled(false);
    for (int i = 0; i < wagList->count(); ++i)
        wagList->item(i)->setCheckState(ticked ? Qt::Checked : Qt::Unchecked);
    wagList->setUpdatesEnabled(true);
}

void frmRand::wagList_Click() {
    Picture1->clear();
    const QListWidgetItem* item = wagList->currentItem();
    if (!item) return;
    const int index = wagonIndexOfLine(stdString(item->data(Qt::UserRole).toString()));
    const auto wagons = usedRecords(state_.catalogue, UnitClass::Wagon);
    if (index < 0 || static_cast<std::size_t>(index) >= wagons.size()) return;
    const std::string picture = randomConsistPicture(services_.fs, wagons[index]);
    if (picture.empty()) return;
    const QPixmap pixmap(qs(picture));
    if (!pixmap.isNull())
        Picture1->setPixmap(
            pixmap.scaled(Picture1->size(), Qt::KeepAspectRatio, Qt::SmoothTransformation));
}

void frmRand::Command1_Click() {
    runGuarded(services_.dialogs, [&] {
        std::vector<int> ticked;
        for (int i = 0; i < wagList->count(); ++i) {
            const QListWidgetItem* item = wagList->item(i);
            if (item->checkState() == Qt::Checked)
                ticked.push_back(wagonIndexOfLine(stdString(item->data(Qt::UserRole).toString())));
        }
        const std::vector<int> train =
            getRandomWagons(ticked, stdString(Text1->text()), random_, services_.dialogs);
        if (train.empty()) return;
        transferConsist(state_.consist, state_.catalogue, train, typeFilter_);
        accept();
    });
}

void frmRand::done(int result) {
    if (!isMinimized()) {
        runGuarded(services_.dialogs, [&] {
            SettingsRecord record = readSettings(services_.fs, state_.paths.programFolder);
            record.randomLeft = pixelsToTwips(frameGeometry().left());
            record.randomTop = pixelsToTwips(frameGeometry().top());
            state_.settings = record;
            (void)saveSettings(record, state_.paths, services_);
        });
    }
    QDialog::done(result);
}

}  // namespace rakeyard::ui
