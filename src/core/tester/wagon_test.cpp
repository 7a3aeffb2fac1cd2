// The wagon test: the unit scan read to the end of the file, where the engine's stops at its
// description. A wagon has no cab view, no "Engine" line and no display name to check, and its
// head name is compared in any case.
#include <string>

#include "core/msts/unit_file.h"
#include "core/platform/text_utf.h"
#include "core/tester/unit_scan.h"

namespace rakeyard {

namespace {

class WagonTest : public UnitScan {
public:
    using UnitScan::UnitScan;

    void run();

private:
    Reading lineChecks() override;
    bool passedOver() override {
        static constexpr Word kName("NAME ");
        return has(kName);
    }
    void headName();
    void soundDefinition();
    std::string inFolderP() const {
        return "The wagon file with the name " + names_.F + " in the folder " + names_.P;
    }
    void syntaxFinding(const std::string& head, std::string_view word, std::string_view example) {
        report(kSyntax, parenthesisFinding(head, word, example), ErrorCategory::Syntax,
               ErrorLevel::Serious);
    }
};

void WagonTest::run() {
    if (scan()) return;
    report("[WAGON FILE MISSING]",
           "The wagon file with the name " + names_.F + " is missing from the folder " +
               names_.P + std::string(kEnd),
           ErrorCategory::Missing, ErrorLevel::Minor);
}

WagonTest::Reading WagonTest::lineChecks() {
    static constexpr Word kWagon("WAGON "), kWagonShape("WAGONSHAPE "),
        kFreightAnim("FREIGHTANIM"), kSound("SOUND "), kMass("MASS");
    if (has(kWagon) && !has(kWagonShape)) headName();
    if (has(kWagonShape)) {
        valueInParentheses(10, [this] {
            syntaxFinding(inFolderP() + std::string(kEnd) + " ", "WagonShape", "yourwagon.s");
        });
        shape("[Wagon SHAPE FILE]", names_.P);
    }
    if (has(kFreightAnim)) freightAnimation(inFolderP() + std::string(kEnd));
    if (run_.sounds && has(kSound)) soundDefinition();
    if (has(kMass)) {
        valueInParentheses(10, [this] {
            syntaxFinding("The wagon file with the name " + names_.F + std::string(kEnd) +
                              " in the folder " + std::string(kEnd) + names_.D +
                              std::string(kEnd) + " ",
                          "Mass", "\"75.5t\"");
        });
        wrongSyntaxWhenUnbalanced("Mass", " in the folder ");
    }
    return Reading::GoOn;
}

// Everything after the first "(" is the name, a ")" too: "Wagon ( freight1 )" holds a blank.
void WagonTest::headName() {
    const std::u16string_view text = line();
    V_ = cutFrom(text, firstOf(text, u"(") + 1);
    if (const std::size_t tab = firstOf(V_, u"\t")) V_[tab - 1] = u' ';
    V_ = trimmed(replaced(V_, u'\t', u' '));
    if (contains(V_, u" ") && (V_.empty() || V_.front() != u'"')) {
        const std::string line = shownL();
        report(kSyntax,
               inFolderP() + std::string(kEnd) +
                   "contains a name with a space and no quotes in the line \"Wagon\"." +
                   std::string(kEnd) + "The error was found on this line: " + line,
               ErrorCategory::Syntax, ErrorLevel::Serious);
    }
    V_ = trimmed(replaced(V_, u'"', u' '));
    if (upperAscii(toUtf8(V_)) + ".WAG" == names_.F) return;
    const std::string line = shownL();
    report("[NAME ERROR]",
           "The wagon file " + names_.F + " in the folder " + names_.P + std::string(kEnd) +
               "does not match with the name found on the line \"Wagon\"." + std::string(kEnd) +
               "Edit this file and make this line to be the same as its file name without the "
               ".wag extension." +
               std::string(kEnd) +
               "A difference in capitalization or a wrong linefeed character can also generate "
               "this error." +
               std::string(kEnd) + "The error was found on this line: " + line,
           ErrorCategory::Others, ErrorLevel::Critical);
}

// A wagon's missing sound definition is one finding, Serious, wherever the lookup failed.
void WagonTest::soundDefinition() {
    const Lookup found = UnitScan::soundDefinition([this] {
        const std::string line = shownL();
        report(kSyntax,
               "The wagon file " + names_.F + " located in the folder " + names_.P +
                   std::string(kEnd) + " has missing quotes in the line \"Sound\"." +
                   std::string(kEnd) + "The error was found on this line: " + line,
               ErrorCategory::Sounds, ErrorLevel::Serious);
    });
    if (found.size != 0) {
        testSms(run_, context_, names_, V_);
    } else {
        const std::string line = shownL();
        report("[SOUND DEFINITION FILE]",
               "The sound definition file " + V() + " specified by the file " + names_.F +
                   std::string(kEnd) + " is missing from the folder " + names_.P + "SOUND" +
                   std::string(kEnd) + "or from the main sound folder (" +
                   context_.paths.soundPath + ")" + std::string(kEnd) +
                   "The error was found on this line: " + line,
               ErrorCategory::Sounds, ErrorLevel::Serious);
    }
    logSound();
}

}  // namespace

void testThisWagon(TestRun& run, const TestContext& context, std::size_t index) {
    const auto wagons = usedRecords(context.catalogue, UnitClass::Wagon);
    if (index >= wagons.size()) return;
    WagonTest(run, context, wagons[index]).run();
}

}  // namespace rakeyard
