#pragma once
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/platform/file_system.h"
#include "core/settings/settings_record.h"
#include "core/tester/test_state.h"

namespace rakeyard {

// The tester's reports lie in Reports under the program's folder, one family a section: "Eng",
// "Wag", "Con" and "Act" before the kind ("EngMissing.txt"). Records are 8-bit text, lines
// closed by CR LF.

[[nodiscard]] std::string reportsFolder(const PathGlobals& paths);
// Told when a run found errors and there is no editor to show the reports in.
inline constexpr std::string_view kNoEditorForReports =
    "It isn't possible to show the error list.\nPlease select \"Options\" from the menu and "
    "select a text editor program.";
// The report of a category in a mode; none where the mode has no such report (a code outside
// 1 to 7 included).
[[nodiscard]] std::optional<std::string> reportName(std::string_view testMode, int category);
[[nodiscard]] std::string duplicatesReportName(std::string_view testMode);

// Appends the record (the message, then forty hyphens) to its report and counts it under its
// category. Where the mode has no report for the category nothing happens at all. A record is
// whole on disk when the call returns; one that can't be written is lost silently.
void writeErrorByType(TestRun& run, const PathGlobals& paths, FileSystem& fs,
                      std::string_view message, int category);

// The reports a run of a section deletes first: those it always writes, and those of the
// options that are on.
void deleteSectionReports(const PathGlobals& paths, FileSystem& fs, TestSection section,
                          bool cabViews, bool sounds, bool duplicates);
// Whether a report of the section ("Eng*.txt") is there.
[[nodiscard]] bool sectionReportsExist(const PathGlobals& paths, FileSystem& fs,
                                       TestSection section);
// Whether any of the eighteen engine, wagon and consist reports is there (the activity
// reports are not looked at): the "Del Reports" button is lit by it.
[[nodiscard]] bool anyReportExists(const PathGlobals& paths, FileSystem& fs);
// One finding: counted, written to its report, counted by level. Every test reports so.
void reportError(TestRun& run, const TestContext& context, std::string_view mark,
                 std::string_view message, ErrorCategory category, ErrorLevel level);

// "Del Reports": deletes those eighteen.
void deleteAllReports(const PathGlobals& paths, FileSystem& fs);

// The seven kinds of the window "Error reports by type", in its button order, and the report
// each button opens in a mode (none where the mode has no such report).
inline constexpr std::string_view kReportKinds[] = {"Missing", "Syntax",  "Shapes",   "CabViews",
                                                    "Sounds",  "Others", "Duplicate"};
[[nodiscard]] std::optional<std::string> reportOfKind(std::string_view testMode, int kind);
// The reports of a section that are there, by name, in the buttons' order.
[[nodiscard]] std::vector<std::string> existingReports(const PathGlobals& paths, FileSystem& fs,
                                                       std::string_view testMode);

}  // namespace rakeyard
