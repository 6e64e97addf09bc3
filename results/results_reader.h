// Reading the results file (temp\ecalc$.out) back for the charts: its units
// from the weather block of the input report, then one section by its marker
// and fixed columns. A missing section gives an error, never a figure.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace solvane {

// The unit system the report itself is printed in: 1 I-P, 2 SI.
struct ReportUnits {
    int units = 1;
    bool si() const { return units == 2; }
};

enum class LoadView { AnnualCooling, AnnualHeating, PeakCooling, PeakHeating };

// The component table for one view after the merge: nine chart categories.
struct ComponentLoads {
    ReportUnits units;
    std::array<double, 9> value{};
    std::array<std::string, 9> valueText;  // as the report prints them
    std::array<std::string, 9> label;      // the report's row titles
    std::string total;                     // first field of the totals line
    std::string tableTotal;                // the table's own total row, this view's column
    std::string peakDateText;              // second field, the peak views only
    std::string perArea;                   // first field of the per-area line
    double scale = 0.1;
};

// The monthly heating and cooling energy, on calendar months (0 = January).
struct MonthlyEnergy {
    ReportUnits units;
    int startMonth = 0;
    std::array<std::optional<double>, 12> heating, cooling;  // cooling in kWh
    double totalHeating = 0, totalCoolingKwh = 0;
    double scale = 0.1;  // of heating and cooling in the heating unit
};

// The monthly utility costs: gas, electricity, total, with the period's
// figures one index above the last month: [12] for a run to December.
struct MonthlyCosts {
    ReportUnits units;
    int startMonth = 0;
    std::array<std::optional<double>, 13> gas, elec, total;
    int periodIndex = 12;  // where the period's figures stand
    double scale = 0.1;
};

// The site energy by category and the EUIs.
struct EnergySummary {
    ReportUnits units;
    std::string ProjectTitleLine;
    std::array<double, 7> EnergyBreakdown{};  // [1..6]
    std::array<std::string, 7> CategoryName;  // [1..6], the captions above the figures
    double perArea = 0;
    double EnergyBreakdown90 = 0;
    double SiteEUI = 0, SourceEUI = 0;
    double scale = 0.1;
};

// What a read gives: the table, or why the report cannot give it.
template <typename T>
struct ReportRead {
    std::optional<T> table;
    std::string error;
    explicit operator bool() const { return table.has_value(); }
};

ReportRead<ComponentLoads> ReadComponentLoads(std::string_view report, LoadView view);
ReportRead<MonthlyEnergy> ReadMonthlyEnergy(std::string_view report);
ReportRead<MonthlyCosts> ReadMonthlyCosts(std::string_view report);
ReportRead<EnergySummary> ReadEnergySummary(std::string_view report);

// The monthly cooling column in the heating column's unit: MBtu or GJoules.
double CoolingInHeatingUnit(double kwh, ReportUnits units);

}  // namespace solvane
