#include "code/project_info.h"

#include <gtest/gtest.h>

#include "code/building_types.h"
#include "core/numeric_helpers.h"
#include "tests/propertydb/program_folder.h"
#include "ui/scripted_prompt.h"

namespace solvane {
namespace {

struct InfoFixture : ::testing::Test {
    InfoFixture() {
        session.paths = folder.Paths();
        ProjectModel& m = session.model;
        m.session.CodeNum = 2;
        m.session.Units = 1;
        m.session.ClimateZone = "5 A";
        m.session.TodayYear = 2026;
        m.flags.TaskDone[2] = 1;
        m.flags.LocationKnown = 1;
        m.climate.Latitude = 40;
        LoadBuildingTypes(session);
    }
    testing::ProgramFolder folder;
    Session session;
    ScriptedPrompt prompt;
};

TEST_F(InfoFixture, OfficeFillsProjectZoneDefaultsAndEconomics) {
    ProjectModel& m = session.model;
    m.zones.ZoneFloorArea[1] = 2000;
    ProjectInfoController c(session, prompt);
    c.Open();
    EXPECT_EQ(m.flags.TaskDone[6], 1);  // the code is frozen once weather is in
    c.SelectBuildingType(26);
    EXPECT_TRUE(prompt.asked.empty());
    EXPECT_EQ(m.session.BuildingType, 26);
    EXPECT_EQ(c.fields.At("projectid", 0).text, "26..Office");
    EXPECT_EQ(m.ProjectData[kProjName], "Project Name not entered");
    EXPECT_EQ(m.ProjectData[kConYear], "2026");
    EXPECT_EQ(m.ProjectData[kOccDays], " 5");
    EXPECT_EQ(m.ProjectData[kBldType], "Office26");
    EXPECT_FLOAT_EQ(m.zones.DefaultAreaPerPerson, 200);  // 1000 / 5
    const auto& d = m.defaults.ZoneDefaults;
    EXPECT_EQ(d[5], " 200");
    EXPECT_EQ(d[6], " 1");
    EXPECT_EQ(d[9], "CS .085");
    EXPECT_EQ(d[13], " .64");  // 90.1-2019 column
    EXPECT_EQ(d[20], " 4");
    EXPECT_EQ(d[21], "1");
    EXPECT_EQ(d[22], "4");
    EXPECT_EQ(d[23], "0.5");
    EXPECT_EQ(d[24], "12");
    EXPECT_EQ(d[26], " 2.5");
    EXPECT_EQ(d[28], " .8");
    EXPECT_EQ(d[29], " 2000");
    EXPECT_EQ(m.zones.ZoneData[1][13], " .64");
    EXPECT_EQ(m.zones.ZoneData[1][5], " 10");  // 2000 / 200 people
    EXPECT_EQ(m.zones.ZoneData[2][5], " ");
    EXPECT_EQ(m.zones.ZoneData[98][20], " 4");
    EXPECT_EQ(m.zones.ZoneData[99][20], "");
    EXPECT_EQ(m.zones.ZoneDaylight[1], "Yes");
    EXPECT_EQ(m.zones.LastHVACType, 4);
    EXPECT_EQ(m.economics.EconomicsData[0], "25      ");
    EXPECT_EQ(m.economics.DemandCharge, " N");
    EXPECT_FLOAT_EQ(m.sizer.WindowPercent[4], 3);
    EXPECT_FLOAT_EQ(m.sizer.PFFirst[0], 0);
    EXPECT_FLOAT_EQ(m.sizer.PFFirst[2], 0.5f);
    EXPECT_EQ(m.flags.DefaultsApplied, 1);
    EXPECT_EQ(m.flags.TaskDone[1], 1);
}

TEST_F(InfoFixture, SameTypeTwiceOnlyTellsSo) {
    ProjectInfoController c(session, prompt);
    c.Open();
    c.SelectBuildingType(26);
    session.model.defaults.ZoneDefaults[4] = "changed";
    c.SelectBuildingType(26);
    ASSERT_EQ(prompt.asked.size(), 1u);
    EXPECT_EQ(prompt.asked[0].title, "Bldg type same as current.");
    EXPECT_EQ(session.model.defaults.ZoneDefaults[4], "changed");
}

TEST_F(InfoFixture, ConfirmedChangeKeepsRoomNamesAndReplacesDefaults) {
    ProjectModel& m = session.model;
    ProjectInfoController c(session, prompt);
    c.Open();
    c.SelectBuildingType(26);
    m.zones.ZoneName[1] = "Lobby";
    m.zones.ZoneData[1][2] = "Lobby";
    m.profiles.Types[kOccupancy].GroupNum[1] = " 1";
    prompt.Queue(Answer::No);
    c.SelectBuildingType(39);
    EXPECT_EQ(m.session.BuildingType, 26);
    EXPECT_EQ(prompt.asked.back().title,
              "Alert!  Building type change will change Code Requirements!");
    prompt.Queue(Answer::Yes);
    c.SelectBuildingType(39);
    EXPECT_EQ(m.session.BuildingType, 39);
    EXPECT_EQ(m.zones.ZoneName[1], "Lobby");
    EXPECT_EQ(m.zones.ZoneData[1][2], "Lobby");
    EXPECT_EQ(m.zones.ZoneData[1][13], " .45");  // warehouse, 90.1-2019
    EXPECT_EQ(m.zones.ZoneData[1][20], " 11");
    EXPECT_EQ(m.profiles.Types[kOccupancy].GroupNum[1], "");
    EXPECT_EQ(m.ProjectData[kProjName], "Project Name not entered");  // kept, not blank
}

TEST_F(InfoFixture, GreenCodeReadsItsOwnHvacFileAndLightingColumn) {
    session.model.session.CodeNum = 3;
    ProjectInfoController c(session, prompt);
    c.Open();
    c.SelectBuildingType(26);
    const auto& d = session.model.defaults.ZoneDefaults;
    EXPECT_EQ(d[13], " .69");
    EXPECT_EQ(d[28], " .89");  // 189.1-2017 Table B-6 boiler
    EXPECT_FLOAT_EQ(session.model.sizer.WindowPercent[4], 3);
}

TEST_F(InfoFixture, SiConvertsTheDefaultRecord) {
    ProjectModel& m = session.model;
    m.session.Units = 2;
    m.session.CodeNum = 1;
    ProjectInfoController c(session, prompt);
    c.Open();
    EXPECT_EQ(c.fields["areaunit"].text, "sq.m.");
    c.SelectBuildingType(26);
    const auto& d = m.defaults.ZoneDefaults;
    EXPECT_FLOAT_EQ(m.zones.DefaultAreaPerPerson, 18.6f);  // 200 x 0.0929
    EXPECT_EQ(d[4], " 97.6");                              // 20 lb x 4.882428
    EXPECT_EQ(d[9], "CS   .432");                          // .085 x 5.079656
    EXPECT_EQ(d[13], "  9.7");                             // .9 / .09290304
    EXPECT_EQ(d[22], " 73.2");                             // 4 x 18.288
    EXPECT_EQ(d[24], "  3.7");
    EXPECT_EQ(d[26], "   622");
    EXPECT_FLOAT_EQ(static_cast<float>(NumVal(d[27])), RoundOff(12.2 / 3.412141, 1));
    EXPECT_FLOAT_EQ(m.sizer.WindowPercent[4], 5);
    // Gas in $/GJ.
    EXPECT_FLOAT_EQ(static_cast<float>(NumVal(m.economics.EconomicsData[7])),
                    RoundOff(0.73 / 0.1055054762, 2));
}

TEST_F(InfoFixture, OccupiedDaysAndConstructionYearChecks) {
    ProjectInfoController c(session, prompt);
    c.Open();
    c.Change(10, "8");
    EXPECT_EQ(prompt.asked.back().text, "Error. The maximum occupied days are 7 days per-week.");
    EXPECT_EQ(c.fields.At("projectid", 10).text, "7");

    c.fields.At("projectid", 10).text = "8";
    c.fields.At("projectid", 6).text = "2020";
    EXPECT_EQ(c.AcceptProject().show, Screen::None);
    EXPECT_EQ(prompt.asked.back().text, "The maximum occupied days are 7 days per-week.");
    EXPECT_EQ(session.model.flags.TaskDone[1], 0);

    c.fields.At("projectid", 10).text = "6";
    c.fields.At("projectid", 6).text = "";
    EXPECT_EQ(c.AcceptProject().show, Screen::None);
    EXPECT_EQ(prompt.asked.back().text, "You should put the construction year.");

    c.fields.At("projectid", 6).text = "2020";
    c.fields.At("projectid", 1).text = "Depot";
    c.fields.At("projectid", 8).text = "12000";
    EXPECT_EQ(c.AcceptProject().show, Screen::MainMenu);
    EXPECT_EQ(session.model.session.ProjectTitle, "Depot");
    EXPECT_FLOAT_EQ(session.model.BuildingFloorArea, 12000);
    EXPECT_EQ(session.model.flags.TaskDone[1], 1);
}

TEST_F(InfoFixture, NonEditableFieldsAndUndo) {
    ProjectInfoController c(session, prompt);
    c.Open();
    EXPECT_FALSE(c.KeyPress(0));
    EXPECT_EQ(prompt.asked.back().title, "Building Type, Non-edit item.");
    EXPECT_FALSE(c.KeyPress(13));
    EXPECT_EQ(prompt.asked.back().text, "Cannot be edited!");
    EXPECT_TRUE(c.KeyPress(2));
    c.Change(2, "A depot");
    c.UndoProject();
    EXPECT_EQ(c.fields.At("projectid", 2).text, "");
    EXPECT_EQ(c.CancelProject().show, Screen::MainMenu);
}

TEST_F(InfoFixture, TypeMenuNeedsCodeAndCity) {
    session.model.session.CodeNum = 0;
    ProjectInfoController c(session, prompt);
    c.SelectBuildingType(5);
    EXPECT_EQ(prompt.asked.back().title, "Energy code not specified..");
    EXPECT_EQ(session.model.session.BuildingType, 0);
}

}  // namespace
}  // namespace solvane
