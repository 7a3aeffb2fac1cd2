#include "ui/windows/frmSettings.h"

#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>

#include "core/settings/settings_editor.h"
#include "core/settings/settings_file.h"
#include "ui/support/handler_guard.h"
#include "ui/windows/qt_services.h"
#include "ui/support/window_helpers.h"

namespace rakeyard::ui {

frmSettings::frmSettings(AppState& state, Services& services, QWidget* parent)
    : QDialog(parent), state_(state), services_(services) {
    setObjectName("frmSettings");
    setWindowTitle("Rakeyard registry settings");
    // The editor shows the file as it is now, not the copy this run last wrote.
    state_.settings = rakeyard::readSettings(services_.fs, state_.paths.programFolder);
    const std::vector<rakeyard::SettingsBox> boxes = rakeyard::settingsBoxes(state_.settings);

    auto* fields = new QWidget();
    auto* form = new QFormLayout(fields);
    for (std::size_t i = 0; i < Text1.size(); ++i) {
        Text1[i] = named(new QLineEdit(fields), QString("Text1_%1").arg(i));
        if (i < boxes.size()) {
            Text1[i]->setText(qs(boxes[i].text));
            Text1[i]->setToolTip(qs(boxes[i].toolTip));
            form->addRow(qs(boxes[i].toolTip) + ":", Text1[i]);
        }
    }
    auto* scroll = new QScrollArea(this);
    scroll->setWidget(fields);
    scroll->setWidgetResizable(true);
    Command1 = button("Command1", "&Save", this);
    Command1->setDefault(true);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(scroll, 1);
    layout->addWidget(Command1, 0, Qt::AlignRight);
    resize(640, 560);
    connect(Command1, &QPushButton::clicked, this, &frmSettings::Command1_Click);
}

void frmSettings::Command1_Click() {
    runGuarded(services_.dialogs, [&] {
        std::vector<std::string> texts;
        for (QLineEdit* box : Text1)
            texts.push_back(stdString(box->text()));
        (void)rakeyard::storeSettingsBoxes(texts, state_.settings, state_.paths, services_);
    });
    accept();
}

}  // namespace rakeyard::ui
