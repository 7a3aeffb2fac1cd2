#pragma once
#include "ui/windows/alias_file_window.h"

namespace rakeyard::ui {

// "Alias cab sounds from folder": chooses the cab sound file of a folder alias.
class frmAliasCabSnd : public AliasFileWindow {
    Q_OBJECT
public:
    frmAliasCabSnd(AppState& state, Services& services, QWidget* parent = nullptr);
};

}  // namespace rakeyard::ui
