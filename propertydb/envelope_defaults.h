// The envelope defaults by climate: each \Bldg-Prop\ENV-Clim-<n>.txt holds, for
// every opaque construction and glazing type, nine values (three codes by
// three building classes). The load picks the value of the project's code and
// class, converts to SI where asked, and fills the wall and window catalogs.
#pragma once

#include <string>

#include "core/program_paths.h"
#include "core/project_model.h"
#include "core/session.h"
#include "ui/prompt.h"

namespace solvane {

inline constexpr int kCatalogScreenRows = 20;
// Title of the prompts that refuse a catalog screen without code, type or climate.
inline constexpr const char* kMissingSpecsTitle =
    "Missing speci"
    "fications.";

// Envelope class: 2 "Residential" for types 24 and 33, 3 "Semiheated" for
// type 39, else 1 "Nonresidential".
int BuildingClass(int buildingType);
const char* BuildingClassName(int buildingType);

// The numeric value of the leading part of the climate zone text ("4 A" is 4).
int ClimateNumber(const std::string& climateZone);

// "\Bldg-Prop\ENV-Clim-<n>.txt", n the last character of the climate number.
std::string EnvelopeFileName(int climateNumber);

// Parses the part of the climate file of one kind (1 walls, 2 windows) into
// `rows`, for the model's code, class, climate and units, and returns the
// economiser default of the header ("Yes" or "No"). Rows are filled from 1 as
// they are read: when the file is short the rows read stay and ReadError is
// thrown. A missing file throws ReadError before any row changes.
std::string ParseEnvelopeFile(const ProjectModel& model, const ProgramPaths& paths, int kind,
                              EnvelopeRows& rows);

// Fills `WallDefaults` and `WindowDefaults`, sets `EconDefault` and writes it
// to `ZoneEconCycle` [1..99], and copies rows 1 to 20 (all but the id) into
// the working wall and window catalogs.
void LoadEnvelopeDefaults(ProjectModel& model, const ProgramPaths& paths);
// The hook form used by the project file reader and the hub.
void LoadEnvelopeDefaults(Session& session, Prompt& prompt);

// Writes \profiles\B9Prof6.dat (a title beginning with "WALL") or
// \profiles\B9Prof7.dat: seven lines for each row from 1, up to 20 rows, ending
// at the first empty id; always in I-P. False when it cannot be written.
bool SaveCatalogFile(const std::string& screenTitle, const EnvelopeRows& rows, int units,
                     const ProgramPaths& paths);
std::string CatalogFileText(const EnvelopeRows& rows, int units);

}  // namespace solvane
