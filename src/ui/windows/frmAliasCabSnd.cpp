#include "ui/windows/frmAliasCabSnd.h"

namespace rakeyard::ui {

frmAliasCabSnd::frmAliasCabSnd(AppState& state, Services& services, QWidget* parent)
    : AliasFileWindow(
          aliasFileLook("frmAliasCabSnd", "Alias cab sounds from folder",
                        "Please select the path for the source cab sounds", "", "*.sms"),
          state, services, parent) {}

}  // namespace rakeyard::ui
