#pragma once
#include <QDialog>
#include <array>
#include <vector>

#include "core/app/app_state.h"
#include "core/msts/loose_editor.h"
#include "core/platform/services.h"

class QAction;
class QComboBox;
class QGroupBox;
class QLabel;
class QListWidget;
class QListWidgetItem;
class QMenu;
class QPushButton;
class QStandardItem;
class QStandardItemModel;
class QStatusBar;
class QTabWidget;
class QTimer;
class QTreeView;

namespace rakeyard::ui {

class UnitListView;

// "Loose consist editor": a route's activities with loose consists; the one opened broken down
// into its consists and units, as a tree and as a strip of pictures with its length; a unit
// replaced inside the .act by one from the engines' or wagons' list, or every unit of that
// file at once; Cancel brings back the activity as it was opened.
class frmLoose : public QDialog {
    Q_OBJECT
public:
    frmLoose(AppState& state, Services& services, QWidget* parent = nullptr);
    ~frmLoose() override;

    QComboBox* Combo1;
    QListWidget* ListView1;
    QTreeView* TreeView;
    UnitListView *locList, *wagList;
    QPushButton *Command1, *Command2, *Command3, *Command4, *Command5, *Command6;
    QLabel *lblLenght, *lblFeet, *Label1, *Label2, *Label3, *Label8, *Label9, *imgErrors;
    QStatusBar* StatusBar1;
    QTabWidget* SSTab1;
    std::array<QLabel*, LooseEditor::kBoxes> Picture1;  // Picture1(1..60) at [0..59]
    QGroupBox* Frame1;
    QTimer* Timer1;
    QMenu *mnuEngines, *mnuWagons, *mnuReplace;
    QAction *mnuSteam, *mnuElectric, *mnuDiesel, *mnuLocAI, *mnuLocAll;
    QAction *mnuFreight, *mnuCarriages, *mnuTenders, *mnuWagAll;
    QAction* mnuRep;

    const LooseEditor& editor() const { return editor_; }
    // The handlers, as the controls run them.
    void Combo1_Click();
    void ListView1_DblClick(QListWidgetItem* item);
    void TreeView_Click(std::size_t node);
    void Command1_Click();
    void Command2_Click();
    void mnuRep_Click();
    void Command6_Click();

Q_SIGNALS:
    // A filter chosen in a popup: the main window sets it in its own menu, list and record.
    void engineFilterChosen(const char* word);
    void wagonFilterChosen(const char* word);

protected:
    void done(int result) override;

private:
    QWidget* makeStrip();
    QGroupBox* makeInstructions();
    void makeMenus();
    void Form_Load();
    void fillLists();
    void tickFilters();
    void chooseFilter(bool engines, const char* word);
    void showTree();
    void showEditor();
    // The unit chosen in the list in view, and that list's kind.
    std::string newUnitFile() const;
    UnitClass listKind() const;
    void hideLengthWarning();

    AppState& state_;
    Services& services_;
    LooseEditor editor_;
    LooseContext context_;
    QStandardItemModel* model_;
    std::vector<QStandardItem*> items_;  // the tree's item of each node
};

}  // namespace rakeyard::ui
