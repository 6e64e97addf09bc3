#include "engine/simulation.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <limits>
#include <mutex>
#include <stdexcept>

#include "engine/daylighting.h"
#include "engine/parallel_for.h"
#include "engine/sun.h"
#include "engine/zone_state.h"

namespace solvane::engine {
namespace {

using detail::HeatSurface;
using detail::NaturalFactorsFor;
using detail::StepInputs;
using detail::StepResult;
using detail::ZoneState;

constexpr double kSigma = 5.6697e-8;
constexpr double kAirCp = 1006.0;  // J/kgK, dry air
constexpr double kKelvin = 273.15;
// Linearised interior long-wave coefficient at 20 C (4 sigma T^3).
constexpr double kInsideRadiation = 4 * kSigma * 293.15 * 293.15 * 293.15;

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

// What decides the solar gain per unit area of a window: its plane, its
// glazing, its shading and the ground before it. Windows alike in these
// share one evaluation per hour.
struct WindowKind {
    int orientation, windowType;
    WindowShading shading;
    double groundReflectance, cosTilt, cosAzimuth, sinAzimuth;
};

// Solar of one hour through a kind of window, W per m2 of glazing: beam and
// diffuse transmitted, and absorbed in the glass flowing inwards.
struct WindowSolar {
    double beamIn, diffuseIn, absorbed;
};

int FindWindowKind(std::vector<WindowKind>& list, const HeatSurface& h) {
    const WindowShading& c = h.window->shading;
    for (std::size_t i = 0; i < list.size(); ++i) {
        const WindowKind& x = list[i];
        const WindowShading& a = x.shading;
        if (x.orientation == h.orientation && x.windowType == h.windowType &&
            x.groundReflectance == h.groundReflectance && x.cosTilt == h.cosTilt &&
            a.overhangProjection == c.overhangProjection && a.overhangGap == c.overhangGap &&
            a.overhangTransmittance == c.overhangTransmittance &&
            a.leftFinProjection == c.leftFinProjection &&
            a.rightFinProjection == c.rightFinProjection && a.obstruction == c.obstruction &&
            a.blind == c.blind)
            return static_cast<int>(i);
    }
    list.push_back({h.orientation, h.windowType, c, h.groundReflectance, h.cosTilt, h.cosAzimuth,
                    h.sinAzimuth});
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
                    std::vector<Orientation>& orients, std::vector<WindowKind>& windowKinds,
                    double dt, double airDensity) {
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
            if (wh.orientation >= 0) wh.windowKind = FindWindowKind(windowKinds, wh);
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
                    a.overhangGap != c.overhangGap ||
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
    // Faces in order of component and, within one, of node count, so that
    // the step's branches on the chain's length and its sums by component
    // run in long alike stretches.
    std::stable_sort(z.surfaces.begin(), z.surfaces.end(),
                     [](const HeatSurface& x, const HeatSurface& y) {
                         if (x.component != y.component) return x.component < y.component;
                         return x.chain.capacity.size() < y.chain.capacity.size();
                     });
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
    detail::PackFaces(z, dt);
    return z;
}

// Fraction of a window's beam left by an overhang above its head and fins at
// its sides, each long enough to count as infinite: the shadow of the
// overhang's edge falls its depth times the tangent of the sun's vertical
// profile angle below it, and reaches the glass past the gap between the
// head and the overhang; a fin's shadow is its depth times the tangent of
// the horizontal profile angle (ASHRAE Fundamentals 2017 ch. 15). Diffuse
// light: the two-dimensional view factors of the overhang and of each fin
// from the window by Hottel's crossed strings (Hottel & Sarofim 1967). The
// overhang hides sky only; a fin, standing the window's full height, hides
// sky and ground alike.
struct ShadeFactors {
    double beam = 1, sky = 1, ground = 1;
};
ShadeFactors WindowShade(const WindowShading& sh, const SunPosition& sun, double cosAz,
                         double sinAz) {
    ShadeFactors f;
    const double p = sh.overhangProjection, gap = sh.overhangGap;
    if (p > 0) {
        // View factor window -> overhang, in window heights; a vertical
        // window sees half its view in sky.
        const double view =
            0.5 * (1.0 + std::sqrt(p * p + gap * gap) - std::sqrt(p * p + (1 + gap) * (1 + gap)));
        f.sky = 1.0 - 2.0 * view * (1.0 - sh.overhangTransmittance);
    }
    for (const double fin : {sh.leftFinProjection, sh.rightFinProjection}) {
        if (fin <= 0) continue;
        const double view = 0.5 * (1.0 + fin - std::sqrt(1.0 + fin * fin));
        f.sky -= view;
        f.ground -= view;
    }
    f.sky = std::max(f.sky, 0.0);
    f.ground = std::max(f.ground, 0.0);
    if (sun.aboveHorizon && (p > 0 || sh.leftFinProjection > 0 || sh.rightFinProjection > 0)) {
        // Sun in the window's frame: x towards the right hand of someone
        // outside facing the window, (-cos az, sin az) in (east, north); y
        // along the outward normal. A fin on that side shades a sun there.
        const double x = -sun.east * cosAz + sun.north * sinAz;
        const double y = sun.east * sinAz + sun.north * cosAz;
        if (y > 1e-6) {
            double lit = 1.0;
            if (p > 0) {
                const double shade = std::clamp(p * sun.up / y - gap, 0.0, 1.0);
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
    std::vector<WindowKind> windowKinds;
    std::vector<ZoneState> zs;
    for (const Zone& zone : b.zones)
        zs.push_back(BuildZone(b, zone, optics, orients, windowKinds, dt, siteDensity));

    RunResults res;
    res.zones.resize(b.zones.size());
    for (std::size_t z = 0; z < b.zones.size(); ++z) {
        ZoneResults& zr = res.zones[z];
        zr.name = b.zones[z].name;
        if (opt.keepHourly) {
            zr.airTemperature.assign(kHoursPerYear, 0.0f);
            zr.heating.assign(kHoursPerYear, 0.0f);
            zr.cooling.assign(kHoursPerYear, 0.0f);
            zr.lights.assign(kHoursPerYear, 0.0f);
            zr.equipment.assign(kHoursPerYear, 0.0f);
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

    const int begin = std::clamp(opt.beginDay, 1, 365) - 1;
    const int end = std::clamp(opt.endDay, opt.beginDay, 365) - 1;
    const int threads = ThreadCount(opt.threads);

    // What the zones share in an hour, for every hour of the period (the
    // warm-up days are its first days): sky temperature and wind direction,
    // irradiance on each plane, solar through each kind of window per m2 of
    // glazing, and the weather of each step.
    struct StepWeather {
        double tOut, pressure, powW, powL;
    };
    struct SharedHour {
        double tSky, windCos, windSin, groundDiffuseBase;
    };
    const std::size_t nOrients = orients.size(), nKinds = windowKinds.size();
    const int periodHours = (end - begin + 1) * 24;
    std::vector<SharedHour> sharedHours(static_cast<std::size_t>(periodHours));
    std::vector<SurfaceIrradiance> sharedIrradiance(periodHours * nOrients);
    std::vector<WindowSolar> sharedWindowSolar(periodHours * nKinds);
    std::vector<StepWeather> sharedSteps(static_cast<std::size_t>(periodHours) * steps);
    ParallelFor(end - begin + 1, threads, [&](int d) {
        const int day = begin + d;
        for (int hour = 0; hour < 24; ++hour) {
            const int hi = day * 24 + hour;
            const std::size_t at = static_cast<std::size_t>(d) * 24 + hour;
            const WeatherHour& wh = w.hours[hi];
            const WeatherHour& wp = w.hours[hi == 0 ? kHoursPerYear - 1 : hi - 1];
            const SunPosition sun = HourSunPosition(day + 1, hour + 1, w.site.latitude,
                                                    w.site.longitude, w.site.timeZone);
            const SkyState sky =
                MakeSkyState(sun, wh.directNormal, wh.diffuseHorizontal, wh.globalHorizontal);
            SurfaceIrradiance* irr = sharedIrradiance.data() + at * nOrients;
            for (std::size_t o = 0; o < nOrients; ++o)
                irr[o] = IrradianceOn(sky, orients[o].normal, 0.0);
            const double groundDiffuseBase = sky.globalHorizontal;
            WindowSolar* windowSolar = sharedWindowSolar.data() + at * nKinds;
            for (std::size_t a = 0; a < nKinds; ++a) {
                const WindowKind& x = windowKinds[a];
                const SurfaceIrradiance& ir = irr[x.orientation];
                const double groundDiffuse =
                    x.groundReflectance * groundDiffuseBase * 0.5 * (1.0 - x.cosTilt);
                const WindowOptics& op = optics[x.windowType];
                const ShadeFactors sf = WindowShade(x.shading, sun, x.cosAzimuth, x.sinAzimuth);
                const double beam = ir.beam * sf.beam;
                const double diff = ir.skyDiffuse * sf.sky + groundDiffuse * sf.ground;
                const double blind = BlindFactor(x.shading.blind, beam);
                const double tb = beam > 0 ? op.Transmittance(ir.cosIncidence) : 0.0;
                const double ab = beam > 0 ? op.AbsorbedInward(ir.cosIncidence) : 0.0;
                windowSolar[a] = {tb * beam * blind, op.diffuseTransmittance * diff * blind,
                                  (ab * beam + op.diffuseAbsorbedInward * diff) * blind};
            }
            sharedHours[at] = {
                std::pow(std::max(wh.horizontalInfrared, 1.0f) / kSigma, 0.25) - kKelvin,
                std::cos(wh.windDirection * kDeg), std::sin(wh.windDirection * kDeg),
                groundDiffuseBase};
            // The step's outdoor temperature and pressure, interpolated, and
            // the wind's powers for the convection correlation.
            for (int k = 1; k <= steps; ++k) {
                const double frac = static_cast<double>(k) / steps;
                const double wind = wp.windSpeed + (wh.windSpeed - wp.windSpeed) * frac;
                sharedSteps[at * steps + k - 1] = {wp.dryBulb + (wh.dryBulb - wp.dryBulb) * frac,
                                                   wp.pressure + (wh.pressure - wp.pressure) * frac,
                                                   wind > 0 ? std::pow(wind, 0.89) : 0.0,
                                                   wind > 0 ? std::pow(wind, 0.617) : 0.0};
            }
        }
    });

    // Zones exchange no heat with one another: each runs its days on its
    // own, on whichever thread takes it, with its own scratch and tallies.
    struct ZoneTally {
        double tempSum = 0;
        int tempCount = 0;
        std::array<double, 12> monthTempSum{};
        std::array<int, 12> monthHours{};
    };
    std::vector<ZoneTally> tallies(zs.size());
    // Progress of the period in whole days: the zone-days done over the zone
    // count, told under a lock so the days told never go back.
    std::atomic<long> zoneDaysDone{0};
    std::mutex progressLock;
    int daysTold = 0;
    auto zoneDayDone = [&] {
        if (!opt.onDay) return;
        const long count = static_cast<long>(std::max<std::size_t>(zs.size(), 1));
        const long done = ++zoneDaysDone;
        if (done % count != 0) return;
        const std::lock_guard<std::mutex> hold(progressLock);
        const int days = static_cast<int>(done / count);
        if (days <= daysTold) return;
        daysTold = days;
        opt.onDay(days, end - begin + 1);
    };
    auto runZoneDays = [&](std::size_t z, int firstDay, int lastDay, bool record) {
        const Zone& zone = b.zones[z];
        ZoneState& st = zs[z];
        ZoneResults& zr = res.zones[z];
        ZoneTally& tally = tallies[z];
        const std::size_t ns = st.surfaces.size();
        // Per-face scratch of the hour: absorbed outside solar (W/m2) and
        // inside sources (W).
        std::vector<double> outsideSolar(ns), src(ns);
        double held = record ? detail::StoredHeat(st, dt) : 0.0;
        for (int day = firstDay; day <= lastDay; ++day) {
            const int month = MonthOfDay(day);
            const int weekday = (opt.firstWeekday + day) % 7;
            const bool skipped = opt.skipMonth[month];
            for (int hour = 0; hour < 24; ++hour) {
                const int hi = day * 24 + hour;
                const std::size_t at = static_cast<std::size_t>(day - begin) * 24 + hour;
                const SharedHour& sh = sharedHours[at];
                const SurfaceIrradiance* irr = sharedIrradiance.data() + at * nOrients;
                const WindowSolar* windowSolar = sharedWindowSolar.data() + at * nKinds;
                const StepWeather* stepWeather = sharedSteps.data() + at * steps;
                const double tSky = sh.tSky, windCos = sh.windCos, windSin = sh.windSin;
                const double groundDiffuseBase = sh.groundDiffuseBase;
                // Outside solar of the sunlit faces; `src` starts as the solar
                // absorbed in the windows.
                double beamIn = 0, diffuseIn = 0;
                for (std::size_t i = 0; i < ns; ++i) {
                    const HeatSurface& h = st.surfaces[i];
                    src[i] = 0.0;
                    if (h.orientation < 0) continue;
                    if (h.isWindow) {
                        const WindowSolar& ws = windowSolar[h.windowKind];
                        beamIn += ws.beamIn * h.area;
                        diffuseIn += ws.diffuseIn * h.area;
                        src[i] = ws.absorbed * h.area;
                        continue;
                    }
                    SurfaceIrradiance ir = irr[h.orientation];
                    ir.groundDiffuse =
                        h.groundReflectance * groundDiffuseBase * 0.5 * (1.0 - h.cosTilt);
                    outsideSolar[i] = h.outsideAbsorptance * ir.Total();
                }
                auto prof = [&](int p) { return p < 0 ? 1.0 : b.profiles[p].At(weekday, hour); };
                const ZoneGains& g = zone.gains;
                const double people = g.peopleSensible * prof(g.peopleProfile);
                // Daylighting dims the lights of the daylit part (daylighting.h).
                double dimmed = 1.0;
                if (zone.daylight.share > 0 && zone.daylight.targetLux > 0) {
                    const double lux = zone.daylight.daylightFactor / 100.0 *
                                       w.hours[hi].diffuseHorizontal * kSkyLuminousEfficacy;
                    dimmed = 1.0 - zone.daylight.share *
                                       (1.0 - DimmedPowerFraction(lux, zone.daylight.targetLux));
                }
                const double lights = g.lights * prof(g.lightsProfile) * dimmed;
                const double equip = g.equipment * prof(g.equipmentProfile);
                const double radiant = people * g.peopleRadiant + lights * g.lightsRadiant +
                                       equip * g.equipmentRadiant;
                double solarTotal = 0;
                for (std::size_t i = 0; i < ns; ++i) {
                    const HeatSurface& h = st.surfaces[i];
                    const double solar = h.beamShare * beamIn + h.diffuseShare * diffuseIn + src[i];
                    solarTotal += solar;
                    src[i] = solar + h.radiantShare * radiant;
                }
                const bool hvac = zone.conditioned && !opt.hvacOff && !skipped;
                StepInputs in;
                in.tSky = tSky;
                in.windCos = windCos;
                in.windSin = windSin;
                in.tGround = ground[month];
                in.convective = people + lights + equip - radiant;
                in.tHeat = (hvac && zone.heatingSetpointProfile >= 0)
                               ? prof(zone.heatingSetpointProfile)
                               : -1e30;
                in.tCool = (hvac && zone.coolingSetpointProfile >= 0)
                               ? prof(zone.coolingSetpointProfile)
                               : 1e30;
                // Natural ventilation aims at the middle of the zone's
                // dead band (of the comfort zone where a set-point is
                // missing), never below the comfort zone.
                if (zone.naturalVentFlow > 0) {
                    const double lo = in.tHeat > -1e29 ? in.tHeat : opt.comfortLower;
                    const double hi = in.tCool < 1e29 ? in.tCool : opt.comfortUpper;
                    in.tVent = std::max(0.5 * (lo + hi), opt.comfortLower);
                } else {
                    in.tVent = 1e30;
                }
                in.heatCapacity = zone.heatingCapacity;
                in.coolCapacity = zone.coolingCapacity;
                const double oaFlow =
                    zone.outdoorAirProfile < 0
                        ? zone.outdoorAirFlow
                        : (prof(zone.outdoorAirProfile) > 0 ? zone.outdoorAirFlow : 0.0);

                double hourQh = 0, hourQc = 0, hourT = 0;
                std::array<double, kComponentCount> heatComp{}, coolComp{};
                double hIn = 0, hOut = 0;
                // Films once an hour, from the first step's weather and the
                // last temperatures.
                in.tOut = stepWeather[0].tOut;
                in.windPowerWindward = stepWeather[0].powW;
                in.windPowerLeeward = stepWeather[0].powL;
                detail::RefreshFilms(st, in, outsideSolar.data(), src.data());
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
                    in.gNaturalVentMax = rhoCp * zone.naturalVentFlow;
                    const StepResult r = detail::StepZone(st, in, dt);
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
                }
                if (!record) continue;
                // What the zone stored over the hour: the change of what it
                // holds, as the mean of the hour in W (= Wh).
                const double heldNow = detail::StoredHeat(st, dt);
                const double hStored = (heldNow - held) * invSteps;
                held = heldNow;
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
                if (opt.keepHourly) {
                    zr.lights[hi] = static_cast<float>(lights);
                    zr.equipment[hi] = static_cast<float>(equip);
                }
                zr.lightsEnergy += lights;
                zr.equipmentEnergy += equip;
                zr.coolingEnergy += hourQc;
                zr.monthlyHeating[month] += hourQh;
                zr.monthlySolarGain[month] += solarTotal;
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
                tally.tempSum += hourT;
                ++tally.tempCount;
                tally.monthTempSum[month] += hourT;
                ++tally.monthHours[month];
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
            if (record) zoneDayDone();
        }
    };

    // Warm-up: the first days of the period, repeated until the state at the
    // end of two passes agrees within 0.01 K: the air and both faces of every
    // construction (an air temperature held at its set-point says nothing of
    // whether the walls have settled).
    const int zoneCount = static_cast<int>(zs.size());
    const int warmDays = std::min(opt.warmupDays, end - begin + 1);
    if (warmDays > 0) {
        std::vector<double> last;
        for (int pass = 0; pass < 8; ++pass) {
            ParallelFor(zoneCount, threads,
                        [&](int z) { runZoneDays(z, begin, begin + warmDays - 1, false); });
            std::vector<double> state;
            for (const auto& zone : zs) {
                state.push_back(zone.tAir);
                for (const auto& face : zone.faces) {
                    state.push_back(face.t0);
                    state.push_back(face.ts);
                }
            }
            double change = last.empty() ? 1e9 : 0.0;
            for (std::size_t i = 0; i < last.size() && i < state.size(); ++i)
                change = std::max(change, std::abs(state[i] - last[i]));
            last = std::move(state);
            if (change < 0.01) break;
        }
    }
    ParallelFor(zoneCount, threads, [&](int z) { runZoneDays(z, begin, end, true); });
    res.hoursSimulated = (end - begin + 1) * 24;
    for (std::size_t z = 0; z < zs.size(); ++z) {
        ZoneResults& zr = res.zones[z];
        const ZoneTally& t = tallies[z];
        zr.meanTemperature = t.tempCount ? t.tempSum / t.tempCount : 0;
        for (int m = 0; m < 12; ++m) {
            zr.monthlyMeanTemperature[m] =
                t.monthHours[m] ? t.monthTempSum[m] / t.monthHours[m] : 0.0;
            if (!t.monthHours[m]) zr.monthlyMaxTemperature[m] = zr.monthlyMinTemperature[m] = 0;
        }
    }
    return res;
}

}  // namespace solvane::engine
