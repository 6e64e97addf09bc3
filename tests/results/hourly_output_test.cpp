// The hourly files of a real run, the Hourly screen's hand-over to the
// spreadsheet, and the program's own week and year plots.
#include "results/hourly_output.h"

#include <gtest/gtest.h>

#include "office_run.h"
#include "ui/raster_canvas.h"

namespace fs = std::filesystem;

namespace solvane {
namespace {

TEST(HourlyFiles, EachHasAHeaderAndAYearOfHours) {
    const auto& run = test::RunOfficeWithHourlyOutput();
    for (int choice = 1; choice <= 3; ++choice) {
        const fs::path path = run.root / "temp" / HourlyFile(choice);
        std::string error;
        const auto table = ParseHourlyCsv(ReadTextFile(path).value_or(""), path.string(), error);
        ASSERT_TRUE(table) << error;
        EXPECT_EQ(table->header[0], "Hour") << path;
        EXPECT_GE(table->header.size(), 2u);
        ASSERT_EQ(table->rows.size(), 8760u) << path;
        EXPECT_EQ(table->rows.front()[0], 1);
        EXPECT_EQ(table->rows.back()[0], 8760);
    }
    std::string error;
    const auto data = ReadHourlyData(ProgramPaths(run.root), error);
    ASSERT_TRUE(data) << error;
    EXPECT_EQ(data->zoneNames.size(), 6u);  // the office's six zones
    EXPECT_EQ(data->temperatureUnit, "F");
    EXPECT_EQ(data->loadUnit, "kBtuh");
    // Chicago: heating in January, cooling in July.
    double janHeat = 0, julCool = 0;
    for (int h = 0; h < 744; ++h) janHeat += data->heating[h];
    for (int h = 4344; h < 5088; ++h) julCool += data->cooling[h];
    EXPECT_GT(janHeat, 0);
    EXPECT_GT(julCool, 0);
}

TEST(HourlyFiles, ABadRowNamesTheFileAndLine) {
    std::string error;
    EXPECT_FALSE(ParseHourlyCsv("Hour,A\r\n1,2\r\n2\r\n", "x.hry", error));
    EXPECT_EQ(error, "x.hry line 3: 1 fields where the header has 2.");
    EXPECT_FALSE(ParseHourlyCsv("Hour,A\r\n1,two\r\n", "x.hry", error));
    EXPECT_EQ(error, "x.hry line 2: \"two\" is not a number.");
    const auto ok = ParseHourlyCsv("Hour,A\r\n1,.5\r\n2,-.25\r\n", "x.hry", error);
    ASSERT_TRUE(ok);
    EXPECT_EQ(ok->rows[1][1], -0.25);
}

TEST(HourlyScreen, HandsTheChosenFileToTheSpreadsheetOrSaysWhereItIs) {
    const auto& run = test::RunOfficeWithHourlyOutput();
    Session session;
    session.paths = ProgramPaths(run.root);
    session.model.ProjectData[kProjName] = "Lakeview Office";
    ScriptedPrompt prompt;
    std::vector<fs::path> opened;
    bool spreadsheet = true;
    HourlyController hourly(session, prompt, [&](const fs::path& p) {
        opened.push_back(p);
        return spreadsheet;
    });
    hourly.Open();
    EXPECT_EQ(hourly.fields.caption, "SOLVANE Hourly Data Output -- Lakeview Office");
    EXPECT_FALSE(hourly.ShowHourly());
    EXPECT_EQ(prompt.asked.back().title, "Display Option");
    EXPECT_EQ(prompt.asked.back().text, "You must first select a display option");
    EXPECT_TRUE(opened.empty());

    hourly.fields["HryDisplay"].value = 2;
    EXPECT_TRUE(hourly.ShowHourly());
    ASSERT_EQ(opened.size(), 1u);
    EXPECT_EQ(opened[0], run.root / "temp" / "etemp$.hry");

    spreadsheet = false;
    EXPECT_FALSE(hourly.ShowHourly());
    EXPECT_EQ(prompt.asked.back().title, "EXCEL Access Error");
    EXPECT_EQ(prompt.asked.back().text.rfind("This function cannot be performed.", 0), 0u);
    EXPECT_NE(prompt.asked.back().text.find((run.root / "temp").string()), std::string::npos);
    EXPECT_EQ(hourly.Return().show, Screen::Tabular);
}

TEST(HourlyPlot, AWeekAndAYearDrawTheirSeries) {
    HourlyData d;
    d.zoneNames = {"Zone 1-1 Lobby"};
    d.zoneTemperature.assign(1, std::vector<double>(8760, 70));
    d.outdoor.assign(8760, 30);
    d.heating.assign(8760, 0);
    d.cooling.assign(8760, 0);
    for (int h = 0; h < 8760; ++h) d.heating[h] = h % 24 < 8 ? 50 : 0;
    RasterCanvas canvas(800, 500);
    ScreenFields f;
    DrawHourlyWeek(d, 0, 2, canvas, f);
    EXPECT_EQ(f.caption, "Hourly Results -- Zone 1-1 Lobby, week 2 (Jan 8 to Jan 14)");
    int zone = 0, outdoor = 0, heat = 0;
    for (int y = 0; y < 500; ++y)
        for (int x = 0; x < 800; ++x) {
            const Color c = canvas.ColorAt(x, y);
            zone += c == 0x008000;
            outdoor += c == 0x808080;
            heat += c == 0xC00000;
        }
    EXPECT_GT(zone, 500);  // the zone line across the week
    EXPECT_GT(outdoor, 500);
    EXPECT_GT(heat, 100);

    DrawHourlyYear(d, HourlySeries::Heating, 0, canvas, f);
    EXPECT_EQ(f.caption, "Hourly Results -- Building heating load over the year");
    // Night hours (load 50) red, day hours (0) blue, at mid-year.
    const int x = 70 + (800 - 110 - 70) / 2;
    const int hour = (500 - 50 - 50) / 24;
    EXPECT_EQ(canvas.ColorAt(x, 50 + hour * 2 + hour / 2) & 0xFF0000, 0xC00000u);
    EXPECT_EQ(canvas.ColorAt(x, 50 + hour * 12 + hour / 2) & 0x0000FF, 0xC0u);
}

}  // namespace
}  // namespace solvane
