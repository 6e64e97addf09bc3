// Runs the ASHRAE 140 cases once and gives their figures by the names the
// reference table uses.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "engine/project_translation.h"
#include "engine/simulation.h"
#include "engine/weather_data.h"

namespace solvane::engine::testing {

struct ReferenceRange {
    std::string caseName, quantity;
    double min = 0, max = 0;
};

// The reference table, read from tests/engine/bestest_ranges.csv.
std::vector<ReferenceRange> ReadReferenceRanges(const std::string& path);

// Where a case's building comes from: (heavy, freeFloat) to the building.
using CaseSource = std::function<Building(bool heavy, bool freeFloat)>;

// Figures of the four cases: key "600/annual_heating" and so on, in the
// table's units. By default the layered descriptions (bestest_building.h).
std::map<std::string, double> RunBestestCases(const WeatherYear& weather, int stepsPerHour = 4,
                                              const CaseSource& source = {});

// The cases as a user runs them: tests/engine/projects/case600.inp or
// case900.inp read by the project reader and translated with run type 3,
// or 4 for the free-float cases.
Building ProjectCaseBuilding(bool heavy, bool freeFloat);

// A project file read and translated as the engine does it; `edit`, when
// given, changes the model and the building matrix text between the two.
using ProjectEdit = std::function<void(ProjectModel&, std::string& buildingMatrix)>;
ProjectRunInputs LoadProjectCase(const std::string& path, int runType,
                                 const ProjectEdit& edit = {});

// The Denver TMY3 year of the test fixtures, read once.
const WeatherYear& DenverWeather();

}  // namespace solvane::engine::testing
