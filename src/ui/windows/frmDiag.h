#pragma once
#include <QDialog>
#include <QElapsedTimer>
#include <array>
#include <optional>
#include <string>

#include "core/app/app_state.h"
#include "core/platform/services.h"
#include "core/tester/test_run.h"

class QCheckBox;
class QLabel;
class QListView;
class QProgressBar;
class QPushButton;
class QStringListModel;

namespace rakeyard::ui {

class LogList;
class frmErrTyp;

// "Test units": the tester. A section button fills diagList with the units of the section
// under the main list's filter; the rows selected are tested by "Start test", the findings
// counted by level and category and written to the reports under Reports. The run's state is
// the core's TestRun; the window shows it and lets its events run between the lines tested.
class frmDiag : public QDialog, private TestHost {
    Q_OBJECT
public:
    frmDiag(AppState& state, Services& services, QWidget* parent = nullptr);
    ~frmDiag() override;

    std::array<QPushButton*, 3> Command1{};  // "&Engines", "&Wagons", "&Consists"
    QListView* diagList;
    QLabel* lblCount;
    QCheckBox *Check1, *Check2, *Check3;
    QPushButton *cmdCheckAll, *cmdUncheckAll, *cmdTest, *cmdStop, *cmdEditCon, *cmdDelCon,
        *cmdDelRep, *cmdShowErr, *cmdExit;
    QProgressBar* pBar;
    QLabel* imgErrors;
    QLabel *Label1, *Label2, *lblErrors, *Label4, *Label5, *Label8;
    std::array<QLabel*, 3> Label6{};  // Minor, Serious, Critical
    std::array<QLabel*, 6> Label9{};  // Syntax, Missing, Cabview, Sounds, Shapes, Others
    LogList* listTestedShapes;
    LogList* listTestedSounds;
    LogList* listFailed;

    const TestRun& run() const { return run_; }
    // Tests the consists given, as the activities window hands an activity's consists over.
    void testGivenConsists(const std::vector<std::string>& rows);
    // The consist the user sent to the editor; the window has closed then.
    const std::optional<std::string>& consistToEdit() const { return consistToEdit_; }
    frmErrTyp* errorTypes() const { return errTyp_; }

protected:
    void closeEvent(QCloseEvent* event) override;
    void reject() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Command1_Click(int index);
    void cmdTest_Click();
    void cmdStop_Click();
    void cmdCheckAll_Click();
    void cmdUncheckAll_Click();
    void cmdDelRep_Click();
    void cmdShowErr_Click();
    void checkCmdDelRepButtonState();
    void diagList_SelectionChanged();
    void diagList_Click(const QModelIndex& index);
    void cmdEditCon_Click();
    void cmdDelCon_Click();
    void listTestedSounds_DblClick(const QModelIndex& index);

    // TestHost: while the units are tested on all cores, the window shows the run and lets
    // events run every few tens of milliseconds.
    void yield() override;
    bool allowsWorkers() const override { return true; }
    bool yieldsToUser() const override { return true; }
    void showRun();
    void showRows();
    void showIdle();
    TestContext context();
    std::string filter() const;

    AppState& state_;
    Services& services_;
    TestRun run_;
    QStringListModel* rows_;
    frmErrTyp* errTyp_ = nullptr;
    QElapsedTimer sinceShown_;
    bool showingRows_ = false;  // the view's selection is being set from the run
    std::string consistClicked_;  // the consist of the last row clicked in consist mode
    std::optional<std::string> consistToEdit_;
};

}  // namespace rakeyard::ui
