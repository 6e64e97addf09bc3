// The zones' HVAC plant, service hot water and the building's end uses,
// computed hour by hour from the zone loads of the heat balance.
//
// Method. Each zone's hourly heating and cooling loads (the ideal system of
// simulation.h) are met by the plant of its HVAC system type; the plant's
// energy follows from its rated efficiency corrected for the outdoor
// conditions and the part-load ratio by the curve sets named in
// hvac_systems.cpp:
// - packaged and split DX (air-cooled): DOE-2 capacity and EIR biquadratics
//   of coil wet bulb and outdoor dry bulb, cycling loss 0.85 + 0.15 PLR, the
//   coil's sensible heat ratio by its apparatus dew point (dx_coil.h);
// - water-cooled centrifugal chiller: DOE-2 capacity and EIR of leaving
//   chilled water and entering condenser water (outdoor wet bulb plus the
//   tower's approach), EIR of part load; pumps for chilled and condenser water;
// - air-source heat pump heating: DOE-2 capacity and EIR cubics of the
//   outdoor dry bulb, electric resistance for what the compressor cannot
//   give and below its cut-out;
// - furnace and boiler: rated efficiency with a heat-input ratio of part
//   load (the HVAC BESTEST furnace's; DOE-2.2's boiler); hot-water pumps
//   for the boiler;
// - fans: air flow sized from the zone's peak, power = flow x static
//   pressure / total efficiency; constant volume while the fan profile runs
//   (and cycling with the load outside it); the variable-volume systems
//   follow the part-load fan curve of ASHRAE 90.1-2019 G3.1.3.15.
// Sizing: rated capacities are the zone's design-day peak (sizing.h) or,
// without design temperatures, the zone's peak hourly load over the year
// times 1.15 (cooling, over the rated sensible heat ratio 0.8 for a wet
// coil) and 1.25 (heating), after ASHRAE 90.1-2019 G3.1.2.2, at the
// outdoor conditions of the peak hour. Load the sized
// plant cannot meet is counted as unmet (hours and energy); the zone
// temperatures stay those of the ideal system.
// Moisture: each zone's humidity ratio is stepped hour by hour (the air's
// mass, people's latent gains, infiltration and outdoor air at the
// outdoor humidity, the cooling coil's condensate); the coil's entering
// state is the zone air, its sensible heat ratio that of the apparatus dew
// point and bypass factor model (dx_coil.h).
#pragma once

#include <array>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "engine/building.h"
#include "engine/dx_coil.h"
#include "engine/simulation.h"
#include "engine/sizing.h"
#include "engine/weather_data.h"

namespace solvane::engine {

enum class CoolingPlant { None, AirCooledDx, WaterSourceDx, WaterChiller, Evaporative };
enum class HeatingPlant { None, Furnace, Boiler, Electric, AirSourceHeatPump, WaterSourceHeatPump };

enum class Rating { Cop, Seer, Eer, Hspf, Cop47 };

// One zone's system as the project gives it.
struct ZoneSystem {
    int hvacType = 0;  // 1..15 of the catalog, 0 none
    CoolingPlant cooling = CoolingPlant::None;
    HeatingPlant heating = HeatingPlant::None;
    // Rated efficiencies in the form the catalog states them; the COPs
    // without fan power follow at sizing (CopFromSeer and the others).
    double coolingRating = 3.0;
    Rating coolingRatingKind = Rating::Cop;
    double heatingRating = 1.0;  // furnace, boiler or resistance: the efficiency
    Rating heatingRatingKind = Rating::Cop;
    bool variableVolume = false;
    double staticPressure = 0;        // Pa
    double fanEfficiency = 0.55;      // total, fan times motor
    double supplyTemperature = 12.8;  // C, cooling
    int fanProfile = -1;              // index into Building::profiles; -1 always on
    // Service hot water: the zone's people times their use per day, an
    // average day of the week: the profile shapes the hours and the days.
    double hotWaterPerDay = 0;         // m3
    int hotWaterProfile = -1;          // -1 even
    bool electricWaterHeater = false;  // else gas
    // A unit's own performance map (Solv2020.dx): its rated capacity, air
    // flow, fans and curves replace the sized unit and the generic curves.
    std::optional<DxPerformance> dxMap;
    // Air economiser (the zone's Econ.Cycle) with a fixed dry-bulb high
    // limit (C).
    bool economizer = false;
    double economizerHighLimit = 23.9;
};

// The fixed dry-bulb high limit of an air economiser (C) in a climate zone
// ("5 A", "3C", "7"): ASHRAE 90.1-2019 Table 6.5.1.1.3, 65 F in the moist
// zones 0A to 4A, 70 F in 5A and 6A, 75 F elsewhere.
double EconomizerHighLimit(const std::string& climateZone);

// The system of a catalog type (1..15) with its heating type (1 fuel, 2
// electric, 3 heat pump), its seasonal cooling figure in Btu/Wh as the
// catalog states it (SEER, EER or IEER by the type; the chillers' and the
// evaporative cooler's COP times 3.412), heating efficiency (a COP for a
// heat pump: the HSPF over 3.412 for the small air-source types) and fan
// static pressure (in. w.c.).
ZoneSystem SystemOfType(int hvacType, int heatingType, double coolingFigure,
                        double heatingEfficiency, double staticPressureInches);

// Rated COP without fan power from SEER, for a unit below 65,000 Btu/h
// (ASHRAE 90.1-2016 G3.1.2.1): -0.0076 S^2 + 0.3796 S.
double CopFromSeer(double seer);
// The same from EER for a unit of capacity q (Btu/h): 7.84e-8 EER q + 0.338 EER.
// Heating, from HSPF: -0.0296 H^2 + 0.7134 H; from the COP at 47 F: 1.48e-7 COP q + 1.062 COP.
double CopFromEer(double eer, double capacityBtuh);
double HeatingCopFromHspf(double hspf);
double HeatingCopFromCop47(double cop47, double capacityBtuh);

// Part-load and outdoor corrections (ratios to the rated figure).
double DxCapacityRatio(double coilWetBulb, double outdoorDryBulb);
double DxEirRatio(double coilWetBulb, double outdoorDryBulb);
double DxPartLoadFactor(double plr);  // fraction of the run time the output is delivered
double ChillerCapacityRatio(double leavingChilledWater, double enteringCondenserWater);
double ChillerEirRatio(double leavingChilledWater, double enteringCondenserWater);
double ChillerPartLoadPower(double plr);  // fraction of full-load power
double HeatPumpCapacityRatio(double outdoorDryBulb);
double HeatPumpEirRatio(double outdoorDryBulb);
double FurnacePartLoadInput(double plr);  // fraction of full-load fuel
double BoilerPartLoadInput(double plr);
double VariableVolumeFanPower(double flowFraction);  // fraction of design power

// Outdoor wet bulb (C) from dry bulb (C) and relative humidity (percent),
// Stull (2011).
double WetBulb(double dryBulb, double relativeHumidity);
// Cold-water mains temperature (C) on a day of the year from the annual
// mean outdoor temperature and the spread of the monthly means (K), Burch &
// Christensen (2007).
double MainsTemperature(double annualMean, double monthlySpread, int dayOfYear, double latitude);

enum EndUse : int {
    kUseHeating = 0,
    kUseCooling,
    kUseFans,
    kUsePumps,
    kUseLights,
    kUseReceptacles,
    kUseHotWater,
    kEndUseCount
};

struct ZoneSystemResults {
    double coolingCapacity = 0, heatingCapacity = 0;  // W, rated
    double airFlow = 0, fanPower = 0;                 // m3/s, W at design flow
    int unmetCoolingHours = 0, unmetHeatingHours = 0;
    double unmetCooling = 0, unmetHeating = 0;  // Wh
    double hotWaterVolume = 0;                  // m3 over the run
    // Cooling coil and zone moisture by month: coil sensible and latent
    // heat removed, the zone's latent gains (people, and outdoor and
    // infiltration air drier or wetter than the room), Wh; compressor
    // (with a mapped unit's outdoor fan) and a mapped unit's indoor and
    // outdoor fans, Wh; hours counted and the sum of the zone's humidity
    // ratio and relative humidity over them.
    std::array<double, 12> coilSensible{}, coilLatent{}, latentGains{};
    std::array<double, 12> compressor{}, indoorFan{}, outdoorFan{};
    std::array<double, 12> humidityRatioSum{}, rhSum{};
    std::array<int, 12> hours{};
    double maxRh = 0;
    int hoursAboveRh60 = 0;
    double economizerCooling = 0;  // Wh of cooling load the economiser's outdoor air took
};

struct SystemsResults {
    // Energy by end use and month, Wh of electricity and of fuel.
    std::array<std::array<double, 12>, kEndUseCount> electric{}, fuel{};
    std::array<double, 12> peakDemand{};  // W, the hour's mean electric power
    std::array<int, 12> peakDemandHour{};
    std::array<double, 12> hotWaterVolume{};  // m3 drawn, by month
    std::vector<ZoneSystemResults> zones;
    bool sizedOnDesignDays = false;
    DesignConditions design;  // when sized on the design days

    double Electric(int use) const;
    double Fuel(int use) const;
    double TotalElectric() const;
    double TotalFuel() const;
};

// Gives each zone named in `maps` (by its number, such as 1-1) its unit's
// performance map; returns a note for each name that is no zone of the
// building or whose system is not an air-cooled DX unit (the map is then
// left out).
std::vector<std::string> AttachDxPerformance(const Building& building,
                                             std::vector<ZoneSystem>& systems,
                                             const std::map<std::string, DxPerformance>& maps);

// Needs the hourly series of `run` (RunOptions::keepHourly). `systems` has
// one entry per zone of the building.
// With `design` (sizing.h), the plant is sized on the design days' peaks
// and conditions instead of the year's peak hour.
SystemsResults SimulateSystems(const Building& building, const RunResults& run,
                               const WeatherYear& weather, const RunOptions& options,
                               const std::vector<ZoneSystem>& systems,
                               const DesignLoads* design = nullptr);

}  // namespace solvane::engine
