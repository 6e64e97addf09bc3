#include "engine/simulation.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <map>
#include <stdexcept>

#include "engine/sun.h"

namespace solvane::engine {
namespace {

constexpr double kSigma = 5.6697e-8;
constexpr double kAirCp = 1006.0;  // J/kgK, dry air
constexpr double kKelvin = 273.15;
// Linearised interior long-wave coefficient at 20 C (4 sigma T^3).
constexpr double kInsideRadiation = 4 * kSigma * 293.15 * 293.15 * 293.15;
// Roughness multiplier of the DOE-2 convection model (Walton 1983): "rough",
// the class of stucco and brick; windows are rated with their own films.
constexpr double kRoughness = 1.67;

// Natural convection factors of |dT|^(1/3) for a face warmer and for a face
// cooler than the air (see NaturalFactorsFor).
struct NaturalFactors {
    double warmer = 1.31, cooler = 1.31;
};

// One heat-exchanging face of a zone: the opaque part of a surface, or one
// window of it.
struct HeatSurface {
    int sourceSurface = 0;
    int construction = 0;
    Component component = kCompWalls;
    bool isWindow = false;
    bool internalMass = false;
    Boundary boundary = Boundary::Outdoors;
    double area = 0;
    double cosTilt = 0;    // of the outward normal
    int orientation = -1;  // index of its (azimuth, tilt) pair, -1 when sunless
    double outsideAbsorptance = 0, outsideEmissivity = 0.9;
    double groundReflectance = 0.2;
    double groundTemperature = std::numeric_limits<double>::quiet_NaN();
    double groundConductance = 0;
    double windowConductance = 0;  // window: outdoor air to inside face, W/m2K
    double azimuth = 0;
    double cosAzimuth = 1, sinAzimuth = 0;
    NaturalFactors outsideNatural, insideNatural;  // the inside face looks the other way
    double windFactor = 1;  // wind at the surface over the wind of the weather
    double windFactorWindward = 1, windFactorLeeward = 1;  // its powers 0.89 and 0.617
    double skyShare = 0;   // share of the outside long-wave exchange with the sky
    bool windward = true;  // set each hour from the wind direction
    NodeChain chain;
    std::vector<double> t;           // node temperatures
    std::vector<double> capacityDt;  // node capacities over the step, W/m2K
    // Interior nodes 1..n-2 have constant coefficients, so their elimination
    // is done once: T_j = a_j + b_j T_j+1 + g_j T_0, with a_j from the last
    // temperatures each step (`a`), and b_j, g_j and 1/d_j fixed; B1 and G1
    // give node 1 in terms of the two faces.
    std::vector<double> a, b, g, invD;
    double B1 = 0, G1 = 0;
    double mrtConductance = 0;  // W/m2K to the star node
    // Coefficients held through the hour (see StepZone): outside film and
    // its parts on the outdoor air and sky temperatures, the chain's
    // reduction, the inside face's factor W.
    double ho = 0, hoAir = 0, hoSky = 0, pInv = 0, q = 0, diag = 0, w = 0;
    double invArea = 0;
    double insideConvection = 2.0;
    double beamShare = 0, diffuseShare = 0, radiantShare = 0;  // of zone totals absorbed here
    // Window only.
    int windowType = -1;
    const Window* window = nullptr;
};

struct ZoneState {
    std::vector<HeatSurface> surfaces;
    double airCapacity = 0;  // J/K
    double tAir = 20, tAirOld = 20, tStar = 20;
    double m1 = 0, m2 = 0, a1 = 0, a2 = 0;  // zone sums held through the hour
};

// TARP natural convection (Walton 1983), for a face whose normal points
// along `cosUp` (1 up, -1 down) and is `dt` warmer than the air.
// Cube root for the convection correlations: a bit-level first guess (Kahan,
// within 3.2 %) and one Halley step, to about 4e-5 relative; a few times
// cheaper than std::cbrt in the inner loop.
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

// The factor of |dT|^(1/3) for a face warmer and for a face cooler than the
// air, fixed by the face's tilt: heat flowing upward is enhanced, downward
// reduced, vertical faces take 1.31.
NaturalFactors NaturalFactorsFor(double cosUp) {
    NaturalFactors f;
    const double c = std::abs(cosUp);
    if (c < 0.05) return f;
    const double enhanced = 9.482 / (7.238 - c), reduced = 1.810 / (1.382 + c);
    f.warmer = cosUp > 0 ? enhanced : reduced;
    f.cooler = cosUp > 0 ? reduced : enhanced;
    return f;
}

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

// Carroll's MRT factors: F_i = 1 / (1 - A_i F_i / sum A_j F_j + (1-e_i)/e_i),
// iterated to a fixed point.
void SetMrtConductances(ZoneState& z, const Building& b) {
    const std::size_t n = z.surfaces.size();
    std::vector<double> f(n, 1.0), e(n, 0.9);
    for (std::size_t i = 0; i < n; ++i) {
        const HeatSurface& s = z.surfaces[i];
        if (s.isWindow)
            e[i] = 0.84;
        else
            e[i] = b.constructions[s.construction].insideEmissivity;
    }
    for (int iter = 0; iter < 50; ++iter) {
        double sum = 0;
        for (std::size_t i = 0; i < n; ++i) sum += z.surfaces[i].area * f[i];
        for (std::size_t i = 0; i < n; ++i) {
            const double share = z.surfaces[i].area * f[i] / sum;
            f[i] = 1.0 / std::max(1.0 - share + (1 - e[i]) / e[i], 0.05);
        }
    }
    for (std::size_t i = 0; i < n; ++i) z.surfaces[i].mrtConductance = f[i] * kInsideRadiation;
}

struct Orientation {
    double azimuth, tilt;
    SurfaceNormal normal;
};

int FindOrientation(std::vector<Orientation>& list, double azimuth, double tilt) {
    for (std::size_t i = 0; i < list.size(); ++i)
        if (std::abs(list[i].azimuth - azimuth) < 1e-6 && std::abs(list[i].tilt - tilt) < 1e-6)
            return static_cast<int>(i);
    list.push_back({azimuth, tilt, MakeNormal(azimuth, tilt)});
    return static_cast<int>(list.size()) - 1;
}

Component ComponentOf(SurfaceClass k) {
    switch (k) {
        case SurfaceClass::Roof:
            return kCompRoof;
        case SurfaceClass::Floor:
            return kCompFloors;
        case SurfaceClass::InternalMass:
            return kCompStorage;
        default:
            return kCompWalls;
    }
}

ZoneState BuildZone(const Building& b, const Zone& zone, const std::vector<WindowOptics>& optics,
                    std::vector<Orientation>& orients, double dt, double airDensity) {
    ZoneState z;
    for (std::size_t si = 0; si < zone.surfaces.size(); ++si) {
        const Surface& s = zone.surfaces[si];
        if (s.construction < 0 || s.construction >= static_cast<int>(b.constructions.size()))
            throw std::runtime_error("zone " + zone.name + ": surface " + s.name +
                                     " has no construction");
        const Construction& c = b.constructions[s.construction];
        double windowArea = 0;
        for (const Window& w : s.windows) windowArea += w.area;
        const int orient =
            (s.boundary == Boundary::Outdoors) ? FindOrientation(orients, s.azimuth, s.tilt) : -1;
        HeatSurface h;
        h.sourceSurface = static_cast<int>(si);
        h.construction = s.construction;
        h.component = ComponentOf(s.kind);
        h.internalMass = s.kind == SurfaceClass::InternalMass;
        h.boundary = s.boundary;
        h.area = std::max(s.area - windowArea, 0.0);
        h.cosTilt = std::cos(s.tilt * kDeg);
        h.azimuth = s.azimuth;
        h.outsideNatural = NaturalFactorsFor(h.cosTilt);
        h.insideNatural = NaturalFactorsFor(-h.cosTilt);
        h.cosAzimuth = std::cos(s.azimuth * kDeg);
        h.sinAzimuth = std::sin(s.azimuth * kDeg);
        h.orientation = orient;
        h.outsideAbsorptance = c.outsideAbsorptance;
        h.outsideEmissivity = c.outsideEmissivity;
        h.groundReflectance = s.groundReflectance;
        h.windFactor =
            std::pow(270.0 / 10.0, 0.14) *
            std::pow(std::max(s.height, 0.5) / b.terrain.layerThickness, b.terrain.exponent);
        h.windFactorWindward = std::pow(h.windFactor, 0.89);
        h.windFactorLeeward = std::pow(h.windFactor, 0.617);
        {
            // View to the sky, of which the part near the horizon radiates
            // at air temperature: sky share F * sqrt(F) (Walton, TARP 1983).
            const double fView =
                s.boundary == Boundary::Outdoors ? 0.5 * (1 + std::cos(s.tilt * kDeg)) : 0.0;
            h.skyShare = fView * std::sqrt(fView);
        }
        h.groundTemperature = s.groundTemperature;
        h.groundConductance = s.groundResistance > 0 ? 1.0 / s.groundResistance : 1000.0;
        h.chain = Discretise(c, dt);
        if (h.area > 0) z.surfaces.push_back(h);
        for (const Window& w : s.windows) {
            if (w.area <= 0) continue;
            if (w.type < 0 || w.type >= static_cast<int>(b.windowTypes.size()))
                throw std::runtime_error("zone " + zone.name + ": window without a type");
            const GlazingLayers& g = b.windowTypes[w.type].glazing;
            HeatSurface wh = h;
            wh.isWindow = true;
            wh.component = kCompWindowConduction;
            wh.area = w.area;
            wh.windowType = w.type;
            wh.window = &w;
            // Outdoor air to the inside face: the rated U without the inside film.
            wh.windowConductance = 1.0 / (1.0 / UFactor(g) - 1.0 / g.insideFilm);
            wh.chain.capacity = {0.0};
            wh.chain.conductance.clear();
            z.surfaces.push_back(wh);
        }
    }
    // Faces that are alike in every way but area (same plane, make,
    // boundary and shading) keep one node chain: their temperatures are the
    // same at every step, and being coplanar they exchange no radiation with
    // one another, so one face of the summed area is exact.
    std::vector<HeatSurface> merged;
    for (HeatSurface& h : z.surfaces) {
        auto same = [&](const HeatSurface& m) {
            if (m.isWindow != h.isWindow || m.internalMass != h.internalMass ||
                m.component != h.component || m.boundary != h.boundary ||
                m.construction != h.construction || m.windowType != h.windowType ||
                m.orientation != h.orientation || m.cosTilt != h.cosTilt ||
                m.azimuth != h.azimuth || m.windFactor != h.windFactor ||
                m.groundReflectance != h.groundReflectance ||
                m.groundConductance != h.groundConductance ||
                m.windowConductance != h.windowConductance)
                return false;
            const bool nanA = std::isnan(m.groundTemperature),
                       nanB = std::isnan(h.groundTemperature);
            if (nanA != nanB || (!nanA && m.groundTemperature != h.groundTemperature)) return false;
            if (h.isWindow) {
                const WindowShading &a = m.window->shading, &c = h.window->shading;
                if (a.overhangProjection != c.overhangProjection ||
                    a.overhangTransmittance != c.overhangTransmittance ||
                    a.leftFinProjection != c.leftFinProjection ||
                    a.rightFinProjection != c.rightFinProjection ||
                    a.obstruction != c.obstruction || a.blind != c.blind)
                    return false;
            }
            return true;
        };
        auto it = std::find_if(merged.begin(), merged.end(), same);
        if (it == merged.end())
            merged.push_back(h);
        else
            it->area += h.area;
    }
    z.surfaces = std::move(merged);
    for (HeatSurface& h : z.surfaces) {
        h.t.assign(h.chain.capacity.size(), 20.0);
        h.invArea = 1.0 / h.area;
        h.capacityDt.clear();
        for (double c : h.chain.capacity) h.capacityDt.push_back(c / dt);
        const std::size_t n = h.t.size();
        h.a.assign(n, 0.0);
        h.b.assign(n, 0.0);
        h.g.assign(n, 0.0);
        h.invD.assign(n, 0.0);
        if (n >= 3) {
            const double* k = h.chain.conductance.data();
            for (std::size_t j = 1; j + 1 < n; ++j) {
                const double d =
                    h.capacityDt[j] + k[j - 1] + k[j] - (j > 1 ? k[j - 1] * h.b[j - 1] : 0.0);
                h.invD[j] = 1.0 / d;
                h.b[j] = k[j] * h.invD[j];
                h.g[j] = (j == 1 ? k[0] : k[j - 1] * h.g[j - 1]) * h.invD[j];
            }
            // Node 1 in terms of the faces: fold b and g down from node n-2.
            double bb = h.b[n - 2], gg = h.g[n - 2];
            for (std::size_t j = n - 2; j-- > 1;) {
                gg = h.g[j] + h.b[j] * gg;
                bb = h.b[j] * bb;
            }
            h.B1 = bb;
            h.G1 = gg;
        }
    }
    SetMrtConductances(z, b);
    // Solar shares: transmitted beam falls on the floors and is absorbed by
    // their inside absorptance; what they reflect joins the diffuse, which
    // is absorbed in proportion to area times absorptance. The windows'
    // share of it either leaves again or is absorbed in the glass.
    double floorArea = 0, absorbing = 0, totalArea = 0;
    for (const HeatSurface& h : z.surfaces) {
        totalArea += h.area;
        if (!h.isWindow && h.component == kCompFloors) floorArea += h.area;
    }
    auto insideAbs = [&](const HeatSurface& h) {
        if (h.isWindow) return 1.0 - optics[h.windowType].diffuseReflectance;
        return b.constructions[h.construction].insideAbsorptance;
    };
    for (const HeatSurface& h : z.surfaces) absorbing += h.area * insideAbs(h);
    double beamReflected = 0;
    for (HeatSurface& h : z.surfaces) {
        const bool floor = !h.isWindow && h.component == kCompFloors;
        const double onThis =
            floorArea > 0 ? (floor ? h.area / floorArea : 0.0) : h.area / totalArea;
        const double a = insideAbs(h);
        h.beamShare = onThis * a;
        beamReflected += onThis * (1 - a);
        h.radiantShare = h.area / totalArea;
    }
    for (HeatSurface& h : z.surfaces) {
        double share = h.area * insideAbs(h) / absorbing;
        if (h.isWindow) {
            const WindowOptics& o = optics[h.windowType];
            share *= o.diffuseBackAbsorbedInward / std::max(1.0 - o.diffuseReflectance, 1e-9);
        }
        h.diffuseShare = share;
        h.beamShare += beamReflected * share;
    }
    z.airCapacity = airDensity * kAirCp * zone.volume + zone.furnitureCapacity;
    return z;
}

// Fraction of a window's beam not shaded by an overhang at its head and fins
// at its sides, each long enough to count as infinite (projection factor
// method, ASHRAE Fundamentals 2017 ch. 15), and the share of sky diffuse the
// overhang leaves (two-dimensional view factor of the overhang).
struct ShadeFactors {
    double beam = 1, sky = 1;
};
ShadeFactors WindowShade(const WindowShading& sh, const SunPosition& sun, double cosAz,
                         double sinAz) {
    ShadeFactors f;
    const double p = sh.overhangProjection;
    if (p > 0) {
        f.sky = 1.0 - (1.0 + p - std::sqrt(1.0 + p * p)) * (1.0 - sh.overhangTransmittance);
    }
    if (sun.aboveHorizon && (p > 0 || sh.leftFinProjection > 0 || sh.rightFinProjection > 0)) {
        // Sun in the window's frame: x towards the right hand of someone
        // outside facing the window, (-cos az, sin az) in (east, north); y
        // along the outward normal. A fin on that side shades a sun there.
        const double x = -sun.east * cosAz + sun.north * sinAz;
        const double y = sun.east * sinAz + sun.north * cosAz;
        if (y > 1e-6) {
            double lit = 1.0;
            if (p > 0) {
                const double shade = std::min(1.0, p * sun.up / y);
                lit *= 1.0 - shade * (1.0 - sh.overhangTransmittance);
            }
            const double fin = x > 0 ? sh.rightFinProjection : sh.leftFinProjection;
            if (fin > 0) lit *= 1.0 - std::min(1.0, fin * std::abs(x) / y);
            f.beam = lit;
        }
    }
    f.beam *= 1.0 - sh.obstruction;
    f.sky *= 1.0 - sh.obstruction;
    return f;
}

// Interior venetian blinds, as an interior attenuation coefficient on the
// solar heat gain (ASHRAE Fundamentals 2017 ch. 15, medium slats: IAC about
// 0.7); setting 1 draws them when more than 95 W/m2 of beam reaches the
// glass, setting 5 keeps them drawn.
double BlindFactor(int blind, double beamOnGlass) {
    constexpr double kIac = 0.7;
    if (blind == 5) return kIac;
    if (blind == 1 && beamOnGlass > 95.0) return kIac;
    return 1.0;
}

// What one zone sees in one step.
struct StepInputs {
    double tOut = 0, tSky = 0, tGround = 10;
    double windPowerWindward = 0, windPowerLeeward = 0;  // weather wind ^0.89, ^0.617
    double gInfiltration = 0, gOutdoorAir = 0;           // W/K
    double convective = 0;                               // internal gains to the air, W
    double tHeat = -1e30, tCool = 1e30;
    double heatCapacity = 1e30, coolCapacity = 1e30;
};

struct StepResult {
    double q = 0;  // ideal system, W, heating positive
    double tAir = 0;
    std::array<double, kComponentCount> gains{};  // W into the zone
    double in = 0, out = 0, stored = 0;           // W across the zone's boundary
};

// One step of a zone. With `refresh` the film coefficients (outside
// convection and long-wave, inside convection) are evaluated from the last
// temperatures and every coefficient that follows from them is kept; the
// other steps of the hour reuse them, so that a step is then multiply-adds
// only. Convection and long-wave coefficients are thus updated hourly, as
// in the hourly programs, while temperatures move at every step.
StepResult StepZone(ZoneState& st, const StepInputs& in, const std::vector<double>& outsideSolar,
                    const std::vector<double>& src, double dt, bool refresh) {
    const std::size_t ns = st.surfaces.size();
    double m0 = 0, a0 = 0;  // star: m1 Ta + m2 Tm = m0; air: a1 Ta + a2 Tm - a0 = Q
    if (refresh) st.m1 = st.m2 = st.a1 = st.a2 = 0;
    thread_local std::vector<double> E, hoTeOf;
    E.resize(ns), hoTeOf.resize(ns);
    const double skyK = in.tSky + kKelvin, airK = in.tOut + kKelvin;
    for (std::size_t i = 0; i < ns; ++i) {
        HeatSurface& h = st.surfaces[i];
        const std::size_t n = h.t.size();
        // Outside boundary: ho (T_eq - T_0), kept as ho and ho T_eq.
        if (refresh) {
            if (h.isWindow) {
                h.ho = h.hoAir = h.windowConductance;
                h.hoSky = 0;
            } else if (h.boundary == Boundary::Adiabatic) {
                h.ho = h.hoAir = h.hoSky = 0;
            } else if (h.boundary == Boundary::Ground) {
                h.ho = h.groundConductance;
                h.hoAir = h.hoSky = 0;
            } else {
                const double ts = h.t[0];
                const bool sunlit = h.boundary == Boundary::Outdoors;
                const double power = !sunlit
                                         ? 0.0
                                         : (h.windward ? in.windPowerWindward * h.windFactorWindward
                                                       : in.windPowerLeeward * h.windFactorLeeward);
                const double hc =
                    OutsideConvection(ts - in.tOut, h.outsideNatural, power, h.windward);
                const double tsK = ts + kKelvin;
                const double es = h.outsideEmissivity * kSigma;
                h.hoSky = es * h.skyShare * (tsK * tsK + skyK * skyK) * (tsK + skyK);
                const double hGnd =
                    es * (1 - h.skyShare) * (tsK * tsK + airK * airK) * (tsK + airK);
                h.hoAir = hc + hGnd;
                h.ho = h.hoAir + h.hoSky;
            }
        }
        double hoTe = h.hoAir * in.tOut + h.hoSky * in.tSky;
        if (h.boundary == Boundary::Ground && !h.isWindow)
            hoTe = h.ho * (std::isnan(h.groundTemperature) ? in.tGround : h.groundTemperature);
        else if (!h.isWindow && h.boundary == Boundary::Outdoors)
            hoTe += outsideSolar[i];
        hoTeOf[i] = hoTe;
        // Reduce the chain to its inside face: diag T_s = rhs + room terms.
        // The nodes still hold the last step's temperatures. The outside
        // face comes out as T_0 = P + Q T_s (kept in a[0], b[0]).
        const double* cap = h.capacityDt.data();
        const double* k = h.chain.conductance.data();
        const double* t = h.t.data();
        double rhs;
        if (n == 1) {
            if (refresh) h.diag = cap[0] + h.ho;
            rhs = cap[0] * t[0] + hoTe;
        } else if (n == 2) {
            if (refresh) {
                h.pInv = 1.0 / (cap[0] + h.ho + k[0]);
                h.q = k[0] * h.pInv;
                h.diag = cap[1] + k[0] * (1 - h.q);
            }
            const double P = (cap[0] * t[0] + hoTe) * h.pInv;
            h.a[0] = P, h.b[0] = h.q;
            rhs = cap[1] * t[1] + k[0] * P;
        } else {
            double* a = h.a.data();
            const double* b = h.b.data();
            const double* g = h.g.data();
            const double* invD = h.invD.data();
            a[1] = cap[1] * t[1] * invD[1];
            for (std::size_t j = 2; j + 1 < n; ++j)
                a[j] = (cap[j] * t[j] + k[j - 1] * a[j - 1]) * invD[j];
            double A1 = a[n - 2];
            for (std::size_t j = n - 2; j-- > 1;) A1 = a[j] + b[j] * A1;
            const double kl = k[n - 2];
            if (refresh) {
                h.pInv = 1.0 / (cap[0] + h.ho + k[0] - k[0] * h.G1);
                h.q = k[0] * h.B1 * h.pInv;
                h.diag = cap[n - 1] + kl * (1 - b[n - 2] - g[n - 2] * h.q);
            }
            const double P = (cap[0] * t[0] + hoTe + k[0] * A1) * h.pInv;
            h.a[0] = P, h.b[0] = h.q;
            rhs = cap[n - 1] * t[n - 1] + kl * (a[n - 2] + g[n - 2] * P);
        }
        // Inside face: diag T_s = rhs + hc (Ta - T_s) + hr (Tm - T_s) + source.
        const double hr = h.mrtConductance, A = h.area;
        if (refresh) {
            h.insideConvection = NaturalConvection(h.t[n - 1] - st.tAir, h.insideNatural);
            const double hc = h.insideConvection;
            h.w = 1.0 / (h.diag + hc + hr);
            st.m1 += A * hr * h.w * hc;
            st.m2 += A * hr * (h.w * hr - 1.0);
            st.a1 -= A * hc * (h.w * hc - 1.0);
            st.a2 -= A * hc * h.w * hr;
        }
        const double hc = h.insideConvection;
        E[i] = rhs + src[i] * h.invArea;
        m0 -= A * hr * h.w * E[i];
        a0 += A * hc * h.w * E[i];
    }
    const double m1 = st.m1, m2 = st.m2, a2 = st.a2;
    double a1 = st.a1;
    const double cAir = st.airCapacity / dt;
    a1 += cAir + in.gInfiltration + in.gOutdoorAir;
    a0 += cAir * st.tAir + (in.gInfiltration + in.gOutdoorAir) * in.tOut + in.convective;
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
    const double tAirOld = st.tAir;
    st.tAir = ta;
    st.tStar = tm;
    // Back substitution and the heat flows of the step.
    double stored = cAir * (ta - tAirOld);
    double boundary = 0;
    auto addFlow = [&](double f) {
        if (f >= 0)
            r.in += f;
        else
            r.out -= f;
        boundary += f;
    };
    for (std::size_t i = 0; i < ns; ++i) {
        HeatSurface& h = st.surfaces[i];
        const std::size_t n = h.t.size();
        const double hc = h.insideConvection, hr = h.mrtConductance, A = h.area;
        double* t = h.t.data();
        const double* cap = h.capacityDt.data();
        const double tsNew = h.w * (E[i] + hc * ta + hr * tm);
        double dStored = cap[n - 1] * (tsNew - t[n - 1]);
        t[n - 1] = tsNew;
        if (n >= 2) {
            const double t0 = h.a[0] + h.b[0] * tsNew;
            double next = tsNew;
            for (std::size_t j = n - 1; j-- > 1;) {
                next = h.a[j] + h.b[j] * next + h.g[j] * t0;
                dStored += cap[j] * (next - t[j]);
                t[j] = next;
            }
            dStored += cap[0] * (t0 - t[0]);
            t[0] = t0;
        }
        stored += A * dStored;
        const double ts = t[n - 1];
        const double body = A * (hc * (ts - ta) + hr * (ts - tm)) - src[i];
        r.gains[h.component] += body;
        addFlow(A * (hoTeOf[i] - h.ho * h.t[0]));
        addFlow(src[i]);
    }
    r.gains[kCompInfiltration] = in.gInfiltration * (in.tOut - ta);
    r.gains[kCompOutdoorAir] = in.gOutdoorAir * (in.tOut - ta);
    r.gains[kCompStorage] -= cAir * (ta - tAirOld);
    addFlow(r.gains[kCompInfiltration]);
    addFlow(r.gains[kCompOutdoorAir]);
    addFlow(in.convective);
    addFlow(q);
    r.stored = stored;
    return r;
}

}  // namespace

std::array<double, 12> GroundTemperatures(const WeatherYear& w, double depth) {
    // Kusuda & Achenbach (1965): the annual air temperature wave damped and
    // delayed by the soil, T = Tm - As exp(-d sqrt(pi / (365 a)))
    // cos(2 pi / 365 (t - t0 - d / 2 sqrt(365 / (pi a)))), with a soil
    // diffusivity a of 0.05 m2/day (moist soil, ASHRAE Fundamentals 2017
    // ch. 18) and t0 the middle of the coldest month.
    constexpr double kDiffusivity = 0.05;  // m2/day
    std::array<double, 12> monthly{};
    for (int m = 0; m < 12; ++m) {
        const int a = kMonthStartDay[m] * 24, b = kMonthStartDay[m + 1] * 24;
        for (int h = a; h < b; ++h) monthly[m] += w.hours[h].dryBulb / (b - a);
    }
    double mean = 0;
    for (double v : monthly) mean += v / 12;
    const auto [lo, hi] = std::minmax_element(monthly.begin(), monthly.end());
    const double amplitude = (*hi - *lo) / 2;
    const int cold = static_cast<int>(lo - monthly.begin());
    const double t0 = 0.5 * (kMonthStartDay[cold] + kMonthStartDay[cold + 1]);
    const double damping = std::exp(-depth * std::sqrt(kPiD / (365 * kDiffusivity)));
    const double lag = depth / 2 * std::sqrt(365 / (kPiD * kDiffusivity));
    std::array<double, 12> g{};
    for (int m = 0; m < 12; ++m) {
        const double t = 0.5 * (kMonthStartDay[m] + kMonthStartDay[m + 1]);
        g[m] = mean - amplitude * damping * std::cos(2 * kPiD / 365 * (t - t0 - lag));
    }
    return g;
}

double SteadyConductance(const Building& b, int zi, const WeatherYear& weather) {
    const Zone& zone = b.zones[zi];
    double ua = 0;
    for (const Surface& s : zone.surfaces) {
        if (s.boundary == Boundary::Adiabatic) continue;
        double wa = 0;
        for (const Window& w : s.windows) {
            wa += w.area;
            ua += w.area * UFactor(b.windowTypes[w.type].glazing);
        }
        ua += (s.area - wa) / (b.constructions[s.construction].Resistance() + 0.13 + 0.04);
    }
    const double rho = AirDensity(StandardPressure(weather.site.elevation), 20.0);
    return ua + rho * kAirCp * zone.volume * zone.infiltrationAch / 3600.0;
}

RunResults Simulate(const Building& b, const WeatherYear& w, const RunOptions& opt) {
    if (w.hours.size() != kHoursPerYear) throw std::runtime_error("weather must hold 8760 hours");
    const int steps = std::clamp(opt.stepsPerHour, 1, 60);
    const double dt = 3600.0 / steps;
    const double invSteps = 1.0 / steps;
    const double siteDensity = AirDensity(StandardPressure(w.site.elevation), 20.0);

    std::vector<WindowOptics> optics;
    for (const WindowType& t : b.windowTypes) optics.push_back(MakeWindowOptics(t.glazing));
    std::vector<Orientation> orients;
    std::vector<ZoneState> zs;
    for (const Zone& zone : b.zones)
        zs.push_back(BuildZone(b, zone, optics, orients, dt, siteDensity));

    RunResults res;
    res.zones.resize(b.zones.size());
    for (std::size_t z = 0; z < b.zones.size(); ++z) {
        ZoneResults& zr = res.zones[z];
        zr.name = b.zones[z].name;
        if (opt.keepHourly) {
            zr.airTemperature.assign(kHoursPerYear, 0.0f);
            zr.heating.assign(kHoursPerYear, 0.0f);
            zr.cooling.assign(kHoursPerYear, 0.0f);
        }
        zr.monthlyMaxTemperature.fill(-1e9);
        zr.monthlyMinTemperature.fill(1e9);
    }

    const std::array<double, 12> ground = w.groundTemperatures.size() == 12
                                               ? [&] {
                                                     std::array<double, 12> g{};
                                                     for (int m = 0; m < 12; ++m)
                                                         g[m] = w.groundTemperatures[m];
                                                     return g;
                                                 }()
                                               : GroundTemperatures(w, 0.5);

    std::vector<std::vector<double>> outsideSolar(zs.size()), src(zs.size()),
        windowAbsorbed(zs.size());
    std::vector<std::array<int, 12>> monthHours(zs.size());
    std::vector<double> tempSum(zs.size(), 0.0);
    std::vector<int> tempCount(zs.size(), 0);
    std::vector<std::array<double, 12>> monthTempSum(zs.size());

    auto runDay = [&](int day, bool record) {
        const int month = MonthOfDay(day);
        const int weekday = (opt.firstWeekday + day) % 7;
        const bool skipped = opt.skipMonth[month];
        for (int hour = 0; hour < 24; ++hour) {
            const int hi = day * 24 + hour;
            const WeatherHour& wh = w.hours[hi];
            const WeatherHour& wp = w.hours[hi == 0 ? kHoursPerYear - 1 : hi - 1];
            const SunPosition sun = HourSunPosition(day + 1, hour + 1, w.site.latitude,
                                                    w.site.longitude, w.site.timeZone);
            const SkyState sky =
                MakeSkyState(sun, wh.directNormal, wh.diffuseHorizontal, wh.globalHorizontal);
            const double tSky =
                std::pow(std::max(wh.horizontalInfrared, 1.0f) / kSigma, 0.25) - kKelvin;
            std::vector<SurfaceIrradiance> irr(orients.size());
            for (std::size_t o = 0; o < orients.size(); ++o)
                irr[o] = IrradianceOn(sky, orients[o].normal, 0.0);
            const double groundDiffuseBase = sky.globalHorizontal;
            const double windCos = std::cos(wh.windDirection * kDeg);
            const double windSin = std::sin(wh.windDirection * kDeg);
            // Step values the zones share: outdoor temperature, pressure and
            // the wind's powers for the convection correlation.
            struct StepWeather {
                double tOut, pressure, powW, powL;
            };
            std::array<StepWeather, 60> stepWeather{};
            for (int k = 1; k <= steps; ++k) {
                const double frac = static_cast<double>(k) / steps;
                const double wind = wp.windSpeed + (wh.windSpeed - wp.windSpeed) * frac;
                stepWeather[k - 1] = {wp.dryBulb + (wh.dryBulb - wp.dryBulb) * frac,
                                      wp.pressure + (wh.pressure - wp.pressure) * frac,
                                      wind > 0 ? std::pow(wind, 0.89) : 0.0,
                                      wind > 0 ? std::pow(wind, 0.617) : 0.0};
            }

            for (std::size_t z = 0; z < b.zones.size(); ++z) {
                const Zone& zone = b.zones[z];
                ZoneState& st = zs[z];
                ZoneResults& zr = res.zones[z];
                const std::size_t ns = st.surfaces.size();
                outsideSolar[z].assign(ns, 0.0);
                windowAbsorbed[z].assign(ns, 0.0);
                src[z].assign(ns, 0.0);
                double beamIn = 0, diffuseIn = 0;
                for (std::size_t i = 0; i < ns; ++i) {
                    const HeatSurface& h = st.surfaces[i];
                    if (h.orientation < 0) continue;
                    SurfaceIrradiance ir = irr[h.orientation];
                    ir.groundDiffuse =
                        h.groundReflectance * groundDiffuseBase * 0.5 * (1.0 - h.cosTilt);
                    if (!h.isWindow) {
                        outsideSolar[z][i] = h.outsideAbsorptance * ir.Total();
                        continue;
                    }
                    const WindowOptics& op = optics[h.windowType];
                    const ShadeFactors sf =
                        WindowShade(h.window->shading, sun, h.cosAzimuth, h.sinAzimuth);
                    const double beam = ir.beam * sf.beam;
                    const double diff = ir.skyDiffuse * sf.sky + ir.groundDiffuse;
                    const double blind = BlindFactor(h.window->shading.blind, beam);
                    const double tb = beam > 0 ? op.Transmittance(ir.cosIncidence) : 0.0;
                    const double ab = beam > 0 ? op.AbsorbedInward(ir.cosIncidence) : 0.0;
                    beamIn += tb * beam * h.area * blind;
                    diffuseIn += op.diffuseTransmittance * diff * h.area * blind;
                    windowAbsorbed[z][i] =
                        (ab * beam + op.diffuseAbsorbedInward * diff) * h.area * blind;
                }
                auto prof = [&](int p) { return p < 0 ? 1.0 : b.profiles[p].At(weekday, hour); };
                const ZoneGains& g = zone.gains;
                const double people = g.peopleSensible * prof(g.peopleProfile);
                const double lights = g.lights * prof(g.lightsProfile);
                const double equip = g.equipment * prof(g.equipmentProfile);
                const double radiant = people * g.peopleRadiant + lights * g.lightsRadiant +
                                       equip * g.equipmentRadiant;
                double solarTotal = 0;
                for (std::size_t i = 0; i < ns; ++i) {
                    const HeatSurface& h = st.surfaces[i];
                    const double solar =
                        h.beamShare * beamIn + h.diffuseShare * diffuseIn + windowAbsorbed[z][i];
                    solarTotal += solar;
                    src[z][i] = solar + h.radiantShare * radiant;
                }
                const bool hvac = zone.conditioned && !opt.hvacOff && !skipped;
                StepInputs in;
                in.tSky = tSky;
                // Windward when the wind blows against the face (within 90
                // degrees of its normal); roofs and floors count as windward.
                for (HeatSurface& h : st.surfaces)
                    h.windward = std::abs(h.cosTilt) > 0.99 ||
                                 windCos * h.cosAzimuth + windSin * h.sinAzimuth >= -1e-12;
                in.tGround = ground[month];
                in.convective = people + lights + equip - radiant;
                in.tHeat = (hvac && zone.heatingSetpointProfile >= 0)
                               ? prof(zone.heatingSetpointProfile)
                               : -1e30;
                in.tCool = (hvac && zone.coolingSetpointProfile >= 0)
                               ? prof(zone.coolingSetpointProfile)
                               : 1e30;
                in.heatCapacity = zone.heatingCapacity;
                in.coolCapacity = zone.coolingCapacity;
                const double oaFlow =
                    zone.outdoorAirProfile < 0
                        ? zone.outdoorAirFlow
                        : (prof(zone.outdoorAirProfile) > 0 ? zone.outdoorAirFlow : 0.0);

                double hourQh = 0, hourQc = 0, hourT = 0;
                std::array<double, kComponentCount> heatComp{}, coolComp{};
                double hIn = 0, hOut = 0, hStored = 0;
                for (int k = 1; k <= steps; ++k) {
                    const StepWeather& sw = stepWeather[k - 1];
                    in.tOut = sw.tOut;
                    const double pressure = sw.pressure;
                    in.windPowerWindward = sw.powW;
                    in.windPowerLeeward = sw.powL;
                    // Air changes count the zone's own air: the mass that
                    // leaves (and is replaced) is at the zone's density.
                    const double rhoCp = AirDensity(pressure, st.tAir) * kAirCp;
                    in.gInfiltration = rhoCp * zone.volume * zone.infiltrationAch / 3600.0;
                    in.gOutdoorAir = rhoCp * oaFlow;
                    const StepResult r = StepZone(st, in, outsideSolar[z], src[z], dt, k == 1);
                    hourT += r.tAir * invSteps;
                    std::array<double, kComponentCount> gains = r.gains;
                    gains[kCompWindowSolar] += solarTotal;
                    gains[kCompPeople] += people;
                    gains[kCompLights] += lights;
                    gains[kCompEquipment] += equip;
                    if (r.q > 0) {
                        hourQh += r.q * invSteps;
                        for (int c = 0; c < kComponentCount; ++c)
                            heatComp[c] -= gains[c] * invSteps;
                    } else if (r.q < 0) {
                        hourQc -= r.q * invSteps;
                        for (int c = 0; c < kComponentCount; ++c)
                            coolComp[c] += gains[c] * invSteps;
                    }
                    hIn += r.in * invSteps;
                    hOut += r.out * invSteps;
                    hStored += r.stored * invSteps;
                }
                if (!record) continue;
                // Hour totals (W over one hour = Wh).
                if (opt.keepHourly) {
                    zr.airTemperature[hi] = static_cast<float>(hourT);
                    zr.heating[hi] = static_cast<float>(hourQh);
                    zr.cooling[hi] = static_cast<float>(hourQc);
                }
                zr.balanceIn += hIn;
                zr.balanceOut += hOut;
                zr.balanceStored += hStored;
                zr.balanceResidual += std::abs(hIn - hOut - hStored);
                if (skipped) continue;
                zr.heatingEnergy += hourQh;
                zr.lightsEnergy += lights;
                zr.equipmentEnergy += equip;
                zr.coolingEnergy += hourQc;
                zr.monthlyHeating[month] += hourQh;
                zr.monthlyCooling[month] += hourQc;
                for (int c = 0; c < kComponentCount; ++c) {
                    zr.heatingByComponent[c] += heatComp[c];
                    zr.coolingByComponent[c] += coolComp[c];
                }
                if (hourQh > zr.peakHeating) {
                    zr.peakHeating = hourQh;
                    zr.peakHeatingHour = hi;
                    zr.peakHeatingComponents = heatComp;
                }
                if (hourQc > zr.peakCooling) {
                    zr.peakCooling = hourQc;
                    zr.peakCoolingHour = hi;
                    zr.peakCoolingComponents = coolComp;
                }
                if (hourT > zr.maxTemperature)
                    zr.maxTemperature = hourT, zr.maxTemperatureHour = hi;
                if (hourT < zr.minTemperature)
                    zr.minTemperature = hourT, zr.minTemperatureHour = hi;
                tempSum[z] += hourT;
                ++tempCount[z];
                monthTempSum[z][month] += hourT;
                ++monthHours[z][month];
                zr.monthlyMaxTemperature[month] = std::max(zr.monthlyMaxTemperature[month], hourT);
                zr.monthlyMinTemperature[month] = std::min(zr.monthlyMinTemperature[month], hourT);
                if (hourT < opt.comfortLower) {
                    ++zr.hoursBelow;
                    ++zr.monthlyHoursBelow[month];
                } else if (hourT > opt.comfortUpper) {
                    ++zr.hoursAbove;
                    ++zr.monthlyHoursAbove[month];
                } else {
                    ++zr.hoursWithin;
                    ++zr.monthlyHoursWithin[month];
                }
            }
        }
    };

    const int begin = std::clamp(opt.beginDay, 1, 365) - 1;
    const int end = std::clamp(opt.endDay, opt.beginDay, 365) - 1;
    // Warm-up: the first days of the period, repeated until the air
    // temperatures at the end of two passes agree within 0.01 K.
    const int warmDays = std::min(opt.warmupDays, end - begin + 1);
    if (warmDays > 0) {
        std::vector<double> last(zs.size(), 1e9);
        for (int pass = 0; pass < 8; ++pass) {
            for (int d = begin; d < begin + warmDays; ++d) runDay(d, false);
            double change = 0;
            for (std::size_t z = 0; z < zs.size(); ++z) {
                change = std::max(change, std::abs(zs[z].tAir - last[z]));
                last[z] = zs[z].tAir;
            }
            if (change < 0.01) break;
        }
    }
    for (int d = begin; d <= end; ++d) runDay(d, true);
    res.hoursSimulated = (end - begin + 1) * 24;
    for (std::size_t z = 0; z < zs.size(); ++z) {
        ZoneResults& zr = res.zones[z];
        zr.meanTemperature = tempCount[z] ? tempSum[z] / tempCount[z] : 0;
        for (int m = 0; m < 12; ++m) {
            zr.monthlyMeanTemperature[m] =
                monthHours[z][m] ? monthTempSum[z][m] / monthHours[z][m] : 0.0;
            if (!monthHours[z][m]) zr.monthlyMaxTemperature[m] = zr.monthlyMinTemperature[m] = 0;
        }
    }
    return res;
}

}  // namespace solvane::engine
