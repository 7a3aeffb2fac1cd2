#pragma once
// The text work of the unit readers put as plainly as it can be, to hold the quick version
// against: whole copies, searches from the start, one pass after the other.
#include <string>
#include <string_view>

#include "core/msts/msts_text.h"

namespace rakeyard::test {

// Each "Comment" (any case) up to the next ")" (else the next LF) is taken, and the piece is
// replaced everywhere by a blank; then the search goes on one character behind it.
std::u16string plainCommentPass(std::u16string text);

// The working text of a unit file's bytes: decoded, the description cut off when asked, the
// comments and the special coupling words replaced.
std::u16string plainUnitText(std::string_view bytes, bool cutDescription);

// A UnitText made by the plain version, so that whole readers can be run on it.
class PlainUnitText : public UnitText {
public:
    void strip(std::string_view bytes, bool cutDescription, const StripTitles* titles,
               Progress* debug) override;
};

}  // namespace rakeyard::test
