#include "tools/samples/sample_builder.h"

#include <random>
#include <set>
#include <stdexcept>

#include "cli/program_services.h"
#include "code/code_selection.h"
#include "code/project_info.h"
#include "core/main_form.h"
#include "core/main_menu.h"
#include "core/startup.h"
#include "core/text_file.h"
#include "projectfile/file_dialogs.h"
#include "sketch/draw_form.h"
#include "sketch/window_sizer.h"
#include "ui/raster_canvas.h"
#include "ui/scripted_prompt.h"
#include "weather/weather_screen.h"
#include "zones/zone_form.h"
#include "zones/zone_list.h"

namespace solvane::samples {

namespace fs = std::filesystem;

namespace {

// The prompts a user sees on the way through a sample; any other one (a
// refusal, an error, a warning about the input) stops the sample.
const std::set<std::string> kExpectedTitles = {
    "Set Units",
    "90.1 code selection",
    "Standards Selection",
    "Code Selected",
    "Climate Data change?",
    "Overhang shade requirement is exempt.",
    "Overhang shade requirement.",
    "Maximum Levels Exceeded",
    "Window Areas Will be Permanent if Applied.",
    "Window Save Alert!",
    "Changes saved.",
    "Zone Description",
};

class Steps {
  public:
    explicit Steps(ScriptedPrompt& prompt) : prompt_(prompt) {}

    // Checks the prompts since the last step; `step` names the one just taken.
    void Done(const std::string& step) {
        for (std::size_t i = seen_; i < prompt_.asked.size(); ++i) {
            const AskedPrompt& p = prompt_.asked[i];
            if (!kExpectedTitles.count(p.title))
                throw std::runtime_error(step + ": unexpected prompt \"" + p.title +
                                         "\": " + p.text);
        }
        seen_ = prompt_.asked.size();
    }
    void Require(bool ok, const std::string& step) {
        if (!ok) {
            const std::string last =
                prompt_.asked.empty() ? "" : " (last prompt: " + prompt_.asked.back().text + ")";
            throw std::runtime_error(step + " did not succeed" + last);
        }
        Done(step);
    }

  private:
    ScriptedPrompt& prompt_;
    std::size_t seen_ = 0;
};

// A drag of the box tool over the cells of `box`, from its upper left node to
// its lower right one.
void DrawCells(DrawFormController& form, const CellBox& box) {
    const double x1 = box.x * kGridStep, y1 = (box.y + box.depth) * kGridStep;
    const double x2 = (box.x + box.width) * kGridStep, y2 = box.y * kGridStep;
    form.MouseDown(x1, y1, MouseButton::Left);
    form.MouseMove((x1 + x2) / 2, (y1 + y2) / 2, true);
    form.MouseMove(x2, y2, true);
    form.MouseUp(x2, y2, MouseButton::Left);
}

void DrawLevel(DrawFormController& form, const SketchLevel& level) {
    if (!level.ceiling.empty()) form.CeilingEdited(level.ceiling);
    form.FloorsEdited(level.floors);
    int z = 0;
    for (const SketchZone& zone : level.zones) {
        ++z;
        form.NameFocus(z);
        form.NameEdited(z, zone.name);
        for (const CellBox& box : zone.boxes) DrawCells(form, box);
    }
}

void Sketch(Session& s, ScriptedPrompt& prompt, Steps& steps, const SampleSpec& spec) {
    RasterCanvas canvas{kCanvasWidth, kCanvasHeight};
    DrawFormController form(s, canvas, prompt);
    steps.Require(form.Load(), "Loading the sketch");
    if (!spec.gridSize.empty() && form.GridSizeFocus()) {
        form.GridSizeEdited(spec.gridSize);
        form.GridSizeLeave();
    }
    if (!spec.rotation.empty()) {
        form.RotationFocus();
        form.RotationEdited(spec.rotation);
        form.RotationLeave();
    }
    for (std::size_t n = 0; n < spec.levels.size(); ++n) {
        if (n > 0) form.LevelUp();  // "add another level?": Yes
        DrawLevel(form, spec.levels[n]);
        steps.Done("Drawing level " + std::to_string(n + 1));
    }
    // The window sizer's figures for the building type and code, saved.
    WindowSizerController sizer(s, prompt);
    sizer.Open();
    steps.Require(sizer.SaveExit(true), "Saving the window sizer");
    steps.Require(form.Exit().show == Screen::MainMenu, "Leaving the sketch");
}

int ZoneRow(const Session& s, const std::string& name) {
    for (int z = 1; z <= s.model.zones.NumZones; ++z)
        if (s.model.zones.ZoneName[z] == name) return z;
    throw std::runtime_error("no zone named " + name);
}

void DescribeZones(Session& s, ScriptedPrompt& prompt, Steps& steps, const SampleSpec& spec) {
    ZoneListController list(s, prompt);
    ZoneFormController form(s, prompt);
    list.Fill();
    for (const ZoneEdit& e : spec.edits) ZoneRow(s, e.zone);  // every edit names a zone
    for (int z = 1; z <= s.model.zones.NumZones; ++z) {
        steps.Require(list.Pick(z), "Picking zone " + std::to_string(z));
        steps.Require(form.ShowZone(list.PickedZone), "Showing zone " + std::to_string(z));
        for (const ZoneEdit& e : spec.edits) {
            if (ZoneRow(s, e.zone) != z) continue;
            form.EnterField(e.field);
            form.EditField(e.field, e.value);
            form.LeaveField(e.field);
        }
        steps.Require(form.Ok(), "OK on zone " + s.model.zones.ZoneName[z]);
    }
    steps.Require(list.Back(), "Back from the zone list");
}

}  // namespace

std::string MakeSample(const SampleSpec& spec, const fs::path& programDir) {
    ScriptedPrompt prompt;
    Steps steps(prompt);
    ClimateIndex climate;
    Session s;
    s.paths = ProgramPaths(programDir);
    s.availableScreens.insert({Screen::ProjectInfo, Screen::Weather, Screen::DrawForm,
                               Screen::ZoneForm, Screen::SaveInputForm});
    StartupEnvironment today;
    today.year = 2026;
    StartUp(s, prompt, today, MakeStartupHooks(climate));
    steps.Done("Start-up");

    MainFormController units(s, prompt, MakeStartupHooks(climate).loadScheduleLibrary);
    prompt.Queue(Answer::No);  // not as the default units
    units.ChooseUnits(spec.units);
    steps.Require(units.Begin().show == Screen::MainMenu, "Units");
    MainMenuController hub(s, prompt, MakeHubServices());
    hub.InitFields();

    if (spec.codeIcon == 0) prompt.Queue(spec.code2010 ? Answer::No : Answer::Yes);
    steps.Require(SelectCode(s, prompt, spec.codeIcon), "Code selection");
    hub.Refresh();

    WeatherScreen weather(s.model, s.paths, prompt, climate);
    weather.OpenTask();
    weather.ChooseRegion(spec.region);
    weather.ChooseState(spec.state);
    weather.ChooseCity(spec.city);
    steps.Require(weather.CurrentCity == spec.city && weather.Ok().show == Screen::MainMenu,
                  "Location " + spec.city);
    hub.Refresh();

    ProjectInfoController info(s, prompt);
    steps.Require(hub.ProjectInformation().show == Screen::ProjectInfo, "Project information");
    info.Open();
    info.SelectBuildingType(spec.buildingType);
    info.Change(1, spec.projectName);
    info.Change(2, spec.description);
    if (!spec.designStage.empty()) info.Change(4, spec.designStage);
    if (!spec.scheme.empty()) info.Change(5, spec.scheme);
    info.Change(6, spec.year);
    if (!spec.cost.empty()) info.Change(9, spec.cost);
    steps.Require(info.AcceptProject().show == Screen::MainMenu, "Project information OK");
    hub.Refresh();

    steps.Require(hub.Sketch().show == Screen::DrawForm, "Opening the sketch");
    Sketch(s, prompt, steps, spec);
    hub.Refresh();

    steps.Require(hub.ZoneDescription().show == Screen::ZoneForm, "Opening the zones");
    DescribeZones(s, prompt, steps, spec);
    hub.Refresh();

    const fs::path projects = programDir / "projects";
    fs::create_directories(projects);
    SaveInputFormController save(s, prompt, [&spec] { return spec.weatherSeed; });
    steps.Require(hub.SaveProject().show == Screen::SaveInputForm, "Opening the save dialog");
    save.Show(projects.string());
    save.inputname = spec.fileName;
    save.Ok();
    steps.Done("Saving");
    const auto text = ReadTextFile(projects / spec.fileName);
    if (!text) throw std::runtime_error("the project " + spec.fileName + " was not written");
    return *text;
}

std::vector<std::string> MakeAllSamples(const fs::path& dataDir) {
    std::random_device rd;
    const fs::path scratch =
        fs::temp_directory_path() / ("solvane_samples_" + std::to_string(rd()));
    std::vector<std::string> texts;
    try {
        for (const SampleSpec& spec : BundledSamples()) {
            fs::remove_all(scratch);
            fs::create_directories(scratch);
            fs::copy(dataDir, scratch, fs::copy_options::recursive);
            fs::remove_all(scratch / "sample");
            fs::create_directories(scratch / "temp");
            try {
                texts.push_back(MakeSample(spec, scratch));
            } catch (const std::exception& e) {
                throw std::runtime_error(spec.fileName + ": " + e.what());
            }
        }
    } catch (...) {
        std::error_code ec;
        fs::remove_all(scratch, ec);
        throw;
    }
    std::error_code ec;
    fs::remove_all(scratch, ec);
    return texts;
}

}  // namespace solvane::samples
