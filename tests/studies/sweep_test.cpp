#include "studies/sweep.h"

#include <gtest/gtest.h>

#include "core/numeric_helpers.h"
#include "study_program.h"
#include "weather/weather_screen.h"

namespace solvane {
namespace {

namespace fs = std::filesystem;

struct SweepFixture : ::testing::Test {
    test::StudyProgram program{"sweep", test::kOffice};
    ClimateIndex index;
    std::vector<Station> canada;
    SweepOptions options;

    void SetUp() override {
        LoadLocationCounts(program.session.paths, index);
        canada = ListStations(program.session.paths, 2);
        options.request = test::QuarterRun();
        options.request.repeatWeather = true;
        options.jobs = 2;
    }
    fs::path Out(const char* name) const { return program.root / name; }
    std::vector<Station> First(std::size_t n) const {
        return {canada.begin(), canada.begin() + static_cast<long>(n)};
    }
};

TEST_F(SweepFixture, ListsTheStationsOfARegionAndOfAll) {
    ASSERT_GT(canada.size(), 100u);
    EXPECT_EQ(canada[0].city, "Abee AgDM");
    EXPECT_EQ(canada[0].state, "Alberta");
    EXPECT_EQ(canada[0].region, 2);
    EXPECT_EQ(canada[1].ordinal, 2);
    EXPECT_EQ(canada[0].climateZone, "7");
    const auto all = ListStations(program.session.paths, 0);
    EXPECT_EQ(static_cast<long>(all.size()), index.TotalCities);
}

// A station as the user picks it on the location screen, then run.
RunMetrics SingleRun(SweepFixture& f, const std::string& state, const std::string& city) {
    Session session = f.program.session;
    ScriptedPrompt prompt;
    WeatherScreen screen(session.model, session.paths, prompt, f.index);
    screen.Activate();
    screen.ChooseRegion(2);
    screen.ChooseState(state);
    screen.ChooseCity(city);
    screen.Ok();
    EXPECT_EQ(session.model.climate.LocationCity, city);
    session.model.climate.DesTempsPresent = 0;
    const RunOutcome outcome = RunHeadless(session, prompt, f.options.request);
    EXPECT_EQ(outcome.status, 0) << outcome.error;
    auto metrics = ReadRunMetrics(outcome.report);
    EXPECT_TRUE(metrics) << metrics.error;
    return metrics ? *metrics.table : RunMetrics{};
}

TEST_F(SweepFixture, ARegionsRowsMatchSingleRunsAtThreeStations) {
    const auto stations = First(4);
    options.out = Out("region.csv");
    const auto rows = RunSweep(program.session, index, stations, options);
    ASSERT_EQ(rows.size(), 4u);
    for (std::size_t i : {0u, 1u, 3u}) {
        const Station& st = stations[i];
        const SweepRow* row = nullptr;
        for (const SweepRow& r : rows)
            if (r.ordinal == st.ordinal) row = &r;
        ASSERT_NE(row, nullptr);
        EXPECT_EQ(row->status, "ok");
        const RunMetrics single = SingleRun(*this, st.state, st.city);
        for (std::size_t k = 0; k < std::size(kSweepFigures); ++k) {
            const Metric* m = single.Find(kSweepFigures[k]);
            ASSERT_NE(m, nullptr) << kSweepFigures[k];
            EXPECT_EQ(row->figures[k], m->value ? NumText(*m->value) : "")
                << st.city << " " << kSweepFigures[k];
        }
        EXPECT_FALSE(row->winterDryBulb.empty());
    }
    // The stations differ by their climate: not every heating figure is one.
    EXPECT_NE(rows[0].figures[2], rows[1].figures[2]);
}

TEST_F(SweepFixture, AStoppedSweepResumesWithoutRepeatingOrLosingAStation) {
    const auto stations = First(5);
    const fs::path whole = Out("whole.csv"), resumed = Out("resumed.csv");
    options.out = whole;
    RunSweep(program.session, index, stations, options);

    // The first three stations, the third torn: as a sweep stopped while writing.
    options.out = resumed;
    RunSweep(program.session, index, First(3), options);
    auto text = *ReadTextFile(resumed);
    text.resize(text.size() - 20);
    WriteFileAtomic(resumed, text);

    std::vector<std::string> ran;
    int resumedCount = -1;
    RunSweep(program.session, index, stations, options, [&](const SweepProgress& p) {
        ran.push_back(p.last);
        resumedCount = p.resumed;
    });
    EXPECT_EQ(resumedCount, 2);
    ASSERT_EQ(ran.size(), 3u);  // the torn third and the two not run
    const SweepFile after = ReadSweepCsv(resumed);
    EXPECT_EQ(after.droppedLines, 0);
    ASSERT_EQ(after.rows.size(), 5u);
    WriteSweepCsv(resumed, after.rows);
    WriteSweepCsv(whole, ReadSweepCsv(whole).rows);
    EXPECT_EQ(ReadTextFile(resumed), ReadTextFile(whole));
}

TEST_F(SweepFixture, TheMergedJobPartsEqualTheOneMachineResult) {
    const auto stations = First(5);
    options.out = Out("one.csv");
    RunSweep(program.session, index, stations, options);
    WriteSweepCsv(Out("one.csv"), ReadSweepCsv(Out("one.csv")).rows);

    const auto jobs = SweepJobList("solvane-cli sweep x.inp", 5, 2, program.root);
    ASSERT_EQ(jobs.size(), 2u);
    EXPECT_NE(jobs[0].find("--stations 1-2 "), std::string::npos);
    EXPECT_NE(jobs[1].find("--stations 3-5 "), std::string::npos);
    options.jobs = 1;
    options.out = Out("part-0001.csv");
    RunSweep(program.session, index, First(2), options);
    options.out = Out("part-0002.csv");
    RunSweep(program.session, index, {stations.begin() + 2, stations.end()}, options);
    WriteSweepCsv(Out("merged.csv"), MergeSweepParts({Out("part-0002.csv"), Out("part-0001.csv")}));
    EXPECT_EQ(ReadTextFile(Out("merged.csv")), ReadTextFile(Out("one.csv")));
}

TEST_F(SweepFixture, CodeDefaultsTakeTheClimateZonesEnvelope) {
    // Abee (zone 7) and a zone 5 station of the same region.
    const Station cold = canada[0];
    const Station* milder = nullptr;
    for (const Station& s : canada)
        if (s.climateZone[0] == '5') milder = &s;
    ASSERT_NE(milder, nullptr);
    const auto regionLines =
        SplitLines(*ReadTextFile(program.session.paths.Resolve(RegionFilePath(2))));
    auto roofU = [&](const Station& st, bool code) {
        Session s = program.session;
        ScriptedPrompt p;
        ClimateIndex copy = index;
        ApplyStation(s, p, copy, regionLines, st, code);
        EXPECT_EQ(s.model.session.ClimateZone.substr(0, 1), st.climateZone.substr(0, 1));
        return s.model.walls.WallUFactor;
    };
    EXPECT_EQ(roofU(cold, false), roofU(*milder, false));
    EXPECT_NE(roofU(cold, true), roofU(*milder, true));
}

}  // namespace
}  // namespace solvane
