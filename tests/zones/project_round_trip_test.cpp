// A new project from the first task to a saved file, headless: code,
// location, building type, a sketch's zones, every zone through the zone
// screen's OK, save, reopen, save again: the two files are the same bytes.
#include <gtest/gtest.h>

#include "cli/program_services.h"
#include "code/code_selection.h"
#include "code/project_info.h"
#include "core/main_menu.h"
#include "core/numeric_helpers.h"
#include "core/startup.h"
#include "core/text_file.h"
#include "projectfile/file_dialogs.h"
#include "propertydb/schedule_library.h"
#include "sketch/derive_zones.h"
#include "sketch/sketch_files.h"
#include "tests/sketch/sketch_test_support.h"
#include "tests/zones/zone_fixture.h"
#include "ui/raster_canvas.h"
#include "weather/weather_screen.h"
#include "zones/zone_form.h"
#include "zones/zone_list.h"

namespace solvane {
namespace {

// A two-level sketch, drawn as its matrix: two zones side by side on the
// ground level, one zone over both on the level above; the sketch's Exit
// derives the zones and their staging files.
void SketchAndDerive(Session& s, Prompt& prompt) {
    std::vector<std::string> ground(20, std::string(90, '0')), upper = ground;
    for (int r = 5; r < 15; ++r)
        for (int c = 10; c < 30; ++c) {
            ground[r][c] = c < 20 ? '1' : '2';
            upper[r][c] = '1';
        }
    std::vector<std::string> all = testing::LevelBlock(1, 2, 1, 10, ground);
    const auto level2 = testing::LevelBlock(2, 2, 1, 10, upper);
    all.insert(all.end(), level2.begin(), level2.end());
    std::string text;
    for (const auto& l : all) text += l + "\r\n";
    ASSERT_TRUE(WriteFileAtomic(s.paths.Resolve("\\sketch\\bld_mtx.all"), text));
    SketchScreen screen;
    RasterCanvas canvas{1000, 600};
    SketchContext ctx{s, screen, canvas, prompt};
    ASSERT_TRUE(LoadSketchFiles(ctx));
    ASSERT_TRUE(DeriveZones(s, screen, prompt));
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
    LoadScheduleLibrary(s, prompt);  // as the start-up screen does with the units
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

    SketchAndDerive(s, prompt);
    ASSERT_EQ(s.model.zones.NumZones, 3);
    hub.Refresh();
    EXPECT_TRUE(s.mainmenu["zonedescription"].enabled);
    prompt.asked.clear();
    ASSERT_EQ(hub.ZoneDescription().show, Screen::ZoneForm);
    EXPECT_TRUE(prompt.asked.empty());
    EXPECT_GT(s.model.zones.ZoneSurfaceCount[3], 0);

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
    // The north windows of zone 1-1 are three tenths of their walls.
    const SurfaceState& sf = s.model.surfaces;
    int north = 0;
    for (int k = 1; k <= s.model.zones.ZoneSurfaceCount[1]; ++k) {
        if (sf.SurfExposure[1][k] >= 6 || sf.SurfOrient[1][k] != 0) continue;
        ++north;
        EXPECT_FLOAT_EQ(sf.SurfWindowArea[1][k], RoundOff(sf.SurfArea[1][k] * 0.3, 0));
    }
    EXPECT_EQ(north, 1);

    const auto first = folder.Dir() / "first.inp";
    const auto second = folder.Dir() / "second.inp";
    ASSERT_TRUE(WriteProjectFileTo(s, prompt, first, false)) << prompt.asked.back().text;
    const auto text = ReadTextFile(first);
    ASSERT_TRUE(text.has_value());
    EXPECT_NE(text->find("HW/person 2.5"), std::string::npos);
    EXPECT_NE(text->find("Zone No.  2-1"), std::string::npos);
    EXPECT_NE(text->find("WALL AND ROOF PROPERTIES\r\nID. #     1\r\n"), std::string::npos);

    Session again;
    again.paths = folder.Paths();
    StartUp(again, prompt, StartupEnvironment{}, MakeStartupHooks(index));
    again.model.session.InputFileName = first.string();
    ASSERT_EQ(ReadProjectFile(again, prompt, *text, first.string(), MakeProjectFileHooks()),
              ReadStatus::Read);
    EXPECT_EQ(again.model.zones.NumZones, 3);
    ASSERT_TRUE(WriteProjectFileTo(again, prompt, second, false));
    const auto reread = ReadTextFile(second);
    ASSERT_TRUE(reread.has_value());
    const auto a = SplitLines(*text), b = SplitLines(*reread);
    // The reader keeps only the number of the climate zone ("3 A" comes back
    // as "3"); every other byte stands.
    ASSERT_EQ(a.size(), b.size());
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (a[i].rfind("WEATHER   CLzone=", 0) == 0) {
            EXPECT_EQ(a[i], "WEATHER   CLzone=  3 A");
            EXPECT_EQ(b[i], "WEATHER   CLzone=  3");
            continue;
        }
        EXPECT_EQ(a[i], b[i]) << "line " << i + 1;
    }
}

}  // namespace
}  // namespace solvane
