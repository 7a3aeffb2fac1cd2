#pragma once
#include "ui/windows/alias_file_window.h"

namespace rakeyard::ui {

// "Alias engine cabview from folder": chooses the cab view file of a folder alias.
class frmAliasEngCab : public AliasFileWindow {
    Q_OBJECT
public:
    frmAliasEngCab(AppState& state, Services& services, QWidget* parent = nullptr);
};

}  // namespace rakeyard::ui
