// The open, sample and save dialogs: naming rules, the "File exists!" flow,
// the seed, the other unit system, the hourly copies and the clean-up of the
// staging files.

#include <gtest/gtest.h>

#include <fstream>

#include "core/text_file.h"
#include "projectfile/file_dialogs.h"
#include "test_project.h"
#include "ui/scripted_prompt.h"

namespace fs = std::filesystem;

namespace solvane {
namespace {

using test::LineAt;

TEST(DialogNamingTest, PathsAndExtensions) {
    EXPECT_EQ(BuildDialogPath("/home/u", "p.inp"), "/home/u/p.inp");
    EXPECT_EQ(BuildDialogPath("/home/u/", "p.inp"), "/home/u/p.inp");
    EXPECT_EQ(BuildDialogPath("/home/u", "/tmp/q.inp"), "/tmp/q.inp");
    EXPECT_EQ(BuildDialogPath("/home/u", "C:\\x\\q.inp"), "C:\\x\\q.inp");

    EXPECT_EQ(SaveExtension("/d/proj.txt"), "/d/proj.inp");
    EXPECT_EQ(SaveExtension("/d/proj"), "/d/proj.inp");
    EXPECT_EQ(SaveExtension("/d/proj.INP"), "/d/proj.INP");
    EXPECT_EQ(SaveExtension("/d/proj.Inp"), "/d/proj.inp");
    EXPECT_EQ(SaveExtension("/d/proj.v2.txt"), "/d/proj.inp");
    EXPECT_EQ(SaveExtension("/d.old/proj"), "/d.old/proj.inp");

    EXPECT_EQ(OpenExtension("/d/proj.txt"), "/d/proj.inp");
    EXPECT_EQ(OpenExtension("/d/proj"), "/d/proj.inp");
    EXPECT_EQ(OpenExtension("/d/proj.INP"), "/d/proj.INP");
    EXPECT_EQ(OpenExtension("/d.x/proj"), "/d.x/proj.inp");

    EXPECT_EQ(SampleDisplayName("Office [SI units].inp"), "Office .inp");
    EXPECT_EQ(SampleDisplayName("School.inp"), "School.inp");

    const auto hourly = HourlyFiles(ProgramPaths("/prog"), "/d/proj.inp");
    ASSERT_EQ(hourly.size(), 3u);
    EXPECT_EQ(hourly[0].kept, "/d/proj-inp-Energy.hry");
    EXPECT_EQ(hourly[1].kept, "/d/proj-inp-Temp.hry");
    EXPECT_EQ(hourly[2].working, "/prog/temp/eweth$.hry");
}

TEST(GeneralErrorReportTest, TextsAndTitles) {
    EXPECT_EQ(GeneralErrorText(53),
              "Bad file name, or some files are missing, or your input is not complete. Re-check "
              "your program input data.");
    EXPECT_EQ(GeneralErrorText(72), "Disk error. Please check the disk and try again.");
    EXPECT_EQ(GeneralErrorText(61), "Disk is full.  Save to another disk.");
    EXPECT_EQ(GeneralErrorText(76), "Path not found or path/file access error.");
    EXPECT_EQ(GeneralErrorText(9), "");
    ScriptedPrompt prompt;
    EXPECT_EQ(GeneralErrorReport(prompt, 70), ErrorReportEnd::Stopped);
    EXPECT_EQ(prompt.asked[0].title, "Solvane Error # 70");
    EXPECT_EQ(prompt.asked[0].text, "Permission denied.  Check the disk.");
    EXPECT_EQ(prompt.asked[0].icon, Icon::Exclamation);
    EXPECT_EQ(GeneralErrorReport(prompt, 482), ErrorReportEnd::Resumed);
    EXPECT_EQ(prompt.asked[1].text.rfind("No printers were found -- printing", 0), 0u);
}

class DialogTest : public ::testing::Test {
  protected:
    void SetUp() override {
        folder_ = std::make_unique<test::ProgramFolder>(
            ::testing::UnitTest::GetInstance()->current_test_info()->name());
        session_.paths = ProgramPaths(folder_->Root());
        test::BuildOfficeProject(session_);
        session_.model.flags.ProjectFromFile = 0;
        projects_ = folder_->Root() / "projects";
        fs::create_directories(projects_);
    }
    SaveInputFormController SaveForm() {
        SaveInputFormController form(session_, prompt_, [] { return 0.25; });
        form.Show(projects_.string());
        return form;
    }
    void Touch(const fs::path& p, const std::string& text = "x") {
        std::ofstream(p, std::ios::binary) << text;
    }
    std::unique_ptr<test::ProgramFolder> folder_;
    fs::path projects_;
    Session session_;
    ScriptedPrompt prompt_;
};

TEST_F(DialogTest, FirstSaveDrawsTheSeedAndSetsTheFlags) {
    auto form = SaveForm();
    form.inputname = "proj.txt";
    const Navigation nav = form.Ok();
    EXPECT_EQ(nav.show, Screen::MainMenu);
    const fs::path saved = projects_ / "proj.inp";
    ASSERT_TRUE(fs::exists(saved));
    EXPECT_TRUE(prompt_.asked.empty());
    const ProjectModel& m = session_.model;
    EXPECT_EQ(m.session.WeatherSeed, ".25");
    EXPECT_EQ(LineAt(*ReadTextFile(saved), 0), "SOLVANE   .25        4  IP");
    EXPECT_EQ(m.flags.ProjectFromFile, 1);
    EXPECT_EQ(m.flags.InputSavedFlag, 1);
    EXPECT_EQ(m.flags.InputFileSaved, 1);
    EXPECT_EQ(m.flags.InputFileSavedOnce, 1);
    EXPECT_EQ(m.session.InputFileName, saved.string());
    EXPECT_EQ(m.session.PreviousInputFileName, saved.string());
    EXPECT_EQ(form.inputname, saved.string());
    EXPECT_EQ(form.browser.File1, std::vector<std::string>{"proj.inp"});

    // A saved project keeps its seed.
    SaveInputFormController again(session_, prompt_, [] { return 0.75; });
    again.Show(projects_.string());
    again.inputname = "other";
    again.Ok();
    EXPECT_EQ(m.session.WeatherSeed, ".25");
}

TEST_F(DialogTest, SavingOverAFileAsksFirst) {
    const fs::path target = projects_ / "proj.inp";
    Touch(target, "old");
    auto form = SaveForm();
    form.inputname = "proj";
    prompt_.Queue(Answer::No);
    const Navigation nav = form.Ok();
    EXPECT_EQ(nav.show, Screen::None);  // stays in the dialog
    EXPECT_FALSE(nav.hideCurrent);
    ASSERT_EQ(prompt_.asked.size(), 2u);
    EXPECT_EQ(prompt_.asked[0].title, "File exists!");
    EXPECT_EQ(prompt_.asked[0].text, "This file already exits.\r\nDo you want to replace it?");
    EXPECT_EQ(prompt_.asked[0].buttons, Buttons::YesNo);
    EXPECT_EQ(prompt_.asked[1].title, "Give file new name.");
    EXPECT_EQ(prompt_.asked[1].text, "Please enter a new file name to save.");
    EXPECT_EQ(*ReadTextFile(target), "old");

    prompt_.Queue(Answer::Yes);
    EXPECT_EQ(form.Ok().show, Screen::MainMenu);
    EXPECT_NE(*ReadTextFile(target), "old");
}

TEST_F(DialogTest, AFailedWriteLeavesTheOldFileWhole) {
    const fs::path target = projects_ / "proj.inp";
    Touch(target, "old");
    fs::remove(folder_->Root() / "sketch" / "bld_mtx.all");
    auto form = SaveForm();
    form.inputname = "proj.inp";
    const Navigation nav = form.Ok();
    EXPECT_EQ(nav.show, Screen::None);
    EXPECT_EQ(*ReadTextFile(target), "old");
    EXPECT_EQ(prompt_.asked.back().title, "Save Project");
    EXPECT_EQ(session_.model.flags.InputFileSaved, 0);
}

TEST_F(DialogTest, SavingInTheOtherUnits) {
    auto form = SaveForm();
    form.inputname = "si";
    form.unitChoice = 2;
    prompt_.Queue(Answer::Cancel);  // the notice's Cancel is not acted on
    form.Ok();
    ASSERT_EQ(prompt_.asked.size(), 1u);
    EXPECT_EQ(prompt_.asked[0].title, "Unit save notice!");
    EXPECT_EQ(prompt_.asked[0].text,
              "If you save your project with new units, be sure to close Solvane before you open "
              "this project and do further work with it.");
    const auto text = ReadTextFile(projects_ / "si.inp");
    ASSERT_TRUE(text);
    EXPECT_EQ(LineAt(*text, 0).substr(24), "SI");
    EXPECT_EQ(LineAt(*text, 9), "FloorArea  445.9");
    EXPECT_EQ(session_.model.session.Units, 1);
    EXPECT_EQ(session_.model.ProjectData[8], "4800");

    // The file opens in SI in a fresh start.
    Session fresh;
    fresh.paths = session_.paths;
    ScriptedPrompt prompt;
    OldFileFormController open(fresh, prompt, test::TitleHooks());
    open.Show(projects_.string());
    open.retrievefile = "si";
    EXPECT_EQ(open.Ok().show, Screen::MainMenu);
    EXPECT_EQ(fresh.model.session.Units, 2);
    EXPECT_EQ(fresh.model.ProjectData[8], " 445.9");
}

TEST_F(DialogTest, ExitAfterSaveEndsTheProgramAndClearsTheStagingFiles) {
    Touch(folder_->Root() / "temp" / "temp1-1.zon");
    session_.model.flags.ExitAfterSave = 1;
    auto form = SaveForm();
    form.inputname = "last";
    const Navigation nav = form.Ok();
    EXPECT_TRUE(nav.endProgram);
    EXPECT_TRUE(fs::exists(projects_ / "last.inp"));
    EXPECT_FALSE(fs::exists(folder_->Root() / "temp" / "temp1-1.zon"));
}

TEST_F(DialogTest, WhatFollowsTheSave) {
    // A run waiting for the save: the head line is read and the run screen opens.
    session_.model.flags.PendingAfterSave = 3;
    auto form = SaveForm();
    form.inputname = "run";
    EXPECT_EQ(form.Ok().show, Screen::RunSim);
    EXPECT_EQ(session_.model.session.WeatherSeed, ".25       ");

    // Unsaved results: offered, and Yes opens the results dialog.
    session_.model.flags.PendingAfterSave = 0;
    session_.model.flags.RunDone = 1;
    session_.model.flags.OutputAvailable = 1;
    prompt_.Queue(Answer::Yes);  // "File exists!"
    prompt_.Queue(Answer::Yes);  // "Save output"
    const Navigation nav = form.Ok();
    EXPECT_EQ(prompt_.asked.back().title, "Save output");
    EXPECT_EQ(prompt_.asked.back().text,
              "The last simulation results has not been saved.  Do you want to save them?");
    EXPECT_EQ(nav.show, Screen::SaveOutForm);
    ASSERT_TRUE(form.results);
    EXPECT_EQ(form.results->outputName, "ot_run.ot1");
    EXPECT_EQ(form.results->folder, projects_.string());
    EXPECT_EQ(form.results->pattern, "*.ot*");
    EXPECT_TRUE(form.results->nosaveVisible);
    EXPECT_EQ(session_.model.flags.RunDone, 0);
}

TEST_F(DialogTest, OpenReadsTheProjectAndCopiesTheHourlyFiles) {
    auto form = SaveForm();
    form.inputname = "proj";
    form.Ok();
    Touch(projects_ / "proj-inp-Energy.hry", "energy");
    Touch(projects_ / "proj-inp-Weth.hry", "weather");

    Session other;
    other.paths = session_.paths;
    other.model.flags.ProjectFromFile = 1;
    other.model.economics.NumDemandRates = 3;
    other.model.economics.DemandRateLimit[3] = "900";
    Touch(folder_->Root() / "temp" / "temp9-9.zon");
    ScriptedPrompt prompt;
    OldFileFormController open(other, prompt, test::TitleHooks());
    open.Show(projects_.string());
    ASSERT_EQ(open.browser.File1.size(), 1u);
    open.ChooseFile(0);
    EXPECT_EQ(open.retrievefile, "proj.inp");
    const Navigation nav = open.Ok();
    EXPECT_EQ(nav.show, Screen::MainMenu);
    EXPECT_TRUE(nav.hideCurrent);
    ASSERT_EQ(prompt.asked.size(), 1u);
    EXPECT_EQ(prompt.asked[0].title, "Project Retrieved");
    EXPECT_EQ(prompt.asked[0].text, "Your Project is ready for review and/or Execution");
    EXPECT_EQ(prompt.asked[0].icon, Icon::Information);

    const ProjectModel& m = other.model;
    const std::string path = (projects_ / "proj.inp").string();
    EXPECT_EQ(m.session.InputFileName, path);
    EXPECT_EQ(m.session.InputFileShortName, path);
    EXPECT_EQ(m.session.PreviousInputFileName, path);
    EXPECT_EQ(m.session.RunInputFileName, path);
    EXPECT_EQ(m.flags.ProjectTouched, 1);
    EXPECT_EQ(m.economics.NumDemandRates, 2);
    EXPECT_EQ(m.economics.DemandRateLimit[3], "");
    EXPECT_FALSE(fs::exists(folder_->Root() / "temp" / "temp9-9.zon"));
    EXPECT_TRUE(fs::exists(folder_->Root() / "temp" / "temp1-1.zon"));
    EXPECT_EQ(*ReadTextFile(folder_->Root() / "temp" / "ecalc$.hry"), "energy");
    EXPECT_EQ(*ReadTextFile(folder_->Root() / "temp" / "eweth$.hry"), "weather");
    EXPECT_FALSE(fs::exists(folder_->Root() / "temp" / "etemp$.hry"));
    EXPECT_EQ(*ReadTextFile(folder_->Root() / "temp" / "wthChange.txt"), "1\r\n");
    EXPECT_EQ(other.mainmenu.caption,
              "SOLVANE 2020 Project:... Energy Code = 90.1-2019 (Latest Version)");
    EXPECT_TRUE(other.mainmenu["zonedescription"].enabled);
}

TEST_F(DialogTest, OpenOfAMissingOrDamagedFile) {
    ScriptedPrompt prompt;
    Session other;
    other.paths = session_.paths;
    other.model.flags.ProjectFromFile = 1;
    Touch(folder_->Root() / "temp" / "temp9-9.zon");
    OldFileFormController open(other, prompt, test::TitleHooks());
    open.Show(projects_.string());
    open.retrievefile = "nothing";
    const Navigation missing = open.Ok();
    EXPECT_EQ(missing.show, Screen::None);
    EXPECT_FALSE(missing.endProgram);
    EXPECT_EQ(prompt.asked.back().title, "Open Project");
    EXPECT_TRUE(fs::exists(folder_->Root() / "temp" / "temp9-9.zon"));

    // A folder named as the project is told as such, not as a short file.
    fs::create_directories(projects_ / "folder.inp");
    open.retrievefile = "folder.inp";
    EXPECT_EQ(open.Ok().show, Screen::None);
    EXPECT_EQ(prompt.asked.back().title, "Open Project");
    EXPECT_NE(prompt.asked.back().text.find("folder.inp is a folder, not a project file"),
              std::string::npos)
        << prompt.asked.back().text;
    EXPECT_TRUE(fs::exists(folder_->Root() / "temp" / "temp9-9.zon"));

    Touch(projects_ / "broken.inp", "SOLVANE   .5        4  IP\r\nBld. Type Office 21\r\n");
    open.retrievefile = "broken.inp";
    other.model.ProjectData[kProjName] = "Kept";
    const Navigation broken = open.Ok();
    EXPECT_FALSE(broken.endProgram);
    EXPECT_EQ(broken.show, Screen::None);
    EXPECT_EQ(prompt.asked.back().title, "Surprise");
    // The project in memory and its staging files are as they were.
    EXPECT_EQ(other.model.ProjectData[kProjName], "Kept");
    EXPECT_EQ(other.model.flags.ProjectFromFile, 1);
    EXPECT_TRUE(fs::exists(folder_->Root() / "temp" / "temp9-9.zon"));
}

TEST_F(DialogTest, SampleListDropsTheBracketsAndOpens) {
    auto form = SaveForm();
    form.inputname = "proj";
    form.Ok();
    fs::copy_file(projects_ / "proj.inp", folder_->Root() / "sample" / "Office [two levels].inp");
    Touch(folder_->Root() / "sample" / "notes.txt");
    // A file that is too short to hold a description is listed without one.
    Touch(folder_->Root() / "sample" / "Stub.inp");

    Session other;
    other.paths = session_.paths;
    ScriptedPrompt prompt;
    SampleFileFormController samples(other, prompt, test::TitleHooks());
    samples.Show();
    ASSERT_EQ(samples.File1.size(), 2u);
    EXPECT_EQ(samples.File1[0], "Office .inp");
    EXPECT_EQ(samples.Files[0], "Office [two levels].inp");
    ASSERT_EQ(samples.Descriptions.size(), 2u);
    EXPECT_EQ(samples.Descriptions[0], session_.model.ProjectData[kProjDesc]);
    EXPECT_FALSE(samples.Descriptions[0].empty());
    EXPECT_EQ(samples.Descriptions[1], "");
    EXPECT_EQ(samples.Ok().show, Screen::MainMenu);
    EXPECT_EQ(prompt.asked.back().title, "Sample Project Retrieved");
    EXPECT_EQ(other.model.zones.NumZones, 3);
}

TEST_F(DialogTest, ClearStagedZonesOnlyWhenTheProjectHoldsSomething) {
    const fs::path staged = folder_->Root() / "temp" / "temp1-1.zon";
    Touch(staged);
    ProjectModel& m = session_.model;
    m.flags = ProgressFlags{};
    m.profiles.ProfileTypeEdited = {};
    ClearStagedZones(session_, prompt_);
    EXPECT_TRUE(fs::exists(staged));
    m.flags.CatalogEdited[4] = 1;
    ClearStagedZones(session_, prompt_);
    EXPECT_FALSE(fs::exists(staged));

    Touch(staged);
    m.flags = ProgressFlags{};
    m.flags.SketchVisits = 1;
    ClearStagedZones(session_, prompt_);
    EXPECT_FALSE(fs::exists(staged));
    EXPECT_TRUE(prompt_.asked.empty());

    // A failure is reported with the general error report and ignored.
    fs::remove_all(folder_->Root() / "temp");
    Touch(folder_->Root() / "temp");
    ClearStagedZones(session_, prompt_);
    ASSERT_EQ(prompt_.asked.size(), 1u);
    EXPECT_EQ(prompt_.asked[0].title, "Solvane Error # 76");
    EXPECT_EQ(prompt_.asked[0].text, "Path not found or path/file access error.");
}

TEST_F(DialogTest, FileListsFolders) {
    fs::create_directories(projects_ / "sub");
    Touch(projects_ / "b.INP");
    Touch(projects_ / "a.inp");
    Touch(projects_ / "c.txt");
    FileBrowser browser;
    browser.ChangeFolder(projects_.string());
    EXPECT_EQ(browser.File1, (std::vector<std::string>{"a.inp", "b.INP"}));
    EXPECT_EQ(browser.Dir1, (std::vector<std::string>{"..", "sub"}));
    browser.OpenFolder(1);
    EXPECT_EQ(fs::path(browser.Dir1Path), projects_ / "sub");
    browser.OpenFolder(0);
    EXPECT_EQ(fs::path(browser.Dir1Path), projects_);
    EXPECT_FALSE(browser.Drive1.empty());
}

}  // namespace
}  // namespace solvane
