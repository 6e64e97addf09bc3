// The hourly output of a run: the `Hourly` screen that hands the three
// comma-separated files of \temp to the desktop's spreadsheet, and the
// program's own look at them: a zone's temperatures and the building's loads
// over a chosen week, and a year as a heat map of day by hour.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "core/session.h"
#include "ui/canvas.h"
#include "ui/prompt.h"

namespace solvane {

inline constexpr int kHourlyRows = 8760;

// A comma-separated file with a header row and numeric rows.
struct HourlyTable {
    std::vector<std::string> header;
    std::vector<std::vector<double>> rows;
};
// Nothing, with `error` naming the file and line, when a row is not numeric
// or has another count of fields than the header.
std::optional<HourlyTable> ParseHourlyCsv(const std::string& text, const std::string& fileName,
                                          std::string& error);

// The three files read together.
struct HourlyData {
    std::vector<std::string> zoneNames;
    std::vector<std::vector<double>> zoneTemperature;  // [zone][hour]
    std::vector<double> heating, cooling, outdoor;     // the building's loads, dry bulb
    std::string temperatureUnit = "F", loadUnit = "kBtuh";
};
std::optional<HourlyData> ReadHourlyData(const ProgramPaths& paths, std::string& error);

// The file of each `HryDisplay` choice, 1 to 3, under \temp.
const char* HourlyFile(int choice);

class HourlyController {
  public:
    // `open` hands a file to the desktop's spreadsheet; false when there is
    // none to take it or it could not be started.
    HourlyController(Session& session, Prompt& prompt,
                     std::function<bool(const std::filesystem::path&)> open);

    ScreenFields fields;  // caption, `HryDisplay` (value 0 none, 1..3)

    void Open();
    // `Action` [0] "Display it Now".
    bool ShowHourly();
    // `Action` [1] "Return to Tabular Menu".
    Navigation Return();

  private:
    Session& session_;
    Prompt& prompt_;
    std::function<bool(const std::filesystem::path&)> open_;
};

// The series a year map shows.
enum class HourlySeries { ZoneTemperature, Heating, Cooling, Outdoor };

// Draws a week (1 to 52, the 53rd holds the year's last day) of zone `zone`'s
// temperature with the outdoor dry bulb above, and the building's heating
// and cooling loads below. Fills `fields`' caption and "legend".
void DrawHourlyWeek(const HourlyData& data, int zone, int week, Canvas& canvas,
                    ScreenFields& fields);
// Draws the year of one series as 365 columns of 24 hours, coloured from the
// smallest value (blue) to the largest (red).
void DrawHourlyYear(const HourlyData& data, HourlySeries series, int zone, Canvas& canvas,
                    ScreenFields& fields);

}  // namespace solvane
