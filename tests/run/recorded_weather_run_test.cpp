// A run on each recorded form: taken through the recorded weather screen,
// given to the real engine under its type, and named in the report.
#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>

#include "core/line_writer.h"
#include "core/text_file.h"
#include "engine/weather_data.h"
#include "run/run_sim.h"
#include "sample_program.h"
#include "tests/engine/bestest_cases.h"
#include "tests/engine/weather_format_writer.h"
#include "weather/recorded_weather.h"

namespace fs = std::filesystem;

namespace solvane {
namespace {

using engine::WeatherYear;

// The Denver year in the custom form (Helpinfo\custom.txt), I-P.
std::string CustomFile(const WeatherYear& w) {
    LineWriter out;
    out.Line("CUSTOM WEATHER");
    out.Line("\"Denver Custom Station\", 39.83, -104.65, -7, 5413");
    out.Line(
        "Month,Day,Hour,DryBulb,DewPoint,GlobalHor,DirectNormal,DiffuseHor,WindSpeed,"
        "WindDir,OpaqueSky");
    for (int i = 0; i < 8760; ++i) {
        const auto& h = w.hours[static_cast<std::size_t>(i)];
        const int d = i / 24, m = engine::MonthOfDay(d);
        char buf[200];
        std::snprintf(buf, sizeof buf, "%d,%d,%d,%.2f,%.2f,%.3f,%.3f,%.3f,%.3f,%.0f,%.0f", m + 1,
                      d - engine::kMonthStartDay[static_cast<std::size_t>(m)] + 1, i % 24 + 1,
                      h.dryBulb * 1.8 + 32, h.dewPoint * 1.8 + 32, h.globalHorizontal / 3.154591,
                      h.directNormal / 3.154591, h.diffuseHorizontal / 3.154591,
                      h.windSpeed / 0.44704, h.windDirection, h.opaqueSkyCover);
        out.Line(buf);
    }
    return out.Str();
}

struct Form {
    int format;
    std::string name;
    std::string station;  // as the engine's weather summary names it
};

std::string FormName(const ::testing::TestParamInfo<Form>& info) {
    static const char* const kNames[] = {"", "Epw", "Wyec2", "Iwec", "Custom"};
    return kNames[info.param.format];
}

class RecordedRunTest : public ::testing::TestWithParam<Form> {
  protected:
    void SetUp() override {
        root_ = test::MakeSampleProgram("recorded_" + std::to_string(GetParam().format));
        fs::create_directories(root_ / "weather");
        session_.paths = ProgramPaths(root_);
        test::InstallEngine(root_);
        test::LoadSample(session_, prompt_, "Small Office [two levels, I-P].inp");
    }
    void TearDown() override { fs::remove_all(root_); }

    void WriteWeather(const Form& f) {
        const WeatherYear& denver = engine::testing::DenverWeather();
        const engine::testing::StationText text{"72565", "DENVER", "CO", 1995};
        std::string content;
        switch (f.format) {
            case 1:
                fs::copy_file(
                    fs::path(SOLVANE_SOURCE_DIR) / "tests/fixtures/weather/725650TYCST.epw",
                    root_ / "weather" / f.name);
                return;
            case 2:
                content = engine::testing::Wyec2File(denver, text);
                break;
            case 3:
                content = engine::testing::IwecFile(denver, text);
                break;
            default:
                content = CustomFile(denver);
                break;
        }
        ASSERT_TRUE(WriteFileAtomic(root_ / "weather" / f.name, content));
    }

    fs::path root_;
    Session session_;
    ScriptedPrompt prompt_;
};

TEST_P(RecordedRunTest, ReachesTheEngineAndIsReported) {
    const Form& form = GetParam();
    WriteWeather(form);

    RunSimController run(session_, prompt_,
                         {[] { return 0.25; }, [] { return std::string("20:00:00"); }, 0});
    run.OpenRun();
    run.fields().At("Text1", 0).text = "1-Jul";
    run.fields().At("Text1", 1).text = "31-Jul";
    run.fields().At("Text1", 2).text = "1995";

    // The recorded weather screen, as the run screen's choice opens it.
    SelectWeatherController select(session_, prompt_);
    select.Open(run.fields().At("Text1", 2).text);
    select.ChooseFormat(form.format);
    ASSERT_EQ(select.browser.File1, std::vector<std::string>{form.name});
    select.ChooseFile(0);
    ASSERT_TRUE(select.Ok());  // a year that differs is answered Yes
    run.fields().At("weather", 0).value = 0;
    run.fields().At("weather", 1).value = 1;

    ASSERT_TRUE(run.ExecuteRun());
    while (run.Wait(200)) {
    }
    ASSERT_TRUE(run.EngineCompleted());
    const auto tmp = SplitLines(ReadTextFile(root_ / "temp" / "ecalc$.tmp").value_or(""));
    ASSERT_GE(tmp.size(), 2u);
    EXPECT_EQ(tmp[1].substr(0, 13), "Wthr type : " + std::to_string(form.format));
    EXPECT_EQ(fs::exists(root_ / "temp" / "tmy2lines.wth"), form.format == 1);

    ASSERT_TRUE(run.ReviewResults());
    const auto out = ReadTextFile(root_ / "temp" / "ecalc$.out").value_or("");
    EXPECT_NE(out.find("VIII. WEATHER SUMMARY\r\n    RECORDED " + form.station), std::string::npos)
        << form.name;
    EXPECT_EQ(out.find("SIMULATED FROM THE CLIMATE RECORD"), std::string::npos);
}

INSTANTIATE_TEST_SUITE_P(EachForm, RecordedRunTest,
                         ::testing::Values(Form{1, "denver.epw", "DENVER INTL AP"},
                                           Form{2, "WYEC2.txt", "WYEC2 STATION 72565"},
                                           Form{3, "IWEC.txt", "DENVER, CO"},
                                           Form{4, "denver.cus", "Denver Custom Station"}),
                         FormName);

}  // namespace
}  // namespace solvane
