#include "results/result_charts.h"

#include <algorithm>
#include <cmath>

#include "core/numeric_helpers.h"

namespace solvane {

namespace {

constexpr Color kBlack = 0x000000, kWhite = 0xFFFFFF, kGrey = 0x808080;
constexpr Color kFirstSeries = 0xFF0000, kSecondSeries = 0x0000C0, kTotalSeries = 0x008000;
constexpr const char* kMonths[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                   "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

// Twips to canvas pixels. A point far off the chart (a figure the scale does
// not cover) is held a chart's size beyond its edge, where it is still off
// the canvas but stays a pixel number.
struct Scaler {
    const Canvas& canvas;
    int X(double twips) const { return Pixels(twips, canvas.Width(), kChartTwipsWide); }
    int Y(double twips) const { return Pixels(twips, canvas.Height(), kChartTwipsHigh); }
    static int Pixels(double twips, int pixels, int span) {
        const double held = std::isnan(twips) ? 0.0 : std::clamp(twips, -2.0 * span, 3.0 * span);
        return static_cast<int>(std::lround(held * pixels / span));
    }
};

std::string Rounded(double value, int digits) {
    return NumText(RoundOff(value, digits));
}

void Label(ScreenFields& f, const std::string& name, const std::string& text,
           Color color = kBlack) {
    f[name].text = text;
    f[name].color = color;
}

void Text(Canvas& c, const Scaler& s, double x, double y, const std::string& text, Color color,
          int size = 8) {
    c.Text(s.X(x), s.Y(y), text, size, color);
}

void Bar(Canvas& c, const Scaler& s, double x, double width, double base, double height,
         Color color) {
    const double top = height >= 0 ? base - height : base;
    const double bottom = height >= 0 ? base : base - height;
    if (std::abs(height) < 1e-9) return;
    c.FillBox(s.X(x), s.Y(top), s.X(x + width), s.Y(bottom), color);
    c.Box(s.X(x), s.Y(top), s.X(x + width), s.Y(bottom), kBlack);
}

void Head(ScreenFields& f, Canvas& c, const Scaler& s, const ChartHead& head,
          const std::string& title, const std::string& location) {
    f.caption = head.InputFileShortName + " -- " + title;
    Label(f, "proname", head.projectName);
    Label(f, "proloc", location);
    c.Clear(kWhite);
    Text(c, s, 300, 150, title, kBlack, 11);
    Text(c, s, 300, 450, head.projectName, kBlack);
    Text(c, s, 300, 680, location, kGrey);
}

}  // namespace

Color PeakCategoryColor(int category) {
    return PaletteColor(category == 7 ? 12 : category);
}

void DrawSourceChart(const EnergySummary& e, const ChartHead& head, ScreenFields& f,
                     Canvas& canvas) {
    const Scaler s{canvas};
    const bool si = e.units.si();
    Head(f, canvas, s, head, "Breakdown of Annual Energy:... ", e.ProjectTitleLine);
    const std::string unit = si ? "GJoules" : "MBtu";
    Label(f, "Label2_1", unit);
    Label(f, "Label2_2", si ? " MJ/sq.m." : " kBtu/sq.ft.");
    Label(f, "euf", Rounded(e.perArea, 1));
    Text(canvas, s, 300, 1100, unit, kBlack);
    // The axis: four steps of a quarter of the scale.
    canvas.Line(s.X(1800), s.Y(1500), s.X(1800), s.Y(5000), kBlack);
    canvas.Line(s.X(1800), s.Y(5000), s.X(8500), s.Y(5000), kBlack);
    for (int i = 1; i <= 4; ++i) {
        const std::string t = NumText(RoundOff(i * e.scale / 4, 3));
        Label(f, "Label4_" + std::to_string(i), t);
        const double y = 5000 - i * 3500.0 / 4;
        Text(canvas, s, 700, y - 100, t, kBlack);
        canvas.Line(s.X(1700), s.Y(y), s.X(1800), s.Y(y), kBlack);
    }
    bool thousands = false;
    for (int i = 1; i <= 6; ++i) {
        const double v = e.EnergyBreakdown[i];
        const Color color = PaletteColor(i);
        const double x = 2000 + 1000.0 * (i - 1);
        Bar(canvas, s, x, 500, 5000, v * 3500 / e.scale, color);
        const std::string valueText = Rounded(v, 2);
        Label(f, "Label3_" + std::to_string(i), valueText, color);
        Text(canvas, s, x, 5000 - std::max(0.0, v) * 3500 / e.scale - 250, valueText, color);
        Text(canvas, s, x - 150, 5150, e.CategoryName[i], color);
        if (i <= 2) continue;
        // The electric figure in kWh, in MWh from the first that passes 1000.
        double kwh = si ? v * 277.7778 : v * 1e6 / 3413;
        if (kwh > 1000) thousands = true;
        if (thousands) kwh /= 1e3;
        const double whole = std::trunc(kwh);
        const std::string t =
            "(" +
            (std::abs(whole) < 1e15 ? std::to_string(static_cast<long long>(whole))
                                    : NumText(whole)) +
            " )";
        Label(f, "kwh_" + std::to_string(i), t, color);
        Text(canvas, s, x - 150, 5450, t, color);
    }
    Label(f, "kwh_head", thousands ? "MWh" : "kWh");
    Text(canvas, s, 300, 5450, thousands ? "MWh:" : "kWh:", kBlack);
    const std::string eui = si ? " MJ/sq.m." : " kBtu/sq.ft.";
    Text(canvas, s, 300, 6000,
         "Site EUI = " + Rounded(e.SiteEUI, 1) + eui +
             "    Source EUI = " + Rounded(e.SourceEUI, 1) + eui,
         kBlack, 9);
}

namespace {

void MonthAxis(Canvas& c, const Scaler& s, double scale, int startMonth) {
    c.Line(s.X(1300), s.Y(1500), s.X(1300), s.Y(5000), kBlack);
    c.Line(s.X(1300), s.Y(5000), s.X(8300), s.Y(5000), kBlack);
    for (int i = 1; i <= 4; ++i) {
        const double y = 5000 - i * 3500.0 / 4;
        Text(c, s, 300, y - 100, NumText(RoundOff(i * scale / 4, 3)), kBlack);
        c.Line(s.X(1200), s.Y(y), s.X(1300), s.Y(y), kGrey);
    }
    for (int m = 0; startMonth + m < 12; ++m) {
        const double x = 1450 + 600.0 * m;
        Text(c, s, x - 150, 5150, kMonths[startMonth + m], kBlack);
    }
}

// A chain of lines between month points; `values` is on calendar months.
template <std::size_t N>
void Series(Canvas& c, const Scaler& s, const std::array<std::optional<double>, N>& values,
            int startMonth, double scale, Color color, double factor = 1) {
    bool have = false;
    int px = 0, py = 0;
    for (int m = 0; m < 12; ++m) {
        if (startMonth + m >= 12) break;
        const auto& v = values[startMonth + m];
        if (!v) {
            have = false;
            continue;
        }
        const int x = s.X(1450 + 600.0 * m), y = s.Y(5000 - *v * factor * 3500 / scale);
        if (have) c.Line(px, py, x, y, color);
        c.FillBox(x - 2, y - 2, x + 2, y + 2, color);
        px = x, py = y, have = true;
    }
}

}  // namespace

void DrawMonthlyEnergy(const MonthlyEnergy& e, const ChartHead& head, ScreenFields& f,
                       Canvas& canvas) {
    const Scaler s{canvas};
    const bool si = e.units.si();
    const std::string unit = si ? "GJoules" : "MBtu";
    Head(f, canvas, s, head, "Monthly Heating and Cooling Energy", "");
    Label(f, "Label4", unit);
    Text(canvas, s, 300, 1100, unit, kBlack);
    MonthAxis(canvas, s, e.scale, e.startMonth);
    Series(canvas, s, e.heating, e.startMonth, e.scale, kFirstSeries);
    Series(canvas, s, e.cooling, e.startMonth, e.scale, kSecondSeries, si ? 3.6 / 1e3 : 3413 / 1e6);
    const std::string heating = "Total Heating Energy = " + Rounded(e.totalHeating, 2) + " " + unit;
    const std::string cooling =
        "Total Cooling Energy = " + Rounded(CoolingInHeatingUnit(e.totalCoolingKwh, e.units), 2) +
        " " + unit;
    Label(f, "Totheat", heating, kFirstSeries);
    Label(f, "Totcool", cooling, kSecondSeries);
    Text(canvas, s, 1300, 5700, "Heating Energy", kFirstSeries, 9);
    Text(canvas, s, 1300, 6000, heating, kFirstSeries, 9);
    Text(canvas, s, 5200, 5700, "Cooling Energy", kSecondSeries, 9);
    Text(canvas, s, 5200, 6000, cooling, kSecondSeries, 9);
}

void DrawMonthlyCosts(const MonthlyCosts& c, const ChartHead& head, ScreenFields& f,
                      Canvas& canvas) {
    const Scaler s{canvas};
    Head(f, canvas, s, head, "Monthly Utility Costs", "");
    Label(f, "Label4", "$");
    Text(canvas, s, 300, 1100, "$", kBlack);
    MonthAxis(canvas, s, c.scale, c.startMonth);
    // The months only: a run that ends before December has its period's
    // figures in the month after its last, which is not plotted.
    const auto months = [&](std::array<std::optional<double>, 13> t) {
        t[c.periodIndex].reset();
        return t;
    };
    Series(canvas, s, months(c.gas), c.startMonth, c.scale, kFirstSeries);
    Series(canvas, s, months(c.elec), c.startMonth, c.scale, kSecondSeries);
    Series(canvas, s, months(c.total), c.startMonth, c.scale, kTotalSeries);
    const auto year = [&](const std::array<std::optional<double>, 13>& t) {
        return t[c.periodIndex].value_or(0.0);
    };
    const std::string gas = "Total Gas Costs = $ " + Rounded(year(c.gas), 0);
    const std::string elec = "Total Elec. Costs = $ " + Rounded(year(c.elec), 0);
    const std::string total = "Total Costs = $ " + Rounded(year(c.total), 0);
    Label(f, "Totheat", gas, kFirstSeries);
    Label(f, "Totcool", elec, kSecondSeries);
    Label(f, "Tottotal", total, kTotalSeries);
    Text(canvas, s, 1300, 5700, "Gas Cost", kFirstSeries, 9);
    Text(canvas, s, 1300, 6000, gas, kFirstSeries, 9);
    Text(canvas, s, 4000, 5700, "Elec. Cost", kSecondSeries, 9);
    Text(canvas, s, 4000, 6000, elec, kSecondSeries, 9);
    Text(canvas, s, 6700, 5700, "Total", kTotalSeries, 9);
    Text(canvas, s, 6700, 6000, total, kTotalSeries, 9);
}

void DrawPeakChart(const ComponentLoads& l, LoadView view, const ChartHead& head, ScreenFields& f,
                   Canvas& canvas) {
    const Scaler s{canvas};
    const bool si = l.units.si();
    static constexpr const char* kTitles[] = {"Annual Cooling Loads", "Annual Heating Loads",
                                              "Peak Cooling Loads", "Peak Heating Loads"};
    static constexpr const char* kButtons[] = {"annucool", "annuheat", "peakcool", "peakheat"};
    const int v = static_cast<int>(view);
    const bool peak = view == LoadView::PeakCooling || view == LoadView::PeakHeating;
    Head(f, canvas, s, head, kTitles[v], "");
    for (int b = 0; b < 4; ++b) f[kButtons[b]].enabled = b != v;

    const std::string unit = peak ? (si ? " kW " : "kBtuh") : (si ? "GJoules" : "MBtu");
    Label(f, "Label4", unit);
    std::string total = "Total " + std::string(kTitles[v]) + " = " + l.total;
    if (!peak) {
        total += si ? " GJoules." : " MBtu.";
    } else {
        // "DEC 14 08:00": the time, then " on" and the day.
        const std::string& d = l.peakDateText;
        const auto space = d.rfind(' ');
        total +=
            (si ? " kW @ " : " kBtuh @ ") +
            (space == std::string::npos ? d : d.substr(space + 1) + " on " + d.substr(0, space));
    }
    Label(f, "Totheat", total);

    const double scale = l.scale;
    Text(canvas, s, 300, 1000, unit, kBlack);
    canvas.Line(s.X(1300), s.Y(1600), s.X(1300), s.Y(5400), kBlack);
    canvas.Line(s.X(1300), s.Y(3500), s.X(8500), s.Y(3500), kBlack);
    for (int k = 1; k <= 2; ++k) {
        const std::string t = NumText(RoundOff(scale * k / 2, 3));
        Label(f, "pluslb_" + std::to_string(k), t);
        Label(f, "minlb_" + std::to_string(k), "-" + t);
        Text(canvas, s, 300, 3500 - 1900.0 * k / 2 - 100, t, kBlack);
        Text(canvas, s, 300, 3500 + 1900.0 * k / 2 - 100, "-" + t, kBlack);
    }
    for (int i = 1; i <= 9; ++i) {
        const Color color = PeakCategoryColor(i);
        const double value = l.value[i - 1];
        const double x = 1500 + 800.0 * (i - 1);
        Bar(canvas, s, x, 400, 3500, value * 1900 / scale, color);
        const std::string shown = Rounded(value, 2);
        Label(f, "valcat_" + std::to_string(i), shown, color);
        Label(f, "catlabel_" + std::to_string(i), l.label[i - 1], color);
        const double labelY = 3500 - value * 1900 / scale + (value >= 0 ? -250 : 50);
        Text(canvas, s, x - 100, labelY, shown, color, 7);
        // The category names as a numbered key under the chart.
        const double keyX = i <= 5 ? 1300 : 5200;
        const double keyY = 5600 + 280.0 * ((i - 1) % 5);
        Text(canvas, s, keyX, keyY, std::to_string(i) + "  " + l.label[i - 1], color, 8);
        Text(canvas, s, x + 120, 5420, std::to_string(i), kGrey, 7);
    }
}

}  // namespace solvane
