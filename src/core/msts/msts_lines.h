#pragma once
#include <string>
#include <string_view>
#include <vector>

namespace rakeyard {

// The lines of an MSTS text file, as the programs that rewrite such a file line by line take
// them (the aliasing and the unit editors). A file that starts with FF FE is UTF-16 LE and every
// character is kept whole; any other file is 8-bit Windows-1252 text whose zero bytes are
// dropped, so that UTF-16 without its mark still reads as its letters. A line ends at the
// character CR, and an LF right behind it belongs to that line end; a lone LF stays inside its
// line. The mark is no part of the first line, and no empty line follows a final line end.
[[nodiscard]] std::vector<std::u16string> readTextLines(std::string_view bytes);

// The bytes of a rewritten file: FF FE, then each line and CR LF, as UTF-16 LE.
[[nodiscard]] std::string writeTextLines(const std::vector<std::u16string>& lines);

// A line split for searching by the comment rule. A line with "COMMENT" (any case) within its
// first 11 characters is a comment line: neither searched nor changed. A line with "COMMENT"
// further on keeps from the character before that word on as its tail, which is put back behind
// the working part, whatever becomes of it.
struct LineParts {
    std::u16string_view working;
    std::u16string_view tail;
    bool isComment = false;
};
[[nodiscard]] LineParts splitCommentTail(std::u16string_view line);

// True when the line's first word (behind blanks and tabs) is word, in any letter case, ended by
// a blank, a tab, "(" or the line's end. word is given in upper case.
[[nodiscard]] bool firstWordIs(std::u16string_view line, std::u16string_view word);

}  // namespace rakeyard
