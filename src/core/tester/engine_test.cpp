// The engine test: the unit scan read up to the description, with the checks and findings of
// an engine.
#include <string>

#include "core/msts/text_lines.h"
#include "core/msts/unit_file.h"
#include "core/platform/paths.h"
#include "core/platform/text_utf.h"
#include "core/tester/unit_scan.h"

namespace rakeyard {

namespace {

class EngineTest : public UnitScan {
public:
    using UnitScan::UnitScan;

    void run();

private:
    Reading lineChecks() override;
    void headName(bool engineLine);
    void soundDefinition();
    void cabView();
    void displayName();
    // The head of the engine's findings of a missing parenthesis.
    std::string syntaxHead() const {
        return "The engine file with the name " + names_.F + std::string(kEnd) + "in the folder " +
               std::string(kEnd) + names_.P + std::string(kEnd);
    }
    void syntaxFinding(std::string_view word, std::string_view example) {
        report(kSyntax, parenthesisFinding(syntaxHead(), word, example), ErrorCategory::Syntax,
               ErrorLevel::Serious);
    }
};

void EngineTest::run() {
    if (scan()) return;
    report("[ENGINE FILE MISSING]",
           "The engine file with the name " + names_.F + " is missing from the folder " +
               std::string(kEnd) + names_.P,
           ErrorCategory::Missing, ErrorLevel::Minor);
}

// Each check looks at L as it stands then: a finding before it may have turned its TABs. The
// head names are checked on a description's line too; nothing after that line is.
EngineTest::Reading EngineTest::lineChecks() {
    static constexpr Word kWagon("WAGON"), kWagonShape("WAGONSHAPE"), kEngine("ENGINE ("),
        kBrakeEngine("BRAKE_ENGINE"), kMonitoring("MONITORINGDEVICEAPPLIESSHUTSDOWNENGINE"),
        kDescription("DESCRIPTION"), kFreightAnim("FREIGHTANIM"), kSound("SOUND "),
        kCabView("CABVIEW"), kMass("MASS ("), kName("NAME");
    if (has(kWagon) && !has(kWagonShape)) headName(false);
    if (has(kEngine) && !has(kBrakeEngine) && !has(kMonitoring)) headName(true);
    if (has(kDescription)) return Reading::Stop;
    if (has(kWagonShape)) {
        valueInParentheses(10, [this] { syntaxFinding("WagonShape", "GP38.s"); });
        shape("[Engine SHAPE FILE]", std::string(kEnd) + names_.D);
    }
    if (has(kFreightAnim)) freightAnimation(syntaxHead());
    if (run_.sounds && has(kSound)) soundDefinition();
    if (run_.cabViews && run_.cabViewsEnabled && has(kCabView)) cabView();
    if (has(kMass)) {
        valueInParentheses(10, [this] { syntaxFinding("Mass", "\"75.5t\""); });
        wrongSyntaxWhenUnbalanced("Mass", "in the folder ");
    }
    if (has(kName)) displayName();
    return Reading::GoOn;
}

// The name on the "Wagon" or "Engine" line: quoted when it holds a blank, and the file's name.
void EngineTest::headName(bool engineLine) {
    const std::u16string_view text = line();
    const std::size_t open = firstOf(text, u"(");
    const std::size_t close = closeBeforeLineFeed(text, firstOf(text, u")"));
    if (close > 0) {
        if (auto value = cut(text, open + 1, static_cast<long long>(close) - open - 1))
            V_ = trimmed(*value);
    } else {
        V_ = cutFrom(text, open + 1);
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

// The sound definition, in the engine's SOUND folder or the main one. Missing: the engine's
// SOUND folder when the last lookup found no folder on its way, else the file.
void EngineTest::soundDefinition() {
    const Lookup found = UnitScan::soundDefinition([this] {
        const std::string line = shownL();
        report(kSyntax,
               "The engine file " + names_.F + " in the folder " + names_.P + std::string(kEnd) +
                   "has missing quotes in the line \"Sound\"." + std::string(kEnd) +
                   "The error was found on this line: " + line,
               ErrorCategory::Sounds, ErrorLevel::Serious);
    });
    if (found.size == 0 && found.failure == LookupFailure::PathNotFound) {
        const std::string line = shownL();
        report("[SOUND DEFINITION FILE]",
               "The engine " + names_.F + " is missing its SOUND folder where the file " + V() +
                   std::string(kEnd) + "should exist. The complete path is the following:" +
                   std::string(kEnd) + names_.D + std::string(kEnd) +
                   "The error was found on this line: " + line,
               ErrorCategory::Sounds, ErrorLevel::Minor);
    } else if (found.size != 0) {
        testSms(run_, context_, names_, V_);
    } else {
        const std::string line = shownL();
        report("[SOUND DEFINITION FILE]",
               "The sound definition file " + V() + " specified by the file " + names_.F +
                   std::string(kEnd) + " is missing from the folder " + names_.D + "SOUND" +
                   std::string(kEnd) + "or from the main sound folder (" +
                   context_.paths.soundPath + ")" + std::string(kEnd) +
                   "The error was found on this line: " + line,
               ErrorCategory::Sounds, ErrorLevel::Minor);
    }
    logSound();
}

// The cab view in the engine's CABVIEW folder, logged with the shapes, and tested when there.
void EngineTest::cabView() {
    valueInParentheses(7, [this] {
        report(kSyntax,
               parenthesisFinding("The engine file " + names_.F + " in the folder " + names_.P +
                                      std::string(kEnd) + " ",
                                  "CabView", "yourcabview.s", "WagonShape"),
               ErrorCategory::Cabview, ErrorLevel::Serious);
    });
    stripQuotes();
    const std::uintmax_t size = sizeInside(context_.services.fs, context_.paths.mstsPath,
                                           names_.unit.folderPath, "CABVIEW\\" + V());
    run_.testedShapes.push_back(V());
    ++run_.counts.filesTested;
    if (size != 0) {
        testCab(run_, context_, names_, V_);
        return;
    }
    const std::string line = shownL();
    report("[CAB DEFINITION FILE]",
           "The cab definition file " + V() + " specified by the file " + names_.F +
               std::string(kEnd) + " is missing from the folder " + names_.D + "CABVIEW" +
               std::string(kEnd) + "The error was found on this line: " + std::string(kEnd) +
               line,
           ErrorCategory::Cabview, ErrorLevel::Minor);
}

void EngineTest::displayName() {
    valueInParentheses(10, [this] { syntaxFinding("Name", "\"This loco name\""); });
    wrongSyntaxWhenUnbalanced("Name", "in the folder ");
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
