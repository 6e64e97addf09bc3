#include "core/main_menu.h"

#include <filesystem>

#include "core/numeric_helpers.h"
#include "core/startup.h"
#include "core/text_file.h"

namespace solvane {

namespace {

const char* const kTaskLabels[] = {"CodeStatus",    "weatherdata",    "projectinformation",
                                   "economicsdata", "buildingsketch", "zonedescription",
                                   "executerun"};

constexpr const char* kUnsavedWarning =
    "Your current data will be lost if you have not saved it.  Do you still want to start a new "
    "project?";

}  // namespace

std::string ShortFileName(const std::string& fileName) {
    if (fileName.size() <= 20) return fileName;
    const auto slash = fileName.find_last_of("\\/");
    return slash == std::string::npos ? fileName : fileName.substr(slash + 1);
}

MainMenuController::MainMenuController(Session& session, Prompt& prompt, HubServices services)
    : session_(session), prompt_(prompt), services_(std::move(services)) {}

void MainMenuController::SetTask(const char* label, const char* icon, bool enabled) {
    session_.mainmenu[label].enabled = enabled;
    session_.mainmenu[icon].enabled = enabled;
}

void MainMenuController::InitFields() {
    ScreenFields& f = session_.mainmenu;
    for (int i = 0; i < 7; ++i) f[kTaskLabels[i]].text = kTaskCaptions[i];
    f["Image10"].text = "Click this icon to select ASHRAE Standard 90.1-2010 or 2019 version -->";
    f["Image11"].text = " Click this icon to select ASHRAE Std 189.1-2017 for high-performance";
    f.At("runenergy", 0).text = "Run with   A/C ";
    f.At("runenergy", 1).text = "Run w/out A/C (&Passive)";
    DisableTasksButCodeAndWeather();
    // Stored results can be viewed before any run: the menu is always live.
    f["viewmenu"].enabled = true;
    f["dtbase"].enabled = false;
    for (int i = 0; i <= 6; ++i) f.At("Image7", i).visible = true;
    f["filemenu"].enabled = true;
    f["Picture1"].enabled = true;
}

void MainMenuController::DisableTasksButCodeAndWeather() {
    SetTask("CodeStatus", "Image8_0", true);
    session_.mainmenu["Image8_1"].enabled = true;
    SetTask("weatherdata", "Image3", true);
    SetTask("projectinformation", "Image1", false);
    SetTask("economicsdata", "Image5", false);
    SetTask("buildingsketch", "Image4", false);
    SetTask("zonedescription", "Image12", false);
    SetTask("executerun", "Image6", false);
    session_.mainmenu["runmenu"].enabled = false;
}

void MainMenuController::BuildCaption() {
    const ProjectModel& m = session_.model;
    std::string title;
    if (m.flags.ProjectFromFile == 0) {
        if (!m.climate.LocationCity.empty())
            title = "New_Project.inp " + m.climate.LocationCity + ", " + m.climate.LocationState;
    } else {
        title = m.session.ProjectTitle;
    }
    if (title.find_first_not_of(' ') == std::string::npos) {
        session_.mainmenu.caption = "SOLVANE 2020 New Project:... ";
    } else {
        session_.mainmenu.caption = "SOLVANE 2020 Project:... " + title + " .. Energy Code = " +
                                    session_.labels.CodeTitle[m.session.CodeNum];
    }
}

void MainMenuController::Refresh() {
    ProjectModel& m = session_.model;
    ScreenFields& f = session_.mainmenu;
    const auto& done = m.flags.TaskDone;

    m.session.UnitsIndex = static_cast<std::int16_t>(m.session.Units - 1);
    const int units = m.session.Units;
    f["Label13"].text =
        "Project Units = " + (units == 1 || units == 2 ? session_.labels.UnitsLabel[units] : "");

    if (m.flags.RunDone == 1 && !m.session.RunInputFileName.empty() &&
        m.session.RunInputFileName != m.session.InputFileName)
        m.session.InputFileName = m.session.RunInputFileName;
    m.session.InputFileShortName = ShortFileName(m.session.InputFileName);

    if (done[5] == 1) f.At("Image7", 5).visible = f.At("Image7", 6).visible = false;

    // The tasks open in their numbered order: project information once the
    // weather is in (or the project came from a file), economics after it.
    if (done[2] == 1 || m.flags.ProjectFromFile == 1)
        SetTask("projectinformation", "Image1", Open(Screen::ProjectInfo));
    if (done[1] == 1) SetTask("economicsdata", "Image5", Open(Screen::Economics));

    if (done[1] == 1 && done[2] == 1 && done[4] == 1 && done[5] == 1) {
        const bool live = Open(Screen::RunOptions) || Open(Screen::RunSim);
        f["runmenu"].enabled = live;
        SetTask("executerun", "Image6", live);
    }
    if (!m.session.ClimateZone.empty() && m.session.BuildingType != 0 && m.session.CodeNum != 0) {
        f["dtbase"].enabled = Open(Screen::Catalog) || Open(Screen::Hvac);
        f.At("Image7", 3).enabled = f.At("Image7", 4).enabled = true;
    }
    if (done[1] == 1 && done[2] == 1 && done[6] == 1)
        SetTask("buildingsketch", "Image4", Open(Screen::DrawForm));
    // The zones can be described once a sketch has made them.
    if ((done[4] == 1 || m.flags.ProjectFromFile == 1) && m.zones.NumZones > 0)
        SetTask("zonedescription", "Image12", Open(Screen::ZoneForm));

    BuildCaption();

    // A passive run has no cost analysis and no cooling peak.
    const bool passive = m.flags.RunResultCode == 4 || m.flags.ViewRequest == 7;
    f.At("Table", 6).enabled = !passive;
    f.At("graph", 2).enabled = !passive;

    const int code = m.session.CodeNum;
    if (code > 0) {
        // The chosen code's icon stays as a sign of the choice; it no longer answers.
        f.At("Image8", 0).visible = code != 3;
        f.At("Image8", 1).visible = code == 3;
        f.At("Image8", 0).enabled = f.At("Image8", 1).enabled = false;
    } else {
        f.At("Image8", 0).visible = f.At("Image8", 1).visible = true;
        f.At("Image8", 0).enabled = f.At("Image8", 1).enabled = true;
        f["Image9"].visible = f["Label8"].visible = true;
        f["Image10"].visible = f["Image11"].visible = true;
    }

    m.ProjectData[kClimateZoneCopy] = m.session.ClimateZone;
    m.ProjectData[kCodeNameCopy] = m.session.CodeName;
    ShowProgress();
}

// The hub shows where the user is: a done mark (`TaskDoneMark`) on each
// finished task, and the arrow (`Image7`) on the next task to do only, never
// on a finished or a closed one.
void MainMenuController::ShowProgress() {
    ScreenFields& f = session_.mainmenu;
    const ProjectModel& m = session_.model;
    const auto& done = m.flags.TaskDone;
    const bool finished[] = {done[6] == 1 || m.session.CodeNum != 0,
                             done[2] == 1,
                             done[1] == 1,
                             done[3] == 1,
                             done[4] == 1,
                             done[5] == 1,
                             m.flags.RunDone == 1};
    static constexpr const char* kLabels[] = {
        "CodeStatus",     "weatherdata",     "projectinformation", "economicsdata",
        "buildingsketch", "zonedescription", "executerun"};
    bool placed = false;
    for (int row = 0; row < 7; ++row) {
        f.At("TaskDoneMark", row).visible = finished[row];
        const bool next = !placed && !finished[row] && f[kLabels[row]].enabled;
        f.At("Image7", row).visible = next;
        placed = placed || next;
    }
}

void MainMenuController::TimerTick() {
    ScreenFields& f = session_.mainmenu;
    const ProjectModel& m = session_.model;
    if (m.session.CodeNum == 0) {
        session_.TimerBlinkOn = !session_.TimerBlinkOn;
        f["Label8"].visible = f["Image10"].visible = f["Image11"].visible = session_.TimerBlinkOn;
    } else {
        session_.TimerBlinkOn = true;
        f["Label8"].visible = true;
    }
    ShowProgress();
    session_.TimerPicture = session_.TimerPicture % 21 + 1;
    for (int i = 1; i <= 21; ++i) f.At("Image2", i).visible = i == session_.TimerPicture;
}

Navigation MainMenuController::CodeIcon(int index) {
    // The icons answer until a confirmed code is shown on the hub.
    if (session_.mainmenu.At("Image8", index).enabled &&
        session_.mainmenu.At("Image8", index).visible && services_.selectCode)
        services_.selectCode(session_, prompt_, index);
    return {};
}

Navigation MainMenuController::CodeStatus() {
    if (services_.showCodeStatus) services_.showCodeStatus(prompt_);
    return {};
}

Navigation MainMenuController::NewProject() {
    ProjectModel& m = session_.model;
    prompt_.Beep();
    if (prompt_.Ask(kUnsavedWarning, "Warning...", Buttons::YesNo, Icon::None) == Answer::Yes) {
        m.flags.WindowSizerFresh = 1;
        m.flags.FreshSession = 1;
        m.session.ProjectTitle.clear();
        ResetProject(session_);
        // Nothing of the previous project's building type, climate and place
        // stays behind to pass for the new one's: all are as at start-up.
        m.session.BuildingType = 0;
        m.ProjectData[kBldType].clear();
        m.session.ClimateZone = "1";
        m.climate.LocationCity.clear();
        m.climate.LocationState.clear();
        for (int i = 1; i <= 6; ++i) m.flags.TaskDone[i] = 0;
        m.flags.DefaultsApplied = 0;
        m.flags.OutputAvailable = 0;
        m.session.CodeNum = 0;
        m.session.OutputFileName = "Output results not yet saved";
        session_.mainmenu.caption = "SOLVANE 2020 New Project:... ";
        session_.mainmenu["Label8"].text = session_.labels.CodeTitle[0];
        session_.mainmenu["Label8"].color = session_.labels.CodeColor[0];
        DisableTasksButCodeAndWeather();
        for (int i = 0; i <= 6; ++i) session_.mainmenu.At("Image7", i).visible = true;
    }
    m.flags.FirstVisit.fill(1);
    m.flags.FirstVisit[0] = 0;
    return {};
}

Navigation MainMenuController::OpenProject() {
    ProjectModel& m = session_.model;
    if (!Open(Screen::OldFileForm)) return {};
    if (m.flags.TaskDone[6] == 1 &&
        prompt_.Ask(kUnsavedWarning, "Warning...", Buttons::YesNo, Icon::Question) == Answer::No)
        return {};
    m.flags.FirstVisit.fill(0);
    return {Screen::OldFileForm, true, false};
}

Navigation MainMenuController::OpenSample() {
    ProjectModel& m = session_.model;
    if (!Open(Screen::SampleFileForm)) return {};
    for (int i = 1; i <= 5; ++i) {
        if (m.flags.TaskDone[i] == 1) {
            if (prompt_.Ask(kUnsavedWarning, "Warning...", Buttons::YesNo, Icon::Question) ==
                Answer::No)
                return {};
            break;
        }
    }
    m.flags.FirstVisit.fill(0);
    return {Screen::SampleFileForm, true, false};
}

Navigation MainMenuController::SaveProject() {
    ProjectModel& m = session_.model;
    if (m.flags.ReSketched == 1) {
        prompt_.Ask(
            "The building has been re-sketched.  Please click and examine the zone descriptions "
            "before saving.",
            "Error", Buttons::Ok, Icon::None);
        m.flags.InputFileSaved = 0;
        return {};
    }
    if (m.flags.TaskDone[2] == 0 && m.flags.ProjectFromFile == 0) {
        prompt_.Ask("Please enter the weather data before saving the input file.", "Weather Data",
                    Buttons::Ok, Icon::None);
        return {};
    }
    if (m.flags.TaskDone[4] == 0) {
        prompt_.Ask("Please sketch your building before saving the input file.", "Building Sketch",
                    Buttons::Ok, Icon::None);
        return {};
    }
    m.flags.PendingAfterSave = 0;
    if (!Open(Screen::SaveInputForm)) return {};
    return {Screen::SaveInputForm, false, false};
}

Navigation MainMenuController::ProjectInformation() {
    ProjectModel& m = session_.model;
    if (m.flags.TaskDone[1] == 0 && m.session.CodeNum == 0) {
        prompt_.Ask(
            "Both the energy code and the city location must be\r\nspecified before the other "
            "project data can be entered.",
            "Data missing", Buttons::Ok, Icon::None);
        return {};
    }
    if (!Open(Screen::ProjectInfo)) return {};
    if (m.flags.ReSketched == 1) m.ProjectData[kOrientation] = m.BuildingOrientation;
    m.flags.ProjectTouched = 1;
    return {Screen::ProjectInfo, true, false};
}

Navigation MainMenuController::Weather() {
    if (!Open(Screen::Weather)) return {};
    return {Screen::Weather, true, false};
}

Navigation MainMenuController::Economics() {
    if (!Open(Screen::Economics)) return {};
    return {Screen::Economics, true, false};
}

Navigation MainMenuController::Database(int entry) {
    if (entry == 1 || entry == 2) {
        if (!Open(Screen::Catalog)) return {};
        session_.CatalogKind = entry;
        return {Screen::Catalog, false, false};
    }
    if (!Open(Screen::Hvac)) return {};
    return {Screen::Hvac, false, false};
}

Navigation MainMenuController::Sketch() {
    ProjectModel& m = session_.model;
    if (!Open(Screen::DrawForm)) return {};
    m.flags.TaskDone[4] = 1;
    m.flags.SketchInfoChanged = 0;
    m.flags.ZoneChangedAfterSketch = 0;
    // Every zone is to be opened again after the sketch.
    for (int z = 1; z <= 99; ++z) m.zones.ZoneDescribed[z] = m.zones.ZoneVisited[z] = 0;
    if (m.flags.SketchVisits == 0 && m.flags.ProjectFromFile == 0) {
        std::error_code ec;
        std::filesystem::copy_file(session_.paths.Resolve("sketch\\bld_mtx9.000"),
                                   session_.paths.Resolve("sketch\\bld_mtx.all"),
                                   std::filesystem::copy_options::overwrite_existing, ec);
        m.sketch.FreshMatrix = 1;
    }
    m.WindowScale = 1;
    session_.mainmenu["projectinformation"].enabled = false;
    ++m.flags.SketchVisits;
    return {Screen::DrawForm, true, false};
}

Navigation MainMenuController::ZoneDescription() {
    ProjectModel& m = session_.model;
    if (m.flags.TaskDone[1] == 0 && m.flags.ProjectFromFile == 0) {
        prompt_.Ask(
            "Zone data cannot be edited because you have not entered the Project Information "
            "data.  Please click the Project Information button.",
            "Error", Buttons::Ok, Icon::None);
        return {};
    }
    for (int z = 1; z <= m.zones.NumZones && z <= kMaxZones; ++z) {
        if (m.zones.ZoneSurfaceCount[z] > kMaxSurfaces) {
            prompt_.Ask("The number of exterior surfaces in zone " + m.zones.ZoneName[z] +
                            " has exceeded the maximum of 33.  Return to the sketch and reduce "
                            "the exposures in the zone.",
                        "Error", Buttons::Ok, Icon::None);
            return {};
        }
    }
    if (!Open(Screen::ZoneForm)) return {};
    for (int z = 1; z <= m.zones.NumZones && z <= kMaxZones; ++z) {
        m.zones.ZoneData[z][1] = m.zones.ZoneNumber[z];
        m.zones.ZoneData[z][2] = m.zones.ZoneName[z];
        m.zones.ZoneData[z][3] = NumText(m.zones.ZoneFloorArea[z]);
    }
    if (m.flags.ZonesDescribed == 0 && services_.loadEnvelopeDefaults)
        services_.loadEnvelopeDefaults(session_, prompt_);
    if (services_.describeZones && !services_.describeZones(session_, prompt_)) return {};
    return {Screen::ZoneForm, true, false};
}

Navigation MainMenuController::ExecuteRun() {
    ProjectModel& m = session_.model;
    if (m.flags.ReSketched == 1) {
        prompt_.Ask("Please save your project input file before trying to run your simulation.",
                    "Project Not Saved Notice.", Buttons::Ok, Icon::None);
        SetTask("executerun", "Image6", false);
        return {};
    }
    if (m.flags.TaskDone[1] != 0 && m.flags.ProjectFromFile != 0 && m.flags.InputSavedFlag == 0) {
        if (prompt_.Ask("Do you want to save your project input file before execution?",
                        "Input file may need saving", Buttons::YesNo, Icon::None) == Answer::Yes &&
            Open(Screen::SaveInputForm))
            return {Screen::SaveInputForm, false, false};
    }
    if (!Open(Screen::RunOptions)) return {};
    return {Screen::RunOptions, false, false};
}

Navigation MainMenuController::RunEnergy(int index) {
    ProjectModel& m = session_.model;
    m.flags.PendingAfterSave = static_cast<std::int16_t>(index);
    if (m.flags.SketchVisits > 0 &&
        prompt_.Ask("If you have added or changed particular zone(s) with building sketch, you "
                    "have to make sure that you have opened the related zone form(s) before you "
                    "run the energy simulation.  Otherwise, the old data will be used.  Do you "
                    "still want to run the energy simulation?",
                    "Warning...", Buttons::YesNo, Icon::None) == Answer::No)
        return {};
    if (index == 1) {
        WriteFileAtomic(session_.paths.Resolve("\\temp\\ecalc$.tmp"), "1\r\n");
        if (!services_.writeEngineInput || !services_.writeEngineInput(session_, prompt_))
            return {};
        if (!Open(Screen::RunSim)) return {};
        return {Screen::RunSim, true, false};
    }
    if (m.flags.InputFileSaved == 0) {
        if (prompt_.Ask("If you changed your input, you should save it under the same name or "
                        "under a new file name.  Do you want to run the simulation without "
                        "saving the input?",
                        "Save input", Buttons::YesNo, Icon::None) == Answer::No) {
            if (!Open(Screen::SaveInputForm)) return {};
            return {Screen::SaveInputForm, false, false};
        }
    }
    if (m.flags.RunDone == 1 && m.flags.OutputFileSaved == 0 && Open(Screen::SaveOutForm))
        return {Screen::SaveOutForm, false, false};
    if (services_.readHeadLine) services_.readHeadLine(session_);
    if (!Open(Screen::RunSim)) return {};
    return {Screen::RunSim, true, false};
}

Navigation MainMenuController::Exit() {
    const ProjectModel& m = session_.model;
    if (m.flags.InputFileSaved == 0 || m.flags.ProjectFromFile == 1) {
        session_.warning["Label1"].text =
            "Alert! Save input changes to:" + m.session.InputFileName + " ?";
    } else {
        session_.warning["Label1"].text = "Alert! Do you want to save your input ?";
    }
    return {Screen::Warning, false, false};
}

Navigation MainMenuController::Close() {
    prompt_.Ask("You may only exit from the File menu on the Main menu screen, press OK",
                "Exit Warning", Buttons::Ok, Icon::Exclamation);
    return {};
}

}  // namespace solvane
