#include "core/platform/paths.h"

#include <algorithm>
#include <filesystem>

#include "core/platform/system.h"

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

std::string wholePath(std::string_view path) {
    std::error_code error;
    const std::filesystem::path whole = std::filesystem::absolute(sys::fsPath(path), error);
    if (error) return std::string(path);
    std::string text = sys::utf8Path(whole.lexically_normal());
    const std::size_t rootLength = sys::utf8Path(whole.root_path()).size();
    while (text.size() > std::max<std::size_t>(rootLength, 1) && isPathSeparator(text.back()))
        text.pop_back();
    return text;
}

}  // namespace rakeyard
