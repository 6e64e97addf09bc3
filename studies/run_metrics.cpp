#include "studies/run_metrics.h"

#include "core/numeric_helpers.h"
#include "results/run_summary.h"

namespace solvane {

const Metric* RunMetrics::Find(std::string_view key) const {
    for (const Metric& m : metrics)
        if (m.key == key) return &m;
    return nullptr;
}

std::optional<std::pair<int, int>> ReadUnmetHours(std::string_view report) {
    constexpr std::string_view kMarker = "UNMET LOAD HOURS, ALL ZONES: COOLING ";
    const std::size_t at = report.rfind(kMarker);
    if (at == std::string_view::npos) return std::nullopt;
    const std::size_t end = report.find('\n', at);
    const std::string line(report.substr(at + kMarker.size(), end - at - kMarker.size()));
    const std::size_t heating = line.find(", HEATING ");
    if (heating == std::string::npos) return std::nullopt;
    return std::pair<int, int>{static_cast<int>(NumVal(line.substr(0, heating))),
                               static_cast<int>(NumVal(line.substr(heating + 10)))};
}

ReportRead<RunMetrics> ReadRunMetrics(std::string_view report) {
    const auto summary = ReadRunSummary(report);
    if (!summary) return {std::nullopt, summary.error};
    const RunSummary& s = *summary.table;
    const bool si = s.energy.units.si();
    const std::string eui = si ? "MJ/m2" : "kBtu/ft2", energy = si ? "GJ" : "MBtu",
                      power = si ? "kW" : "kBtuh";
    RunMetrics r;
    r.units = s.energy.units;
    auto add = [&](std::string key, const std::string& unit, std::optional<double> v,
                   bool detail = false) {
        r.metrics.push_back(Metric{std::move(key), unit, detail, v});
    };
    auto total = [](const std::optional<ComponentLoads>& t) -> std::optional<double> {
        if (!t) return std::nullopt;
        return NumVal(t->tableTotal);
    };
    add("siteEUI", eui, s.energy.SiteEUI);
    add("sourceEUI", eui, s.energy.SourceEUI);
    double site = 0;
    for (int i = 1; i <= 6; ++i) {
        add("endUse." + s.energy.CategoryName[i], energy, s.energy.EnergyBreakdown[i]);
        site += s.energy.EnergyBreakdown[i];
    }
    add("siteEnergy", energy, site);
    add("peakHeating", power, total(s.peakHeating));
    add("peakCooling", power, total(s.peakCooling));
    const auto unmet = ReadUnmetHours(report);
    add("unmetCoolingHours", "h", unmet ? std::optional<double>(unmet->first) : std::nullopt);
    add("unmetHeatingHours", "h", unmet ? std::optional<double>(unmet->second) : std::nullopt);
    add("annualCost", "$", s.costs ? s.costs->total[12] : std::nullopt);

    // The chart series: monthly loads on calendar months, peak components.
    if (const auto monthly = ReadMonthlyEnergy(report)) {
        for (int mo = 0; mo < 12; ++mo) {
            const auto& h = monthly.table->heating[static_cast<std::size_t>(mo)];
            const auto& c = monthly.table->cooling[static_cast<std::size_t>(mo)];
            add("monthly.heating." + std::to_string(mo + 1), energy, h, true);
            add("monthly.cooling." + std::to_string(mo + 1), "kWh", c, true);
        }
    }
    for (const auto& [view, name] : {std::pair{LoadView::PeakHeating, "peakHeating."},
                                     std::pair{LoadView::PeakCooling, "peakCooling."}}) {
        if (const auto loads = ReadComponentLoads(report, view))
            for (std::size_t i = 0; i < 9; ++i)
                add(name + std::to_string(i + 1), power, loads.table->value[i], true);
    }
    return {std::move(r), {}};
}

}  // namespace solvane
