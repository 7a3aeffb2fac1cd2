#include "core/msts/unit_search.h"

#include <algorithm>

#include "core/platform/text_utf.h"

namespace rakeyard {

namespace {

char upperOf(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

// Whether upperWord stands in text, comparing text upper-cased. Allocates nothing: the search
// runs over every unit on each key typed.
bool containsUpper(std::string_view text, std::string_view upperWord) {
    if (upperWord.size() > text.size()) return false;
    const auto found = std::search(text.begin(), text.end(), upperWord.begin(), upperWord.end(),
                                   [](char a, char b) { return upperOf(a) == b; });
    return found != text.end();
}

}  // namespace

UnitSearch::UnitSearch(std::string_view text) {
    std::size_t at = 0;
    while (at < text.size()) {
        const std::size_t start = text.find_first_not_of(" \t", at);
        if (start == std::string_view::npos) break;
        std::size_t end = text.find_first_of(" \t", start);
        if (end == std::string_view::npos) end = text.size();
        words_.push_back(upperAscii(text.substr(start, end - start)));
        at = end;
    }
}

bool UnitSearch::matches(const UnitRecord& unit) const {
    return matches(unit.displayName, unit.fileName, unit.folderName);
}

bool UnitSearch::matches(std::string_view displayName, std::string_view fileName,
                         std::string_view folderName) const {
    return std::all_of(words_.begin(), words_.end(), [&](const std::string& word) {
        return containsUpper(displayName, word) || containsUpper(fileName, word) ||
               containsUpper(folderName, word);
    });
}

}  // namespace rakeyard
