// Utility and life-cycle costs from the project's economics data, the
// systems' monthly energy and peak demand and the zones' HVAC costs.
//
// Prices are those of the engine's input (always I-P): electricity $/kWh,
// gas $/therm, water $/1000 gal; rates and escalations are fractions a year.
//
// Monthly bills. Electricity: the month's kWh times the price, plus, when
// the demand schedule is in force, the month's peak demand (the highest
// hourly mean kW of the month) charged in blocks: step i takes the next
// "KW Increment" kW at its "Cost ($)" per kW; the last step takes all the
// demand above the steps before it. The economics data carry no ratchet, so
// each month's demand is billed on its own peak. Gas: the plant's and the
// water heaters' fuel in therms times the price. Water: the service hot
// water drawn (the only water use the engine models) times the price.
// The bills are at the prices of the first year.
//
// Life-cycle cost: present worth over the study period N (the economic
// life) at the real discount rate d, after NIST Handbook 135 (Fuller &
// Petersen, 1996), end-of-year convention:
// - single amount in year t:          SPV(t) = 1 / (1 + d)^t
// - a cost escalating at e a year:    SPV*(t) = ((1 + e) / (1 + d))^t
// - annual amount escalating at e:    UPV* = sum t=1..N of SPV*(t)
//                                          = k (1 - k^N) / (1 - k), k = (1+e)/(1+d)
// First costs (construction, lighting, HVAC) fall in year 0; the HVAC plant
// is replaced at the end of each of its lives inside the period at the cost
// escalated by the building cost escalation, and the part of its last life
// left at the end of the period is credited as residual value (straight
// line). Maintenance escalates with the building cost escalation, each
// utility with its own. The bills of a whole-year run are the annual
// amounts; a shorter run gives no life-cycle cost.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "core/project_model.h"
#include "engine/building.h"
#include "engine/hvac_systems.h"

namespace solvane::engine {

struct DemandStep {
    double kw = 0;         // the block's width, kW
    double costPerKw = 0;  // $ per kW of the block
};

struct EconomicInputs {
    double economicLife = 0, hvacLife = 0, solarLife = 0;  // years
    double discountRate = 0, costEscalation = 0;
    double electricPrice = 0, electricEscalation = 0;  // $/kWh
    double gasPrice = 0, gasEscalation = 0;            // $/therm
    double waterPrice = 0, waterEscalation = 0;        // $/1000 gal
    bool demandInForce = false;
    std::vector<DemandStep> demandSteps;
    double constructionCostPerFt2 = 0;  // the project's "Con. Cost "
};

// The engine's copy of the economics block (and the project's construction
// cost); a schedule is in force for "Y", " Y" and "Yes".
EconomicInputs EconomicInputsOf(const ProjectModel& model);

// One zone's cost figures from its record: lighting $ per sq.ft, HVAC first
// and maintenance $ per ton; matched to the building's zones by number.
struct ZoneCostRates {
    std::string number;
    double floorAreaFt2 = 0;
    double lightingPerFt2 = 0;
    double firstPerTon = 0, maintenancePerTon = 0;
};
std::vector<ZoneCostRates> ZoneCostRatesOf(const ProjectModel& model, const Building& building);

// The demand charge of one month's peak (kW) on the block schedule.
double DemandCharge(double peakKw, const std::vector<DemandStep>& steps);

// Present-worth factors (see above).
double SinglePresentWorth(double discountRate, double escalation, double year);
double UniformPresentWorth(double discountRate, double escalation, int years);

struct MonthlyBill {
    double kwh = 0, peakKw = 0, therms = 0, kgal = 0;                   // kgal: 1000 gal of water
    double electricEnergy = 0, electricDemand = 0, gas = 0, water = 0;  // $
    double Electric() const { return electricEnergy + electricDemand; }
    double Total() const { return Electric() + gas + water; }
};

struct ZoneCost {
    std::string number;
    double tons = 0;  // the plant's rated capacity, 12,000 Btu/h a ton
    double first = 0, maintenance = 0, lighting = 0;  // $, $ a year, $
};

struct LifeCycleCost {
    bool computed = false;  // a whole-year run only
    int years = 0;
    double construction = 0, lighting = 0, hvacFirst = 0;  // year 0
    double hvacReplacements = 0, hvacResidual = 0;         // present worth; residual a credit
    int replacementCount = 0;
    double maintenance = 0, electric = 0, gas = 0, water = 0;  // present worth
    double maintenanceFactor = 0, electricFactor = 0, gasFactor = 0, waterFactor = 0;  // UPV*
    double Total() const {
        return construction + lighting + hvacFirst + hvacReplacements - hvacResidual + maintenance +
               electric + gas + water;
    }
};

struct CostResults {
    EconomicInputs inputs;
    int firstMonth = 0, lastMonth = 11;
    std::array<MonthlyBill, 12> month{};
    MonthlyBill Period() const;  // the sums over the run's months; peak kW the highest
    std::vector<ZoneCost> zones;
    double hvacFirst = 0, hvacMaintenance = 0, lighting = 0, construction = 0;
    LifeCycleCost lifeCycle;
};

CostResults ComputeCosts(const EconomicInputs& in, const SystemsResults& sys,
                         const std::vector<ZoneCostRates>& zones, int firstMonth, int lastMonth,
                         bool wholeYear);

}  // namespace solvane::engine
