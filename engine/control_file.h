// The run control file temp\ecalc$.tmp and the head line of temp\ecalc$.inp.
#pragma once

#include <array>
#include <string>
#include <string_view>

namespace solvane::engine {

struct RunControl {
    int runType = 0;         // 0, 1, 3 with HVAC; 4 passive
    int weatherType = 0;     // 0 simulated; otherwise the recorded file's format number
    int firstDayOfYear = 1;  // 1 = Sunday
    int beginDay = 1, endDay = 365;
    bool hourlyOutput = false;
    int codeNum = 0;
    std::array<bool, 12> skipMonth{};
    double comfortLower = 68, comfortUpper = 79;  // in the project's units
};

// Nine labelled lines, each value from column 13. Throws ReadError naming
// the file and line for a missing line.
RunControl ReadControlFile(std::string_view content, const std::string& fileName);

// "SOLVANE-2020 " + seed, column 24 the format number, a blank, "IP" or "SI".
struct EngineHead {
    std::string weatherSeed;
    bool si = false;
};
EngineHead ReadEngineHeadLine(std::string_view line);

}  // namespace solvane::engine
