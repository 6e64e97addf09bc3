#include "cli/run_summary_output.h"

#include <cmath>
#include <cstdio>

#include "core/numeric_helpers.h"
#include "core/text_file.h"

namespace solvane::cli {

namespace {

struct Units {
    const char* energy;
    const char* power;
    const char* eui;
};

Units UnitsOf(const RunSummary& s) {
    return s.energy.units.si() ? Units{"GJ", "kW", "MJ/m2"} : Units{"MBtu", "kBtuh", "kBtu/ft2"};
}

std::string Number(double v) {
    if (!std::isfinite(v)) return "null";
    char buf[32];
    std::snprintf(buf, sizeof buf, "%.6g", v);
    return buf;
}

// Dollars as whole numbers, never in exponent form.
std::string Dollars(double v) {
    if (!std::isfinite(v)) return "null";
    char buf[48];
    std::snprintf(buf, sizeof buf, "%.0f", v);
    return buf;
}

// The period's figure of a cost column ("null" without it).
std::string PeriodDollars(const MonthlyCosts& c, const std::array<std::optional<double>, 13>& t) {
    const auto& v = t[c.periodIndex];
    return v ? Dollars(*v) : "null";
}

// A load table's total as a JSON number, null when the table is missing.
std::string TotalOf(const std::optional<ComponentLoads>& t) {
    return t ? Number(NumVal(t->tableTotal)) : "null";
}

const char* RunTypeName(int runType) {
    return runType == 4 ? "passive" : "hvac";
}

}  // namespace

std::string JsonString(const std::string& text) {
    std::string out = "\"";
    for (unsigned char c : text) {
        switch (c) {
            case '"':
                out += "\\\"";
                break;
            case '\\':
                out += "\\\\";
                break;
            case '\n':
                out += "\\n";
                break;
            case '\r':
                out += "\\r";
                break;
            case '\t':
                out += "\\t";
                break;
            default:
                if (c < 0x20) {
                    char buf[8];
                    std::snprintf(buf, sizeof buf, "\\u%04x", c);
                    out += buf;
                } else {
                    out += static_cast<char>(c);
                }
        }
    }
    return out + "\"";
}

std::string WeatherUsed(const std::string& report) {
    const auto lines = SplitLines(report);
    for (std::size_t i = 0; i + 1 < lines.size(); ++i) {
        if (lines[i].find("WEATHER SUMMARY") == std::string::npos) continue;
        const std::string& next = lines[i + 1];
        const auto first = next.find_first_not_of(' ');
        return first == std::string::npos ? std::string() : next.substr(first);
    }
    return {};
}

void PrintSummaryText(const RunSummary& s, const SummaryContext& c, std::ostream& out) {
    const Units u = UnitsOf(s);
    const ProjectModel& m = c.model;
    out << "Project:  " << m.ProjectData[kProjName] << " -- " << m.ProjectData[kLocation] << "\n";
    out << "Period:   " << c.run.RunDates[0] << " to " << c.run.RunDates[1] << " "
        << c.run.WeatherYear << (m.flags.RunResultCode == 4 ? "  (comfort analysis, no HVAC)" : "")
        << "\n";
    if (!c.weather.empty()) out << "Weather:  " << c.weather << "\n";
    out << "\n";
    out << "Site EUI    " << Number(s.energy.SiteEUI) << " " << u.eui << "\n";
    out << "Source EUI  " << Number(s.energy.SourceEUI) << " " << u.eui << "\n\n";
    out << "Site energy by end use (" << u.energy << "):\n";
    double site = 0;
    for (int i = 1; i <= 6; ++i) {
        char line[64];
        std::snprintf(line, sizeof line, "  %-10s %10.2f\n", s.energy.CategoryName[i].c_str(),
                      s.energy.EnergyBreakdown[i]);
        out << line;
        site += s.energy.EnergyBreakdown[i];
    }
    char line[96];
    std::snprintf(line, sizeof line, "  %-10s %10.2f\n\n", "TOTAL", site);
    out << line;
    if (s.peakHeating)
        out << "Peak heating load  " << s.peakHeating->tableTotal << " " << u.power << " at "
            << s.peakHeating->peakDateText << "\n";
    if (s.peakCooling)
        out << "Peak cooling load  " << s.peakCooling->tableTotal << " " << u.power << "\n";
    if (s.annualHeating && s.annualCooling)
        out << "Annual loads       heating " << s.annualHeating->tableTotal << ", cooling "
            << s.annualCooling->tableTotal << " " << u.energy << "\n";
    if (s.costs)
        out << "Annual cost        $ " << PeriodDollars(*s.costs, s.costs->total) << " (gas "
            << PeriodDollars(*s.costs, s.costs->gas) << ", electric "
            << PeriodDollars(*s.costs, s.costs->elec) << ")\n";
    if (s.lifeCycle)
        out << "Life-cycle cost    $ " << Dollars(s.lifeCycle->presentWorth) << " (present worth, "
            << s.lifeCycle->years << " years at " << Number(s.lifeCycle->discountRate) << " %)\n";
    for (const auto& note : s.notAvailable) out << "Not available: " << note << "\n";
    out << "Simulation completed in " << FormatField(NumText(c.seconds), "####.##") << " Sec.\n";
}

void PrintSummaryJson(const RunSummary& s, const SummaryContext& c, std::ostream& out) {
    const Units u = UnitsOf(s);
    const ProjectModel& m = c.model;
    out << "{\n  \"schema\": \"solvane-run-summary/1\",\n";
    out << "  \"project\": {\"name\": " << JsonString(m.ProjectData[kProjName])
        << ", \"location\": " << JsonString(m.ProjectData[kLocation])
        << ", \"file\": " << JsonString(c.projectFile) << "},\n";
    out << "  \"units\": \"" << (s.energy.units.si() ? "SI" : "IP") << "\",\n";
    out << "  \"run\": {\"type\": \"" << RunTypeName(m.flags.RunResultCode)
        << "\", \"begin\": " << JsonString(c.run.RunDates[0])
        << ", \"end\": " << JsonString(c.run.RunDates[1])
        << ", \"year\": " << JsonString(c.run.WeatherYear)
        << ", \"weatherSeed\": " << JsonString(m.session.WeatherSeed)
        << ", \"weather\": " << JsonString(c.weather) << ", \"seconds\": " << Number(c.seconds)
        << "},\n";
    out << "  \"eui\": {\"unit\": \"" << u.eui << "\", \"site\": " << Number(s.energy.SiteEUI)
        << ", \"source\": " << Number(s.energy.SourceEUI) << "},\n";
    out << "  \"siteEnergy\": {\"unit\": \"" << u.energy << "\", \"byEndUse\": {";
    double site = 0;
    for (int i = 1; i <= 6; ++i) {
        out << (i > 1 ? ", " : "") << JsonString(s.energy.CategoryName[i]) << ": "
            << Number(s.energy.EnergyBreakdown[i]);
        site += s.energy.EnergyBreakdown[i];
    }
    out << "}, \"total\": " << Number(site) << "},\n";
    out << "  \"peakLoads\": {\"unit\": \"" << u.power
        << "\", \"heating\": " << TotalOf(s.peakHeating) << ", \"heatingTime\": "
        << (s.peakHeating ? JsonString(s.peakHeating->peakDateText) : "null")
        << ", \"cooling\": " << TotalOf(s.peakCooling) << "},\n";
    out << "  \"annualLoads\": {\"unit\": \"" << u.energy
        << "\", \"heating\": " << TotalOf(s.annualHeating)
        << ", \"cooling\": " << TotalOf(s.annualCooling) << "},\n";
    out << "  \"annualCost\": ";
    if (s.costs)
        out << "{\"gas\": " << PeriodDollars(*s.costs, s.costs->gas)
            << ", \"electric\": " << PeriodDollars(*s.costs, s.costs->elec)
            << ", \"total\": " << PeriodDollars(*s.costs, s.costs->total) << "}";
    else
        out << "null";
    out << ",\n  \"lifeCycleCost\": ";
    if (s.lifeCycle)
        out << "{\"years\": " << s.lifeCycle->years
            << ", \"discountRate\": " << Number(s.lifeCycle->discountRate / 100)
            << ", \"presentWorth\": " << Dollars(s.lifeCycle->presentWorth) << "}";
    else
        out << "null";
    out << ",\n  \"notAvailable\": [";
    for (std::size_t i = 0; i < s.notAvailable.size(); ++i)
        out << (i ? ", " : "") << JsonString(s.notAvailable[i]);
    out << "]\n}\n";
}

}  // namespace solvane::cli
