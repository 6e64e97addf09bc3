// The code compliance figures of a zone or of the whole building: envelope
// conductance and areas, glazing percentages, lighting power density and
// ventilation rates, in the project's units.
#pragma once

#include "core/project_model.h"

namespace solvane {

struct ComplianceFigures {
    // Roofs (exposure 6) and above-grade walls (exposures 1 to 5): gross
    // area, U x A of the opaque part plus that of the glass, glass area.
    double roofUA = 0, roofArea = 0, skylightArea = 0;
    double wallUA = 0, wallArea = 0, windowArea = 0;
    double watts = 0, floorArea = 0;
    double outdoorAir = 0, people = 0;  // CFM or L/s, persons

    double EnvelopeUA() const { return roofUA + wallUA; }
    double EnvelopeArea() const { return roofArea + wallArea; }
    double SkylightPercent() const { return roofArea > 0 ? 100 * skylightArea / roofArea : 0; }
    double WindowPercent() const { return wallArea > 0 ? 100 * windowArea / wallArea : 0; }
    double LightingPowerDensity() const { return floorArea > 0 ? watts / floorArea : 0; }
    double AirPerPerson() const { return people > 0 ? outdoorAir / people : 0; }
    double AirPerArea() const { return floorArea > 0 ? outdoorAir / floorArea : 0; }

    ComplianceFigures& operator+=(const ComplianceFigures& o);
};

// The figures of zone `z` (1..NumZones).
ComplianceFigures ZoneCompliance(const ProjectModel& model, int z);
// The sum over all zones.
ComplianceFigures BuildingCompliance(const ProjectModel& model);

// Outdoor air of a zone from its field 9: "CP" per person, "CS" per unit
// floor area, "PA" percent of a supply of 1 CFM per sq.ft. (5.08 L/s per
// sq.m.); a value without a prefix counts per person.
double ZoneOutdoorAir(const ProjectModel& model, int z);

}  // namespace solvane
