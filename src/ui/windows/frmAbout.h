#pragma once
#include <QDialog>

#include "core/app/app_state.h"
#include "core/platform/services.h"

class QLabel;
class QPushButton;
namespace rakeyard::ui {

// "About Rakeyard": the version and the home page. A Ctrl+left click on the picture opens the
// raw settings editor frmSettings.
class frmAbout : public QDialog {
    Q_OBJECT
public:
    // The program's home page.
    static constexpr const char* kHomePage = "https://rakeyard.example.org/";

    frmAbout(AppState& state, Services& services, QWidget* parent = nullptr);

    QLabel* Image1;
    QLabel* lblTitle;
    QLabel* lblVersion;
    QLabel* lblHomePage;
    QPushButton* cmdOK;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Image1_MouseDown(Qt::MouseButton button, Qt::KeyboardModifiers shift);
    void lblHomePage_Click();
    void setLinkColour(bool underMouse);
    AppState& state_;
    Services& services_;
};

}  // namespace rakeyard::ui
