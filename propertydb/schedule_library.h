// The schedule library \profiles\Schedules-Solv2020.txt: twelve named groups,
// each with seven profile types of three day types and 24 hourly values. The
// library fills the project's profile entries that are still empty.
#pragma once

#include "core/program_paths.h"
#include "core/project_model.h"
#include "core/session.h"
#include "ui/prompt.h"

namespace solvane {

inline constexpr const char* kScheduleLibraryFile = "\\profiles\\Schedules-Solv2020.txt";

// Reads the library into `LibraryProfile` and `LibraryProfileValue`, the type
// titles and group names, and copies each profile into the project's entry
// when that entry is empty. Thermostat values (types 6 and 7) are converted to
// whole degrees C in SI. Throws ReadError when the file is missing or short.
void LoadScheduleLibrary(ProjectModel& model, const ProgramPaths& paths);
// The hook form for start-up, the unit change and the project file reader.
void LoadScheduleLibrary(Session& session, Prompt& prompt);

// The zone description step on a new or re-sketched project: for each type,
// the building type's profile group enters the number table and its three
// days are copied from the library where the type was not edited (or the
// defaults were applied); the type is then used and edited.
void UseBuildingTypeProfiles(ProjectModel& model);

}  // namespace solvane
