#include "core/startup.h"

#include <algorithm>
#include <filesystem>

#include "core/numeric_helpers.h"
#include "core/text_file.h"

namespace solvane {

std::string CityCountLine(long count) {
    return "SI and IP Units for " + std::to_string(count) + " Cities Worldwide.";
}

namespace {

void SetTodayFields(ProjectSession& s, const FixedLabels& labels, const StartupEnvironment& env) {
    s.TodayYear = env.year;
    s.TodayMonth = env.month;
    s.TodayDay = env.day;
    s.TodayText = std::to_string(env.year) + " " +
                  (env.month >= 1 && env.month <= 12 ? labels.MonthName[env.month] : "") + " " +
                  std::to_string(env.day);
}

// The standing default units: "1" or "2" in \temp\ecalc$.unt; anything else
// leaves the units unchosen.
int ReadDefaultUnits(const ProgramPaths& paths) {
    const auto path = paths.Resolve("\\temp\\ecalc$.unt");
    if (!FileExists(path)) return 0;
    const auto text = ReadTextFile(path);
    if (!text) return 0;
    const double units = NumVal(*text);
    return units == 1 || units == 2 ? static_cast<int>(units) : 0;
}

}  // namespace

void StartUp(Session& session, Prompt& prompt, const StartupEnvironment& env,
             const StartupHooks& hooks) {
    ProjectModel& m = session.model;
    ProgressFlags& f = m.flags;

    f.FirstVisit.fill(1);
    f.FirstVisit[0] = 0;
    f.WindowSizerFresh = 1;
    f.CatalogReload[1] = f.CatalogReload[2] = 1;
    f.FreshSession = 1;
    m.session.ProjectTitle.clear();
    f.InputSavedFlag = 0;

    session.labels = MakeFixedLabels();
    SetTodayFields(m.session, session.labels, env);

    if (!env.spreadsheetFound) {
        prompt.Ask(
            "Microsoft EXCEL spreadsheet software was not found on this computer.  You will not "
            "have the ability to display hourly spreadsheet data during the run; however, you can "
            "still show all normal summaries in both graphic and tabular forms.",
            "EXCEL Alert!", Buttons::Ok, Icon::None);
    }

    WriteFileAtomic(session.paths.Resolve("/temp/wthChange.txt"), "1\r\n");

    if (env.printerCount <= 0) {
        prompt.Ask(
            "No printers were found -- printing will not be available until printer is "
            "installed. \r\nThis will cause problems in the drawing routine and also if printed "
            "results are required. \r\nIt is recommended that you exit the program and install a "
            "printer before proceeding.",
            "", Buttons::Ok, Icon::None);
        f.NoPrinter = 1;
    }

    if (hooks.loadClimateIndex) session.CityCount = hooks.loadClimateIndex(session);
    session.mainform["Label8"].text = CityCountLine(session.CityCount);

    m.ScreenFactorA = std::max(RoundOff(10 - env.screenWidth * 0.000667, 2), 0.0f);
    m.ScreenFactorB = std::max(RoundOff(5 - env.screenHeight * 0.000333, 2), 0.0f);

    m.session.InputFileName = "New_Project.inp";
    m.session.OutputFileName = "Output results not yet saved";
    m.session.InputFileVersion = 4;
    f.ViewedStoredOutput = 0;
    f.ProjectFromFile = 0;
    f.ZonesDescribed = 0;
    m.GridMajorStep = 60;
    m.GridMinorStep = 90;
    m.session.ClimateZone = "1";

    session.mainmenu["Label8"].text = session.labels.CodeTitle[0];
    session.mainmenu["Label8"].color = session.labels.CodeColor[0];

    for (int t = 1; t <= kProfileTypes; ++t) m.profiles.Types[t].GroupNum.fill("");
    if (hooks.loadBuildingTypes) hooks.loadBuildingTypes(session);

    const int units = ReadDefaultUnits(session.paths);
    session.mainform.At("unitnum", 1).value = units == 1;
    session.mainform.At("unitnum", 2).value = units == 2;
    m.session.Units = static_cast<std::int16_t>(units);
    m.session.UnitsIndex = static_cast<std::int16_t>(units - 1);
    session.mainmenu["Label13"].text =
        "Project Units = " + (units == 1 || units == 2 ? session.labels.UnitsLabel[units] : "");
    session.mainform["continue"].text = "Begin >>";

    session.WeatherRegion = 1;
    session.WeatherStatePick = "Alabama";
    session.WeatherCityPick = "Albertville Muni AP";
}

void ResetProject(Session& session) {
    ProjectModel& m = session.model;
    ProgressFlags& f = m.flags;

    m.session.PreviousInputFileName = m.session.InputFileName;
    m.session.InputFileName = "NewProject.inp";

    if (f.SketchVisits > 0) {
        std::error_code ec;
        const auto temp = session.paths.Resolve("\\temp");
        for (std::filesystem::directory_iterator it(temp, ec), end; !ec && it != end;
             it.increment(ec)) {
            const auto ext = it->path().extension().string();
            if (ext.size() == 4 && (ext == ".tmp" || ext == ".TMP" || ext == ".Tmp"))
                std::filesystem::remove(it->path(), ec);
        }
    }

    f.WindowSizerFresh = 1;
    f.CatalogReload[1] = f.CatalogReload[2] = 1;
    f.ClimateZoneDefault = 1;

    f.ProjectFromFile = f.ProjectInfoEdited = 0;
    f.SketchVisits = 0;
    f.ReSketched = f.ZonesDescribed = f.LocationKnown = f.PendingAfterSave = 0;
    f.RunDone = f.OutputAvailable = f.InputFileSaved = f.InputFileSavedOnce = 0;
    f.DaylightingUsed = f.WallCatalogLoaded = f.WindowCatalogLoaded = 0;
    f.SketchInfoChanged = f.ZoneChangedAfterSketch = 0;
    m.climate.RecordedWeatherSelected = m.climate.DesTempsPresent = 0;
    m.climate.RecordedWeatherFile.clear();
    m.climate.WeatherFileFormat = 0;

    for (int i = 1; i <= 3; ++i) m.climate.DesTemps[i].clear();
    for (int i = 1; i <= 15; ++i) f.ProjectScreenFlags[i] = f.ProjectScreenFlags2[i] = 0;
    for (int i = 1; i <= kProfileTypes; ++i)
        m.profiles.ProfileTypeUsed[i] = m.profiles.ProfileTypeEdited[i] = 0;
    for (int i = 1; i <= 7; ++i) f.CatalogEdited[i] = 0;
    for (int z = 1; z <= kMaxZones; ++z) m.zones.ZoneExists[z] = m.zones.ZoneDescribed[z] = 0;

    for (int i = 1; i <= 13; ++i) m.ProjectData[i].clear();
    for (int i = 1; i <= 11; ++i) m.climate.WeatherData[i].clear();
    for (int i = 0; i <= 10; ++i) m.economics.EconomicsData[i].clear();

    m.economics.DemandCharge.clear();
    m.session.InputFileVersion = 4;
}

}  // namespace solvane
