#include "core/platform/local_desktop.h"

#include "core/platform/system.h"

namespace rakeyard {

bool LocalDesktop::moveToTrash(const std::string& path) {
    return sys::moveToTrash(path);
}

bool LocalDesktop::startProgram(const std::string& program,
                                const std::vector<std::string>& arguments) {
    return sys::startProgram(program, arguments);
}

void LocalDesktop::openUrl(std::string_view url) {
    sys::openUrl(url);
}

}  // namespace rakeyard
