#include "ui/windows/frmAliasEngSnd.h"

namespace rakeyard::ui {

frmAliasEngSnd::frmAliasEngSnd(AppState& state, Services& services, QWidget* parent)
    : AliasFileWindow(
          aliasFileLook("frmAliasEngSnd", "Alias engine sounds from folder",
                        "Please select the path for the source engine sounds", "", "*.sms"),
          state, services, parent) {}

}  // namespace rakeyard::ui
