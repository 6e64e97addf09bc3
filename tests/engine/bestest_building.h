// The ASHRAE Standard 140 envelope cases 600 and 900 as engine building
// descriptions, built from their published layers and geometry.
#pragma once

#include "engine/building.h"

namespace solvane::engine::testing {

// `heavy` gives case 900 (concrete block walls, concrete floor), otherwise
// case 600. `freeFloat` gives 600FF / 900FF.
Building BestestBuilding(bool heavy, bool freeFloat);

}  // namespace solvane::engine::testing
