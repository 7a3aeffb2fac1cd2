#pragma once
#include <QDialog>

class QLabel;
class QLineEdit;
class QPushButton;
namespace rakeyard::ui {

// Asks how many of one wagon to add. The box takes digits only.
class frmQtd : public QDialog {
    Q_OBJECT
public:
    explicit frmQtd(const QString& wagonName, QWidget* parent = nullptr);
    // The number chosen: the box's number after OK, 0 after Cancel.
    int number() const { return number_; }

    QLabel* Label1;  // the wagon's name
    QLabel* Label2;  // the prompt
    QLineEdit* Text1;
    QPushButton* OKButton;
    QPushButton* CancelButton;

private:
    void OKButton_Click();
    void CancelButton_Click();
    int number_ = 0;
};

}  // namespace rakeyard::ui
