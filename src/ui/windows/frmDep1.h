#pragma once
#include <QDialog>
#include <array>

#include "core/app/app_state.h"
#include "core/msts/route_deps.h"
#include "core/platform/services.h"

class QComboBox;
class QFrame;
class QLabel;
class QPushButton;
class QTreeView;

namespace rakeyard::ui {

class DependencyModel;

// "Dependencies": for the route chosen, the loose consists of its activities and the consists
// of its services, each with its units, and which of them are missing. The scan can be stopped;
// a double click on a consist loads it into the editor.
class frmDep1 : public QDialog {
    Q_OBJECT
public:
    frmDep1(AppState& state, Services& services, QWidget* parent = nullptr);
    ~frmDep1() override;

    QComboBox* Combo1;
    std::array<QPushButton*, 2> Command1;  // [1] "&Start", [0] "&Stop", in one place
    QPushButton *Command2, *Command3, *Command4;
    QTreeView* TreeView;
    QLabel *Label1, *Label2;
    QFrame* Frame1;  // the legend

    const DependencyScan& scan() const { return scan_; }
    DependencyModel& model() { return *model_; }

Q_SIGNALS:
    // A consist was loaded into the editor: the main window shows it.
    void consistLoaded();

protected:
    void done(int result) override;
    void reject() override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QFrame* makeLegend();
    void Form_Load();
    void Combo1_Click();
    void Command1_Click(int index);
    void Command2_Click();
    void TreeView_DblClick(const QModelIndex& index);
    void showStart(bool start);
    void showTree();
    void placeLegend();

    AppState& state_;
    Services& services_;
    DependencyScan scan_;
    DependencyModel* model_;
    bool scanning_ = false;  // a Start pressed while a stopped scan reads its last file waits
};

}  // namespace rakeyard::ui
