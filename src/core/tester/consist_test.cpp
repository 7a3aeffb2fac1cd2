// The consist test: a consist is Unicode text, each EngineData and WagonData line names its unit
// by name and folder, and each unit is there under the Trainset folder. The lines are read by
// rules of this test's own, which the loader and the activity readers do not share.
#include <string>

#include "core/msts/text_lines.h"
#include "core/msts/unit_file.h"
#include "core/platform/paths.h"
#include "core/platform/text_utf.h"
#include "core/tester/unit_scan.h"

namespace rakeyard {

namespace {

constexpr std::size_t kUnicodeFirstLine = 32;  // the mark's two characters and the header's 30

// The two kinds of unit line and their findings.
struct UnitLineKind {
    std::string_view word;       // upper-cased, as sought
    std::string_view lineName;   // as the findings name the line
    std::string_view extension;  // of the unit's file
    std::string_view example;    // the unquoted example of the missing quotes' hint
    std::string_view missingMark;
    std::string_view missingWhat;
};
constexpr UnitLineKind kEngineLine{"ENGINEDATA", "EngineData", ".eng",
                                   "your engine",  "[ENGINE FILE MISSING]", "The engine file "};
constexpr UnitLineKind kWagonLine{"WAGONDATA", "WagonData", ".wag",
                                  "your wagon", "[WAGON FILE MISSING]", "The wagon file "};

class ConsistTest {
public:
    ConsistTest(TestRun& run, const TestContext& context, std::string_view fileName)
        : run_(run), context_(context), C_(fileName) {}

    void run();

private:
    enum class Reading { GoOn, Stop };
    Reading unitLine(const UnitLineKind& kind, const std::string& R);
    // Name and folder told apart by their quotes; false when the line needs quotes it lacks.
    bool nameAndFolder();
    void report(std::string_view mark, const std::string& message, ErrorCategory category,
                ErrorLevel level, bool listed = true) {
        reportError(run_, context_, mark, message, category, level);
        run_.failed.push_back(joinPath(context_.paths.consistsPath, C_));
        if (!listed || failed_) return;
        run_.testedSounds.push_back(C_);
        failed_ = true;
    }

    TestRun& run_;
    const TestContext& context_;
    std::string C_;
    bool failed_ = false;  // the consist's name is on the list of failed ones
    Line L_;
    // Kept from line to line: a cut that can't be made leaves them as they were.
    Line name_, folder_;
    bool bare_ = false;  // the text in the parentheses holds no blank: no folder at all
};

void ConsistTest::run() {
    run_.unitShown = C_;
    const std::string sep(1, kPathSeparator);
    std::string bytes;
    if (!readInside(context_.services.fs, context_.paths.mstsPath, context_.paths.consistsPath,
                    C_, kUnitFileSizeLimit, bytes)) {
        report("[CONSIST FILE MISSING]",
               "The consist file with the name " + C_ + std::string(kEnd) +
                   "is missing from the folder " + std::string(kEnd) + context_.paths.consistsPath,
               ErrorCategory::Missing, ErrorLevel::Minor, false);
        return;
    }
    const TextLines file = textLines(bytes);
    if (file.firstLineLength() != kUnicodeFirstLine) {
        report(kSyntax,
               "The consist file with the name " + C_ + "isn't in Unicode format." +
                   std::string(kEnd) +
                   "HINT: Edit this file in a text editor and save it as a Unicode file," +
                   std::string(kEnd) + "overwriting the old file.",
               ErrorCategory::Syntax, ErrorLevel::Serious);
    }
    std::string key;
    for (std::size_t i = 1; i < file.lines.size(); ++i) {
        const std::string R = toUtf8(file.lines[i]);
        L_ = file.lines[i];
        context_.host.yield();
        (void)searchKey(L_, key);
        // A comment: its text, from the word on, goes wherever it stands in the line.
        if (const std::size_t at = firstOf(key, "COMMENT")) {
            const Line comment = cutFrom(L_, at);
            Line kept;
            std::size_t from = 0;
            for (std::size_t p = L_.find(comment); p != Line::npos; p = L_.find(comment, from)) {
                kept.append(L_, from, p - from).push_back(u' ');
                from = p + comment.size();
            }
            kept.append(L_, from);
            L_ = trimmed(kept);
            (void)searchKey(L_, key);
        }
        if (contains(key, kEngineLine.word) && unitLine(kEngineLine, R) == Reading::Stop) break;
        (void)searchKey(L_, key);
        if (contains(key, kWagonLine.word) && unitLine(kWagonLine, R) == Reading::Stop) break;
    }
    run_.testedShapes.push_back(C_);
    run_.filesTestedText = std::to_string(run_.counts.filesTested) + " files tested";
}

ConsistTest::Reading ConsistTest::unitLine(const UnitLineKind& kind, const std::string& R) {
    const std::string word(kind.lineName);
    const std::size_t open = firstOf(L_, u"(");
    const std::size_t close = lastOf(L_, u")");
    if (open == 0 || close == 0) {
        // The wagon's finding runs its first sentence into the hint, with no line shown.
        const std::string shown = kind.word == kEngineLine.word
                                      ? std::string(kEnd) + "The error was found on this line: " +
                                            R + std::string(kEnd)
                                      : std::string();
        const std::string example = kind.word == kEngineLine.word
                                        ? "yourloco yourlocofolder"
                                        : "yourwagon yourwagonfolder";
        report(kSyntax,
               "The consist file with the name " + C_ + std::string(kEnd) +
                   "has missing parenthesis in the line \"" + word + "\"." + shown +
                   "HINT: Edit this file and search for a line like: " + word + " ( " + example +
                   std::string(kEnd) + "and add the missing parenthesis so it will be like: " +
                   word + " ( " + example + " )" + std::string(kEnd) + std::string(kEnterHint),
               ErrorCategory::Syntax, ErrorLevel::Serious);
    } else if (auto inside = cut(L_, open + 1, static_cast<long long>(close) - open - 1)) {
        L_ = trimmed(*inside);
    }
    if (!nameAndFolder()) {
        const std::string example(kind.example);
        report(kSyntax,
               "The consist file with the name " + C_ + std::string(kEnd) +
                   "has missing quotes in the line \"" + word + "\"." + std::string(kEnd) +
                   "HINT: Edit this file and search for a line like: " + word + " ( " + example +
                   " " + example + " folder" + std::string(kEnd) +
                   "and add the missing quotes so it will be like: " + word + " ( \"" + example +
                   "\" \"" + example + " folder\" )" + std::string(kEnd) +
                   "Names containing spaces must always be between quotes.",
               ErrorCategory::Syntax, ErrorLevel::Serious);
        return Reading::Stop;
    }
    const std::string name = toUtf8(name_) + std::string(kind.extension);
    const std::string folder = toUtf8(folder_);
    const std::uintmax_t size =
        bare_ ? 0
              : sizeInside(context_.services.fs, context_.paths.mstsPath,
                           context_.paths.trainsetPath, folder + "\\" + name);
    if (size == 0) {
        report(kind.missingMark,
               std::string(kind.missingWhat) + name + " does not exist in the folder" +
                   std::string(kEnd) + context_.paths.trainsetPath + kPathSeparator + folder +
                   std::string(kEnd) + "(CONSIST " + C_ + ")",
               ErrorCategory::Missing, ErrorLevel::Minor);
    }
    ++run_.counts.filesTested;
    return Reading::GoOn;
}

bool ConsistTest::nameAndFolder() {
    bare_ = false;
    const std::size_t q1 = firstOf(L_, u"\"");
    if (q1 == 0) {
        const std::size_t blank = firstOf(L_, u" ");
        if (blank == 0) {
            name_ = L_;
            folder_.clear();
            bare_ = true;
            return true;
        }
        if (firstOf(std::u16string_view(L_).substr(blank), u" ") != 0) return false;
        name_ = L_.substr(0, blank - 1);
        folder_ = L_.substr(blank);
        return true;
    }
    const std::size_t next = firstOf(std::u16string_view(L_).substr(q1), u"\"");
    const std::size_t q2 = next ? q1 + next : 0;
    const std::size_t q4 = lastOf(L_, u"\"");
    const std::size_t q3 = lastOf(std::u16string_view(L_).substr(0, q4 - 1), u"\"");
    auto between = [this](std::size_t from, std::size_t to, Line& into) {
        if (auto text = cut(L_, from + 1, static_cast<long long>(to) - from - 1)) into = *text;
    };
    if (q1 + q2 != q3 + q4) {
        between(q1, q2, name_);
        between(q3, q4, folder_);
    } else if (q1 > 2) {
        name_ = trimmed(L_.substr(0, q1 - 1));
        between(q1, q2, folder_);
    } else {
        between(q1, q2, name_);
        if (q2 > 0) folder_ = trimmed(cutFrom(L_, q2 + 1));
    }
    return true;
}

}  // namespace

void testThisConsist(TestRun& run, const TestContext& context, std::string_view fileName) {
    ConsistTest(run, context, fileName).run();
}

}  // namespace rakeyard
