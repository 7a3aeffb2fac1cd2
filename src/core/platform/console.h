#pragma once
#include <cstdio>

namespace rakeyard {

// True when the stream goes to a terminal (not a file or a pipe): progress is drawn only there.
[[nodiscard]] bool isTerminal(std::FILE* stream);

}  // namespace rakeyard
