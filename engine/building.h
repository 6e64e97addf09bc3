// The engine's own description of a building: plain records that the heat
// balance reads. They are filled from a project (project_translation.h) or
// directly by tests. SI units throughout.
#pragma once

#include <array>
#include <limits>
#include <string>
#include <vector>

#include "engine/construction.h"
#include "engine/glazing.h"

namespace solvane::engine {

// A profile of 24 hourly values (hour ending 1 a.m. first) for each of the
// three day types: weekdays, Saturday, Sunday (holidays count as Sunday).
struct WeekProfile {
    std::array<std::array<double, 24>, 3> values{};

    static WeekProfile Constant(double v);
    // Value for a weekday (0 Sunday .. 6 Saturday) and hour 0..23.
    double At(int weekday, int hour) const {
        const int type = weekday == 0 ? 2 : (weekday == 6 ? 1 : 0);
        return values[type][hour];
    }
};

// A window type: glazing unit (its optics come from it) and visible
// transmittance.
struct WindowType {
    std::string name;
    GlazingLayers glazing;
    double visibleTransmittance = 0.8;
};

// External shading of a window, in proportion to the window: an overhang of
// depth `overhangProjection` times the window's height whose underside
// stands `overhangGap` times the window's height above its head, and fins at
// its sides of depth `...FinProjection` times its width.
struct WindowShading {
    double overhangProjection = 0;
    double overhangGap = 0;
    double overhangTransmittance = 0;  // 0 opaque; above 0 a transmitting overhang
    double leftFinProjection = 0;
    double rightFinProjection = 0;
    double obstruction = 0;  // share of the sky and beam hidden by obstructions in front, 0..1
    // Interior venetian blind: 0 none, 1 drawn when the beam on the glass
    // passes the threshold, 5 always drawn.
    int blind = 0;
};

struct Window {
    int type = 0;         // index into Building::windowTypes
    double area = 0;      // m2
    double height = 1.5;  // m
    double width = 0;     // m, 0 when unknown (fins then use the height)
    WindowShading shading;
};

enum class SurfaceClass { Roof, Wall, Floor, Door, InternalMass };

enum class Boundary {
    Outdoors,         // sun, wind and sky
    OutdoorAirNoSun,  // shaded and sheltered: outdoor air temperature, still air
    Ground,           // the ground below or beside: `groundTemperature`, or monthly ground
    Adiabatic,        // no heat across the outside face (internal mass, interior partitions)
};

struct Surface {
    std::string name;
    SurfaceClass kind = SurfaceClass::Wall;
    int construction = 0;  // index into Building::constructions
    double area = 0;       // m2, gross: windows included
    double azimuth = 180;  // degrees clockwise from north of the outward normal
    double tilt = 90;      // degrees from horizontal (0 roof, 90 wall, 180 floor facing down)
    Boundary boundary = Boundary::Outdoors;
    double groundReflectance = 0.2;
    double height = 3.0;  // m, of the surface's centre above the ground (for the wind)
    // Ground side: a fixed temperature (C) when not NaN, otherwise the
    // monthly ground temperatures of the weather; `groundResistance` is the
    // soil path between (m2K/W).
    double groundTemperature = std::numeric_limits<double>::quiet_NaN();
    double groundResistance = 0.0;
    std::vector<Window> windows;
};

// Internal gains of a zone: peak values times their profiles.
struct ZoneGains {
    double peopleSensible = 0;                                          // W at profile 1
    double peopleLatent = 0;                                            // W
    double lights = 0;                                                  // W
    double equipment = 0;                                               // W
    int peopleProfile = -1, lightsProfile = -1, equipmentProfile = -1;  // -1: always 1
    double peopleRadiant = 0.6, lightsRadiant = 0.6, equipmentRadiant = 0.3;
};

// Daylighting (daylighting.h): the share of the zone's lights in its daylit
// part, that part's average daylight factor (%) and the target (lux).
struct ZoneDaylighting {
    double share = 0;
    double daylightFactor = 0;
    double targetLux = 0;
};

struct Zone {
    std::string name;
    std::string number;  // the project's zone number text, such as 1-1
    double floorArea = 0;
    double volume = 0;
    std::vector<Surface> surfaces;
    double infiltrationAch = 0;  // air changes per hour of site air
    double outdoorAirFlow = 0;   // m3/s of site air while `outdoorAirProfile` is above 0
    int outdoorAirProfile = -1;
    // Natural ventilation: at most this flow (m3/s of site air) through open
    // windows whenever the outdoor air can cool the zone down to its venting
    // temperature: the middle of the hour's heating and cooling set-points
    // (the comfort zone's limits where one is missing), not below the
    // comfort zone's lower limit; 0 never.
    double naturalVentFlow = 0;
    ZoneGains gains;
    ZoneDaylighting daylight;
    int heatingSetpointProfile = -1;                                   // C; -1: never heat
    int coolingSetpointProfile = -1;                                   // C; -1: never cool
    bool conditioned = true;                                           // false: the zone floats
    double heatingCapacity = std::numeric_limits<double>::infinity();  // W
    double coolingCapacity = std::numeric_limits<double>::infinity();  // W
    double furnitureCapacity = 0;                                      // J/K added to the air node
};

// Terrain around the site, for the wind at a surface's height: the power
// law of ASHRAE Fundamentals (2017) ch. 24 with the weather station in open
// country (exponent 0.14, layer 270 m, anemometer at 10 m).
struct Terrain {
    double exponent = 0.14;       // 0.14 open country, 0.22 suburbs, 0.33 city
    double layerThickness = 270;  // m: 270, 370, 460
};

struct Building {
    Terrain terrain;
    std::vector<Construction> constructions;
    std::vector<WindowType> windowTypes;
    std::vector<WeekProfile> profiles;
    std::vector<Zone> zones;
};

}  // namespace solvane::engine
