#include "ui/windows/frmAliasEngCab.h"

namespace rakeyard::ui {

frmAliasEngCab::frmAliasEngCab(AppState& state, Services& services, QWidget* parent)
    : AliasFileWindow(aliasFileLook("frmAliasEngCab", "Alias engine cabview from folder",
                                    "Please select the path for the source cabview",
                                    "An engine cabview file has the extension .CVF.", "*.cvf"),
                      state, services, parent) {}

}  // namespace rakeyard::ui
