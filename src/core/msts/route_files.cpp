#include "core/msts/route_files.h"

#include "core/msts/inside_path.h"
#include "core/msts/text_lines.h"
#include "core/platform/text_utf.h"

namespace rakeyard {

namespace {

bool endsWithNoCase(const std::string& name, std::string_view extension) {
    return name.size() > extension.size() &&
           upperAscii(name.substr(name.size() - extension.size())) == extension;
}

}  // namespace

std::vector<std::string> filesEndingIn(FileSystem& fs, const std::string& folder,
                                       std::string_view extension) {
    std::vector<std::string> names;
    for (const DirEntry& entry : fs.listFolder(folder))
        if (!entry.isFolder && endsWithNoCase(entry.name, extension)) names.push_back(entry.name);
    return names;
}

std::optional<std::vector<std::u16string>> linesOf(FileSystem& fs, const PathGlobals& paths,
                                                   const std::string& folder,
                                                   const std::string& name) {
    const std::optional<std::string> path = joinInside(paths.mstsPath, folder, name);
    if (!path) return std::nullopt;
    std::string bytes;
    if (fs.readFileInto(*path, kRouteFileSizeLimit, bytes) != ReadOutcome::Read)
        return std::nullopt;
    return std::move(textLines(bytes).lines);
}

RouteName routeNameOf(const std::vector<std::u16string>& lines, std::string& name) {
    for (const std::u16string& line : lines) {
        if (upperAscii(line).find(u"NAME") == std::u16string::npos) continue;
        const std::size_t open = line.find(u'(');
        const std::size_t close = open == std::u16string::npos ? open : line.find(u')', open);
        if (close == std::u16string::npos) return RouteName::Malformed;
        std::u16string text =
            trimBlanks(std::u16string_view(line).substr(open + 1, close - open - 1));
        if (!text.empty() && text.front() == u'"') text.erase(0, 1);
        if (!text.empty() && text.back() == u'"') text.pop_back();
        name = toUtf8(text);
        return RouteName::Found;
    }
    return RouteName::NoLine;
}

}  // namespace rakeyard
