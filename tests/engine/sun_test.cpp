#include "engine/sun.h"

#include <gtest/gtest.h>

#include <cmath>

namespace solvane::engine {
namespace {

TEST(SolarPosition, NoonAtTheEquinoxStandsAtTheLatitude) {
    // 21 March (day 80) near solar noon in Greenwich: zenith = latitude.
    double best = 1e9;
    for (double h = 11.5; h <= 12.5; h += 0.01) {
        const SunPosition s = SolarPosition(80, h, 40.0, 0.0, 0.0);
        best = std::min(best, s.zenith / kDeg);
    }
    EXPECT_NEAR(best, 40.0, 0.6);
}

TEST(SolarPosition, SummerSolsticeNoonAndAzimuth) {
    // Denver, 21 June, solar noon about 12:00 standard time at -105 meridian.
    const SunPosition s = SolarPosition(172, 12.0, 39.83, -105.0, -7.0);
    EXPECT_NEAR(90 - s.zenith / kDeg, 90 - 39.83 + 23.44, 0.6);
    // Morning sun is in the east, afternoon sun in the west.
    EXPECT_GT(SolarPosition(172, 9.0, 39.83, -105.0, -7.0).east, 0.5);
    EXPECT_LT(SolarPosition(172, 15.0, 39.83, -105.0, -7.0).east, -0.5);
    EXPECT_FALSE(SolarPosition(172, 2.0, 39.83, -105.0, -7.0).aboveHorizon);
}

TEST(SolarPosition, SunriseHourUsesTheSunlitPart) {
    // The hour ending 5 a.m. (standard time) on 21 June in Denver has the
    // sun rising in it: the mean direction of its sunlit part is just above
    // the horizon, while the middle of the hour is still below it.
    const SunPosition s = HourSunPosition(172, 5, 39.83, -104.65, -7.0);
    EXPECT_FALSE(SolarPosition(172, 4.5, 39.83, -104.65, -7.0).aboveHorizon);
    ASSERT_TRUE(s.aboveHorizon);
    EXPECT_GT(s.up, 0.0);
    EXPECT_LT(s.up, 0.08);
}

TEST(Irradiance, HorizontalSurfaceGetsTheGlobalIrradiance) {
    const SunPosition sun = SolarPosition(172, 12.0, 39.83, -105.0, -7.0);
    const double dni = 800, dhi = 120;
    const double ghi = dni * sun.up + dhi;
    const SkyState sky = MakeSkyState(sun, dni, dhi, ghi);
    const SurfaceIrradiance h = IrradianceOn(sky, MakeNormal(0, 0), 0.2);
    // Perez reduces to the horizontal values on a horizontal plane.
    EXPECT_NEAR(h.Total(), ghi, 1e-6 * ghi + 1e-9);
    EXPECT_NEAR(h.groundDiffuse, 0.0, 1e-9);
}

TEST(Irradiance, OvercastSkyOnAWallIsNearlyIsotropic) {
    const SunPosition sun = SolarPosition(172, 12.0, 39.83, -105.0, -7.0);
    const SkyState sky = MakeSkyState(sun, 0, 200, 200);
    const SurfaceIrradiance n = IrradianceOn(sky, MakeNormal(0, 90), 0.2);
    // Isotropic would be half the sky; an overcast sky with a high sun has a
    // darker horizon in Perez's model (F2 below 0), so a north wall gets a
    // little less.
    EXPECT_LT(sky.f2, 0.0);
    EXPECT_LT(n.skyDiffuse, 100.0);
    EXPECT_GT(n.skyDiffuse, 75.0);
    EXPECT_NEAR(n.groundDiffuse, 0.2 * 200 * 0.5, 1e-9);
    EXPECT_EQ(n.beam, 0.0);
}

TEST(Irradiance, BeamFollowsTheIncidenceAngle) {
    const SunPosition sun = SolarPosition(355, 12.0, 39.83, -105.0, -7.0);
    const SkyState sky = MakeSkyState(sun, 900, 50, 900 * sun.up + 50);
    const SurfaceIrradiance south = IrradianceOn(sky, MakeNormal(180, 90), 0.2);
    const SurfaceIrradiance north = IrradianceOn(sky, MakeNormal(0, 90), 0.2);
    // Winter noon: the south wall sees cos(altitude) of the beam.
    EXPECT_NEAR(south.beam, 900 * std::sqrt(1 - sun.up * sun.up), 900 * 0.02);
    EXPECT_EQ(north.beam, 0.0);
    EXPECT_GT(south.Total(), 5 * north.Total());
}

}  // namespace
}  // namespace solvane::engine
