#pragma once
#include <cstddef>
#include <string>
#include <string_view>

#include "core/platform/file_system.h"

namespace rakeyard {

class Progress;

// The working text of an MSTS file: UTF-16, its mark U+FEFF kept as the first character.
// Positions handed in and out are 1-based; 0 means not found.
using MstsText = std::u16string;

// True when the first line of the file is exactly 32 characters: the two bytes of the mark
// FF FE and the 30-character header. A file that starts with FF FE is taken as UTF-16 and its
// first line ends at the character CR; any other file is read as 8-bit text up to the first
// byte 13. Zero bytes are not counted either way, so the mark counts as two. An unreadable
// file fails.
[[nodiscard]] bool isUnicodeFile(FileSystem& fs, const std::string& path);
[[nodiscard]] bool isUnicodeText(std::string_view bytes);

// The bytes as little-endian UTF-16 (an odd last byte is dropped), every tab turned into a
// blank, every CR into CR LF and then every LF into CR LF: a line end CR LF of the file becomes
// CR CR LF CR LF. Readers rely only on the LF of it.
[[nodiscard]] MstsText decodeMstsText(std::string_view bytes);
// The most characters decoding can make of the bytes: three for each, were all of them CR.
[[nodiscard]] inline std::size_t decodedLengthLimit(std::string_view bytes) {
    return 3 * (bytes.size() / 2);
}
// The same into out, which holds at least decodedLengthLimit(bytes) characters; returns how
// many it wrote.
std::size_t decodeMstsText(std::string_view bytes, char16_t* out);

// The bytes of an MSTS file holding text: FF FE, then the text as UTF-16 LE.
[[nodiscard]] std::string encodeMstsText(std::u16string_view text);
// The whole file decoded as above; empty when it can't be read.
[[nodiscard]] MstsText readMstsText(FileSystem& fs, const std::string& path);

// The debug window's names of the cleaning passes.
struct StripTitles {
    std::string_view description;
    std::string_view comments;
    std::string_view couplings;
};

class UnitText;

// The bytes of a unit file decoded as decodeMstsText does, then the cleaning passes, in order:
//  - when cutDescription: everything from the last "Description (" (else the last
//    "Description ") on is dropped;
//  - each "Comment" (any case) up to the next ")" (else the next LF) is taken, and every
//    occurrence of that exact piece anywhere in the text becomes one blank;
//  - every "CouplingUniqueType", then every "CouplingHasRigidConnection" becomes one blank.
// The result, with its upper-cased twin, replaces what text held. When debug is given, each
// pass's title goes to its third debug label before the pass runs.
void stripUnitText(std::string_view bytes, bool cutDescription, UnitText& text,
                   const StripTitles* titles = nullptr, Progress* debug = nullptr);

// The cleaned working text of a unit file and its upper-cased twin, in which the keyword
// searches look. The buffers are kept from file to file: a catalogue worker holds one
// UnitText, so that the texts of thousands of files are not each made in new memory.
class UnitText {
public:
    virtual ~UnitText() = default;
    std::u16string_view text() const { return {text_.data(), length_}; }
    std::u16string_view upper() const { return {upper_.data(), length_}; }
    // What the unit readers call: stripUnitText. A test puts a plain version in its place to
    // compare whole catalogues with it.
    virtual void strip(std::string_view bytes, bool cutDescription, const StripTitles* titles,
                       Progress* debug) {
        stripUnitText(bytes, cutDescription, *this, titles, debug);
    }

protected:
    // Storage at least length_ long, kept from file to file.
    MstsText text_;
    MstsText upper_;
    std::size_t length_ = 0;

private:
    friend void stripUnitText(std::string_view, bool, UnitText&, const StripTitles*, Progress*);
};

// ASCII upper case of a working text; positions stay those of the text.
[[nodiscard]] MstsText upperText(std::u16string_view text);

enum class KeywordOutcome { Found, NotFound, LimitReached };
struct KeywordMatch {
    KeywordOutcome outcome = KeywordOutcome::NotFound;
    std::size_t keywordPos = 0;  // 1-based
    std::size_t parenPos = 0;    // 1-based position of its "("
    explicit operator bool() const { return outcome == KeywordOutcome::Found; }
};

// Finds an upper-case keyword in the upper-cased text, from startPos on, where it begins a line
// (only blanks and tabs before it on its line) and is followed, after blanks and tabs only, by
// "(". A match that begins mid-line is passed over for the next one from one position on; a
// match that runs into other characters before its "(" for the next one behind that "(". Each
// passed-over match counts: when a 52nd match is met the outcome is LimitReached. NotFound
// when no (further) match exists, or when no "(" follows anywhere. retryKeyword, when given,
// is what is searched for after a match that did not begin a line.
[[nodiscard]] KeywordMatch findKeywordLine(std::u16string_view upperText,
                                           std::u16string_view keyword, std::size_t startPos,
                                           std::u16string_view retryKeyword = {});

// The first position of needle in text at or after the 1-based from; 0 when there is none.
[[nodiscard]] std::size_t findFrom(std::u16string_view text, std::u16string_view needle,
                                   std::size_t from = 1);
// The last position of needle in text whose match ends at or before the 1-based upTo.
[[nodiscard]] std::size_t findLastUpTo(std::u16string_view text, std::u16string_view needle,
                                       std::size_t upTo);

// The text between the "(" at parenPos and the next ")", trimmed of blanks. closePos gets the
// position of that ")"; when there is none the value is empty and closePos 0.
[[nodiscard]] std::u16string parenValue(std::u16string_view text, std::size_t parenPos,
                                        std::size_t* closePos = nullptr);
// The text from the "(" at parenPos to the next LF (or the end of the text), CR and LF turned
// into blanks, trimmed.
[[nodiscard]] std::u16string lineValue(std::u16string_view text, std::size_t parenPos);

// The number at the start of s (blanks skipped, optional sign, digits, point, exponent); 0 if
// there is none.
double numberValue(std::u16string_view s);
double numberValue(std::string_view s);
// Sign(x) * Int(Abs(x) * 100 + 0.05) / 100, as a 32-bit float.
float round2(double x);
// A 32-bit float as the labels show it: at most 7 significant digits, no trailing zeros
// ("12.34", "0", "1E+07"). The value is taken as a single first.
std::string singleText(double value);
// The value as a 32-bit float, held to the float range (NaN becomes 0).
float toSingle(double value);

}  // namespace rakeyard
