// A year of hourly weather made from the monthly statistics of the climate
// block and a seed.
//
// Method. Days first, then hours.
// Days: four standard normal series, each a first-order autoregressive
// process (persistence from one day to the next): the daily mean dry bulb
// (lag-one correlation 0.65), the daily clearness index (0.30, after Graham,
// Hollands & Unny 1988 and Graham & Hollands 1990), the dew point (0.55,
// joined to the mean temperature with correlation 0.8) and the daily maximum,
// which follows the mean (correlation 0.95) and widens with the sun
// (correlation 0.2 with clearness: clear days have a larger range), in the
// manner of the multivariate generator of Richardson (1981). Within each
// month every series is rescaled to zero mean and unit spread before the
// month's mean and standard deviation are applied, so that the generated
// month keeps the record's statistics while the day-to-day sequence is the
// seed's own. The daily global radiation is the clearness times the
// extraterrestrial radiation on the horizontal; the clearness series is
// carried through the distribution of daily clearness of Hollands & Huget
// (1983) for the month's mean clearness, which gives the skew of real skies
// (many clear days, a tail of overcast ones), as Graham & Hollands (1990) do.
// Hours: the dry bulb follows the diurnal shape of the ASHRAE Fundamentals
// (2009, ch. 14) daily range fractions, scaled so that the day has the drawn
// mean and maximum; global radiation is spread over the hours by the ratio of
// Collares-Pereira & Rabl (1979), varied from hour to hour by the TAG model
// of Aguiar & Collares-Pereira (1992), and split into beam and diffuse by the
// DISC model of Maxwell (1987) with the site's air mass; the sky long-wave comes
// from the dew point and a cloud cover estimated from the clearness.
// Random numbers: the 64-bit Mersenne Twister (std::mt19937_64, fixed by the
// C++ standard) with the Box-Muller transform written here, so the same seed
// gives the same year on every platform.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "engine/weather_data.h"

namespace solvane::engine {

// The eight monthly rows of a climate record, in the I-P units of the
// climate files: deg F, Btu/sq.ft. a day, miles per hour.
struct MonthlyClimate {
    std::array<double, 12> dryBulbMean{}, dryBulbMeanSd{};  // mean of days, SD of daily means
    std::array<double, 12> dryBulbMax{}, dryBulbMaxSd{};    // mean and SD of daily maxima
    std::array<double, 12> dewPointMean{}, dewPointSd{};    // mean and SD of daily dew points
    std::array<double, 12> solar{};                         // mean daily global horizontal
    std::array<double, 12> wind{};                          // mean speed
};

// Seed of the sequence from the project's `WeatherSeed` text (a number below
// 1, such as ".83766422"): the digits fix the seed.
std::uint64_t SeedFromText(std::string_view weatherSeed);

WeatherYear SynthesizeWeather(const MonthlyClimate& climate, const Site& site, std::uint64_t seed);

// The same statistics measured on an hourly year, as a climate record holds
// them (for checks, and to make a synthetic twin of a recorded year).
MonthlyClimate ClimateOf(const WeatherYear& year);

}  // namespace solvane::engine
