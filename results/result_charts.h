// The three result chart screens as drawings: `source` (annual energy by
// category), `monthly` (monthly energy or utility costs as lines) and `peak`
// (annual and peak loads by component). Each fills its named labels and
// draws its bars and lines on a canvas laid out in twips, the screens' own
// units, scaled to the canvas width.
#pragma once

#include <string>

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

// The energy breakdown screen `source`.
void DrawSourceChart(const EnergySummary& s, const ChartHead& head, ScreenFields& fields,
                     Canvas& canvas);

// The monthly screen in its two views.
void DrawMonthlyEnergy(const MonthlyEnergy& e, const ChartHead& head, ScreenFields& fields,
                       Canvas& canvas);
void DrawMonthlyCosts(const MonthlyCosts& c, const ChartHead& head, ScreenFields& fields,
                      Canvas& canvas);

// The loads screen `peak` in one of its four views; the view's button is
// disabled, the others enabled.
void DrawPeakChart(const ComponentLoads& loads, LoadView view, const ChartHead& head,
                   ScreenFields& fields, Canvas& canvas);

// Bar colours of the loads chart: palette entry i, entry 12 for the pale 7.
Color PeakCategoryColor(int category);

}  // namespace solvane
