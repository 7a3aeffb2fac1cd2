#pragma once
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/msts/unit_record.h"
#include "core/platform/services.h"
#include "core/settings/settings_record.h"

namespace rakeyard {

// One line of the engine or wagon list: the display name cut to 30 characters and padded to
// 31, "[" + front + rear coupler + "] ", the engine's power or the wagon's type, 8 blanks and
// "^" + file name. What stands behind the last "^" is the unit's key.
[[nodiscard]] std::string unitListLine(const UnitRecord& record, bool isEngine);

// Whether a record shows under a filter word: "All" shows all, "AI" (engines) those without a
// cab, any other word the units of that type in any letter case.
[[nodiscard]] bool engineShown(const UnitRecord& engine, std::string_view engineFilter);
[[nodiscard]] bool wagonShown(const UnitRecord& wagon, std::string_view wagonFilter);

// One line of a unit list with the record it stands for (its index in the records given).
struct UnitListRow {
    std::size_t record = 0;
    std::string line;
};

// The rows of a catalogue under its filter, sorted as the list shows them.
[[nodiscard]] std::vector<UnitListRow> unitListRows(std::span<const UnitRecord> records,
                                                    UnitClass which, std::string_view filter);

// The list lines of a catalogue under its filter, sorted as the list shows them.
[[nodiscard]] std::vector<std::string> readEngFilter(std::span<const UnitRecord> engines,
                                                     std::string_view engineFilter);
[[nodiscard]] std::vector<std::string> readWagFilter(std::span<const UnitRecord> wagons,
                                                     std::string_view wagonFilter);

// The order of the lists and folder listings: by the upper-cased text, then by the exact one.
[[nodiscard]] bool listsBefore(std::string_view a, std::string_view b);

// What stands behind the last "^" of a list line.
[[nodiscard]] std::string keyOfLine(std::string_view line);

enum class KeyCase { Ignore, Exact };
// The index of the first record whose file name equals key, up to the catalogue's end.
[[nodiscard]] std::optional<std::size_t> findUnitByKey(std::span<const UnitRecord> records,
                                                       std::string_view key,
                                                       KeyCase keyCase = KeyCase::Ignore);
// The record a list line stands for when two units share a file name: the first whose file
// name matches the line's key and whose display name holds the line's text before "[".
[[nodiscard]] std::optional<std::size_t> findUnitOfLine(std::span<const UnitRecord> records,
                                                        std::string_view line);

// The status bar's text for a unit: folder, file name and display name.
[[nodiscard]] std::string unitStatusText(const UnitRecord& record);

// Ctrl+click on a list line: opens the unit's file in the chosen text editor. Without an
// editor the user is told to choose one. False when nothing was started.
bool openUnitInEditor(const PathGlobals& paths, std::span<const UnitRecord> records,
                      std::string_view line, Services& services);

// Sends the unit's folder, with every unit in it, to the recycle bin. Refused with a message
// when the folder name is empty, "." or "..", holds a separator, or the folder is not a
// folder of the Trainset folder: nothing outside Trainset is ever deleted. False when refused
// or when the recycle bin did not take it (also told).
bool deleteUnitFolder(const PathGlobals& paths, const UnitRecord& record, Services& services);

// The filter in force beside a list: "Diesel - 12 of 25" (the menu's word for AI and All).
[[nodiscard]] std::string filterSummary(std::string_view filter, std::size_t shown,
                                        std::size_t total);

}  // namespace rakeyard
