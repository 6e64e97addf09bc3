#include "app/app_shell.h"

#include <QAction>
#include <QDir>
#include <QLabel>
#include <QStandardPaths>
#include <QTime>
#include <filesystem>
#include <random>

#include "app/catalogs.h"
#include "app/drawform.h"
#include "app/economics.h"
#include "app/file_forms.h"
#include "app/hourly.h"
#include "app/mainform.h"
#include "app/mainmenu.h"
#include "app/projectinfo.h"
#include "app/result_files.h"
#include "app/result_screens.h"
#include "app/runsim.h"
#include "app/tabular.h"
#include "app/warning.h"
#include "app/weather.h"
#include "app/zoneform.h"
#include "cli/program_services.h"
#include "core/numeric_helpers.h"
#include "propertydb/envelope_defaults.h"
#include "studies/ensemble.h"

namespace solvane {

std::string ProjectsFolder() {
    QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    if (documents.isEmpty()) documents = QDir::homePath() + "/Documents";
    return (documents + "/SOLVANE").toStdString();
}

AppShell::AppShell(ProgramPaths paths, Prompt& prompt) : prompt_(prompt) {
    session_.paths = std::move(paths);
    startupHooks_ = MakeStartupHooks(climateIndex_);
    projectFileHooks_ = MakeProjectFileHooks();
    MakeControllers();
    MakeScreens();
}

AppShell::~AppShell() {
    if (ensemble_.joinable()) ensemble_.join();
}

void AppShell::StartEnsemble() {
    if (ensemble_.joinable()) ensemble_.join();
    const RunState& run = runSimController_->run();
    RunRequest request;
    request.periodBegin = run.RunDates[0];
    request.periodEnd = run.RunDates[1];
    request.defaultYear = static_cast<int>(NumVal(run.WeatherYear));
    request.passive = session_.model.flags.RunResultCode == 4;
    request.engineThreads = 1;  // the runs share the cores
    ensemble_ = std::thread([this, project = session_, request] {
        const EnsembleResult e =
            RunEnsemble(project, request, EnsembleSeeds(kDefaultEnsembleSize), AvailableCores());
        if (e.runs.empty()) return;
        QMetaObject::invokeMethod(
            this,
            [this, bands = ChartBandsOf(e)] {
                resultViewController_->bands = bands;
                results_->Refresh();
            },
            Qt::QueuedConnection);
    });
}

void AppShell::MakeControllers() {
    Session& s = session_;
    mainformController_ =
        std::make_unique<MainFormController>(s, prompt_, startupHooks_.loadScheduleLibrary);
    mainmenuController_ = std::make_unique<MainMenuController>(s, prompt_, MakeHubServices());
    ExitServices exitServices;
    exitServices.writeProjectFile = [](Session& session, Prompt& p) {
        return WriteProjectFileTo(session, p, session.model.session.InputFileName, false);
    };
    exitServices.clearStagedZones = ClearStagedZones;
    warningController_ = std::make_unique<ExitWarningController>(s, prompt_, exitServices);
    oldFileController_ = std::make_unique<OldFileFormController>(s, prompt_, projectFileHooks_);
    sampleController_ = std::make_unique<SampleFileFormController>(s, prompt_, projectFileHooks_);
    saveController_ = std::make_unique<SaveInputFormController>(s, prompt_);
    weatherController_ = std::make_unique<WeatherScreen>(s.model, s.paths, prompt_, climateIndex_);
    // A new location changes the code's envelope requirements: the catalogs
    // start again from the climate file.
    weatherController_->refreshClimateDefaults = [this] {
        if (session_.model.session.CodeNum == 0 || session_.model.session.BuildingType == 0) return;
        LoadEnvelopeDefaults(session_, prompt_);
        session_.model.flags.CatalogReload[1] = session_.model.flags.CatalogReload[2] = 1;
    };
    projectInfoController_ = std::make_unique<ProjectInfoController>(s, prompt_);
    weatherController_->locationChanged = [this](const std::string& location) {
        projectInfoController_->fields.At("projectid", 3).text = location;
    };
    economicsController_ = std::make_unique<EconomicsController>(s, prompt_);
    demandController_ = std::make_unique<DemandChargeController>(s, prompt_);
    catalogController_ = std::make_unique<CatalogController>(s, prompt_);
    hvacController_ = std::make_unique<HvacController>(s, prompt_);
    RunSimServices run;
    run.random = [engine = std::make_shared<std::mt19937_64>(std::random_device{}())] {
        return std::uniform_real_distribution<double>(0.0, 1.0)(*engine);
    };
    run.clock = [] { return QTime::currentTime().toString("hh:mm:ss").toStdString(); };
    run.timeLimitSeconds = kEngineTimeLimitSeconds;
    runSimController_ = std::make_unique<RunSimController>(s, prompt_, run);
    resultViewController_ = std::make_unique<ResultViewController>(s, prompt_);
    tabularController_ = std::make_unique<TabularController>(s, prompt_);
    saveOutController_ = std::make_unique<SaveOutFormController>(s, prompt_);
    selectViewController_ = std::make_unique<SelectViewController>(s, prompt_);
    hourlyController_ = std::make_unique<HourlyController>(s, prompt_, OpenInSpreadsheet);
}

void AppShell::MakeScreens() {
    auto navigate = [this](const Navigation& nav) { Navigate(nav); };
    mainform_ = std::make_unique<MainFormScreen>(session_, *mainformController_, navigate);
    mainmenu_ = std::make_unique<MainMenuScreen>(session_, *mainmenuController_, navigate);
    QWidget* hub = mainmenu_.get();
    warning_ = std::make_unique<WarningScreen>(session_, *warningController_, navigate, hub);
    const ProjectFolders folders{
        QString::fromStdString(ProjectsFolder()),
        QString::fromStdString(session_.paths.Resolve("\\sample").string())};
    oldFileForm_ = std::make_unique<OldFileFormScreen>(*oldFileController_, navigate, folders, hub);
    sampleFileForm_ = std::make_unique<SampleFileFormScreen>(*sampleController_, navigate, hub);
    saveInputForm_ =
        std::make_unique<SaveInputFormScreen>(session_, *saveController_, navigate, folders, hub);
    saveInputForm_->saved = [this](const QString& path) {
        if (auto* status = mainmenu_->findChild<QLabel*>("statusline"))
            status->setText("Project saved to " + path);
    };
    weather_ = std::make_unique<WeatherDataScreen>(*weatherController_, navigate, hub);
    projectInfo_ = std::make_unique<ProjectInfoScreen>(*projectInfoController_, navigate, hub);
    economics_ =
        std::make_unique<EconomicsScreen>(*economicsController_, *demandController_, navigate, hub);
    catalog_ = std::make_unique<CatalogScreen>(*catalogController_, session_.paths, navigate, hub);
    hvac_ = std::make_unique<HvacScreen>(*hvacController_, navigate, hub);
    zones_ = std::make_unique<ZoneScreens>(session_, prompt_, navigate, hub);
    drawForm_ = std::make_unique<DrawFormScreen>(
        session_, prompt_,
        [this](Canvas& canvas) {
            return std::make_unique<DrawFormController>(session_, canvas, prompt_);
        },
        navigate);
    runOptions_ = std::make_unique<RunOptionsScreen>(
        [this](int runType) { Navigate(mainmenuController_->RunEnergy(runType)); }, hub);
    results_ = std::make_unique<ResultChartScreen>(*resultViewController_, navigate, hub);
    runSim_ = std::make_unique<RunSimScreen>(
        *runSimController_, navigate,
        [this] {
            resultViewController_->bands.reset();
            if (runSimController_->fields()["ensemble"].value) StartEnsemble();
            results_->Open(ChartKind::Source);
        },
        hub);
    selectWeatherController_ = std::make_unique<SelectWeatherController>(session_, prompt_);
    runSim_->SetRecordedWeather(*selectWeatherController_);
    tabular_ = std::make_unique<TabularScreen>(*tabularController_, navigate, hub);
    saveOutForm_ = std::make_unique<SaveOutFormScreen>(*saveOutController_, navigate, folders, hub);
    selectView_ =
        std::make_unique<SelectViewScreen>(*selectViewController_, navigate, folders, hub);
    hourly_ = std::make_unique<HourlyScreen>(*hourlyController_, session_, prompt_, navigate, hub);
    // The hub's View Output menu: tables, charts and stored results.
    for (int i = 1; i <= 8; ++i)
        if (auto* action = hub->findChild<QAction*>(QString("Table_%1").arg(i)))
            connect(action, &QAction::triggered, this,
                    [this, i] { Navigate(TableEntry(session_, i)); });
    for (int i = 1; i <= 7; ++i)
        if (auto* action = hub->findChild<QAction*>(QString("graph_%1").arg(i)))
            connect(action, &QAction::triggered, this,
                    [this, i] { Navigate(GraphEntry(session_, i)); });
    if (auto* action = hub->findChild<QAction*>("View_0"))
        connect(action, &QAction::triggered, this,
                [this] { Navigate(RetrieveEntry(session_, prompt_)); });
    session_.availableScreens.insert(
        {Screen::OldFileForm, Screen::SampleFileForm, Screen::SaveInputForm, Screen::Weather,
         Screen::ProjectInfo, Screen::Economics, Screen::Catalog, Screen::Hvac, Screen::ZoneForm,
         Screen::DrawForm, Screen::RunOptions, Screen::RunSim, Screen::SaveOutForm,
         Screen::SelectView, Screen::ResultCharts, Screen::Tabular, Screen::Hourly});
}

void AppShell::Start(const StartupEnvironment& env) {
    StartUp(session_, prompt_, env, startupHooks_);
    mainmenuController_->InitFields();
    mainform_->Refresh();
    mainform_->show();
}

// The folder of the project in memory when it came from the user's own
// file (never the program's sample folder), or the last folder used, or the
// projects folder.
std::string AppShell::StartFolder() {
    const ProjectModel& m = session_.model;
    const std::filesystem::path samples = session_.paths.Resolve("\\sample");
    if (m.flags.ProjectFromFile == 1) {
        const std::filesystem::path folder =
            std::filesystem::path(m.session.InputFileName).parent_path();
        if (!folder.empty() && folder.lexically_normal() != samples.lexically_normal())
            lastFolder_ = folder.string();
    }
    if (!lastFolder_.empty() && std::filesystem::is_directory(lastFolder_)) return lastFolder_;
    const std::string projects = ProjectsFolder();
    QDir().mkpath(QString::fromStdString(projects));
    return projects;
}

void AppShell::ShowHub() {
    mainmenu_->show();
    mainmenu_->raise();
    mainmenu_->activateWindow();
    mainmenu_->Activate();
}

void AppShell::ShowRequestedChart() {
    // The graph menu's order: peak heating, peak cooling, annual heating,
    // annual cooling, monthly energy, monthly costs, energy breakdown.
    const std::pair<ChartKind, int> graphs[] = {
        {ChartKind::Peak, static_cast<int>(LoadView::PeakHeating)},
        {ChartKind::Peak, static_cast<int>(LoadView::PeakCooling)},
        {ChartKind::Peak, static_cast<int>(LoadView::AnnualHeating)},
        {ChartKind::Peak, static_cast<int>(LoadView::AnnualCooling)},
        {ChartKind::Monthly, 0},
        {ChartKind::Monthly, 1},
        {ChartKind::Source, 0}};
    const int request = session_.model.flags.GraphRequest;
    const auto chart = request >= 1 && request <= 7 ? graphs[request - 1] : graphs[6];
    results_->Open(chart.first, chart.second);
}

void AppShell::Navigate(const Navigation& nav) {
    if (nav.endProgram) {
        ended_ = true;
        for (QWidget* w : mainmenu_->findChildren<QDialog*>()) w->hide();
        mainmenu_->hide();
        mainform_->hide();
        emit programEnded();
        return;
    }
    // Screens opened from the hub stand in its place.
    if (nav.hideCurrent && nav.show != Screen::MainMenu && nav.show != Screen::None)
        mainmenu_->hide();
    switch (nav.show) {
        case Screen::None:
            mainmenu_->ShowFields();
            break;
        case Screen::MainMenu:
            if (nav.hideCurrent) mainform_->hide();
            ShowHub();
            break;
        case Screen::OldFileForm:
            oldFileForm_->Open(StartFolder());
            break;
        case Screen::SampleFileForm:
            sampleFileForm_->Open();
            break;
        case Screen::SaveInputForm:
            saveInputForm_->Open(StartFolder());
            break;
        case Screen::Weather:
            weather_->OpenTask();
            break;
        case Screen::ProjectInfo:
            projectInfo_->Open();
            break;
        case Screen::Economics:
            economics_->Open();
            break;
        case Screen::Catalog:
            catalog_->Open(session_.CatalogKind);
            break;
        case Screen::Hvac:
            hvac_->Open();
            break;
        case Screen::ZoneForm:
            zones_->Open();
            break;
        case Screen::DrawForm:
            drawForm_->Open();
            break;
        case Screen::RunOptions:
            runOptions_->open();
            break;
        case Screen::RunSim:
            runSim_->Open();
            break;
        case Screen::SaveOutForm:
            saveOutForm_->Open(StartFolder(), saveController_->results);
            saveController_->results.reset();
            break;
        case Screen::SelectView:
            selectView_->Open(StartFolder());
            break;
        case Screen::ResultCharts:
            ShowRequestedChart();
            break;
        case Screen::Tabular: {
            // A request of the hub's Table menu is taken once; a return from
            // the hourly screen shows the view that was on.
            const int request = session_.model.flags.TableRequest;
            session_.model.flags.TableRequest = 0;
            const TableView view = request >= 1 && request <= kTableViews
                                       ? static_cast<TableView>(request)
                                       : tabularController_->view();
            if (!tabular_->Open(view)) ShowHub();
            break;
        }
        case Screen::Hourly:
            hourly_->Open();
            break;
        case Screen::Warning:
            warning_->Refresh();
            warning_->show();
            warning_->raise();
            break;
        default:
            // Screens that are not part of this build keep their tasks closed,
            // so no controller asks for them.
            ShowHub();
            break;
    }
}

}  // namespace solvane
