#pragma once
#include <QWidget>

class QLabel;
class QProgressBar;
namespace rakeyard::ui {

// The window in front while the installed units are read. Any key closes it.
class frmSplash : public QWidget {
    Q_OBJECT
public:
    explicit frmSplash(QWidget* parent = nullptr);

    QLabel* Image1;
    QLabel* lblProductName;
    QLabel* lblVersion;
    QLabel* Label1;
    QLabel* Label2;  // what is being done now
    QProgressBar* PBar1;

protected:
    void keyPressEvent(QKeyEvent* event) override;
};

}  // namespace rakeyard::ui
