#include "economics/economics_form.h"

#include <vector>

#include "core/item_reader.h"
#include "core/numeric_helpers.h"
#include "core/text_file.h"
#include "core/unit_factors.h"

namespace solvane {

void LoadDefaultEconomics(ProjectModel& model, const ProgramPaths& paths) {
    const auto path = paths.Resolve(kEconomicsFile);
    const auto content = ReadTextFile(path);
    if (!content) throw ReadError(path.string(), 0, "File not found");
    const auto lines = SplitLines(*content);
    if (lines.size() < 13)
        throw ReadError(path.string(), static_cast<int>(lines.size()) + 1,
                        "Input past end of file");
    EconomicsState& e = model.economics;
    for (int k = 0; k <= 11; ++k) e.EconomicsData[k] = lines[k + 1].substr(0, 8);
    if (model.session.Units == 2) {
        // Gas: $/therm to $/GJ; water as the file's conversion has it.
        e.EconomicsData[7] = FormatField(
            StrForm(RoundOff(NumVal(e.EconomicsData[7]) / UnitFactor::EnergyPrice, 2)), "@@@@@@");
        e.EconomicsData[9] = FormatField(
            StrForm(RoundOff(NumVal(e.EconomicsData[9]) / UnitFactor::VolumeIpToSi / 100, 2)),
            "@@@@@@");
    }
    e.DemandCharge = e.EconomicsData[11].substr(0, 2);
}

bool DemandFlagMeansYes(std::string_view flag) {
    return flag == "Y" || flag == " Y" || flag == "Yes";
}

bool EconomicsKeyAccepted(int cell, int keyCode) {
    if (cell == 11) return keyCode == 89 || keyCode == 78 || keyCode == 121 || keyCode == 110;
    return (keyCode >= '0' && keyCode <= '9') || keyCode == 8 || keyCode == 9 || keyCode == 13 ||
           keyCode == 46;
}

EconomicsController::EconomicsController(Session& session, Prompt& prompt)
    : session_(session), prompt_(prompt) {}

void EconomicsController::ShowStored() {
    const EconomicsState& e = session_.model.economics;
    for (int k = 0; k <= 11; ++k) fields.At("economics", k).text = e.EconomicsData[k];
    fields["demand"].text = e.EconomicsData[11];
}

void EconomicsController::Open() {
    const bool si = session_.model.session.Units == 2;
    fields.caption = "Economics Data:... " + session_.model.session.ProjectTitle;
    fields["heading"].text = "ECONOMIC PARAMETERS";
    fields["gasunit"].text = si ? "$/GJoule" : " $/Therm";
    fields["waterunit"].text = si ? "$/1000 L" : "$/1000 gal";
    ShowStored();
}

bool EconomicsController::KeyPress(int cell, int keyCode) {
    if (EconomicsKeyAccepted(cell, keyCode)) return true;
    prompt_.Beep();
    return false;
}

bool EconomicsController::ClickDemand() {
    FieldState& flag = fields["demand"];
    const bool becomesYes = !DemandFlagMeansYes(flag.text);
    flag.text = becomesYes ? "Y" : "N";
    fields.At("economics", 11).text = flag.text;
    return becomesYes;
}

Navigation EconomicsController::Ok() {
    ProjectModel& m = session_.model;
    const std::string flag = fields["demand"].text;
    if (DemandFlagMeansYes(flag) && m.economics.NumDemandRates == 0) {
        prompt_.Ask("Please enter the demand charge schedule.", "Demand Charge", Buttons::Ok,
                    Icon::Exclamation);
        return {};
    }
    for (int k = 0; k <= 10; ++k) m.economics.EconomicsData[k] = fields.At("economics", k).text;
    m.economics.EconomicsData[11] = flag;
    m.economics.DemandCharge = flag;
    m.flags.TaskDone[3] = 1;
    return {Screen::MainMenu, true, false};
}

void EconomicsController::Undo() {
    ShowStored();
}

Navigation EconomicsController::Cancel() {
    ShowStored();
    return {Screen::MainMenu, true, false};
}

DemandChargeController::DemandChargeController(Session& session, Prompt& prompt)
    : session_(session), prompt_(prompt) {}

void DemandChargeController::Open() {
    const EconomicsState& e = session_.model.economics;
    fields.caption = "Demand Charge";
    for (int i = 1; i <= kDemandSteps; ++i) {
        const bool held = i <= e.NumDemandRates;
        fields.At("demandtext", i).text = held ? e.DemandRateLimit[i] : "";
        fields.At("charge", i).text = held ? e.DemandRateCost[i] : "";
    }
}

bool DemandChargeController::LoadSchedule(std::string_view content) {
    std::vector<std::pair<std::string, std::string>> steps;
    for (const std::string& line : SplitLines(content)) {
        if (line.find_first_not_of(" \t") == std::string::npos) continue;
        const auto comma = line.find(',');
        const std::string kw = comma == std::string::npos ? "" : line.substr(0, comma);
        const std::string cost = comma == std::string::npos ? "" : line.substr(comma + 1);
        if (!IsNumericText(kw) || !IsNumericText(cost) || steps.size() == kDemandSteps) {
            prompt_.Ask(
                "The demand charge file has a wrong format.  Please check the file and try again.",
                "Demand Charge", Buttons::Ok, Icon::Exclamation);
            return false;
        }
        steps.emplace_back(kw, cost);
    }
    for (int i = 1; i <= kDemandSteps; ++i) {
        const bool held = i <= static_cast<int>(steps.size());
        fields.At("demandtext", i).text = held ? steps[i - 1].first : "";
        fields.At("charge", i).text = held ? steps[i - 1].second : "";
    }
    return true;
}

void DemandChargeController::Back() {
    EconomicsState& e = session_.model.economics;
    int n = 0;
    for (int i = 1; i <= kDemandSteps; ++i) {
        const std::string kw = fields.At("demandtext", i).text;
        if (kw.find_first_not_of(' ') == std::string::npos) break;
        e.DemandRateLimit[i] = kw;
        e.DemandRateCost[i] = fields.At("charge", i).text;
        n = i;
    }
    for (int i = n + 1; i <= kDemandSteps; ++i) e.DemandRateLimit[i] = e.DemandRateCost[i] = "";
    e.NumDemandRates = static_cast<std::int16_t>(n);
}

}  // namespace solvane
