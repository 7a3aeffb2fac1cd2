#pragma once
// What the readers of a route's files share: the listing of one kind of file, the lines of a
// file inside the MSTS folder, and the display name of a route file.
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/platform/file_system.h"
#include "core/settings/settings_record.h"

namespace rakeyard {

// Routes, activities and services are small; a larger file is not read, so that memory stays
// bounded whatever a folder holds.
inline constexpr std::uintmax_t kRouteFileSizeLimit = 64u << 20;

// The files of a folder whose names end in extension (upper-cased), in listing order.
[[nodiscard]] std::vector<std::string> filesEndingIn(FileSystem& fs, const std::string& folder,
                                                     std::string_view extension);

// The lines of a file inside the MSTS folder; nothing when it can't be read or the name leads
// out of the MSTS folder.
[[nodiscard]] std::optional<std::vector<std::u16string>> linesOf(FileSystem& fs,
                                                                 const PathGlobals& paths,
                                                                 const std::string& folder,
                                                                 const std::string& name);

// The route file's display name: on its first line with "NAME", between the first "(" and the
// first ")" after it, trimmed, less a leading and a trailing quote.
enum class RouteName { Found, NoLine, Malformed };
[[nodiscard]] RouteName routeNameOf(const std::vector<std::u16string>& lines, std::string& name);

}  // namespace rakeyard
