// libFuzzer target for the results readers: each input is a results file
// (temp\ecalc$.out). Every reader of it runs -- the command line's run
// summary (energy summary, the four load views, the costs) and the monthly
// energy -- and what each gives is drawn as its chart screen draws it, and
// the benchmark text is made from the EUIs. A read either gives a table or
// says why not; a chart's scale is a positive figure that covers what it
// plots, and no drawing call lands further than a chart's size off its canvas.
#include <cmath>
#include <cstdint>
#include <string>
#include <string_view>

#include "results/benchmark.h"
#include "results/result_charts.h"
#include "results/results_reader.h"
#include "results/run_summary.h"

namespace {

using namespace solvane;

// A canvas that draws nothing and traps on a point far off it.
class BoundsCanvas : public Canvas {
  public:
    int Width() const override { return 480; }
    int Height() const override { return 360; }
    void Clear(Color) override {}
    void FillBox(int x1, int y1, int x2, int y2, Color) override { Near(x1, y1), Near(x2, y2); }
    void Box(int x1, int y1, int x2, int y2, Color) override { Near(x1, y1), Near(x2, y2); }
    void Line(int x1, int y1, int x2, int y2, Color) override { Near(x1, y1), Near(x2, y2); }
    void SetPoint(int x, int y, Color) override { Near(x, y); }
    void Text(int x, int y, const std::string&, int, Color) override { Near(x, y); }
    void Circle(int cx, int cy, int, Color) override { Near(cx, cy); }
    void Polygon(const std::array<Point, 4>& corners, Color) override {
        for (const Point& p : corners) Near(p.x, p.y);
    }
    Color ColorAt(int, int) const override { return 0xFFFFFF; }

  private:
    void Near(int x, int y) const {
        if (std::abs(x) > 4 * Width() || std::abs(y) > 4 * Height()) __builtin_trap();
    }
};

template <typename T>
void CheckTable(const T& t) {
    if (!(t.scale >= 0.1)) __builtin_trap();
}

template <typename T>
void CheckRead(const ReportRead<T>& r) {
    if (!r.table && r.error.empty()) __builtin_trap();
    if (r.table) CheckTable(*r.table);
}

void CheckLoads(const ComponentLoads& loads, LoadView view, Canvas& canvas) {
    CheckTable(loads);
    for (double v : loads.value)
        if (std::isfinite(v) && std::abs(v) > loads.scale) __builtin_trap();
    ScreenFields fields;
    DrawPeakChart(loads, view, ChartHead{"fuzz.inp", "Fuzz"}, fields, canvas);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view report(reinterpret_cast<const char*>(data), size);
    BoundsCanvas canvas;
    const ChartHead head{"fuzz.inp", "Fuzz"};
    ScreenFields fields;

    const auto summary = ReadRunSummary(report);
    if (!summary && summary.error.empty()) __builtin_trap();
    if (summary) {
        const RunSummary& s = *summary.table;
        CheckTable(s.energy);
        DrawSourceChart(s.energy, head, fields, canvas);
        BenchmarkInput in;
        in.SiteEUI = s.energy.SiteEUI;
        in.SourceEUI = s.energy.SourceEUI;
        in.si = s.energy.units.si();
        in.BuildingType = 3;  // a type with a second kind of building
        in.BuildingTypeName = "Bank";
        in.CbecsSiteEUI = 91;
        in.CbecsSourceEUI = 249;
        in.ClimateZone = "4 A";
        BenchmarkText(in);
        const std::pair<const std::optional<ComponentLoads>*, LoadView> views[] = {
            {&s.annualCooling, LoadView::AnnualCooling},
            {&s.annualHeating, LoadView::AnnualHeating},
            {&s.peakCooling, LoadView::PeakCooling},
            {&s.peakHeating, LoadView::PeakHeating}};
        for (const auto& [loads, view] : views)
            if (*loads) CheckLoads(**loads, view, canvas);
        if (s.costs) {
            CheckTable(*s.costs);
            DrawMonthlyCosts(*s.costs, head, fields, canvas);
        }
    } else {
        // Without an energy summary the other readers still take their sections.
        const auto loads = ReadComponentLoads(report, LoadView::PeakHeating);
        CheckRead(loads);
        if (loads) CheckLoads(*loads.table, LoadView::PeakHeating, canvas);
        const auto costs = ReadMonthlyCosts(report);
        CheckRead(costs);
        if (costs) DrawMonthlyCosts(*costs.table, head, fields, canvas);
    }
    const auto monthly = ReadMonthlyEnergy(report);
    CheckRead(monthly);
    if (monthly) DrawMonthlyEnergy(*monthly.table, head, fields, canvas);
    return 0;
}
