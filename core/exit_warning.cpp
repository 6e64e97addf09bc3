#include "core/exit_warning.h"

#include <string>
namespace solvane {

ExitWarningController::ExitWarningController(Session& session, Prompt& prompt,
                                             ExitServices services)
    : session_(session), prompt_(prompt), services_(std::move(services)) {}

void ExitWarningController::ClearStagingFiles() {
    if (services_.clearStagedZones) services_.clearStagedZones(session_, prompt_);
}

Navigation ExitWarningController::Okey() {
    ProjectModel& m = session_.model;
    const bool savedBefore = m.flags.InputFileSavedOnce == 1 || m.flags.ProjectFromFile == 1;
    if (savedBefore && services_.writeProjectFile) {
        if (!services_.writeProjectFile(session_, prompt_)) return {};
        // Saving the project stores no results: unsaved ones are offered too.
        if (const auto save = OfferUnsavedResults()) return *save;
        ClearStagingFiles();
        return {Screen::None, false, true};
    }
    // A project that the hub's Save would refuse is not written on the way
    // out either: the user is told why and chooses between leaving without
    // it and going back to it.
    const char* missing = nullptr;
    if (m.flags.TaskDone[2] == 0 && m.flags.ProjectFromFile == 0)
        missing = "Please enter the weather data before saving the input file.";
    else if (m.flags.TaskDone[4] == 0)
        missing = "Please sketch your building before saving the input file.";
    if (missing) {
        const Answer a = prompt_.Ask(std::string(missing) + "\r\n\r\n" +
                                         "This project cannot be saved yet.  Do you want to exit "
                                         "without saving it?",
                                     "Save and Exit", Buttons::YesNo, Icon::Exclamation);
        if (a == Answer::Yes) return Command1();
        return {Screen::MainMenu, true, false};
    }
    if (session_.Available(Screen::SaveInputForm)) {
        m.flags.ExitAfterSave = 1;
        return {Screen::SaveInputForm, true, false};
    }
    // Nothing can be saved yet: leave as without saving.
    return Command1();
}

std::optional<Navigation> ExitWarningController::OfferUnsavedResults() {
    ProjectModel& m = session_.model;
    if (m.flags.RunDone == 1 && m.flags.OutputFileSaved == 0 &&
        prompt_.Ask("The last simulation results has not been saved.  Do you wish to save them?",
                    "Save output", Buttons::YesNo, Icon::None) == Answer::Yes &&
        session_.Available(Screen::SaveOutForm)) {
        m.flags.ExitAfterSave = 1;
        return Navigation{Screen::SaveOutForm, true, false};
    }
    return std::nullopt;
}

Navigation ExitWarningController::Command1() {
    if (const auto save = OfferUnsavedResults()) return *save;
    ClearStagingFiles();
    return {Screen::None, false, true};
}

Navigation ExitWarningController::Cancel() {
    return {Screen::MainMenu, true, false};
}

}  // namespace solvane
