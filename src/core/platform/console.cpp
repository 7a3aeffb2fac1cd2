#include "core/platform/console.h"

#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

namespace rakeyard {

bool isTerminal(std::FILE* stream) {
#ifdef _WIN32
    return _isatty(_fileno(stream)) != 0;
#else
    return ::isatty(fileno(stream)) == 1;
#endif
}

}  // namespace rakeyard
