#pragma once
#include <QDialog>
#include <array>

#include "core/app/app_state.h"
#include "core/platform/services.h"

class QLineEdit;
class QPushButton;
namespace rakeyard::ui {

// "Rakeyard registry settings": every field of settings.bin in one box, in file order, the
// field's name as the box's tool-tip.
class frmSettings : public QDialog {
    Q_OBJECT
public:
    frmSettings(AppState& state, Services& services, QWidget* parent = nullptr);

    std::array<QLineEdit*, 31> Text1{};
    QPushButton* Command1;

private:
    void Command1_Click();
    AppState& state_;
    Services& services_;
};

}  // namespace rakeyard::ui
