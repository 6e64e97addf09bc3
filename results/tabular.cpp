#include "results/tabular.h"

#include "core/numeric_helpers.h"
#include "core/text_file.h"

namespace solvane {

namespace {

std::string JoinLines(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) text.append(line).append("\r\n");
    return text;
}

const char* MissingText(TableView view) {
    switch (view) {
        case TableView::SpaceComfort:
            return "No space temperature file available or corrupt file.";
        case TableView::CostAnalysis:
            return "The results hold no cost analysis: enter the economic parameters and run "
                   "the analysis again to see it.";
        default:
            return nullptr;
    }
}

}  // namespace

TabularController::TabularController(Session& session, Prompt& prompt)
    : session_(session), prompt_(prompt) {}

bool TabularController::Show(TableView view) {
    const auto results = session_.paths.Resolve("\\temp\\ecalc$.out");
    const auto text = ReadTextFile(results);
    std::optional<std::vector<std::string>> cut;
    if (text) cut = CutSection(SplitLines(*text), CutOf(view), session_.labels.RuleLine);
    if (!cut || cut->empty()) {
        if (view == TableView::SpaceComfort) {
            prompt_.Ask(MissingText(view), "Space Temp Error", Buttons::Ok, Icon::Exclamation);
        } else if (!text) {
            prompt_.Ask("Output file does not exist", "Error", Buttons::Ok, Icon::Exclamation);
        } else {
            const char* missing = MissingText(view);
            prompt_.Ask(missing ? std::string(missing)
                                : "The results file " + results.string() + " has no section \"" +
                                      CutOf(view).start + "\" (" + TableTitle(view) + ").",
                        "Error", Buttons::Ok, Icon::Exclamation);
        }
        return false;
    }

    std::vector<std::vector<std::string>> pages;
    if (view == TableView::ProjectData || view == TableView::ZoneData) {
        const ProjectModel& m = session_.model;
        LocationText where;
        where.location = m.ProjectData[kLocation];
        where.latitude = NumText(m.climate.Latitude);
        where.longitude = NumText(m.climate.Longitude);
        where.timeZone = NumText(m.climate.StandardMeridian);
        where.elevation = NumText(m.climate.Elevation);
        if (!where.location.empty()) *cut = CompleteLocation(*cut, where);
    }
    const auto temp = [&](const std::string& name) {
        return session_.paths.Resolve("\\temp\\" + name);
    };
    if (const char* file = CutOf(view).file) WriteFileAtomic(temp(file), JoinLines(*cut));
    if (view == TableView::ZoneData)
        pages = SplitZonePages(*cut);
    else if (view == TableView::SpaceComfort)
        pages = SplitComfortPages(*cut);
    else if (view == TableView::WeatherSummary)
        pages = SplitWeatherPages(*cut);
    if (view == TableView::SpaceComfort && pages.empty()) {
        prompt_.Ask(MissingText(view), "Space Temp Error", Buttons::Ok, Icon::Exclamation);
        return false;
    }

    for (std::size_t i = 0; i < pages.size(); ++i) {
        const std::string name = PageFileName(view, static_cast<int>(i) + 1);
        if (!WriteFileAtomic(temp(name), JoinLines(pages[i]))) {
            prompt_.Ask(temp(name).string() + " could not be written.", "Error", Buttons::Ok,
                        Icon::Exclamation);
            return false;
        }
    }
    view_ = view;
    pageCount_ = static_cast<int>(pages.size());
    fields = ScreenFields{};
    fields.caption = session_.model.session.InputFileShortName + " -- " + TableTitle(view);
    const bool paged = pageCount_ > 0;
    fields.At("zone", 1).visible = fields.At("zone", 2).visible = paged;
    fields["Hourly"].enabled = FileExists(temp("ecalc$.hry"));
    if (paged) return LoadPage(1);
    pageIndex_ = 0;
    shownFile_ = temp(CutOf(view).file).string();
    fields["Text1"].text = JoinLines(*cut);
    fields["page"].text.clear();
    return true;
}

bool TabularController::LoadPage(int index) {
    const auto path = session_.paths.Resolve("\\temp\\" + PageFileName(view_, index));
    const auto text = ReadTextFile(path);
    if (!text) {
        prompt_.Ask(path.string() + " cannot be read.", "Error", Buttons::Ok, Icon::Exclamation);
        return false;
    }
    pageIndex_ = index;
    shownFile_ = path.string();
    fields["Text1"].text = *text;
    fields.At("zone", 1).enabled = index < pageCount_;
    fields.At("zone", 2).enabled = index > 1;
    const char* unit = view_ == TableView::WeatherSummary ? "Page " : "Zone ";
    fields["page"].text = unit + std::to_string(index) + " of " + std::to_string(pageCount_);
    return true;
}

void TabularController::Zone(int direction) {
    if (pageCount_ == 0) return;
    const int next = pageIndex_ + (direction == 1 ? 1 : -1);
    if (next < 1 || next > pageCount_) return;
    LoadPage(next);
}

Navigation TabularController::Summary() {
    if (session_.model.flags.OutputFileSaved == 0 &&
        prompt_.Ask("The simulation results have not been saved.  Do you want to save them?",
                    "Save Output", Buttons::YesNo, Icon::Question) == Answer::Yes &&
        session_.Available(Screen::SaveOutForm))
        return {Screen::SaveOutForm, true, false};
    session_.model.flags.GraphRequest = 7;
    return {Screen::ResultCharts, true, false};
}

Navigation TabularController::Hourly() {
    if (!FileExists(session_.paths.Resolve("\\temp\\ecalc$.hry"))) {
        prompt_.Ask(
            "This run made no hourly output.  Tick \"Produce Hourly Output File\" on the run "
            "screen and run the "
            "analysis again to have it.",
            "Hourly Output", Buttons::Ok, Icon::Information);
        return {};
    }
    return {Screen::Hourly, false, false};
}

}  // namespace solvane
