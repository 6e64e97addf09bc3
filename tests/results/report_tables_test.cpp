// The table views of the `tabular` screen: each cut of a real report by its
// headings, the pages of the paged views, and the rewritten location lines.
#include "results/report_tables.h"
#include "results/tabular.h"

#include <gtest/gtest.h>

#include "office_run.h"

namespace fs = std::filesystem;

namespace solvane {
namespace {

std::vector<std::string> Lines(const fs::path& file) {
    return SplitLines(ReadTextFile(file).value_or(""));
}

const std::string kRule(129, '=');

TEST(TableCuts, TheViewsTileARealReportAtTheirHeadings) {
    const auto& run = test::RunOfficeWithHourlyOutput();
    const auto report = SplitLines(run.report);
    std::vector<std::string> joined;
    for (int v = 1; v <= kTableViews; ++v) {
        const auto view = static_cast<TableView>(v);
        const auto cut = CutSection(report, CutOf(view), kRule);
        // The office report has no zone section before the input report
        // prints one, and no cost analysis without economics.
        const bool present = v == 1 || std::any_of(report.begin(), report.end(), [&](auto& l) {
                                 return l.rfind(CutOf(view).start, 0) == 0;
                             });
        ASSERT_EQ(cut.has_value(), present) << TableTitle(view);
        if (!cut) continue;
        ASSERT_FALSE(cut->empty());
        if (v > 1) {
            EXPECT_EQ(cut->front().rfind(CutOf(view).start, 0), 0u) << TableTitle(view);
        }
        for (const auto& line : *cut)
            if (line != kRule) joined.push_back(line);
    }
    // Every line of the report (but form feeds) is in exactly one view, in order.
    std::vector<std::string> expected;
    for (const auto& line : report)
        if (line != "\f") expected.push_back(line);
    EXPECT_EQ(joined, expected);

    const auto hvac = CutSection(report, CutOf(TableView::HvacDesign), kRule);
    const auto peak = CutSection(report, CutOf(TableView::PeakProfiles), kRule);
    ASSERT_TRUE(hvac && peak);
    EXPECT_EQ(hvac->front().substr(0, 4), "IV. ");
    EXPECT_EQ(peak->front().substr(0, 3), "V. ");  // not "VI." nor "VIII."
    // The peak profiles run on over section VI to the next section present.
    EXPECT_TRUE(std::any_of(peak->begin(), peak->end(),
                            [](const std::string& l) { return l.rfind("VI.", 0) == 0; }));
    EXPECT_FALSE(std::any_of(peak->begin(), peak->end(),
                             [](const std::string& l) { return l.rfind("VIII", 0) == 0; }));
}

TEST(TableCuts, SchemeLinesGetARuleAndEndHeadingsNeedTheirBlank) {
    const std::vector<std::string> report = {
        "title", "    SCHEME: 1A", "II.  ZONES", "    ZONE 1", "III. MONTHLY",
        "row",   "VI. SYSTEMS",    "V. PEAK",    "p1",         "VIII. WEATHER",
        "w",     "IX. COMFORT"};
    const auto project = CutSection(report, CutOf(TableView::ProjectData), "==");
    ASSERT_TRUE(project);
    EXPECT_EQ(*project, (std::vector<std::string>{"title", "    SCHEME: 1A", "=="}));
    // "V. " is the peak section: "VI." before it is not, nor "VIII." after.
    const auto peak = CutSection(report, CutOf(TableView::PeakProfiles), "==");
    ASSERT_TRUE(peak);
    EXPECT_EQ(*peak, (std::vector<std::string>{"V. PEAK", "p1"}));
    EXPECT_FALSE(CutSection(report, CutOf(TableView::CostAnalysis), "=="));
    const auto comfort = CutSection(report, CutOf(TableView::SpaceComfort), "==");
    ASSERT_TRUE(comfort);
    EXPECT_EQ(comfort->size(), 1u);
}

TEST(TableCuts, LocationLinesReadWhole) {
    const std::vector<std::string> lines = {
        " ANALYSIS FOR: Office", "   LOCATION: Chicago OHare Intl AP, Illinois # 42  DEG.LAT.",
        "*** PROJECT:     Office" + std::string(51, ' ') + "LOCATION:     Chicago OHare", "other"};
    const LocationText where{"Chicago OHare Intl AP, Illinois", "42", "87.9", "90", "659"};
    const auto out = CompleteLocation(lines, where);
    ASSERT_EQ(out.size(), 5u);
    EXPECT_EQ(out[1], std::string(15, ' ') + "Chicago OHare Intl AP, Illinois");
    EXPECT_EQ(out[2],
              "   LOCATION: Chicago OHare Intl AP, Illinois  42 Deg.Lat.    87.9 Deg.Long.    90 "
              "Deg.Time.Zone    659 Above Sea level.");
    EXPECT_EQ(out[3].substr(74, 14), "LOCATION:     ");
    EXPECT_EQ(out[3].substr(88), "Chicago OHare Intl AP, Illinois");
    EXPECT_EQ(out[4], "other");
}

TEST(TableCuts, PagesSplitAtZoneAndDailyLines) {
    const std::vector<std::string> zones = {"II.  ZONES", "    ZONE 1-1", "a", "    ZONE 1-2", "b"};
    const auto pages = SplitZonePages(zones);
    ASSERT_EQ(pages.size(), 2u);
    EXPECT_EQ(pages[0], (std::vector<std::string>{"II.  ZONES", "    ZONE 1-1", "a"}));
    EXPECT_EQ(pages[1], (std::vector<std::string>{"    ZONE 1-2", "b"}));
    const auto weather = SplitWeatherPages({"VIII.", "JAN", " DAILY WEATHER", "JAN 1", " DAILY"});
    ASSERT_EQ(weather.size(), 2u);
    EXPECT_EQ(weather[1].front(), " DAILY WEATHER");
    EXPECT_EQ(weather[1].size(), 3u);  // only the first "DAILY" splits
    EXPECT_EQ(PageFileName(TableView::SpaceComfort, 10), "10.flt");
    EXPECT_EQ(PageFileName(TableView::WeatherSummary, 2), "2wth.txt");
    EXPECT_EQ(PageFileName(TableView::ZoneData, 3), "3.txt");
}

class TabularTest : public ::testing::Test {
  protected:
    void SetUp() override {
        root_ = test::ProgramWithOfficeResults(
            std::string("tabular_") +
            ::testing::UnitTest::GetInstance()->current_test_info()->name());
        session_.paths = ProgramPaths(root_);
        session_.model.session.InputFileShortName = "office.inp";
    }
    void TearDown() override { fs::remove_all(root_); }
    fs::path Temp(const std::string& name) { return root_ / "temp" / name; }

    fs::path root_;
    Session session_;
    ScriptedPrompt prompt_;
};

TEST_F(TabularTest, ComfortPagesOneAZoneAndTheButtonsStopAtTheEnds) {
    TabularController tab(session_, prompt_);
    ASSERT_TRUE(tab.Show(TableView::SpaceComfort));
    EXPECT_EQ(tab.fields.caption, "office.inp -- Space Comfort Conditions");
    int zones = 0;
    bool inComfort = false;
    for (const auto& line : SplitLines(test::RunOfficeWithHourlyOutput().report)) {
        inComfort = inComfort || line.rfind("IX.", 0) == 0;
        if (inComfort && line.rfind(" ZONE ", 0) == 0) ++zones;
    }
    ASSERT_GT(zones, 1);
    EXPECT_EQ(tab.ZonePageCount(), zones);
    for (int n = 1; n <= zones; ++n) {
        const auto page = Lines(Temp(std::to_string(n) + ".flt"));
        ASSERT_GE(page.size(), 2u) << n;
        EXPECT_EQ(page[n == 1 ? 1 : 0].rfind("*** PROJECT:", 0), 0u) << n;
        EXPECT_EQ(std::count_if(page.begin(), page.end(),
                                [](auto& l) { return l.rfind(" ZONE ", 0) == 0; }),
                  1)
            << n;
    }
    EXPECT_FALSE(fs::exists(Temp(std::to_string(zones + 1) + ".flt")));
    EXPECT_EQ(tab.ZonePageIndex(), 1);
    EXPECT_EQ(tab.text(), ReadTextFile(Temp("1.flt")).value());
    tab.Zone(2);  // nothing before the first
    EXPECT_EQ(tab.ZonePageIndex(), 1);
    for (int i = 1; i < zones + 3; ++i) tab.Zone(1);
    EXPECT_EQ(tab.ZonePageIndex(), zones);
    EXPECT_EQ(tab.text(), ReadTextFile(Temp(std::to_string(zones) + ".flt")).value());
    EXPECT_FALSE(tab.fields.At("zone", 1).enabled);
    EXPECT_TRUE(tab.fields.At("zone", 2).enabled);
}

TEST_F(TabularTest, ZoneDataPagesOneAZoneWithTheLocationWhole) {
    session_.model.ProjectData[kLocation] = "Chicago OHare Intl AP, Illinois";
    TabularController tab(session_, prompt_);
    ASSERT_TRUE(tab.Show(TableView::ZoneData)) << prompt_.asked.back().text;
    EXPECT_EQ(tab.ZonePageCount(), 6);  // the office's six zones
    EXPECT_EQ(Lines(Temp("1.txt")).front().substr(0, 3), "II.");
    for (int n = 2; n <= 6; ++n)
        EXPECT_EQ(Lines(Temp(std::to_string(n) + ".txt")).front().substr(0, 8), "    ZONE") << n;
    EXPECT_FALSE(fs::exists(Temp("7.txt")));
    EXPECT_EQ(Lines(Temp("tabzone.txt")).front().substr(0, 3), "II.");

    ASSERT_TRUE(tab.Show(TableView::ProjectData));
    const auto project = Lines(Temp("tabproj.txt"));
    const auto analysis = std::find_if(project.begin(), project.end(),
                                       [](auto& l) { return l.rfind(" ANALYSIS FOR:", 0) == 0; });
    ASSERT_NE(analysis, project.end());
    EXPECT_EQ(*(analysis + 1), std::string(15, ' ') + "Chicago OHare Intl AP, Illinois");
    EXPECT_EQ(project.back().rfind("II.", 0), std::string::npos);
}

TEST_F(TabularTest, WeatherHasTwoPagesAndTheSummaryIsOneFile) {
    TabularController tab(session_, prompt_);
    ASSERT_TRUE(tab.Show(TableView::WeatherSummary));
    EXPECT_EQ(tab.ZonePageCount(), 2);
    EXPECT_EQ(Lines(Temp("1wth.txt")).front().substr(0, 5), "VIII.");
    EXPECT_EQ(Lines(Temp("2wth.txt")).front().substr(1, 5), "DAILY");
    const auto whole = Lines(Temp("tabweat.txt"));
    EXPECT_EQ(whole.size(), Lines(Temp("1wth.txt")).size() + Lines(Temp("2wth.txt")).size());

    ASSERT_TRUE(tab.Show(TableView::MonthlySummaries));
    EXPECT_EQ(tab.ZonePageCount(), 0);
    EXPECT_FALSE(tab.fields.At("zone", 1).visible);
    const auto sum = Lines(Temp("tabsum.txt"));
    EXPECT_EQ(sum.front().substr(0, 4), "III.");
    EXPECT_EQ(tab.text(), ReadTextFile(Temp("tabsum.txt")).value());
    EXPECT_TRUE(prompt_.asked.empty());
}

TEST_F(TabularTest, AMissingSectionIsToldAndTheViewStaysAsItWas) {
    TabularController tab(session_, prompt_);
    ASSERT_TRUE(tab.Show(TableView::MonthlySummaries));
    const std::string before = tab.text();
    // Cut off the report before its comfort section and its costs.
    const auto& report = test::RunOfficeWithHourlyOutput().report;
    WriteFileAtomic(Temp("ecalc$.out"), report.substr(0, report.find("\r\nIX.")));
    EXPECT_FALSE(tab.Show(TableView::SpaceComfort));
    ASSERT_EQ(prompt_.asked.size(), 1u);
    EXPECT_EQ(prompt_.asked[0].title, "Space Temp Error");
    EXPECT_EQ(prompt_.asked[0].text, "No space temperature file available or corrupt file.");
    if (report.find("\r\nVII.") == std::string::npos) {
        EXPECT_FALSE(tab.Show(TableView::CostAnalysis));
        EXPECT_EQ(prompt_.asked.back().title, "Error");
    }
    EXPECT_EQ(tab.view(), TableView::MonthlySummaries);
    EXPECT_EQ(tab.text(), before);
    fs::remove(Temp("ecalc$.out"));
    EXPECT_FALSE(tab.Show(TableView::ProjectData));
    EXPECT_EQ(prompt_.asked.back().text, "Output file does not exist");
}

TEST_F(TabularTest, SummaryOffersToSaveUnsavedResults) {
    TabularController tab(session_, prompt_);
    session_.availableScreens.insert(Screen::SaveOutForm);
    session_.model.flags.OutputFileSaved = 0;
    prompt_.Queue(Answer::Yes);
    EXPECT_EQ(tab.Summary().show, Screen::SaveOutForm);
    EXPECT_EQ(prompt_.asked.back().title, "Save Output");
    prompt_.Queue(Answer::No);
    EXPECT_EQ(tab.Summary().show, Screen::ResultCharts);
    EXPECT_EQ(session_.model.flags.GraphRequest, 7);
    session_.model.flags.OutputFileSaved = 1;
    const auto asked = prompt_.asked.size();
    EXPECT_EQ(tab.Summary().show, Screen::ResultCharts);
    EXPECT_EQ(prompt_.asked.size(), asked);
}

}  // namespace
}  // namespace solvane
