#include "code/code_selection.h"

namespace solvane {

namespace {

// Left positions of the arrow beside each icon; the banner stands 35 further.
constexpr int kArrowLeft90 = 440;
constexpr int kArrowLeft189 = 500;
constexpr int kBannerGap = 35;

void PaintBanner(Session& session) {
    const int code = session.model.session.CodeNum;
    ScreenFields& f = session.mainmenu;
    f["Label8"].text = session.labels.CodeTitle[code] + (code > 0 ? " is specified." : "");
    f["Label8"].color = session.labels.CodeColor[code];
    if (code > 0) {
        const int arrow = code == 3 ? kArrowLeft189 : kArrowLeft90;
        f["Image9"].value = arrow;
        f["Label8"].value = arrow + kBannerGap;
    }
}

}  // namespace

bool SelectCode(Session& session, Prompt& prompt, int iconIndex) {
    ProjectModel& m = session.model;
    const FixedLabels& labels = session.labels;
    if (iconIndex == 0) {
        const Answer a = prompt.Ask("Yes=90.1-2019\rNo=90.1-2010", "90.1 code selection",
                                    Buttons::YesNo, Icon::Question);
        m.session.CodeNum = a == Answer::Yes ? 2 : 1;
    } else {
        m.session.CodeNum = 3;
    }
    const int code = m.session.CodeNum;
    if (prompt.Ask(
            "You've selected the ASHRAE Standard " + labels.CodeTitle[code] + "\rIs this correct?",
            "Standards Selection", Buttons::YesNo, Icon::Question) != Answer::Yes)
        return false;

    ScreenFields& f = session.mainmenu;
    f.At("Image8", 0).visible = f.At("Image8", 1).visible = false;
    prompt.Ask(
        "The code selection can be changed until you\r\n"
        "enter the weather data site and perform the building sketch,\r\n"
        "after which the code selection will remain frozen.",
        "Code Selected", Buttons::Ok, Icon::Information);
    PaintBanner(session);
    f["Image9"].visible = f["Label8"].visible = true;
    m.ProjectData[kCodeNameCopy] = labels.CodeTitle[code];
    f.caption = "SOLVANE 2020 Project:... Energy Code = " + labels.CodeTitle[code];
    return true;
}

void ShowCodeBanner(Session& session) {
    PaintBanner(session);
    if (session.model.session.CodeNum > 0) {
        ScreenFields& f = session.mainmenu;
        f.At("Image8", 0).visible = f.At("Image8", 1).visible = false;
        f["Image9"].visible = f["Label8"].visible = true;
    }
}

void ApplyCode(Session& session, ScreenFields* projectinfo) {
    ProjectModel& m = session.model;
    const int code = m.session.CodeNum;
    const std::string& title = session.labels.CodeTitle[code];
    m.session.CodeName = title;
    ShowCodeBanner(session);
    m.ProjectData[kCodeNameCopy] = title;
    if (projectinfo) {
        projectinfo->At("projectid", 13).text = title;
        projectinfo->At("projectid", 13).color = session.labels.CodeColor[code];
    }
    session.mainmenu.caption =
        "SOLVANE 2020 Project:... " + m.session.ProjectTitle + " .. Energy Code = " + title;
    m.flags.TaskDone[6] = 1;
}

void ShowCodeStatus(Prompt& prompt) {
    prompt.Ask(
        "Select the Energy Code from the task bar above.\r\n"
        "If the code icons are unresponsive, it means that "
        "the code has already been selected or the selection has been frozen.  In this case, "
        "you should either begin a new project or accept the code "
        "that has been set.\r\n"
        "Envelope and HVAC properties have been pre-determined by the energy code "
        "requirements, your building type selected and climate zone for "
        "your building; however, you will be able to edit any of the properties chosen.",
        "Code Selection Status", Buttons::Ok, Icon::Information);
}

CodeOptionController::CodeOptionController(Session& session, Prompt& prompt)
    : session_(session), prompt_(prompt) {}

void CodeOptionController::Open() {
    const bool open = session_.model.flags.TaskDone[6] == 0;
    fields.At("Image1", 0).enabled = fields.At("Image1", 1).enabled = open;
}

Navigation CodeOptionController::ClickIcon(int iconIndex) {
    if (session_.model.flags.TaskDone[6] == 1) return {};
    if (!SelectCode(session_, prompt_, iconIndex)) return {};
    return {Screen::MainMenu, true, false};
}

}  // namespace solvane
