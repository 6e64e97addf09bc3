// The engine's path from a project file: the ASHRAE 140 case 600 and 900
// project files read by the project reader and translated must give about
// what the layer-by-layer descriptions give.
#include <gtest/gtest.h>

#include "bestest_building.h"
#include "bestest_cases.h"
#include "engine/project_translation.h"
#include "engine/simulation.h"

namespace solvane::engine {
namespace {

const std::string kSource = SOLVANE_SOURCE_DIR;

ProjectRunInputs LoadCase(const std::string& name, int runType) {
    return testing::LoadProjectCase(kSource + "/tests/engine/projects/" + name, runType);
}

const WeatherYear& Denver() {
    return testing::DenverWeather();
}

TEST(ProjectRun, TranslationKeepsTheCase600Inputs) {
    const ProjectRunInputs in = LoadCase("case600.inp", 3);
    ASSERT_EQ(in.building.zones.size(), 1u);
    const Zone& z = in.building.zones[0];
    EXPECT_NEAR(z.floorArea, 48.0, 0.01);
    EXPECT_NEAR(z.gains.equipment, 200.0, 0.1);
    EXPECT_NEAR(z.infiltrationAch, 0.414, 1e-9);
    ASSERT_EQ(z.surfaces.size(), 6u);
    EXPECT_EQ(z.surfaces[0].windows.size(), 1u);
    EXPECT_NEAR(z.surfaces[0].windows[0].area, 12.0, 0.01);
    EXPECT_EQ(z.surfaces[5].kind, SurfaceClass::Floor);
    EXPECT_NEAR(z.surfaces[5].tilt, 180.0, 1e-9);
    // Thermostats in deg C from the deg F profiles.
    EXPECT_NEAR(in.building.profiles[z.heatingSetpointProfile].At(3, 5), 20.0, 1e-9);
    EXPECT_NEAR(in.building.profiles[z.coolingSetpointProfile].At(0, 14), 27.0, 1e-9);
    // Site from the climate block's station figures.
    EXPECT_NEAR(in.site.latitude, 39.83, 1e-9);
    EXPECT_NEAR(in.site.longitude, -104.65, 1e-9);
    EXPECT_NEAR(in.site.timeZone, -7.0, 1e-9);
    // Walls fitted to the catalog's U-factor.
    const Construction& wall = in.building.constructions[z.surfaces[0].construction];
    EXPECT_NEAR(PeriodicResponseOf(wall).uFactor, 0.0899 * 5.6782628, 1e-3);
}

TEST(ProjectRun, ProjectFilesLandNearTheLayeredCases) {
    // What remains between the two routes: the receptacles' radiant share
    // (0.3 by their kind, the case's gain 0.6), the floor open to sun and
    // wind, and the class layers behind each catalog entry.
    for (bool heavy : {false, true}) {
        const ProjectRunInputs in = LoadCase(heavy ? "case900.inp" : "case600.inp", 3);
        RunOptions opt;
        opt.keepHourly = false;
        const ZoneResults p = Simulate(in.building, Denver(), opt).zones[0];
        const ZoneResults d =
            Simulate(testing::BestestBuilding(heavy, false), Denver(), opt).zones[0];
        EXPECT_NEAR(p.heatingEnergy, d.heatingEnergy, 0.04 * d.heatingEnergy) << heavy;
        EXPECT_NEAR(p.coolingEnergy, d.coolingEnergy, 0.04 * d.coolingEnergy) << heavy;
        EXPECT_LT(p.BalanceError(), 1e-3);
    }
}

}  // namespace
}  // namespace solvane::engine
