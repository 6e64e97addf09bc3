// Owns the session, the controllers and the screens, and moves between the
// screens as the controllers ask.
#pragma once

#include <QObject>
#include <memory>
#include <thread>

#include "code/project_info.h"
#include "core/exit_warning.h"
#include "core/main_form.h"
#include "core/main_menu.h"
#include "core/startup.h"
#include "economics/economics_form.h"
#include "projectfile/file_dialogs.h"
#include "propertydb/catalog_screen.h"
#include "propertydb/hvac_catalog.h"
#include "results/hourly_output.h"
#include "results/result_view.h"
#include "results/stored_results.h"
#include "results/tabular.h"
#include "run/run_sim.h"
#include "weather/climate_database.h"
#include "weather/recorded_weather.h"
#include "weather/weather_screen.h"

namespace solvane {

class MainFormScreen;
class MainMenuScreen;
class WarningScreen;
class OldFileFormScreen;
class SampleFileFormScreen;
class SaveInputFormScreen;
class WeatherDataScreen;
class ProjectInfoScreen;
class EconomicsScreen;
class CatalogScreen;
class HvacScreen;
class ZoneScreens;
class DrawFormScreen;

// The user's projects folder, Documents/SOLVANE; the dialogs make it when
// they first start in it.
std::string ProjectsFolder();
class RunOptionsScreen;
class RunSimScreen;
class ResultChartScreen;
class TabularScreen;
class SaveOutFormScreen;
class SelectViewScreen;
class HourlyScreen;

class AppShell : public QObject {
    Q_OBJECT
  public:
    // `prompt` answers for every screen: message boxes in the program, a
    // script in tests.
    AppShell(ProgramPaths paths, Prompt& prompt);
    ~AppShell() override;

    // Runs start-up and shows the start-up screen.
    void Start(const StartupEnvironment& env);
    void Navigate(const Navigation& nav);

    Session& session() { return session_; }
    MainFormScreen* mainform() { return mainform_.get(); }
    MainMenuScreen* mainmenu() { return mainmenu_.get(); }
    WarningScreen* warning() { return warning_.get(); }
    OldFileFormScreen* oldFileForm() { return oldFileForm_.get(); }
    SampleFileFormScreen* sampleFileForm() { return sampleFileForm_.get(); }
    SaveInputFormScreen* saveInputForm() { return saveInputForm_.get(); }
    WeatherDataScreen* weather() { return weather_.get(); }
    ProjectInfoScreen* projectInfo() { return projectInfo_.get(); }
    EconomicsScreen* economics() { return economics_.get(); }
    CatalogScreen* catalog() { return catalog_.get(); }
    HvacScreen* hvac() { return hvac_.get(); }
    ZoneScreens* zones() { return zones_.get(); }
    DrawFormScreen* drawForm() { return drawForm_.get(); }
    RunSimScreen* runSim() { return runSim_.get(); }
    ResultChartScreen* results() { return results_.get(); }
    TabularScreen* tabular() { return tabular_.get(); }
    SaveOutFormScreen* saveOutForm() { return saveOutForm_.get(); }
    SelectViewScreen* selectView() { return selectView_.get(); }
    HourlyScreen* hourly() { return hourly_.get(); }
    bool ended() const { return ended_; }

  signals:
    void programEnded();

  private:
    void MakeControllers();
    void MakeScreens();
    void ShowHub();
    // The chart of GraphRequest (1..7), the energy breakdown without one.
    void ShowRequestedChart();
    // The folder the project dialogs start in: the last one used, or the
    // user's projects folder, made on first use.
    std::string StartFolder();

    Session session_;
    Prompt& prompt_;
    ClimateIndex climateIndex_;
    StartupHooks startupHooks_;
    ProjectFileHooks projectFileHooks_;

    std::unique_ptr<MainFormController> mainformController_;
    std::unique_ptr<MainMenuController> mainmenuController_;
    std::unique_ptr<ExitWarningController> warningController_;
    std::unique_ptr<OldFileFormController> oldFileController_;
    std::unique_ptr<SampleFileFormController> sampleController_;
    std::unique_ptr<SaveInputFormController> saveController_;
    std::unique_ptr<WeatherScreen> weatherController_;
    std::unique_ptr<ProjectInfoController> projectInfoController_;
    std::unique_ptr<EconomicsController> economicsController_;
    std::unique_ptr<DemandChargeController> demandController_;
    std::unique_ptr<CatalogController> catalogController_;
    std::unique_ptr<HvacController> hvacController_;
    std::unique_ptr<RunSimController> runSimController_;
    std::unique_ptr<SelectWeatherController> selectWeatherController_;
    std::unique_ptr<ResultViewController> resultViewController_;
    std::unique_ptr<TabularController> tabularController_;
    std::unique_ptr<SaveOutFormController> saveOutController_;
    std::unique_ptr<SelectViewController> selectViewController_;
    std::unique_ptr<HourlyController> hourlyController_;

    std::unique_ptr<MainFormScreen> mainform_;
    std::unique_ptr<MainMenuScreen> mainmenu_;
    std::unique_ptr<WarningScreen> warning_;
    std::unique_ptr<OldFileFormScreen> oldFileForm_;
    std::unique_ptr<SampleFileFormScreen> sampleFileForm_;
    std::unique_ptr<SaveInputFormScreen> saveInputForm_;
    std::unique_ptr<WeatherDataScreen> weather_;
    std::unique_ptr<ProjectInfoScreen> projectInfo_;
    std::unique_ptr<EconomicsScreen> economics_;
    std::unique_ptr<CatalogScreen> catalog_;
    std::unique_ptr<HvacScreen> hvac_;
    std::unique_ptr<ZoneScreens> zones_;
    std::unique_ptr<DrawFormScreen> drawForm_;
    std::unique_ptr<RunOptionsScreen> runOptions_;
    std::unique_ptr<RunSimScreen> runSim_;
    std::unique_ptr<ResultChartScreen> results_;
    std::unique_ptr<TabularScreen> tabular_;
    std::unique_ptr<SaveOutFormScreen> saveOutForm_;
    std::unique_ptr<SelectViewScreen> selectView_;
    std::unique_ptr<HourlyScreen> hourly_;
    // The weather ensemble run after a run, in the background.
    void StartEnsemble();
    std::thread ensemble_;
    bool ended_ = false;
    std::string lastFolder_;
};

}  // namespace solvane
