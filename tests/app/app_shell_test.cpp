// Starts the desktop program offscreen and drives it through its widgets,
// found by their field names.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QRadioButton>
#include <QTest>

#include <filesystem>
#include <fstream>

#include "app/app_shell.h"
#include "app/catalogs.h"
#include "app/economics.h"
#include "app/file_forms.h"
#include "app/mainform.h"
#include "app/mainmenu.h"
#include "app/projectinfo.h"
#include "app/warning.h"
#include "app/weather.h"
#include "tests/app/app_fixture.h"
#include "ui/scripted_prompt.h"

namespace fs = std::filesystem;

namespace solvane {
namespace {

using AppShellTest = test::AppFixture;

TEST_F(AppShellTest, ChooseUnitsBeginAndSeeTheHub) {
    QWidget* form = shell_->mainform();
    EXPECT_TRUE(form->isVisible());
    EXPECT_FALSE(Find<QRadioButton>(form, "unitnum_1")->isChecked());

    prompt_.Queue(Answer::No);  // not as the default
    Find<QRadioButton>(form, "unitnum_1")->click();
    EXPECT_TRUE(Find<QRadioButton>(form, "unitnum_1")->isChecked());
    ASSERT_EQ(prompt_.asked.size(), 1u);
    EXPECT_EQ(prompt_.asked[0].text, "Set I-P Units as the default?");

    Find<QAbstractButton>(form, "continue")->click();
    QWidget* hub = shell_->mainmenu();
    EXPECT_FALSE(form->isVisible());
    EXPECT_TRUE(hub->isVisible());
    EXPECT_EQ(hub->windowTitle(), "SOLVANE 2020 New Project:... ");
    EXPECT_EQ(Find<QLabel>(hub, "Label8")->text(),
              "Energy code not selected. Do this before proceeding.");
    EXPECT_EQ(Find<QLabel>(hub, "Label13")->text(), "Project Units = IP");

    EXPECT_TRUE(Find<QWidget>(hub, "CodeStatus")->isEnabled());
    EXPECT_TRUE(Find<QWidget>(hub, "weatherdata")->isEnabled());
    for (const char* closed : {"projectinformation", "economicsdata", "buildingsketch",
                               "zonedescription", "executerun", "Image1", "Image6"})
        EXPECT_FALSE(Find<QWidget>(hub, closed)->isEnabled()) << closed;
    EXPECT_FALSE(Find<QMenu>(hub, "runmenu")->menuAction()->isEnabled());
    EXPECT_TRUE(Find<QMenu>(hub, "filemenu")->menuAction()->isEnabled());
}

TEST_F(AppShellTest, BeginWithoutUnitsStaysOnTheStartUpScreen) {
    Find<QAbstractButton>(shell_->mainform(), "continue")->click();
    EXPECT_TRUE(shell_->mainform()->isVisible());
    EXPECT_FALSE(shell_->mainmenu()->isVisible());
    ASSERT_EQ(prompt_.asked.size(), 1u);
    EXPECT_EQ(prompt_.asked[0].title, "Units have not been specified.");
}

TEST_F(AppShellTest, ProgramEndsOnlyFromTheFileMenu) {
    prompt_.Queue(Answer::No);
    Find<QRadioButton>(shell_->mainform(), "unitnum_2")->click();
    Find<QAbstractButton>(shell_->mainform(), "continue")->click();
    shell_->mainmenu()->close();
    EXPECT_TRUE(shell_->mainmenu()->isVisible());
    EXPECT_EQ(prompt_.asked.back().title, "Exit Warning");

    Find<QAction>(shell_->mainmenu(), "exititem")->trigger();
    QWidget* warning = shell_->warning();
    EXPECT_TRUE(warning->isVisible());
    EXPECT_EQ(Find<QLabel>(warning, "Label1")->text(),
              "Alert! Save input changes to:New_Project.inp ?");
    Find<QAbstractButton>(warning, "Cancel")->click();
    EXPECT_FALSE(shell_->ended());
    Find<QAction>(shell_->mainmenu(), "exititem")->trigger();
    Find<QAbstractButton>(warning, "Command1")->click();
    EXPECT_TRUE(shell_->ended());
    EXPECT_FALSE(shell_->mainmenu()->isVisible());
}

TEST_F(AppShellTest, WeatherScreenShowsAStationAndOkSetsTheLocation) {
    Begin("unitnum_2");
    EXPECT_NE(shell_->session().CityCount, 0);
    Snapshot(shell_->mainmenu(), "mainmenu");
    Find<QAbstractButton>(shell_->mainmenu(), "weatherdata")->click();
    QWidget* weather = shell_->weather();
    ASSERT_TRUE(weather->isVisible());
    EXPECT_FALSE(shell_->mainmenu()->isVisible());
    EXPECT_EQ(Find<QLineEdit>(weather, "citytext")->text(), "Albertville Muni AP");
    EXPECT_GT(Find<QComboBox>(weather, "Combo1")->count(), 40);
    EXPECT_GT(Find<QComboBox>(weather, "Combo3")->count(), 1);
    EXPECT_FALSE(Find<QLineEdit>(weather, "dbave_1")->text().isEmpty());
    EXPECT_EQ(Find<QLabel>(weather, "unt_1")->text(), "Deg. C");

    // Another region: its first state and city come up.
    Find<QRadioButton>(weather, "Option1_1")->click();
    EXPECT_EQ(Find<QLineEdit>(weather, "citytext")->text(), "Abee AgDM");
    Snapshot(weather, "weather");

    Find<QAbstractButton>(weather, "OK")->click();
    EXPECT_FALSE(weather->isVisible());
    EXPECT_TRUE(shell_->mainmenu()->isVisible());
    const ProjectModel& m = shell_->session().model;
    EXPECT_EQ(m.ProjectData[kLocation].rfind("Abee AgDM, Alberta", 0), 0u)
        << m.ProjectData[kLocation];
    EXPECT_FALSE(m.climate.WeatherData[4].empty());
    EXPECT_EQ(m.flags.TaskDone[2], 1);
}

TEST_F(AppShellTest, CodeWeatherTypeEconomicsAndCatalogsFromTheHub) {
    Begin("unitnum_1");
    QWidget* hub = shell_->mainmenu();
    // 90.1, then Yes for 2019 and Yes to confirm; the other prompts take OK.
    Find<QAbstractButton>(hub, "Image8_0")->click();
    EXPECT_EQ(shell_->session().model.session.CodeNum, 2);
    EXPECT_EQ(Find<QLabel>(hub, "Label8")->text(), "90.1-2019 (Latest Version) is specified.");

    Find<QAbstractButton>(hub, "weatherdata")->click();
    Find<QAbstractButton>(shell_->weather(), "OK")->click();
    ASSERT_TRUE(Find<QWidget>(hub, "projectinformation")->isEnabled());

    Find<QAbstractButton>(hub, "projectinformation")->click();
    QWidget* info = shell_->projectInfo();
    ASSERT_TRUE(info->isVisible());
    Find<QAction>(info, "building_4")->trigger();
    EXPECT_EQ(shell_->session().model.session.BuildingType, 4);
    EXPECT_FALSE(Find<QLineEdit>(info, "projectid_0")->text().isEmpty());
    Find<QAbstractButton>(info, "OK")->click();
    EXPECT_FALSE(info->isVisible());
    EXPECT_EQ(shell_->session().model.flags.TaskDone[1], 1);
    ASSERT_TRUE(Find<QWidget>(hub, "economicsdata")->isEnabled());

    Find<QAbstractButton>(hub, "economicsdata")->click();
    QWidget* econ = shell_->economics();
    ASSERT_TRUE(econ->isVisible());
    EXPECT_FALSE(Find<QLineEdit>(econ, "economics_5")->text().isEmpty());
    Find<QAbstractButton>(econ, "okey")->click();
    EXPECT_EQ(shell_->session().model.flags.TaskDone[3], 1);

    // Every help topic of the tutorial menu opens its text.
    const auto topics = Find<QMenu>(hub, "Helpmenu")->actions();
    EXPECT_GE(topics.size(), 7);
    Find<QAction>(hub, "codehelp")->trigger();
    EXPECT_EQ(hub->findChild<QDialog*>("help")->windowTitle(), "ENERGY CODE SELECTION");
    hub->findChild<QDialog*>("help")->hide();

    ASSERT_TRUE(Find<QMenu>(hub, "dtbase")->menuAction()->isEnabled());
    Find<QAction>(hub, "dbase_1")->trigger();
    QWidget* catalog = shell_->catalog();
    ASSERT_TRUE(catalog->isVisible());
    EXPECT_FALSE(Find<QLineEdit>(catalog, "UF_1")->text().isEmpty());
    Snapshot(catalog, "catalog");
    Find<QAbstractButton>(catalog, "Help")->click();
    auto* help = catalog->findChild<QDialog*>("help");
    ASSERT_NE(help, nullptr);
    EXPECT_TRUE(help->isVisible());
    EXPECT_EQ(help->windowTitle(), "WALL AND ROOF PROPERTIES");
    help->hide();
    Find<QAbstractButton>(catalog, "Cancel")->click();
    Find<QAction>(hub, "dbase_3")->trigger();
    QWidget* hvac = shell_->hvac();
    ASSERT_TRUE(hvac->isVisible());
    EXPECT_FALSE(Find<QLineEdit>(hvac, "Des_1")->text().isEmpty());
    Snapshot(hvac, "hvac");
    Find<QAbstractButton>(hvac, "Command2")->click();
    EXPECT_FALSE(hvac->isVisible());
}

TEST_F(AppShellTest, OpenASampleSaveItInTheOtherUnitsAndOpenThatFile) {
    Begin("unitnum_1");
    QWidget* hub = shell_->mainmenu();
    Find<QAbstractButton>(hub, "Picture1")->click();
    QWidget* samples = shell_->sampleFileForm();
    ASSERT_TRUE(samples->isVisible());
    auto* list = Find<QListWidget>(samples, "File1");
    ASSERT_EQ(list->count(), 6);
    EXPECT_EQ(list->item(4)->text(), "Small Office .inp");
    list->setCurrentRow(4);
    EXPECT_EQ(Find<QLabel>(samples, "Description")->text().toStdString(),
              "Two-storey office of 12000 sq.ft, Chicago, 90.1-2019");
    Find<QAbstractButton>(samples, "OK")->click();
    EXPECT_FALSE(samples->isVisible());
    EXPECT_TRUE(hub->isVisible());
    EXPECT_EQ(prompt_.asked.back().title, "Sample Project Retrieved");
    const ProjectModel& m = shell_->session().model;
    EXPECT_EQ(m.ProjectData[kProjName], "Lakeview Office");
    EXPECT_GT(m.zones.NumZones, 0);
    EXPECT_EQ(Find<QLabel>(hub, "Label8")->text().left(10), "90.1-2019 ");

    // Save it in SI under a new name.
    Find<QAction>(hub, "saveinput")->trigger();
    QWidget* save = shell_->saveInputForm();
    ASSERT_TRUE(save->isVisible());
    Find<QLineEdit>(save, "inputname")
        ->setText(QString::fromStdString((root_ / "office-si").string()));
    Find<QRadioButton>(save, "unitsave_2")->setChecked(true);
    Find<QAbstractButton>(save, "OK")->click();
    EXPECT_FALSE(save->isVisible());
    const fs::path saved = root_ / "office-si.inp";
    ASSERT_TRUE(fs::exists(saved));
    std::ifstream in(saved);
    std::string head;
    std::getline(in, head);
    EXPECT_EQ(head.substr(head.size() - 3), "SI\r");

    // Open what was saved.
    prompt_.Queue(Answer::Yes);  // the unsaved-data warning
    Find<QAction>(hub, "retrieveitem")->trigger();
    QWidget* open = shell_->oldFileForm();
    ASSERT_TRUE(open->isVisible());
    Find<QLineEdit>(open, "retrievefile")->setText(QString::fromStdString(saved.string()));
    Find<QAbstractButton>(open, "OK")->click();
    EXPECT_FALSE(open->isVisible());
    EXPECT_EQ(prompt_.asked.back().title, "Project Retrieved");
    EXPECT_EQ(shell_->session().model.session.Units, 2);
    EXPECT_EQ(shell_->session().model.ProjectData[kProjName], "Lakeview Office");
}

}  // namespace
}  // namespace solvane

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
