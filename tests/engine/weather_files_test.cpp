#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "core/item_reader.h"
#include "core/line_writer.h"
#include "core/text_file.h"
#include "engine/custom_weather.h"
#include "engine/epw_reader.h"

namespace solvane::engine {
namespace {

const std::string kSource = SOLVANE_SOURCE_DIR;

const WeatherYear& Denver() {
    static const WeatherYear w = ReadEpwFile(kSource + "/tests/fixtures/weather/725650TYCST.epw");
    return w;
}

TEST(EpwReader, ReadsTheDenverYear) {
    const WeatherYear& w = Denver();
    EXPECT_NEAR(w.site.latitude, 39.83, 1e-9);
    EXPECT_NEAR(w.site.longitude, -104.65, 1e-9);
    EXPECT_NEAR(w.site.timeZone, -7, 1e-9);
    EXPECT_NEAR(w.site.elevation, 1650, 1e-9);
    ASSERT_EQ(w.hours.size(), 8760u);
    // First record: -18.0 C, dew point -19.7 C, 83700 Pa, horizontal IR 181.
    EXPECT_FLOAT_EQ(w.hours[0].dryBulb, -18.0f);
    EXPECT_FLOAT_EQ(w.hours[0].dewPoint, -19.7f);
    EXPECT_FLOAT_EQ(w.hours[0].pressure, 83700.0f);
    EXPECT_FLOAT_EQ(w.hours[0].horizontalInfrared, 181.0f);
    ASSERT_EQ(w.groundTemperatures.size(), 12u);  // the 0.5 m record
    EXPECT_NEAR(w.groundTemperatures[0], 0.36, 1e-9);
}

TEST(EpwReader, ShortOrForeignFilesNameTheFile) {
    try {
        ReadEpw("LOCATION,X,Y,Z,S,1,40,-100,-7,100\nDATA PERIODS,1\n1995,1,1,1,0,x,5", "a.epw");
        FAIL();
    } catch (const ReadError& e) {
        EXPECT_EQ(e.File(), "a.epw");
        EXPECT_EQ(e.Line(), 3);
    }
    EXPECT_THROW(ReadEpw("WEATHER,1,2\n", "b.epw"), ReadError);
}

std::string CustomFrom(const WeatherYear& w, int breakAtLine = -1) {
    LineWriter out;
    out.Line("CUSTOM WEATHER");
    out.Line("\"Denver Intl AP, Colorado\", 39.83, -104.65, -7, 5413");
    out.Line(
        "Month,Day,Hour,DryBulb,DewPoint,GlobalHor,DirectNormal,DiffuseHor,WindSpeed,"
        "WindDir,OpaqueSky");
    for (int i = 0; i < 8760; ++i) {
        const WeatherHour& h = w.hours[i];
        const int d = i / 24, m = MonthOfDay(d);
        char buf[200];
        std::snprintf(buf, sizeof buf, "%d,%d,%d,%.2f,%.2f,%.3f,%.3f,%.3f,%.3f,%.0f,%.0f", m + 1,
                      d - kMonthStartDay[m] + 1, (i == breakAtLine ? 25 : i % 24 + 1),
                      h.dryBulb * 1.8 + 32, h.dewPoint * 1.8 + 32, h.globalHorizontal / 3.154591,
                      h.directNormal / 3.154591, h.diffuseHorizontal / 3.154591,
                      h.windSpeed / 0.44704, h.windDirection, h.opaqueSkyCover);
        out.Line(buf);
    }
    return out.Str();
}

TEST(CustomWeather, ReadsTheDocumentedFormInIP) {
    const WeatherYear c = ReadRecordedWeather(CustomFrom(Denver()), "denver.cus");
    EXPECT_EQ(c.site.name, "Denver Intl AP, Colorado");
    EXPECT_NEAR(c.site.elevation, 5413 * 0.3048, 1e-9);
    ASSERT_EQ(c.hours.size(), 8760u);
    for (int i = 0; i < 8760; i += 97) {
        EXPECT_NEAR(c.hours[i].dryBulb, Denver().hours[i].dryBulb, 0.01);
        EXPECT_NEAR(c.hours[i].directNormal, Denver().hours[i].directNormal, 0.01);
        EXPECT_NEAR(c.hours[i].windSpeed, Denver().hours[i].windSpeed, 0.01);
    }
}

TEST(CustomWeather, AHourOutOfOrderNamesItsLine) {
    try {
        ReadRecordedWeather(CustomFrom(Denver(), 100), "denver.cus");
        FAIL();
    } catch (const ReadError& e) {
        EXPECT_EQ(e.File(), "denver.cus");
        EXPECT_EQ(e.Line(), 104);
    }
    EXPECT_THROW(ReadRecordedWeather("TMY2 DATA\n", "x.tm2"), ReadError);
}

}  // namespace
}  // namespace solvane::engine
