// Everything one running program holds: the project model, the fixed labels,
// the program folder, the hub screens' field states and the counts read at
// start-up. Passed explicitly to every controller.
#pragma once

#include <set>
#include <string>

#include "core/program_paths.h"
#include "core/project_model.h"
#include "ui/screen_fields.h"

namespace solvane {

// The screens of the program. A screen that is not in the shell's set of
// available screens keeps its task closed on the hub.
enum class Screen {
    None,
    MainForm,
    MainMenu,
    OldFileForm,
    SampleFileForm,
    SaveInputForm,
    CodeOption,
    ProjectInfo,
    Weather,
    Economics,
    DrawForm,
    ZoneForm,
    Catalog,
    Hvac,
    RunOptions,
    RunSim,
    SaveOutForm,
    SelectView,
    ResultCharts,  // the chart asked for by GraphRequest, else the energy breakdown
    Tabular,       // the table asked for by TableRequest
    Hourly,
    Warning,
    Help,
};

// What a controller action asks of the shell.
struct Navigation {
    Screen show = Screen::None;  // screen to bring forward, None to stay
    bool hideCurrent = false;
    bool endProgram = false;
};

struct Session {
    ProjectModel model;
    FixedLabels labels = MakeFixedLabels();
    ProgramPaths paths;
    std::set<Screen> availableScreens = {Screen::MainForm, Screen::MainMenu, Screen::Warning};

    ScreenFields mainform;
    ScreenFields mainmenu;
    ScreenFields warning;

    int CatalogKind = 1;  // the catalog the database menu opened: 1 walls, 2 windows
    long CityCount = 0;   // stations in the climate database
    // The location screen's starting selection.
    int WeatherRegion = 1;
    std::string WeatherStatePick = "Alabama";
    std::string WeatherCityPick = "Albertville Muni AP";
    int TimerPicture = 0;  // the hub's turning picture, 1..21
    bool TimerBlinkOn = true;

    bool Available(Screen s) const { return availableScreens.count(s) > 0; }
};

}  // namespace solvane
