#include "ui/widgets/path_chooser.h"

#include <QDir>
#include <QFileInfo>
#include <QFileSystemModel>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QTreeView>
#include <QVBoxLayout>

#include "ui/support/window_helpers.h"

namespace rakeyard::ui {

PathChooser::PathChooser(QWidget* parent, const QStringList& fileFilters, bool executablesOnly)
    : QWidget(parent) {
    folders_ = new QFileSystemModel(this);
    folders_->setFilter(QDir::AllDirs | QDir::NoDotAndDotDot | QDir::Drives);
    folders_->setRootPath(QString());
    Dir1 = named(new QTreeView(this), "Dir1");
    Dir1->setModel(folders_);
    for (int column = 1; column < folders_->columnCount(); ++column)
        Dir1->hideColumn(column);
    Dir1->header()->hide();
    Dir1->setMinimumSize(260, 200);
    Text1 = named(new QLineEdit(this), "Text1");

    auto* boxes = new QHBoxLayout();
    boxes->addWidget(Dir1, 3);
    if (!fileFilters.isEmpty() || executablesOnly) {
        files_ = new QFileSystemModel(this);
        QDir::Filters filter = QDir::Files | QDir::NoDotAndDotDot;
        if (executablesOnly) filter |= QDir::Executable;
        files_->setFilter(filter);
        files_->setNameFilters(fileFilters);
        files_->setNameFilterDisables(false);
        File1 = named(new QListView(this), "File1");
        File1->setModel(files_);
        boxes->addWidget(File1, 2);
        connect(File1->selectionModel(), &QItemSelectionModel::currentChanged, this,
                &PathChooser::File1_Click);
    }
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addLayout(boxes, 1);
    column->addWidget(Text1);
    connect(Dir1->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &PathChooser::Dir1_Change);
}

void PathChooser::openOn(const QString& path) {
    QFileInfo info(path);
    const QString folder = info.isDir() ? info.absoluteFilePath() : info.absolutePath();
    const QModelIndex index = folders_->index(folder);
    if (index.isValid()) {
        Dir1->setCurrentIndex(index);
        Dir1->scrollTo(index, QAbstractItemView::PositionAtCenter);
        Dir1->expand(index);
    }
    Text1->setText(QDir::toNativeSeparators(path));
}

QString PathChooser::text() const {
    return Text1->text();
}

void PathChooser::Dir1_Change() {
    const QString folder = folders_->filePath(Dir1->currentIndex());
    Text1->setText(QDir::toNativeSeparators(QDir::cleanPath(folder)));
    if (files_) File1->setRootIndex(files_->setRootPath(folder));
}

void PathChooser::File1_Click() {
    if (!files_) return;
    const QString file = files_->filePath(File1->currentIndex());
    if (!file.isEmpty()) Text1->setText(QDir::toNativeSeparators(file));
}

PathWindow::PathWindow(const PathWindowLook& look, AppState& state, Services& services,
                       QWidget* parent)
    : QDialog(parent), state_(state), services_(services) {
    setObjectName(look.objectName);
    setWindowTitle(look.title);
    Label1 = textLabel("Label1", look.prompt, this);
    if (!look.note.isEmpty()) Label2 = textLabel("Label2", look.note, this);
    chooser = new PathChooser(this, look.fileFilters, look.executablesOnly);
    Command1 = button("Command1", "OK", this);
    Command2 = button("Command2", "Cancel", this);
    Command1->setDefault(true);
    auto* buttons = new QHBoxLayout();
    buttons->addStretch(1);
    buttons->addWidget(Command1);
    buttons->addWidget(Command2);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(Label1);
    if (Label2 && !look.noteBelowChooser) layout->addWidget(Label2);
    layout->addWidget(chooser, 1);
    if (Label2 && look.noteBelowChooser) layout->addWidget(Label2);
    layout->addLayout(buttons);
    resize(look.size);
    connect(Command1, &QPushButton::clicked, this, [this] { Command1_Click(); });
    connect(Command2, &QPushButton::clicked, this, [this] { Command2_Click(); });
}

}  // namespace rakeyard::ui
