#pragma once
#include <QDialog>
#include <array>
#include <string>

#include "core/app/app_state.h"
#include "core/platform/services.h"

class QLabel;
class QPushButton;

namespace rakeyard::ui {

// "Error reports by type": a button a kind of report, lit when the report of the tester's
// section is there, opening it in the text editor; the help text of the button under the mouse.
class frmErrTyp : public QDialog {
    Q_OBJECT
public:
    frmErrTyp(AppState& state, Services& services, QWidget* parent = nullptr);

    std::array<QPushButton*, 7> Command1{};
    std::array<QLabel*, 7> Label1{};
    QLabel* Label2;

    // Lights the buttons whose reports of testMode are there; the others stay as they were.
    // False when a consist run left neither of its reports: the window is not shown then.
    bool lightButtons(const std::string& testMode);

protected:
    void hideEvent(QHideEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    void Command1_Click(int index);
    void showHelp(int index);

    AppState& state_;
    Services& services_;
    std::string testMode_;
    int lastHelp_ = -1;
};

}  // namespace rakeyard::ui
