#pragma once
#include <QDialog>
#include <optional>
#include <string>

#include "core/app/app_state.h"
#include "core/msts/route_scan.h"
#include "core/platform/services.h"

class QCheckBox;
class QLabel;
class QListWidget;
class QPushButton;

namespace rakeyard::ui {

// "Consists from activities": the routes, the activities of the route chosen, the consists of
// the activity chosen and those of them that are missing. Its consists go to the tester or to
// the editor; a missing one may be built under its name.
class frmAct : public QDialog {
    Q_OBJECT
public:
    frmAct(AppState& state, Services& services, QWidget* parent = nullptr);

    QListWidget *listRoutes, *listAct, *listCon, *listMiss;
    QLabel *lblRoutes, *lblActivities, *lblConsists, *Label9;
    QPushButton *cmdTest, *cmdTestLoose, *cmdLoad, *cmdShowErr, *Command1;
    QCheckBox* Check1;

    const ActivityScan& scan() const { return scan_; }
    // What the user asked of the editor when the window closed: a consist to load, or the
    // name of a missing one to build.
    const std::optional<std::string>& consistToEdit() const { return consistToEdit_; }
    const std::optional<std::string>& missingToBuild() const { return missingToBuild_; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Form_Load();
    void listRoutes_Click();
    void listAct_Click();
    void listCon_Click();
    void listCon_DblClick();
    void listCon_Delete();
    void listMiss_DblClick();
    void cmdTest_Click();
    void cmdTestLoose_Click();
    void Check1_Click();
    void cmdShowErr_Click();
    void showConsists();

    AppState& state_;
    Services& services_;
    ActivityScan scan_;
    std::optional<std::string> consistToLoad_;
    std::optional<std::string> consistToEdit_;
    std::optional<std::string> missingToBuild_;
};

}  // namespace rakeyard::ui
