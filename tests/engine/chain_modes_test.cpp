// The modal form of a chain's interior against a direct solve of the same
// implicit step.
#include "engine/chain_modes.h"

#include <gtest/gtest.h>

#include <cmath>
#include <stdexcept>
#include <vector>

namespace {

using solvane::engine::ChainModes;
using solvane::engine::MakeChainModes;

// Interior of the implicit step by Gaussian elimination of the tridiagonal
// system (C + K) y' = C y + k0 e_1 T0' + kl e_m Ts'.
std::vector<double> DirectStep(const std::vector<double>& cap, const std::vector<double>& k,
                               const std::vector<double>& y, double t0, double ts) {
    const int m = static_cast<int>(cap.size()) - 2;
    std::vector<double> diag(m), upper(m), rhs(m);
    for (int i = 0; i < m; ++i) {
        diag[i] = cap[i + 1] + k[i] + k[i + 1];
        upper[i] = -k[i + 1];
        rhs[i] = cap[i + 1] * y[i];
    }
    rhs[0] += k[0] * t0;
    rhs[m - 1] += k[m] * ts;
    for (int i = 1; i < m; ++i) {
        const double f = upper[i - 1] / diag[i - 1];  // lower = upper by symmetry
        diag[i] -= f * upper[i - 1];
        rhs[i] -= f * rhs[i - 1];
    }
    std::vector<double> out(m);
    out[m - 1] = rhs[m - 1] / diag[m - 1];
    for (int i = m - 2; i >= 0; --i) out[i] = (rhs[i] - upper[i] * out[i + 1]) / diag[i];
    return out;
}

void ExpectModalStepMatches(const std::vector<double>& cap, const std::vector<double>& k) {
    const ChainModes cm = MakeChainModes(cap, k);
    const int m = static_cast<int>(cap.size()) - 2;
    std::vector<double> y(m);
    for (int i = 0; i < m; ++i) y[i] = 5.0 + 3.0 * i - 0.7 * i * i;
    const double t0 = -12.0, ts = 23.5;
    const std::vector<double> expected = DirectStep(cap, k, y, t0, ts);

    std::vector<double> z(m, 0.0), next(m);
    for (int i = 0; i < m; ++i)
        for (int j = 0; j < m; ++j) z[i] += cm.toModes[i * m + j] * y[j];
    double node1 = cm.G1 * t0 + cm.B1 * ts, nodeL = cm.GL * t0 + cm.BL * ts, stored = 0;
    for (int i = 0; i < m; ++i) {
        node1 += cm.alpha[i] * z[i];
        nodeL += cm.beta[i] * z[i];
        next[i] = cm.lambda[i] * z[i] + cm.lp[i] * t0 + cm.ls[i] * ts;
        stored += cm.gamma[i] * (next[i] - z[i]);
    }
    double expectedStored = 0;
    for (int j = 0; j < m; ++j) {
        double node = 0;
        for (int i = 0; i < m; ++i) node += cm.toNodes[j * m + i] * next[i];
        EXPECT_NEAR(node, expected[j], 1e-10) << "node " << j + 1;
        expectedStored += cap[j + 1] * (expected[j] - y[j]);
    }
    EXPECT_NEAR(node1, expected[0], 1e-10);
    EXPECT_NEAR(nodeL, expected[m - 1], 1e-10);
    EXPECT_NEAR(stored, expectedStored, 1e-9 * std::abs(expectedStored) + 1e-9);
}

TEST(ChainModes, StepEqualsTheDirectImplicitSolve) {
    // One interior node; a concrete wall of six slices with an insulation
    // joint (uneven conductances); a chain of very unequal capacities.
    ExpectModalStepMatches({100, 5000, 100}, {2.0, 3.0});
    ExpectModalStepMatches({400, 800, 800, 800, 800, 800, 400}, {40, 40, 40, 0.3, 40, 40});
    ExpectModalStepMatches({1, 2e5, 3, 7e4, 10, 1}, {1e3, 0.05, 12, 400, 2});
}

TEST(ChainModes, TwoNodeChainHasNoModes) {
    const ChainModes cm = MakeChainModes({100, 200}, {5});
    EXPECT_TRUE(cm.lambda.empty());
    EXPECT_EQ(cm.B1, 1.0);  // node 1 is the inside face
    EXPECT_EQ(cm.GL, 1.0);  // node n-2 is the outside face
    EXPECT_EQ(cm.G1, 0.0);
    EXPECT_EQ(cm.BL, 0.0);
}

TEST(ChainModes, InteriorWithoutCapacityIsRejected) {
    EXPECT_THROW(MakeChainModes({1, 0, 1}, {1, 1}), std::invalid_argument);
}

}  // namespace
