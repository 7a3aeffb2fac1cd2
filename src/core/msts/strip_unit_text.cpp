#include <algorithm>
#include <vector>

#include "core/msts/comment_pass.h"
#include "core/msts/msts_text.h"
#include "core/msts/text_scan.h"
#include "core/platform/progress.h"

namespace rakeyard {

namespace {

constexpr std::u16string_view kCouplingWords[] = {u"CouplingUniqueType",
                                                  u"CouplingHasRigidConnection"};

// True when c is the ASCII letter given in lower case, in either case.
bool isLetter(char16_t c, char16_t lower) {
    return (c | 0x20) == lower;
}

// The words the cleaning passes look for, found in one scan of the decoded text.
struct Words {
    std::vector<std::size_t> comments;  // 0-based starts of "COMMENT" in any letter case
    std::vector<Cut> couplings;         // the special coupling words, wherever they stand
};

// Adds what begins at text[i] when it is one of the words; returns the characters to pass over.
std::size_t takeWordAt(std::u16string_view text, std::size_t i, Words& words) {
    constexpr std::u16string_view kOmment = u"omment";
    const std::u16string_view rest = text.substr(i + 1);
    std::size_t k = 0;
    while (k < kOmment.size() && k < rest.size() && isLetter(rest[k], kOmment[k]))
        ++k;
    if (k == kOmment.size()) {
        words.comments.push_back(i);
        return 1 + kOmment.size();  // the word cannot overlap itself
    }
    if (text[i] != u'C') return 1;
    for (const std::u16string_view word : kCouplingWords) {
        if (text.substr(i).starts_with(word)) words.couplings.push_back({i, i + word.size() - 1});
    }
    return 1;
}

// Every word begins with a "c" or a "C", which most runs of eight characters lack.
Words findWords(std::u16string_view text) {
    using namespace text_scan;
    Words words;
    std::size_t i = 0;
    while (i < text.size()) {
        if (i + 8 <= text.size()) {
            const unsigned found = charsEqual(orChars(loadBlock(&text[i]), 0x20), u'c');
            if (found == 0) {
                i += 8;
                continue;
            }
            i += firstChar(found);
        }
        i += isLetter(text[i], u'c') ? takeWordAt(text, i, words) : 1;
    }
    return words;
}

// Adds the special coupling words to the comment cuts, every "CouplingUniqueType" and then
// every "CouplingHasRigidConnection" of the text as the comments left it. Neither word overlaps
// itself or the other, and a cut leaves a blank that no word spans, so they are the words of the
// decoded text that no comment cut touches.
void addCouplingWordCuts(const std::vector<Cut>& couplings, std::vector<Cut>& cuts) {
    const std::size_t commentCuts = cuts.size();
    const auto byFirst = [](const Cut& a, const Cut& b) { return a.first < b.first; };
    for (const Cut& word : couplings) {
        const auto begin = cuts.begin();
        const auto end = cuts.begin() + commentCuts;
        const auto after = std::upper_bound(begin, end, word, byFirst);
        const bool touched = (after != end && after->first <= word.second) ||
                             (after != begin && std::prev(after)->second >= word.first);
        if (!touched) cuts.push_back(word);
    }
    std::inplace_merge(cuts.begin(), cuts.begin() + commentCuts, cuts.end());
}

// The upper-cased twin of the text, eight characters at a time.
void upperInto(const char16_t* text, std::size_t length, char16_t* upper) {
    std::size_t i = 0;
    for (; i + 8 <= length; i += 8)
        text_scan::storeBlock(upper + i, text_scan::upperAsciiChars(text_scan::loadBlock(text + i)));
    for (; i < length; ++i) {
        const char16_t c = text[i];
        upper[i] = c >= u'a' && c <= u'z' ? char16_t(c - u'a' + u'A') : c;
    }
}

// Cuts the ranges out of the text, each to stand as one blank, and makes the upper-cased twin.
// Returns the new length.
std::size_t applyCuts(const std::vector<Cut>& cuts, char16_t* text, std::size_t length,
                      char16_t* upper) {
    std::size_t out = 0;
    std::size_t from = 0;
    for (const Cut& cut : cuts) {
        std::copy(text + from, text + cut.first, text + out);
        out += cut.first - from;
        text[out++] = u' ';
        from = cut.second + 1;
    }
    std::copy(text + from, text + length, text + out);
    length = out + length - from;
    upperInto(text, length, upper);
    return length;
}

// The character at which the description begins: the last "Description (", else the last
// "Description ", as they stand once decoded (a tab becomes the blank); the number of
// characters when there is neither. Found in the bytes, so that the description is never
// decoded.
std::size_t descriptionStart(std::string_view bytes) {
    constexpr std::u16string_view kWord = u"Description";
    const std::size_t units = bytes.size() / 2;
    const auto at = [&](std::size_t i) {
        return static_cast<char16_t>(static_cast<unsigned char>(bytes[2 * i]) |
                                     (static_cast<unsigned char>(bytes[2 * i + 1]) << 8));
    };
    std::size_t lastWithBlank = units;
    for (std::size_t i = units; i > 0;) {
        // Eight characters at once while their bytes hold no "D".
        if (i >= 8 && text_scan::bytesEqual(text_scan::loadBlock(&bytes[2 * (i - 8)]), 'D') == 0) {
            i -= 8;
            continue;
        }
        --i;
        if (bytes[2 * i] != 'D' || bytes[2 * i + 1] != 0 || i + kWord.size() >= units) continue;
        std::size_t k = 1;
        while (k < kWord.size() && at(i + k) == kWord[k])
            ++k;
        if (k < kWord.size()) continue;
        const char16_t next = at(i + kWord.size());
        if (next != u' ' && next != u'\t') continue;
        if (i + kWord.size() + 1 < units && at(i + kWord.size() + 1) == u'(') return i;
        if (lastWithBlank == units) lastWithBlank = i;
    }
    return lastWithBlank;
}

void showPass(Progress* debug, const StripTitles* titles, std::string_view StripTitles::*title) {
    if (debug && titles) debug->debugText(3, titles->*title);
}

}  // namespace

void stripUnitText(std::string_view bytes, bool cutDescription, UnitText& text,
                   const StripTitles* titles, Progress* debug) {
    if (cutDescription) {
        showPass(debug, titles, &StripTitles::description);
        bytes = bytes.substr(0, 2 * descriptionStart(bytes));
    }
    // The buffers only grow, so that the next file finds them large enough.
    const std::size_t limit = decodedLengthLimit(bytes);
    if (text.text_.size() < limit) text.text_.resize(limit);
    if (text.upper_.size() < limit) text.upper_.resize(limit);
    text.length_ = decodeMstsText(bytes, text.text_.data());
    showPass(debug, titles, &StripTitles::comments);
    Words words = findWords(text.text());
    std::vector<Cut> cuts = commentCuts(text.text(), std::move(words.comments));
    showPass(debug, titles, &StripTitles::couplings);
    addCouplingWordCuts(words.couplings, cuts);
    text.length_ = applyCuts(cuts, text.text_.data(), text.length_, text.upper_.data());
}

}  // namespace rakeyard
