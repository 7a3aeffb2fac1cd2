#include "ui/windows/frmUnicode.h"

#include <QHBoxLayout>
#include <QListWidget>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>

#include "core/msts/unicode_check.h"
#include "ui/support/handler_guard.h"
#include "ui/windows/qt_services.h"
#include "ui/windows/wait_scope.h"
#include "ui/support/window_helpers.h"

namespace rakeyard::ui {

frmUnicode::frmUnicode(AppState& state, Services& services, QWidget* parent)
    : QDialog(parent), state_(state), services_(services) {
    setObjectName("frmUnicode");
    setWindowTitle("Non-Unicode files");
    Label1 = textLabel("Label1", qs(state_.paths.trainsetPath), this);
    List1 = named(new QListWidget(this), "List1");
    Command1 = button("Command1", "&Verify", this);
    Command3 = button("Command3", "Con&vert", this);
    Command2 = button("Command2", "&Cancel", this);
    auto* buttons = new QHBoxLayout();
    buttons->addWidget(Command1);
    buttons->addWidget(Command3);
    buttons->addStretch(1);
    buttons->addWidget(Command2);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(Label1);
    layout->addWidget(List1, 1);
    layout->addLayout(buttons);
    resize(640, 420);
    connect(Command1, &QPushButton::clicked, this, &frmUnicode::Command1_Click);
    connect(Command3, &QPushButton::clicked, this, &frmUnicode::Command3_Click);
    connect(Command2, &QPushButton::clicked, this, &QDialog::reject);
}

void frmUnicode::checkUnicode() {
    runGuarded(services_.dialogs, [&] {
        List1->clear();
        std::vector<std::string> files;
        {
            WaitScope wait("Please wait. Checking files...", services_.progress, this);
            files = rakeyard::checkUnicode(state_.paths, services_);
        }
        for (const std::string& file : files)
            List1->addItem(qs(file));
    });
}

void frmUnicode::Command1_Click() {
    checkUnicode();
}

void frmUnicode::Command3_Click() {
    if (List1->count() == 0) return;
    runGuarded(services_.dialogs, [&] {
        std::vector<std::string> files;
        for (int i = 0; i < List1->count(); ++i)
            files.push_back(stdString(List1->item(i)->text()));
        std::vector<std::string> converted;
        {
            WaitScope wait("Please wait. Converting files...", services_.progress, this);
            converted = rakeyard::convertToUnicode(files, services_);
        }
        for (int i = List1->count() - 1; i >= 0; --i) {
            const std::string file = stdString(List1->item(i)->text());
            if (std::find(converted.begin(), converted.end(), file) != converted.end())
                delete List1->takeItem(i);
        }
    });
}

}  // namespace rakeyard::ui
