#pragma once
#include <string>
#include <string_view>

namespace rakeyard {

#ifdef _WIN32
inline constexpr char kPathSeparator = '\\';
#else
inline constexpr char kPathSeparator = '/';
#endif

inline bool isPathSeparator(char c) { return c == '\\' || c == '/'; }

// a + separator + b, with "\" and "/" in b turned into this platform's separator and no doubled
// separator at the join.
std::string joinPath(std::string_view a, std::string_view b);
// The last component of a path ("" for a path ending in a separator).
std::string lastPathPart(std::string_view path);
// All but the last component, without the trailing separator.
std::string parentPath(std::string_view path);
// Every "\" and "/" turned into this platform's separator.
std::string nativeSeparators(std::string_view path);
// A path made whole against the working folder, without "." and ".." parts nor a separator at
// its end (a root keeps its own); as given when it can't be made whole.
std::string wholePath(std::string_view path);

}  // namespace rakeyard
