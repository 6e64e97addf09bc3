#include "run/engine_contract.h"

#include <cctype>

#include "core/line_writer.h"
#include "core/numeric_helpers.h"
#include "core/text_file.h"
#include "projectfile/file_dialogs.h"
#include "projectfile/project_file.h"

namespace solvane {

namespace {

constexpr const char* kMonths[] = {"jan", "feb", "mar", "apr", "may", "jun",
                                   "jul", "aug", "sep", "oct", "nov", "dec"};

constexpr const char* kFixedSeed = ".83766422";

}  // namespace

int FirstDayOfYear(int year) {
    const int y = year - 1980;
    // Floor division keeps years before 1980 on the same weekly cycle.
    const int leaps = (y + 3) >= 0 ? (y + 3) / 4 : -((-(y + 3) + 3) / 4);
    return 1 + (((2 + y + leaps) % 7) + 7) % 7;
}

int RunYear(const std::string& weatherYearText) {
    int year = static_cast<int>(NumVal(weatherYearText));
    if (year < 100) year += 2000;
    return year;
}

std::optional<int> ParseRunDate(const std::string& text, int year) {
    std::size_t i = 0;
    while (i < text.size() && text[i] == ' ') ++i;
    int day = 0, digits = 0;
    while (i < text.size() && std::isdigit(static_cast<unsigned char>(text[i])) && digits < 2) {
        day = day * 10 + (text[i++] - '0');
        ++digits;
    }
    if (digits == 0 || i >= text.size() || text[i] != '-') return std::nullopt;
    ++i;
    if (i + 3 > text.size()) return std::nullopt;
    std::string month = text.substr(i, 3);
    for (char& c : month) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    for (int m = 1; m <= 12; ++m) {
        if (month != kMonths[m - 1]) continue;
        static constexpr int kDays[13] = {0, 31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
        if (day < 1 || day > kDays[m] || (m == 2 && day == 29 && !IsLeapYear(year)))
            return std::nullopt;
        return DayNumber(year, m, day);
    }
    return std::nullopt;
}

std::string EngineHeadLine(const ProjectModel& model) {
    LineWriter line;
    line.Text("SOLVANE-2020 ").Text(model.session.WeatherSeed).Column(24);
    line.Num(static_cast<int>(model.session.InputFileVersion)).Text(" ");
    line.Text(model.session.Units == 2 ? "SI" : "IP");
    return line.Str();
}

bool WriteEngineInput(Session& session, Prompt& prompt, bool repeatWeatherSequence,
                      const std::function<double()>& random) {
    ProjectModel& m = session.model;
    m.session.InputFileVersion = 4;
    if (repeatWeatherSequence) {
        m.session.WeatherSeed = kFixedSeed;
    } else {
        std::string seed;
        while (seed.empty()) seed = WeatherSeedText(random());
        m.session.WeatherSeed = seed;
    }
    LineWriter out;
    out.Line(EngineHeadLine(m));
    try {
        if (m.session.Units == 2)
            WriteProjectFileToIP(session, out);
        else
            WriteProjectFile(session, out);
    } catch (const WriteError& e) {
        prompt.Ask(std::string("The engine's input could not be written: ") + e.what(), "Error",
                   Buttons::Ok, Icon::Exclamation);
        return false;
    }
    const auto path = session.paths.Resolve("\\temp\\ecalc$.inp");
    std::string why;
    if (!WriteFileAtomic(path, out.Str(), &why)) {
        prompt.Ask("The engine's input " + WriteFailureText(path, why) + ".", "Error", Buttons::Ok,
                   Icon::Exclamation);
        return false;
    }
    return true;
}

std::optional<std::string> ControlFileText(const RunSettings& s, int codeNum) {
    const int year = RunYear(s.WeatherYear);
    const auto begin = ParseRunDate(s.BeginDate, year);
    const auto end = ParseRunDate(s.EndDate, year);
    if (!begin || !end) return std::nullopt;

    LineWriter out;
    out.Text("Run type  : ").Text(NumText(s.RunType)).EndLine();
    out.Text("Wthr type : ");
    if (s.WeatherType == 0)
        out.Text(" 0");
    else
        out.Text(NumText(s.WeatherType)).NextZone().Num(1);
    out.EndLine();
    out.Text("1st day   : ").Num(FirstDayOfYear(year)).EndLine();
    out.Text("Run begin : ").Text(NumText(*begin)).EndLine();
    out.Text("Run end   : ").Text(NumText(*end)).EndLine();
    out.Text("Hourly out: ").Num(s.HourlyOutput ? 1 : 0).EndLine();
    out.Text("Code Num  : ").Num(codeNum).EndLine();
    out.Text("Skip month: ");
    for (int mth = 1; mth <= 12; ++mth)
        if (s.SkipMonth[mth]) out.Num(mth).Text(" ");
    out.EndLine();
    out.Text("Comfort   : ").Num(static_cast<float>(NumVal(s.ComfortLower)));
    out.Column(23).Num(static_cast<float>(NumVal(s.ComfortUpper))).EndLine();
    return out.Str();
}

}  // namespace solvane
