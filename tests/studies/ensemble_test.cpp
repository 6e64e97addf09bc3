#include "studies/ensemble.h"

#include <gtest/gtest.h>

#include <cmath>
#include <mutex>
#include <random>

#include "run/run_folder.h"
#include "study_program.h"
#include "ui/raster_canvas.h"

namespace solvane {
namespace {

TEST(Percentile, InterpolatesBetweenOrderStatistics) {
    EXPECT_DOUBLE_EQ(Percentile({4, 1, 3, 2}, 50), 2.5);
    EXPECT_DOUBLE_EQ(Percentile({4, 1, 3, 2}, 10), 1.3);
    EXPECT_DOUBLE_EQ(Percentile({4, 1, 3, 2}, 90), 3.7);
    EXPECT_DOUBLE_EQ(Percentile({7}, 90), 7);
    EXPECT_DOUBLE_EQ(Percentile({1, 2, 3}, 0), 1);
    EXPECT_DOUBLE_EQ(Percentile({1, 2, 3}, 100), 3);
    EXPECT_TRUE(std::isnan(Percentile({}, 50)));
}

TEST(EnsembleSeeds, AreFixedDistinctAndExtendASmallerEnsemble) {
    const auto twenty = EnsembleSeeds(20), five = EnsembleSeeds(5);
    EXPECT_EQ(twenty, EnsembleSeeds(20));
    EXPECT_DOUBLE_EQ(twenty.front(), 0.83766422);
    EXPECT_TRUE(std::equal(five.begin(), five.end(), twenty.begin()));
    for (std::size_t i = 0; i < twenty.size(); ++i) {
        EXPECT_GE(twenty[i], 0);
        EXPECT_LT(twenty[i], 1);
        for (std::size_t k = 0; k < i; ++k) EXPECT_GT(std::abs(twenty[i] - twenty[k]), 1e-4);
    }
}

RunMetrics Metrics(std::initializer_list<std::pair<const char*, std::optional<double>>> values) {
    RunMetrics r;
    for (const auto& [key, v] : values) r.metrics.push_back(Metric{key, "u", false, v});
    return r;
}

TEST(SummarizeRuns, CountsOnlyTheRunsThatGaveAFigure) {
    const auto bands =
        SummarizeRuns({Metrics({{"a", 1}, {"b", std::nullopt}}),
                       Metrics({{"a", 3}, {"b", std::nullopt}}), Metrics({{"a", 2}})});
    ASSERT_EQ(bands.size(), 2u);
    EXPECT_EQ(bands[0].key, "a");
    EXPECT_EQ(bands[0].count, 3);
    EXPECT_DOUBLE_EQ(bands[0].median, 2);
    EXPECT_DOUBLE_EQ(bands[0].min, 1);
    EXPECT_DOUBLE_EQ(bands[0].max, 3);
    EXPECT_EQ(FindBand(bands, "b")->count, 0);
    EXPECT_EQ(FindBand(bands, "c"), nullptr);
}

// The median of a larger ensemble scatters less between ensembles: drawn
// from a fixed skewed distribution, its spread over 200 ensembles of 20 is
// well under that of ensembles of 5.
TEST(SummarizeRuns, MoreSeedsNarrowTheEstimateOfTheMedian) {
    std::mt19937 gen(7);
    std::gamma_distribution<double> year(4.0, 10.0);
    auto spreadOfMedians = [&](int n) {
        std::vector<double> medians;
        for (int e = 0; e < 200; ++e) {
            std::vector<double> v;
            for (int i = 0; i < n; ++i) v.push_back(year(gen));
            medians.push_back(Percentile(v, 50));
        }
        return Percentile(medians, 90) - Percentile(medians, 10);
    };
    EXPECT_LT(spreadOfMedians(20), 0.7 * spreadOfMedians(5));
}

TEST(ParallelFor, RunsEveryTaskOnceOnTheGivenWorkers) {
    std::vector<int> ran(50, 0);
    std::vector<int> workerUsed(3, 0);
    std::mutex lock;
    ParallelFor(50, 3, [&](int worker, int task) {
        std::lock_guard guard(lock);
        ++ran[static_cast<std::size_t>(task)];
        ++workerUsed[static_cast<std::size_t>(worker)];
    });
    for (int n : ran) EXPECT_EQ(n, 1);
    EXPECT_EQ(workerUsed[0] + workerUsed[1] + workerUsed[2], 50);
}

TEST(RunFolder, LinksTheDataAndKeepsItsOwnTempAndSketch) {
    test::StudyProgram program("runfolder", test::kOffice);
    std::filesystem::path dir;
    {
        RunFolder folder(program.session.paths);
        dir = folder.Paths().ProgramDir();
        EXPECT_TRUE(std::filesystem::is_symlink(dir / "Codes"));
        EXPECT_TRUE(std::filesystem::is_symlink(dir / "Solv2020"));
        EXPECT_FALSE(std::filesystem::is_symlink(dir / "temp"));
        EXPECT_TRUE(std::filesystem::is_empty(dir / "temp"));
        EXPECT_FALSE(std::filesystem::is_symlink(dir / "sketch"));
        EXPECT_NE(dir, program.root);
    }
    EXPECT_FALSE(std::filesystem::exists(dir));
    EXPECT_TRUE(std::filesystem::exists(program.root / "Codes"));
}

std::vector<double> Values(const EnsembleResult& e, const char* key) {
    std::vector<double> out;
    for (const RunMetrics& r : e.runs) out.push_back(r.Find(key)->value.value_or(NAN));
    return out;
}

TEST(RunEnsemble, SameSeedsGiveTheSameBandsAndTheBandHoldsTheSingleRun) {
    test::StudyProgram program("ensemble", test::kOffice);
    const auto seeds = EnsembleSeeds(5);
    const EnsembleResult two = RunEnsemble(program.session, test::QuarterRun(), seeds, 2);
    ASSERT_TRUE(two.failures.empty()) << two.failures.front();
    ASSERT_EQ(two.runs.size(), 5u);
    const EnsembleResult one = RunEnsemble(program.session, test::QuarterRun(), seeds, 1);
    ASSERT_EQ(one.runs.size(), 5u);
    // Runs side by side in their own folders give what runs one after another do.
    EXPECT_EQ(Values(two, "siteEUI"), Values(one, "siteEUI"));
    ASSERT_EQ(two.bands.size(), one.bands.size());
    for (std::size_t i = 0; i < two.bands.size(); ++i) {
        EXPECT_EQ(two.bands[i].key, one.bands[i].key);
        EXPECT_DOUBLE_EQ(two.bands[i].median, one.bands[i].median) << two.bands[i].key;
        EXPECT_DOUBLE_EQ(two.bands[i].p10, one.bands[i].p10) << two.bands[i].key;
        EXPECT_DOUBLE_EQ(two.bands[i].p90, one.bands[i].p90) << two.bands[i].key;
        EXPECT_LE(two.bands[i].p10, two.bands[i].median);
        EXPECT_LE(two.bands[i].median, two.bands[i].p90);
    }
    // The weather differs between seeds: the heating energy is not one figure.
    const MetricBand* heating = FindBand(two.bands, "endUse.HEATING");
    ASSERT_NE(heating, nullptr);
    EXPECT_LT(heating->min, heating->max);

    // A single run in the program folder with the repeated weather sequence is
    // the ensemble's first member, inside the band's range.
    RunRequest single = test::QuarterRun();
    single.repeatWeather = true;
    const RunOutcome outcome = RunHeadless(program.session, program.prompt, single);
    ASSERT_EQ(outcome.status, 0) << outcome.error;
    const auto metrics = ReadRunMetrics(outcome.report);
    ASSERT_TRUE(metrics) << metrics.error;
    const double site = *metrics.table->Find("siteEUI")->value;
    EXPECT_DOUBLE_EQ(site, Values(two, "siteEUI").front());
    const MetricBand* band = FindBand(two.bands, "siteEUI");
    EXPECT_LE(band->min, site);
    EXPECT_GE(band->max, site);
    // The headline figures the ensemble reports are all there.
    for (const char* key : {"sourceEUI", "peakHeating", "peakCooling", "unmetCoolingHours",
                            "unmetHeatingHours", "monthly.heating.1", "peakCooling.1"})
        EXPECT_GT(FindBand(two.bands, key)->count, 0) << key;
}

}  // namespace
}  // namespace solvane

namespace solvane {
namespace {

// The pixel of a chart point given in twips, on a canvas of 960 by 720.
Color At(const RasterCanvas& c, double xTwips, double yTwips) {
    return c.ColorAt(static_cast<int>(xTwips / 10), static_cast<int>(yTwips / 10));
}

TEST(ChartBands, TheSourceChartDrawsTheBandBesideAndOverEachBar) {
    EnergySummary e;
    e.scale = 100;
    for (int i = 1; i <= 6; ++i) e.EnergyBreakdown[i] = 40, e.CategoryName[i] = "C";
    ChartBands bands;
    bands.runs = 20;
    bands.source[2] = std::pair{30.0, 60.0};
    ScreenFields f;
    RasterCanvas plain(960, 720), banded(960, 720);
    DrawSourceChart(e, ChartHead{}, f, plain);
    DrawSourceChart(e, ChartHead{}, f, banded, &bands);
    // Category 2's bar spans 3000..3500 twips; its band 30..60 of a scale of
    // 100 lies between 5000 - 1050 and 5000 - 2100 twips high.
    const double midBand = 5000 - 45 * 35.0, aboveBar = 5000 - 55 * 35.0;
    EXPECT_EQ(At(banded, 2950, midBand), kBandFill);
    EXPECT_EQ(At(plain, 2950, midBand), 0xFFFFFFu);
    // Above the bar the band shows across its width; the other bars have none.
    EXPECT_EQ(At(banded, 3100, aboveBar), kBandFill);
    EXPECT_EQ(At(banded, 1950, midBand), 0xFFFFFFu);
    // The whisker runs up the bar's middle.
    EXPECT_EQ(At(banded, 3250, aboveBar), kBandWhisker);
}

TEST(ChartBands, ComeFromTheEnsemblesPercentiles) {
    EnsembleResult e;
    for (double v : {10.0, 20.0, 30.0, 40.0, 50.0}) {
        RunMetrics r;
        r.metrics = {Metric{"endUse.HEATING", "MBtu", false, v},
                     Metric{"endUse.COOLING", "MBtu", false, 2 * v},
                     Metric{"monthly.cooling.7", "kWh", true, 100 * v},
                     Metric{"peakHeating.3", "kBtuh", true, std::nullopt}};
        e.runs.push_back(r);
    }
    e.bands = SummarizeRuns(e.runs);
    const ChartBands b = ChartBandsOf(e);
    EXPECT_EQ(b.runs, 5);
    ASSERT_TRUE(b.source[1]);
    EXPECT_DOUBLE_EQ(b.source[1]->first, 14);
    EXPECT_DOUBLE_EQ(b.source[1]->second, 46);
    EXPECT_DOUBLE_EQ(b.source[2]->second, 92);
    EXPECT_FALSE(b.source[3]);
    EXPECT_DOUBLE_EQ(b.cooling[6]->first, 1400);
    EXPECT_FALSE(b.peakHeating[2]);
}

}  // namespace
}  // namespace solvane
