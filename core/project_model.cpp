#include "core/project_model.h"

namespace solvane {

FixedLabels MakeFixedLabels() {
    FixedLabels f;
    const char* regions[] = {"USA",    "Canada",     "Africa", "Asia",
                             "Europe", "CS-America", "Russia", "Australia-SW-Pacific"};
    for (int i = 0; i < 8; ++i) f.RegionName[i + 1] = regions[i];
    const char* months[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                            "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    for (int i = 0; i < 12; ++i) f.MonthName[i + 1] = months[i];
    const char* weather[] = {"DB Ave:   ", "Ave Std:  ", "DB Max:   ", "Max Std:  ",
                             "DP Ave:   ", "DP Std:   ", "Solar:    ", "Wind:     "};
    for (int i = 0; i < 8; ++i) f.WeatherLabel[i + 4] = weather[i];
    for (int i = 1; i <= 3; ++i) f.SurfaceClassLabel[i] = "Roof";
    for (int i = 4; i <= 8; ++i) f.SurfaceClassLabel[i] = "Wall";
    f.SurfaceClassLabel[9] = "Floor";
    f.SurfaceClassLabel[10] = "Slab";
    f.SurfaceClassLabel[11] = "Door";
    for (int i = 12; i <= 76; ++i) f.SurfaceClassLabel[i] = "Other";
    const char* ground[] = {"Aspht", "Conc.", "Grass", "Trees", "Water", "Sky *", "Edge"};
    for (int i = 0; i < 7; ++i) f.GroundCoverLabel[i + 1] = ground[i];
    const char* belowGrade[] = {"BG1", "BG2", "BG3", "BG4", "BG5", "BG6+"};
    for (int i = 0; i < 6; ++i) f.GroundCoverLabel[71 + i] = belowGrade[i];
    f.DayTypeLabel[1] = "\"M-F\"";
    f.DayTypeLabel[2] = "\"Sat\"";
    f.DayTypeLabel[3] = "\"Sun\"";
    f.UnitsLabel[1] = "IP";
    f.UnitsLabel[2] = "SI";
    f.CodeTitle[0] = "Energy code not selected. Do this before proceeding.";
    f.CodeTitle[1] = "90.1-2010 (Basic Version)";
    f.CodeTitle[2] = "90.1-2019 (Latest Version)";
    f.CodeTitle[3] = "189.1-2017 (Green Buildings)";
    // Classic palette entries 0, 0, 13 and 2: black, black, light magenta, green.
    f.CodeColor = {0x000000, 0x000000, 0xFF00FF, 0x008000};
    f.RuleLine = std::string(129, '=');
    return f;
}

}  // namespace solvane
