// The files a run hands to the engine: the project in I-P with the engine's
// head line (temp\ecalc$.inp) and the run control file (temp\ecalc$.tmp).
#pragma once

#include <array>
#include <functional>
#include <optional>
#include <string>

#include "core/session.h"
#include "ui/prompt.h"

namespace solvane {

// What the run screen holds for one run.
struct RunSettings {
    int RunType = 3;  // 0, 1, 3 with HVAC; 4 comfort analysis without HVAC
    // 0 for simulated weather, else the recorded file's type number.
    int WeatherType = 0;
    std::string BeginDate = "1-Jan", EndDate = "31-Dec";  // "dd-mmm"
    std::string WeatherYear;                              // "20", "2021"...
    bool HourlyOutput = false;
    bool RepeatWeatherSequence = false;  // the fixed seed ".83766422"
    std::array<bool, 13> SkipMonth{};    // [1..12]
    std::string ComfortLower, ComfortUpper;
};

// Day of the week of 1 January (1 = Sunday).
int FirstDayOfYear(int year);

// The full year of the weather year text: below 100, 2000 is added.
int RunYear(const std::string& weatherYearText);

// The day number of a "dd-mmm" date in `year`; nothing when it is not a date.
std::optional<int> ParseRunDate(const std::string& text, int year);

// "SOLVANE-2020 " + seed, column 24, the format number, a blank, "IP" or "SI".
std::string EngineHeadLine(const ProjectModel& model);

// Writes temp\ecalc$.inp: the engine's head line, then the project in I-P
// (converted when the project is in SI). Draws a new weather seed unless the
// previous sequence is to be repeated. False after telling the user when it
// cannot be written.
bool WriteEngineInput(Session& session, Prompt& prompt, bool repeatWeatherSequence,
                      const std::function<double()>& random);

// The control file's text for a run; nothing when a date cannot be read.
std::optional<std::string> ControlFileText(const RunSettings& settings, int codeNum);

}  // namespace solvane
