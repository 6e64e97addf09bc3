#include "engine/glazing.h"

#include <algorithm>
#include <cmath>

namespace solvane::engine {
namespace {

constexpr double kPi = 3.14159265358979323846;

struct Pane {
    double t = 0, r = 0, a = 0;
};

// One pane for one polarisation: interface reflectance r, internal
// transmittance ta.
Pane SinglePane(double r, double ta) {
    Pane p;
    const double denom = 1.0 - r * r * ta * ta;
    p.t = ta * (1 - r) * (1 - r) / denom;
    p.r = r + (1 - r) * (1 - r) * r * ta * ta / denom;
    p.a = 1.0 - p.t - p.r;
    return p;
}

// Stack of identical panes for one polarisation: forward and backward fluxes
// in each gap, solved by sweeping until they settle (a geometric series in
// the pane reflectance, so it converges even at grazing angles).
GlazingAtAngle Stack(const Pane& p, int n) {
    GlazingAtAngle out;
    std::array<double, 4> fwd{}, bwd{};  // flux entering gap k from outside / inside
    for (int iter = 0; iter < 2000; ++iter) {
        double change = 0;
        for (int k = 0; k < n - 1; ++k) {
            const double f0 = fwd[k], b0 = bwd[k];
            const double inFromOut = (k == 0 ? 1.0 : fwd[k - 1]);
            fwd[k] = p.t * inFromOut + p.r * bwd[k];
            const double inFromIn = (k == n - 2 ? 0.0 : bwd[k + 1]);
            bwd[k] = p.t * inFromIn + p.r * fwd[k];
            change = std::max(change, std::abs(fwd[k] - f0) + std::abs(bwd[k] - b0));
        }
        if (change < 1e-16) break;
    }
    for (int i = 0; i < n; ++i) {
        const double fromOut = (i == 0 ? 1.0 : fwd[i - 1]);
        const double fromIn = (i == n - 1 ? 0.0 : bwd[i]);
        out.absorptance[i] = p.a * (fromOut + fromIn);
    }
    out.transmittance = n == 1 ? p.t : p.t * fwd[n - 2];
    out.reflectance = n == 1 ? p.r : p.r + p.t * bwd[0];
    return out;
}

}  // namespace

GlazingAtAngle GlazingOptics(const GlazingLayers& g, double incidence) {
    const int n = std::clamp(g.panes, 1, 3);
    const double th1 = std::min(incidence, kPi / 2 - 1e-6);
    const double th2 = std::asin(std::sin(th1) / g.refractiveIndex);
    const double ta = std::exp(-g.extinction * g.thickness / std::cos(th2));
    double rs, rp;
    if (th1 < 1e-6) {
        rs = rp = std::pow((g.refractiveIndex - 1) / (g.refractiveIndex + 1), 2);
    } else {
        rs = std::pow(std::sin(th2 - th1) / std::sin(th2 + th1), 2);
        rp = std::pow(std::tan(th2 - th1) / std::tan(th2 + th1), 2);
    }
    const GlazingAtAngle s = Stack(SinglePane(rs, ta), n);
    const GlazingAtAngle p = Stack(SinglePane(rp, ta), n);
    GlazingAtAngle out;
    out.transmittance = 0.5 * (s.transmittance + p.transmittance);
    out.reflectance = 0.5 * (s.reflectance + p.reflectance);
    for (int i = 0; i < 3; ++i) out.absorptance[i] = 0.5 * (s.absorptance[i] + p.absorptance[i]);
    return out;
}

double UFactor(const GlazingLayers& g) {
    const int n = std::clamp(g.panes, 1, 3);
    const double r =
        1 / g.outsideFilm + 1 / g.insideFilm + n / g.paneConductance + (n - 1) / g.gapConductance;
    return 1 / r;
}

std::array<double, 3> InwardFractions(const GlazingLayers& g) {
    const int n = std::clamp(g.panes, 1, 3);
    const double total = 1 / UFactor(g);
    std::array<double, 3> f{};
    double rOut = 1 / g.outsideFilm;
    for (int i = 0; i < n; ++i) {
        const double toPane = rOut + 0.5 / g.paneConductance;
        f[i] = toPane / total;
        rOut += 1 / g.paneConductance + 1 / g.gapConductance;
    }
    return f;
}

double WindowOptics::Transmittance(double c) const {
    const double deg = std::acos(std::clamp(c, 0.0, 1.0)) * 180.0 / kPi;
    const double x = deg / 5.0;
    const int i = std::min(static_cast<int>(x), kSteps - 2);
    const double w = x - i;
    return beamTransmittance[i] * (1 - w) + beamTransmittance[i + 1] * w;
}

double WindowOptics::AbsorbedInward(double c) const {
    const double deg = std::acos(std::clamp(c, 0.0, 1.0)) * 180.0 / kPi;
    const double x = deg / 5.0;
    const int i = std::min(static_cast<int>(x), kSteps - 2);
    const double w = x - i;
    return beamAbsorbedInward[i] * (1 - w) + beamAbsorbedInward[i + 1] * w;
}

WindowOptics MakeWindowOptics(const GlazingLayers& g) {
    WindowOptics o;
    const auto inward = InwardFractions(g);
    const int n = std::clamp(g.panes, 1, 3);
    for (int k = 0; k < WindowOptics::kSteps; ++k) {
        const GlazingAtAngle a = GlazingOptics(g, k * 5.0 * kPi / 180.0);
        o.beamTransmittance[k] = a.transmittance;
        double in = 0;
        for (int i = 0; i < n; ++i) in += a.absorptance[i] * inward[i];
        o.beamAbsorbedInward[k] = in;
    }
    o.beamTransmittance[WindowOptics::kSteps - 1] = 0;
    o.beamAbsorbedInward[WindowOptics::kSteps - 1] = 0;
    // Hemispherical values: 2 * integral of X(theta) cos sin dtheta.
    constexpr int kN = 90;
    double t = 0, ain = 0, aback = 0, refl = 0;
    for (int k = 0; k < kN; ++k) {
        const double th = (k + 0.5) * (kPi / 2) / kN;
        const double w = 2 * std::cos(th) * std::sin(th) * (kPi / 2) / kN;
        const GlazingAtAngle a = GlazingOptics(g, th);
        t += w * a.transmittance;
        refl += w * a.reflectance;
        for (int i = 0; i < n; ++i) {
            ain += w * a.absorptance[i] * inward[i];
            // From the room side the panes are met in reverse order.
            aback += w * a.absorptance[i] * inward[n - 1 - i];
        }
    }
    o.diffuseTransmittance = t;
    o.diffuseReflectance = refl;
    o.diffuseAbsorbedInward = ain;
    o.diffuseBackAbsorbedInward = aback;
    o.normalShgc = o.beamTransmittance[0] + o.beamAbsorbedInward[0];
    return o;
}

GlazingLayers MatchGlazing(double uFactor, double shgc) {
    GlazingLayers g;
    g.thickness = 0.003;
    g.panes = uFactor > 4.0 ? 1 : (uFactor > 2.0 ? 2 : 3);
    if (g.panes > 1) {
        const double rest = 1 / std::max(uFactor, 0.3) - 1 / g.outsideFilm - 1 / g.insideFilm -
                            g.panes / g.paneConductance;
        g.gapConductance = (g.panes - 1) / std::max(rest, 0.01);
    } else {
        // One pane: its films make the U-factor.
        const double rFilms = 1 / std::max(uFactor, 0.3) - 1 / g.paneConductance;
        const double scale = rFilms / (1 / g.outsideFilm + 1 / g.insideFilm);
        g.outsideFilm /= scale;
        g.insideFilm /= scale;
    }
    double lo = 0, hi = 2000;  // extinction, 1/m
    for (int i = 0; i < 60; ++i) {
        g.extinction = 0.5 * (lo + hi);
        const GlazingAtAngle a = GlazingOptics(g, 0);
        const auto inward = InwardFractions(g);
        double s = a.transmittance;
        for (int p = 0; p < g.panes; ++p) s += a.absorptance[p] * inward[p];
        if (s > shgc)
            lo = g.extinction;
        else
            hi = g.extinction;
    }
    return g;
}

}  // namespace solvane::engine
