#include "sketch/zone_names.h"

#include <gtest/gtest.h>

#include "ui/scripted_prompt.h"

namespace solvane {
namespace {

struct ZoneNames : ::testing::Test {
    ZoneNames() {
        ProjectModel& m = session.model;
        m.session.CodeNum = 2;
        m.session.ProjectTitle = "Clinic";
        m.ProjectData[kProjName] = "Clinic";
        m.ProjectData[kLocation] = "Denver";
        ZoneState& zs = m.zones;
        zs.NumZones = 3;
        const char* numbers[] = {"", "1-1", "1-2", "2-1"};
        const char* names[] = {"", "Lobby", " Zone 1-2", "Offices"};
        const float areas[] = {0, 240, 120, 360};
        for (int z = 1; z <= 3; ++z) {
            zs.ZoneNumber[z] = numbers[z];
            zs.ZoneName[z] = names[z];
            zs.ZoneFloorArea[z] = areas[z];
            zs.ZoneAreaPerPerson[z] = 100;
            zs.ZoneData[z][4] = "loads of row " + std::to_string(z);
        }
        // A zone of the earlier sketch that has disappeared.
        zs.ZoneNumber[4] = "2-2";
        zs.ZoneData[4][4] = "old";
        m.BuildingFloorArea = 720;
        m.sketch.RotationText = "15";
    }
    FieldState& Cell(int row, int column) { return ZoneListCell(list.fields, row, column); }

    Session session;
    ScriptedPrompt prompt;
    std::vector<int> read;
    ZoneNameController list{session, prompt,
                            ZoneHandOverServices{{},
                                                 [this](Session&, Prompt&, int zone) {
                                                     read.push_back(zone);
                                                     return true;
                                                 },
                                                 {}}};
};

TEST_F(ZoneNames, ListAndFieldsFollowTheSketch) {
    ZoneListCell(list.fields, 5, 1).text = "stale";
    ASSERT_TRUE(list.Enter());
    EXPECT_EQ(list.fields.caption, "90.1-2019 (Latest Version)  ZONE NAMES:... Clinic");
    EXPECT_EQ(list.fields.Text("builloc"), "Denver");
    EXPECT_EQ(Cell(0, 2).text, "Zone Sequence");
    EXPECT_EQ(Cell(2, 0).text, "1-2");
    EXPECT_EQ(Cell(2, 1).text, " Zone 1-2");  // a default name is kept as it stands
    EXPECT_EQ(Cell(3, 2).text, "3");
    EXPECT_EQ(Cell(5, 1).text, "");
    const ZoneState& zs = session.model.zones;
    EXPECT_EQ(zs.ZoneData[2][2], " Zone 1-2");
    EXPECT_EQ(zs.ZoneData[3][3], "360");
    EXPECT_TRUE(read.empty());  // not re-sketched: surfaces stay as they are
}

TEST_F(ZoneNames, ReSketchKeepsRowsBySequenceAndRebuildsSurfaces) {
    session.model.flags.ReSketched = 1;
    session.model.flags.InputFileSaved = 1;
    ASSERT_TRUE(list.Enter());
    const ProjectModel& m = session.model;
    EXPECT_EQ(m.flags.InputFileSaved, 0);
    EXPECT_EQ(m.BuildingFloorAreaEntered, 720.0f);
    EXPECT_EQ(m.ProjectData[kFloorArea], "720");
    EXPECT_EQ(m.ProjectData[kOrientation], "15");
    EXPECT_EQ(m.flags.ProjectScreenFlags[6], 1);
    EXPECT_EQ(m.flags.ProjectScreenFlags2[1], 1);
    // Loads stay with the sequence number; people follow the new areas.
    EXPECT_EQ(m.zones.ZoneData[1][4], "loads of row 1");
    EXPECT_EQ(m.zones.ZoneData[1][5], " 2.4");
    EXPECT_EQ(m.zones.ZoneData[3][5], " 3.6");
    EXPECT_EQ(m.zones.ZoneData[4][4], "old");
    EXPECT_EQ(read, (std::vector<int>{1, 2, 3}));

    // A zone file that cannot be read stops the hand-over.
    ZoneNameController failing(session, prompt,
                               {{}, [](Session&, Prompt&, int z) { return z != 2; }, {}});
    EXPECT_FALSE(failing.Enter());
}

TEST_F(ZoneNames, OkRefusesAnEmptyRow) {
    ASSERT_TRUE(list.Enter());
    EXPECT_EQ(list.Ok(7).show, Screen::None);
    EXPECT_EQ(prompt.beeps, 1);
    ASSERT_EQ(prompt.asked.size(), 1u);
    EXPECT_EQ(prompt.asked[0].text, "Zone does not exist.  Select another zone.");
    EXPECT_EQ(prompt.asked[0].title, "Error");

    int shown = 0;
    ZoneNameController picking(session, prompt,
                               {{}, {}, [&](Session&, Prompt&, int z) { shown = z; }});
    picking.Enter();
    EXPECT_EQ(picking.Ok(3).show, Screen::ZoneForm);
    EXPECT_EQ(picking.PickedLevel, 2);
    EXPECT_EQ(shown, 3);
}

TEST_F(ZoneNames, BackWarnsAboutUnopenedZonesOfANewSketch) {
    ProjectModel& m = session.model;
    m.flags.ReSketched = 1;
    m.zones.ZoneDescribed[1] = 1;
    m.BuildingFloorAreaEntered = 700;
    session.mainmenu["executerun"].enabled = true;
    prompt.Queue(Answer::No);
    EXPECT_EQ(list.Back().show, Screen::None);
    ASSERT_EQ(prompt.asked.size(), 1u);
    EXPECT_EQ(prompt.asked[0].title, "Warning");
    EXPECT_EQ(prompt.asked[0].text,
              "You have just sketched your building, but you have not opened zone(s) :  1-2, "
              "2-1.   Do you really want to go to Main Menu ?");
    EXPECT_EQ(m.flags.TaskDone[5], 0);
    EXPECT_EQ(m.ProjectData[kFloorArea], "700");

    prompt.Queue(Answer::Yes);
    const Navigation nav = list.Back();
    EXPECT_EQ(nav.show, Screen::MainMenu);
    EXPECT_TRUE(nav.hideCurrent);
    EXPECT_EQ(m.flags.TaskDone[5], 1);
    EXPECT_EQ(m.flags.ReSketched, 0);
    EXPECT_EQ(prompt.asked.back().text,
              "Please be sure to save your building input file before attempting to execute the "
              "run.");
    EXPECT_FALSE(session.mainmenu.Enabled("executerun"));
    EXPECT_EQ(m.zones.ZoneExists[3], 1);

    // From the zone screen's own return there is no list and no warning.
    prompt.asked.clear();
    EXPECT_EQ(list.Back(true).show, Screen::MainMenu);
    EXPECT_TRUE(prompt.asked.empty());
}

}  // namespace
}  // namespace solvane
