#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <vector>

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

// The Denver EPW with field `field` of data line `line` (from 1) replaced.
std::string EpwWith(int line, std::size_t field, const std::string& value) {
    static const std::string epw =
        ReadTextFile(kSource + "/tests/fixtures/weather/725650TYCST.epw").value_or("");
    std::vector<std::string> lines = SplitLines(epw);
    std::string& l = lines[static_cast<std::size_t>(line - 1)];
    std::size_t start = 0;
    for (std::size_t f = 0; f < field; ++f) start = l.find(',', start) + 1;
    const std::size_t end = l.find(',', start);
    l.replace(start, end == std::string::npos ? std::string::npos : end - start, value);
    std::string out;
    for (const auto& x : lines) out += x + "\r\n";
    return out;
}

// Values outside the limits of the EPW data dictionary are refused with the
// line and the element; its missing marks are taken as missing.
TEST(EpwReader, ValuesOutsideTheFormatsLimitsNameLineAndElement) {
    const struct {
        int line;
        std::size_t field;
        std::string value, words;
    } cases[] = {
        {21, 7, "-1e30", "dew point -1E+30 is out of range (above -70 and below 70 C"},
        {21, 13, "-5000", "global horizontal -5000 is out of range (from 0 to 9999 Wh/m2"},
        {22, 6, "70", "dry bulb 70 is out of range"},
        {23, 9, "20000", "station pressure 20000 is out of range"},
        {24, 21, "41", "wind speed 41 is out of range (from 0 to 40 m/s"},
        {25, 20, "-1", "wind direction -1 is out of range"},
        {26, 23, "11", "opaque sky cover 11 is out of range"},
        {27, 8, "abc", "relative humidity \"abc\" is not a number"},
        {1, 6, "91", "latitude 91 is out of range"},
    };
    for (const auto& c : cases) {
        try {
            ReadEpw(EpwWith(c.line, c.field, c.value), "ecalc$.tmy");
            ADD_FAILURE() << c.words;
        } catch (const ReadError& e) {
            EXPECT_EQ(e.Line(), c.line) << e.what();
            EXPECT_NE(std::string(e.what()).find(c.words), std::string::npos) << e.what();
        }
    }
    // Missing marks: pressure 999999, radiation 9999, wind 999, sky cover 99.
    std::string t = EpwWith(9, 9, "999999");
    const WeatherYear w = ReadEpw(EpwWith(9, 14, "9999"), "ecalc$.tmy");
    EXPECT_EQ(w.hours[0].directNormal, 0.0f);
    EXPECT_NEAR(ReadEpw(t, "x").hours[0].pressure, StandardPressure(1650), 1);
}

TEST(CustomWeather, ValuesOutsideTheirLimitsNameLineAndElement) {
    const std::string good = CustomFrom(Denver());
    const auto with = [&](int line, const std::string& record) {
        std::vector<std::string> lines = SplitLines(good);
        lines[static_cast<std::size_t>(line - 1)] = record;
        std::string out;
        for (const auto& x : lines) out += x + "\r\n";
        return out;
    };
    const struct {
        int line;
        std::string record, words;
    } cases[] = {
        {4, "1,1,1,20,-1e30,0,0,0,0,0,0", "dew point -1E+30 is out of range"},
        {5, "1,1,2,20,10,-5000,0,0,0,0,0", "global horizontal -5000 is out of range"},
        {6, "1,1,3,20,10,0,0,0,0,400,0", "wind direction 400 is out of range"},
        {7, "1,1,4,20,10,0,0,0", "record holds 8 of its 11 fields"},
        {8, "1,1,1e99,20,10,0,0,0,0,0,0", "hour 1E+99 is out of range"},
        {2, "\"Denver\", 95, -104.65, -7, 5413", "latitude 95 is out of range"},
    };
    for (const auto& c : cases) {
        try {
            ReadCustomWeather(with(c.line, c.record), "x.cus");
            ADD_FAILURE() << c.words;
        } catch (const ReadError& e) {
            EXPECT_EQ(e.Line(), c.line) << e.what();
            EXPECT_NE(std::string(e.what()).find(c.words), std::string::npos) << e.what();
        }
    }
}

}  // namespace
}  // namespace solvane::engine
