// The first pages of the results file: the echo of the run's inputs that the
// engine's report is appended to. Its weather block carries the anchor and
// the units line that the results reader looks for.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "core/program_paths.h"
#include "core/project_model.h"
#include "run/engine_contract.h"

namespace solvane {

struct ReportStamp {
    std::string date;  // "11-23-2026"
    std::string time;  // "20:31:05"
};

// What the report takes from files beside the model.
struct ReportFiles {
    // The systems table (\codes\tcool9.dat) as its lines stand.
    std::string hvacSystems;
    // The light shelves (\temp\ltshlf.dat); empty when there are none.
    std::string lightShelves;
    // Floors of the building and the room height of each level [1..], from
    // the sketch's levels (\sketch\bld_mtx.all).
    int floors = 0;
    std::vector<float> roomHeight;
    // Heating fuels [1..3] of \codes\HTfuel.txt: name and efficiency text.
    std::array<std::string, 4> fuelName, fuelEfficiency;
};

struct InputReport {
    std::string text;
    // One line per zone profile that is not set, for the user.
    std::vector<std::string> warnings;
};

// The whole echo of the inputs, in the project's units: banner, run summary,
// analysis page with location and weather, economics, catalogs, HVAC systems,
// light shelves, the building (section I) and each zone (section II) with the
// compliance figures.
InputReport WriteInputReport(const ProjectModel& model, const RunSettings& run,
                             const ReportStamp& stamp, const ReportFiles& files);

// The report's files as the program folder holds them; the systems table is
// made from the HVAC catalog of the code when \codes\tcool9.dat is absent.
ReportFiles ReadReportFiles(const ProjectModel& model, const ProgramPaths& paths);

}  // namespace solvane
