#include "engine/generated_building.h"

#include <algorithm>
#include <string>

namespace solvane::engine {

Building GenerateOfficeBuilding(int zones, int surfacesPerZone) {
    Building b;
    // Catalog-style constructions, fitted from U (W/m2K), lag (h), decrement.
    auto fitted = [](const char* name, double u, double lag, double dec, double abs) {
        Construction c = FitConstruction(u, lag, dec);
        c.name = name;
        c.outsideAbsorptance = abs;
        return c;
    };
    b.constructions = {fitted("steel frame wall", 0.36, 2, 0.9, 0.7),
                       fitted("mass wall", 0.45, 8, 0.3, 0.6), fitted("roof", 0.18, 3, 0.8, 0.65),
                       fitted("slab", 4.1, 6, 0.5, 0.0), fitted("partition", 2.0, 1, 0.95, 0.5)};
    WindowType w;
    w.name = "double low-e";
    w.glazing = MatchGlazing(2.4, 0.38);
    b.windowTypes = {w};
    WindowType sky;
    sky.name = "skylight";
    sky.glazing = MatchGlazing(2.8, 0.35);
    b.windowTypes.push_back(sky);
    // Profiles: office occupancy / lights / equipment, thermostats with set-back.
    WeekProfile occ, light, equip, heat, cool, fans;
    for (int d = 0; d < 3; ++d) {
        for (int h = 0; h < 24; ++h) {
            const bool work = d == 0 && h >= 7 && h < 18;
            const bool sat = d == 1 && h >= 8 && h < 13;
            occ.values[d][h] = work ? 0.9 : (sat ? 0.1 : 0.0);
            light.values[d][h] = work ? 0.9 : (sat ? 0.3 : 0.05);
            equip.values[d][h] = work ? 0.9 : (sat ? 0.4 : 0.2);
            heat.values[d][h] = (work || sat) ? 21.0 : 15.6;
            cool.values[d][h] = (work || sat) ? 24.0 : 29.4;
            fans.values[d][h] = (work || sat) ? 1.0 : 0.0;
        }
    }
    b.profiles = {occ, light, equip, heat, cool, fans};

    const int perFloor = std::max(1, std::min(zones, 10));
    const int floors = (zones + perFloor - 1) / perFloor;
    const double storey = 3.5;
    for (int z = 0; z < zones; ++z) {
        const int floor = z / perFloor, pos = z % perFloor;
        Zone zone;
        zone.number = std::to_string(floor + 1) + "-" + std::to_string(pos + 1);
        zone.name = "Office " + zone.number;
        zone.floorArea = 150 + 10 * (z % 7);
        zone.volume = zone.floorArea * storey;
        zone.infiltrationAch = 0.3;
        zone.outdoorAirFlow = zone.floorArea * 0.0004;
        zone.outdoorAirProfile = 5;
        zone.gains.peopleSensible = zone.floorArea / 10 * 73;
        zone.gains.peopleProfile = 0;
        zone.gains.lights = zone.floorArea * 9;
        zone.gains.lightsProfile = 1;
        zone.gains.equipment = zone.floorArea * 8;
        zone.gains.equipmentProfile = 2;
        zone.heatingSetpointProfile = 3;
        zone.coolingSetpointProfile = 4;
        const bool top = floor == floors - 1, ground = floor == 0;
        int made = 0;
        // Roof and floor where they meet the outside, partitions otherwise.
        Surface roof;
        roof.name = top ? "roof" : "ceiling";
        roof.kind = top ? SurfaceClass::Roof : SurfaceClass::InternalMass;
        roof.construction = top ? 2 : 4;
        roof.area = zone.floorArea;
        roof.tilt = 0;
        roof.height = storey * floors;
        roof.boundary = top ? Boundary::Outdoors : Boundary::Adiabatic;
        if (top && z % 3 == 0) {
            Window s;
            s.type = 1;
            s.area = 0.03 * zone.floorArea;
            roof.windows.push_back(s);
        }
        zone.surfaces.push_back(roof);
        ++made;
        Surface fl;
        fl.name = ground ? "slab" : "floor";
        fl.kind = ground ? SurfaceClass::Floor : SurfaceClass::InternalMass;
        fl.construction = ground ? 3 : 4;
        fl.area = zone.floorArea;
        fl.tilt = 180;
        fl.boundary = ground ? Boundary::Ground : Boundary::Adiabatic;
        fl.groundResistance = 1.0;
        zone.surfaces.push_back(fl);
        ++made;
        // Wall segments round the four sides until the count is reached; an
        // end zone has more outside wall, a middle zone partitions.
        const int segments = std::max(1, surfacesPerZone - made);
        for (int k = 0; k < segments; ++k) {
            const int side = k % 4;
            const double azimuth = side * 90.0 + 15.0;  // the building turned 15 degrees
            const bool outside = side == 0 || side == 2 || (side == 1 && pos == perFloor - 1) ||
                                 (side == 3 && pos == 0);
            Surface s;
            s.name = "wall " + std::to_string(k + 1);
            s.kind = outside ? SurfaceClass::Wall : SurfaceClass::InternalMass;
            s.construction = outside ? (k % 8 < 4 ? 0 : 1) : 4;
            s.area = 12.0 + 2.0 * (k % 3);
            s.azimuth = azimuth;
            s.tilt = 90;
            s.height = storey * (floor + 0.5);
            s.boundary = outside ? Boundary::Outdoors : Boundary::Adiabatic;
            if (outside && k % 2 == 0) {
                Window win;
                win.type = 0;
                win.area = 0.4 * s.area;
                win.height = 1.8;
                win.shading.overhangProjection = side == 2 ? 0.5 : 0.0;
                s.windows.push_back(win);
            }
            zone.surfaces.push_back(s);
        }
        b.zones.push_back(zone);
    }
    return b;
}

}  // namespace solvane::engine
