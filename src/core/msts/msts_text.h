#pragma once
#include <cstddef>
#include <string>
#include <string_view>

#include "core/platform/file_system.h"

namespace rakeyard {

// The working text of an MSTS file: UTF-16, its mark U+FEFF kept as the first character.
// Positions are 1-based; 0 means not found.
using MstsText = std::u16string;

// True when the file's first line, read as 8-bit text up to the first CR with zero bytes
// dropped, is exactly 32 characters: the mark's two bytes and the 30-character header.
bool isUnicodeFile(FileSystem& fs, const std::string& path);

// The whole file as little-endian UTF-16, tabs turned into blanks, every CR into CR LF and then
// every LF into CR LF. Empty when the file can't be read.
MstsText readMstsText(FileSystem& fs, const std::string& path);

// The cleaning passes of unit files, in order: the description cut (when cutDescription), the
// comments, the special coupling words. passTitle, when set, is told each pass's name.
struct StripTitles {
    std::string_view description;
    std::string_view comments;
    std::string_view couplings;
};
class Progress;
void stripUnitText(MstsText& text, bool cutDescription, const StripTitles* titles = nullptr,
                   Progress* debug = nullptr);

enum class KeywordOutcome { Found, NotFound, LimitReached };
struct KeywordMatch {
    KeywordOutcome outcome = KeywordOutcome::NotFound;
    std::size_t keywordPos = 0;  // 1-based
    std::size_t parenPos = 0;    // 1-based position of its "("
};

// Finds keyword where it begins a line and is followed, after blanks only, by "(". Compared in
// upper case; at most 51 occurrences are looked at before LimitReached. upperText is the
// upper-cased working text (callers keep it to avoid upper-casing per search).
KeywordMatch findKeywordLine(std::u16string_view upperText, std::u16string_view keyword,
                             char16_t lastLetter, std::size_t startPos);

// The trimmed text between the "(" at parenPos and the next ")"; closePos gets that ")"'s
// position (0 when there is none).
std::u16string parenValue(std::u16string_view text, std::size_t parenPos,
                          std::size_t* closePos = nullptr);
// The trimmed text from the "(" at parenPos to the line end, CR and LF turned into blanks.
std::u16string lineValue(std::u16string_view text, std::size_t parenPos);
// The number at the start of s (blanks skipped, optional sign, digits, point, exponent); 0 if
// there is none.
double numberValue(std::u16string_view s);
double numberValue(std::string_view s);
// Sign(x) * Int(Abs(x) * 100 + 0.05) / 100, as a 32-bit float.
float round2(double x);

}  // namespace rakeyard
