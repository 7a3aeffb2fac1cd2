#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "core/msts/inside_path.h"
#include "core/platform/file_system.h"

namespace rakeyard {

// The size the tester looks up: 0 for a file that is missing, empty, no plain file (a folder,
// a pipe) or outside root.
[[nodiscard]] std::uintmax_t sizeInside(FileSystem& fs, std::string_view root,
                                        std::string_view folder, std::string_view name);

// Why a lookup found nothing, as the tests tell it apart: the file isn't in its folder (or is a
// folder itself), a folder on its way is missing (or the path leaves root), the name holds a
// character Windows forbids, or the file is there and can't be read.
enum class LookupFailure { None, FileNotFound, PathNotFound, BadName, Unreadable };
struct Lookup {
    std::uintmax_t size = 0;  // 0 also for a file of no bytes, which counts as missing
    LookupFailure failure = LookupFailure::None;
};
[[nodiscard]] Lookup lookUpInside(FileSystem& fs, std::string_view root, std::string_view folder,
                                  std::string_view name);
// The same for a file to be read: bytes hold it when the failure is None.
[[nodiscard]] LookupFailure readLookupInside(FileSystem& fs, std::string_view root,
                                             std::string_view folder, std::string_view name,
                                             std::uintmax_t limit, std::string& bytes);

// The bytes of a plain file inside root, at most limit of them; nothing when it is missing,
// no plain file (a pipe is never read from), outside root, larger than the limit or unreadable.
[[nodiscard]] std::optional<std::string> readInside(FileSystem& fs, std::string_view root,
                                                    std::string_view folder, std::string_view name,
                                                    std::uintmax_t limit);
// The same into bytes, whose storage is kept from file to file; false for nothing read.
[[nodiscard]] bool readInside(FileSystem& fs, std::string_view root, std::string_view folder,
                              std::string_view name, std::uintmax_t limit, std::string& bytes);

}  // namespace rakeyard
