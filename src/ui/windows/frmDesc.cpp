#include "ui/windows/frmDesc.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QPlainTextEdit>
#include <QSlider>
#include <QVBoxLayout>

#include "core/msts/unit_list.h"
#include "core/platform/paths.h"
#include "core/settings/settings_file.h"
#include "core/tools/unit_description.h"
#include "core/tools/unit_picture.h"
#include "ui/support/handler_guard.h"
#include "ui/support/twips.h"
#include "ui/support/window_helpers.h"
#include "ui/widgets/unit_list_view.h"
#include "ui/windows/qt_services.h"

namespace rakeyard::ui {

namespace {

constexpr int kDefaultWidthTwips = 3840;
constexpr int kDefaultHeightTwips = 2463;

QSlider* slider(const QString& name, Qt::Orientation orientation, const QString& tip, int value,
                QWidget* parent) {
    auto* s = named(new QSlider(orientation, parent), name);
    s->setRange(1200, 7200);
    s->setSingleStep(150);
    s->setPageStep(600);
    s->setValue(value);
    s->setToolTip(tip);
    if (orientation == Qt::Vertical) s->setInvertedAppearance(true);
    return s;
}

}  // namespace

frmDesc::frmDesc(AppState& state, Services& services, UnitListView* locList, UnitListView* wagList,
                 QWidget* parent)
    : QDialog(parent), state_(state), services_(services), locList_(locList), wagList_(wagList) {
    setObjectName("frmDesc");
    setWindowTitle("Description of this unit");
    state_.settings = readSettings(services_.fs, state_.paths.programFolder);
    const SettingsRecord& record = state_.settings;
    Text1 = named(new QPlainTextEdit(qs(kNoDescription), this), "Text1");
    Text1->setReadOnly(true);
    Image1 = named(new QLabel(this), "Image1");
    Image1->setAlignment(Qt::AlignCenter);
    Image2 = named(new QLabel("No picture of this unit", this), "Image2");
    Image2->setAlignment(Qt::AlignCenter);
    Image2->setFrameShape(QFrame::StyledPanel);
    SliderH = slider("SliderH", Qt::Horizontal, "Horizontal picture size",
                     record.pictureWidth > 0 ? record.pictureWidth : kDefaultWidthTwips, this);
    sliderV = slider("sliderV", Qt::Vertical, "Vertical picture size",
                     record.pictureHeight > 0 ? record.pictureHeight : kDefaultHeightTwips, this);
    Command1[0] = button("Command1_0", "&Previous", this);
    Command1[1] = button("Command1_1", "&Next", this);
    Command1[0]->setToolTip("The unit one row up in the list");
    Command1[1]->setToolTip("The unit one row down in the list");

    auto* pictureArea = new QGridLayout();
    pictureArea->addWidget(Image1, 0, 0, Qt::AlignCenter);
    pictureArea->addWidget(Image2, 0, 0, Qt::AlignCenter);
    pictureArea->addWidget(sliderV, 0, 1);
    pictureArea->addWidget(SliderH, 1, 0);
    pictureArea->setRowStretch(0, 1);
    pictureArea->setColumnStretch(0, 1);
    auto* steps = new QHBoxLayout();
    steps->addWidget(Command1[0]);
    steps->addStretch(1);
    steps->addWidget(Command1[1]);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(pictureArea, 2);
    layout->addWidget(Text1, 3);
    layout->addLayout(steps);
    resize(560, 640);
    if (record.descriptionLeft != 0) {
        move(twipsToPixels(record.descriptionLeft), twipsToPixels(record.descriptionTop));
    } else if (parent) {
        // Never placed: beside the main window, at its top.
        const QRect main = parent->frameGeometry();
        move(main.right() + 6, main.top());
    }

    connect(SliderH, &QSlider::valueChanged, this, &frmDesc::sizePicture);
    connect(sliderV, &QSlider::valueChanged, this, &frmDesc::sizePicture);
    for (int i = 0; i < 2; ++i)
        connect(Command1[i], &QPushButton::clicked, this, [this, i] { Command1_Click(i); });
    Image1->hide();
    sizePicture();
}

UnitListView* frmDesc::list() const {
    return activeList_ == "wagList" ? wagList_ : locList_;
}

void frmDesc::showPicOnScreen() {
    runGuarded(services_.dialogs, [&] {
        const UnitClass which = activeList_ == "wagList" ? UnitClass::Wagon : UnitClass::Engine;
        const auto records = usedRecords(state_.catalogue, which);
        const auto index = findUnitByKey(records, keyOfLine(stdString(list()->currentLine())));
        if (!index) return;
        const UnitRecord* unit = &records[*index];
        Text1->setPlainText(
            qs(describeUnitFile(joinPath(unit->folderPath, unit->fileName), services_)));
        const std::string picture = descriptionPicture(services_.fs, *unit);
        picture_ = picture.empty() ? QPixmap() : QPixmap(qs(picture));
        Image1->setVisible(!picture_.isNull());
        Image2->setVisible(picture_.isNull());
        sizePicture();
    });
}

void frmDesc::sizePicture() {
    const QSize size(twipsToPixels(SliderH->value()), twipsToPixels(sliderV->value()));
    Image1->setFixedSize(size);
    Image2->setFixedSize(size);
    if (!picture_.isNull())
        Image1->setPixmap(picture_.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
}

void frmDesc::Command1_Click(int index) {
    UnitListView* shown = list();
    int row = -1;
    for (int i = 0; i < shown->count(); ++i)
        if (shown->lineOfRow(i) == shown->currentLine()) row = i;
    const int next = index == 0 ? row - 1 : row + 1;
    if (next < 0 || next >= shown->count()) return;
    shown->setCurrentRow(next);
    showPicOnScreen();
}

void frmDesc::done(int result) {
    runGuarded(services_.dialogs, [&] {
        SettingsRecord record = readSettings(services_.fs, state_.paths.programFolder);
        if (!isMinimized()) {
            record.descriptionLeft = pixelsToTwips(frameGeometry().left());
            record.descriptionTop = pixelsToTwips(frameGeometry().top());
        }
        record.pictureWidth = static_cast<std::int16_t>(SliderH->value());
        record.pictureHeight = static_cast<std::int16_t>(sliderV->value());
        state_.settings = record;
        (void)saveSettings(record, state_.paths, services_);
    });
    QDialog::done(result);
}

}  // namespace rakeyard::ui
