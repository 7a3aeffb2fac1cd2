#pragma once
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace rakeyard {

// The lines of the rewriters below are those of readTextLines; each is split by the comment
// rule, only its working part is searched and changed, and its tail is put back.

// The file names an engine gives its cab view and its sounds, read as the alias from an engine
// reads its sources. Only lines whose first word is "CabView" or "Sound" count, and the "Inside"
// line with the six lines behind it (the passenger view, with a "Sound" of its own) is passed
// over.
struct EngineReferences {
    std::optional<std::u16string> cabView;  // between the "(" and ")" of the first CabView line,
                                            // trimmed, without surrounding quotes
    std::vector<std::u16string> sounds;     // between the first two quotes of each Sound line
    bool cabLineFaulty = false;             // the first CabView line lacks "(" or ")"
    bool soundLineFaulty = false;           // a Sound line before the second name lacks quotes
};
[[nodiscard]] EngineReferences readEngineReferences(const std::vector<std::u16string>& lines);

// How an engine's CabView and Sound lines are replaced. Each replacement is a whole working
// line; unset leaves those lines alone.
struct EngineLineRule {
    bool indentedOnly = false;  // the word counts only behind a tab or four blanks
    bool soundNeedsQuotes = false;
    std::optional<std::u16string> firstCabLine;
    std::optional<std::u16string> laterCabLine;
    std::optional<std::u16string> firstSoundLine;
    std::optional<std::u16string> laterSoundLine;
};
struct EngineRewrite {
    std::vector<std::u16string> lines;
    std::size_t changedLines = 0;           // CabView and Sound lines replaced
    std::optional<std::size_t> faultyLine;  // 0-based: a line lacking "(", ")" or its quotes
};
[[nodiscard]] EngineRewrite rewriteEngineLines(const std::vector<std::u16string>& lines,
                                               const EngineLineRule& rule);

// A cab view file's lines with prefix put in front of the name on each line that holds ".ace"
// (any case): behind the first "(" and a blank, inside the quote when the name is quoted.
// nullopt when such a line has no "(".
[[nodiscard]] std::optional<std::vector<std::u16string>> prefixAceNames(
    const std::vector<std::u16string>& lines, std::u16string_view prefix);

// A sound file's lines with prefix put at the start of every quoted name that holds ".wav" (any
// case). nullopt when a ".wav" of a line stands outside quotes.
[[nodiscard]] std::optional<std::vector<std::u16string>> prefixWavNames(
    const std::vector<std::u16string>& lines, std::u16string_view prefix);

}  // namespace rakeyard
