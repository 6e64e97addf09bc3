#include "results/result_view.h"

#include <algorithm>

#include "core/numeric_helpers.h"
#include "core/text_file.h"

namespace solvane {

ResultViewController::ResultViewController(Session& session, Prompt& prompt)
    : eui(session, prompt), session_(session), prompt_(prompt) {}

bool ResultViewController::Show(ChartKind kind, Canvas& canvas) {
    if (kind != kind_) view_ = 0;
    kind_ = kind;
    return Draw(canvas);
}

bool ResultViewController::ShowView(int view, Canvas& canvas) {
    view_ = view;
    return Draw(canvas);
}

bool ResultViewController::Draw(Canvas& canvas) {
    fields = ScreenFields{};
    const auto path = session_.paths.Resolve("\\temp\\ecalc$.out");
    const auto text = ReadTextFile(path);
    const ProjectModel& m = session_.model;
    const ChartHead head{m.session.InputFileShortName, m.ProjectData[kProjName]};
    std::string error;
    if (!text) {
        error = "The results file " + path.string() + " cannot be read.";
    } else if (kind_ == ChartKind::Source) {
        const auto r = ReadEnergySummary(*text);
        if (r) DrawSourceChart(*r.table, head, fields, canvas);
        error = r.error;
    } else if (kind_ == ChartKind::Peak) {
        const auto view = static_cast<LoadView>(std::clamp(view_, 0, 3));
        const auto r = ReadComponentLoads(*text, view);
        if (r) DrawPeakChart(*r.table, view, head, fields, canvas);
        error = r.error;
    } else if (view_ == 1) {
        const auto r = ReadMonthlyCosts(*text);
        if (r) DrawMonthlyCosts(*r.table, head, fields, canvas);
        error = r.error;
    } else {
        const auto r = ReadMonthlyEnergy(*text);
        if (r) DrawMonthlyEnergy(*r.table, head, fields, canvas);
        error = r.error;
    }
    if (!error.empty()) {
        canvas.Clear(0xFFFFFF);
        prompt_.Ask(error, "Results not available", Buttons::Ok, Icon::Exclamation);
        return false;
    }
    return true;
}

Navigation ResultViewController::Leave() {
    if (session_.model.flags.OutputFileSaved == 0 &&
        prompt_.Ask("The simulation results have not been saved.  Do you want to save them?",
                    "Save Output", Buttons::YesNo, Icon::Question) == Answer::Yes)
        return {Screen::SaveOutForm, true, false};
    return {Screen::MainMenu, false, false};
}

}  // namespace solvane
