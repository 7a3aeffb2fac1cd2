#pragma once
#include <cstddef>
#include <string>
#include <string_view>

#include "core/msts/file_lookup.h"
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

// Tests the wagon at index of the catalogue, line by line to the end of its file.
void testThisWagon(TestRun& run, const TestContext& context, std::size_t index);

// Tests the consist of that file name in the Consists folder: its text is Unicode and every unit
// it names is there.
void testThisConsist(TestRun& run, const TestContext& context, std::string_view fileName);

// The cab view cvfName of the unit's CABVIEW folder: the textures its lines name.
void testCab(TestRun& run, const TestContext& context, const UnitNames& names,
             std::u16string_view cvfName);

// The sound definition smsName, in the unit's SOUND folder or the main one: the .wav files its
// lines name.
void testSms(TestRun& run, const TestContext& context, const UnitNames& names,
             std::u16string_view smsName);

// A name in the main sound folder. Looked up inside the MSTS folder, or inside the sound folder
// itself when the settings put that elsewhere.
[[nodiscard]] Lookup lookUpMainSound(const TestContext& context, std::string_view name);
[[nodiscard]] LookupFailure readMainSound(const TestContext& context, std::string_view name,
                                          std::string& bytes);

// The shape definition (shapeName + "d") in the unit's folder, and the shape file it names.
void testShapeDef(TestRun& run, const TestContext& context, const UnitNames& names,
                  std::u16string_view shapeName);

}  // namespace rakeyard
