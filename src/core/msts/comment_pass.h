#pragma once
// The comment pass of stripUnitText. Internal to the unit text work.
#include <cstddef>
#include <string_view>
#include <utility>
#include <vector>

namespace rakeyard {

// A range of the working text that stands as one blank once cut: first, last; 0-based,
// inclusive.
using Cut = std::pair<std::size_t, std::size_t>;

// The ranges the comment pass cuts, in order: from each "Comment" word (any case; words holds
// their 0-based starts, in order) up to the next ")" of the text as cut so far, else its next
// LF, every occurrence of that piece. As replacing each piece everywhere, one after the other,
// would cut them.
[[nodiscard]] std::vector<Cut> commentCuts(std::u16string_view text,
                                           std::vector<std::size_t> words);

}  // namespace rakeyard
