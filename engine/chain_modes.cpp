#include "engine/chain_modes.h"

#include <cmath>
#include <stdexcept>

namespace solvane::engine {
namespace {

// Eigenvalues (returned) and eigenvectors (columns of `q`, row-major m x m)
// of the symmetric matrix `a` by cyclic Jacobi rotations (Golub & Van Loan
// 2013, algorithm 8.5.3), swept until the off-diagonal part vanishes.
std::vector<double> SymmetricEigen(std::vector<double> a, int m, std::vector<double>& q) {
    q.assign(static_cast<std::size_t>(m) * m, 0.0);
    for (int i = 0; i < m; ++i) q[i * m + i] = 1.0;
    auto at = [m](std::vector<double>& v, int r, int c) -> double& { return v[r * m + c]; };
    for (int sweep = 0; sweep < 100; ++sweep) {
        double off = 0, diag = 0;
        for (int r = 0; r < m; ++r)
            for (int c = 0; c < m; ++c) (r == c ? diag : off) += at(a, r, c) * at(a, r, c);
        if (off <= 1e-30 * diag) break;
        for (int p = 0; p < m; ++p) {
            for (int r = p + 1; r < m; ++r) {
                const double apr = at(a, p, r);
                if (apr == 0.0) continue;
                // Rotation in the (p, r) plane that zeroes a_pr.
                const double theta = (at(a, r, r) - at(a, p, p)) / (2 * apr);
                const double t =
                    (theta >= 0 ? 1.0 : -1.0) / (std::abs(theta) + std::sqrt(theta * theta + 1));
                const double c = 1 / std::sqrt(t * t + 1), s = t * c;
                for (int k = 0; k < m; ++k) {  // A J
                    const double kp = at(a, k, p), kr = at(a, k, r);
                    at(a, k, p) = c * kp - s * kr;
                    at(a, k, r) = s * kp + c * kr;
                }
                for (int k = 0; k < m; ++k) {  // J^T (A J)
                    const double pk = at(a, p, k), rk = at(a, r, k);
                    at(a, p, k) = c * pk - s * rk;
                    at(a, r, k) = s * pk + c * rk;
                }
                for (int k = 0; k < m; ++k) {  // Q J
                    const double kp = at(q, k, p), kr = at(q, k, r);
                    at(q, k, p) = c * kp - s * kr;
                    at(q, k, r) = s * kp + c * kr;
                }
            }
        }
    }
    std::vector<double> values(m);
    for (int i = 0; i < m; ++i) values[i] = at(a, i, i);
    return values;
}

}  // namespace

ChainModes MakeChainModes(const std::vector<double>& cap, const std::vector<double>& k) {
    ChainModes cm;
    const int n = static_cast<int>(cap.size());
    cm.nodes = n;
    if (n == 2) {
        cm.B1 = cm.GL = 1.0;
        return cm;
    }
    if (n < 3) return cm;
    const int m = n - 2;
    // H = S^-1 K S^-1 over the interior nodes j = 1..n-2 (index j-1).
    std::vector<double> sq(m), h(static_cast<std::size_t>(m) * m, 0.0);
    for (int i = 0; i < m; ++i) {
        if (!(cap[i + 1] > 0)) throw std::invalid_argument("interior node without capacity");
        sq[i] = std::sqrt(cap[i + 1]);
    }
    for (int i = 0; i < m; ++i) {
        h[i * m + i] = (k[i] + k[i + 1]) / cap[i + 1];
        if (i + 1 < m) h[i * m + i + 1] = h[(i + 1) * m + i] = -k[i + 1] / (sq[i] * sq[i + 1]);
    }
    std::vector<double> q;
    const std::vector<double> theta = SymmetricEigen(h, m, q);
    cm.toNodes.resize(static_cast<std::size_t>(m) * m);
    cm.toModes.resize(static_cast<std::size_t>(m) * m);
    for (int j = 0; j < m; ++j)
        for (int i = 0; i < m; ++i) {
            cm.toNodes[j * m + i] = q[j * m + i] / sq[j];  // V = S^-1 Q
            cm.toModes[i * m + j] = q[j * m + i] * sq[j];  // V^-1 = Q^T S
        }
    const double k0 = k[0], kl = k[n - 2];
    cm.lambda.resize(m);
    cm.lp.resize(m);
    cm.ls.resize(m);
    cm.alpha.resize(m);
    cm.beta.resize(m);
    cm.gamma.assign(m, 0.0);
    for (int i = 0; i < m; ++i) {
        const double lambda = 1.0 / (1.0 + theta[i]);
        const double v1 = cm.toNodes[0 * m + i], vm = cm.toNodes[(m - 1) * m + i];
        cm.lambda[i] = lambda;
        cm.lp[i] = lambda * k0 * v1;
        cm.ls[i] = lambda * kl * vm;
        cm.alpha[i] = lambda * v1;
        cm.beta[i] = lambda * vm;
        for (int j = 0; j < m; ++j) cm.gamma[i] += cap[j + 1] * cm.toNodes[j * m + i];
        cm.G1 += v1 * cm.lp[i];
        cm.B1 += v1 * cm.ls[i];
        cm.GL += vm * cm.lp[i];
        cm.BL += vm * cm.ls[i];
    }
    return cm;
}

}  // namespace solvane::engine
