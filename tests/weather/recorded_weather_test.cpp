// The recorded weather screen: the format choice and its lists, the year
// check of each form, the copy to temp\ecalc$.tmy, the EPW station lines and
// View.
#include "weather/recorded_weather.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "core/line_writer.h"
#include "core/text_file.h"
#include "ui/scripted_prompt.h"
#include "weather_test_support.h"

namespace fs = std::filesystem;

namespace solvane {
namespace {

// Ten lines of a file whose tenth line is `tenth`.
std::string TenLines(const std::string& head, const std::string& tenth) {
    LineWriter out;
    out.Line(head);
    for (int i = 2; i <= 9; ++i) out.Line("line " + std::string(1, static_cast<char>('a' + i)));
    out.Line(tenth);
    out.Line("after");
    return out.Str();
}

// The head of the Denver EPW year (tests/fixtures/weather/725650TYCST.epw,
// TMY3 from the National Solar Radiation Data Base): its LOCATION and DESIGN
// CONDITIONS lines, six header lines more and two hours.
std::string DenverEpwHead(const std::string& elevation = "1650.0") {
    LineWriter out;
    out.Line("LOCATION,DENVER INTL AP,CO,USA,TMY3,725650,39.83,-104.65,-7.0," + elevation);
    out.Line(
        "DESIGN CONDITIONS,1,Climate Design Data 2013 ASHRAE "
        "Handbook,,Heating,12,-17.5,-14.1,-21.7,0.7,-10.7,-19.1,0.8,-6.5,13.4,4,11.9,2.3,3.5,90,"
        "Cooling,7,15.3,34.6,15.5,33.2,15.5,31.8,15.4,18.3,27.1");
    out.Line("TYPICAL/EXTREME PERIODS,0");
    out.Line("GROUND TEMPERATURES,0");
    out.Line("HOLIDAYS/DAYLIGHT SAVINGS,No,0,0,0");
    out.Line("COMMENTS 1,test head");
    out.Line("COMMENTS 2,");
    out.Line("DATA PERIODS,1,1,Data,Sunday, 1/ 1,12/31");
    out.Line("2005,1,1,1,0,?9?9?9?9E0?9?9?9?9?9?9?9?9?9?9?9*9?9?9?9*9*9?9*9*9,-18.0,-19.7,85,8");
    out.Line("2005,1,1,2,0,?9?9?9?9E0?9?9?9?9?9?9?9?9?9?9?9*9?9?9?9*9*9?9*9*9,-16.6,-18.6,83,8");
    return out.Str();
}

class RecordedWeatherTest : public ::testing::Test {
  protected:
    void SetUp() override {
        root_ =
            test::MakeProgramDir(::testing::UnitTest::GetInstance()->current_test_info()->name());
        fs::copy(test::SourceDir() / "data" / "Helpinfo", root_ / "Helpinfo");
        session_.paths = ProgramPaths(root_);
    }
    void TearDown() override { fs::remove_all(root_); }

    void Put(const std::string& name, const std::string& content) {
        ASSERT_TRUE(WriteFileAtomic(root_ / "weather" / name, content));
    }
    // Opens the screen for `year`, picks `format` and types `name`.
    SelectWeatherController& Pick(int format, const std::string& name,
                                  const std::string& year = "2019") {
        screen_.Open(year);
        screen_.ChooseFormat(format);
        screen_.fields()["Text1"].text = name;
        prompt_.asked.clear();
        return screen_;
    }
    bool Asked(const std::string& title) const {
        for (const auto& p : prompt_.asked)
            if (p.title == title) return true;
        return false;
    }
    std::string Temp(const std::string& name) const {
        return ReadTextFile(root_ / "temp" / name).value_or("<none>");
    }

    fs::path root_;
    Session session_;
    ScriptedPrompt prompt_;
    SelectWeatherController screen_{session_, prompt_};
};

TEST(RecordedYear, FirstRunOfDigitsInTheTenthLine) {
    EXPECT_EQ(RecordedFileYear(TenLines("x", "2005,1,1,1,0")), 2005);
    EXPECT_EQ(RecordedFileYear(TenLines("x", "  95 01 01")), 95);
    // WYEC2 and IWEC records begin with the station number: that is the run read.
    EXPECT_EQ(RecordedFileYear(TenLines("x", "23062 95010110")), 23062);
    EXPECT_EQ(RecordedFileYear(TenLines("x", "no digits")), -1);
    EXPECT_EQ(RecordedFileYear("1995\r\n1995\r\n"), -1);  // no tenth line

    EXPECT_TRUE(SameYearDigits(2005, 2005));
    EXPECT_TRUE(SameYearDigits(95, 1995));
    EXPECT_TRUE(SameYearDigits(2019, 19));
    EXPECT_FALSE(SameYearDigits(2005, 2019));
    EXPECT_FALSE(SameYearDigits(-1, 2019));
}

TEST_F(RecordedWeatherTest, EachFormListsItsFilesAndShowsItsSample) {
    Put("a.epw", "x");
    Put("b.cus", "x");
    Put("WYEC2.txt", "x");
    Put("notes.doc", "x");
    screen_.Open("2019");
    const std::pair<int, std::vector<std::string>> expected[] = {
        {1, {"a.epw"}}, {2, {"WYEC2.txt"}}, {4, {"b.cus"}}};
    for (const auto& [format, files] : expected) {
        screen_.ChooseFormat(format);
        EXPECT_EQ(screen_.browser.File1, files) << format;
        EXPECT_EQ(screen_.fields().At("fileformat", format).value, 1);
        EXPECT_EQ(screen_.fields().Text("fileform"), kRecordedFormats[format].sampleTitle);
        EXPECT_EQ(screen_.sampleText,
                  *ReadTextFile(root_ / "Helpinfo" /
                                std::string(kRecordedFormats[format].sampleFile).substr(10)));
    }
    EXPECT_EQ(screen_.fields().Text("Text1"), "WYEC2.txt");  // the named file of its form
    EXPECT_TRUE(prompt_.asked.empty());

    screen_.ChooseFormat(3);  // no IWEC.txt in the folder
    ASSERT_EQ(prompt_.asked.size(), 1u);
    EXPECT_EQ(prompt_.asked[0].text, "File not found");
    EXPECT_TRUE(screen_.browser.File1.empty());

    fs::create_directory(root_ / "weather" / "more");
    Put("more/x.dat", "x");
    screen_.browser.Refresh();
    const auto& dirs = screen_.browser.Dir1;
    screen_.browser.OpenFolder(
        static_cast<int>(std::find(dirs.begin(), dirs.end(), "more") - dirs.begin()));
    screen_.FolderChanged();
    EXPECT_EQ(screen_.fields().Text("Dir1"), (root_ / "weather" / "more").string());
    EXPECT_EQ(screen_.browser.File1, std::vector<std::string>{"x.dat"});  // "*.*"
}

TEST_F(RecordedWeatherTest, AFileGoneFromTheListIsTold) {
    Put("a.epw", "x");
    screen_.Open("2019");
    screen_.ChooseFormat(1);
    screen_.ChooseFile(0);
    EXPECT_EQ(screen_.fields().Text("Text1"), "a.epw");
    fs::remove(root_ / "weather" / "a.epw");
    screen_.fields()["Text1"].text.clear();
    screen_.ChooseFile(0);
    ASSERT_EQ(prompt_.asked.size(), 1u);
    EXPECT_EQ(prompt_.asked[0].text, "File does not exist.  Check your directory again.");
    EXPECT_EQ(prompt_.asked[0].title, "Error");
    EXPECT_EQ(screen_.fields().Text("Text1"), "");
}

TEST_F(RecordedWeatherTest, OkNeedsANameAFormatAndAnExistingFile) {
    screen_.Open("2019");
    EXPECT_FALSE(screen_.Ok());
    ASSERT_EQ(prompt_.asked.size(), 1u);
    EXPECT_EQ(prompt_.asked[0].text, "Please enter the weather data file name.");
    EXPECT_EQ(prompt_.asked[0].title, "Weather Data File");
    EXPECT_EQ(prompt_.asked[0].icon, Icon::Exclamation);

    prompt_.asked.clear();
    Put("a.epw", DenverEpwHead());
    screen_.fields()["Text1"].text = "a.epw";
    EXPECT_FALSE(screen_.Ok());
    ASSERT_EQ(prompt_.asked.size(), 1u);
    EXPECT_EQ(prompt_.asked[0].text, "Please click the weather file format.");
    EXPECT_EQ(prompt_.asked[0].title, "Weather File Format");
    EXPECT_EQ(screen_.WeatherFormatMissing, 1);

    Pick(1, "missing.epw");
    EXPECT_FALSE(screen_.Ok());
    ASSERT_EQ(prompt_.asked.size(), 2u);
    EXPECT_EQ(prompt_.asked[0].title, "Weather Data File");
    EXPECT_NE(prompt_.asked[0].text.find((root_ / "weather" / "missing.epw").string()),
              std::string::npos);
    EXPECT_EQ(prompt_.asked[1].text, "File does not exist.  Check your directory again.");
    EXPECT_FALSE(fs::exists(root_ / "temp" / "ecalc$.tmy"));
    EXPECT_EQ(session_.model.climate.RecordedWeatherSelected, 0);
}

// Each form with a year other than the project's: the question, and No
// leaves the previous selection as it was.
TEST_F(RecordedWeatherTest, YearCheckOfEachForm) {
    const std::string custom = TenLines("CUSTOM WEATHER", "1,1,7,10.0,5.0,0,0,0,3,180,5");
    struct Case {
        int format;
        std::string name, content, sameYear;
    } cases[] = {
        {1, "denver.epw", DenverEpwHead(), "2005"},
        {2, "WYEC2.txt", TenLines("23062 95010101", "23062 95010110"), "2062"},
        {3, "IWEC.txt", TenLines("722950 LOS ANGELES", "722950 1995010110"), "1950"},
        // A custom file has no year: the hour's month is what is read.
        {4, "year.cus", custom, "2001"},
    };
    ASSERT_TRUE(WriteFileAtomic(root_ / "temp" / "ecalc$.tmy", "previous"));
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        Put(c.name, c.content);
        Pick(c.format, c.name, "2019");
        prompt_.Queue(Answer::Ok);  // the file taken
        prompt_.Queue(Answer::No);
        EXPECT_FALSE(screen_.Ok());
        ASSERT_EQ(prompt_.asked.size(), 2u);
        EXPECT_EQ(prompt_.asked[1].title, "Weather Year");
        EXPECT_EQ(prompt_.asked[1].text,
                  "The year of your weather data file is not the same as the project "
                  "evaluation year.  Do you want to continue?");
        EXPECT_EQ(prompt_.asked[1].buttons, Buttons::YesNo);
        EXPECT_EQ(Temp("ecalc$.tmy"), "previous");
        EXPECT_EQ(session_.model.climate.RecordedWeatherSelected, 0);

        // The same year in its last two digits asks nothing.
        Pick(c.format, c.name, c.sameYear);
        EXPECT_TRUE(screen_.Ok());
        EXPECT_FALSE(Asked("Weather Year"));
        EXPECT_EQ(Temp("ecalc$.tmy"), c.content);
        EXPECT_EQ(session_.model.climate.WeatherFileFormat, c.format);
        EXPECT_EQ(session_.model.climate.RecordedWeatherFile,
                  (root_ / "weather" / c.name).string());
        EXPECT_EQ(session_.model.climate.RecordedWeatherSelected, 1);
        ASSERT_TRUE(WriteFileAtomic(root_ / "temp" / "ecalc$.tmy", "previous"));
        session_.model.climate.RecordedWeatherSelected = 0;
    }
    // Yes goes on with the other year.
    Pick(1, "denver.epw", "2019");
    prompt_.Queue(Answer::Ok);
    prompt_.Queue(Answer::Yes);
    EXPECT_TRUE(screen_.Ok());
    EXPECT_EQ(Temp("ecalc$.tmy"), DenverEpwHead());
}

TEST_F(RecordedWeatherTest, EpwStationAndDesignTemperaturesForTheEngine) {
    Put("denver.epw", DenverEpwHead());
    Pick(1, "denver.epw", "2005");
    ASSERT_TRUE(screen_.Ok());
    EXPECT_EQ(Temp("tmy2lines.wth"),
              "DENVER INTL AP, CO, USA, 39.83, -104.65, -7, 5412\r\n"
              // 34.6 C, 15.5 C and -17.5 C in deg F
              "94.3, 59.9, .5\r\n");
    ASSERT_TRUE(Asked("Read Check"));
    EXPECT_NE(prompt_.asked.back().text.find("Elevation (ft): 5412"), std::string::npos);

    // 100 m is 328 ft; a long place name is cut to 36 characters.
    std::string head = DenverEpwHead("100");
    head.replace(head.find("DENVER INTL AP"), 14, "A VERY LONG STATION NAME OF A CITY");
    Put("long.epw", head);
    Pick(1, "long.epw", "2005");
    ASSERT_TRUE(screen_.Ok());
    EXPECT_EQ(screen_.station.RecordedElevation, 328.0f);
    EXPECT_EQ(SplitLines(Temp("tmy2lines.wth"))[0],
              "A VERY LONG STATION NAME OF A CITY, , 39.83, -104.65, -7, 328");

    // Another form makes no station file, and leaves none of an earlier one.
    Put("year.cus", TenLines("CUSTOM WEATHER", "1,1,7,10.0"));
    Pick(4, "year.cus", "2001");
    ASSERT_TRUE(screen_.Ok());
    EXPECT_FALSE(fs::exists(root_ / "temp" / "tmy2lines.wth"));
    EXPECT_FALSE(Asked("Read Check"));
}

TEST_F(RecordedWeatherTest, AFullPathIsTakenAsItStands) {
    fs::create_directory(root_ / "elsewhere");
    ASSERT_TRUE(WriteFileAtomic(root_ / "elsewhere" / "d.epw", DenverEpwHead()));
    Pick(1, (root_ / "elsewhere" / "d.epw").string(), "2005");
    ASSERT_TRUE(screen_.Ok());
    EXPECT_EQ(Temp("ecalc$.tmy"), DenverEpwHead());

    // The screen opens again at the folder and name taken, in its form.
    screen_.Open("2005");
    EXPECT_EQ(screen_.browser.Dir1Path, (root_ / "elsewhere").string());
    EXPECT_EQ(screen_.fields().Text("Text1"), "d.epw");
    EXPECT_EQ(screen_.WeatherFileFormat, 1);
}

TEST_F(RecordedWeatherTest, ViewShowsTheHeadOfTheFile) {
    screen_.Open("2019");
    EXPECT_FALSE(screen_.View());
    ASSERT_EQ(prompt_.asked.size(), 1u);
    EXPECT_EQ(prompt_.asked[0].text, "Please enter the weather file name.");
    EXPECT_EQ(prompt_.asked[0].title, "Weather File Name");

    LineWriter many;
    for (int i = 1; i <= 100; ++i) many.Line("hour " + std::to_string(i));
    Put("long.epw", many.Str());
    session_.model.session.CodeNum = 2;
    Pick(1, "long.epw");
    ASSERT_TRUE(screen_.View());
    const auto lines = SplitLines(Temp("wethtemp.txt"));
    ASSERT_EQ(lines.size(), 4u + kViewedWeatherLines);
    EXPECT_EQ(lines[0], "Weather Selection:...  Energy Code = 90.1-2019 (Latest Version)");
    EXPECT_EQ(lines[1], "                           THIS IS ONLY PART OF YOUR WEATHER FILE.");
    EXPECT_EQ(lines[2],
              "           PLEASE MAKE SURE THAT THIS IS THE RIGHT WEATHER FILE YOU ARE GOING TO "
              "USE.");
    EXPECT_EQ(lines[4], "hour 1");
    EXPECT_EQ(lines.back(), "hour " + std::to_string(kViewedWeatherLines));
    EXPECT_EQ(screen_.viewText, Temp("wethtemp.txt"));
    EXPECT_FALSE(fs::exists(root_ / "temp" / "ecalc$.tmy"));  // viewing takes nothing
}

}  // namespace
}  // namespace solvane
