#pragma once
#include <string>
#include <string_view>
#include <vector>

#include "core/msts/unit_record.h"

namespace rakeyard {

// A search typed over a unit list. Blanks part its words; a unit matches when each word stands
// somewhere in its display name, file name or folder name, ASCII letters in any case.
class UnitSearch {
public:
    explicit UnitSearch(std::string_view text = {});
    [[nodiscard]] bool empty() const { return words_.empty(); }
    [[nodiscard]] bool matches(const UnitRecord& unit) const;
    [[nodiscard]] bool matches(std::string_view displayName, std::string_view fileName,
                               std::string_view folderName) const;

private:
    std::vector<std::string> words_;  // upper-cased
};

}  // namespace rakeyard
