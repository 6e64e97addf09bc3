#include "code/baseline.h"

#include <algorithm>

#include "code/project_info.h"
#include "core/numeric_helpers.h"
#include "propertydb/envelope_defaults.h"

namespace solvane {

namespace {

// An above-grade exterior wall: exposure codes 1 to 5 (the ground cover in
// front of it); 6 is a roof, 7 a slab edge, 71 to 76 below grade.
bool IsWall(const SurfaceState& s, int zone, int surface) {
    const int exposure = s.SurfExposure[zone][surface];
    return exposure >= 1 && exposure <= 5;
}

}  // namespace

double WindowShare(const ProjectModel& m) {
    double wall = 0, window = 0;
    for (int z = 1; z <= m.zones.NumZones && z <= kMaxZones; ++z)
        for (int s = 1; s <= m.zones.ZoneSurfaceCount[z] && s <= kMaxSurfaces; ++s)
            if (IsWall(m.surfaces, z, s)) {
                wall += m.surfaces.SurfArea[z][s];
                window += m.surfaces.SurfWindowArea[z][s];
            }
    return wall > 0 ? 100 * window / wall : 0;
}

bool MakeBaseline(Session& session, Prompt& prompt) {
    ProjectModel& m = session.model;
    const int type = m.session.BuildingType;
    if (m.session.CodeNum == 0 || type == 0 || ClimateNumber(m.session.ClimateZone) == 0) {
        prompt.Ask(
            "The code baseline needs the energy code, the building type and the location of "
            "the project.",
            "Code baseline", Buttons::Ok, Icon::Exclamation);
        return false;
    }
    const ProjectModel design = m;

    // The envelope: the climate zone's defaults for the code and class.
    LoadEnvelopeDefaults(session, prompt);
    m.flags.CatalogReload[1] = m.flags.CatalogReload[2] = 1;

    // Lighting and HVAC: the building type's defaults, picked again.
    ProjectInfoController info(session, prompt);
    m.session.BuildingType = 0;
    info.SelectBuildingType(type);
    if (m.session.BuildingType != type) {
        m = design;
        return false;
    }
    // What the defaults would also have changed stays the design's.
    for (int z = 1; z <= kMaxZones; ++z) {
        auto& row = m.zones.ZoneData[z];
        const auto& was = design.zones.ZoneData[z];
        for (int f = 1; f <= kZoneFields; ++f)
            if (std::find(std::begin(kBaselineZoneFields), std::end(kBaselineZoneFields), f) ==
                std::end(kBaselineZoneFields))
                row[static_cast<std::size_t>(f)] = was[static_cast<std::size_t>(f)];
        m.zones.ZoneAreaPerPerson[z] = design.zones.ZoneAreaPerPerson[z];
    }
    m.zones.DefaultAreaPerPerson = design.zones.DefaultAreaPerPerson;
    m.profiles = design.profiles;
    m.economics = design.economics;
    m.ProjectData = design.ProjectData;
    m.sizer = design.sizer;

    // Windows: no more than the standard's largest share of the walls.
    const double share = WindowShare(m);
    if (share > kBaselineWindowShare) {
        const float scale = static_cast<float>(kBaselineWindowShare / share);
        for (int z = 1; z <= m.zones.NumZones && z <= kMaxZones; ++z)
            for (int s = 1; s <= m.zones.ZoneSurfaceCount[z] && s <= kMaxSurfaces; ++s)
                if (IsWall(m.surfaces, z, s)) m.surfaces.SurfWindowArea[z][s] *= scale;
    }
    return true;
}

}  // namespace solvane
