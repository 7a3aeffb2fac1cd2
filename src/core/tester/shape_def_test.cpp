// The shape definition test: an .sd names its shape on the first line with the word "shape".
#include "core/msts/text_lines.h"
#include "core/msts/unit_file.h"
#include "core/platform/text_utf.h"
#include "core/msts/file_lookup.h"
#include "core/tester/line_text.h"
#include "core/tester/reports.h"
#include "core/tester/unit_tests.h"

namespace rakeyard {

void testShapeDef(TestRun& run, const TestContext& context, const UnitNames& names,
                  std::u16string_view shapeName) {
    const std::string definition = toUtf8(shapeName) + "d";
    FileSystem& fs = context.services.fs;
    const std::string& root = context.paths.mstsPath;
    const std::string& folder = names.unit.folderPath;
    const std::optional<std::string> bytes =
        readInside(fs, root, folder, definition, kUnitFileSizeLimit);
    if (!bytes) {
        reportError(run, context, "[SHAPE DEFINITION FILE MISSING]",
                    "The shape definition file " + definition + " belonging to the file " +
                        names.F + "\r\nis missing from the folder \r\n" + names.D,
                    ErrorCategory::Shapes, ErrorLevel::Minor);
        return;
    }
    for (const Line& line : textLines(*bytes).lines) {
        if (!contains(upperAscii(line), u"SHAPE")) continue;
        Line value = trimmed(cutFrom(line, firstOf(line, u"(") + 1));
        if (value.size() >= 2 && value.front() == u'"') value = value.substr(1, value.size() - 2);
        if (sizeInside(fs, root, folder, toUtf8(value)) == 0) {
            reportError(run, context, "[SHAPE FILE MISSING]",
                        "The shape definition file " + definition + " located in the folder " +
                            "\r\n" + names.D + "\r\nis pointing to a file named " +
                            toUtf8(value) +
                            " that doesn't exist in the same folder.\r\nThe error was found on "
                            "this line: " +
                            toUtf8(shownLine(line)),
                        ErrorCategory::Shapes, ErrorLevel::Minor);
        }
        break;
    }
    run.testedShapes.push_back(definition);
    ++run.counts.filesTested;
}

}  // namespace rakeyard
