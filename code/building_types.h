// The building type table: forty rows of defaults read once at start-up from
// \Codes\BType2020-Defaults.txt, the envelope class a type falls in, and the
// energy-use benchmark pair of a type.
#pragma once

#include <string>

#include "core/program_paths.h"
#include "core/project_model.h"
#include "core/session.h"

namespace solvane {

inline constexpr const char* kBuildingTypeFile = "\\Codes\\BType2020-Defaults.txt";

// Reads the whole table into `model.btypes`. Throws ReadError when the file is
// missing or short.
void LoadBuildingTypeTable(ProjectModel& model, const ProgramPaths& paths);
// The same from the file's text; `fileName` is what a ReadError names.
void LoadBuildingTypeTable(ProjectModel& model, std::string text, const std::string& fileName);

// The start-up hook: the table of the session's program folder.
void LoadBuildingTypes(Session& session);

// People per 1000 floor area units of a type (column 6), reading the table
// first when it is not yet held.
double BuildingTypeOccupancy(Session& session, int buildingType);

// Outdoor air per unit floor area of a row: the people rate times the density
// per 1000, plus the area rate when the density is below 100.
float DefaultOutdoorAir(const std::array<float, 20>& column);

// The benchmark pair of a type for the energy-use comparison, and the
// captions of its two sub-kinds (empty for a type without them).
struct Benchmark {
    float first = 0, second = 0;
    std::string firstCaption, secondCaption;
};
Benchmark ComputeBenchmark(const ProjectModel& model, int buildingType);

}  // namespace solvane
