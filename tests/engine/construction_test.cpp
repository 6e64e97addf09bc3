#include "engine/construction.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace solvane::engine {
namespace {

constexpr double kPi = 3.14159265358979323846;

Layer Mat(double d, double k, double rho, double cp) {
    Layer l;
    l.thickness = d;
    l.conductivity = k;
    l.density = rho;
    l.specificHeat = cp;
    return l;
}

Construction HeavyWall() {
    return {
        "heavy",
        {Mat(0.009, 0.14, 530, 900), Mat(0.0615, 0.040, 10, 1400), Mat(0.100, 0.510, 1400, 1000)}};
}

// Drives the finite-difference chain with a sinusoidal sol-air temperature
// outside and a fixed inside air temperature, and measures amplitude and
// phase of the heat flow into the room against the steady flow.
PeriodicResponse SimulatedResponse(const Construction& c, double rsi, double rse) {
    const double dt = 60;
    const NodeChain ch = Discretise(c, dt, 40);
    const std::size_t n = ch.capacity.size();
    std::vector<double> t(n, 0.0), a(n), b(n);
    const double period = 86400;
    const int steps = static_cast<int>(period / dt);
    double sinSum = 0, cosSum = 0;
    for (int day = 0; day < 12; ++day) {
        for (int k = 1; k <= steps; ++k) {
            const double time = k * dt;
            const double te = std::sin(2 * kPi * time / period);
            double diag = 0, rhs = 0;
            for (std::size_t j = 0; j < n; ++j) {
                const double cdt = ch.capacity[j] / dt;
                diag = cdt;
                rhs = cdt * t[j];
                if (j == 0) {
                    diag += 1 / rse;
                    rhs += te / rse;
                } else {
                    diag += ch.conductance[j - 1] * (1 - b[j - 1]);
                    rhs += ch.conductance[j - 1] * a[j - 1];
                }
                if (j + 1 < n) {
                    diag += ch.conductance[j];
                    a[j] = rhs / diag;
                    b[j] = ch.conductance[j] / diag;
                }
            }
            t[n - 1] = rhs / (diag + 1 / rsi);
            for (std::size_t j = n - 1; j-- > 0;) t[j] = a[j] + b[j] * t[j + 1];
            if (day == 11) {
                const double q = t[n - 1] / rsi;  // into the room (air at 0)
                sinSum += q * std::sin(2 * kPi * time / period);
                cosSum += q * std::cos(2 * kPi * time / period);
            }
        }
    }
    PeriodicResponse r;
    r.uFactor = 1 / (rsi + rse + c.Resistance());
    const double amp = 2.0 * std::hypot(sinSum, cosSum) / steps;
    r.decrement = amp / r.uFactor;
    double lag = -std::atan2(cosSum, sinSum);
    if (lag < 0) lag += 2 * kPi;
    r.timeLag = lag / (2 * kPi) * 24;
    return r;
}

TEST(PeriodicResponse, AMasslessWallHasNoLagAndNoDecrement) {
    Layer ins;
    ins.resistance = 2.0;
    const PeriodicResponse r = PeriodicResponseOf({"ins", {ins}});
    EXPECT_NEAR(r.uFactor, 1 / 2.17, 1e-12);
    EXPECT_NEAR(r.decrement, 1.0, 1e-9);
    EXPECT_NEAR(r.timeLag, 0.0, 1e-6);
}

TEST(PeriodicResponse, MatrixMethodAgreesWithTheTimeSteppedNetwork) {
    Layer concreteOnly = Mat(0.20, 1.13, 2000, 1000);
    for (const Construction& c : {HeavyWall(), Construction{"slab", {concreteOnly}}}) {
        const PeriodicResponse iso = PeriodicResponseOf(c);
        const PeriodicResponse sim = SimulatedResponse(c, 0.13, 0.04);
        EXPECT_NEAR(sim.decrement, iso.decrement, 0.02 * iso.decrement + 0.002) << c.name;
        EXPECT_NEAR(sim.timeLag, iso.timeLag, 0.15) << c.name;
    }
    // A 20 cm concrete wall: five to six hours of lag, decrement near a half.
    const PeriodicResponse r = PeriodicResponseOf({"slab", {concreteOnly}});
    EXPECT_GT(r.timeLag, 4.5);
    EXPECT_LT(r.timeLag, 7.5);
    EXPECT_GT(r.decrement, 0.3);
    EXPECT_LT(r.decrement, 0.6);
}

TEST(FitConstruction, ReproducesTheThreeFiguresOfARealWall) {
    for (const Construction& c :
         {HeavyWall(), Construction{"slab", {Mat(0.30, 1.13, 2000, 1000)}},
          Construction{"frame",
                       {Mat(0.012, 0.16, 950, 840), Mat(0.09, 0.04, 12, 840),
                        Mat(0.012, 0.16, 950, 840)}}}) {
        const PeriodicResponse target = PeriodicResponseOf(c);
        const Construction fit = FitConstruction(target.uFactor, target.timeLag, target.decrement);
        const PeriodicResponse got = PeriodicResponseOf(fit);
        EXPECT_NEAR(got.uFactor, target.uFactor, 1e-6) << c.name;
        EXPECT_NEAR(got.decrement, target.decrement, 0.01) << c.name;
        EXPECT_NEAR(got.timeLag, target.timeLag, 0.25) << c.name;
    }
}

TEST(Discretise, KeepsResistanceAndCapacity) {
    const Construction c = HeavyWall();
    for (double dt : {900.0, 3600.0}) {
        const NodeChain ch = Discretise(c, dt);
        double r = 0, cap = 0;
        for (double k : ch.conductance) r += 1 / k;
        for (double x : ch.capacity) cap += x;
        EXPECT_NEAR(r, c.Resistance(), 1e-9);
        double expected = 0;
        for (const Layer& l : c.layers) expected += l.Capacity();
        EXPECT_NEAR(cap, expected, 1e-6);
        EXPECT_EQ(ch.capacity.size(), ch.conductance.size() + 1);
    }
}

}  // namespace
}  // namespace solvane::engine
