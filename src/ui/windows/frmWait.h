#pragma once
#include <QWidget>

class QLabel;
class QProgressBar;
namespace rakeyard::ui {

// A small window with one label that stands in front while something long runs; its bar
// follows the work when a Progress is attached to it.
class frmWait : public QWidget {
    Q_OBJECT
public:
    explicit frmWait(const QString& text = "Please wait. Selecting engines...",
                     QWidget* parent = nullptr);

    QLabel* Label1;
    QProgressBar* PBar1;
};

}  // namespace rakeyard::ui
