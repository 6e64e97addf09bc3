// The WYEC2 and IWEC readers: the Denver EPW year written in each form and
// read back, damaged files, the choice by weather type, and case 600 run on
// the WYEC2 year against the EPW year.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "bestest_building.h"
#include "core/item_reader.h"
#include "core/text_file.h"
#include "engine/epw_reader.h"
#include "engine/fixed_column_weather.h"
#include "engine/simulation.h"
#include "weather_format_writer.h"

namespace solvane::engine::testing {
namespace {

namespace fs = std::filesystem;
const std::string kSource = SOLVANE_SOURCE_DIR;
const StationText kStation{"725650", "DENVER INTL AP", "USA", 1995};

const WeatherYear& Denver() {
    static const WeatherYear w = ReadEpwFile(kSource + "/tests/fixtures/weather/725650TYCST.epw");
    return w;
}

const std::string& DenverWyec2() {
    static const std::string t = Wyec2File(Denver(), {"72565", "DENVER", "CO", 1995});
    return t;
}

const std::string& DenverIwec() {
    static const std::string t = IwecFile(Denver(), kStation);
    return t;
}

// Hour by hour against the EPW reader, within the rounding of the forms:
// kJ/m2 for radiation, 10 Pa for pressure, tenths for temperature and wind.
// Neither form carries the sky's long-wave: it is the estimate from the
// EPW's dry bulb, dew point and opaque cover.
void ExpectSameHours(const WeatherYear& got, int hours) {
    ASSERT_EQ(got.hours.size(), 8760u);
    for (int i = 0; i < hours; ++i) {
        const WeatherHour& a = got.hours[i];
        const WeatherHour& e = Denver().hours[i];
        SCOPED_TRACE("hour " + std::to_string(i));
        EXPECT_NEAR(a.dryBulb, e.dryBulb, 0.051);
        EXPECT_NEAR(a.dewPoint, e.dewPoint, 0.051);
        EXPECT_NEAR(a.pressure, e.pressure, 5.01);
        EXPECT_NEAR(a.globalHorizontal, e.globalHorizontal, 0.5 / 3.6 + 1e-3);
        EXPECT_NEAR(a.directNormal, e.directNormal, 0.5 / 3.6 + 1e-3);
        EXPECT_NEAR(a.diffuseHorizontal, e.diffuseHorizontal, 0.5 / 3.6 + 1e-3);
        EXPECT_NEAR(a.windSpeed, e.windSpeed, 0.051);
        EXPECT_NEAR(a.windDirection, e.windDirection, 0.5);
        EXPECT_EQ(a.opaqueSkyCover, e.opaqueSkyCover);
        EXPECT_NEAR(a.relativeHumidity, e.relativeHumidity, 3.0);
        EXPECT_NEAR(a.horizontalInfrared,
                    EstimateHorizontalInfrared(e.dryBulb, e.dewPoint, e.opaqueSkyCover), 0.5);
    }
}

TEST(Wyec2Reader, ReadsTheDenverYearBack) {
    // The first line is 116 columns with the fields where the layout says.
    const std::string first = DenverWyec2().substr(0, DenverWyec2().find("\r\n"));
    ASSERT_EQ(first.size(), 116u);
    EXPECT_EQ(first.substr(0, 14), "72565 95010101");
    EXPECT_EQ(first.substr(83, 5), " 8370");  // 83700 Pa
    EXPECT_EQ(first.substr(89, 4), "-180");   // -18.0 C
    Site project;
    project.name = "DENVER, CO";
    project.latitude = 39.83;
    project.longitude = -104.65;
    project.timeZone = -7;
    project.elevation = 1650;
    const WeatherYear w = ReadWyec2(DenverWyec2(), "denver.wy2", project);
    EXPECT_EQ(w.site.name, "WYEC2 STATION 72565");
    EXPECT_EQ(w.site.latitude, 39.83);
    EXPECT_EQ(w.site.elevation, 1650);
    ExpectSameHours(w, 14 * 24);
    // A summer week too (sun, and dew points above zero).
    const WeatherYear& e = Denver();
    for (int i = 181 * 24; i < 188 * 24; ++i) {
        EXPECT_NEAR(w.hours[i].directNormal, e.hours[i].directNormal, 0.14);
        EXPECT_NEAR(w.hours[i].dewPoint, e.hours[i].dewPoint, 0.051);
    }
}

TEST(IwecReader, ReadsTheDenverYearBackWithItsHeader) {
    const std::string head = DenverIwec().substr(0, DenverIwec().find("\r\n"));
    ASSERT_EQ(head.size(), 76u);
    const std::size_t second = DenverIwec().find("\r\n") + 2;
    EXPECT_EQ(DenverIwec().find("\r\n", second) - second, 150u);
    const WeatherYear w = ReadIwec(DenverIwec(), "denver.iwc");
    EXPECT_EQ(w.site.name, "DENVER INTL AP, USA");
    EXPECT_NEAR(w.site.latitude, 39.83, 1e-9);
    EXPECT_NEAR(w.site.longitude, -104.65, 1e-9);
    EXPECT_NEAR(w.site.timeZone, -7, 1e-9);
    EXPECT_NEAR(w.site.elevation, 1650, 1e-9);
    ExpectSameHours(w, 14 * 24);
}

// Replaces `width` columns from `column` (1-based) of data line `line`
// (1-based line of the file) with `text`.
std::string Damage(std::string file, int line, int column, const std::string& text) {
    std::size_t pos = 0;
    for (int i = 1; i < line; ++i) pos = file.find("\r\n", pos) + 2;
    file.replace(pos + column - 1, text.size(), text);
    return file;
}

std::string CutAfterLines(const std::string& file, int lines) {
    std::size_t pos = 0;
    for (int i = 0; i < lines; ++i) pos = file.find("\r\n", pos) + 2;
    return file.substr(0, pos);
}

// `read` must throw a ReadError naming `file` and `line` whose message holds `words`.
template <typename Read>
void ExpectReadError(Read read, const std::string& file, int line, const std::string& words) {
    try {
        read();
        ADD_FAILURE() << "no error, expected line " << line;
    } catch (const ReadError& e) {
        EXPECT_EQ(e.File(), file);
        EXPECT_EQ(e.Line(), line) << e.what();
        EXPECT_NE(std::string(e.what()).find(words), std::string::npos) << e.what();
    }
}

TEST(FixedColumnWeather, DamagedFilesNameTheFileAndLine) {
    const Site site;
    const auto wyec2 = [&site](const std::string& text) {
        return [text, &site] { return ReadWyec2(text, "ecalc$.tmy", site); };
    };
    // A file that stops after 100 hours.
    ExpectReadError(wyec2(CutAfterLines(DenverWyec2(), 100)), "ecalc$.tmy", 100,
                    "ends after 100 hours");
    // A letter in the dry bulb of hour 30, blanks in the wind speed of hour 31.
    ExpectReadError(wyec2(Damage(DenverWyec2(), 30, 90, "-1x0")), "ecalc$.tmy", 30,
                    "bad dry bulb in columns 90-93");
    ExpectReadError(wyec2(Damage(DenverWyec2(), 31, 104, "    ")), "ecalc$.tmy", 31,
                    "bad wind speed in columns 104-107");
    // A record cut off at column 60, and an hour out of its place.
    {
        std::string t = DenverWyec2();
        std::size_t pos = 0;
        for (int i = 1; i < 45; ++i) pos = t.find("\r\n", pos) + 2;
        t.erase(pos + 60, 116 - 60);
        ExpectReadError(wyec2(t), "ecalc$.tmy", 45, "cut short");
    }
    ExpectReadError(wyec2(Damage(DenverWyec2(), 50, 13, "03")), "ecalc$.tmy", 50,
                    "hour out of order");
    ExpectReadError(wyec2(Damage(DenverWyec2(), 60, 90, "9999")), "ecalc$.tmy", 60, "missing");
    // Values outside the elements' limits (those of the EPW dictionary).
    ExpectReadError(wyec2(Damage(DenverWyec2(), 61, 19, "-500")), "ecalc$.tmy", 61,
                    "global radiation -500 is out of range");
    ExpectReadError(wyec2(Damage(DenverWyec2(), 62, 95, "-800")), "ecalc$.tmy", 62,
                    "dew point -80 is out of range");
    ExpectReadError(wyec2(Damage(DenverWyec2(), 63, 100, "400")), "ecalc$.tmy", 63,
                    "wind direction 400 is out of range");
    ExpectReadError(wyec2(Damage(DenverWyec2(), 64, 112, "12")), "ecalc$.tmy", 64,
                    "opaque sky cover 12 is out of range");
    ExpectReadError(wyec2(""), "ecalc$.tmy", 1, "empty");

    // IWEC: the header is line 1, so hour n is line n + 1.
    const auto iwec = [](const std::string& text) {
        return [text] { return ReadIwec(text, "ecalc$.tmy"); };
    };
    ExpectReadError(iwec(Damage(DenverIwec(), 1, 55, " 39.8N ")), "ecalc$.tmy", 1, "bad latitude");
    ExpectReadError(iwec(DenverIwec().substr(0, 40)), "ecalc$.tmy", 1, "header cut short");
    ExpectReadError(iwec(Damage(DenverIwec(), 31, 93, "12.5")), "ecalc$.tmy", 31,
                    "bad dry bulb in columns 93-96");
    ExpectReadError(iwec(CutAfterLines(DenverIwec(), 8000)), "ecalc$.tmy", 8000,
                    "ends after 7999 hours");
}

TEST(FixedColumnWeather, MissingValuesTakeTheEpwFallbacks) {
    std::string t = Damage(DenverWyec2(), 13, 84, "99999");  // pressure
    t = Damage(t, 13, 112, "99");                            // opaque sky cover
    t = Damage(t, 13, 19, "9999");                           // global horizontal
    t = Damage(t, 13, 104, "9999");                          // wind speed
    Site site;
    site.elevation = 1650;
    const WeatherYear w = ReadWyec2(t, "x", site);
    const WeatherHour& h = w.hours[12];
    EXPECT_NEAR(h.pressure, StandardPressure(1650), 0.5);
    EXPECT_EQ(h.opaqueSkyCover, 5);
    EXPECT_NEAR(h.horizontalInfrared, EstimateHorizontalInfrared(h.dryBulb, h.dewPoint, 5), 1e-3);
    EXPECT_EQ(h.globalHorizontal, 0);
    EXPECT_EQ(h.windSpeed, 0);
    EXPECT_NEAR(h.directNormal, Denver().hours[12].directNormal, 0.14);  // untouched
}

TEST(FixedColumnWeather, TheControlFileTypeChoosesTheReader) {
    const Site site;
    EXPECT_EQ(ReadWeatherOfType(2, DenverWyec2(), "ecalc$.tmy", site, "ecalc$.tmp").site.name,
              "WYEC2 STATION 72565");
    EXPECT_EQ(ReadWeatherOfType(3, DenverIwec(), "ecalc$.tmy", site, "ecalc$.tmp").site.name,
              "DENVER INTL AP, USA");
    const std::string epw =
        ReadTextFile(kSource + "/tests/fixtures/weather/725650TYCST.epw").value_or("");
    for (int type : {1, 3, 4})
        EXPECT_EQ(ReadWeatherOfType(type, epw, "ecalc$.tmy", site, "ecalc$.tmp").hours[0].dryBulb,
                  -18.0f);
    // A WYEC2 file under the EPW type is refused, and an unknown type names
    // the control file's weather line.
    ExpectReadError([&] { return ReadWeatherOfType(1, DenverWyec2(), "ecalc$.tmy", site, "c"); },
                    "ecalc$.tmy", 1, "EPW");
    ExpectReadError([&] { return ReadWeatherOfType(7, epw, "ecalc$.tmy", site, "ecalc$.tmp"); },
                    "ecalc$.tmp", 2, "unknown recorded weather type 7");
}

// The samples the help screen shows are the writer's excerpts of the Denver
// year; a change of layout must show in them.
TEST(FixedColumnWeather, HelpSamplesAreTheWritersExcerpts) {
    const auto file = [](const char* name) {
        return ReadTextFile(kSource + "/data/Helpinfo/" + name).value_or("");
    };
    EXPECT_EQ(file("wyec2.txt"), Wyec2HelpSample(Denver()));
    EXPECT_EQ(file("iwec.txt"), IwecHelpSample(Denver()));
    EXPECT_EQ(file("tmy2.txt"), Tmy2HelpSample(Denver()));
    // The TMY2 excerpt's first record: 1995-01-01 hour 1, -18.0 C, 837 mbar.
    const auto lines = SplitLines(Tmy2HelpSample(Denver()));
    std::size_t rec = 0;
    while (rec < lines.size() && lines[rec].rfind(" 95010101", 0) != 0) ++rec;
    ASSERT_LT(rec, lines.size());
    ASSERT_EQ(lines[rec].size(), 142u);
    EXPECT_EQ(lines[rec].substr(67, 4), "-180");
    EXPECT_EQ(lines[rec].substr(84, 4), " 837");
}

// The engine itself: a damaged WYEC2 ecalc$.tmy under weather type 2 ends
// the run with the file and line on Monitor.txt.
TEST(FixedColumnWeather, EngineReportsADamagedWyec2File) {
    const fs::path dir = fs::temp_directory_path() / "solvane_wyec2_bad";
    fs::remove_all(dir);
    fs::create_directories(dir);
    fs::copy_file(kSource + "/tests/engine/projects/case600.inp", dir / "ecalc$.inp");
    ASSERT_TRUE(
        WriteFileAtomic(dir / "ecalc$.tmp",
                        "Run type  : 3\r\nWthr type : 2             1 \r\n1st day   :  1 "
                        "\r\nRun begin : 1\r\nRun end   : 365\r\nHourly out:  0 \r\n"
                        "Code Num  :  2 \r\nSkip month: \r\nComfort   :  68       79 \r\n"));
    ASSERT_TRUE(WriteFileAtomic(dir / "ecalc$.tmy", CutAfterLines(DenverWyec2(), 500)));
    const std::string cmd = "cd \"" + dir.string() + "\" && \"" SOLV2020_PATH "\"";
    EXPECT_NE(std::system(cmd.c_str()), 0);
    const std::string monitor = ReadTextFile(dir / "Monitor.txt").value_or("");
    EXPECT_NE(monitor.find("ERROR IN ecalc$.tmy LINE 500: "), std::string::npos) << monitor;
    EXPECT_NE(monitor.find("WYEC2 file ends after 500 hours"), std::string::npos) << monitor;
    fs::remove_all(dir);
}

// Case 600 through the year on the WYEC2 copy of Denver: heating and cooling
// within 1 % of the run on the EPW year. The copy rounds radiation to kJ/m2
// and estimates the sky's long-wave from cloud.
TEST(FixedColumnWeather, Case600OnTheWyec2YearMatchesTheEpwYear) {
    const WeatherYear wyec2 = ReadWyec2(DenverWyec2(), "denver.wy2", Denver().site);
    RunOptions opt;
    opt.keepHourly = false;
    const Building b = BestestBuilding(false, false);
    const ZoneResults epw = Simulate(b, Denver(), opt).zones.at(0);
    const ZoneResults wy = Simulate(b, wyec2, opt).zones.at(0);
    ASSERT_GT(epw.heatingEnergy, 1e6);
    ASSERT_GT(epw.coolingEnergy, 1e6);
    EXPECT_NEAR(wy.heatingEnergy, epw.heatingEnergy, 0.01 * epw.heatingEnergy);
    EXPECT_NEAR(wy.coolingEnergy, epw.coolingEnergy, 0.01 * epw.coolingEnergy);
    std::printf("case 600 heating %.4f / %.4f MWh, cooling %.4f / %.4f MWh (EPW / WYEC2)\n",
                epw.heatingEnergy / 1e6, wy.heatingEnergy / 1e6, epw.coolingEnergy / 1e6,
                wy.coolingEnergy / 1e6);
}

}  // namespace
}  // namespace solvane::engine::testing
