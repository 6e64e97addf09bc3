// Rules on the fields of a zone record that more than one screen applies:
// the profile-group fields, the outdoor air text, the Yes/No columns, the
// internal mass floor, the lighting power by lamp type and the heating types.
#pragma once

#include <string>

#include "core/program_paths.h"
#include "core/project_model.h"

namespace solvane {

// Zone fields that hold a profile group: occupancy, hot water, lights,
// receptacles, fans, summer and winter thermostat (profile types 1..7).
inline constexpr int kProfileField[kProfileTypes + 1] = {0, 6, 8, 14, 16, 17, 18, 19};
// The profile type of a zone field, 0 when it holds none.
int ProfileTypeOfField(int field);

// Fields that take the building type's default group when they are 0.
bool TakesDefaultGroup(int field);

// The building type's default schedule group as text.
std::string DefaultGroupText(const ProjectModel& model);

// Outdoor air: blanks removed, the two-letter prefix kept, a value of 0
// replaced by the building type's default per unit area ("CS"), times 5.08
// in SI.
std::string NormaliseOutdoorAir(const ProjectModel& model, const std::string& text);

// " Yes", "Yes", " yes", "yes" give "Yes"; anything else "No".
std::string NormaliseYesNo(const std::string& text);
// A switch's click: " Yes" and "Yes" give "No", anything else "Yes".
std::string FlipYesNo(const std::string& text);

// The internal mass of a zone is never below 100 lb/sq.ft (488 kg/sq.m).
std::string InternalMassFloor(int units, const std::string& text);

// Lamp types of the `light` menu, 1..9, with their names.
inline constexpr int kLampTypes = 9;
const char* LampTypeName(int type);
// Lighting power for lamp type `type` in the project's building type and
// code: the code's power for the building scaled by the ratio of the
// building's reference lamp efficacy to that of `type`; text form, 2 decimals.
std::string LightingPowerText(const ProjectModel& model, int type);

// Heating efficiency of heating type 1..3 from \codes\HTfuel.txt: the four
// characters from column 16 of the type's line. Empty when it cannot be read.
std::string HeatingEfficiency(const ProgramPaths& paths, int type);

// The daylighting help text and its title.
extern const char* const kDaylightingHelpTitle;
std::string DaylightingHelpText();

}  // namespace solvane
