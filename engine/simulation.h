// The zone heat balance, stepped through a year of weather.
//
// Method. Each zone is an air node with its capacity, joined to the inside
// faces of its surfaces by convection, and the inside faces are joined to
// one another by long-wave radiation through the mean-radiant-temperature
// star network of Carroll (1980). Opaque surfaces conduct through a
// finite-difference chain of their layers (implicit Euler, unconditionally
// stable); windows are massless conductances with their solar heat gain
// split into transmitted solar, which is absorbed on the room surfaces, and
// the absorbed part that flows inwards. Each step the chains are reduced to
// their inside face (the interior of each chain stepped in its modal form,
// chain_modes.h, which is the same implicit step), so that the zone leaves a 2x2 linear
// system in air and star temperature; the ideal system then either floats
// the zone or holds a set-point with the exact load of that linear system.
// Outside faces see the sol-air balance: convection by the DOE-2 model
// (MoWiTT wind correlation of Yazdanian & Klems 1994 with Walton's 1983
// roughness multipliers), long-wave to sky and ground linearised each step,
// and absorbed solar from the Perez sky.
//
// Time step: four steps an hour by default. Hourly weather temperatures are
// interpolated to the step and radiation held over its hour. A quarter-hour
// step keeps the light constructions' surface nodes and the air node close to
// their continuous response (their time constants are below an hour), which
// an hourly implicit step would smear, while the whole year still costs
// little; the step is an option. Film coefficients (convection, long-wave)
// are evaluated once an hour, so the later steps of an hour reuse the
// reduced chains and cost multiply-adds only.
//
// Zones exchange no heat with one another, so each runs its days on its own:
// what they share (sun, sky, irradiance of each plane, solar through each
// kind of window, the weather of each step) is computed first for every hour
// of the period, then the zones are handed out to `RunOptions::threads`
// threads. A zone's figures come from the same operations in the same order
// on any thread, so they do not depend on the thread count.
//
// Energy balance: every step the heat that crosses the zone's boundary
// (outside faces of its constructions, absorbed solar, internal gains, air
// exchange, the ideal system) is summed against the change of what the air
// and every node store; ZoneResults keeps the hourly residuals.
#pragma once

#include <array>
#include <functional>
#include <string>
#include <vector>

#include "engine/building.h"
#include "engine/weather_data.h"

namespace solvane::engine {

// Rows of the load component table, in report order.
enum Component : int {
    kCompRoof = 0,
    kCompWalls,
    kCompFloors,
    kCompWindowConduction,
    kCompWindowSolar,
    kCompPeople,
    kCompLights,
    kCompEquipment,
    kCompInfiltration,
    kCompOutdoorAir,
    kCompNaturalVent,
    kCompStorage,
    kComponentCount
};

struct RunOptions {
    int stepsPerHour = 4;
    int beginDay = 1;  // day numbers of the year, 1..365
    int endDay = 365;
    std::array<bool, 12> skipMonth{};  // a skipped month floats and is not counted
    int firstWeekday = 0;              // weekday of 1 January, 0 Sunday .. 6 Saturday
    bool hvacOff = false;              // passive run: every zone floats
    double comfortLower = 20.0;        // C
    double comfortUpper = 27.0;        // C
    int warmupDays = 10;               // run before the period, repeated until settled
    bool keepHourly = true;            // keep the 8760 hourly series
    int threads = 0;                   // zones stepped at once; 0: the machine's core count
    // Told after each day of the period (not the warm-up), from any thread: days done, days in all.
    std::function<void(int done, int total)> onDay;
};

struct ZoneResults {
    std::string name;
    // Hourly series (hour ending 1 a.m. 1 January first): mean air
    // temperature (C) and mean heating and cooling loads (W) of the hour.
    std::vector<float> airTemperature, heating, cooling;
    // Hourly electricity of the lights and receptacles (W, the hour's mean;
    // 0 in hours not counted).
    std::vector<float> lights, equipment;
    double heatingEnergy = 0, coolingEnergy = 0;                // Wh over the run
    double lightsEnergy = 0, equipmentEnergy = 0;               // Wh over the run
    std::array<double, 12> monthlyHeating{}, monthlyCooling{};  // Wh
    std::array<double, 12> monthlySolarGain{};  // Wh of solar through the windows into the zone
    double peakHeating = 0, peakCooling = 0;    // W, hour means
    int peakHeatingHour = -1, peakCoolingHour = -1;  // 0-based hour of the year
    // Loads by component: heating rows count losses positive, cooling rows
    // gains positive; each table sums to its total.
    std::array<double, kComponentCount> heatingByComponent{}, coolingByComponent{};        // Wh
    std::array<double, kComponentCount> peakHeatingComponents{}, peakCoolingComponents{};  // W
    // Air temperature statistics and comfort hours.
    double maxTemperature = -1e9, minTemperature = 1e9, meanTemperature = 0;
    int maxTemperatureHour = -1, minTemperatureHour = -1;
    int hoursBelow = 0, hoursWithin = 0, hoursAbove = 0;
    std::array<int, 12> monthlyHoursBelow{}, monthlyHoursWithin{}, monthlyHoursAbove{};
    std::array<double, 12> monthlyMaxTemperature{}, monthlyMinTemperature{},
        monthlyMeanTemperature{};
    // Energy balance of the zone (air and all its constructions), Wh:
    // gross heat in and out across the boundary, the change of what is
    // stored, and the sum over hours of |in - out - stored|.
    double balanceIn = 0, balanceOut = 0, balanceStored = 0, balanceResidual = 0;
    double BalanceError() const {
        const double gross = balanceIn > 0 ? balanceIn : 1;
        return balanceResidual / gross;
    }
};

struct RunResults {
    std::vector<ZoneResults> zones;
    int hoursSimulated = 0;
};

RunResults Simulate(const Building& building, const WeatherYear& weather,
                    const RunOptions& options);

// Monthly undisturbed ground temperatures (C) at `depth` metres from the
// weather's air temperatures (Kusuda & Achenbach 1965); used when the weather
// carries none (synthetic weather).
std::array<double, 12> GroundTemperatures(const WeatherYear& weather, double depth);

// Steady-state conductance (W/K) from the zone air to the outdoor air with
// the given fixed films: the sum of U*A of the envelope plus infiltration.
// A check of the inputs, not of the simulation.
double SteadyConductance(const Building& building, int zone, const WeatherYear& weather);

}  // namespace solvane::engine
