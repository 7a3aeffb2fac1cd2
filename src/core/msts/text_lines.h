#pragma once
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace rakeyard {

// The lines of an MSTS file read line by line, as the consist reader and the tester read them.
// A file that starts with FF FE is UTF-16 LE text; any other file is 8-bit text with its zero
// bytes dropped. A line ends at the character CR, and an LF right behind it is swallowed; a
// lone LF stays in its line. The mark FF FE is not part of line 1.
struct TextLines {
    std::vector<std::u16string> lines;
    bool hasMark = false;
    // The length of line 1 as the Unicode test counts it: the mark counts as two characters.
    std::size_t firstLineLength() const;
};
[[nodiscard]] TextLines textLines(std::string_view bytes);

// The text the lines are read from: UTF-16 LE after the mark FF FE, else the 8-bit bytes with
// their zero bytes dropped. True when the bytes began with the mark.
bool decodeLineText(std::string_view bytes, std::u16string& text);

// The place of the next CR in text at or after from; text.size() when there is none. Searched
// byte by byte at memchr's speed: lines are looked for in thousands of files.
[[nodiscard]] std::size_t nextLineEnd(std::u16string_view text, std::size_t from);
// The same in UTF-16 LE bytes (units characters of two bytes each), not decoded.
[[nodiscard]] std::size_t nextLineEnd(const char* utf16, std::size_t units, std::size_t from);

// The same lines one at a time, for long files: the text is decoded into text (whose storage
// may be kept from file to file) and each line handed to line as a view into it, until line
// returns false. Returns whether the bytes began with the mark.
bool forEachTextLine(std::string_view bytes, std::u16string& text,
                     const std::function<bool(std::u16string_view)>& line);

}  // namespace rakeyard
