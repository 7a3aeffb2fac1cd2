#pragma once
#include <cstddef>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "core/msts/unit_record.h"

namespace rakeyard {

// Every record whose file name is fileName regardless of letter case, in catalogue order; with a
// folder name, only records of that folder (also regardless of case). Records come from
// usedRecords, so a refused file's leftovers are never found.
[[nodiscard]] std::vector<std::size_t> findUnits(std::span<const UnitRecord> records,
                                                 std::string_view fileName,
                                                 std::string_view folderName = {});

// The first of findUnits, as MSTS finds a unit: names compare without regard to case.
[[nodiscard]] std::optional<std::size_t> findUnit(std::span<const UnitRecord> records,
                                                  std::string_view fileName,
                                                  std::string_view folderName = {});

}  // namespace rakeyard
