#pragma once
#include <optional>
#include <string>
#include <string_view>

namespace rakeyard {

// A name read from an MSTS file joined behind a folder as Windows takes such a path: "\" and
// "/" alike, repeated separators as one, "." and ".." resolved by the text alone (also through
// a folder that isn't there). The name is joined as text, so "C:\x.s" or "/etc/passwd" stays
// below the folder. Nothing when the path leaves root, the MSTS folder.
[[nodiscard]] std::optional<std::string> joinInside(std::string_view root, std::string_view folder,
                                                    std::string_view name);

}  // namespace rakeyard
