#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "core/exit_warning.h"
#include "core/main_form.h"
#include "core/main_menu.h"
#include "core/startup.h"
#include "core/text_file.h"
#include "ui/scripted_prompt.h"

namespace fs = std::filesystem;

namespace solvane {
namespace {

class TaskFlowTest : public ::testing::Test {
  protected:
    void SetUp() override {
        root_ = fs::temp_directory_path() /
                ("solvane_tf_" + std::to_string(::getpid()) + "_" +
                 ::testing::UnitTest::GetInstance()->current_test_info()->name());
        fs::create_directories(root_ / "temp");
        fs::create_directories(root_ / "sketch");
        session_.paths = ProgramPaths(root_);
    }
    void TearDown() override { fs::remove_all(root_); }

    void WriteUnits(const std::string& text) {
        std::ofstream(root_ / "temp" / "ecalc$.unt", std::ios::binary) << text;
    }
    void Start(StartupHooks hooks = {}) {
        StartupEnvironment env;
        env.year = 2026, env.month = 11, env.day = 21;
        StartUp(session_, prompt_, env, hooks);
    }
    // Start-up, units and "Begin >>" with the hub's fields set up.
    MainMenuController BeginProject(int units = 1) {
        Start();
        MainFormController form(session_, prompt_);
        prompt_.Queue(Answer::No);
        form.ChooseUnits(units);
        form.Begin();
        MainMenuController hub(session_, prompt_);
        hub.InitFields();
        hub.Refresh();
        return hub;
    }

    fs::path root_;
    Session session_;
    ScriptedPrompt prompt_;
};

TEST_F(TaskFlowTest, StartUpFillsFixedStateAndCountLine) {
    int schedules = 0;
    StartupHooks hooks;
    hooks.loadClimateIndex = [](Session&) { return 12345L; };
    hooks.loadBuildingTypes = [&](Session&) { ++schedules; };
    Start(hooks);
    EXPECT_EQ(session_.mainform.Text("Label8"), "SI and IP Units for 12345 Cities Worldwide.");
    EXPECT_EQ(session_.mainmenu.Text("Label8"),
              "Energy code not selected. Do this before proceeding.");
    EXPECT_EQ(*ReadTextFile(root_ / "temp" / "wthChange.txt"), "1\r\n");
    EXPECT_EQ(session_.model.session.TodayText, "2026 Nov 21");
    EXPECT_EQ(session_.model.session.InputFileName, "New_Project.inp");
    EXPECT_EQ(session_.model.flags.FirstVisit[99], 1);
    EXPECT_EQ(schedules, 1);
    EXPECT_TRUE(prompt_.asked.empty());
}

TEST_F(TaskFlowTest, MissingSpreadsheetAndPrinterArePromptedAndStartUpGoesOn) {
    StartupEnvironment env;
    env.spreadsheetFound = false;
    env.printerCount = 0;
    StartUp(session_, prompt_, env, {});
    ASSERT_EQ(prompt_.asked.size(), 2u);
    EXPECT_EQ(prompt_.asked[0].title, "EXCEL Alert!");
    EXPECT_EQ(prompt_.asked[1].title, "");
    EXPECT_EQ(prompt_.asked[1].text.rfind("No printers were found", 0), 0u);
    EXPECT_EQ(session_.model.flags.NoPrinter, 1);
}

TEST_F(TaskFlowTest, DefaultUnitsFileSetsTheChoice) {
    WriteUnits("2\r\n");
    Start();
    EXPECT_EQ(session_.model.session.Units, 2);
    EXPECT_EQ(session_.mainform.At("unitnum", 2).value, 1);
    EXPECT_EQ(session_.mainmenu.Text("Label13"), "Project Units = SI");
}

TEST_F(TaskFlowTest, UnitsFileHoldingThreeLeavesNoChoiceAndBeginPrompts) {
    WriteUnits("3\r\n");
    Start();
    EXPECT_EQ(session_.mainform.At("unitnum", 1).value, 0);
    EXPECT_EQ(session_.mainform.At("unitnum", 2).value, 0);
    MainFormController form(session_, prompt_);
    const Navigation nav = form.Begin();
    EXPECT_EQ(nav.show, Screen::None);
    ASSERT_EQ(prompt_.asked.size(), 1u);
    EXPECT_EQ(prompt_.asked[0].title, "Units have not been specified.");
    EXPECT_EQ(prompt_.asked[0].text, "Please select Units before proceeding.");
}

TEST_F(TaskFlowTest, ChoosingUnitsAsksForTheDefaultAndWritesOnlyOnYes) {
    Start();
    int libraryLoads = 0;
    MainFormController form(session_, prompt_,
                            [&](Session& s, Prompt&) { libraryLoads += s.model.session.Units; });
    prompt_.Queue(Answer::No);
    form.ChooseUnits(2);
    EXPECT_FALSE(fs::exists(root_ / "temp" / "ecalc$.unt"));
    EXPECT_EQ(prompt_.asked.back().title, "Set Units");
    EXPECT_EQ(prompt_.asked.back().text, "Set SI Units as the default?");
    EXPECT_EQ(session_.model.session.Units, 2);
    EXPECT_EQ(session_.model.session.UnitsIndex, 1);
    prompt_.Queue(Answer::Yes);
    form.ChooseUnits(1);
    EXPECT_EQ(*ReadTextFile(root_ / "temp" / "ecalc$.unt"), "1\r\n");
    EXPECT_EQ(libraryLoads, 3);  // read again for SI, then for I-P
    const Navigation nav = form.Begin();
    EXPECT_EQ(nav.show, Screen::MainMenu);
    EXPECT_TRUE(nav.hideCurrent);
    EXPECT_EQ(session_.mainmenu.caption, "SOLVANE 2020 New Project:... ");
    EXPECT_TRUE(session_.mainmenu.Enabled("weatherdata"));
}

TEST_F(TaskFlowTest, ClosingStartUpScreenAfterAProjectBeganIsRefused) {
    Start();
    MainFormController form(session_, prompt_);
    EXPECT_TRUE(form.Close().endProgram);
    session_.model.flags.TaskDone[2] = 1;
    const Navigation nav = form.Close();
    EXPECT_FALSE(nav.endProgram);
    EXPECT_EQ(nav.show, Screen::MainMenu);
    EXPECT_EQ(prompt_.asked.back().title, "Exit Warning");
    EXPECT_EQ(prompt_.asked.back().icon, Icon::Exclamation);
}

TEST_F(TaskFlowTest, HubGatingFollowsTheFlags) {
    MainMenuController hub = BeginProject();
    ScreenFields& f = session_.mainmenu;
    EXPECT_TRUE(f.Enabled("CodeStatus"));
    EXPECT_TRUE(f.Enabled("weatherdata"));
    EXPECT_FALSE(f.Enabled("projectinformation"));
    EXPECT_FALSE(f.Enabled("buildingsketch"));
    EXPECT_FALSE(f.Enabled("runmenu"));
    EXPECT_FALSE(f.Enabled("dtbase"));

    session_.availableScreens.insert({Screen::DrawForm, Screen::RunSim, Screen::Catalog});
    auto& done = session_.model.flags.TaskDone;
    done[1] = done[2] = 1;
    hub.Refresh();
    EXPECT_FALSE(f.Enabled("buildingsketch"));  // code not chosen yet
    done[6] = 1;
    hub.Refresh();
    EXPECT_TRUE(f.Enabled("buildingsketch"));
    EXPECT_TRUE(f.Enabled("Image4"));
    EXPECT_FALSE(f.Enabled("runmenu"));
    done[4] = done[5] = 1;
    hub.Refresh();
    EXPECT_TRUE(f.Enabled("runmenu"));
    EXPECT_TRUE(f.Enabled("executerun"));
    EXPECT_FALSE(f.At("Image7", 5).visible);

    session_.model.session.CodeNum = 3;
    session_.model.session.BuildingType = 4;
    hub.Refresh();
    EXPECT_TRUE(f.Enabled("dtbase"));
    EXPECT_TRUE(f.At("Image8", 1).visible);
    EXPECT_FALSE(f.At("Image8", 0).visible);
}

TEST_F(TaskFlowTest, ScreensNotYetAvailableKeepTheirTasksClosed) {
    MainMenuController hub = BeginProject();
    auto& done = session_.model.flags.TaskDone;
    done[1] = done[2] = done[4] = done[5] = done[6] = 1;
    hub.Refresh();
    EXPECT_FALSE(session_.mainmenu.Enabled("buildingsketch"));
    EXPECT_FALSE(session_.mainmenu.Enabled("runmenu"));
    EXPECT_EQ(hub.Weather().show, Screen::None);
}

TEST_F(TaskFlowTest, CaptionAndPassiveRunEntries) {
    MainMenuController hub = BeginProject();
    EXPECT_EQ(session_.mainmenu.caption, "SOLVANE 2020 New Project:... ");
    session_.model.climate.LocationCity = "Denver";
    session_.model.climate.LocationState = "Colorado";
    session_.model.session.CodeNum = 2;
    hub.Refresh();
    EXPECT_EQ(session_.mainmenu.caption,
              "SOLVANE 2020 Project:... New_Project.inp Denver, Colorado .. Energy Code = "
              "90.1-2019 (Latest Version)");
    session_.model.flags.ProjectFromFile = 1;
    session_.model.session.ProjectTitle = "Clinic";
    hub.Refresh();
    EXPECT_EQ(session_.mainmenu.caption,
              "SOLVANE 2020 Project:... Clinic .. Energy Code = 90.1-2019 (Latest Version)");
    EXPECT_TRUE(session_.mainmenu.At("Table", 6).enabled);
    session_.model.flags.RunResultCode = 4;
    hub.Refresh();
    EXPECT_FALSE(session_.mainmenu.At("Table", 6).enabled);
    EXPECT_FALSE(session_.mainmenu.At("graph", 2).enabled);
}

TEST_F(TaskFlowTest, NewTwiceLeavesPreviousNameAsNewProject) {
    MainMenuController hub = BeginProject();
    session_.model.session.CodeNum = 2;
    session_.model.flags.TaskDone[3] = 1;
    session_.model.ProjectData[kProjName] = "Old";
    hub.NewProject();
    EXPECT_EQ(session_.model.session.PreviousInputFileName, "New_Project.inp");
    hub.NewProject();
    EXPECT_EQ(session_.model.session.PreviousInputFileName, "NewProject.inp");
    EXPECT_EQ(session_.model.session.InputFileName, "NewProject.inp");
    EXPECT_EQ(session_.model.session.CodeNum, 0);
    EXPECT_EQ(session_.model.flags.TaskDone[3], 0);
    EXPECT_TRUE(session_.model.ProjectData[kProjName].empty());
    EXPECT_EQ(prompt_.asked.back().title, "Warning...");
    EXPECT_EQ(prompt_.beeps, 2);
}

TEST_F(TaskFlowTest, NewAnsweredNoKeepsTheProject) {
    MainMenuController hub = BeginProject();
    session_.model.session.CodeNum = 1;
    session_.model.flags.FirstVisit[5] = 0;
    prompt_.Queue(Answer::No);
    hub.NewProject();
    EXPECT_EQ(session_.model.session.CodeNum, 1);
    EXPECT_EQ(session_.model.flags.FirstVisit[5], 1);
}

TEST_F(TaskFlowTest, ResetDeletesSketchTempFilesOnlyAfterASketch) {
    Start();
    std::ofstream(root_ / "temp" / "a.tmp") << "x";
    std::ofstream(root_ / "temp" / "keep.zon") << "x";
    ResetProject(session_);
    EXPECT_TRUE(fs::exists(root_ / "temp" / "a.tmp"));
    session_.model.flags.SketchVisits = 2;
    ResetProject(session_);
    EXPECT_FALSE(fs::exists(root_ / "temp" / "a.tmp"));
    EXPECT_TRUE(fs::exists(root_ / "temp" / "keep.zon"));
    EXPECT_EQ(session_.model.flags.SketchVisits, 0);
}

TEST_F(TaskFlowTest, SaveChecksInOrder) {
    MainMenuController hub = BeginProject();
    session_.availableScreens.insert(Screen::SaveInputForm);
    auto& f = session_.model.flags;
    f.ReSketched = 1;
    f.ProjectFromFile = 1;
    f.InputFileSaved = 1;
    EXPECT_EQ(hub.SaveProject().show, Screen::None);
    EXPECT_EQ(prompt_.asked.back().title, "Error");
    EXPECT_EQ(f.InputFileSaved, 0);
    f.ReSketched = 0;
    f.ProjectFromFile = 0;
    hub.SaveProject();
    EXPECT_EQ(prompt_.asked.back().title, "Weather Data");
    f.TaskDone[2] = 1;
    hub.SaveProject();
    EXPECT_EQ(prompt_.asked.back().title, "Building Sketch");
    f.TaskDone[4] = 1;
    f.PendingAfterSave = 3;
    EXPECT_EQ(hub.SaveProject().show, Screen::SaveInputForm);
    EXPECT_EQ(f.PendingAfterSave, 0);
}

TEST_F(TaskFlowTest, ZoneTaskBlockedByASurfaceCountOverTheLimit) {
    MainMenuController hub = BeginProject();
    session_.availableScreens.insert(Screen::ZoneForm);
    auto& m = session_.model;
    m.flags.TaskDone[1] = 1;
    m.zones.NumZones = 2;
    m.zones.ZoneName[2] = "Lobby";
    m.zones.ZoneSurfaceCount[1] = 10;
    m.zones.ZoneSurfaceCount[2] = 34;
    EXPECT_EQ(hub.ZoneDescription().show, Screen::None);
    EXPECT_EQ(prompt_.asked.back().text,
              "The number of exterior surfaces in zone Lobby has exceeded the maximum of 33.  "
              "Return to the sketch and reduce the exposures in the zone.");
    m.zones.ZoneSurfaceCount[2] = 33;
    m.zones.ZoneNumber[1] = "1-1";
    m.zones.ZoneFloorArea[1] = 1250.5f;
    int envelopeLoads = 0;
    HubServices services;
    services.loadEnvelopeDefaults = [&](Session&, Prompt&) { ++envelopeLoads; };
    MainMenuController hub2(session_, prompt_, services);
    EXPECT_EQ(hub2.ZoneDescription().show, Screen::ZoneForm);
    EXPECT_EQ(m.zones.ZoneData[1][3], "1250.5");
    EXPECT_EQ(envelopeLoads, 1);
}

TEST_F(TaskFlowTest, PassiveRunFromTheMenuSkipsTheSavePrompts) {
    MainMenuController hub = BeginProject();
    session_.availableScreens.insert({Screen::RunSim, Screen::SaveInputForm});
    int writes = 0;
    HubServices services;
    services.writeEngineInput = [&](Session&, Prompt&) { return ++writes > 0; };
    MainMenuController runHub(session_, prompt_, services);
    const std::size_t before = prompt_.asked.size();
    EXPECT_EQ(runHub.RunEnergy(1).show, Screen::RunSim);
    EXPECT_EQ(prompt_.asked.size(), before);
    EXPECT_EQ(writes, 1);
    EXPECT_EQ(*ReadTextFile(root_ / "temp" / "ecalc$.tmp"), "1\r\n");
    // A run with A/C and an unsaved input asks first; No goes to the save dialog.
    prompt_.Queue(Answer::No);
    EXPECT_EQ(runHub.RunEnergy(3).show, Screen::SaveInputForm);
    EXPECT_EQ(prompt_.asked.back().title, "Save input");
    EXPECT_EQ(session_.model.flags.PendingAfterSave, 3);
}

TEST_F(TaskFlowTest, ExitOffersToSaveAndEndsOnlyThroughTheWarningScreen) {
    MainMenuController hub = BeginProject();
    EXPECT_FALSE(hub.Close().endProgram);
    EXPECT_EQ(prompt_.asked.back().title, "Exit Warning");
    EXPECT_EQ(hub.Exit().show, Screen::Warning);
    EXPECT_EQ(session_.warning.Text("Label1"), "Alert! Save input changes to:New_Project.inp ?");
    session_.model.flags.InputFileSaved = 1;
    hub.Exit();
    EXPECT_EQ(session_.warning.Text("Label1"), "Alert! Do you want to save your input ?");

    int clears = 0;
    ExitServices services;
    services.clearStagedZones = [&](Session&, Prompt&) { ++clears; };
    ExitWarningController warning(session_, prompt_, services);
    EXPECT_EQ(warning.Cancel().show, Screen::MainMenu);
    session_.model.flags.RunDone = 1;
    prompt_.Queue(Answer::No);
    EXPECT_TRUE(warning.Command1().endProgram);
    EXPECT_EQ(prompt_.asked.back().title, "Save output");
    EXPECT_EQ(clears, 1);

    // Yes goes to the results dialog, which ends the program after storing.
    session_.availableScreens.insert(Screen::SaveOutForm);
    prompt_.Queue(Answer::Yes);
    EXPECT_EQ(warning.Command1().show, Screen::SaveOutForm);
    EXPECT_EQ(session_.model.flags.ExitAfterSave, 1);
    EXPECT_EQ(clears, 1);
    // Save and Exit of a saved project offers the unsaved results too.
    session_.model.flags.ExitAfterSave = 0;
    session_.model.flags.InputFileSavedOnce = 1;
    int writes = 0;
    services.writeProjectFile = [&](Session&, Prompt&) { return ++writes > 0; };
    ExitWarningController saving(session_, prompt_, services);
    prompt_.Queue(Answer::Yes);
    EXPECT_EQ(saving.Okey().show, Screen::SaveOutForm);
    EXPECT_EQ(writes, 1);
    session_.model.flags.OutputFileSaved = 1;
    EXPECT_TRUE(saving.Okey().endProgram);
    EXPECT_EQ(clears, 2);
}

TEST(ShortFileName, KeepsShortNamesWhole) {
    EXPECT_EQ(ShortFileName("New_Project.inp"), "New_Project.inp");
    EXPECT_EQ(ShortFileName("/home/user/projects/clinic.inp"), "clinic.inp");
}

}  // namespace
}  // namespace solvane

namespace solvane {
namespace {

TEST_F(TaskFlowTest, CodeIconsAnswerUntilTheChoiceIsShown) {
    MainMenuController plain = BeginProject();
    int calls = 0;
    HubServices services;
    services.selectCode = [&](Session& s, Prompt&, int index) {
        ++calls;
        s.model.session.CodeNum = index == 1 ? 3 : 2;
    };
    MainMenuController hub(session_, prompt_, services);
    hub.CodeIcon(1);
    hub.CodeIcon(0);  // not yet confirmed on the hub: the user may choose again
    EXPECT_EQ(calls, 2);
    hub.Refresh();
    EXPECT_TRUE(session_.mainmenu.At("Image8", 0).visible);
    EXPECT_FALSE(session_.mainmenu.At("Image8", 1).visible);
    hub.CodeIcon(0);
    EXPECT_EQ(calls, 2);
    prompt_.Queue(Answer::Yes);
    hub.NewProject();
    hub.Refresh();
    EXPECT_EQ(session_.model.session.CodeNum, 0);
    EXPECT_TRUE(session_.mainmenu.At("Image8", 1).visible);
    hub.CodeIcon(1);
    EXPECT_EQ(calls, 3);
}

}  // namespace
}  // namespace solvane
