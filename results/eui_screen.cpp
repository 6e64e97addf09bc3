#include "results/eui_screen.h"

#include <algorithm>

#include "core/item_reader.h"
#include "core/numeric_helpers.h"
#include "core/text_file.h"
#include "results/benchmark.h"
#include "results/results_reader.h"

namespace solvane {

namespace {

constexpr Color kBlack = 0x000000;
constexpr Color kGrey = 0xA0A0A0;
constexpr Color kAmber = 0xF0B040;
constexpr Color kGreen = 0x30A050;
constexpr Color kBlue = 0x3070C0;
constexpr int kHeaderLines = 3;

// The survey's kBtu per sq.ft. and the SI screens' MJ per sq.m.
constexpr double kSiPerIp = 11.36;

}  // namespace

EuiTargets ReadEuiTargets(const std::string& text, const std::string& fileName) {
    ItemReader in(text, fileName);
    for (int i = 0; i < kHeaderLines; ++i) in.NextLine();
    EuiTargets t;
    for (int type = 1; type <= kBuildingTypes; ++type) {
        if (in.AtEnd()) in.Fail("building type " + std::to_string(type) + " is missing");
        if (in.NextInt() != type) in.Fail("building type " + std::to_string(type) + " expected");
        t.activity[type] = in.NextText();
        for (float& v : t.site[type]) v = static_cast<float>(in.NextNumber());
        if (!std::is_sorted(t.site[type].begin(), t.site[type].end()))
            in.Fail("quartiles out of order for building type " + std::to_string(type));
    }
    return t;
}

void DrawEuiPicture(Canvas& c, const EuiPicture& p) {
    const int w = c.Width(), h = c.Height();
    c.Clear(0xFFFFFF);
    const std::string unit = p.si ? "MJ/sq.m." : "kBtu/sq.ft.";
    c.Text(10, 6, "Site EUI (" + unit + " a year)", 10, kBlack);
    c.Text(10, 24,
           p.activity.empty() ? "The 2012 CBECS survey has no figures for this building type."
                              : "2012 CBECS survey: " + p.activity,
           9, kBlack);

    struct Bar {
        std::string label;
        double value;
        Color color;
    };
    std::vector<Bar> bars;
    if (!p.activity.empty()) {
        bars.push_back({"Survey upper quarter", p.survey[2], kGrey});
        bars.push_back({"Survey median", p.survey[1], kAmber});
        bars.push_back({"Green building target", p.survey[0], kGreen});
    }
    bars.push_back({"This building", p.siteEUI, kBlue});
    double top = 0;
    for (const Bar& b : bars) top = std::max(top, b.value);
    top = top > 0 ? top * 1.2 : 1;

    const int left = 170, right = w - 20, rowTop = 52;
    const int rowHeight = std::max(20, (h - rowTop - 50) / 4);
    const auto x = [&](double v) { return left + static_cast<int>((right - left) * v / top); };
    for (std::size_t i = 0; i < bars.size(); ++i) {
        const int y = rowTop + static_cast<int>(i) * rowHeight;
        c.Text(10, y + rowHeight / 4, bars[i].label, 9, kBlack);
        const int end = std::max(left + 1, x(bars[i].value));
        c.FillBox(left, y + 3, end, y + rowHeight - 5, bars[i].color);
        c.Box(left, y + 3, end, y + rowHeight - 5, kBlack);
        c.Text(std::min(end + 6, right - 40), y + rowHeight / 4,
               NumText(RoundOff(bars[i].value, 0)), 9, kBlack);
    }
    const int axis = rowTop + static_cast<int>(bars.size()) * rowHeight;
    c.Line(left, rowTop, left, axis, kBlack);
    c.Line(left, axis, right, axis, kBlack);
    c.Text(10, axis + 8,
           "Survey figures span all U.S. climate zones; this building is in Climate Zone " +
               p.climateZone + ".",
           8, kBlack);
    c.Text(10, axis + 24, "Green building target: the best quarter of the survey's buildings.", 8,
           kBlack);
}

EuiController::EuiController(Session& session, Prompt& prompt)
    : session_(session), prompt_(prompt) {}

bool EuiController::Open() {
    const ProjectModel& m = session_.model;
    const int type = m.session.BuildingType;
    const auto text = ReadTextFile(session_.paths.Resolve("\\temp\\ecalc$.out"));
    const auto energy = text ? ReadEnergySummary(*text) : ReportRead<EnergySummary>{};
    std::string error;
    if (!energy)
        error = energy.error.empty() ? "The results file cannot be read." : energy.error;
    else if (type < 1 || type > kBuildingTypes || m.btypes.BTypeEUILow[type] <= 0)
        error =
            "The survey figures for this building type are not available: choose the "
            "building type in the project information first.";
    if (!error.empty()) {
        prompt_.Ask(error, "Results not available", Buttons::Ok, Icon::Exclamation);
        return false;
    }
    BenchmarkInput in;
    in.SiteEUI = energy.table->SiteEUI;
    in.SourceEUI = energy.table->SourceEUI;
    in.si = energy.table->units.si();
    in.BuildingType = type;
    in.BuildingTypeName = m.btypes.BTypeName[type];
    in.CbecsSiteEUI = m.btypes.BTypeEUILow[type];
    in.CbecsSourceEUI = m.btypes.BTypeEUIHigh[type];
    in.ClimateZone = m.session.ClimateZone;
    siteEUI_ = in.SiteEUI;
    reportSi_ = in.si;

    // Without the survey's quartiles the picture shows the building alone.
    targets_.reset();
    const auto path = session_.paths.Resolve(kEuiTargetsFile);
    if (const auto targets = ReadTextFile(path)) {
        try {
            targets_ = ReadEuiTargets(*targets, path.string());
        } catch (const ReadError&) {
        }
    }

    fields = ScreenFields{};
    fields.caption = "Energy Use Intensity";
    fields["Heading"].text = "Building EUI Information including the CBECS survey \nvalues";
    fields["Text1"].text = BenchmarkText(in);
    fields["Label4"].text = "Your Site Line EUI is " + NumText(in.SiteEUI);
    fields["Label3"].text =
        "Compare your site line EUI to the bar for Climate Zone " + in.ClimateZone;
    const int units = m.session.Units == 2 ? 2 : 1;
    fields.At("Image1", units).visible = true;
    fields.At("Image1", 3 - units).visible = false;
    return true;
}

void EuiController::Draw(Canvas& canvas, int units) const {
    const ProjectModel& m = session_.model;
    const int type = m.session.BuildingType;
    EuiPicture p;
    p.si = units == 2;
    p.climateZone = m.session.ClimateZone;
    p.siteEUI = siteEUI_;
    if (reportSi_ != p.si) p.siteEUI = p.si ? siteEUI_ * kSiPerIp : siteEUI_ / kSiPerIp;
    if (targets_ && type >= 1 && type <= kBuildingTypes && targets_->site[type][1] > 0) {
        p.activity = targets_->activity[type];
        for (int i = 0; i < 3; ++i) p.survey[i] = SurveyValue(targets_->site[type][i], p.si);
    }
    DrawEuiPicture(canvas, p);
}

}  // namespace solvane
