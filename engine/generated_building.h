// A generated office building for benchmarks and multi-zone tests: floors of
// zones in a row, each zone with wall segments on its four sides, windows,
// roof or floor where it meets the outside, partitions and internal mass,
// catalog-style constructions (U-factor, time lag, decrement factor) and
// office schedules.
#pragma once

#include "engine/building.h"

namespace solvane::engine {

// `zones` zones of about `surfacesPerZone` opaque surfaces each.
Building GenerateOfficeBuilding(int zones, int surfacesPerZone);

}  // namespace solvane::engine
