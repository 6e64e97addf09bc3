// The zone staging files \temp\temp<zone number>.zon: one value a line, for
// each surface its fourteen values in table order, closed by the line "end".
// The sketch writes them, the zone description step reads them into the
// surface tables.
#pragma once

#include <string>

#include "core/program_paths.h"
#include "core/project_model.h"

namespace solvane {

// "\temp\temp" + zone number + ".zon".
std::string ZoneFileName(const std::string& zoneNumber);

// The floor of a zone number text: "12-3" is 12.
int ZoneFloor(const std::string& zoneNumber);

// Reads surfaces 1 .. ZoneSurfaceCount of `zone` from its file, stopping at
// "end"; the count becomes the number of surfaces read. Throws ReadError when
// the file is missing or ends early.
void ReadZoneFile(ProjectModel& model, const ProgramPaths& paths, int zone);

// The second pass after a re-sketch of a described project: a surface whose
// rounded area or orientation differs from the file's keeps what the tables
// hold; any other takes all fourteen values of the file. A window then larger
// than the file's area becomes 0.2 of that area.
void ReadZoneFileKeeping(ProjectModel& model, const ProgramPaths& paths, int zone);

// The file text of a zone's surfaces as the tables hold them; the two texts
// stand in quotes so that their blanks are kept.
std::string ZoneFileText(const ProjectModel& model, int zone);

}  // namespace solvane
