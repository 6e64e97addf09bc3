#include "engine/glazing.h"

#include <gtest/gtest.h>

#include <cmath>

namespace solvane::engine {
namespace {

constexpr double kPi = 3.14159265358979323846;

GlazingLayers Clear(int panes) {
    GlazingLayers g;
    g.panes = panes;
    g.refractiveIndex = 1.526;
    g.extinction = 19.6;
    g.thickness = 0.003175;
    return g;
}

TEST(Glazing, SinglePaneMatchesTheFresnelFigures) {
    // Normal incidence: interface reflectance ((n-1)/(n+1))^2 = 0.0434,
    // internal transmittance exp(-K d) = 0.9397.
    const GlazingAtAngle a = GlazingOptics(Clear(1), 0.0);
    EXPECT_NEAR(a.transmittance, 0.8605, 0.002);
    EXPECT_NEAR(a.reflectance, 0.0789, 0.002);
}

TEST(Glazing, EnergyIsConservedAtEveryAngleAndPaneCount) {
    for (int panes = 1; panes <= 3; ++panes) {
        double last = 2.0;
        for (int deg = 0; deg <= 85; deg += 5) {
            const GlazingAtAngle a = GlazingOptics(Clear(panes), deg * kPi / 180);
            double sum = a.transmittance + a.reflectance;
            for (int i = 0; i < panes; ++i) sum += a.absorptance[i];
            EXPECT_NEAR(sum, 1.0, 1e-9) << panes << " panes at " << deg;
            EXPECT_LE(a.transmittance, last + 1e-12);
            last = a.transmittance;
        }
    }
}

TEST(Glazing, InnerPanesAbsorbLessAndMoreOfItFlowsIn) {
    const GlazingAtAngle a = GlazingOptics(Clear(2), 0.0);
    EXPECT_GT(a.absorptance[0], a.absorptance[1]);
    const auto f = InwardFractions(Clear(2));
    EXPECT_GT(f[1], f[0]);
    EXPECT_GT(f[0], 0.0);
    EXPECT_LT(f[1], 1.0);
}

TEST(Glazing, OpticsTableFollowsTheAngle) {
    const WindowOptics o = MakeWindowOptics(Clear(2));
    EXPECT_NEAR(o.Transmittance(1.0), o.beamTransmittance[0], 1e-12);
    EXPECT_EQ(o.Transmittance(0.0), 0.0);
    // Diffuse transmittance is the hemispherical mean: below normal, above 60 degrees.
    EXPECT_LT(o.diffuseTransmittance, o.beamTransmittance[0]);
    EXPECT_GT(o.diffuseTransmittance, o.Transmittance(std::cos(60 * kPi / 180)) - 0.05);
    // The 0.907 shading coefficient figure of the classic double pane: SHGC
    // about 0.79 at normal incidence with these panes and films.
    EXPECT_NEAR(o.normalShgc, 0.789, 0.015);
    EXPECT_NEAR(UFactor(Clear(2)), 3.0, 0.02);
}

TEST(Glazing, MatchedGlazingHasTheRatedFigures) {
    struct Rated {
        double u, shgc;
    };
    for (const Rated r : {Rated{5.8, 0.82}, Rated{2.8, 0.70}, Rated{2.0, 0.40}, Rated{1.6, 0.55}}) {
        const GlazingLayers g = MatchGlazing(r.u, r.shgc);
        EXPECT_NEAR(UFactor(g), r.u, 0.01 * r.u) << r.u;
        EXPECT_NEAR(MakeWindowOptics(g).normalShgc, r.shgc, 0.005) << r.u;
    }
}

}  // namespace
}  // namespace solvane::engine
