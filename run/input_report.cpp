#include "run/input_report.h"

#include <algorithm>

#include "core/numeric_helpers.h"
#include "run/report_layout.h"

namespace solvane {

namespace report {

void FormFeed(LineWriter& out) {
    out.Line("\f");
}

void PageHead(Page& p) {
    LineWriter& out = p.out;
    PrintPageFooter(out, p.number);
    const auto& d = p.model.ProjectData;
    // The left column's texts stop short of the right column.
    const auto left = [&d](int i) { return Cut(d[i], 57); };
    out.Text("*** PROJECT:     " + left(kProjName))
        .Column(75)
        .Text("LOCATION:     " + d[kLocation]);
    out.EndLine();
    out.Text("    DESCRIPTION: " + left(kProjDesc))
        .Column(75)
        .Text("Design Phase: " + d[kDesignStage]);
    out.EndLine();
    out.Text("    TYPE:        " + left(kBldType))
        .Column(75)
        .Text("SCHEME:       " + d[kSchemeNum]);
    out.EndLine();
    out.Text("    WEATHER YR.: " + left(kConYear)).Column(75);
    out.Text("Date of Run:  " + p.stamp.date + ", " + p.stamp.time).EndLine();
}

void NewPage(Page& p) {
    FormFeed(p.out);
    PageHead(p);
}

std::string Masked(double value, int digits, int width) {
    return FormatField(NumText(RoundOff(value, digits)), std::string(width, '@'));
}

std::string MaskedText(std::string_view text, int digits, int width) {
    return Masked(NumVal(text), digits, width);
}

std::string Cut(std::string_view text, std::size_t width) {
    return std::string(text.substr(0, width));
}

std::string HvacTypeName(int type) {
    static const char* const kNames[] = {
        "V.A.V. w/ parallel FCU",      "V.A.V. w/ reheat boxes",     "Packaged VAV w/ FCU (DX)",
        "Packaged VAV w/ reheat (DX)", "2-pipe CV FCU w/ chiller",   "WSHP, CV (DX)",
        "4-pipe CV FCU w/ chiller",    "Pkged term HP, CV (DX)",     "Pkged Rooftop HP, CV (DX)",
        "Pkged term CV AC(DX)",        "Pkged Rooftop CV AC(DX)",    "Residential AC (DX Split)",
        "Residential HP (DX Split)",   "Residential DX Window unit", "Evap. Cooler, CV Fan"};
    return type >= 1 && type <= 15 ? kNames[type - 1] : "";
}

std::string LightTypeName(int type) {
    static const char* const kNames[] = {
        "Low Pressure Sodium", "High Pressure Sodium", "Metal Halide",  "LED",
        "Fluorescent Tubular", "Compact Fluorescent",  "Mercury Vapor", "Tungsten Halogen",
        "Incandescent Bulb"};
    return type >= 1 && type <= 9 ? kNames[type - 1] : "";
}

namespace {

constexpr const char* kWeekdays[] = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                     "Thursday", "Friday", "Saturday"};

constexpr const char* kMonthCaptions[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                          "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

void Banner(LineWriter& out) {
    out.Line();
    out.Column(28).Text(
        "SOLVANE-2020   (B U I L D I N G   E N E R G Y   S I M U L A T I O N   S O F T W A R E)");
    out.EndLine().Line();
    out.Column(50).Text("*** Simulation Engine Version 22.1 ***").EndLine();
    out.Column(50).Text("        Professional Edition").EndLine();
    out.Column(50).Text("                ---").EndLine();
    out.Column(50).Text("SOLVANE 2020 project team").EndLine();
    out.Column(50).Text("Distributed with its source code").EndLine();
    out.Column(50).Text("All rights reserved by the authors").EndLine();
    out.Line();
}

// The month of a "dd-mmm" date, as its three letters.
std::string MonthOf(const std::string& date) {
    const std::size_t hyphen = date.find('-');
    return hyphen == std::string::npos ? date : date.substr(hyphen + 1, 3);
}

// The simulated days of the period outside the skipped months, in weeks, over
// the months they fall in.
float WeeksPerMonth(const RunSettings& run, int year) {
    const auto begin = ParseRunDate(run.BeginDate, year);
    const auto end = ParseRunDate(run.EndDate, year);
    if (!begin || !end || *end < *begin) return 0;
    int days = 0;
    std::array<bool, 13> touched{};
    for (int month = 1; month <= 12; ++month) {
        if (run.SkipMonth[month]) continue;
        const int first = DayNumber(year, month, 1);
        const int last = month == 12 ? DayNumber(year, 12, 31) : DayNumber(year, month + 1, 1) - 1;
        const int from = std::max(first, *begin), to = std::min(last, *end);
        if (to < from) continue;
        days += to - from + 1;
        touched[month] = true;
    }
    const auto months = std::count(touched.begin(), touched.end(), true);
    return months ? RoundOff(days / 7.0 / static_cast<double>(months), 1) : 0.0f;
}

void RunSummary(LineWriter& out, const RunSettings& run, int year) {
    out.Column(50).Text("SUMMARY OF SIMULATION PERIOD:").EndLine();
    if (run.WeatherType != 0) {
        out.Column(50).Text("This run uses real weather data recorded").EndLine();
        out.Column(50).Text("for the period of " + MonthOf(run.BeginDate) + " to " +
                            MonthOf(run.EndDate) + ".");
    } else {
        out.Column(50).Text("Simulation period is: " + run.BeginDate + " to " + run.EndDate + ".");
        out.EndLine();
        out.Column(50).Text("Weeks per month simulated will be " +
                            NumText(WeeksPerMonth(run, year)) + ".");
    }
    out.EndLine();
    std::string skipped;
    for (int i = 1; i <= 12; ++i) {
        if (!run.SkipMonth[i]) continue;
        if (!skipped.empty()) skipped += ", ";
        skipped += kMonthCaptions[i - 1];
    }
    if (!skipped.empty()) out.Column(30).Text("Unoccupied months are: " + skipped + ".").EndLine();
    out.Column(50)
        .Text("Year " + std::to_string(year) + " begins on " + kWeekdays[FirstDayOfYear(year) - 1] +
              ".")
        .EndLine();
}

void WeatherRow(LineWriter& out, int column, const char* label, const std::string& values) {
    out.Column(column).Text(label).Column(46).Text(values).EndLine();
}

void AnalysisPage(Page& p) {
    LineWriter& out = p.out;
    const ProjectModel& m = p.model;
    const bool si = p.si();
    const ClimateState& c = m.climate;
    PageHead(p);
    out.Line();
    out.Text(" DATE: ").Column(16).Text(p.stamp.date + ", " + p.stamp.time).EndLine();
    out.Text(" ANALYSIS FOR: ").Column(16).Text(m.ProjectData[kProjName]).EndLine();
    out.Column(16).Text(m.ProjectData[kProjDesc]).EndLine();
    out.Text(" ENERGY CODE:").Column(16).Text(m.session.CodeName).EndLine();
    out.Line();
    out.Column(4).Text(Cut("LOCATION: " + m.ProjectData[kLocation], 42));
    out.Column(47).Num(c.Latitude).Text(" DEG.LAT.");
    out.Column(64).Num(c.Longitude).Text(" DEG.LONG.");
    out.Column(81).Num(c.StandardMeridian).Text(" DEG.TIME ZONE");
    out.Column(102).Num(c.Elevation).Text(si ? " M.  ABOVE SEA LEVEL" : " FT. ABOVE SEA LEVEL");
    out.EndLine().Line();

    out.Column(4).Text("WEATHER INPUT DATA:").Column(49).Text("HDD = " + c.HDDText);
    out.Column(73)
        .Text("CDD = " + c.CDDText)
        .Column(97)
        .Text("Climate Zone=  " + m.session.ClimateZone);
    out.EndLine();
    out.Column(49)
        .Text("JAN   FEB   MAR   APR   MAY   JUN   JUL   AUG   SEP   OCT   NOV   DEC")
        .EndLine();
    out.Column(49);
    for (int i = 0; i < 12; ++i) out.Text(i < 11 ? "---   " : "---");
    out.EndLine();
    const auto& w = c.WeatherData;
    WeatherRow(out, 9, "AVERAGE DRY BULB TEMPERATURES....", w[4]);
    WeatherRow(out, 19, "STANDARD DEVIATIONS....", w[5]);
    out.Line();
    WeatherRow(out, 9, "AVERAGE DAILY MAX TEMPERATURES...", w[6]);
    WeatherRow(out, 19, "STANDARD DEVIATIONS....", w[7]);
    out.Line();
    WeatherRow(out, 9, "AVERAGE DEWPOINT TEMPERATURES....", w[8]);
    WeatherRow(out, 19, "STANDARD DEVIATIONS....", w[9]);
    out.Line();
    out.Column(9).Text(si ? "AVERAGE DAILY SOLAR WATT PER" : "AVERAGE DAILY SOLAR BTUS PER");
    out.EndLine();
    WeatherRow(out, 11, si ? "SQ.M. OF HORIZONTAL SURFACE...." : "SQ.FT. OF HORIZONTAL SURFACE...",
               w[10]);
    out.Line();
    WeatherRow(out, 9,
               si ? "AVERAGE WIND VELOCITY (M/S)......" : "AVERAGE WIND VELOCITY (MPH)......",
               w[11]);
}

}  // namespace

void EconomicsPage(Page& p) {
    LineWriter& out = p.out;
    const EconomicsState& e = p.model.economics;
    NewPage(p);
    out.Line();
    out.Column(5).Text("ECONOMIC DATA ...");
    out.Column(82).Text("ELECTRIC").Column(101).Text("GAS").Column(116).Text("WATER").EndLine();
    out.Column(9).Text("PROJECT LIFE  HVAC LIFE  SOLAR LIFE  DISCOUNT  BLDG. & MAINT COST");
    out.Column(75).Text("  $ PER   ESCALA-   $ PER   ESCALA-   $ PER   ESCALA-").EndLine();
    out.Column(9).Text("   (YRS)        (YRS)       (YRS)      RATE         ESCALATION    ");
    out.Column(75)
        .Text(p.si() ? "  KWH      TION      GJ      TION   1000 LIT   TION  "
                     : "  KWH      TION     THERM    TION   1000 GAL   TION  ")
        .EndLine();
    out.Column(9).Text(std::string(120, '-')).EndLine();
    static constexpr int kColumns[] = {13, 25, 37, 47, 63, 76, 85, 95, 103, 113, 121};
    for (int i = 0; i <= 10; ++i) {
        const std::string& v = e.EconomicsData[i];
        const std::size_t first = v.find_first_not_of(' ');
        const std::string value = first == std::string::npos ? "0.0" : v.substr(first);
        out.Column(kColumns[i]).Text(Cut(value.substr(0, value.find_last_not_of(' ') + 1), 8));
    }
    out.EndLine().Line();
    // The utility rates: the electric demand charge schedule.
    out.Column(9).Text("ELECTRIC DEMAND CHARGE:");
    if (e.NumDemandRates <= 0) {
        out.Column(37).Text("NONE").EndLine();
        return;
    }
    out.EndLine();
    out.Column(13).Text("STEP").Column(25).Text("KW INCREMENT").Column(47).Text("COST ($)");
    out.EndLine();
    out.Column(9).Text(std::string(50, '-')).EndLine();
    for (int i = 1; i <= std::min<int>(e.NumDemandRates, 3); ++i) {
        out.Column(13).Num(i).Column(25).Text(e.DemandRateLimit[i]);
        out.Column(47).Text(e.DemandRateCost[i]).EndLine();
    }
}

}  // namespace report

InputReport WriteInputReport(const ProjectModel& m, const RunSettings& run,
                             const ReportStamp& stamp, const ReportFiles& files) {
    LineWriter out;
    int page = 0;
    InputReport report;
    report::Page p{out, m, stamp, page, report.warnings};
    report::Banner(out);
    report::FormFeed(out);
    report::RunSummary(out, run, RunYear(run.WeatherYear));
    report::FormFeed(out);
    report::AnalysisPage(p);
    report::EconomicsPage(p);
    report::CatalogPages(p, files);
    report::BuildingSection(p, files);
    report::ZoneSection(p, files);
    report.text = out.Str();
    return report;
}

}  // namespace solvane
