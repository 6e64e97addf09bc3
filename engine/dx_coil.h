// A cooling coil's total and sensible capacity at the air entering it, and
// the performance of a single-speed DX unit.
//
// Method. The apparatus dew point and bypass factor model (Carrier, Cherne &
// Grant 1959; as in the EnergyPlus Engineering Reference, "Single-speed
// electric DX air cooling coil"): the rated total capacity and sensible
// heat ratio at the rating inlet (26.7 C dry bulb, 19.4 C wet bulb) fix the
// coil's bypass factor; at any inlet the leaving air lies on the straight
// line from the inlet to the apparatus dew point, the saturated state whose
// enthalpy is h_in - Q / (m (1 - BF)), and the sensible heat ratio follows.
// Total capacity and the electric input ratio are the unit's biquadratics
// of the entering wet bulb and the outdoor dry bulb. A coil whose apparatus
// dew point lies above the entering air's dew point is dry: it then gives
// the capacity and takes the power of the wet bulb at which it just turns
// dry, however much drier the air (the rule of ASHRAE 140 for the unitary
// cooling cases, Neymark & Judkoff 2002).
#pragma once

#include <map>
#include <string>
#include <unordered_map>

namespace solvane::engine {

struct DxPerformance {
    // Rated gross total capacity (W), gross sensible heat ratio, and gross
    // COP: capacity over compressor plus outdoor fan power, at 35 C outdoors.
    double ratedCapacity = 0;
    double ratedShr = 0.8;
    double ratedCop = 3.0;
    double airFlow = 0;          // m3/s of air at 20 C
    double supplyFanPower = 0;   // W while running; its heat enters the air behind the coil
    double outdoorFanPower = 0;  // W while running, part of the COP's input
    // Biquadratics a + b x + c x^2 + d y + e y^2 + f x y of the entering wet
    // bulb x and the outdoor dry bulb y (C), each 1 at the rating.
    double capFT[6] = {0.942587793,  0.009543347, 0.000683770,
                       -0.011042676, 0.000005249, -0.000009720};
    double eirFT[6] = {0.342414409, 0.034885008, -0.000623700,
                       0.004977216, 0.000437951, -0.000728028};
    double wetBulbMin = 12.8, wetBulbMax = 23.9, dryBulbMin = 18.0, dryBulbMax = 46.1;
    // Part-load fraction a + b PLR: the run time is PLR / PLF.
    double plf[2] = {0.85, 0.15};
};

// Bypass constant A0 = -ln(BF) m of a unit from its rating (kg/s); 0 when
// the rating cannot be met by any bypass factor (then the coil is dry).
double RatedBypassConstant(const DxPerformance& unit, double pressure);

struct CoilState {
    double total = 0;    // W gross total capacity at this inlet
    double shr = 1;      // sensible heat ratio
    double power = 0;    // W compressor and outdoor fan while running
    double wetBulb = 0;  // C, the entering wet bulb the curves took
    bool dry = true;
};

// One coil's dry states, kept by 0.05 K of entering and 0.2 K of outdoor
// dry bulb with the humidity ratio below which each holds.
struct DryEdgeCache {
    struct Entry {
        double edge = 0;
        CoilState state;
    };
    std::unordered_map<long long, Entry> edges;
};

// The coil at an inlet of `t` C and humidity ratio `w`, with `odb` C outdoors.
CoilState CoilAt(const DxPerformance& unit, double bypassConstant, double t, double w, double odb,
                 double pressure, DryEdgeCache* cache = nullptr);

// Part-load fraction of the unit at a part-load ratio.
double PartLoadFraction(const DxPerformance& unit, double plr);

// The performance-map file `Solv2020.dx` of a run folder: blocks that begin
// with "ZONE <number>" and give, one a line, "CAPACITY", "SHR", "COP",
// "AIRFLOW", "FAN", "OUTDOOR FAN", "CAPFT" (six figures), "EIRFT" (six),
// "WETBULB" (two: the curves' range), "DRYBULB" (two), "PLF" (two). Lines
// starting with '!' are comments. Throws ReadError with file and line.
std::map<std::string, DxPerformance> ReadDxPerformanceFile(const std::string& text,
                                                           const std::string& fileName);

}  // namespace solvane::engine
