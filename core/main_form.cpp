#include "core/main_form.h"

#include "core/text_file.h"

namespace solvane {

MainFormController::MainFormController(Session& session, Prompt& prompt,
                                       std::function<void(Session&, Prompt&)> loadScheduleLibrary)
    : session_(session), prompt_(prompt), loadScheduleLibrary_(std::move(loadScheduleLibrary)) {}

void MainFormController::RefreshUnitsLine() {
    const int units = session_.model.session.Units;
    session_.mainmenu["Label13"].text =
        "Project Units = " + (units == 1 || units == 2 ? session_.labels.UnitsLabel[units] : "");
}

void MainFormController::ChooseUnits(int units) {
    if (units != 1 && units != 2) return;
    ProjectSession& s = session_.model.session;
    s.Units = static_cast<std::int16_t>(units);
    session_.mainform.At("unitnum", 1).value = units == 1;
    session_.mainform.At("unitnum", 2).value = units == 2;
    RefreshUnitsLine();

    const std::string name = units == 1 ? "I-P Units" : "SI Units";
    if (prompt_.Ask("Set " + name + " as the default?", "Set Units", Buttons::YesNo, Icon::None) ==
        Answer::Yes) {
        // What is written is the choice on screen.
        const int onScreen = session_.mainform.At("unitnum", 2).value ? 2 : 1;
        WriteFileAtomic(session_.paths.Resolve("\\temp\\ecalc$.unt"),
                        std::to_string(onScreen) + "\r\n");
    }
    s.UnitsIndex = static_cast<std::int16_t>(s.Units - 1);
    if (loadScheduleLibrary_) loadScheduleLibrary_(session_, prompt_);
}

Navigation MainFormController::Begin() {
    ProjectSession& s = session_.model.session;
    if (s.Units != 1 && s.Units != 2) {
        prompt_.Ask("Please select Units before proceeding.", "Units have not been specified.",
                    Buttons::Ok, Icon::None);
        return {};
    }
    session_.mainform.At("unitnum", 1).value = s.Units == 1;
    session_.mainform.At("unitnum", 2).value = s.Units == 2;
    s.UnitsIndex = static_cast<std::int16_t>(s.Units - 1);
    if (loadScheduleLibrary_) loadScheduleLibrary_(session_, prompt_);
    session_.mainmenu.caption = "SOLVANE 2020 New Project:... ";
    session_.mainmenu["weatherdata"].enabled = true;
    session_.mainmenu["Image3"].enabled = true;
    return {Screen::MainMenu, true, false};
}

Navigation MainFormController::Close() {
    const auto& done = session_.model.flags.TaskDone;
    for (int i = 1; i <= 5; ++i) {
        if (done[i] == 1) {
            prompt_.Ask("You may only exit from the File menu on the Main menu screen, press OK",
                        "Exit Warning", Buttons::Ok, Icon::Exclamation);
            return {Screen::MainMenu, false, false};
        }
    }
    return {Screen::None, false, true};
}

}  // namespace solvane
