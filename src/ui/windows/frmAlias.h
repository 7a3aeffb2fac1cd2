#pragma once
#include <QDialog>

#include "core/alias/alias_lists.h"
#include "core/app/app_state.h"
#include "core/platform/services.h"

class QCheckBox;
class QLabel;
class QListWidget;
class QPushButton;
class QStatusBar;

namespace rakeyard::ui {

// "Aliases": the engines that may take a cab view and sounds from another engine or a folder,
// the engines that can give them, and the way back to an engine's backup.
class frmAlias : public QDialog {
    Q_OBJECT
public:
    frmAlias(AppState& state, Services& services, QWidget* parent = nullptr);

    // What the window does on opening: the warning when the record asks for it, the copies
    // left in the program's folder removed, the lists built.
    void Form_Load();

    QListWidget* listNotAliased;
    QListWidget* listBaseEngineCabs;
    QListWidget* listBaseEngineSounds;
    QCheckBox* Check1;
    QPushButton* cmdEngAlias;
    QPushButton* cmdEngCabFolderAlias;
    QPushButton* cmdEngSndFolderAlias;
    QPushButton* cmdRestore;
    QPushButton* Command1;  // Exit
    QStatusBar* StatusBar;

private:
    void buildLists();
    void showEngine(const QString& line);
    std::string chosenLine(const QListWidget* list) const;
    void cmdEngAlias_Click();
    void cmdEngCabFolderAlias_Click();
    void cmdEngSndFolderAlias_Click();
    void cmdRestore_Click();
    void Command1_Click();

    AppState& state_;
    Services& services_;
    AliasLists lists_;
};

}  // namespace rakeyard::ui
