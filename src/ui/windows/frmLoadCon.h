#pragma once
#include <QDialog>

#include "core/app/app_state.h"
#include "core/consist/consist_chooser.h"
#include "core/platform/services.h"

class QLabel;
class QListWidget;
class QPushButton;
namespace rakeyard::ui {

// The consist chooser: every consist of the Consists folder with its number of wagons. OK or a
// double click loads the chosen one in place of the open consist.
class frmLoadCon : public QDialog {
    Q_OBJECT
public:
    frmLoadCon(AppState& state, Services& services, QWidget* parent = nullptr);
    // True after a consist was loaded.
    bool loaded() const { return loaded_; }

    QListWidget* conList;
    QLabel* Label1;  // the consist's name
    QLabel* Label2;  // number of files
    QPushButton* OKButton;
    QPushButton* Command1;  // Cancel

protected:
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void readConsistFiles();
    void Form_Activate();
    void conList_Click();
    void OKButton_Click();
    void Command1_Click();
    void conList_KeyDown(QKeyEvent* event);
    void conList_MouseDown(QMouseEvent* event);
    bool typedCharacter(const QString& typed);
    AppState& state_;
    Services& services_;
    rakeyard::ConsistChooser chooser_;
    bool loaded_ = false;
};

}  // namespace rakeyard::ui
