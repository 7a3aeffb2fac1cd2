#pragma once
#include <cstddef>
#include <string>
#include <string_view>

#include "core/tester/test_state.h"

namespace rakeyard {

// What the findings of a unit's tests name: F its file name and D its folder, both upper-cased
// (D with a separator at its end), P folder name and file name, N the file name as it stands.
struct UnitNames {
    const UnitRecord& unit;
    std::string F, D, P, N;
    explicit UnitNames(const UnitRecord& unit);
};

// Tests the engine at index of the catalogue, line by line up to its description: the names at
// its head, its shape, freight animation, mass and display name, and the files they name.
void testThisEngine(TestRun& run, const TestContext& context, std::size_t index);

// The shape definition (shapeName + "d") in the unit's folder, and the shape file it names.
void testShapeDef(TestRun& run, const TestContext& context, const UnitNames& names,
                  std::u16string_view shapeName);

}  // namespace rakeyard
