#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>

#include "core/app/app_state.h"
#include "core/platform/system.h"

namespace rakeyard {
namespace {

// Blocks of any size come zeroed and whole to their last byte, and two held at once do not
// meet; the program's state is made in one and starts empty.
TEST(LargeBlock, ComesZeroedWholeAndApart) {
    const std::size_t sizes[] = {1, 4096, (std::size_t{5} << 20) + 123};
    for (const std::size_t size : sizes) {
        auto* first = static_cast<unsigned char*>(sys::allocateLargeBlock(size));
        auto* second = static_cast<unsigned char*>(sys::allocateLargeBlock(size));
        EXPECT_TRUE(std::all_of(first, first + size, [](unsigned char c) { return c == 0; }));
        std::memset(first, 0xA5, size);
        std::memset(second, 0x5A, size);
        EXPECT_EQ(first[size - 1], 0xA5);
        EXPECT_EQ(second[0], 0x5A);
        EXPECT_TRUE(first + size <= second || second + size <= first);
        sys::freeLargeBlock(first, size);
        sys::freeLargeBlock(second, size);
    }
    auto state = std::make_unique<AppState>();
    EXPECT_EQ(state->catalogue.engineCount, 0u);
    EXPECT_TRUE(state->catalogue.wagons.back().fileName.empty());
    state->catalogue.engines.back().displayName = "written to the last record";
}

}  // namespace
}  // namespace rakeyard
