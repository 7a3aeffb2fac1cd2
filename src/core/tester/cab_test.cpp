// The cab view test: a .cvf names its textures on its CabViewFile and Graphic lines; each must
// lie in the unit's CABVIEW folder.
#include <string>

#include "core/msts/text_lines.h"
#include "core/msts/unit_file.h"
#include "core/platform/text_utf.h"
#include "core/tester/unit_scan.h"

namespace rakeyard {

namespace {

// Textures MSTS brings along for every cab: never looked for.
bool isSharedWindowTexture(std::string_view key) {
    return contains(key, "ACWNDLFT.ACE") || contains(key, "ACWNDFRN.ACE") ||
           contains(key, "ACWNDRGT.ACE");
}

}  // namespace

void testCab(TestRun& run, const TestContext& context, const UnitNames& names,
             std::u16string_view cvfName) {
    FileSystem& fs = context.services.fs;
    const std::string& root = context.paths.mstsPath;
    const std::string& folder = names.unit.folderPath;
    const std::string cvf = toUtf8(cvfName);
    static thread_local std::string bytes;
    static thread_local std::u16string text;
    const LookupFailure failure =
        readLookupInside(fs, root, folder, "CABVIEW\\" + cvf, kUnitFileSizeLimit, bytes);
    if (failure == LookupFailure::Unreadable) return;
    if (failure != LookupFailure::None) {
        reportError(run, context, "[CAB DEFINITION FILE]",
                    "The cab definition file " + cvf + " does not exist in the folder" +
                        std::string(kEnd) + names.D + "CABVIEW",
                    ErrorCategory::Cabview, ErrorLevel::Minor);
        return;
    }
    std::string key;
    (void)forEachTextLine(bytes, text, [&](std::u16string_view read) {
        context.host.yield();
        (void)searchKey(read, key);
        if (!contains(key, "\tCABVIEWFILE") && !contains(key, "\t\t\tGRAPHIC")) return true;
        // A comment cut takes the word and the character in front of it.
        std::u16string_view line = read;
        if (const std::size_t at = firstOf(key, "COMMENT")) {
            if (at + 6 <= 9) return true;
            line = line.substr(0, at >= 2 ? at - 2 : 0);
        }
        std::size_t open = firstOf(line, u"(");
        std::size_t close = lastOf(line, u")");
        if (open == 0 || close == 0) {
            reportError(run, context, kSyntax,
                        "The cab definition file " + cvf + " has missing parenthesis in the line " +
                            std::string(kEnd) + "\"CabViewWindowFile\" or \"Graphic\"." +
                            std::string(kEnd) + "The error was found on this line: " +
                            toUtf8(shownLine(line)) +
                            "HINT: Edit this file and search for a line like: Graphic ( "
                            "youracefile.ace" +
                            std::string(kEnd) +
                            "and add the missing parenthesis so it will be like: Graphic ( "
                            "youracefile.ace )" +
                            std::string(kEnd) + std::string(kEnterHint),
                        ErrorCategory::Cabview, ErrorLevel::Serious);
            if (close == 0) {
                open = 11;
                close = line.size();
            }
        }
        Line value;
        if (auto inside = cut(line, open + 1, static_cast<long long>(close) - open - 1))
            value = trimmed(replaced(trimmed(*inside), u'"', u' '));
        std::string valueKey;
        (void)searchKey(value, valueKey);
        if (value.empty() || contains(value, u"0") || isSharedWindowTexture(valueKey))
            return true;
        const std::string texture = toUtf8(value);
        if (sizeInside(fs, root, folder, "CABVIEW\\" + texture) == 0) {
            // A texture reached by ".." is named by the unit's folder alone.
            const std::string where =
                contains(value, u"..") ? names.D : names.D + "CABVIEW";
            reportError(run, context, "[TEXTURE FILE MISSING] ",
                        "The texture file " + texture + std::string(kEnd) +
                            " specified by the file " + cvf + " does not exist in the folder " +
                            std::string(kEnd) + where + std::string(kEnd) +
                            "The error was found on this line: " + toUtf8(shownLine(line)),
                        ErrorCategory::Cabview, ErrorLevel::Critical);
        }
        run.testedShapes.push_back(texture);
        ++run.counts.filesTested;
        return true;
    });
}

}  // namespace rakeyard
