#include "code/baseline.h"

#include <gtest/gtest.h>

#include "code/building_types.h"
#include "core/numeric_helpers.h"
#include "propertydb/envelope_defaults.h"
#include "propertydb/hvac_catalog.h"
#include "study_program.h"

namespace solvane {
namespace {

// A design that beats the code: less lighting power, a better cooling
// efficiency, a better first wall, and more glass than the code allows.
void ImproveDesign(ProjectModel& m) {
    for (int z = 1; z <= m.zones.NumZones; ++z) {
        m.zones.ZoneData[z][13] = "0.3";
        m.zones.ZoneData[z][27] = "99";
        for (int s = 1; s <= m.zones.ZoneSurfaceCount[z]; ++s)
            if (m.surfaces.SurfExposure[z][s] >= 1 && m.surfaces.SurfExposure[z][s] <= 5)
                m.surfaces.SurfWindowArea[z][s] = 0.6f * m.surfaces.SurfArea[z][s];
    }
    m.walls.WallUFactor[1] = "0.011";
}

class Baseline : public ::testing::TestWithParam<std::tuple<int, const char*>> {};

TEST_P(Baseline, TakesItsFieldsFromTheDefaultsTablesForTheCodeAndClimate) {
    const auto [code, zone] = GetParam();
    test::StudyProgram program("baseline", test::kOffice);
    ProjectModel& m = program.session.model;
    m.session.CodeNum = static_cast<std::int16_t>(code);
    m.session.ClimateZone = zone;
    ImproveDesign(m);
    ASSERT_GT(WindowShare(m), 55);
    const ProjectModel design = m;

    Session baseline = program.session;
    ScriptedPrompt prompt;
    ASSERT_TRUE(MakeBaseline(baseline, prompt));
    const ProjectModel& b = baseline.model;

    // The defaults tables, read on their own.
    ProjectModel tables = design;
    LoadBuildingTypeTable(tables, program.session.paths);
    const int type = design.session.BuildingType;
    const auto& col = tables.btypes.BTypeColumn[type];
    const HvacRow hvac = ReadHvacRecord(program.session.paths, code, static_cast<int>(col[19]));
    EnvelopeRows walls, windows;
    ParseEnvelopeFile(tables, program.session.paths, 1, walls);
    ParseEnvelopeFile(tables, program.session.paths, 2, windows);

    EXPECT_EQ(b.session.BuildingType, type);
    ASSERT_GT(b.zones.NumZones, 1);
    for (int z = 1; z <= b.zones.NumZones; ++z) {
        const auto& row = b.zones.ZoneData[z];
        EXPECT_EQ(NumVal(row[13]), NumVal(StrForm(col[12 + code]))) << "zone " << z;
        EXPECT_EQ(NumVal(row[20]), col[19]);
        EXPECT_EQ(row[27], hvac.seer);
        EXPECT_EQ(row[26], hvac.stpresIn);
        // Kept from the design: people, schedules, equipment, ventilation.
        for (int f : {1, 2, 3, 5, 6, 7, 8, 9, 14, 15, 16, 17, 18, 19})
            EXPECT_EQ(row[f], design.zones.ZoneData[z][f]) << "zone " << z << " field " << f;
    }
    for (int k = 1; k <= kCatalogScreenRows; ++k) {
        EXPECT_EQ(b.walls.WallUFactor[k], walls.UF[k]) << "wall " << k;
        EXPECT_EQ(b.windows.WindowUFactor[k], windows.UF[k]) << "window " << k;
        EXPECT_EQ(b.windows.WindowSHGC[k], windows.Absp[k]) << "window " << k;
    }
    EXPECT_NEAR(WindowShare(b), kBaselineWindowShare, 1e-3);
    EXPECT_EQ(b.economics.EconomicsData, design.economics.EconomicsData);
    EXPECT_EQ(b.ProjectData, design.ProjectData);
    // The design itself is untouched.
    EXPECT_EQ(m.zones.ZoneData[1][13], "0.3");
    EXPECT_EQ(m.walls.WallUFactor[1], "0.011");
}

INSTANTIATE_TEST_SUITE_P(TwoCodesTwoZones, Baseline,
                         ::testing::Combine(::testing::Values(1, 3),
                                            ::testing::Values("2 A", "6 A")));

TEST(BaselineRefusal, NeedsACodeABuildingTypeAndAClimate) {
    test::StudyProgram program("baseline_refused", test::kOffice);
    program.session.model.session.CodeNum = 0;
    const ProjectModel before = program.session.model;
    ScriptedPrompt prompt;
    EXPECT_FALSE(MakeBaseline(program.session, prompt));
    ASSERT_EQ(prompt.asked.size(), 1u);
    EXPECT_EQ(prompt.asked[0].title, "Code baseline");
    EXPECT_EQ(program.session.model.zones.ZoneData, before.zones.ZoneData);
}

TEST(BaselineRun, TheBetterDesignUsesLessEnergyThanItsBaseline) {
    test::StudyProgram program("baseline_run", test::kOffice);
    ImproveDesign(program.session.model);
    for (int z = 1; z <= program.session.model.zones.NumZones; ++z)
        for (int s = 1; s <= program.session.model.zones.ZoneSurfaceCount[z]; ++s)
            program.session.model.surfaces.SurfWindowArea[z][s] = 0;
    Session baseline = program.session;
    ScriptedPrompt prompt;
    ASSERT_TRUE(MakeBaseline(baseline, prompt));
    RunRequest r = test::QuarterRun();
    r.repeatWeather = true;
    const RunOutcome design = RunHeadless(program.session, prompt, r);
    ASSERT_EQ(design.status, 0) << design.error;
    const RunOutcome base = RunHeadless(baseline, prompt, r);
    ASSERT_EQ(base.status, 0) << base.error;
    const auto d = ReadRunMetrics(design.report), bm = ReadRunMetrics(base.report);
    ASSERT_TRUE(d && bm);
    EXPECT_LT(*d.table->Find("endUse.LIGHTS")->value, *bm.table->Find("endUse.LIGHTS")->value);
    EXPECT_LT(*d.table->Find("siteEUI")->value, *bm.table->Find("siteEUI")->value);
}

}  // namespace
}  // namespace solvane
