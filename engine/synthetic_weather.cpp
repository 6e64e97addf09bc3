#include "engine/synthetic_weather.h"

#include <algorithm>
#include <cmath>
#include <random>
#include <vector>

#include "engine/sun.h"

namespace solvane::engine {
namespace {

constexpr double kBtuFt2ToWhM2 = 3.154591;  // Btu/sq.ft -> Wh/m2
constexpr double kMphToMs = 0.44704;

double FToC(double f) {
    return (f - 32.0) / 1.8;
}
double CToF(double c) {
    return c * 1.8 + 32.0;
}

// ASHRAE Fundamentals (2009) ch. 14, Table 6: fraction of the daily range
// below the day's maximum, hours ending 1 to 24.
constexpr double kRangeFraction[24] = {0.88, 0.92, 0.95, 0.98, 1.00, 0.98, 0.91, 0.74,
                                       0.55, 0.38, 0.23, 0.13, 0.05, 0.00, 0.00, 0.06,
                                       0.14, 0.24, 0.39, 0.50, 0.59, 0.68, 0.75, 0.82};

class Normal {
  public:
    explicit Normal(std::uint64_t seed) : gen_(seed) {}
    double operator()() {
        if (haveSpare_) {
            haveSpare_ = false;
            return spare_;
        }
        double u1;
        do {
            u1 = Uniform();
        } while (u1 <= 1e-300);
        const double u2 = Uniform();
        const double r = std::sqrt(-2.0 * std::log(u1));
        spare_ = r * std::sin(2 * kPiD * u2);
        haveSpare_ = true;
        return r * std::cos(2 * kPiD * u2);
    }

  private:
    double Uniform() { return (gen_() >> 11) * (1.0 / 9007199254740992.0); }
    std::mt19937_64 gen_;
    double spare_ = 0;
    bool haveSpare_ = false;
};

// Rescales values of one month to zero mean and unit standard deviation.
void Standardise(std::vector<double>& v, int from, int to) {
    const int n = to - from;
    double m = 0;
    for (int i = from; i < to; ++i) m += v[i];
    m /= n;
    double s = 0;
    for (int i = from; i < to; ++i) s += (v[i] - m) * (v[i] - m);
    s = std::sqrt(s / n);
    if (s < 1e-12) s = 1;
    for (int i = from; i < to; ++i) v[i] = (v[i] - m) / s;
}

// Daily extraterrestrial radiation on a horizontal plane (Wh/m2) and the
// sunset hour angle (Duffie & Beckman 2013, eq. 1.10.3).
void DailyExtraterrestrial(int day, double latDeg, double& h0, double& sunset) {
    const double decl = 23.45 * kDeg * std::sin(2 * kPiD * (284 + day) / 365.0);
    const double phi = latDeg * kDeg;
    const double c = std::clamp(-std::tan(phi) * std::tan(decl), -1.0, 1.0);
    sunset = std::acos(c);
    const double gsc = 1367.0 * (1 + 0.033 * std::cos(2 * kPiD * day / 365.0));
    h0 = 24.0 / kPiD * gsc *
         (std::cos(phi) * std::cos(decl) * std::sin(sunset) +
          sunset * std::sin(phi) * std::sin(decl));
    h0 = std::max(h0, 0.0);
}

// Direct normal irradiance from the global by the DISC model of Maxwell
// (1987): the clear-sky beam transmittance by absolute air mass, less a
// correction by the hourly clearness index. The air mass is corrected for
// the site's pressure, so a high site gets its thinner atmosphere.
double DiscDirectNormal(double ghi, double cosZenith, double extraterrestrialNormal,
                        double pressure) {
    if (ghi <= 0 || cosZenith <= std::cos(87.0 * kDeg)) return 0.0;
    const double zDeg = std::acos(std::clamp(cosZenith, -1.0, 1.0)) / kDeg;
    // Relative air mass of Kasten (1966), times the pressure ratio.
    const double am = std::min(
        12.0, 1.0 / (cosZenith + 0.15 * std::pow(93.885 - zDeg, -1.253)) * pressure / 101325.0);
    const double kt = std::max(0.0, ghi / (extraterrestrialNormal * cosZenith));
    double a, b, c;
    if (kt <= 0.6) {
        a = 0.512 - 1.56 * kt + 2.286 * kt * kt - 2.222 * kt * kt * kt;
        b = 0.37 + 0.962 * kt;
        c = -0.28 + 0.932 * kt - 2.048 * kt * kt;
    } else {
        a = -5.743 + 21.77 * kt - 27.49 * kt * kt + 11.56 * kt * kt * kt;
        b = 41.4 - 118.5 * kt + 66.05 * kt * kt + 31.9 * kt * kt * kt;
        c = -47.01 + 184.2 * kt - 222.0 * kt * kt + 73.81 * kt * kt * kt;
    }
    const double knc = 0.866 - 0.122 * am + 0.0121 * am * am - 0.000653 * am * am * am +
                       1.4e-5 * am * am * am * am;
    const double dni = (knc - (a + b * std::exp(c * am))) * extraterrestrialNormal;
    return std::clamp(dni, 0.0, ghi / cosZenith);
}

// Hollands & Huget (1983): daily clearness k has the density
// C (k_u - k) exp(lambda k) on 0..k_u, with k_u = 0.864 and lambda set by
// the monthly mean. Quantiles from the tabulated distribution function.
constexpr double kClearnessMax = 0.864;
class ClearnessDistribution {
  public:
    explicit ClearnessDistribution(double mean) {
        double lo = -60, hi = 60;
        for (int i = 0; i < 80; ++i) {
            const double mid = 0.5 * (lo + hi);
            Tabulate(mid);
            if (mean_ < mean)
                lo = mid;
            else
                hi = mid;
        }
        Tabulate(0.5 * (lo + hi));
    }
    double Quantile(double u) const {
        u = std::clamp(u, 0.0, 1.0);
        const auto it = std::lower_bound(cdf_.begin(), cdf_.end(), u);
        const std::size_t i = std::min<std::size_t>(it - cdf_.begin(), kN);
        if (i == 0) return 0.0;
        const double f0 = cdf_[i - 1], f1 = cdf_[i];
        const double w = f1 > f0 ? (u - f0) / (f1 - f0) : 0.0;
        return kClearnessMax * (i - 1 + w) / kN;
    }

  private:
    static constexpr int kN = 400;
    void Tabulate(double lambda) {
        cdf_.assign(kN + 1, 0.0);
        double sum = 0, first = 0;
        for (int i = 1; i <= kN; ++i) {
            const double k = kClearnessMax * (i - 0.5) / kN;
            const double p = (kClearnessMax - k) * std::exp(lambda * (k - kClearnessMax));
            sum += p;
            first += p * k;
            cdf_[i] = sum;
        }
        for (double& c : cdf_) c /= sum;
        mean_ = first / sum;
    }
    std::vector<double> cdf_;
    double mean_ = 0;
};

}  // namespace

std::uint64_t SeedFromText(std::string_view text) {
    // FNV-1a over the characters that matter (digits and the point).
    std::uint64_t h = 1469598103934665603ull;
    for (char c : text) {
        if (c == ' ') continue;
        h ^= static_cast<unsigned char>(c);
        h *= 1099511628211ull;
    }
    return h;
}

WeatherYear SynthesizeWeather(const MonthlyClimate& cl, const Site& site, std::uint64_t seed) {
    Normal rnd(seed);
    constexpr int kDays = 365;
    std::vector<double> zT(kDays), zK(kDays), zD(kDays), zX(kDays);
    double pT = 0, pK = 0, pD = 0;
    for (int d = 0; d < kDays; ++d) {
        pT = 0.65 * pT + std::sqrt(1 - 0.65 * 0.65) * rnd();
        pK = 0.30 * pK + std::sqrt(1 - 0.30 * 0.30) * rnd();
        pD = 0.55 * pD + std::sqrt(1 - 0.55 * 0.55) * rnd();
        zT[d] = pT;
        zK[d] = pK;
        zD[d] = 0.8 * pT + 0.6 * pD;
        zX[d] = 0.95 * pT + 0.2 * pK + std::sqrt(1 - 0.95 * 0.95 - 0.2 * 0.2) * rnd();
    }
    std::vector<double> tMean(kDays), tMax(kDays), tDew(kDays), kt(kDays), h0(kDays), sunset(kDays);
    for (int m = 0; m < 12; ++m) {
        const int a = kMonthStartDay[m], b = kMonthStartDay[m + 1];
        for (auto* z : {&zT, &zK, &zD, &zX}) Standardise(*z, a, b);
        // Monthly mean clearness from the record's solar and the
        // extraterrestrial radiation of the month.
        double h0Sum = 0;
        for (int d = a; d < b; ++d) {
            DailyExtraterrestrial(d + 1, site.latitude, h0[d], sunset[d]);
            h0Sum += h0[d];
        }
        const double hMean = cl.solar[m] * kBtuFt2ToWhM2;
        const double kMean = h0Sum > 0 ? std::clamp(hMean * (b - a) / h0Sum, 0.02, 0.85) : 0.0;
        const ClearnessDistribution dist(kMean);
        double fMean = 0;
        for (double f : kRangeFraction) fMean += f / 24;
        for (int d = a; d < b; ++d) {
            tMean[d] = cl.dryBulbMean[m] + cl.dryBulbMeanSd[m] * zT[d];
            tDew[d] = cl.dewPointMean[m] + cl.dewPointSd[m] * zD[d];
            kt[d] = dist.Quantile(0.5 * std::erfc(-zK[d] / std::sqrt(2.0)));
        }
        // The maximum stays above the mean: days that would fall below are
        // held at the mean plus 0.5 F and the month is shifted to keep its
        // mean maximum.
        double shift = 0;
        for (int iter = 0; iter < 30; ++iter) {
            double sum = 0;
            for (int d = a; d < b; ++d) {
                tMax[d] =
                    std::max(cl.dryBulbMax[m] + cl.dryBulbMaxSd[m] * zX[d] + shift, tMean[d] + 0.5);
                sum += tMax[d];
            }
            const double err = cl.dryBulbMax[m] - sum / (b - a);
            if (std::abs(err) < 1e-6) break;
            shift += err;
        }
        // The dew point stays at or below the day's lowest temperature; the
        // month's mean and spread are restored around the held days.
        shift = 0;
        double scale = 1;
        for (int iter = 0; iter < 200; ++iter) {
            double sum = 0, sq = 0;
            for (int d = a; d < b; ++d) {
                const double tMin = tMean[d] + (tMax[d] - tMean[d]) * (fMean - 1) / fMean;
                tDew[d] =
                    std::min(cl.dewPointMean[m] + shift + cl.dewPointSd[m] * scale * zD[d], tMin);
                sum += tDew[d];
                sq += tDew[d] * tDew[d];
            }
            const double mu = sum / (b - a);
            const double sd = std::sqrt(std::max(sq / (b - a) - mu * mu, 1e-12));
            if (std::abs(mu - cl.dewPointMean[m]) < 1e-4 &&
                std::abs(sd - cl.dewPointSd[m]) < 1e-3 * (1 + cl.dewPointSd[m]))
                break;
            shift += cl.dewPointMean[m] - mu;
            if (cl.dewPointSd[m] > 0) scale = std::min(scale * cl.dewPointSd[m] / sd, 8.0);
        }
        // Clearness stays physical; the month's sum is restored after the
        // clipping by a few proportional corrections.
        for (int iter = 0; iter < 20; ++iter) {
            double sum = 0;
            for (int d = a; d < b; ++d) {
                kt[d] = std::clamp(kt[d], 0.02, kClearnessMax);
                sum += kt[d] * h0[d];
            }
            if (sum <= 0 || std::abs(sum - hMean * (b - a)) < 1e-6 * (1 + sum)) break;
            const double f = hMean * (b - a) / sum;
            for (int d = a; d < b; ++d) kt[d] *= f;
        }
    }

    WeatherYear w;
    w.site = site;
    w.hours.resize(kHoursPerYear);
    const double pressure = StandardPressure(site.elevation);
    double fMean = 0;
    for (double f : kRangeFraction) fMean += f / 24;
    for (int d = 0; d < kDays; ++d) {
        const int m = MonthOfDay(d);
        const double amp = tMax[d] - tMean[d];
        // Hourly global radiation: Collares-Pereira & Rabl weights at the
        // hour's sun, normalised to the day's total.
        std::array<double, 24> weight{};
        std::array<SunPosition, 24> sun;
        double wSum = 0;
        const double ws = sunset[d];
        const double phi = site.latitude * kDeg;
        const double decl = 23.45 * kDeg * std::sin(2 * kPiD * (284 + d + 1) / 365.0);
        const double aa = 0.409 + 0.5016 * std::sin(ws - kPiD / 3);
        const double bb = 0.6609 - 0.4767 * std::sin(ws - kPiD / 3);
        for (int h = 0; h < 24; ++h) {
            sun[h] = HourSunPosition(d + 1, h + 1, site.latitude, site.longitude, site.timeZone);
            if (!sun[h].aboveHorizon) continue;
            // r_t is proportional to (a + b cos w)(cos w - cos ws), and the
            // second factor to the sine of the altitude.
            const double cw = std::clamp((sun[h].up - std::sin(phi) * std::sin(decl)) /
                                             std::max(std::cos(phi) * std::cos(decl), 1e-9),
                                         -1.0, 1.0);
            const double rt = (aa + bb * cw) * sun[h].up;
            weight[h] = std::max(rt, 0.0);
            wSum += weight[h];
        }
        const double hDay = kt[d] * h0[d];
        // Hour-to-hour variability of the clearness about the smooth day
        // (Aguiar & Collares-Pereira 1992, the TAG model): an autoregressive
        // residual of lag-one correlation phi and spread sigma(altitude),
        // both set by the day's clearness; the hours are then scaled back to
        // the day's total.
        if (wSum > 0) {
            const double K = kt[d];
            const double phiAr = 0.148 + 2.356 * K - 5.195 * K * K + 3.758 * K * K * K;
            const double amp0 = 0.14 * std::exp(-20 * (K - 0.35) * (K - 0.35));
            const double bExp = 3 * (K - 0.45) * (K - 0.45) + 16 * std::pow(K, 5);
            double y = 0, sum = 0;
            for (int h = 0; h < 24; ++h) {
                if (weight[h] <= 0) continue;
                const double extra = sun[h].extraterrestrial * sun[h].up;
                const double ktMean = hDay * weight[h] / wSum / std::max(extra, 1e-9);
                y = phiAr * y + std::sqrt(std::max(0.0, 1 - phiAr * phiAr)) * rnd();
                const double sigma = amp0 * std::exp(bExp * (1 - sun[h].up));
                const double ktHour = std::clamp(ktMean + sigma * y, 0.0, kClearnessMax);
                weight[h] = ktHour * extra;
                sum += weight[h];
            }
            wSum = sum;
        }
        const double cover = std::clamp(10.0 * (1.0 - kt[d] / 0.75), 0.0, 10.0);
        for (int h = 0; h < 24; ++h) {
            WeatherHour& wh = w.hours[d * 24 + h];
            const double s = (fMean - kRangeFraction[h]) / fMean;
            const double tF = tMean[d] + amp * s;
            wh.dryBulb = static_cast<float>(FToC(tF));
            wh.dewPoint = static_cast<float>(FToC(std::min(tDew[d], tF)));
            wh.relativeHumidity = static_cast<float>(RelativeHumidity(wh.dryBulb, wh.dewPoint));
            wh.pressure = static_cast<float>(pressure);
            wh.windSpeed = static_cast<float>(cl.wind[m] * kMphToMs);
            wh.windDirection = 0;
            wh.opaqueSkyCover = static_cast<float>(cover);
            wh.horizontalInfrared =
                static_cast<float>(EstimateHorizontalInfrared(wh.dryBulb, wh.dewPoint, cover));
            if (wSum <= 0 || weight[h] <= 0) continue;
            const double ghi = hDay * weight[h] / wSum;
            const double dni = DiscDirectNormal(ghi, sun[h].up, sun[h].extraterrestrial, pressure);
            wh.globalHorizontal = static_cast<float>(ghi);
            wh.directNormal = static_cast<float>(dni);
            wh.diffuseHorizontal = static_cast<float>(std::max(0.0, ghi - dni * sun[h].up));
        }
    }
    return w;
}

MonthlyClimate ClimateOf(const WeatherYear& y) {
    MonthlyClimate c;
    for (int m = 0; m < 12; ++m) {
        const int a = kMonthStartDay[m], b = kMonthStartDay[m + 1], n = b - a;
        std::vector<double> mean(n), mx(n), dew(n), sol(n);
        double wind = 0;
        for (int d = a; d < b; ++d) {
            double s = 0, x = -1e9, dp = 0, g = 0;
            for (int h = 0; h < 24; ++h) {
                const WeatherHour& wh = y.hours[d * 24 + h];
                s += CToF(wh.dryBulb) / 24;
                x = std::max(x, CToF(wh.dryBulb));
                dp += CToF(wh.dewPoint) / 24;
                g += wh.globalHorizontal / kBtuFt2ToWhM2;
                wind += wh.windSpeed / kMphToMs / (24.0 * n);
            }
            mean[d - a] = s, mx[d - a] = x, dew[d - a] = dp, sol[d - a] = g;
        }
        auto stats = [&](const std::vector<double>& v, double& mu, double& sd) {
            mu = 0;
            for (double x : v) mu += x / n;
            sd = 0;
            for (double x : v) sd += (x - mu) * (x - mu) / n;
            sd = std::sqrt(sd);
        };
        double ignore;
        stats(mean, c.dryBulbMean[m], c.dryBulbMeanSd[m]);
        stats(mx, c.dryBulbMax[m], c.dryBulbMaxSd[m]);
        stats(dew, c.dewPointMean[m], c.dewPointSd[m]);
        stats(sol, c.solar[m], ignore);
        c.wind[m] = wind;
    }
    return c;
}

}  // namespace solvane::engine
