#include "app/app_shell.h"

#include <QDir>
#include <filesystem>

#include "app/file_forms.h"
#include "app/mainform.h"
#include "app/mainmenu.h"
#include "app/warning.h"
#include "app/weather.h"
#include "cli/program_services.h"

namespace solvane {

AppShell::AppShell(ProgramPaths paths, Prompt& prompt) : prompt_(prompt) {
    session_.paths = std::move(paths);
    startupHooks_ = MakeStartupHooks(climateIndex_);
    projectFileHooks_ = MakeProjectFileHooks();
    auto navigate = [this](const Navigation& nav) { Navigate(nav); };
    mainformController_ =
        std::make_unique<MainFormController>(session_, prompt_, startupHooks_.loadScheduleLibrary);
    mainmenuController_ =
        std::make_unique<MainMenuController>(session_, prompt_, MakeHubServices());
    ExitServices exitServices;
    exitServices.writeProjectFile = [](Session& s, Prompt& p) {
        return WriteProjectFileTo(s, p, s.model.session.InputFileName, false);
    };
    warningController_ =
        std::make_unique<ExitWarningController>(session_, prompt_, std::move(exitServices));
    oldFileController_ =
        std::make_unique<OldFileFormController>(session_, prompt_, projectFileHooks_);
    sampleController_ =
        std::make_unique<SampleFileFormController>(session_, prompt_, projectFileHooks_);
    saveController_ = std::make_unique<SaveInputFormController>(session_, prompt_);
    weatherController_ =
        std::make_unique<WeatherScreen>(session_.model, session_.paths, prompt_, climateIndex_);
    mainform_ = std::make_unique<MainFormScreen>(session_, *mainformController_, navigate);
    mainmenu_ = std::make_unique<MainMenuScreen>(session_, *mainmenuController_, navigate);
    warning_ =
        std::make_unique<WarningScreen>(session_, *warningController_, navigate, mainmenu_.get());
    oldFileForm_ =
        std::make_unique<OldFileFormScreen>(*oldFileController_, navigate, mainmenu_.get());
    sampleFileForm_ =
        std::make_unique<SampleFileFormScreen>(*sampleController_, navigate, mainmenu_.get());
    saveInputForm_ = std::make_unique<SaveInputFormScreen>(session_, *saveController_, navigate,
                                                           mainmenu_.get());
    weather_ = std::make_unique<WeatherDataScreen>(*weatherController_, navigate, mainmenu_.get());
    session_.availableScreens.insert(
        {Screen::OldFileForm, Screen::SampleFileForm, Screen::SaveInputForm, Screen::Weather});
}

AppShell::~AppShell() = default;

void AppShell::Start(const StartupEnvironment& env) {
    StartUp(session_, prompt_, env, startupHooks_);
    mainmenuController_->InitFields();
    mainform_->Refresh();
    mainform_->show();
}

void AppShell::Navigate(const Navigation& nav) {
    if (nav.endProgram) {
        ended_ = true;
        mainmenu_->hide();
        mainform_->hide();
        warning_->hide();
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
            if (!hubBegun_) {
                hubBegun_ = true;
                session_.mainmenu.caption = session_.mainmenu.caption.empty()
                                                ? "SOLVANE 2020 New Project:... "
                                                : session_.mainmenu.caption;
            }
            mainmenu_->show();
            mainmenu_->raise();
            mainmenu_->activateWindow();
            mainmenu_->Activate();
            break;
        case Screen::OldFileForm:
            oldFileForm_->Open(QDir::homePath().toStdString());
            break;
        case Screen::SampleFileForm:
            sampleFileForm_->Open();
            break;
        case Screen::SaveInputForm: {
            // A project that came from a file is saved beside it.
            const std::string folder =
                session_.model.flags.ProjectFromFile == 1
                    ? std::filesystem::path(session_.model.session.InputFileName)
                          .parent_path()
                          .string()
                    : QDir::homePath().toStdString();
            saveInputForm_->Open(folder);
            break;
        }
        case Screen::Weather:
            weather_->OpenTask();
            break;
        case Screen::Warning:
            warning_->Refresh();
            warning_->show();
            warning_->raise();
            break;
        default:
            // Screens that are not part of this build keep their tasks closed,
            // so no controller asks for them.
            mainmenu_->Activate();
            break;
    }
}

}  // namespace solvane
