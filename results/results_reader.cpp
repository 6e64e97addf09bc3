#include "results/results_reader.h"

#include <algorithm>

#include "core/numeric_helpers.h"
#include "core/text_cuts.h"
#include "results/chart_scale.h"

namespace solvane {

namespace {

constexpr const char* kMonths[] = {"JAN", "FEB", "MAR", "APR", "MAY", "JUN",
                                   "JUL", "AUG", "SEP", "OCT", "NOV", "DEC"};

// Line-by-line walk over the report, as the readers go through the file once.
// The lines are views into the report, which outlives the walk.
class Walk {
  public:
    explicit Walk(std::string_view text) {
        std::size_t start = 0;
        while (start < text.size()) {
            auto end = text.find('\n', start);
            if (end == std::string_view::npos) end = text.size();
            std::string_view line = text.substr(start, end - start);
            if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
            lines_.push_back(line);
            start = end + 1;
        }
    }
    const std::string_view* Next() { return pos_ < lines_.size() ? &lines_[pos_++] : nullptr; }
    // The line before the one last read.
    const std::string_view* Previous() const { return pos_ >= 2 ? &lines_[pos_ - 2] : nullptr; }
    template <typename Pred>
    const std::string_view* Until(Pred pred) {
        while (const std::string_view* line = Next())
            if (pred(*line)) return line;
        return nullptr;
    }
    // Skips `n` lines and gives the last of them.
    const std::string_view* Skip(int n) {
        const std::string_view* line = nullptr;
        for (int i = 0; i < n; ++i)
            if (!(line = Next())) return nullptr;
        return line;
    }
    int LineNumber() const { return static_cast<int>(pos_); }

  private:
    std::vector<std::string_view> lines_;
    std::size_t pos_ = 0;
};

std::string Field(std::string_view line, int column, int width) {
    return cuts::Mid(line, column, width);
}
double Num(std::string_view line, int column, int width) {
    return NumVal(Field(line, column, width));
}
std::string Trim(std::string_view s) {
    return cuts::TrimLeft(cuts::TrimRight(s));
}

bool StartsWith(std::string_view line, std::string_view head) {
    return line.substr(0, head.size()) == head;
}

// Every read begins at the weather block: its anchor, then thirteen lines to
// the units line.
bool ToUnits(Walk& walk, ReportUnits& units, std::string& error) {
    if (!walk.Until([](std::string_view l) {
            return l.substr(std::min<std::size_t>(3, l.size()), 7) == "WEATHER";
        })) {
        error = "The results file has no WEATHER INPUT DATA block: the input report is missing.";
        return false;
    }
    const std::string_view* line = walk.Skip(13);
    if (!line) {
        error = "The results file ends inside its weather block.";
        return false;
    }
    units.units = Field(*line, 11, 5) == "SQ.M." ? 2 : 1;
    return true;
}

int MonthIndex(std::string_view line) {
    for (int i = 0; i < 12; ++i)
        if (StartsWith(line, kMonths[i])) return i;
    return -1;
}

// To the first month row of the monthly table; its month is the start month.
const std::string_view* ToFirstMonth(Walk& walk, int& startMonth, std::string& error) {
    if (!walk.Until([](std::string_view l) { return StartsWith(l, "MON"); })) {
        error = "The results file has no monthly table.";
        return nullptr;
    }
    const std::string_view* row = walk.Skip(5);
    if (!row || (startMonth = MonthIndex(*row)) < 0) {
        error = "The monthly table of the results file has no month rows.";
        return nullptr;
    }
    return row;
}

}  // namespace

double CoolingInHeatingUnit(double kwh, ReportUnits units) {
    return units.si() ? kwh * 3.6 / 1e3 : kwh * 3413 / 1e6;
}

ReportRead<ComponentLoads> ReadComponentLoads(std::string_view report, LoadView view) {
    ReportRead<ComponentLoads> r;
    Walk walk(report);
    ComponentLoads t;
    if (!ToUnits(walk, t.units, r.error)) return r;
    const std::string_view* line =
        walk.Until([](std::string_view l) { return StartsWith(l, "ROOF"); });
    if (!line) {
        r.error = "The results file has no component load table.";
        return r;
    }
    struct Columns {
        int load, pct, total1, second1;
    };
    static constexpr Columns kColumns[] = {
        {117, 126, 117, 126}, {100, 109, 100, 109}, {45, 54, 30, 46}, {29, 38, 30, 46}};
    const Columns col = kColumns[static_cast<int>(view)];
    const bool peak = view == LoadView::PeakCooling || view == LoadView::PeakHeating;

    std::array<std::string, 15> rowLoad, rowTitle;
    for (int row = 1; row <= 14; ++row) {
        if (row > 1 && !(line = walk.Next())) {
            r.error = "The component load table of the results file is cut short.";
            return r;
        }
        rowLoad[row] = Field(*line, col.load, 8);
        rowTitle[row] = Trim(Field(*line, 1, 28));
    }
    const std::string_view* totals = walk.Skip(6);
    const std::string_view* perArea = walk.Next();
    if (!totals || !perArea) {
        r.error = "The results file has no totals under its component load table.";
        return r;
    }
    t.total = Trim(Field(*totals, col.total1, 15));
    if (peak) t.peakDateText = Trim(Field(*totals, col.second1, 15));
    t.perArea = Trim(Field(*perArea, peak ? 30 : col.total1, 17));
    if (cuts::IsBlankText(t.total)) {
        r.error = "The component load table of the results file has no total.";
        return r;
    }

    t.tableTotal = Trim(rowLoad[14]);
    // Rows 9 to 11 are merged into row 8; row 12 then stands as the ninth.
    double merged = NumVal(rowLoad[8]);
    for (int row = 9; row <= 11; ++row) merged += NumVal(rowLoad[row]);
    rowLoad[8] = NumText(merged);
    std::string mergedTitle = rowTitle[8];
    for (int row = 9; row <= 11; ++row)
        mergedTitle += " + " + rowTitle[row].substr(0, rowTitle[row].find(' '));
    rowTitle[8] = mergedTitle;
    rowLoad[9] = rowLoad[12];
    rowTitle[9] = rowTitle[12];
    for (int i = 0; i < 9; ++i) {
        t.valueText[i] = Trim(rowLoad[i + 1]);
        t.value[i] = NumVal(rowLoad[i + 1]);
        t.label[i] = rowTitle[i + 1];
    }
    t.scale = ChartScale(t.value);
    r.table = std::move(t);
    return r;
}

ReportRead<MonthlyEnergy> ReadMonthlyEnergy(std::string_view report) {
    ReportRead<MonthlyEnergy> r;
    Walk walk(report);
    MonthlyEnergy t;
    if (!ToUnits(walk, t.units, r.error)) return r;
    const std::string_view* line = ToFirstMonth(walk, t.startMonth, r.error);
    if (!line) return r;
    std::vector<double> plotted;
    for (int m = t.startMonth; line && !StartsWith(*line, "="); line = walk.Next(), ++m) {
        if (m >= 12) continue;  // rows past December are not charted
        t.heating[m] = Num(*line, 4, 8);
        t.cooling[m] = Num(*line, 31, 9);
        plotted.push_back(*t.heating[m]);
        plotted.push_back(CoolingInHeatingUnit(*t.cooling[m], t.units));
    }
    const std::string_view* totals = line ? walk.Next() : nullptr;
    if (!totals) {
        r.error = "The monthly table of the results file has no totals line.";
        return r;
    }
    t.totalHeating = Num(*totals, 4, 8);
    t.totalCoolingKwh = Num(*totals, 31, 9);
    t.scale = ChartScale(plotted);
    r.table = std::move(t);
    return r;
}

ReportRead<MonthlyCosts> ReadMonthlyCosts(std::string_view report) {
    ReportRead<MonthlyCosts> r;
    Walk walk(report);
    MonthlyCosts t;
    if (!ToUnits(walk, t.units, r.error)) return r;
    const std::string_view* line = ToFirstMonth(walk, t.startMonth, r.error);
    if (!line) return r;
    bool anyCost = false;
    int m = t.startMonth;
    auto take = [&](std::string_view l, int index) {
        const std::string gas = Field(l, 80, 8), elec = Field(l, 105, 9), total = Field(l, 114, 9);
        anyCost = anyCost || !cuts::IsBlankText(gas + elec + total);
        t.gas[index] = NumVal(gas);
        t.elec[index] = NumVal(elec);
        t.total[index] = NumVal(total);
    };
    for (; line && !StartsWith(*line, "="); line = walk.Next(), ++m)
        if (m < 12) take(*line, m);
    const std::string_view* annual = line ? walk.Skip(2) : nullptr;
    if (!annual) {
        r.error = "The monthly table of the results file has no totals line.";
        return r;
    }
    t.periodIndex = std::min(m, 12);
    take(*annual, t.periodIndex);
    if (!anyCost) {
        r.error = "The results file holds no utility costs: they are not available for this run.";
        return r;
    }
    std::vector<double> totals;
    for (int i = 0; i < std::min(m, 12); ++i)
        if (t.total[i]) totals.push_back(*t.total[i]);
    t.scale = ChartScale(totals);
    r.table = std::move(t);
    return r;
}

ReportRead<EnergySummary> ReadEnergySummary(std::string_view report) {
    ReportRead<EnergySummary> r;
    Walk walk(report);
    EnergySummary t;
    if (!ToUnits(walk, t.units, r.error)) return r;
    if (!walk.Until([](std::string_view l) { return StartsWith(l, "III."); })) {
        r.error = "The results file has no energy summary (section III).";
        return r;
    }
    const std::string_view* title = walk.Skip(3);
    const std::string_view* site =
        title && walk.Next() ? walk.Until([](std::string_view l) { return StartsWith(l, "Site"); })
                             : nullptr;
    const std::string_view* captions = site ? walk.Previous() : nullptr;
    const std::string_view captionLine = captions ? *captions : std::string_view();
    const std::string_view* eui = site ? walk.Next() : nullptr;
    if (!eui) {
        r.error = "The energy summary of the results file has no site energy line.";
        return r;
    }
    t.ProjectTitleLine = Trim(Field(*title, 89, 44));
    static constexpr int kCols[7][2] = {{0, 0},  {18, 7}, {27, 8}, {38, 7},
                                        {48, 7}, {57, 7}, {68, 7}};
    for (int i = 1; i <= 6; ++i) {
        t.EnergyBreakdown[i] = Num(*site, kCols[i][0], kCols[i][1]);
        t.CategoryName[i] = Trim(Field(captionLine, kCols[i][0], kCols[i][1] + 2));
    }
    t.perArea = Num(*eui, 89, 7);
    t.EnergyBreakdown90 = Num(*eui, 104, 7);
    t.SiteEUI = Num(*eui, 51, 6);
    t.SourceEUI = Num(*eui, 104, 7);
    if (cuts::IsBlankText(Field(*eui, 51, 6))) {
        r.error = "The energy summary of the results file has no site EUI.";
        return r;
    }
    t.scale = ChartScale(std::span<const double>(t.EnergyBreakdown).subspan(1));
    r.table = std::move(t);
    return r;
}

}  // namespace solvane
