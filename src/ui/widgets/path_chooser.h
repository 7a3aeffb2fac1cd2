#pragma once
#include <QDialog>
#include <QSize>
#include <QStringList>
#include <QWidget>

#include "core/app/app_state.h"
#include "core/platform/services.h"

class QFileSystemModel;
class QLabel;
class QLineEdit;
class QListView;
class QPushButton;
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

// What sets one path window apart from the others.
struct PathWindowLook {
    QString objectName;
    QString title;
    QString prompt;  // Label1
    QString note;    // Label2; none when empty
    bool noteBelowChooser = false;
    QStringList fileFilters;  // as PathChooser takes them
    bool executablesOnly = false;
    QSize size;
};

// The frame of the path windows frmPath, frmEditor, frmScrshots and frm3DViewer: the prompt
// Label1, the note Label2 above or below the chooser, the chooser, and OK (Command1, the default
// button) and Cancel (Command2) at the right. The buttons run Command1_Click and Command2_Click;
// Cancel only closes the window unless a window does more.
class PathWindow : public QDialog {
    Q_OBJECT
public:
    QLabel* Label1;
    QLabel* Label2 = nullptr;  // frm3DViewer has no note
    PathChooser* chooser;
    QPushButton* Command1;  // OK
    QPushButton* Command2;  // Cancel

protected:
    PathWindow(const PathWindowLook& look, AppState& state, Services& services, QWidget* parent);
    virtual void Command1_Click() = 0;
    virtual void Command2_Click() { reject(); }

    AppState& state_;
    Services& services_;
};

}  // namespace rakeyard::ui
