// The fifteen HVAC system types: their ratings from the efficiency file of the
// energy code, the `hvac` catalog screen, the cooling table \codes\tcool9.dat
// written for the engine, and the copy of a system's values into a zone.
#pragma once

#include <string>

#include "core/program_paths.h"
#include "core/project_model.h"
#include "core/session.h"
#include "ui/prompt.h"

namespace solvane {

inline constexpr int kHvacSystems = 15;
inline constexpr const char* kHvacCoolingFile = "\\codes\\tcool9.dat";

// "\codes/HVAC-Eff-gb.txt" for 189.1-2017 (code 3), "\codes/HVAC-Eff-90.txt" otherwise.
std::string HvacEfficiencyFile(int codeNum);

// One record of the efficiency file: the 15 items of system `system`, texts as
// written and numbers in text form. Throws ReadError when the file is missing
// or short.
HvacRow ReadHvacRecord(const ProgramPaths& paths, int codeNum, int system);

// Reads the code's file into `HvacCatalog` [1..15].
void LoadHvacCatalog(ProjectModel& model, const ProgramPaths& paths);

// The rows of the `hvac` screen as shown: `stpres`, `seer` and `temp` hold the
// column of the project's units.
struct HvacScreenRow {
    std::string id, Des, Feature, BldApp, stpres, seer, temp, fcost, mcost, Heater, HTCOP;
};

// Writes \codes\tcool9.dat from the screen's rows [1..15] in fixed columns.
// False when the file cannot be written.
bool WriteHvacCoolingFile(const std::array<HvacScreenRow, kHvacSystems + 1>& rows, int units,
                          const ProgramPaths& paths);
// The text of that file.
std::string HvacCoolingText(const std::array<HvacScreenRow, kHvacSystems + 1>& rows, int units);

// Copies system `system` into the zone screen's boxes `zone_20` and
// `zone_26` .. `zone_30` for zone `zone`, with the gas-heat cost rule, the
// water-cooled notice and the change marks of the zone screen.
void ApplyHvacSystem(ProjectModel& model, const ProgramPaths& paths, Prompt& prompt, int system,
                     int zone, bool showNotice, ScreenFields& zoneScreen);

// The water-cooled condenser notice, shown once in the life of the program
// for systems 1, 2, 5 and 7 (also used when focus enters zone field 27).
void HvacWaterCooledNotice(ProjectModel& model, Prompt& prompt, int system);

// Maintenance cost from a first cost: 3.7 % below system 4, 4 % for system 4,
// 4.5 % above, rounded to 2 decimals, text form in five characters.
std::string HvacMaintenanceCost(int system, double firstCost);

// The `hvac` screen: boxes `id_i`, `Des_i`, `Feature_i`, `BldApp_i`,
// `stpres_i`, `seer_i`, `temp_i`, `fcost_i`, `mcost_i`, `Heater_i`, `HTCOP_i`
// (i = 1..15), headings `Btype`, `Cat`, `CZone`, `code`, captions
// `stpres_caption`, `seer_caption`, `temp_caption`.
class HvacController {
  public:
    HvacController(Session& session, Prompt& prompt);

    // False (and back to the hub) when no code is chosen.
    bool Open();
    // A change typed in a box.
    void Edit(const std::string& column, int row, const std::string& text);
    Navigation Ok();
    void UpdateNotAvailable();  // Command1
    Navigation Close();         // Command2

    ScreenFields fields;
    bool HvacEdited = false;

  private:
    std::array<HvacScreenRow, kHvacSystems + 1> ScreenRows();
    Session& session_;
    Prompt& prompt_;
};

}  // namespace solvane
