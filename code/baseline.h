// The code baseline: the design's building as the selected standard's
// defaults would make it, to be run beside the design (docs/baseline.md).
#pragma once

#include <string>

#include "core/session.h"
#include "ui/prompt.h"

namespace solvane {

// The largest window share of the baseline's walls, in percent of the gross
// wall area.
inline constexpr double kBaselineWindowShare = 40;

// Zone fields the baseline takes from the building type's defaults for the
// code: lighting type, cost and power, the HVAC system and its efficiencies,
// the daylighting target.
inline constexpr int kBaselineZoneFields[] = {11, 12, 13, 20, 21, 22, 23,
                                              24, 25, 26, 27, 28, 29, 30};

// The window share of a project's exterior walls in percent (0 without walls).
double WindowShare(const ProjectModel& model);

// Turns the session's project into its baseline: the sketch, zones, people,
// schedules, loads, ventilation, thermostats and economics stay; the envelope
// catalogs come from the climate zone's defaults for the code and building
// class; the zone fields above from the building type's row for the code; the
// windows of every wall are scaled so that the share is at most
// kBaselineWindowShare. False, after telling the user, when the project has no
// code, building type or climate zone.
bool MakeBaseline(Session& session, Prompt& prompt);

}  // namespace solvane
