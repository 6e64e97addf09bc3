#include "run/input_report.h"

#include "core/line_writer.h"
#include "core/numeric_helpers.h"

namespace solvane {

namespace {

constexpr const char* kWeekdays[] = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                     "Thursday", "Friday", "Saturday"};

constexpr const char* kMonthCaptions[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                          "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

void FormFeed(LineWriter& out) {
    out.Line("\f");
}

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

void RunSummary(LineWriter& out, const RunSettings& run, int year) {
    out.Column(50).Text("SUMMARY OF SIMULATION PERIOD:").EndLine();
    if (run.WeatherType != 0) {
        out.Column(50).Text("This run uses real weather data recorded").EndLine();
        out.Column(50).Text("for the period of " + run.BeginDate + " to " + run.EndDate + ".");
    } else {
        out.Column(50).Text("Simulation period is: " + run.BeginDate + " to " + run.EndDate + ".");
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

void PageHead(LineWriter& out, const ProjectModel& m, const ReportStamp& stamp, int& page) {
    PrintPageFooter(out, page);
    const auto& d = m.ProjectData;
    out.Text("*** PROJECT:     " + d[kProjName]).Column(75).Text("LOCATION:     " + d[kLocation]);
    out.EndLine();
    out.Text("    DESCRIPTION: " + d[kProjDesc])
        .Column(75)
        .Text("Design Phase: " + d[kDesignStage]);
    out.EndLine();
    out.Text("    TYPE:        " + d[kBldType]).Column(75).Text("SCHEME:       " + d[kSchemeNum]);
    out.EndLine();
    out.Text("    WEATHER YR.: " + d[kConYear]).Column(75);
    out.Text("Date of Run:  " + stamp.date + ", " + stamp.time).EndLine();
}

void WeatherRow(LineWriter& out, int column, const char* label, const std::string& values) {
    out.Column(column).Text(label).Column(46).Text(values).EndLine();
}

void AnalysisPage(LineWriter& out, const ProjectModel& m, const ReportStamp& stamp, int& page) {
    const bool si = m.session.Units == 2;
    const ClimateState& c = m.climate;
    PageHead(out, m, stamp, page);
    out.Line();
    out.Text(" DATE: ").Column(16).Text(stamp.date + ", " + stamp.time).EndLine();
    out.Text(" ANALYSIS FOR: ").Column(16).Text(m.ProjectData[kProjName]).EndLine();
    out.Column(16).Text(m.ProjectData[kProjDesc]).EndLine();
    out.Text(" ENERGY CODE:").Column(16).Text(m.session.CodeName).EndLine();
    out.Line();
    out.Column(4).Text("LOCATION: " + m.ProjectData[kLocation]);
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

std::string InputReportText(const ProjectModel& m, const RunSettings& run,
                            const ReportStamp& stamp) {
    LineWriter out;
    int page = 0;
    Banner(out);
    FormFeed(out);
    RunSummary(out, run, RunYear(run.WeatherYear));
    FormFeed(out);
    AnalysisPage(out, m, stamp, page);
    return out.Str();
}

}  // namespace solvane
