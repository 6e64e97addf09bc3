// A new project from the first task to a saved file, headless: code,
// location, building type, a sketch's zones, every zone through the zone
// screen's OK, save, reopen, save again: the two files are the same bytes.
#include <gtest/gtest.h>

#include "cli/program_services.h"
#include "code/code_selection.h"
#include "code/project_info.h"
#include "core/main_menu.h"
#include "core/startup.h"
#include "core/text_file.h"
#include "projectfile/file_dialogs.h"
#include "tests/zones/zone_fixture.h"
#include "weather/weather_screen.h"
#include "zones/zone_form.h"
#include "zones/zone_list.h"

namespace solvane {
namespace {

using testing::ZonSurface;

// The zones a two-level sketch hands over: the level 1 zones have walls, a
// floor slab; the level 2 zone a roof.
void HandOverSketch(Session& s, testing::ProgramFolder& folder) {
    ZoneState& zs = s.model.zones;
    const auto zone = [&](int z, const std::string& number, float area,
                          const std::vector<ZonSurface>& surfaces) {
        zs.ZoneNumber[z] = number;
        zs.ZoneName[z] = "Room " + number;
        zs.ZoneFloorArea[z] = area;
        zs.ZoneSurfaceCount[z] = static_cast<std::int16_t>(surfaces.size());
        folder.Write("\\temp\\temp" + number + ".zon", testing::ZonText(surfaces));
    };
    ZonSurface north, east, south, slab, roof;
    east.orient = "90", south.orient = "180";
    slab.wallId = "10", slab.exposure = "7", slab.slope = "0", slab.winArea = "0";
    roof.wallId = "1", roof.exposure = "6", roof.slope = "0", roof.winArea = "0";
    zone(1, "1-1", 1200, {north, east, slab});
    zone(2, "1-2", 800, {south, slab});
    zone(3, "2-1", 2000, {north, south, roof});
    zs.NumZones = 3;
    s.model.BuildingFloorArea = 4000;
    s.model.BuildingOrientation = "0";
    s.model.flags.TaskDone[4] = 1;
    s.model.flags.ReSketched = 1;
    s.model.flags.SketchVisits = 1;
}

TEST(ProjectRoundTrip, NewProjectThroughTheZonesSavesAndReopensTheSame) {
    testing::ProgramFolder folder;
    ScriptedPrompt prompt;
    ClimateIndex index;
    Session s;
    s.paths = folder.Paths();
    s.availableScreens.insert({Screen::ProjectInfo, Screen::Weather, Screen::ZoneForm});
    StartUp(s, prompt, StartupEnvironment{}, MakeStartupHooks(index));
    s.model.session.Units = 1;
    MainMenuController hub(s, prompt, MakeHubServices());
    hub.InitFields();

    SelectCode(s, prompt, 0);
    ASSERT_EQ(s.model.session.CodeNum, 2);
    WeatherScreen weather(s.model, s.paths, prompt, index);
    weather.OpenTask();
    weather.Ok();
    ASSERT_EQ(s.model.flags.TaskDone[2], 1);
    ProjectInfoController info(s, prompt);
    info.Open();
    info.SelectBuildingType(26);
    info.AcceptProject();
    ASSERT_EQ(s.model.flags.TaskDone[1], 1);

    HandOverSketch(s, folder);
    hub.Refresh();
    EXPECT_TRUE(s.mainmenu["zonedescription"].enabled);
    prompt.asked.clear();
    ASSERT_EQ(hub.ZoneDescription().show, Screen::ZoneForm);
    EXPECT_TRUE(prompt.asked.empty());
    EXPECT_EQ(s.model.zones.ZoneSurfaceCount[3], 3);

    ZoneListController list(s, prompt);
    ZoneFormController form(s, prompt);
    list.Fill();
    for (int z = 1; z <= 3; ++z) {
        ASSERT_TRUE(list.Pick(z));
        ASSERT_TRUE(form.ShowZone(list.PickedZone));
        if (z == 1) {
            form.EnterField(7);
            form.EditField(7, "2.5");
            form.LeaveField(7);
            form.ElevationFraction(0, ".3");
        }
        ASSERT_TRUE(form.Ok()) << (prompt.asked.empty() ? "" : prompt.asked.back().text);
    }
    ASSERT_TRUE(list.Back());
    EXPECT_EQ(s.model.flags.TaskDone[5], 1);
    EXPECT_FLOAT_EQ(s.model.surfaces.SurfWindowArea[1][1], 120);

    const auto first = folder.Dir() / "first.inp";
    const auto second = folder.Dir() / "second.inp";
    ASSERT_TRUE(WriteProjectFileTo(s, prompt, first, false)) << prompt.asked.back().text;
    const auto text = ReadTextFile(first);
    ASSERT_TRUE(text.has_value());
    EXPECT_NE(text->find("HW/person 2.5"), std::string::npos);
    EXPECT_NE(text->find("Zone Name Room 2-1"), std::string::npos);

    Session again;
    again.paths = folder.Paths();
    StartUp(again, prompt, StartupEnvironment{}, MakeStartupHooks(index));
    again.model.session.InputFileName = first.string();
    ASSERT_EQ(ReadProjectFile(again, prompt, *text, first.string(), MakeProjectFileHooks()),
              ReadStatus::Read);
    EXPECT_EQ(again.model.zones.NumZones, 3);
    ASSERT_TRUE(WriteProjectFileTo(again, prompt, second, false));
    EXPECT_EQ(ReadTextFile(second), text);
}

}  // namespace
}  // namespace solvane
