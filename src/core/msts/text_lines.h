#pragma once
#include <cstddef>
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

}  // namespace rakeyard
