#pragma once
#include "ui/windows/alias_file_window.h"

namespace rakeyard::ui {

// "Alias engine sounds from folder": chooses the engine sound file of a folder alias.
class frmAliasEngSnd : public AliasFileWindow {
    Q_OBJECT
public:
    frmAliasEngSnd(AppState& state, Services& services, QWidget* parent = nullptr);
};

}  // namespace rakeyard::ui
