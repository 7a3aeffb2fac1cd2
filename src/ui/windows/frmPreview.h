#pragma once
#include <QDialog>
#include <array>

#include "core/app/app_state.h"
#include "core/platform/services.h"

class QLabel;
class QPushButton;

namespace rakeyard::ui {

// The pictures of the six units of the page, beside the units' files. Opens free.
class frmPreview : public QDialog {
    Q_OBJECT
public:
    frmPreview(AppState& state, Services& services, QWidget* parent = nullptr);

    // Shows the pictures of the page that the editor shows now.
    void Command2_Click();

    std::array<QLabel*, 6> Picture1{};
    QPushButton* Command2;  // refresh

protected:
    void done(int result) override;

private:
    AppState& state_;
    Services& services_;
};

}  // namespace rakeyard::ui
