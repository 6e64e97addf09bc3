// The engine's output files: Monitor.txt, sim$.out (monthly summary,
// component loads), ecalc$.wth (weather summary), ecalc$.flt (space comfort)
// and, on request, the hourly files. Fixed columns, CR LF line ends.
//
// Column map of the component table (first row "ROOF"; columns from 1):
//   peak heating load 29-36, its percent 38-42; peak cooling 45-52, 54-58;
//   annual heating 100-107, 109-113; annual cooling 117-124, 126-130.
//   Fourteen rows; row 13 is a rule, row 14 the total. Six lines below row
//   14 the totals line: peak heating total 30-37 and its time 46-57, annual
//   heating 100-107, annual cooling 117-124; the next line the same per unit
//   floor area (peak cooling per area at 47).
// Monthly table (head line "MONTHLY..."; four lines, then "JAN".."DEC"):
//   heating energy 4-11, cooling electricity in kWh 31-39; a rule of "="
//   and the totals line in the same columns.
//   Utility costs in the same table: see report_costs.h.
// Section VI (after V.): zones' plant, end uses by month, peak demand.
// Section VII: the cost analysis (report_costs.h).
#pragma once

#include <string>
#include <vector>

#include "engine/building.h"
#include "engine/control_file.h"
#include "engine/costs.h"
#include "engine/hvac_systems.h"
#include "engine/simulation.h"
#include "engine/weather_data.h"

namespace solvane::engine {

struct ReportContext {
    std::string projectName;
    std::string location;
    bool si = false;
    RunControl control;
    std::string weatherSource;  // one line: what weather was used
};

std::string MonitorText(const ReportContext& c, int zoneCount,
                        const std::vector<std::string>& notes, const std::string& status);
// Sections III to VII; the energy comes from the systems model. Without
// `costs` the monthly table has no cost columns and VII. is left out.
std::string SimOutText(const Building& b, const RunResults& r, const SystemsResults& sys,
                       const std::vector<ZoneSystem>& systems, const ReportContext& c,
                       const CostResults* costs = nullptr);
std::string WeatherSummaryText(const WeatherYear& w, const ReportContext& c);
std::string ComfortText(const Building& b, const RunResults& r, const ReportContext& c);
// Hourly files as comma-separated tables: loads, zone temperatures, weather.
std::string HourlyEnergyText(const RunResults& r, const ReportContext& c);
std::string HourlyTemperatureText(const RunResults& r, const ReportContext& c);
std::string HourlyWeatherText(const WeatherYear& w, const ReportContext& c);

}  // namespace solvane::engine
