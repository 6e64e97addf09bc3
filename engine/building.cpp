#include "engine/building.h"

namespace solvane::engine {

WeekProfile WeekProfile::Constant(double v) {
    WeekProfile p;
    for (auto& day : p.values) day.fill(v);
    return p;
}

}  // namespace solvane::engine
