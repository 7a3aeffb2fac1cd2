#include "core/platform/paths.h"

namespace rakeyard {

std::string nativeSeparators(std::string_view path) {
    std::string out(path);
    for (char& c : out) {
        if (isPathSeparator(c)) c = kPathSeparator;
    }
    return out;
}

std::string joinPath(std::string_view a, std::string_view b) {
    std::string out = nativeSeparators(a);
    std::string tail = nativeSeparators(b);
    while (!out.empty() && out.back() == kPathSeparator && !tail.empty() &&
           tail.front() == kPathSeparator)
        tail.erase(0, 1);
    if (!out.empty() && out.back() != kPathSeparator && !tail.empty() &&
        tail.front() != kPathSeparator)
        out += kPathSeparator;
    return out + tail;
}

std::string lastPathPart(std::string_view path) {
    const std::size_t cut = path.find_last_of("\\/");
    return std::string(cut == std::string_view::npos ? path : path.substr(cut + 1));
}

std::string parentPath(std::string_view path) {
    const std::size_t cut = path.find_last_of("\\/");
    return cut == std::string_view::npos ? std::string() : std::string(path.substr(0, cut));
}

}  // namespace rakeyard
