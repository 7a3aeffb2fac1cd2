#pragma once
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "core/tester/test_state.h"

namespace rakeyard {

// The list row of a unit: its display name, forty blanks, "^" and its file name.
[[nodiscard]] std::string unitTestRow(const UnitRecord& unit);

// A press of a section button: the lists, the level counters and the error mark are cleared,
// the rows are the units shown under filter (the main lists' rule), none selected. The counts
// of files, errors and categories stay. True when reports of the section are there to show.
bool fillSection(TestRun& run, const TestContext& context, TestSection section,
                 std::string_view filter);
void selectAllRows(TestRun& run, bool selected);
// The consist section with the consists given as its rows, all selected: those of an activity
// handed over by the activities window.
void fillGivenConsists(TestRun& run, const TestContext& context, std::vector<std::string> rows);

// "Start test": the reports of the section are deleted, the selected rows tested in order and,
// with the duplicates option, the whole catalogue checked for file names used twice. Messages
// go through the dialogs. True when the run took up a row and found errors that the user can
// read in the editor (the window then offers the reports).
bool runTests(TestRun& run, const TestContext& context);
// "Stop test": the section is filled again, so no row is selected and the walk ends after the
// unit under test; a running duplicate check ends too. A consist run fills it again once the
// consist under test is finished, so that no failed consist stays listed.
void stopTests(TestRun& run, const TestContext& context, std::string_view filter);

// "Delete consists with errors": each consist named on the list of failed ones goes to the
// trash and the list empties; the caller fills the consist section again. A name that is no
// plain file name of the Consists folder is passed over: nothing outside that folder is touched.
void deleteFailedConsists(TestRun& run, const TestContext& context);
// The consist file a row names, to load in the editor: a row of the consist section, or a failed
// consist's name ending in ".con"; nothing for any other row.
[[nodiscard]] std::optional<std::string> consistOfRow(const TestContext& context,
                                                      std::string_view row);

// Ctrl+click on a row: the unit whose display name the row's text begins with, looked for
// among the engines and then the wagons, opens in the text editor.
void openTestRowInEditor(const TestContext& context, std::string_view row);

// The duplicate check over the section's whole catalogue: every pair of units with the same
// file name (case counts), in the order of a walk over the pairs, one block each in the
// section's duplicates report, written at once.
void checkDuplicates(TestRun& run, const TestContext& context);

}  // namespace rakeyard
