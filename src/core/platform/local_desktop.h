#pragma once
#include "core/platform/desktop.h"

namespace rakeyard {

// The desktop without a window toolkit, as rakeyard-cli has it: the user's trash (the Recycle
// Bin on Windows), programs started without a shell and without waiting, pages opened by the
// system's opener.
class LocalDesktop : public Desktop {
public:
    bool moveToTrash(const std::string& path) override;
    bool startProgram(const std::string& program,
                      const std::vector<std::string>& arguments) override;
    void openUrl(std::string_view url) override;
};

}  // namespace rakeyard
