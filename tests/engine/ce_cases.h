// The ASHRAE 140 unitary cooling equipment cases CE100 to CE200 through the
// project route: tests/engine/projects/ce100.inp read and translated as the
// engine does it, the unit's performance map from projects/ce_unit.dx (the
// run folder's Solv2020.dx), the case's constant weather, a run from
// 1 January to 31 March; the figures are February's.
#pragma once

#include <map>
#include <string>
#include <vector>

namespace solvane::engine::testing {

struct CeCase {
    std::string name;
    double sensibleGain = 0, latentGain = 0;  // W, constant
    int thermostat = 1;                       // 1: 22.2 C, 2: 26.7 C, 3: 23.3 C
    double outdoorDryBulb = 0;                // C, with a 14.0 C dew point
};

const std::vector<CeCase>& CeCases();

// February figures by the reference file's metric names (kWh, C, kg/kg).
std::map<std::string, double> RunCeCase(const CeCase& c);

struct CeReference {
    std::string caseName, metric, unit;
    double analyticalMin = 0, analyticalMax = 0, programsMin = 0, programsMax = 0;
};
// tests/engine/ce_reference.csv
std::vector<CeReference> ReadCeReference(const std::string& path);

}  // namespace solvane::engine::testing
