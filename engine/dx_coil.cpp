#include "engine/dx_coil.h"

#include <algorithm>
#include <cmath>
#include <sstream>
#include <vector>

#include "core/item_reader.h"
#include "engine/psychrometrics.h"
#include "engine/root_finding.h"
#include "engine/weather_data.h"

namespace solvane::engine {

namespace {

constexpr double kRatingDryBulb = 26.67;  // C: 80 F, AHRI 210/240
constexpr double kRatingWetBulb = 19.44;  // C: 67 F

double Curve(const double (&c)[6], double x, double y) {
    return c[0] + c[1] * x + c[2] * x * x + c[3] * y + c[4] * y * y + c[5] * x * y;
}

// Mass flow of dry air (kg/s) of the unit's air flow, taken at 20 C.
double MassFlow(const DxPerformance& u, double pressure) {
    return u.airFlow * AirDensity(pressure, 20.0);
}

struct WetResult {
    double total, shr, wetBulb, adpHumidity;
};

WetResult Evaluate(const DxPerformance& u, double bf, double m, double t, double w, double odb,
                   double p) {
    WetResult r{};
    r.wetBulb = WetBulbOfHumidityRatio(t, w, p);
    const double x = std::clamp(r.wetBulb, u.wetBulbMin, u.wetBulbMax);
    const double y = std::clamp(odb, u.dryBulbMin, u.dryBulbMax);
    r.total = u.ratedCapacity * std::max(Curve(u.capFT, x, y), 0.0);
    const double hin = MoistAirEnthalpy(t, w);
    const double hout = hin - r.total / m;
    const double hadp = hin - (hin - hout) / (1.0 - bf);
    const double tadp = SaturationTemperatureOfEnthalpy(hadp, p, t);
    r.adpHumidity = SaturationHumidityRatio(tadp, p);
    r.shr = r.adpHumidity >= w
                ? 1.0
                : std::clamp((MoistAirEnthalpy(t, r.adpHumidity) - hadp) / (hin - hadp), 0.0, 1.0);
    return r;
}

}  // namespace

double RatedBypassConstant(const DxPerformance& u, double p) {
    const double m = MassFlow(u, p);
    if (m <= 0 || u.ratedCapacity <= 0) return 0;
    const double t = kRatingDryBulb;
    const double w = HumidityRatioOfWetBulb(t, kRatingWetBulb, p);
    const double hin = MoistAirEnthalpy(t, w);
    const double hout = hin - u.ratedCapacity / m;
    const double hSensibleEnd = hin - (1.0 - u.ratedShr) * (hin - hout);
    const double wout = (hSensibleEnd - 1006.0 * t) / (kLatentHeat + 1860.0 * t);
    const double tout = DryBulbOfEnthalpy(hout, wout);
    if (!(tout < t) || !(wout < w)) return 0;
    // The apparatus dew point: where the line through inlet and outlet meets
    // saturation, below the outlet.
    const double slope = (w - wout) / (t - tout);
    auto g = [&](double tt) { return w - slope * (t - tt) - SaturationHumidityRatio(tt, p); };
    if (g(tout) >= 0 || g(tout - 40.0) <= 0) return 0;
    const double tadp = BracketedRoot(g, tout - 40.0, tout, 1e-6);
    const double hadp = MoistAirEnthalpy(tadp, SaturationHumidityRatio(tadp, p));
    const double bf = std::clamp((hout - hadp) / (hin - hadp), 1e-4, 0.999);
    return -std::log(bf) * m;
}

CoilState CoilAt(const DxPerformance& u, double a0, double t, double w, double odb, double p,
                 DryEdgeCache* cache) {
    CoilState s;
    const double m = MassFlow(u, p);
    if (m <= 0 || u.ratedCapacity <= 0) return s;
    const double bf = a0 > 0 ? std::exp(-a0 / m) : 1.0;
    auto finish = [&](const WetResult& r, bool dry) {
        CoilState c;
        c.total = r.total;
        c.shr = dry ? 1.0 : r.shr;
        c.wetBulb = r.wetBulb;
        c.dry = dry;
        const double x = std::clamp(r.wetBulb, u.wetBulbMin, u.wetBulbMax);
        const double y = std::clamp(odb, u.dryBulbMin, u.dryBulbMax);
        c.power = r.total * std::max(Curve(u.eirFT, x, y), 0.0) / std::max(u.ratedCop, 0.1);
        return c;
    };
    if (bf >= 1.0) {  // no bypass factor fits the rating: always dry
        WetResult r{};
        r.wetBulb = WetBulbOfHumidityRatio(t, w, p);
        const double x = std::clamp(r.wetBulb, u.wetBulbMin, u.wetBulbMax);
        r.total = u.ratedCapacity *
                  std::max(Curve(u.capFT, x, std::clamp(odb, u.dryBulbMin, u.dryBulbMax)), 0.0);
        return finish(r, true);
    }
    // A dry coil's state does not depend on the air's humidity: kept by the
    // entering and outdoor dry bulbs with the humidity at which it turns wet.
    const long long key = (std::llround(t * 20.0) << 24) + std::llround(odb * 5.0);
    if (cache) {
        const auto it = cache->edges.find(key);
        if (it != cache->edges.end() && w <= it->second.edge) return it->second.state;
    }
    WetResult r = Evaluate(u, bf, m, t, w, odb, p);
    if (r.adpHumidity < w) return finish(r, false);
    // Dry: the capacity of the wet bulb at which the coil just turns dry,
    // found between this air and saturation.
    double edge = -1;
    const double hi = SaturationHumidityRatio(t, p);
    if (Evaluate(u, bf, m, t, hi, odb, p).adpHumidity < hi) {
        edge = BracketedRoot(
            [&](double x) { return x - Evaluate(u, bf, m, t, x, odb, p).adpHumidity; }, w, hi,
            1e-6);
        if (edge > w) r = Evaluate(u, bf, m, t, edge, odb, p);
    }
    const CoilState dry = finish(r, true);
    if (cache && edge > 0) cache->edges[key] = {edge, dry};
    return dry;
}

double PartLoadFraction(const DxPerformance& u, double plr) {
    return std::clamp(u.plf[0] + u.plf[1] * std::clamp(plr, 0.0, 1.0), 0.05, 1.0);
}

std::map<std::string, DxPerformance> ReadDxPerformanceFile(const std::string& text,
                                                           const std::string& file) {
    std::map<std::string, DxPerformance> out;
    std::istringstream in(text);
    std::string line, zone;
    int number = 0;
    auto figures = [&](std::istringstream& rest, std::size_t count) {
        std::vector<double> v;
        double x;
        while (rest >> x) v.push_back(x);
        if (v.size() != count)
            throw ReadError(file, number,
                            "expected " + std::to_string(count) + " figures, found " +
                                std::to_string(v.size()));
        return v;
    };
    while (std::getline(in, line)) {
        ++number;
        if (!line.empty() && line.back() == '\r') line.pop_back();
        const std::size_t first = line.find_first_not_of(' ');
        if (first == std::string::npos || line[first] == '!') continue;
        std::string key;
        std::istringstream rest(line.substr(first));
        rest >> key;
        if (key == "ZONE") {
            rest >> zone;
            if (zone.empty()) throw ReadError(file, number, "ZONE without a zone number");
            out[zone] = DxPerformance{};
            continue;
        }
        if (zone.empty()) throw ReadError(file, number, "a figure before the first ZONE line");
        DxPerformance& u = out[zone];
        if (key == "OUTDOOR") {
            rest >> key;  // "FAN"
            u.outdoorFanPower = figures(rest, 1)[0];
        } else if (key == "CAPACITY") {
            u.ratedCapacity = figures(rest, 1)[0];
        } else if (key == "SHR") {
            u.ratedShr = figures(rest, 1)[0];
        } else if (key == "COP") {
            u.ratedCop = figures(rest, 1)[0];
        } else if (key == "AIRFLOW") {
            u.airFlow = figures(rest, 1)[0];
        } else if (key == "FAN") {
            u.supplyFanPower = figures(rest, 1)[0];
        } else if (key == "CAPFT" || key == "EIRFT") {
            const auto v = figures(rest, 6);
            std::copy(v.begin(), v.end(), key == "CAPFT" ? u.capFT : u.eirFT);
        } else if (key == "WETBULB" || key == "DRYBULB") {
            const auto v = figures(rest, 2);
            (key == "WETBULB" ? u.wetBulbMin : u.dryBulbMin) = v[0];
            (key == "WETBULB" ? u.wetBulbMax : u.dryBulbMax) = v[1];
        } else if (key == "PLF") {
            const auto v = figures(rest, 2);
            u.plf[0] = v[0], u.plf[1] = v[1];
        } else {
            throw ReadError(file, number, "unknown line \"" + key + "\"");
        }
        if (u.ratedShr <= 0 || u.ratedShr > 1 || u.ratedCop <= 0 || u.ratedCapacity < 0 ||
            u.airFlow < 0)
            throw ReadError(file, number, "figure out of range");
    }
    return out;
}

}  // namespace solvane::engine
