#pragma once
#include <array>
#include <cstdint>
#include <span>
#include <string>

namespace rakeyard {

// One unit: a catalogue entry of an engine or wagon, or a slot of the consist under edit. The
// fields marked "slot only" stay empty in a catalogue record. Texts are UTF-8.
struct UnitRecord {
    std::string folderPath;     // full path of the unit's folder, as on disk
    std::string folderName;     // last component of folderPath
    std::string fileName;       // with its ".eng"/".wag" extension; "" ends a catalogue
    std::string displayName;    // "" in a slot means nothing stands there
    float uid = 0;              // slot only
    bool flipped = false;       // slot only
    std::string unitType;       // "Steam", "Diesel", ... as written, or "????????"
    std::string imageKey;       // slot only: the picture key
    std::int16_t position = 0;  // slot only: sequence number from 1, 0 for an empty slot
    std::string couplerFront;   // "A", "B", "C" or "?"
    std::string couplerRear;
    float mass = 0;                // tonnes
    float length = 0;              // metres
    bool markedForDelete = false;  // slot only
    std::string maxPower;          // engines only, as written ("2000kW")
    std::string shapeName;
    bool hasCab = false;  // engines only: false is an AI engine
};

using EngineRecord = UnitRecord;
using WagonRecord = UnitRecord;
using ConsistSlot = UnitRecord;

inline constexpr std::size_t kEngineCatalogueSize = 6001;  // indices 0..6000
inline constexpr std::size_t kWagonCatalogueSize = 8001;   // indices 0..8000

// The two catalogues, filled from index 0 without gaps. Only the first engineCount and
// wagonCount records are units: the record after them may hold the fields of a file the reader
// refused, so every walk goes through usedRecords.
struct UnitCatalogue {
    std::array<EngineRecord, kEngineCatalogueSize> engines;
    std::array<WagonRecord, kWagonCatalogueSize> wagons;
    std::size_t engineCount = 0;
    std::size_t wagonCount = 0;
};

enum class UnitClass { Engine, Wagon };

// The stored records of one catalogue, in catalogue order.
inline std::span<const UnitRecord> usedRecords(const UnitCatalogue& catalogue, UnitClass which) {
    return which == UnitClass::Engine
               ? std::span<const UnitRecord>(catalogue.engines.data(), catalogue.engineCount)
               : std::span<const UnitRecord>(catalogue.wagons.data(), catalogue.wagonCount);
}

// Empties both catalogues.
inline void clearCatalogue(UnitCatalogue& catalogue) {
    catalogue.engines.fill(EngineRecord{});
    catalogue.wagons.fill(WagonRecord{});
    catalogue.engineCount = catalogue.wagonCount = 0;
}

}  // namespace rakeyard
