// From the project (as the engine's input file gives it, always in I-P) to
// the engine's building description, site and climate statistics.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/project_model.h"
#include "engine/building.h"
#include "engine/hvac_systems.h"
#include "engine/sizing.h"
#include "engine/synthetic_weather.h"
#include "engine/weather_data.h"

namespace solvane::engine {

struct ProjectRunInputs {
    Building building;
    std::vector<ZoneSystem> systems;  // one a zone of `building`
    Site site;                        // from the climate block
    MonthlyClimate climate;           // from the climate block
    std::string location;             // ProjectData [3]
    std::vector<std::string> notes;   // what was assumed or left out, for Monitor.txt
    // The project's design temperatures ("DesTemps"), when all three are given.
    std::optional<DesignConditions> design;
};

// Twelve numbers of a climate row (text after its label), blank separated.
std::array<double, 12> ClimateRow(const std::string& row);

// Station figures of climate line 2: latitude, longitude, standard meridian
// (degrees, negative west) and elevation (ft) behind the 50-character
// location text; numbers may touch ("39.83-104.65").
Site ClimateSite(const std::string& line2);

// One level of the building matrix (`bld_mtx.all`): its room height (ft)
// and number of floors, from the level's header lines ("Room Height",
// "No. of Flrs"), or the room height of its zone lines when the header has
// none.
struct LevelHeight {
    double roomHeight = 0, floors = 1;
};
std::vector<LevelHeight> ReadLevelHeights(const std::string& buildingMatrix);

// Builds the engine's records from the model and the building matrix (the
// text after "BUILDING MATRIX"):
// - walls and roofs: each catalog entry becomes the layered construction of
//   its assembly class with its U-factor and time lag (assembly.h), with its
//   solar absorptance outside;
// - the zone's storey: the room height of its level (volume, heights of
//   its surfaces for the wind);
// - windows: the clear-glass unit with the catalog U-factor and SHGC
//   (MatchGlazing), whose angular behaviour follows from Fresnel's laws;
// - surfaces by exposure: 1 to 5 walls over that ground cover, 6 roofs,
//   7 the slab's perimeter strip (to the monthly ground temperature) and 71
//   to 76 the slab core and below-grade parts (to the same monthly ground
//   temperature through more soil), after the two-region slab of ISO 13370;
// - shading words: R and L fins (depth over the window's width), F an
//   opaque and T a transmitting overhang (half of the beam passes) by its
//   projection factor, depth over the height from the sill to the
//   overhang's underside, the overhang standing at the top of the storey;
//   `Window Ht` is the height of the window's head above the floor;
// - zone field 4 as internal mass in lb per sq.ft of floor (concrete, both
//   faces in the room), people at 250 Btu/h sensible and 200 Btu/h latent
//   (ASHRAE Fundamentals, office work), lights and receptacles in W per
//   sq.ft with the radiant share of their kind, infiltration in air changes,
//   outdoor air by its prefix while the fan profile runs (CP per person, CS
//   per sq.ft, PA percent of a supply of 1 cfm per sq.ft), natural
//   ventilation at field 22 cfm per sq.ft when switched on, thermostats in
//   deg F from the profiles;
// - each zone's HVAC and heating types, efficiencies, fan static pressure
//   and service hot water become its `systems` entry (hvac_systems.h);
// - every field that this run does not simulate and that is set
//   (daylighting, the economiser, diffuse transmission, S/W/B, the
//   people's latent heat) is named in `notes` with its zone.
// `runType` 4 leaves every zone floating; 1 heats but does not cool.
ProjectRunInputs TranslateProject(const ProjectModel& model, int runType,
                                  const std::string& buildingMatrix);

}  // namespace solvane::engine
