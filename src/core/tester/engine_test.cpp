// The engine test: a line scanner, not a parser. A line counts by a word anywhere in it,
// upper-cased, and the findings' texts are those users search the reports for, byte for byte.
#include <string>

#include "core/msts/text_lines.h"
#include "core/msts/unit_file.h"
#include "core/platform/paths.h"
#include "core/platform/text_utf.h"
#include "core/tester/file_lookup.h"
#include "core/tester/line_text.h"
#include "core/tester/reports.h"
#include "core/tester/unit_tests.h"

namespace rakeyard {

namespace {

constexpr std::string_view kEnd = "\r\n";
constexpr std::string_view kSyntax = "[SYNTAX ERROR]";
constexpr std::string_view kEnterHint =
    "An incorrect ENTER character can also cause this error, in this case you\r\n"
    "won't be able to really see it.";

// The state of one engine's test: the current line L and the value V taken out of it.
class EngineTest {
public:
    EngineTest(TestRun& run, const TestContext& context, const UnitRecord& unit)
        : run_(run), context_(context), names_(unit) {}

    void run();

private:
    enum class Reading { GoOn, Stop };
    bool checkLine(const char* utf16, std::size_t units, std::string_view key);
    void ensureLine();
    Reading lineChecks();
    void headName(bool engineLine);
    bool valueInParentheses(std::size_t fallbackOpen, void (EngineTest::*error)());
    void stripQuotes();
    void shape();
    void freightAnimation();
    void mass();
    void displayName();
    void lookUpShape(std::string_view mark, std::string_view what, const std::string& place,
                     ErrorCategory category);
    void wrongSyntaxWhenUnbalanced(std::string_view word);

    // L as the findings show it; from the first finding on the line, L keeps that form, and its
    // key follows it.
    std::string shownL() {
        ensureLine();
        L_ = shownLine(line_);
        line_ = L_;
        letters_ = searchKey(L_, ownKey_);
        key_ = ownKey_;
        return toUtf8(L_);
    }
    std::string V() const { return toUtf8(V_); }
    void report(std::string_view mark, const std::string& message, ErrorCategory category,
                ErrorLevel level) {
        reportError(run_, context_, mark, message, category, level);
    }
    std::string parenthesisFinding(std::string_view word, std::string_view example) {
        const std::string line = shownL();
        return "The engine file with the name " + names_.F + std::string(kEnd) + "in the folder " +
               std::string(kEnd) + names_.P + std::string(kEnd) +
               "has missing parenthesis in the line \"" + std::string(word) + "\"." +
               std::string(kEnd) + "The error was found on this line: " + line +
               std::string(kEnd) + "HINT: Edit this file and search for a line like: " +
               std::string(word) + " ( " + std::string(example) + std::string(kEnd) +
               "and add the missing parenthesis so it will be like: " + std::string(word) +
               " ( " + std::string(example) + " )" + std::string(kEnd) + std::string(kEnterHint);
    }
    void e6() {
        report(kSyntax, parenthesisFinding("WagonShape", "GP38.s"), ErrorCategory::Syntax,
               ErrorLevel::Serious);
    }
    void e15() {
        report(kSyntax, parenthesisFinding("Mass", "\"75.5t\""), ErrorCategory::Syntax,
               ErrorLevel::Serious);
    }
    void e17() {
        report(kSyntax, parenthesisFinding("Name", "\"This loco name\""), ErrorCategory::Syntax,
               ErrorLevel::Serious);
    }

    TestRun& run_;
    const TestContext& context_;
    UnitNames names_;
    // L is line_, a view into the file's text, until a finding turns its TABs; then it is L_.
    std::u16string_view line_;
    std::string_view key_;  // L's search key
    Line L_;
    std::string lineKey_;  // the search key of the line read
    const char* raw_ = nullptr;  // the line read, in UTF-16 LE bytes
    std::size_t rawUnits_ = 0;
    bool lineReady_ = false;  // line_ holds it decoded
    std::uint32_t letters_ = 0;  // the letters of the line: L's, or more when L was cut
    std::string ownKey_;   // that of L_
    Line V_;
};

// Reading rules first: comment and mark lines are passed over, and the rest of a line after
// either is cut. The line is decoded only when a check looks at it: most are passed by their
// key. False when the reading ends here (a description's line).
bool EngineTest::checkLine(const char* utf16, std::size_t units, std::string_view key) {
    constexpr std::uint32_t kComment = lettersOf("COMMENT");
    std::size_t keep = units;
    if ((letters_ & kComment) == kComment) {
        if (const std::size_t at = firstOf(key, "COMMENT")) {
            if (at + 6 <= 9) return true;  // the word stands whole in the first nine characters
            keep = at - 1;
        }
    }
    // The blank in front of a "#_" mark goes with it.
    if (const std::size_t at = firstOf(key.substr(0, keep), "#_")) {
        if (at + 1 <= 9) return true;  // the mark stands whole in the first nine characters
        keep = at - 2;
    }
    key_ = key.substr(0, keep);
    raw_ = utf16;
    rawUnits_ = keep;
    lineReady_ = false;
    return lineChecks() == Reading::GoOn;
}

void EngineTest::ensureLine() {
    if (lineReady_) return;
    decodeUnits(raw_, rawUnits_, L_);
    line_ = L_;
    lineReady_ = true;
}

void EngineTest::run() {
    const UnitRecord& unit = names_.unit;
    run_.unitShown = names_.P;
    // The buffers are kept from engine to engine: a run reads thousands of them.
    static thread_local std::string bytes;
    static thread_local std::u16string text;
    if (!readInside(context_.services.fs, context_.paths.mstsPath, unit.folderPath, unit.fileName,
                    kUnitFileSizeLimit, bytes)) {
        report("[ENGINE FILE MISSING]",
               "The engine file with the name " + names_.F + " is missing from the folder " +
                   std::string(kEnd) + names_.P,
               ErrorCategory::Missing, ErrorLevel::Minor);
        return;
    }
    // The lines are read in UTF-16 LE bytes as they lie in the file, behind its mark; 8-bit
    // text is turned into such bytes first, and an odd last byte is a character of its own.
    std::size_t begin = 2;
    if (bytes.size() < 2 || bytes[0] != '\xFF' || bytes[1] != '\xFE') {
        decodeLineText(bytes, text);
        bytes.assign(reinterpret_cast<const char*>(text.data()), text.size() * 2);
        begin = 0;
    }
    if ((bytes.size() - begin) % 2) bytes.push_back('\0');
    const char* utf16 = bytes.data() + begin;
    const std::size_t units = (bytes.size() - begin) / 2;
    for (std::size_t start = 0; start < units;) {
        const std::size_t end = nextLineEnd(utf16, units, start);
        context_.host.yield();
        letters_ = searchKey(utf16 + 2 * start, end - start, lineKey_);
        if (!checkLine(utf16 + 2 * start, end - start, lineKey_)) break;
        context_.host.yield();
        start = end + 1;
        if (start < units && utf16[2 * start] == '\n' && utf16[2 * start + 1] == 0) ++start;
    }
    run_.filesTestedText = std::to_string(run_.counts.filesTested) + " files tested";
}

// Each check looks at L as it stands then: a finding before it may have turned its TABs. The
// head names are checked on a description's line too; nothing after that line is.
// A word sought in a line, with its letters: a line that lacks one of them is not searched.
struct Word {
    std::string_view text;
    std::uint32_t letters;
    constexpr Word(std::string_view word) : text(word), letters(lettersOf(word)) {}
};

EngineTest::Reading EngineTest::lineChecks() {
    static constexpr Word kWagon("WAGON"), kWagonShape("WAGONSHAPE"), kEngine("ENGINE ("),
        kBrakeEngine("BRAKE_ENGINE"), kMonitoring("MONITORINGDEVICEAPPLIESSHUTSDOWNENGINE"),
        kDescription("DESCRIPTION"), kFreightAnim("FREIGHTANIM"), kMass("MASS ("), kName("NAME");
    auto has = [this](const Word& word) {
        return (letters_ & word.letters) == word.letters && contains(key_, word.text);
    };
    if (has(kWagon) && !has(kWagonShape)) headName(false);
    if (has(kEngine) && !has(kBrakeEngine) && !has(kMonitoring)) headName(true);
    if (has(kDescription)) return Reading::Stop;
    if (has(kWagonShape)) shape();
    if (has(kFreightAnim)) freightAnimation();
    if (has(kMass)) mass();
    if (has(kName)) displayName();
    return Reading::GoOn;
}

// The name on the "Wagon" or "Engine" line: quoted when it holds a blank, and the file's name.
void EngineTest::headName(bool engineLine) {
    ensureLine();
    const std::size_t open = firstOf(line_, u"(");
    const std::size_t close = closeBeforeLineFeed(line_, firstOf(line_, u")"));
    if (close > 0) {
        if (auto value = cut(line_, open + 1, static_cast<long long>(close) - open - 1))
            V_ = trimmed(*value);
    } else {
        V_ = cutFrom(line_, open + 1);
        if (const std::size_t tab = firstOf(V_, u"\t")) V_[tab - 1] = u' ';
    }
    V_ = trimmed(replaced(V_, u'\t', u' '));
    const std::string word = engineLine ? "Engine" : "Wagon";
    if (contains(V_, u" ") && (V_.empty() || V_.front() != u'"')) {
        const std::string line = shownL();
        const std::string hint = "HINT: Edit this file and search for a line like: " + word +
                                 " ( GP38 BNSF ) and change it" + std::string(kEnd) + "to: " +
                                 word + " ( \"GP38 BNSF\" )";
        const std::string message =
            engineLine
                ? "The engine file with the name " + names_.F + std::string(kEnd) +
                      " in the folder " + names_.D + std::string(kEnd) +
                      " contains a name with a space and no quotes in the line \"Engine\"." +
                      std::string(kEnd) + "The error was found on this line: " + line +
                      std::string(kEnd) + hint
                : "The engine file with the name " + names_.F + " in the folder " +
                      std::string(kEnd) + names_.P +
                      "contains a name with a space and no quotes in the line \"Wagon\"." +
                      std::string(kEnd) + "The error was found on this line: " + line +
                      std::string(kEnd) + hint;
        report(kSyntax, message, ErrorCategory::Syntax, ErrorLevel::Serious);
    }
    V_ = trimmed(replaced(V_, u'"', u' '));
    std::string name = names_.unit.fileName;
    for (std::size_t at = name.find(".eng"); at != std::string::npos; at = name.find(".eng", at))
        name.replace(at, 4, " ");
    if (toUtf8(V_) == trimBlanks(name)) return;
    const std::string line = shownL();
    // The "Engine" finding has no line break after its first sentence.
    const std::string afterWord = engineLine ? "" : std::string(kEnd);
    report("[NAME ERROR]",
           "The engine file " + names_.N + " in the folder " + std::string(kEnd) + names_.D +
               std::string(kEnd) + "does not match with the name found on the line \"" + word +
               "\"." + afterWord +
               "Edit this file and make this line the same as its file name without the .eng "
               "extension." +
               std::string(kEnd) +
               "A difference in capitalization or a wrong linefeed character can also generate "
               "this error." +
               std::string(kEnd) + "The error was found on this line: " + line,
           ErrorCategory::Others, ErrorLevel::Critical);
}

// V from the first "(" to the last ")". A missing one is the check's finding; without a ")"
// the value runs from fallbackOpen to the end of the line. False when a finding was made.
bool EngineTest::valueInParentheses(std::size_t fallbackOpen, void (EngineTest::*error)()) {
    ensureLine();
    std::size_t open = firstOf(line_, u"(");
    std::size_t close = closeBeforeLineFeed(line_, lastOf(line_, u")"));
    const bool found = open > 0 && close > 0;
    if (!found) {
        (this->*error)();
        if (close == 0) {
            open = fallbackOpen;
            close = line_.size();
        }
    }
    if (auto value = cut(line_, open + 1, static_cast<long long>(close) - open - 1))
        V_ = trimmed(*value);
    return found;
}

void EngineTest::stripQuotes() {
    if (V_.size() >= 2 && V_.front() == u'"') V_ = V_.substr(1, V_.size() - 2);
}

void EngineTest::shape() {
    valueInParentheses(10, &EngineTest::e6);
    stripQuotes();
    lookUpShape("[Engine SHAPE FILE]", "The shape file ", names_.D, ErrorCategory::Shapes);
    testShapeDef(run_, context_, names_, V_);
}

// Only the first file of the line counts, up to and with its ".s".
void EngineTest::freightAnimation() {
    ensureLine();
    std::size_t open = firstOf(line_, u"(");
    std::size_t close = lastOf(key_, ".S");
    if (open == 0 || close == 0) {
        report(kSyntax, parenthesisFinding("FreightAnim", "yourshapefile.s"),
               ErrorCategory::Syntax, ErrorLevel::Serious);
        if (close == 0) {
            open = 10;
            close = line_.size();
        }
    }
    if (auto value = cut(line_, open + 1, static_cast<long long>(close) - open + 1))
        V_ = trimmed(*value);
    if (!V_.empty() && V_.front() == u'"') V_.erase(0, 1);
    lookUpShape("[ANIMATION SHAPE FILE]", "The animation shape file ", names_.P,
                ErrorCategory::AnimationShape);
}

// V, a shape in the unit's folder: logged and counted, and a finding when it is missing. The
// shape's finding names the folder, the animation's the unit.
void EngineTest::lookUpShape(std::string_view mark, std::string_view what,
                             const std::string& place, ErrorCategory category) {
    const std::uintmax_t size = sizeInside(context_.services.fs, context_.paths.mstsPath,
                                           names_.unit.folderPath, toUtf8(V_));
    run_.testedShapes.push_back(V());
    ++run_.counts.filesTested;
    if (size != 0) return;
    const std::string line = shownL();
    report(mark,
           std::string(what) + V() + " specified by the file " + names_.F + std::string(kEnd) +
               "is missing from the folder " + std::string(kEnd) + place + std::string(kEnd) +
               "The error was found on this line: " + line,
           category, ErrorLevel::Minor);
}


void EngineTest::mass() {
    valueInParentheses(10, &EngineTest::e15);
    wrongSyntaxWhenUnbalanced("Mass");
}

// A value with a quote at one end and not at the other.
void EngineTest::wrongSyntaxWhenUnbalanced(std::string_view word) {
    const bool first = !V_.empty() && V_.front() == u'"';
    const bool last = !V_.empty() && V_.back() == u'"';
    if (first == last) return;
    const std::string line = shownL();
    report(kSyntax,
           "The \"" + std::string(word) + "\" line specified by the file " + names_.F +
               std::string(kEnd) + "in the folder " + names_.D + " has the wrong syntax!" +
               std::string(kEnd) + "The error was found on this line: " + line,
           ErrorCategory::Syntax, ErrorLevel::Minor);
}

void EngineTest::displayName() {
    valueInParentheses(10, &EngineTest::e17);
    wrongSyntaxWhenUnbalanced("Name");
    if (!contains(key_, "NAME(")) return;
    const std::string line = shownL();
    report(kSyntax,
           "The engine file with the name " + names_.F + std::string(kEnd) + "in the folder " +
               std::string(kEnd) + names_.P + std::string(kEnd) +
               "has a missing space in the line \"Name\"." + std::string(kEnd) +
               "The error was found on this line: " + line + std::string(kEnd) +
               "HINT: Edit this file and search for a line like: Name( \"This loco name\"" +
               std::string(kEnd) +
               "and add the missing parenthesis so it will be like: Name ( \"This loco name\" )",
           ErrorCategory::Syntax, ErrorLevel::Serious);
}

}  // namespace

UnitNames::UnitNames(const UnitRecord& unit)
    : unit(unit),
      F(upperAscii(unit.fileName)),
      D(upperAscii(unit.folderPath) + kPathSeparator),
      P(unit.folderName + kPathSeparator + unit.fileName),
      N(unit.fileName) {}

void testThisEngine(TestRun& run, const TestContext& context, std::size_t index) {
    const auto engines = usedRecords(context.catalogue, UnitClass::Engine);
    if (index >= engines.size()) return;
    EngineTest(run, context, engines[index]).run();
}

}  // namespace rakeyard
