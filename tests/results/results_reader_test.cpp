// The readers on results files written by a real run: the sample office run
// by the run screen through the engine, then read back.
#include "results/results_reader.h"
#include "results/result_view.h"
#include "results/run_summary.h"
#include "ui/raster_canvas.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <functional>

#include "../run/sample_program.h"
#include "core/numeric_helpers.h"
#include "core/text_file.h"
#include "run/run_sim.h"

namespace fs = std::filesystem;

namespace solvane {
namespace {

// Runs a sample through the run screen and the engine; gives ecalc$.out.
// `edit` may change the project before the run.
std::string RunSample(const std::string& sample, const std::string& begin = "1-Jan",
                      const std::function<void(ProjectModel&)>& edit = {}) {
    const fs::path root = test::MakeSampleProgram("results_" + begin);
    test::InstallEngine(root);
    Session session;
    session.paths = ProgramPaths(root);
    ScriptedPrompt prompt;
    test::LoadSample(session, prompt, sample);
    if (edit) edit(session.model);
    RunSimController run(session, prompt, {[] { return 0.5; }, [] { return std::string(); }, 0});
    run.OpenRun();
    run.fields().At("Text1", 0).text = begin;
    run.fields()["weatherseq"].value = 1;
    EXPECT_TRUE(run.ExecuteRun());
    while (run.Wait(200)) {
    }
    EXPECT_TRUE(run.ReviewResults());
    std::string out = ReadTextFile(root / "temp" / "ecalc$.out").value_or("");
    fs::remove_all(root);
    return out;
}

const std::string& OfficeYear() {
    static const std::string out = RunSample("Small Office [two levels, I-P].inp");
    return out;
}

// The same report with its units line turned to SI.
std::string AsSi(std::string report) {
    const auto at = report.find("SQ.FT. OF HORIZONTAL SURFACE...");
    EXPECT_NE(at, std::string::npos);
    report.replace(at, 31, "SQ.M. OF HORIZONTAL SURFACE....");
    return report;
}

TEST(ResultsReader, EnergySummaryOfARealRun) {
    const auto r = ReadEnergySummary(OfficeYear());
    ASSERT_TRUE(r) << r.error;
    const EnergySummary& s = *r.table;
    EXPECT_FALSE(s.units.si());
    double site = 0;
    for (int i = 1; i <= 6; ++i) {
        EXPECT_GE(s.EnergyBreakdown[i], 0) << i;
        site += s.EnergyBreakdown[i];
    }
    EXPECT_GT(s.EnergyBreakdown[3], 0);  // the office has lights
    EXPECT_EQ(s.CategoryName[3], "LIGHTS");
    EXPECT_GT(s.SiteEUI, 0);
    EXPECT_GT(s.SourceEUI, s.SiteEUI);  // electricity weighs more at the source
    EXPECT_NEAR(s.perArea, s.SiteEUI, 0.1);
    EXPECT_GE(s.scale, *std::max_element(s.EnergyBreakdown.begin(), s.EnergyBreakdown.end()));
    EXPECT_FALSE(s.ProjectTitleLine.empty());
}

TEST(ResultsReader, ComponentTableMergesTheAirRows) {
    const std::string& report = OfficeYear();
    const auto cool = ReadComponentLoads(report, LoadView::AnnualCooling);
    ASSERT_TRUE(cool) << cool.error;
    const ComponentLoads& c = *cool.table;
    EXPECT_EQ(c.label[0], "ROOF");
    EXPECT_EQ(c.label[7].substr(0, 9), "EQUIPMENT");  // with the three air rows behind it
    EXPECT_NE(c.label[7].find("INFILTRATION"), std::string::npos);
    EXPECT_EQ(c.label[8], "MASS AND AIR STORAGE");
    // Row 8 takes rows 9 to 11: the nine categories still add up to the total.
    double sum = 0;
    for (double v : c.value) sum += v;
    EXPECT_NEAR(sum, NumVal(c.total), 0.01 * std::abs(NumVal(c.total)) + 0.01);
    EXPECT_TRUE(c.peakDateText.empty());
    EXPECT_EQ(c.tableTotal, c.total);  // annual views: the totals line repeats the table's

    const auto peak = ReadComponentLoads(report, LoadView::PeakHeating);
    ASSERT_TRUE(peak) << peak.error;
    // The heating and the cooling chart read the same totals field: it
    // shows each view's own total, the table's, beside the other's.
    const auto cooling = ReadComponentLoads(report, LoadView::PeakCooling);
    ASSERT_TRUE(cooling) << cooling.error;
    const std::string& both = peak.table->total;
    EXPECT_EQ(cooling.table->total, both);
    const auto h = both.find('H'), cAt = both.find('C');
    ASSERT_TRUE(h == 0 && cAt != std::string::npos) << both;
    EXPECT_NEAR(NumVal(both.substr(1, cAt - 1)), NumVal(peak.table->tableTotal), 0.051) << both;
    EXPECT_NEAR(NumVal(both.substr(cAt + 1)), NumVal(cooling.table->tableTotal), 0.051) << both;
    EXPECT_FALSE(peak.table->peakDateText.empty());
    double lo = 0;
    for (double v : peak.table->value) lo = std::min(lo, v);
    EXPECT_GE(peak.table->scale, -lo);
}

TEST(ResultsReader, MonthlyEnergyAndStartMonth) {
    const auto year = ReadMonthlyEnergy(OfficeYear());
    ASSERT_TRUE(year) << year.error;
    EXPECT_EQ(year.table->startMonth, 0);
    double heating = 0;
    for (int m = 0; m < 12; ++m) {
        ASSERT_TRUE(year.table->heating[m]) << m;
        heating += *year.table->heating[m];
    }
    EXPECT_NEAR(heating, year.table->totalHeating, 0.01 + 0.001 * heating);
    EXPECT_GT(year.table->totalCoolingKwh, 0);

    // A run from April fills April onward only.
    const auto spring = ReadMonthlyEnergy(RunSample("Small Office [two levels, I-P].inp", "1-Apr"));
    ASSERT_TRUE(spring) << spring.error;
    EXPECT_EQ(spring.table->startMonth, 3);
    EXPECT_FALSE(spring.table->heating[2]);
    EXPECT_TRUE(spring.table->heating[3]);
    EXPECT_TRUE(spring.table->cooling[11]);
}

TEST(ResultsReader, UnitsComeFromTheReportNotTheProject) {
    const auto si = ReadMonthlyEnergy(AsSi(OfficeYear()));
    ASSERT_TRUE(si) << si.error;
    EXPECT_TRUE(si.table->units.si());
    EXPECT_DOUBLE_EQ(CoolingInHeatingUnit(1000, si.table->units), 3.6);
    EXPECT_DOUBLE_EQ(CoolingInHeatingUnit(1000, ReportUnits{1}), 3.413);
    EXPECT_TRUE(ReadEnergySummary(AsSi(OfficeYear())).table->units.si());
}

TEST(ResultsReader, MissingSectionsGiveAnErrorAndNoFigures) {
    EXPECT_NE(ReadEnergySummary("ROOF\r\n").error.find("WEATHER"), std::string::npos);
    std::string report = OfficeYear();
    const std::string head = report.substr(0, report.find("III."));
    const auto summary = ReadEnergySummary(head);
    EXPECT_FALSE(summary);
    EXPECT_NE(summary.error.find("section III"), std::string::npos);
    EXPECT_FALSE(ReadComponentLoads(head.substr(0, head.find("\r\nMON")), LoadView::PeakCooling));
    // A table cut inside its rows is no table.
    const std::string cut = report.substr(0, report.find("\r\nPEOPLE"));
    const auto loads = ReadComponentLoads(cut, LoadView::AnnualHeating);
    EXPECT_FALSE(loads);
    EXPECT_NE(loads.error.find("cut short"), std::string::npos);
    // A monthly table without its cost columns: the costs are not available.
    std::string noCosts = report.substr(0, report.find("\r\nMONTHLY HEATING") + 2);
    noCosts +=
        "MONTHLY HEATING AND COOLING\r\n\r\n\r\n\r\n\r\nJAN   1.000\r\n===\r\nTOT   "
        "1.000\r\n\r\n";
    const auto costs = ReadMonthlyCosts(noCosts);
    EXPECT_FALSE(costs);
    EXPECT_NE(costs.error.find("not available"), std::string::npos);
}

const char* const kMonths[] = {"JAN", "FEB", "MAR", "APR", "MAY", "JUN",
                               "JUL", "AUG", "SEP", "OCT", "NOV", "DEC"};

// Lines of the report from the first that begins with `head`.
std::vector<std::string> LinesFrom(const std::string& report, const std::string& head) {
    std::vector<std::string> lines;
    std::size_t at = report.find("\r\n" + head);
    while (at != std::string::npos && at + 2 < report.size()) {
        const std::size_t end = report.find("\r\n", at + 2);
        lines.push_back(report.substr(at + 2, end == std::string::npos ? end : end - at - 2));
        at = end;
    }
    return lines;
}

double At(const std::string& line, int column, int width) {
    return static_cast<int>(line.size()) < column ? 0 : NumVal(line.substr(column - 1, width));
}

TEST(ResultsReader, UtilityCostsReadBackAsTheEngineBilledThem) {
    // The sample office: electricity .1048 $/kWh, gas .73 $/therm, no
    // demand schedule.
    const std::string& report = OfficeYear();
    const auto read = ReadMonthlyCosts(report);
    ASSERT_TRUE(read) << read.error;
    const MonthlyCosts& c = *read.table;
    EXPECT_EQ(c.startMonth, 0);
    // The engine's bills to the cent in VII., its energy in VI.
    const auto vii = LinesFrom(report, "VII.");
    const auto vi = LinesFrom(report, "VI.");
    ASSERT_FALSE(vii.empty());
    ASSERT_FALSE(vi.empty());
    auto rowOf = [](const std::vector<std::string>& lines, const std::string& name) {
        for (const std::string& l : lines)
            if (l.rfind("    " + name, 0) == 0) return l;
        return std::string();
    };
    double sum = 0;
    for (int m = 0; m < 12; ++m) {
        const std::string bill = rowOf(vii, kMonths[m]);
        const std::string use = rowOf(vi, kMonths[m]);
        ASSERT_FALSE(bill.empty() || use.empty()) << m;
        ASSERT_TRUE(c.gas[m] && c.elec[m] && c.total[m]) << m;
        // The monthly table's whole dollars are the engine's figures rounded.
        EXPECT_NEAR(*c.gas[m], At(bill, 65, 10), 0.5 + 1e-6) << m;
        EXPECT_NEAR(*c.elec[m], At(bill, 32, 10) + At(bill, 43, 10), 0.5 + 1e-6) << m;
        EXPECT_NEAR(*c.total[m], At(bill, 98, 11), 0.5 + 1e-6) << m;
        // And the bills are the energy at the sample's prices: kWh and MBtu
        // of fuel (10 therms each) of VI.
        EXPECT_NEAR(At(bill, 32, 10), At(use, 79, 10) * 0.1048, 0.06) << m;
        EXPECT_NEAR(At(bill, 65, 10), (At(use, 90, 9) + At(use, 100, 9)) * 10 * 0.73, 0.08) << m;
        EXPECT_EQ(At(bill, 43, 10), 0) << m;  // no demand schedule
        sum += At(bill, 98, 11);
    }
    ASSERT_TRUE(c.total[12]);
    EXPECT_NEAR(*c.total[12], At(rowOf(vii, "TOTAL"), 98, 11), 0.5 + 1e-6);
    EXPECT_NEAR(*c.total[12], sum, 0.5 + 1e-6);
    EXPECT_GT(*c.elec[12], 0);
    EXPECT_GT(*c.gas[12], 0);  // Chicago: the office burns gas
    // The life-cycle cost of a whole year is in VII.
    EXPECT_FALSE(rowOf(vii, "TOTAL LIFE-CYCLE COST").empty());
}

TEST(ResultsReader, DemandScheduleEnteredOnTheScreenIsBilled) {
    // The office with a demand schedule as the economics screen keeps it:
    // the first 10 kW at $4, the next 10 at $6, the rest at $9 a kW.
    const std::string report =
        RunSample("Small Office [two levels, I-P].inp", "1-Jan", [](ProjectModel& m) {
            EconomicsState& e = m.economics;
            e.EconomicsData[11] = " Y";
            e.DemandCharge = " Y";
            e.NumDemandRates = 3;
            const char* kw[] = {"", "10", "10", "999"};
            const char* cost[] = {"", "4", "6", "9"};
            for (int i = 1; i <= 3; ++i)
                e.DemandRateLimit[i] = kw[i], e.DemandRateCost[i] = cost[i];
        });
    const auto read = ReadMonthlyCosts(report);
    ASSERT_TRUE(read) << read.error;
    const auto vii = LinesFrom(report, "VII.");
    int months = 0;
    for (const std::string& l : vii) {
        if (l.size() < 108 || l.rfind("    ", 0) != 0) continue;
        int m = 0;
        while (m < 12 && l.substr(4, 3) != kMonths[m]) ++m;
        if (m == 12) continue;
        ++months;
        // By hand from the month's peak kW (printed to 0.1 kW).
        const double kw = At(l, 22, 9);
        const double demand = 4 * std::min(kw, 10.0) + 6 * std::clamp(kw - 10, 0.0, 10.0) +
                              9 * std::max(kw - 20, 0.0);
        EXPECT_GT(kw, 10) << l;  // each month reaches the second block
        EXPECT_NEAR(At(l, 43, 10), demand, 0.05 * 9 + 0.01) << l;
        // The monthly table's electric cost holds energy and demand.
        EXPECT_NEAR(*read.table->elec[m], At(l, 32, 10) + At(l, 43, 10), 0.5 + 1e-6) << l;
    }
    EXPECT_EQ(months, 12);
    EXPECT_NE(report.find("DEMAND CHARGE ON EACH MONTH'S PEAK HOURLY KW"), std::string::npos);
}

TEST(ResultsReader, CostColumnsWhenTheReportHasThem) {
    // A monthly table with the cost columns filled, after a real report's head.
    std::string report = OfficeYear();
    report = report.substr(0, report.find("\r\nMONTHLY HEATING") + 2);
    auto row = [](const std::string& mth, double gas, double elec) {
        std::string l(122, ' ');
        l.replace(0, 3, mth);
        auto put = [&](int col, int w, double v) {
            std::string s = std::to_string(v).substr(0, w);
            l.replace(col - 1 + (w - s.size()), s.size(), s);
        };
        put(80, 8, gas);
        put(105, 9, elec);
        put(114, 9, gas + elec);
        return l + "\r\n";
    };
    report += "MONTHLY COSTS\r\n\r\n\r\n\r\n\r\n" + row("NOV", 120, 300) + row("DEC", 150, 280) +
              "====\r\n\r\n" + row("TOT", 270, 580);
    const auto costs = ReadMonthlyCosts(report);
    ASSERT_TRUE(costs) << costs.error;
    EXPECT_EQ(costs.table->startMonth, 10);
    EXPECT_DOUBLE_EQ(*costs.table->gas[10], 120);
    EXPECT_DOUBLE_EQ(*costs.table->total[11], 430);
    EXPECT_DOUBLE_EQ(*costs.table->total[12], 850);  // the year, one above the last month
    EXPECT_DOUBLE_EQ(costs.table->scale, 500);
}

}  // namespace
}  // namespace solvane

namespace solvane {
namespace {

TEST(RunSummaryRead, GathersWhatTheReportHoldsAndNamesWhatItLacks) {
    const auto r = ReadRunSummary(OfficeYear());
    ASSERT_TRUE(r) << r.error;
    EXPECT_TRUE(r.table->peakHeating && r.table->annualCooling);
    ASSERT_TRUE(r.table->costs);
    ASSERT_TRUE(r.table->lifeCycle) << ::testing::PrintToString(r.table->notAvailable);
    EXPECT_EQ(r.table->lifeCycle->years, 25);  // the sample's economics
    EXPECT_DOUBLE_EQ(r.table->lifeCycle->discountRate, 3);
    EXPECT_GT(r.table->lifeCycle->presentWorth, 25 * *r.table->costs->total[12] * 0.5);
    EXPECT_TRUE(r.table->notAvailable.empty());
    // A report without a whole year's life-cycle cost names it.
    const std::string& full = OfficeYear();
    std::string shorter = full;
    const auto at = shorter.find("    LIFE-CYCLE COST: PRESENT WORTH");
    ASSERT_NE(at, std::string::npos);
    shorter.replace(at, 34, "    LIFE-CYCLE COST NOT COMPUTED: ");
    const auto s = ReadRunSummary(shorter);
    ASSERT_TRUE(s);
    EXPECT_FALSE(s.table->lifeCycle);
    ASSERT_EQ(s.table->notAvailable.size(), 1u);
    EXPECT_NE(s.table->notAvailable[0].find("life-cycle"), std::string::npos);
    // Without the energy summary there is no summary at all.
    const std::string& report = OfficeYear();
    EXPECT_FALSE(ReadRunSummary(report.substr(0, report.find("III."))));
}

}  // namespace
}  // namespace solvane

namespace solvane {
namespace {

class ResultViewTest : public ::testing::Test {
  protected:
    void SetUp() override {
        root_ = test::MakeSampleProgram("resultview");
        session_.paths = ProgramPaths(root_);
    }
    void TearDown() override { fs::remove_all(root_); }
    fs::path root_;
    Session session_;
    ScriptedPrompt prompt_;
};

TEST_F(ResultViewTest, MissingResultsLeaveTheChartEmptyAndSay) {
    ResultViewController c(session_, prompt_);
    RasterCanvas canvas(96, 72);
    canvas.FillBox(0, 0, 95, 71, 0x123456);
    EXPECT_FALSE(c.Show(ChartKind::Peak, canvas));
    EXPECT_EQ(prompt_.asked.back().title, "Results not available");
    EXPECT_EQ(canvas.ColorAt(10, 10), 0xFFFFFFu);
    // Leaving unsaved results asks; "Yes" goes to saving them.
    prompt_.Queue(Answer::Yes);
    EXPECT_EQ(c.Leave().show, Screen::SaveOutForm);
    session_.model.flags.OutputFileSaved = 1;
    EXPECT_EQ(c.Leave().show, Screen::MainMenu);
    EXPECT_EQ(prompt_.asked.back().title, "Save Output");  // not asked again
}

TEST_F(ResultViewTest, ChartsAndBenchmarkFromARealReport) {
    WriteFileAtomic(root_ / "temp" / "ecalc$.out", OfficeYear());
    ResultViewController c(session_, prompt_);
    RasterCanvas canvas(960, 720);
    ASSERT_TRUE(c.Show(ChartKind::Source, canvas));
    EXPECT_FALSE(c.fields.Text("Label3_3").empty());
    ASSERT_TRUE(c.Show(ChartKind::Monthly, canvas));
    ASSERT_TRUE(c.ShowView(1, canvas));  // the utility costs of the monthly table
    EXPECT_EQ(c.fields.Text("Tottotal").substr(0, 16), "Total Costs = $ ");
    EXPECT_FALSE(c.eui.Open());          // no building type chosen
    session_.model.session.BuildingType = 25;
    session_.model.btypes.BTypeName[25] = "Office";
    session_.model.btypes.BTypeEUILow[25] = 1000;
    session_.model.btypes.BTypeEUIHigh[25] = 2000;
    ASSERT_TRUE(c.eui.Open());
    EXPECT_NE(c.eui.fields.Text("Text1").find("Congratulations!"), std::string::npos);
    EXPECT_EQ(c.eui.fields.Text("Label4").substr(0, 22), "Your Site Line EUI is ");
    EXPECT_EQ(c.eui.fields.Text("Heading"),
              "Building EUI Information including the CBECS survey \nvalues");
    // One picture per unit system; the project's is the one shown.
    session_.model.session.Units = 2;
    ASSERT_TRUE(c.eui.Open());
    EXPECT_TRUE(c.eui.fields.Visible("Image1_2"));
    EXPECT_FALSE(c.eui.fields.Visible("Image1_1"));
}

}  // namespace
}  // namespace solvane
