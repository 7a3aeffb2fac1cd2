#pragma once
// What the engine and wagon tests share: the line reading with its comment and mark cuts, the
// value taken out of a line, the shape, freight animation and sound definition lookups, and the
// way a finding shows its line.
#include <cstdint>
#include <string>
#include <string_view>

#include "core/platform/text_utf.h"
#include "core/msts/file_lookup.h"
#include "core/tester/line_text.h"
#include "core/tester/reports.h"
#include "core/tester/unit_tests.h"

namespace rakeyard {

inline constexpr std::string_view kEnd = "\r\n";
inline constexpr std::string_view kSyntax = "[SYNTAX ERROR]";
inline constexpr std::string_view kEnterHint =
    "An incorrect ENTER character can also cause this error, in this case you\r\n"
    "won't be able to really see it.";

// A word sought in a line, with its letters: a line that lacks one of them is not searched.
struct Word {
    std::string_view text;
    std::uint32_t letters;
    constexpr Word(std::string_view word) : text(word), letters(lettersOf(word)) {}
};

// One unit's test: a line scanner, not a parser. A line counts by a word anywhere in it,
// upper-cased, and the findings' texts are those users search the reports for, byte for byte.
class UnitScan {
public:
    UnitScan(TestRun& run, const TestContext& context, const UnitRecord& unit)
        : run_(run), context_(context), names_(unit) {}
    virtual ~UnitScan() = default;

    // Reads the unit's file line by line; false when it can't be opened.
    bool scan();

protected:
    enum class Reading { GoOn, Stop };
    // The checks on a line that the reading rules let through.
    virtual Reading lineChecks() = 0;
    // A further reading rule: true passes the line over.
    virtual bool passedOver() { return false; }

    bool has(const Word& word) const {
        return (letters_ & word.letters) == word.letters && contains(key_, word.text);
    }
    void ensureLine();
    // L as the findings show it; from the first finding on the line, L keeps that form.
    std::string shownL();
    std::string V() const { return toUtf8(V_); }
    void report(std::string_view mark, const std::string& message, ErrorCategory category,
                ErrorLevel level) {
        reportError(run_, context_, mark, message, category, level);
    }
    // A missing parenthesis: head names the file, word the line, example its value.
    std::string parenthesisFinding(const std::string& head, std::string_view word,
                                   std::string_view example, std::string_view fixedWord = {});

    // V from the first "(" to the last ")". A missing one is the check's finding (error); without
    // a ")" the value runs from fallbackOpen to the end of the line.
    template <class Error>
    void valueInParentheses(std::size_t fallbackOpen, Error&& error) {
        ensureLine();
        std::size_t open = firstOf(line_, u"(");
        std::size_t close = closeBeforeLineFeed(line_, lastOf(line_, u")"));
        if (open == 0 || close == 0) {
            error();
            if (close == 0) {
                open = fallbackOpen;
                close = line_.size();
            }
        }
        takeValue(open, close);
    }
    void takeValue(std::size_t open, std::size_t close);
    void stripQuotes();
    // The shape of the unit (D + V), then its definition; afterFolder follows "is missing from
    // the folder " in the finding.
    void shape(std::string_view mark, const std::string& afterFolder);
    // Only the first file of the line counts, up to and with its ".s".
    void freightAnimation(const std::string& syntaxHead);
    // The sound definition of the line in V, looked up in the unit's SOUND folder and then in
    // the main sound folder; the last lookup made. error is the finding of missing quotes.
    template <class Error>
    Lookup soundDefinition(Error&& error) {
        ensureLine();
        std::size_t open = firstOf(line_, u"\"");
        std::size_t close = open ? firstOf(line_.substr(open), u"\"") : 0;
        if (close) close += open;
        if (open == 0 || close == 0) {
            error();
            open = firstOf(line_, u"(");
            close = lastOf(line_, u")");
        }
        takeValue(open, close);
        stripQuotes();
        return lookUpSoundDefinition();
    }
    Lookup lookUpSoundDefinition();
    void logSound() {
        run_.testedSounds.push_back(V());
        ++run_.counts.filesTested;
    }
    // A value with a quote at one end and not at the other: the finding of wrong syntax.
    void wrongSyntaxWhenUnbalanced(std::string_view word, std::string_view inFolder);

    TestRun& run_;
    const TestContext& context_;
    UnitNames names_;
    Line V_;
    std::string_view key_;  // L's search key

private:
    bool checkLine(const char* utf16, std::size_t units, std::string_view key);
    void lookUpShape(std::string_view mark, std::string_view what, const std::string& afterFolder,
                     ErrorCategory category);

    // L is line_, a view into the file's text, until a finding turns its TABs; then it is L_.
    std::u16string_view line_;
    Line L_;
    std::string lineKey_;        // the search key of the line read
    const char* raw_ = nullptr;  // the line read, in UTF-16 LE bytes
    std::size_t rawUnits_ = 0;
    bool lineReady_ = false;     // line_ holds it decoded
    std::uint32_t letters_ = 0;  // the letters of the line: L's, or more when L was cut
    std::string ownKey_;         // that of L_

protected:
    std::u16string_view line() {
        ensureLine();
        return line_;
    }
};

}  // namespace rakeyard
