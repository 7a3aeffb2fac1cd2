#include "ui/windows/frmPreview.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPixmap>
#include <QVBoxLayout>

#include "core/settings/settings_file.h"
#include "core/tools/unit_picture.h"
#include "ui/support/handler_guard.h"
#include "ui/support/twips.h"
#include "ui/support/window_helpers.h"
#include "ui/windows/qt_services.h"

namespace rakeyard::ui {

frmPreview::frmPreview(AppState& state, Services& services, QWidget* parent)
    : QDialog(parent), state_(state), services_(services) {
    setObjectName("frmPreview");
    setWindowTitle("Preview consist");
    auto* pictures = new QHBoxLayout();
    for (int i = 0; i < 6; ++i) {
        Picture1[i] = named(new QLabel(this), QString("Picture1_%1").arg(i));
        Picture1[i]->setFixedSize(160, 100);
        Picture1[i]->setAlignment(Qt::AlignCenter);
        Picture1[i]->setFrameShape(QFrame::StyledPanel);
        pictures->addWidget(Picture1[i]);
    }
    Command2 = button("Command2", "&Refresh", this);
    auto* buttons = new QHBoxLayout();
    buttons->addStretch(1);
    buttons->addWidget(Command2);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(pictures);
    layout->addLayout(buttons);
    connect(Command2, &QPushButton::clicked, this, &frmPreview::Command2_Click);
    runGuarded(services_.dialogs, [&] {
        state_.settings = readSettings(services_.fs, state_.paths.programFolder);
        if (state_.settings.previewLeft || state_.settings.previewTop)
            move(twipsToPixels(state_.settings.previewLeft),
                 twipsToPixels(state_.settings.previewTop));
    });
}

void frmPreview::Command2_Click() {
    runGuarded(services_.dialogs, [&] {
        for (int i = 0; i < 6; ++i) {
            Picture1[i]->clear();
            const ConsistSlot& slot = state_.consist.slots[state_.consist.currentPage * 6 + i];
            const std::string picture = previewPicture(services_.fs, slot);
            const QPixmap pixmap = picture.empty() ? QPixmap() : QPixmap(qs(picture));
            if (!pixmap.isNull())
                Picture1[i]->setPixmap(pixmap.scaled(Picture1[i]->size(), Qt::KeepAspectRatio,
                                                     Qt::SmoothTransformation));
        }
    });
}

void frmPreview::done(int result) {
    runGuarded(services_.dialogs, [&] {
        if (isMinimized()) return;
        SettingsRecord record = readSettings(services_.fs, state_.paths.programFolder);
        record.previewLeft = pixelsToTwips(frameGeometry().left());
        record.previewTop = pixelsToTwips(frameGeometry().top());
        state_.settings = record;
        (void)saveSettings(record, state_.paths, services_);
    });
    QDialog::done(result);
}

}  // namespace rakeyard::ui
