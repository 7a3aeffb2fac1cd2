#pragma once
#include <QDialog>

#include "core/app/app_state.h"
#include "core/platform/services.h"

class QCheckBox;
class QLabel;
namespace rakeyard::ui {

// "Default Editor": the system's own text editor, or another one chosen in frmEditor.
class Defeditor : public QDialog {
    Q_OBJECT
public:
    Defeditor(AppState& state, Services& services, QWidget* parent = nullptr);

    QLabel* Label1;
    QCheckBox* Check1;  // Wordpad
    QCheckBox* Other;

private:
    void Check1_Click();
    void Other_Click();
    AppState& state_;
    Services& services_;
};

}  // namespace rakeyard::ui
