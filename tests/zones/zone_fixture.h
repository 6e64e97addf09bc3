// A project ready for the zone description: office building, 90.1-2019,
// a program folder of its own, and zones whose staging files the test writes.
#pragma once

#include <string>

#include "code/building_types.h"
#include "code/project_info.h"
#include "core/session.h"
#include "propertydb/envelope_defaults.h"
#include "propertydb/hvac_catalog.h"
#include "propertydb/schedule_library.h"
#include "tests/propertydb/program_folder.h"
#include "ui/scripted_prompt.h"

namespace solvane::testing {

// One surface of a staging file, fourteen lines.
struct ZonSurface {
    std::string wallId = "6", area = "400", orient = "0", exposure = "2", shade = " N0. N0. N0.",
                windowId = "1", winArea = "80", slope = "90", swb = "B", blind = "0", diff = "0",
                sill = "3", top = "7", reflect = ".2";
};

inline std::string ZonText(const std::vector<ZonSurface>& surfaces) {
    std::string t;
    for (const ZonSurface& s : surfaces)
        for (const std::string* v :
             {&s.wallId, &s.area, &s.orient, &s.exposure, &s.shade, &s.windowId, &s.winArea,
              &s.slope, &s.swb, &s.blind, &s.diff, &s.sill, &s.top, &s.reflect})
            t += (v == &s.shade ? "\"" + *v + "\"" : *v) + "\r\n";
    return t + "end\r\n";
}

struct ZoneProject {
    explicit ZoneProject(int units = 1, const std::string& climate = "3 A") {
        session.paths = folder.Paths();
        ProjectModel& m = session.model;
        m.session.CodeNum = 2;
        m.session.Units = static_cast<std::int16_t>(units);
        m.session.ClimateZone = climate;
        m.session.TodayYear = 2026;
        m.flags.TaskDone[2] = 1;
        m.flags.LocationKnown = 1;
        m.flags.FirstVisit.fill(1);
        m.climate.Latitude = 33;
        LoadBuildingTypes(session);
        m.zones.ZoneFloorArea[1] = 1000;
        m.zones.ZoneFloorArea[2] = 600;
        ProjectInfoController info(session, prompt);
        info.Open();
        info.SelectBuildingType(26);  // office
        LoadEnvelopeDefaults(m, folder.Paths());
        LoadScheduleLibrary(m, folder.Paths());
        LoadHvacCatalog(m, folder.Paths());
        prompt.asked.clear();
    }

    // Zone z with its number, name, area and staging file.
    void AddZone(int z, const std::string& number, float area,
                 const std::vector<ZonSurface>& surfaces) {
        ZoneState& zs = session.model.zones;
        zs.NumZones = std::max(zs.NumZones, z);
        zs.ZoneNumber[z] = number;
        zs.ZoneName[z] = "Zone " + number;
        zs.ZoneFloorArea[z] = area;
        zs.ZoneSurfaceCount[z] = static_cast<std::int16_t>(surfaces.size());
        zs.ZoneData[z][1] = number;
        zs.ZoneData[z][2] = zs.ZoneName[z];
        zs.ZoneData[z][3] = std::to_string(static_cast<int>(area));
        folder.Write("\\temp\\temp" + number + ".zon", ZonText(surfaces));
    }

    bool Asked(const std::string& title) const {
        for (const auto& a : prompt.asked)
            if (a.title == title) return true;
        return false;
    }

    ProgramFolder folder;
    Session session;
    ScriptedPrompt prompt;
};

}  // namespace solvane::testing
