#include "ui/windows/alias_file_window.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/alias/alias_folder.h"
#include "core/platform/text_utf.h"
#include "ui/support/window_helpers.h"
#include "ui/windows/qt_services.h"

namespace rakeyard::ui {

PathWindowLook aliasFileLook(const QString& objectName, const QString& title, const QString& prompt,
                             const QString& note, const QString& pattern) {
    PathWindowLook look;
    look.objectName = objectName;
    look.title = title;
    look.prompt = prompt;
    look.note = note;
    look.noteBelowChooser = true;
    look.fileFilters = {pattern, pattern.toUpper()};  // any letter case, as MSTS names go
    look.size = QSize(620, 460);
    return look;
}

AliasFileWindow::AliasFileWindow(const PathWindowLook& look, AppState& state, Services& services,
                                 QWidget* parent)
    : PathWindow(look, state, services, parent) {
    Command2->setText("&Cancel");
    lblPath = named(new QLabel(this), "lblPath");
    Label3 = named(new QLabel(this), "Label3");
    for (QLabel* label : {lblPath, Label3}) {
        label->setTextInteractionFlags(Qt::TextSelectableByMouse);
        label->setWordWrap(true);
    }
    auto* layout = static_cast<QVBoxLayout*>(this->layout());
    layout->insertWidget(layout->count() - 1, lblPath);
    layout->insertWidget(layout->count() - 1, Label3);
    connect(chooser->Text1, &QLineEdit::textChanged, this, &AliasFileWindow::showPath);
    chooser->openOn(qs(state_.paths.trainsetPath));
    showPath();
}

// lblPath shows the reference the alias will write, or says why there will be none.
void AliasFileWindow::showPath() {
    const QString path = chooser->text();
    Label3->setText(path);
    const std::string file = stdString(path);
    const std::optional<std::u16string> reference =
        services_.fs.isFile(file) ? folderAliasReference(state_.paths, services_.fs, file)
                                  : std::nullopt;
    lblPath->setText(reference ? qs(toUtf8(*reference))
                               : QString("(choose a file inside the TRAINSET folder)"));
}

void AliasFileWindow::Command1_Click() {
    chosen_ = chooser->text();
    accept();
}

void AliasFileWindow::Command2_Click() {
    chosen_.clear();
    reject();
}

}  // namespace rakeyard::ui
