// The three result chart screens as drawings: `source` (annual energy by
// category), `monthly` (monthly energy or utility costs as lines) and `peak`
// (annual and peak loads by component). Each fills its named labels and
// draws its bars and lines on a canvas laid out in twips, the screens' own
// units, scaled to the canvas width.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <utility>

#include "results/results_reader.h"
#include "ui/canvas.h"
#include "ui/screen_fields.h"

namespace solvane {

// The logical size of every chart canvas, in twips.
inline constexpr int kChartTwipsWide = 9600;
inline constexpr int kChartTwipsHigh = 7200;

// What every chart shows above its drawing.
struct ChartHead {
    std::string InputFileShortName;
    std::string projectName;  // proname
};

// A weather ensemble's 10th to 90th percentile of one bar or point, in the
// chart's own unit; none where the ensemble gave no figure.
using ChartBand = std::optional<std::pair<double, double>>;

// The bands of every chart, drawn behind the bars and points when given.
struct ChartBands {
    std::array<ChartBand, 7> source;                    // [1..6], the energy categories
    std::array<ChartBand, 12> heating, cooling;         // calendar months; cooling in kWh
    std::array<ChartBand, 9> peakHeating, peakCooling;  // the component rows
    int runs = 0;                                       // the ensemble's completed runs
};

// The energy breakdown screen `source`.
void DrawSourceChart(const EnergySummary& s, const ChartHead& head, ScreenFields& fields,
                     Canvas& canvas, const ChartBands* bands = nullptr);

// The monthly screen in its two views.
void DrawMonthlyEnergy(const MonthlyEnergy& e, const ChartHead& head, ScreenFields& fields,
                       Canvas& canvas, const ChartBands* bands = nullptr);
void DrawMonthlyCosts(const MonthlyCosts& c, const ChartHead& head, ScreenFields& fields,
                      Canvas& canvas);

// The loads screen `peak` in one of its four views; the view's button is
// disabled, the others enabled.
void DrawPeakChart(const ComponentLoads& loads, LoadView view, const ChartHead& head,
                   ScreenFields& fields, Canvas& canvas, const ChartBands* bands = nullptr);

// The band's colour: a pale grey behind the bars, with a dark whisker.
inline constexpr Color kBandFill = 0xD8D8D8;
inline constexpr Color kBandWhisker = 0x404040;

// Bar colours of the loads chart: palette entry i, entry 12 for the pale 7.
Color PeakCategoryColor(int category);

}  // namespace solvane
