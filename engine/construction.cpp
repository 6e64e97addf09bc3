#include "engine/construction.h"

#include <algorithm>
#include <cmath>
#include <complex>

namespace solvane::engine {
namespace {

using cd = std::complex<double>;
struct M2 {
    cd a, b, c, d;  // [[a b][c d]]
};
M2 Mul(const M2& x, const M2& y) {
    return {x.a * y.a + x.b * y.c, x.a * y.b + x.b * y.d, x.c * y.a + x.d * y.c,
            x.c * y.b + x.d * y.d};
}

// ISO 13786 layer matrix with the hyperbolic form of its equations.
M2 LayerMatrix(const Layer& l, double periodSeconds) {
    if (l.conductivity <= 0 || l.Capacity() <= 0) {
        return {1.0, -l.Resistance(), 0.0, 1.0};
    }
    const double diff = l.conductivity / (l.density * l.specificHeat);
    const double depth = std::sqrt(diff * periodSeconds / 3.14159265358979323846);
    const cd gamma = cd(1, 1) / depth;
    const cd gd = gamma * l.thickness;
    return {std::cosh(gd), -std::sinh(gd) / (l.conductivity * gamma),
            -l.conductivity * gamma * std::sinh(gd), std::cosh(gd)};
}

}  // namespace

double Construction::Resistance() const {
    double r = 0;
    for (const Layer& l : layers) r += l.Resistance();
    return r;
}

PeriodicResponse PeriodicResponseOf(const Construction& c, double rsi, double rse,
                                    double periodHours) {
    const double period = periodHours * 3600.0;
    // From the inside air to the outside air: film, layers inside first, film.
    M2 z{1.0, -rsi, 0.0, 1.0};
    for (auto it = c.layers.rbegin(); it != c.layers.rend(); ++it)
        z = Mul(LayerMatrix(*it, period), z);
    z = Mul(M2{1.0, -rse, 0.0, 1.0}, z);
    PeriodicResponse r;
    r.uFactor = 1.0 / (rsi + rse + c.Resistance());
    const cd y12 = -1.0 / z.b;
    r.decrement = std::abs(y12) / r.uFactor;
    // With the time factor exp(i w t) a lag is a negative phase of Y12.
    double phase = -std::arg(y12);
    if (phase < 0) phase += 2 * 3.14159265358979323846;
    r.timeLag = phase * periodHours / (2 * 3.14159265358979323846);
    r.insideAdmittance = std::abs(-z.a / z.b);
    return r;
}

namespace {

Construction TwoLayer(double rWall, double capacity, double massShare) {
    // Massive layer of a concrete-like diffusivity scaled to the resistance
    // and capacity wanted; insulation outside it.
    Construction c;
    c.name = "fitted";
    const double rMass = std::max(rWall * massShare, 1e-4);
    const double k = 1.0;
    const double thickness = rMass * k;
    Layer ins;
    ins.resistance = std::max(rWall - rMass, 0.0);
    Layer mass;
    mass.thickness = thickness;
    mass.conductivity = k;
    mass.specificHeat = 1000;
    mass.density = std::max(capacity, 1.0) / (thickness * 1000);
    if (ins.resistance > 0) c.layers.push_back(ins);
    c.layers.push_back(mass);
    return c;
}

}  // namespace

Construction FitConstruction(double uFactor, double timeLag, double decrement, double rsi,
                             double rse) {
    const double rWall = std::max(1.0 / std::max(uFactor, 1e-3) - rsi - rse, 0.01);
    decrement = std::clamp(decrement, 0.005, 1.0);
    // For each share, the capacity that gives the decrement (decrement falls
    // as capacity grows); then the share whose lag is nearest.
    auto capacityFor = [&](double share) {
        double lo = std::log(10.0), hi = std::log(2.0e6);
        for (int i = 0; i < 50; ++i) {
            const double mid = 0.5 * (lo + hi);
            const double f =
                PeriodicResponseOf(TwoLayer(rWall, std::exp(mid), share), rsi, rse).decrement;
            if (f > decrement)
                lo = mid;
            else
                hi = mid;
        }
        return std::exp(0.5 * (lo + hi));
    };
    auto lagError = [&](double share) {
        const double cap = capacityFor(share);
        const PeriodicResponse p = PeriodicResponseOf(TwoLayer(rWall, cap, share), rsi, rse);
        double d = p.timeLag - timeLag;
        return std::abs(d);
    };
    // The share runs over decades: a well-insulated construction keeps its
    // mass in a thin inner layer.
    double best = 1.0, bestErr = lagError(1.0);
    constexpr int kGrid = 48;
    for (int i = 0; i < kGrid; ++i) {
        const double s = std::pow(10.0, -4.0 + 4.0 * i / kGrid);
        const double e = lagError(s);
        if (e < bestErr) best = s, bestErr = e;
    }
    double lo = std::log10(best) - 4.0 / kGrid, hi = std::min(0.0, std::log10(best) + 4.0 / kGrid);
    for (int i = 0; i < 40; ++i) {  // golden-section refinement in log share
        const double a = lo + 0.382 * (hi - lo), b = lo + 0.618 * (hi - lo);
        if (lagError(std::pow(10.0, a)) < lagError(std::pow(10.0, b)))
            hi = b;
        else
            lo = a;
    }
    const double share = std::pow(10.0, 0.5 * (lo + hi));
    Construction c = TwoLayer(rWall, capacityFor(share), share);
    return c;
}

NodeChain Discretise(const Construction& c, double dt, int maxSlices) {
    // Slices per massive layer: thickness over half the penetration of one
    // step, sqrt(a dt), at least one.
    struct Slice {
        double r, cap;
    };
    std::vector<Slice> slices;
    for (const Layer& l : c.layers) {
        const double cap = l.Capacity();
        if (l.conductivity <= 0 || cap <= 0) {
            slices.push_back({l.Resistance(), 0.0});
            continue;
        }
        const double a = l.conductivity / (l.density * l.specificHeat);
        const double step = 0.5 * std::sqrt(a * dt);
        const int n = std::clamp(static_cast<int>(std::ceil(l.thickness / step)), 1, maxSlices);
        for (int i = 0; i < n; ++i) slices.push_back({l.Resistance() / n, cap / n});
    }
    // Nodes at slice boundaries; a massless slice joins two nodes by its
    // resistance, and a massive one gives half its capacity to each side.
    NodeChain chain;
    chain.capacity.push_back(0.0);
    for (const Slice& s : slices) {
        chain.capacity.back() += 0.5 * s.cap;
        chain.conductance.push_back(1.0 / std::max(s.r, 1e-6));
        chain.capacity.push_back(0.5 * s.cap);
    }
    // Join nodes with no capacity that stand between two resistances, so the
    // chain has no more nodes than the physics needs (faces are kept).
    for (std::size_t j = 1; j + 1 < chain.capacity.size();) {
        if (chain.capacity[j] == 0.0) {
            const double r = 1.0 / chain.conductance[j - 1] + 1.0 / chain.conductance[j];
            chain.conductance[j - 1] = 1.0 / r;
            chain.conductance.erase(chain.conductance.begin() + static_cast<long>(j));
            chain.capacity.erase(chain.capacity.begin() + static_cast<long>(j));
        } else {
            ++j;
        }
    }
    return chain;
}

}  // namespace solvane::engine
