#pragma once
#include <string>
#include <string_view>

#include "core/platform/file_system.h"
#include "core/platform/services.h"

namespace rakeyard {

inline constexpr std::string_view kNoDescription = "No description available for this unit!";

// The description text of a unit file's bytes, read as delimited items: split at commas and
// line ends, a quoted item running to its closing quote (the rest up to the next comma or line
// end dropped). An item holding "Description (" starts the text and empties text; one holding
// "EngineOperatingProcedures" ends it. While it runs, items other than "+", ")" and empty ones
// are added, a closing "\n\n" or "\n" turned into CR LF. When a description was found, a line of
// 33 asterisks follows it. True when one was found.
bool getDescription(std::string_view bytes, std::string& text);

// The figures of a unit file's bytes added to text line by line: comments written "//*" shown
// as they stand (other comments cut off), and the lines with "Type (", "Size (", "Mass (",
// "MaxPower", "MaxForce", "MaxContinuousForce" or "MaxCurrent" behind a blank or TAB as the word,
// ":" and what stands between the first "(" and the last ")".
void getInfo(std::string_view bytes, std::string& text);

// What the description window shows of a unit file: the starting text, the description and
// then the figures. An unreadable file is told to the user and leaves the starting text.
std::string describeUnitFile(const std::string& path, Services& services);

}  // namespace rakeyard
