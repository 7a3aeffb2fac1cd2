#pragma once
#include <QDialog>

#include "core/app/app_state.h"
#include "core/platform/services.h"

class QCheckBox;
class QLabel;
namespace rakeyard::ui {

// Whether a shape viewer is to be used; yes leads to frm3DViewer when none is set.
class SFVOption : public QDialog {
    Q_OBJECT
public:
    SFVOption(AppState& state, Services& services, QWidget* parent = nullptr);
    // After the window: a viewer was chosen in frm3DViewer.
    bool viewerChosen() const { return viewerChosen_; }

    QLabel* Label1;
    QCheckBox* Check1;  // yes
    QCheckBox* Check2;  // no

private:
    void Check1_Click();
    void Check2_Click();
    AppState& state_;
    Services& services_;
    bool viewerChosen_ = false;
};

}  // namespace rakeyard::ui
