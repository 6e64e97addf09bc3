// Climate records of the test fixtures (tests/engine/climate_records.txt).
#pragma once

#include <string>
#include <vector>

#include "engine/synthetic_weather.h"
#include "engine/weather_data.h"

namespace solvane::engine::testing {

struct ClimateRecord {
    std::string name;
    Site site;
    MonthlyClimate climate;
};

std::vector<ClimateRecord> ReadClimateRecords(const std::string& path);

}  // namespace solvane::engine::testing
