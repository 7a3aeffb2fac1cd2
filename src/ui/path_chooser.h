#pragma once
#include <QWidget>

class QFileSystemModel;
class QLineEdit;
class QListView;
class QTreeView;

namespace rakeyard::ui {

// The folder box Dir1, the file box File1 (when a file is to be chosen) and the text box Text1
// of the path windows. Choosing a folder or a file puts its path into Text1; the user may also
// type it. There is no drive box: the folder box starts at the root of the file system and
// lists the drives where the system has them.
class PathChooser : public QWidget {
    Q_OBJECT
public:
    // fileFilters empty: folders only. Otherwise File1 lists the folder's files that match.
    PathChooser(QWidget* parent, const QStringList& fileFilters = {}, bool executablesOnly = false);
    // Opens the folder box on a folder (or the folder of a file) and puts the path into Text1.
    void openOn(const QString& path);
    QString text() const;

    QTreeView* Dir1;
    QListView* File1 = nullptr;
    QLineEdit* Text1;

private:
    void Dir1_Change();
    void File1_Click();
    QFileSystemModel* folders_;
    QFileSystemModel* files_ = nullptr;
};

}  // namespace rakeyard::ui
