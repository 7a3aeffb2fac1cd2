#pragma once
#include <QWidget>

class QLabel;
namespace rakeyard::ui {

// "Debug window": what the catalogue readers are doing, shown when the program was started
// with /D. Values go into lblDebug1 (file), lblDebug2 (folder) and lblDebug3 (current pass).
class frmDebug : public QWidget {
    Q_OBJECT
public:
    explicit frmDebug(QWidget* parent = nullptr);
    // label 1, 2 or 3; others are passed over.
    void setValue(int label, const QString& text);

    QLabel* Label1;
    QLabel* Label2;
    QLabel* Label3;
    QLabel* lblDebug1;
    QLabel* lblDebug2;
    QLabel* lblDebug3;
};

}  // namespace rakeyard::ui
