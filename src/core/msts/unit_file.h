#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/msts/msts_text.h"
#include "core/msts/unit_record.h"

namespace rakeyard {

// The largest unit file that is read: real ones are well under 1 MB, and a larger file is
// refused with a finding rather than read into memory.
inline constexpr std::uintmax_t kUnitFileSizeLimit = 16u << 20;

// What the catalogue readers make of one ".eng" or ".wag" file.
struct UnitFileResult {
    UnitRecord record;
    // The "Wagon (" line named the file: the record was begun in the catalogue's next free
    // place. A file refused after that leaves it there, for the next valid file to overwrite.
    bool recordBegun = false;
    bool accepted = false;  // a valid unit: the next free place moves on
    // The texts for StartErrors.txt, in the order found, each ending in its own line end.
    std::vector<std::string> findings;
    // The debug window's pass titles, in order (only when asked for).
    std::vector<std::string> passTitles;
};

// Reads one engine (".eng") from its bytes (nullopt when the file could not be read). file
// is the file's name as listed, folderPath the full path of its folder. The text is worked on
// in buffers, which keep their storage for the next file.
[[nodiscard]] UnitFileResult readEngineFile(std::optional<std::string_view> bytes,
                                            const std::string& file, const std::string& folderPath,
                                            bool withPassTitles, UnitText& buffers);
// The same for a wagon (".wag"). The caller passes over "DEFAULT.WAG" before.
[[nodiscard]] UnitFileResult readWagonFile(std::optional<std::string_view> bytes,
                                           const std::string& file, const std::string& folderPath,
                                           bool withPassTitles, UnitText& buffers);

// The finding for a unit file above kUnitFileSizeLimit, which is not read.
[[nodiscard]] UnitFileResult tooLargeUnitFile(const std::string& file,
                                              const std::string& folderPath);
}  // namespace rakeyard
