// The step of one zone: film coefficients once an hour, the reduction of
// every node chain to its inside face, the zone's air and star equations,
// and the back substitution with the energy balance of the step. The method
// is described in simulation.h.
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>

#include "engine/chain_modes.h"
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

// The chain reduced to its inside face for the outside film ho:
// diag T_s = rhs + room terms, with the outside face T_0 = P + q T_s.
void ReduceChain(FaceStep& f) {
    if (f.n == 1) {
        f.diag = f.cap0 + f.ho;
    } else {
        f.pInv = 1.0 / (f.cap0 + f.ho + f.k0 - f.k0 * f.G1);
        f.q = f.k0 * f.B1 * f.pInv;
        f.diag = f.capL + f.kl * (1 - f.BL - f.GL * f.q);
    }
}

namespace {

// The state's part of the next step's outside face and right-hand side
// (FaceStep::Ps, Es) from the face temperatures and modes now.
void SetNext(FaceStep& f) {
    if (f.n == 1) {
        f.Es = f.cap0 * f.ts + f.hoFix + f.srcPerArea;
    } else {
        f.Ps = (f.cap0 * f.t0 + f.hoFix + f.k0 * f.A1) * f.pInv;
        f.Es = f.capL * f.ts + f.kl * (f.AL + f.GL * f.Ps) + f.srcPerArea;
    }
}

}  // namespace

void PackFaces(ZoneState& z, double dt) {
    std::size_t modes = 0;
    for (const HeatSurface& h : z.surfaces)
        modes += std::max<std::size_t>(h.chain.capacity.size(), 2) - 2;
    z.modes.assign(modes, ModeStep{});
    z.faces.assign(z.surfaces.size(), FaceStep{});
    z.outsideFilms.clear();
    z.groundFaces.clear();
    int begin = 0;
    for (std::size_t i = 0; i < z.surfaces.size(); ++i) {
        const HeatSurface& h = z.surfaces[i];
        FaceStep& f = z.faces[i];
        std::vector<double> cap = h.chain.capacity;
        for (double& c : cap) c /= dt;
        const int n = static_cast<int>(cap.size());
        const ChainModes cm = MakeChainModes(cap, h.chain.conductance);
        f.begin = begin;
        f.n = n;
        f.m = std::max(n - 2, 0);
        f.component = h.component;
        f.area = h.area;
        f.invArea = 1.0 / h.area;
        f.hr = h.mrtConductance;
        f.cap0 = cap[0];
        f.capL = cap[n - 1];
        if (n >= 2) {
            f.k0 = h.chain.conductance[0];
            f.kl = h.chain.conductance[n - 2];
        }
        f.G1 = cm.G1, f.B1 = cm.B1, f.GL = cm.GL, f.BL = cm.BL;
        for (int j = 0; j < f.m; ++j) {
            const std::size_t at = static_cast<std::size_t>(begin + j);
            ModeStep& mode = z.modes[at];
            mode.lambda = cm.lambda[j];
            mode.lp = cm.lp[j];
            mode.ls = cm.ls[j];
            mode.alpha = cm.alpha[j];
            mode.beta = cm.beta[j];
            mode.gamma = cm.gamma[j];
            double amplitude = 0;  // every node at 20 C
            for (int c = 0; c < f.m; ++c) amplitude += cm.toModes[j * f.m + c] * 20.0;
            mode.z = amplitude;
            f.A1 += cm.alpha[j] * amplitude;
            f.AL += cm.beta[j] * amplitude;
        }
        f.insideNatural = h.insideNatural;
        // Fixed outside films; the films under the weather are listed.
        if (h.isWindow) {
            f.ho = f.hoAir = h.windowConductance;
        } else if (h.boundary == Boundary::Ground) {
            f.ho = h.groundConductance;
            z.groundFaces.push_back({static_cast<int>(i), h.groundTemperature});
        } else if (h.boundary == Boundary::Outdoors || h.boundary == Boundary::OutdoorAirNoSun) {
            OutsideFilm o;
            o.face = static_cast<int>(i);
            o.sunlit = h.boundary == Boundary::Outdoors;
            o.roofLike = std::abs(h.cosTilt) > 0.99;
            o.natural = h.outsideNatural;
            o.windwardFactor = o.sunlit ? h.windFactorWindward : 0.0;
            o.leewardFactor = o.sunlit ? h.windFactorLeeward : 0.0;
            o.cosAzimuth = h.cosAzimuth;
            o.sinAzimuth = h.sinAzimuth;
            o.skyRadiation = h.outsideEmissivity * kSigma * h.skyShare;
            o.airRadiation = h.outsideEmissivity * kSigma * (1 - h.skyShare);
            z.outsideFilms.push_back(o);
        }
        ReduceChain(f);
        begin += f.m;
    }
}

// Outside films in one pass over the faces under the weather, ground
// temperatures in one over the ground faces, then the inside films of all
// faces and the zone's sums; none reads the described faces.
void RefreshFilms(ZoneState& z, const StepInputs& in, const double* outsideSolar,
                  const double* src) {
    const double skyK = in.tSky + kKelvin, airK = in.tOut + kKelvin;
    for (const GroundFace& g : z.groundFaces) {
        FaceStep& f = z.faces[g.face];
        f.hoFix = f.ho * (std::isnan(g.temperature) ? in.tGround : g.temperature);
    }
    // Outside boundary: ho (T_eq - T_0) = hoAir Tout + hoSky Tsky + hoFix - ho T_0.
    for (const OutsideFilm& o : z.outsideFilms) {
        FaceStep& f = z.faces[o.face];
        const double ts = f.t0;
        // Windward when the wind blows against the face (within 90 degrees
        // of its normal). A face without sun has no wind factors.
        const bool windward =
            o.roofLike || in.windCos * o.cosAzimuth + in.windSin * o.sinAzimuth >= -1e-12;
        const double power = windward ? in.windPowerWindward * o.windwardFactor
                                      : in.windPowerLeeward * o.leewardFactor;
        const double hc = OutsideConvection(ts - in.tOut, o.natural, power, windward);
        const double tsK = ts + kKelvin;
        f.hoSky = o.skyRadiation * (tsK * tsK + skyK * skyK) * (tsK + skyK);
        const double hGnd = o.airRadiation * (tsK * tsK + airK * airK) * (tsK + airK);
        f.hoAir = hc + hGnd;
        f.ho = f.hoAir + f.hoSky;
        // The sky temperature holds through the hour: its term joins the
        // fixed part.
        f.hoFix = (o.sunlit ? outsideSolar[o.face] : 0.0) + f.hoSky * in.tSky;
        ReduceChain(f);
    }
    // Inside face: diag T_s = rhs + hc (Ta - T_s) + hr (Tm - T_s) + source.
    double m1 = 0, m2 = 0, a1 = 0, a2 = 0, srcIn = 0, srcOut = 0;
    double m0State = 0, a0State = 0, m0Out = 0, a0Out = 0;
    std::array<double, kComponentCount> componentHc{}, componentHr{}, componentSrc{};
    const double tAir = z.tAir;
    const std::size_t count = z.faces.size();
    FaceStep* faces = z.faces.data();
    for (std::size_t i = 0; i < count; ++i) {
        FaceStep& f = faces[i];
        const double hc = NaturalConvection(f.ts - tAir, f.insideNatural);
        const double hr = f.hr, A = f.area;
        f.hc = hc;
        f.src = src[i];
        f.srcPerArea = src[i] * f.invArea;
        srcIn += std::max(src[i], 0.0);
        srcOut += std::max(-src[i], 0.0);
        const double w = 1.0 / (f.diag + hc + hr);
        f.w = w;
        f.starWeight = A * hr * w;
        f.airWeight = A * hc * w;
        m1 += f.starWeight * hc;
        m2 += A * hr * (w * hr - 1.0);
        a1 -= A * hc * (w * hc - 1.0);
        a2 -= f.airWeight * hr;
        // The outdoor temperature's part of the steps of this hour.
        f.pT = f.n == 1 ? 0.0 : f.hoAir * f.pInv;
        f.eT = f.n == 1 ? f.hoAir : f.kl * f.GL * f.pT;
        SetNext(f);
        m0State -= f.starWeight * f.Es;
        a0State += f.airWeight * f.Es;
        m0Out -= f.starWeight * f.eT;
        a0Out += f.airWeight * f.eT;
        f.gainFactor = A * (hc + hr);
        f.outAir = A * f.hoAir;
        f.outFix = A * f.hoFix;
        f.outT0 = A * f.ho;
        componentHc[f.component] += A * hc;
        componentHr[f.component] += A * hr;
        componentSrc[f.component] += f.src;
    }
    z.m1 = m1, z.m2 = m2, z.a1 = a1, z.a2 = a2;
    z.m0State = m0State, z.a0State = a0State, z.m0Out = m0Out, z.a0Out = a0Out;
    z.componentHc = componentHc, z.componentHr = componentHr, z.componentSrc = componentSrc;
    z.srcIn = srcIn, z.srcOut = srcOut;
}

StepResult StepZone(ZoneState& z, const StepInputs& in, double dt) {
    // Star: m1 Ta + m2 Tm = m0; air: a1 Ta + a2 Tm - a0 = Q. The faces' part
    // of m0 and a0 was summed when the last step ended.
    const double m0 = z.m0State + z.m0Out * in.tOut;
    double a0 = z.a0State + z.a0Out * in.tOut;
    const double m1 = z.m1, m2 = z.m2, a2 = z.a2;
    double a1 = z.a1;
    const double cAir = z.airCapacity / dt;
    a1 += cAir + in.gInfiltration + in.gOutdoorAir;
    a0 += cAir * z.tAir + (in.gInfiltration + in.gOutdoorAir) * in.tOut + in.convective;
    // Q = alpha Ta - beta after eliminating the star node.
    const double alpha = a1 - a2 * m1 / m2;
    const double beta = a0 - a2 * m0 / m2;
    double ta = beta / alpha, q = 0, gVent = 0;
    // Natural ventilation: windows open when the outdoor air can cool the
    // floating zone towards its venting temperature; the flow is what holds
    // that temperature, at most the zone's rate. When the full rate cannot
    // keep the zone below its cooling set-point, the windows stay shut and
    // the system cools.
    if (in.gNaturalVentMax > 0 && ta > in.tVent && in.tOut < in.tVent) {
        const double g =
            std::min(in.gNaturalVentMax, (beta - alpha * in.tVent) / (in.tVent - in.tOut));
        const double t = (beta + g * in.tOut) / (alpha + g);
        if (t <= in.tCool) gVent = g, ta = t;
    }
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
    // Back substitution, the heat flows of the step (a flow counts in or out
    // by its sign), and the state's part of the next step, in one pass.
    const double tOut = in.tOut;
    double flowIn = z.srcIn, flowOut = z.srcOut;
    double m0State = 0, a0State = 0;
    ModeStep* modes = z.modes.data();
    std::array<double, kComponentCount> gain{};
    for (FaceStep& f : z.faces) {
        const double tsNew = f.w * (f.Es + f.eT * tOut + f.hc * ta + f.hr * tm);
        if (f.n == 1) {
            f.t0 = tsNew;
        } else {
            const double t0 = f.Ps + f.pT * tOut + f.q * tsNew;
            double A1 = 0, AL = 0;
            for (ModeStep* mode = modes + f.begin; mode != modes + f.begin + f.m; ++mode) {
                const double next = mode->lambda * mode->z + mode->lp * t0 + mode->ls * tsNew;
                A1 += mode->alpha * next;
                AL += mode->beta * next;
                mode->z = next;
            }
            f.A1 = A1;
            f.AL = AL;
            f.t0 = t0;
        }
        f.ts = tsNew;
        SetNext(f);
        m0State -= f.starWeight * f.Es;
        a0State += f.airWeight * f.Es;
        gain[f.component] += f.gainFactor * tsNew;
        const double outside = f.outAir * tOut + f.outFix - f.outT0 * f.t0;
        flowIn += std::max(outside, 0.0);
        flowOut += std::max(-outside, 0.0);
    }
    z.m0State = m0State, z.a0State = a0State;
    // Each component's gain to the room: A (hc (Ts - Ta) + hr (Ts - Tm)) - src.
    for (int c = 0; c < kComponentCount; ++c)
        r.gains[c] = gain[c] - ta * z.componentHc[c] - tm * z.componentHr[c] - z.componentSrc[c];
    r.gains[kCompInfiltration] = in.gInfiltration * (in.tOut - ta);
    r.gains[kCompOutdoorAir] = in.gOutdoorAir * (in.tOut - ta);
    r.gains[kCompNaturalVent] = gVent * (in.tOut - ta);
    r.gains[kCompStorage] -= cAir * (ta - tAirOld);
    for (const double f : {r.gains[kCompInfiltration], r.gains[kCompOutdoorAir],
                           r.gains[kCompNaturalVent], in.convective, q}) {
        flowIn += std::max(f, 0.0);
        flowOut += std::max(-f, 0.0);
    }
    r.in = flowIn;
    r.out = flowOut;
    return r;
}

double StoredHeat(const ZoneState& z, double dt) {
    double held = z.airCapacity / dt * z.tAir;
    const ModeStep* modes = z.modes.data();
    for (const FaceStep& f : z.faces) {
        double face = f.capL * f.ts;
        if (f.n > 1) face += f.cap0 * f.t0;
        for (int i = f.begin; i < f.begin + f.m; ++i) face += modes[i].gamma * modes[i].z;
        held += f.area * face;
    }
    return held;
}

}  // namespace solvane::engine::detail
