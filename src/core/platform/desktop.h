#pragma once
#include <string>
#include <string_view>
#include <vector>

#include "core/platform/system_words.h"

namespace rakeyard {


// Services of the desktop around the program: the recycle bin, outside programs, the browser.
class Desktop {
public:
    virtual ~Desktop() = default;
    // Moves a file or a whole folder to the recycle bin; false when that failed.
    [[nodiscard]] virtual bool moveToTrash(const std::string& path) = 0;
    // Starts a program with the given arguments, without a shell and without waiting.
    [[nodiscard]] virtual bool startProgram(const std::string& program,
                                            const std::vector<std::string>& arguments) = 0;
    virtual void openUrl(std::string_view url) = 0;
};

}  // namespace rakeyard
