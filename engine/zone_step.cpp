// The step of one zone: film coefficients once an hour, the reduction of
// every node chain to its inside face, the zone's air and star equations,
// and the back substitution with the energy balance of the step. The method
// is described in simulation.h.
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>

#include "engine/zone_state.h"

namespace solvane::engine::detail {
namespace {

constexpr double kSigma = 5.6697e-8;
constexpr double kKelvin = 273.15;
// Roughness multiplier of the DOE-2 convection model (Walton 1983): "rough",
// the class of stucco and brick; windows are rated with their own films.
constexpr double kRoughness = 1.67;

// Cube root for the convection correlations: a bit-level first guess (Kahan,
// within 3.2 %) and one Halley step, to about 4e-5 relative; a few times
// cheaper than std::cbrt.
double CubeRoot(double x) {
    if (x <= 0) return 0;
    std::uint64_t bits;
    std::memcpy(&bits, &x, sizeof bits);
    bits = bits / 3 + 0x2A9F7893782DA1CEull;
    double y;
    std::memcpy(&y, &bits, sizeof y);
    const double y3 = y * y * y;
    return y * (y3 + 2 * x) / (2 * y3 + x);
}

// TARP natural convection (Walton 1983) of a face `dt` warmer than the air.
double NaturalConvection(double dt, const NaturalFactors& f) {
    return std::max((dt > 0 ? f.warmer : f.cooler) * CubeRoot(std::abs(dt)), 0.1);
}

// DOE-2 exterior convection: natural part and the MoWiTT forced correlation
// for smooth glass, scaled by roughness (Yazdanian & Klems 1994).
// `windPower` is the wind speed at the surface raised to 0.89 (windward) or
// 0.617 (leeward).
double OutsideConvection(double dt, const NaturalFactors& f, double windPower, bool windward) {
    const double hn = NaturalConvection(dt, f);
    if (windPower <= 0) return hn;
    const double forced = (windward ? 3.26 : 3.55) * windPower;
    const double hGlass = std::sqrt(hn * hn + forced * forced);
    return hn + kRoughness * (hGlass - hn);
}

}  // namespace

// The factor of |dT|^(1/3) for a face warmer and for a face cooler than the
// air, fixed by the face's tilt (TARP, Walton 1983): heat flowing upward is
// enhanced, downward reduced, vertical faces take 1.31.
NaturalFactors NaturalFactorsFor(double cosUp) {
    NaturalFactors f;
    const double c = std::abs(cosUp);
    if (c < 0.05) return f;
    const double enhanced = 9.482 / (7.238 - c), reduced = 1.810 / (1.382 + c);
    f.warmer = cosUp > 0 ? enhanced : reduced;
    f.cooler = cosUp > 0 ? reduced : enhanced;
    return f;
}

void PackFaces(ZoneState& z, double dt) {
    std::size_t nodes = 0;
    for (const HeatSurface& h : z.surfaces) nodes += h.chain.capacity.size();
    z.t.assign(nodes, 20.0);
    z.cap.assign(nodes, 0.0);
    z.k.assign(nodes, 0.0);
    z.a.assign(nodes, 0.0);
    z.b.assign(nodes, 0.0);
    z.g.assign(nodes, 0.0);
    z.invD.assign(nodes, 0.0);
    z.faces.assign(z.surfaces.size(), FaceStep{});
    int begin = 0;
    for (std::size_t i = 0; i < z.surfaces.size(); ++i) {
        const HeatSurface& h = z.surfaces[i];
        FaceStep& f = z.faces[i];
        const int n = static_cast<int>(h.chain.capacity.size());
        f.begin = begin;
        f.n = n;
        f.component = h.component;
        f.area = h.area;
        f.invArea = 1.0 / h.area;
        f.hr = h.mrtConductance;
        double* cap = z.cap.data() + begin;
        double* k = z.k.data() + begin;
        double* b = z.b.data() + begin;
        double* g = z.g.data() + begin;
        double* invD = z.invD.data() + begin;
        for (int j = 0; j < n; ++j) cap[j] = h.chain.capacity[j] / dt;
        for (int j = 0; j + 1 < n; ++j) k[j] = h.chain.conductance[j];
        if (n == 2) {
            g[0] = 1.0;
            f.B1 = 1.0;
        } else if (n >= 3) {
            for (int j = 1; j + 1 < n; ++j) {
                const double d = cap[j] + k[j - 1] + k[j] - (j > 1 ? k[j - 1] * b[j - 1] : 0.0);
                invD[j] = 1.0 / d;
                b[j] = k[j] * invD[j];
                g[j] = (j == 1 ? k[0] : k[j - 1] * g[j - 1]) * invD[j];
            }
            // Node 1 in terms of the faces: fold b and g down from node n-2.
            double bb = b[n - 2], gg = g[n - 2];
            for (int j = n - 3; j >= 1; --j) {
                gg = g[j] + b[j] * gg;
                bb = b[j] * bb;
            }
            f.B1 = bb;
            f.G1 = gg;
        }
        begin += n;
    }
}

void RefreshFilms(ZoneState& z, const StepInputs& in, const double* outsideSolar,
                  const double* src) {
    z.m1 = z.m2 = z.a1 = z.a2 = 0;
    const double skyK = in.tSky + kKelvin, airK = in.tOut + kKelvin;
    for (std::size_t i = 0; i < z.faces.size(); ++i) {
        const HeatSurface& h = z.surfaces[i];
        FaceStep& f = z.faces[i];
        const int n = f.n;
        const double* t = z.t.data() + f.begin;
        // Outside boundary: ho (T_eq - T_0) = hoAir Tout + hoSky Tsky + hoFix - ho T_0.
        f.hoFix = 0;
        if (h.isWindow) {
            f.ho = f.hoAir = h.windowConductance;
            f.hoSky = 0;
        } else if (h.boundary == Boundary::Adiabatic) {
            f.ho = f.hoAir = f.hoSky = 0;
        } else if (h.boundary == Boundary::Ground) {
            f.ho = h.groundConductance;
            f.hoAir = f.hoSky = 0;
            f.hoFix = f.ho * (std::isnan(h.groundTemperature) ? in.tGround : h.groundTemperature);
        } else {
            const double ts = t[0];
            const bool sunlit = h.boundary == Boundary::Outdoors;
            const double power = !sunlit ? 0.0
                                         : (h.windward ? in.windPowerWindward * h.windFactorWindward
                                                       : in.windPowerLeeward * h.windFactorLeeward);
            const double hc = OutsideConvection(ts - in.tOut, h.outsideNatural, power, h.windward);
            const double tsK = ts + kKelvin;
            const double es = h.outsideEmissivity * kSigma;
            f.hoSky = es * h.skyShare * (tsK * tsK + skyK * skyK) * (tsK + skyK);
            const double hGnd = es * (1 - h.skyShare) * (tsK * tsK + airK * airK) * (tsK + airK);
            f.hoAir = hc + hGnd;
            f.ho = f.hoAir + f.hoSky;
            if (sunlit) f.hoFix = outsideSolar[i];
        }
        // The chain reduced to its inside face: diag T_s = rhs + room terms.
        const double* cap = z.cap.data() + f.begin;
        const double* k = z.k.data() + f.begin;
        if (n == 1) {
            f.diag = cap[0] + f.ho;
        } else {
            const double* b = z.b.data() + f.begin;
            const double* g = z.g.data() + f.begin;
            f.pInv = 1.0 / (cap[0] + f.ho + k[0] - k[0] * f.G1);
            f.q = k[0] * f.B1 * f.pInv;
            f.diag = cap[n - 1] + k[n - 2] * (1 - b[n - 2] - g[n - 2] * f.q);
        }
        // Inside face: diag T_s = rhs + hc (Ta - T_s) + hr (Tm - T_s) + source.
        f.hc = NaturalConvection(t[n - 1] - z.tAir, h.insideNatural);
        f.src = src[i];
        const double hc = f.hc, hr = f.hr, A = f.area;
        f.w = 1.0 / (f.diag + hc + hr);
        f.starWeight = A * hr * f.w;
        f.airWeight = A * hc * f.w;
        z.m1 += f.starWeight * hc;
        z.m2 += A * hr * (f.w * hr - 1.0);
        z.a1 -= A * hc * (f.w * hc - 1.0);
        z.a2 -= f.airWeight * hr;
    }
}

StepResult StepZone(ZoneState& z, const StepInputs& in, double dt) {
    double m0 = 0, a0 = 0;  // star: m1 Ta + m2 Tm = m0; air: a1 Ta + a2 Tm - a0 = Q
    double* T = z.t.data();
    const double* Cap = z.cap.data();
    const double* K = z.k.data();
    double* Av = z.a.data();
    const double* Bv = z.b.data();
    const double* Gv = z.g.data();
    const double* InvD = z.invD.data();
    for (FaceStep& f : z.faces) {
        const int n = f.n;
        const double* t = T + f.begin;
        const double* cap = Cap + f.begin;
        const double hoTe = f.hoAir * in.tOut + f.hoSky * in.tSky + f.hoFix;
        double rhs;
        if (n == 1) {
            rhs = cap[0] * t[0] + hoTe;
        } else {
            // Forward elimination of the interior (nodes 1..n-2) with the
            // last temperatures, folded to node 1 in terms of the faces; the
            // outside face comes out as T_0 = P + q T_s.
            const double* k = K + f.begin;
            double* a = Av + f.begin;
            const double* b = Bv + f.begin;
            const double* invD = InvD + f.begin;
            double A1 = 0;
            if (n >= 3) {
                a[1] = cap[1] * t[1] * invD[1];
                for (int j = 2; j + 1 < n; ++j)
                    a[j] = (cap[j] * t[j] + k[j - 1] * a[j - 1]) * invD[j];
                A1 = a[n - 2];
                for (int j = n - 3; j >= 1; --j) A1 = a[j] + b[j] * A1;
            }
            f.P = (cap[0] * t[0] + hoTe + k[0] * A1) * f.pInv;
            rhs = cap[n - 1] * t[n - 1] + k[n - 2] * (a[n - 2] + Gv[f.begin + n - 2] * f.P);
        }
        f.hoTe = hoTe;
        f.E = rhs + f.src * f.invArea;
        m0 -= f.starWeight * f.E;
        a0 += f.airWeight * f.E;
    }
    const double m1 = z.m1, m2 = z.m2, a2 = z.a2;
    double a1 = z.a1;
    const double cAir = z.airCapacity / dt;
    a1 += cAir + in.gInfiltration + in.gOutdoorAir;
    a0 += cAir * z.tAir + (in.gInfiltration + in.gOutdoorAir) * in.tOut + in.convective;
    // Q = alpha Ta - beta after eliminating the star node.
    const double alpha = a1 - a2 * m1 / m2;
    const double beta = a0 - a2 * m0 / m2;
    double ta = beta / alpha, q = 0;
    if (ta < in.tHeat) {
        q = std::min(alpha * in.tHeat - beta, in.heatCapacity);
        ta = (q + beta) / alpha;
    } else if (ta > in.tCool) {
        q = std::max(alpha * in.tCool - beta, -in.coolCapacity);
        ta = (q + beta) / alpha;
    }
    const double tm = (m0 - m1 * ta) / m2;
    StepResult r;
    r.q = q;
    r.tAir = ta;
    const double tAirOld = z.tAir;
    z.tAir = ta;
    z.tStar = tm;
    // Back substitution and the heat flows of the step; a flow counts in or
    // out by its sign.
    double stored = cAir * (ta - tAirOld);
    double flowIn = 0, flowOut = 0;
    for (const FaceStep& f : z.faces) {
        const int n = f.n;
        double* t = T + f.begin;
        const double* cap = Cap + f.begin;
        const double tsNew = f.w * (f.E + f.hc * ta + f.hr * tm);
        double dStored = cap[n - 1] * (tsNew - t[n - 1]);
        t[n - 1] = tsNew;
        if (n >= 2) {
            const double* a = Av + f.begin;
            const double* b = Bv + f.begin;
            const double* g = Gv + f.begin;
            const double t0 = f.P + f.q * tsNew;
            double next = tsNew;
            for (int j = n - 2; j >= 1; --j) {
                next = a[j] + b[j] * next + g[j] * t0;
                dStored += cap[j] * (next - t[j]);
                t[j] = next;
            }
            dStored += cap[0] * (t0 - t[0]);
            t[0] = t0;
        }
        stored += f.area * dStored;
        const double body = f.area * (f.hc * (tsNew - ta) + f.hr * (tsNew - tm)) - f.src;
        r.gains[f.component] += body;
        const double outside = f.area * (f.hoTe - f.ho * t[0]);
        flowIn += std::max(outside, 0.0) + std::max(f.src, 0.0);
        flowOut += std::max(-outside, 0.0) + std::max(-f.src, 0.0);
    }
    r.gains[kCompInfiltration] = in.gInfiltration * (in.tOut - ta);
    r.gains[kCompOutdoorAir] = in.gOutdoorAir * (in.tOut - ta);
    r.gains[kCompStorage] -= cAir * (ta - tAirOld);
    for (const double f :
         {r.gains[kCompInfiltration], r.gains[kCompOutdoorAir], in.convective, q}) {
        flowIn += std::max(f, 0.0);
        flowOut += std::max(-f, 0.0);
    }
    r.in = flowIn;
    r.out = flowOut;
    r.stored = stored;
    return r;
}

}  // namespace solvane::engine::detail
