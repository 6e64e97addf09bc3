// The location screen over a small database in a temporary program folder.
#include <gtest/gtest.h>

#include "core/line_writer.h"
#include "core/text_file.h"
#include "tests/weather/weather_test_support.h"
#include "ui/scripted_prompt.h"
#include "weather/weather_screen.h"

namespace fs = std::filesystem;
using namespace solvane;

namespace {

class WeatherScreenTest : public ::testing::Test {
  protected:
    void SetUp() override {
        dir = test::MakeProgramDir(::testing::UnitTest::GetInstance()->current_test_info()->name());
        paths = ProgramPaths(dir);
        auto kenya = test::Station(3, "KEN", "Kenya", "Nairobi", -1.3);
        kenya.zone = "3 C";
        kenya.marker = "*";
        rows = {
            test::Station(1, "AL", "Alabama", "Albertville Muni AP"),
            test::Station(1, "AL", "Alabama", "Birmingham"),
            test::Station(1, "AK", "Alaska", "Anchorage"),
            test::Station(1, "AK", "Alaska", "Juneau"),
            test::Station(2, "AB", "Alberta", "Abee AgDM"),
            test::Station(2, "BC", "British Columbia", "Birmingham"),
            kenya,
        };
        rows[1].hdd65 = 2500;
        rows[1].zone = "3 A";
        rows[1].marker = "#";
        rows[2].zone = "7  ";
        test::WriteDatabase(dir, rows);
        Reload();
    }
    void TearDown() override { fs::remove_all(dir); }

    void Reload() {
        index = ClimateIndex();
        LoadLocationCounts(paths, index);
        screen = std::make_unique<WeatherScreen>(model, paths, prompt, index);
    }
    std::string RegionFile(int r) { return test::ReadAll(paths.Resolve(RegionFilePath(r))); }
    std::vector<std::string> RegionLines(int r) { return SplitLines(RegionFile(r)); }
    std::string F(const std::string& name) { return screen->fields[name].text; }
    std::string Cell(const char* row, int m) { return screen->fields.At(row, m).text; }
    std::vector<std::string> Titles() {
        std::vector<std::string> t;
        for (const auto& a : prompt.asked) t.push_back(a.title);
        return t;
    }

    fs::path dir;
    ProgramPaths paths;
    std::vector<climate_tools::StationRow> rows;
    ClimateIndex index;
    ProjectModel model;
    ScriptedPrompt prompt;
    std::unique_ptr<WeatherScreen> screen;
};

TEST_F(WeatherScreenTest, OpensOnTheDefaultCityInIp) {
    model.session.Units = 1;
    screen->Activate();
    EXPECT_EQ(screen->CurrentRegion, 1);
    EXPECT_EQ(screen->fields.At("Option1", 0).value, 1);
    EXPECT_EQ(screen->fields.At("Option1", 5).text, "Central and South America");
    EXPECT_EQ(screen->Combo1Items, (std::vector<std::string>{"Alabama", "Alaska"}));
    EXPECT_EQ(screen->Combo3Items, (std::vector<std::string>{"Albertville Muni AP", "Birmingham"}));
    EXPECT_EQ(F("Label1"), "Alabama  (2 Weather data sites)");
    EXPECT_EQ(F("CityNum"), "City # 1 of 4");
    EXPECT_EQ(F("citytext"), "Albertville Muni AP");
    EXPECT_EQ(F("WMO"), "123450");
    EXPECT_EQ(F("latitude"), "   40");
    EXPECT_EQ(F("longitude"), "-100.5");
    EXPECT_EQ(F("timezone"), "  -90");
    EXPECT_EQ(F("latlabel"), "N. Latitude");
    EXPECT_EQ(F("longlabel"), "W. Long.");
    EXPECT_EQ(F("elev"), "1000");
    EXPECT_EQ(F("HDDV"), "5400");
    EXPECT_EQ(F("CDDV"), "620");
    EXPECT_EQ(F("CLzoneV"), "4 A");
    EXPECT_EQ(Cell("dbave", 1), " 11.5");
    EXPECT_EQ(Cell("wind", 12), "   10");
    EXPECT_EQ(Cell("solar", 3), " 1500");
    EXPECT_EQ(Cell("extdb", 4), "0.0");
    EXPECT_EQ(screen->fields.At("unt", 7).text, "Btu/sq.ft.");
    EXPECT_EQ(screen->fields.At("Text12", 0).text, "2 states, 4 cities");
    EXPECT_EQ(screen->fields.At("Text12", 6).text, "0 country, 0 cities");
    EXPECT_EQ(F("totals"), "Totals = 3 Countries, 7 Cities");
    EXPECT_EQ(screen->CityMarker, "@");
    EXPECT_EQ(F("Picture1"), paths.Resolve("\\weather\\Region1\\USA.jpg").string());
    EXPECT_EQ(test::ReadAll(dir / "tempTest.out"),
              "Missing or corrupt city names (if any) are listed here:\r\n");
    EXPECT_TRUE(prompt.asked.empty());
}

TEST_F(WeatherScreenTest, SiUnitsConvertOnReading) {
    model.session.Units = 2;
    screen->Activate();
    EXPECT_EQ(F("elev"), "304.8");
    EXPECT_EQ(F("HDDV"), "3000");
    EXPECT_EQ(F("CDDV"), "344");
    EXPECT_EQ(Cell("solar", 1), "17035");
    EXPECT_EQ(Cell("wind", 1), "  4.5");
    EXPECT_EQ(Cell("dbave", 1), "-11.4");   // 11.5 F
    EXPECT_EQ(Cell("avestd", 1), " 11.9");  // 21.5 F difference
    EXPECT_EQ(screen->fields.At("unt", 8).text, "m/sec.");
    EXPECT_EQ(screen->fields.At("unt", 10).text, "Deg. C");
}

TEST_F(WeatherScreenTest, StateCityAndRegionChoices) {
    model.session.Units = 1;
    screen->Activate();
    screen->ChooseState("Alaska   ");
    EXPECT_EQ(F("sttext"), "Alaska");
    EXPECT_EQ(F("Label1"), "Alaska  (2 Weather data sites)");
    EXPECT_EQ(F("citytext"), "Anchorage");  // the new list opens on its first city
    EXPECT_EQ(F("CityNum"), "City # 3 of 4");
    EXPECT_EQ(F("CLzoneV"), "7  ");
    screen->ChooseCity("Juneau");
    EXPECT_EQ(F("CityNum"), "City # 4 of 4");

    // A city name shared by two states of a region: the first in the file wins.
    screen->ChooseRegion(2);
    EXPECT_EQ(F("status"), "Canada Files: 2 Provinces, 2 Cities.");
    EXPECT_EQ(F("citytext"), "Abee AgDM");
    EXPECT_EQ(screen->fields.At("Text12", 1).color, 0x00FFFFu);
    screen->ChooseState("British Columbia");
    EXPECT_EQ(F("citytext"), "Birmingham");
    EXPECT_EQ(F("CityNum"), "City # 2 of 2");

    screen->ChooseRegion(1);
    screen->ChooseCity("Birmingham");
    EXPECT_EQ(F("CityNum"), "City # 2 of 4");
    EXPECT_EQ(screen->CityMarker, "#");

    // Kenya: southern latitude, the country's own map.
    screen->ChooseRegion(3);
    EXPECT_EQ(F("citytext"), "Nairobi");
    EXPECT_EQ(F("latlabel"), "S. Latitude");
    EXPECT_EQ(F("Picture3"), paths.Resolve("\\weather\\Region3\\Kenya.jpg").string());

    // A city that is not in the region leaves the record shown and names the
    // last record read.
    screen->ChooseCity("Atlantis");
    EXPECT_EQ(F("citytext"), "Nairobi");
    EXPECT_EQ(F("CityNum"), "City # 1 of 1");
}

TEST_F(WeatherScreenTest, KeysAndDerivedDeviations) {
    model.session.Units = 1;
    screen->Activate();
    EXPECT_EQ(screen->KeyPress("sttext", 'a'), 'A');
    EXPECT_EQ(screen->CityEdited, 1);
    screen->CityEdited = 0;
    EXPECT_EQ(screen->KeyPress("dbave_3", 'x'), 0);
    ASSERT_EQ(prompt.asked.size(), 1u);
    EXPECT_EQ(prompt.asked[0].text, "Please use numerical values.");
    EXPECT_EQ(prompt.asked[0].title, "Error");
    EXPECT_EQ(screen->CityEdited, 0);
    for (int key : {int('7'), int('-'), int('.'), 8, 9, 13})
        EXPECT_EQ(screen->KeyPress("latitude", key), key);
    EXPECT_EQ(screen->KeyPress("annext_12", '1'), '1');
    EXPECT_EQ(screen->CityEdited, 1);
    EXPECT_EQ(screen->KeyPress("Combo1", 'q'), 'q');  // not a record field

    screen->fields.At("dbmax", 5).text = "90";
    screen->fields.At("extdb", 5).text = "105";
    screen->DeriveDeviations(false, 5);
    EXPECT_EQ(Cell("mxstd", 5), "4.8");
    EXPECT_EQ(Cell("avestd", 5), "4.2");
    EXPECT_EQ(Cell("dpstd", 5), "4.2");
    screen->fields.At("annext", 5).text = "105";
    screen->DeriveDeviations(true, 5);
    EXPECT_EQ(Cell("mxstd", 5), "7.1");
    EXPECT_EQ(Cell("avestd", 5), "6.2");
    EXPECT_EQ(Cell("dpstd", 5), "6.2");
}

TEST_F(WeatherScreenTest, WrittenRecordCutsTheNameAndConvertsBack) {
    model.session.Units = 1;
    screen->Activate();
    screen->fields["citytext"].text = std::string(35, 'N');  // + ", Alabama" = 44
    const std::string record = screen->WriteCityRecord("\"AL\",\"x\",\"1 2 4 A\"");
    const auto lines = SplitLines(record);
    ASSERT_EQ(lines.size(), 10u);
    EXPECT_EQ(lines[0], "\"AL\",\"x\",\"1 2 4 A\"");
    EXPECT_EQ(lines[1].substr(0, 42), "\"" + std::string(35, 'N') + ", Ala\"");
    EXPECT_EQ(lines[1].substr(42), " \"123450\"  40 -100.5 -90  1000 ");
    EXPECT_EQ(lines[2].substr(0, 12), "  11.5  12.5");
    EXPECT_EQ(lines[8].substr(0, 12), "  1500  1500");

    // In SI the screen's values go back to I-P; elevation through 3.2808.
    model.session.Units = 2;
    screen->ChooseCity("Birmingham");
    const auto si = SplitLines(screen->WriteCityRecord(""));
    EXPECT_EQ(si[0], "");
    EXPECT_EQ(si[1].substr(42), " \"123450\"  40 -100.5 -90  1000 ");  // 304.8 m
    EXPECT_EQ(si[2].substr(0, 12), "  11.5  12.6");  // -10.8 C: the accepted drift
    EXPECT_EQ(si[8].substr(0, 12), "  1500  1500");
    EXPECT_EQ(si[9].substr(0, 12), "  10.1  10.1");  // 4.5 m/s: the accepted drift
}

TEST_F(WeatherScreenTest, UpdateTakesTheFirstLineOfTheRecordAhead) {
    model.session.Units = 1;
    screen->Activate();
    screen->ChooseState("Alaska");  // Anchorage, record 3, first of Alaska
    screen->fields.At("dbave", 1).text = "99.9";
    screen->KeyPress("dbave_1", '9');
    const auto before = RegionLines(1);
    screen->SaveAsUpdate();
    const auto after = RegionLines(1);
    ASSERT_EQ(after.size(), before.size());
    for (std::size_t i = 0; i < after.size(); ++i) {
        if (i >= 20 && i <= 22) continue;
        EXPECT_EQ(after[i], before[i]) << i;
    }
    EXPECT_EQ(after[20], before[10]);  // Birmingham's first line: key "AL", its header
    EXPECT_EQ(after[21].substr(0, 19), "\"Anchorage, Alaska ");  // no marker written
    EXPECT_EQ(after[22].substr(0, 12), "  99.9  12.5");
    EXPECT_EQ(screen->CityEdited, 0);
    EXPECT_FALSE(fs::exists(dir / "weather" / "temp.asc"));
    EXPECT_EQ(index.RegionCityCount[1], 4);

    // Without an edit nothing is written.
    const std::string unchanged = RegionFile(1);
    screen->SaveAsUpdate();
    EXPECT_EQ(prompt.asked.back().title, "Message");
    EXPECT_EQ(prompt.asked.back().text,
              "No new data have been entered.  Current data will not be saved into the database.");
    EXPECT_EQ(RegionFile(1), unchanged);
    const Navigation stay = screen->SaveAsNew();
    EXPECT_EQ(stay.show, Screen::None);
    EXPECT_EQ(RegionFile(1), unchanged);
}

TEST_F(WeatherScreenTest, AddInheritsTheCurrentRecordsFirstLine) {
    model.session.Units = 1;
    screen->Activate();  // Albertville, record 1
    screen->fields["citytext"].text = "Arab";
    screen->KeyPress("citytext", 'b');
    const auto before = RegionLines(1);
    const Navigation nav = screen->SaveAsNew();
    EXPECT_EQ(nav.show, Screen::MainMenu);
    EXPECT_EQ(prompt.asked.back().title, "City added confirmation.");
    EXPECT_EQ(prompt.asked.back().text, "City File has been added to database");
    const auto after = RegionLines(1);
    ASSERT_EQ(after.size(), before.size() + 10);
    EXPECT_EQ(after[10], before[0]);
    EXPECT_EQ(after[11].substr(0, 42), "\"Arab, Alabama" + std::string(27, ' ') + "\"");
    for (std::size_t i = 20; i < after.size(); ++i) EXPECT_EQ(after[i], before[i - 10]);
    EXPECT_EQ(index.RegionCityCount[1], 5);
    EXPECT_EQ(index.TotalCities, 8);
}

TEST_F(WeatherScreenTest, DeleteShiftsTheNextStateIntoTheList) {
    model.session.Units = 1;
    screen->Activate();
    screen->ChooseCity("Birmingham");
    prompt.Queue(Answer::No);
    EXPECT_EQ(screen->DeleteCity().show, Screen::None);
    const auto before = RegionLines(1);
    const Navigation nav = screen->DeleteCity();
    EXPECT_EQ(nav.show, Screen::MainMenu);
    EXPECT_EQ(prompt.asked[0].title, "Caution: City data will be removed.");
    EXPECT_EQ(prompt.asked.back().title, "City delete confirmation.");
    const auto after = RegionLines(1);
    ASSERT_EQ(after.size(), before.size() - 10);
    EXPECT_EQ(after[10], before[20]);
    EXPECT_EQ(index.TotalCities, 6);
    // The state's count is not reduced until restart: Alabama now lists
    // Alaska's first city.
    screen->ChooseState("Alabama");
    EXPECT_EQ(screen->Combo3Items, (std::vector<std::string>{"Albertville Muni AP", "Anchorage"}));
}

TEST_F(WeatherScreenTest, OkFillsTheClimateBlock) {
    model.session.Units = 1;
    screen->Activate();
    screen->ChooseCity("Birmingham");
    const Navigation nav = screen->Ok();
    EXPECT_EQ(nav.show, Screen::MainMenu);
    EXPECT_TRUE(nav.hideCurrent);
    EXPECT_EQ(Titles(),
              (std::vector<std::string>{"Climate Data change?", "Overhang shade requirement."}));
    const auto& wd = model.climate.WeatherData;
    EXPECT_EQ(wd[1],
              "          HDD = 2500        CDD = 620             WMO#   Lat.  Long.  STM.  Elev");
    EXPECT_EQ(wd[2],
              "Birmingham, Alabama #" + std::string(29, ' ') + "123450    40-100.5   -90  1000");
    EXPECT_EQ(wd[3],
              "             Jan   Feb   Mar   Apr   May   Jun   Jul   Aug   Sep   Oct   Nov   Dec");
    EXPECT_EQ(wd[4], "  11.5  12.5  13.5  14.5  15.5  16.5  17.5  18.5  19.5  20.5  21.5  22.5");
    EXPECT_EQ(wd[10].substr(0, 12), "  1500  1500");
    EXPECT_EQ(wd[11].substr(0, 12), "    10    10");
    EXPECT_EQ(model.ProjectData[kLocation], "Birmingham, Alabama #");
    EXPECT_EQ(model.ProjectData[kClimateZoneCopy], "3 A");
    EXPECT_EQ(model.session.ClimateZone, "3 A");
    EXPECT_EQ(model.climate.HDDText, "2500");
    EXPECT_EQ(model.climate.HeatingDegreeDays, 2500);
    EXPECT_EQ(model.climate.Latitude, 40);
    EXPECT_EQ(model.climate.WMONumber, "123450");
    EXPECT_EQ(model.flags.TaskDone[2], 1);
    EXPECT_EQ(model.flags.LocationKnown, 1);
    // Northern hemisphere: south, east and west get the overhangs.
    EXPECT_EQ(model.sizer.PFFirst[0], 0.0f);
    EXPECT_EQ(model.sizer.PFFirst[2], 0.5f);
    EXPECT_EQ(model.sizer.PFUpperWork[3], 0.25f);
    EXPECT_EQ(screen->WeatherScreenDone, 1);

    // The next activation only clears the flag; the one after reloads the
    // block and finds the city again.
    screen->Activate();
    EXPECT_EQ(screen->WeatherScreenDone, 0);
    screen->Activate();
    EXPECT_EQ(F("citytext"), "Birmingham");
    EXPECT_EQ(screen->FileLocationState.substr(0, 9), "Alabama #");
}

TEST_F(WeatherScreenTest, OkInTheSouthAndTheExemptZones) {
    model.session.Units = 1;
    screen->Activate();
    screen->ChooseRegion(3);  // Nairobi, 3 C, south of the equator
    screen->Ok();
    EXPECT_EQ(prompt.asked.back().title, "Overhang shade requirement.");
    EXPECT_EQ(model.sizer.PFFirst[0], 0.5f);
    EXPECT_EQ(model.sizer.PFFirst[2], 0.0f);
    EXPECT_EQ(model.sizer.PFUpper[1], 0.25f);
    EXPECT_EQ(model.sizer.PFFirstWork[0], 0.5f);
    EXPECT_EQ(model.ProjectData[kLocation], "Nairobi, Kenya *");

    EXPECT_TRUE(OverhangExempt("4 A"));
    EXPECT_TRUE(OverhangExempt("5 A"));
    EXPECT_TRUE(OverhangExempt("7  "));
    EXPECT_FALSE(OverhangExempt("4 B"));
    EXPECT_FALSE(OverhangExempt("4 C"));
    EXPECT_FALSE(OverhangExempt("3 C"));
    EXPECT_FALSE(OverhangExempt(""));
}

TEST_F(WeatherScreenTest, OkStopsOnEmptyStateAndOnSavePrompt) {
    model.session.Units = 1;
    screen->Activate();
    screen->fields["sttext"].text = "";
    EXPECT_EQ(screen->Ok().show, Screen::MainMenu);
    EXPECT_TRUE(prompt.asked.empty());
    EXPECT_EQ(model.ProjectData[kLocation], "");
    EXPECT_EQ(model.flags.TaskDone[2], 0);

    screen->WeatherScreenDone = 0;
    screen->Activate();
    screen->KeyPress("citytext", 'x');
    prompt.Queue(Answer::Ok);
    prompt.Queue(Answer::Yes);
    EXPECT_EQ(screen->Ok().show, Screen::None);
    EXPECT_EQ(prompt.asked.back().title, "Save Weather Data");
    EXPECT_EQ(model.ProjectData[kLocation], "");
    EXPECT_TRUE(model.climate.WeatherData[1].empty());
    EXPECT_EQ(screen->CityEdited, 1);

    prompt.Queue(Answer::Ok);
    prompt.Queue(Answer::No);
    screen->Ok();
    EXPECT_EQ(screen->CityEdited, 0);
    EXPECT_EQ(model.ProjectData[kLocation], "Albertville Muni AP, Alabama @");
}

TEST_F(WeatherScreenTest, ClimateNoticeAndItsSwitch) {
    model.session.Units = 1;
    const fs::path notice = dir / "temp" / "wthChange.txt";
    WriteFileAtomic(notice, "1\r\n");
    screen->OpenTask();
    EXPECT_TRUE(prompt.asked.empty());  // no location accepted yet
    screen->Ok();
    prompt.asked.clear();
    screen->WeatherScreenDone = 0;
    prompt.Queue(Answer::Cancel);
    screen->OpenTask();
    ASSERT_FALSE(prompt.asked.empty());
    EXPECT_EQ(prompt.asked[0].title, "Selecting a new climate zone will change code requirements.");
    EXPECT_EQ(prompt.asked[0].buttons, Buttons::OkCancel);
    EXPECT_NE(prompt.asked[0].text.find("\r\n\r\nClick Cancel to prevent"), std::string::npos);
    EXPECT_EQ(test::ReadAll(notice), "0\r\n");
    prompt.asked.clear();
    screen->OpenTask();
    EXPECT_TRUE(prompt.asked.empty());
}

TEST(WeatherScreenRegion6, ListingStopsAtRecord742AndEchoesRecords) {
    const fs::path dir = test::MakeProgramDir("region6");
    std::vector<climate_tools::StationRow> rows = {
        test::Station(1, "AL", "Alabama", "Albertville Muni AP")};
    for (int i = 1; i <= 745; ++i)
        rows.push_back(test::Station(6, "BRA", "Brazil", "City " + std::to_string(i)));
    test::WriteDatabase(dir, rows);
    ClimateIndex index;
    const ProgramPaths paths(dir);
    LoadLocationCounts(paths, index);
    ProjectModel model;
    model.session.Units = 1;
    ScriptedPrompt prompt;
    WeatherScreen screen(model, paths, prompt, index);
    screen.Activate();
    screen.ChooseRegion(6);
    EXPECT_EQ(screen.fields["Label1"].text, "Brazil  (745 Weather data sites)");
    ASSERT_EQ(screen.Combo3Items.size(), 742u);
    EXPECT_EQ(screen.Combo3Items.back(), "City 742");
    const auto diag = SplitLines(test::ReadAll(dir / "tempTest.out"));
    ASSERT_EQ(diag.size(), 1u + 2 * 742);
    EXPECT_EQ(diag[1], "\"BRA\",\"123450-99999\",\"5400 620 2900 4 A\"");
    EXPECT_EQ(diag[2].substr(0, 17), "\"City 1, Brazil@ ");
    // Finding is not limited: the last city of the file is found.
    screen.ChooseCity("City 745");
    EXPECT_EQ(screen.fields["CityNum"].text, "City # 745 of 745");
    fs::remove_all(dir);
}

}  // namespace
