// The readers on results files written by a real run: the sample office run
// by the run screen through the engine, then read back.
#include "results/results_reader.h"
#include "results/result_view.h"
#include "results/run_summary.h"
#include "ui/raster_canvas.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>

#include "../run/sample_program.h"
#include "core/numeric_helpers.h"
#include "core/text_file.h"
#include "run/run_sim.h"

namespace fs = std::filesystem;

namespace solvane {
namespace {

// Runs a sample through the run screen and the engine; gives ecalc$.out.
std::string RunSample(const std::string& sample, const std::string& begin = "1-Jan") {
    const fs::path root = test::MakeSampleProgram("results_" + begin);
    test::InstallEngine(root);
    Session session;
    session.paths = ProgramPaths(root);
    ScriptedPrompt prompt;
    test::LoadSample(session, prompt, sample);
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
    EXPECT_GT(NumVal(peak.table->total), 0);
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
    // The engine's report has no cost columns yet: the costs are not available.
    const auto costs = ReadMonthlyCosts(report);
    EXPECT_FALSE(costs);
    EXPECT_NE(costs.error.find("not available"), std::string::npos);
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
    EXPECT_FALSE(r.table->costs);
    ASSERT_EQ(r.table->notAvailable.size(), 1u);
    EXPECT_NE(r.table->notAvailable[0].find("utility costs"), std::string::npos);
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
    EXPECT_FALSE(c.ShowView(1, canvas));  // no utility costs in the report
    EXPECT_FALSE(c.eui.Open());           // no building type chosen
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
