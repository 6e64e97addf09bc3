// The input report of bundled samples: its pages in order, the columns of a
// zone page, the units of a project in SI, and the compliance figures worked
// out again here from the sample file's own text.
#include "run/input_report.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "core/numeric_helpers.h"
#include "run/input_report_compliance.h"
#include "sample_program.h"

namespace fs = std::filesystem;

namespace solvane {
namespace {

constexpr const char* kOffice = "Small Office [two levels, I-P].inp";
constexpr const char* kSchool = "Primary School [SI].inp";

class InputReportTest : public ::testing::Test {
  protected:
    void SetUp() override {
        root_ = test::MakeSampleProgram(
            std::string("report_") +
            ::testing::UnitTest::GetInstance()->current_test_info()->name());
        session_.paths = ProgramPaths(root_);
    }
    void TearDown() override { fs::remove_all(root_); }

    void Load(const std::string& sample) { test::LoadSample(session_, prompt_, sample); }
    InputReport Write(const RunSettings& run = Run()) {
        return WriteInputReport(session_.model, run, {"11-23-2026", "20:31:05"},
                                ReadReportFiles(session_.model, session_.paths));
    }
    static RunSettings Run() {
        RunSettings run;
        run.WeatherYear = "2021";
        return run;
    }
    static std::vector<std::string> Lines(const InputReport& r) { return SplitLines(r.text); }
    // The first line at or after `from` that holds `text` at `column`.
    static std::size_t Find(const std::vector<std::string>& lines, const std::string& text,
                            int column, std::size_t from = 0) {
        for (std::size_t i = from; i < lines.size(); ++i)
            if (lines[i].size() >= column - 1 + text.size() &&
                lines[i].compare(static_cast<std::size_t>(column - 1), text.size(), text) == 0)
                return i;
        return lines.size();
    }
    // The number printed after `label` on a line.
    static double After(const std::string& line, const std::string& label) {
        const std::size_t at = line.find(label);
        return at == std::string::npos ? -1 : NumVal(line.substr(at + label.size()));
    }
    static std::string At(const std::string& line, int column, std::size_t n) {
        return line.size() < static_cast<std::size_t>(column) ? "" : line.substr(column - 1, n);
    }

    fs::path root_;
    Session session_;
    ScriptedPrompt prompt_;
};

TEST_F(InputReportTest, PagesComeInOrderWithTheirFurniture) {
    Load(kOffice);
    const InputReport r = Write();
    EXPECT_TRUE(r.warnings.empty());
    const auto lines = Lines(r);
    // Every line ends in CR LF, and the report does not end in a form feed.
    EXPECT_EQ(std::count(r.text.begin(), r.text.end(), '\n'),
              std::count(r.text.begin(), r.text.end(), '\r'));
    EXPECT_NE(lines.back(), "\f");

    std::size_t at = 0;
    for (const auto& [text, column] : std::vector<std::pair<std::string, int>>{
             {"SOLVANE-2020   (B U I L D I N G", 28},
             {"SUMMARY OF SIMULATION PERIOD:", 50},
             {"WEATHER INPUT DATA:", 4},
             {"ECONOMIC DATA ...", 5},
             {"MATERIAL DESCRIPTIONS CATALOG:", 5},
             {"WINDOW DESCRIPTIONS CATALOG:", 5},
             {"HVAC SYSTEMS CATALOG: Compliant with ASHRAE Standard 90.1-2019", 2},
             {"I.  P R O J E C T   A N D   B U I L D I N G   D A T A", 1},
             {"Total Bldg Watts =", 9},
             {"II.  Z O N E - B Y - Z O N E   P R O P E R T I E S", 1},
             {"ZONE  1-1 Lobby", 5},
             {"Total Zone Watts =", 9},
             {"ZONE  2-2", 5}}) {
        const std::size_t found = Find(lines, text, column, at);
        ASSERT_LT(found, lines.size()) << text;
        at = found + 1;
    }
    // Pages are numbered 1, 2, 3 ... and each number follows a form feed
    // (the banner and the run summary have none).
    int page = 0, feeds = 0;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (lines[i] == "\f") ++feeds;
        if (At(lines[i], 115, 9) == "... PAGE ") {
            EXPECT_EQ(After(lines[i], "PAGE"), ++page);
            EXPECT_EQ(At(lines[i + 2], 1, 17), "*** PROJECT:     ");
            EXPECT_EQ(At(lines[i + 2], 75, 14), "LOCATION:     ");
        }
    }
    EXPECT_EQ(page, 5 + 6);  // analysis, economics, catalogs, HVAC, section I, six zones
    EXPECT_EQ(feeds, page + 1);
    // The systems table stands as the code's file gives it.
    const std::size_t systems = Find(lines, "HVAC SYSTEMS CATALOG", 2);
    EXPECT_EQ(At(lines[systems + 3], 6, 10), "I.D.  NAME");
    EXPECT_EQ(At(lines[systems + 5], 11, 22), "V.A.V. w/ parallel FCU");
    EXPECT_EQ(At(lines[systems + 6], 119, 8), "GAS HEAT");
}

TEST_F(InputReportTest, BuildingDataAndTheSystemsFileAsItStands) {
    Load(kOffice);
    // A systems table the HVAC screen wrote stands in the report line for line.
    WriteFileAtomic(root_ / "Codes" / "tcool9.dat", "  SYSTEMS AS EDITED\r\n   1  MY SYSTEM\r\n");
    const auto lines = Lines(Write());
    const std::size_t systems = Find(lines, "HVAC SYSTEMS CATALOG", 2);
    ASSERT_LT(systems + 3, lines.size());
    EXPECT_EQ(lines[systems + 2], "  SYSTEMS AS EDITED");
    EXPECT_EQ(lines[systems + 3], "   1  MY SYSTEM");
    // Floor area, cost, days, holidays and the two floors of the sketch.
    const std::size_t data = Find(lines, "BUILDING DATA .....", 5);
    ASSERT_LT(data + 3, lines.size());
    const std::string& row = lines[data + 3];
    EXPECT_EQ(At(row, 9, 10), "     12000");
    EXPECT_EQ(At(row, 22, 11), "        210");
    EXPECT_EQ(At(row, 59, 45), "    0.0    0.0      0.0    0.0      0.0   0.0");
    EXPECT_EQ(At(row, 110, 2), "2");
}

TEST_F(InputReportTest, PageHeadKeepsItsTwoColumns) {
    Load(kSchool);
    const std::string description = session_.model.ProjectData[kProjDesc];
    ASSERT_GT(description.size(), 57u);  // longer than the left column
    const auto lines = Lines(Write());
    const std::size_t head = Find(lines, "    DESCRIPTION: ", 1);
    ASSERT_LT(head, lines.size());
    EXPECT_EQ(lines[head].substr(17, 57), description.substr(0, 57));
    EXPECT_EQ(At(lines[head], 75, 14), "Design Phase: ");
    EXPECT_EQ(At(lines[head + 1], 5, 5), "TYPE:");
}

TEST_F(InputReportTest, ZonePageColumns) {
    Load(kOffice);
    const auto lines = Lines(Write());
    const std::size_t z = Find(lines, "ZONE", 5, Find(lines, "II.  Z O N E", 1));
    ASSERT_LT(z + 40, lines.size());
    const std::string& head = lines[z];
    EXPECT_EQ(At(head, 11, 3), "1-1");
    EXPECT_EQ(At(head, 15, 5), "Lobby");
    EXPECT_EQ(At(head, 39, 17), "NATURAL VENT.= No");
    EXPECT_EQ(At(head, 70, 15), "CEIL.HT.= 10 FT");
    EXPECT_EQ(At(head, 90, 16), "INF.RATE= .5 AC/");
    EXPECT_EQ(At(head, 114, 16), "DAYLIGHTING= Yes");

    const std::size_t rule = Find(lines, std::string(126, '-'), 5, z);
    const std::string& values = lines[rule + 1];
    EXPECT_EQ(At(lines[rule - 2], 8, 10), "FLOOR AREA");
    EXPECT_EQ(At(lines[rule - 1], 9, 8), "(SQ.FT.)");
    EXPECT_EQ(At(values, 6, 10), "      1200");
    EXPECT_EQ(At(values, 31, 24), "Packaged VAV w/ reheat (");
    EXPECT_EQ(At(values, 56, 3), "Yes");
    EXPECT_EQ(At(values, 64, 16), "1st COST =  2200");
    EXPECT_EQ(At(values, 82, 4), "Gas ");
    EXPECT_EQ(At(values, 95, 4), "Gas ");
    EXPECT_EQ(At(values, 107, 19), "Fluorescent Tubular");
    EXPECT_EQ(At(values, 127, 5), "  2.5");
    EXPECT_EQ(At(lines[rule + 2], 30, 26), "(SEER= 12.2, S.P.=2.5w.g.)");
    EXPECT_EQ(At(lines[rule + 2], 64, 16), "Ann.Maint=    88");
    EXPECT_EQ(At(lines[rule + 2], 97, 4), "(.8)");

    const std::size_t profiles = Find(lines, "** 24 HOUR ZONE PROFILES:", 5, z);
    EXPECT_EQ(At(lines[profiles], 36, 6), "1a  2a");
    EXPECT_EQ(At(lines[profiles + 2], 5, 20), "OCCUPANCY = 6 PEOPLE");
    EXPECT_EQ(At(lines[profiles + 2], 45, 24), "Profiles are for Office:");
    EXPECT_EQ(At(lines[profiles + 3], 26, 3), "M-F");
    // The figure under "9a" of the weekday occupancy.
    EXPECT_EQ(At(lines[profiles + 3], 33 + 8 * 4, 4), "  95");
    EXPECT_EQ(At(lines[profiles + 26], 5, 29), "HEATING THERMOSTAT = 70 DEG.F");

    const std::size_t material = Find(lines, "MATERIAL DATA:", 9, z);
    EXPECT_EQ(At(lines[material], 36, 6), "OPAQUE");
    EXPECT_EQ(At(lines[material + 1], 122, 5), "SLOPE");
    // The west wall: 600 sq.ft. with 90 sq.ft. of window under an overhang.
    const std::string& west = lines[material + 3];
    EXPECT_EQ(At(west, 5, 1), "W");
    EXPECT_EQ(At(west, 7, 2), " 6");
    EXPECT_EQ(At(west, 10, 18), "Wall, steel-framed");
    EXPECT_EQ(At(west, 35, 8), "     600");
    EXPECT_EQ(At(west, 45, 4), " 270");
    EXPECT_EQ(At(west, 51, 5), "Conc.");
    EXPECT_EQ(At(west, 74, 4), "   1");
    EXPECT_EQ(At(west, 79, 27), "Fixed window, metal frame H");
    EXPECT_EQ(At(west, 112, 8), "      90");
    EXPECT_EQ(At(west, 122, 5), "   90");
    EXPECT_LT(Find(lines, "SYMBOL NOTE:  H=Overhang,  L=Lightshelf", 82, material), lines.size());
}

// The sample file's own figures: its catalogs' U-factors and, per zone, the
// fields and surfaces the compliance block sums.
struct FileZone {
    double area = 0, people = 0, watts = 0, oaPerArea = 0;
    double roofUA = 0, roofA = 0, skylights = 0, wallUA = 0, wallA = 0, windows = 0;
};

std::vector<FileZone> ZonesOfFile(const std::string& text) {
    const auto lines = SplitLines(text);
    std::map<int, double> wallU, windowU;
    std::vector<FileZone> zones;
    bool windowsBlock = false, inZones = false;
    int id = 0;
    double area = 0, windowArea = 0;
    int wall = 0, exposure = 0, window = 0;
    for (const auto& line : lines) {
        const std::string label = line.substr(0, 10),
                          value = line.size() > 10 ? line.substr(10) : "";
        if (line == "WINDOW PROPERTIES") windowsBlock = true;
        if (line == "ZONES") inZones = true;
        if (line == "BUILDING MATRIX") break;
        if (!inZones) {
            if (label == "ID. #     ") id = static_cast<int>(NumVal(value));
            if (label == "U-Factor  ") (windowsBlock ? windowU : wallU)[id] = NumVal(value);
            continue;
        }
        if (label == "Zone No.  ") zones.emplace_back();
        if (zones.empty()) continue;
        FileZone& z = zones.back();
        if (label == "Flr. Area ") z.area = NumVal(value);
        if (label == "No.People ") z.people = NumVal(value);
        if (label == "Watt/sqft ") z.watts = NumVal(value) * z.area;
        if (label == "OA CFM    ") {
            EXPECT_EQ(value.substr(0, 2), "CS");  // the office's zones count air by area
            z.oaPerArea = NumVal(value.substr(2));
        }
        if (label == "Wall ID.  ") wall = static_cast<int>(NumVal(value));
        if (label == "Wall Area ") area = NumVal(value);
        if (label == "Surf Exp. ") exposure = static_cast<int>(NumVal(value));
        if (label == "Window ID ") window = static_cast<int>(NumVal(value));
        if (label == "Win. Area ") {
            windowArea = NumVal(value);
            const double ua = wallU[wall] * (area - windowArea) + windowU[window] * windowArea;
            if (exposure == 6) {
                z.roofUA += ua, z.roofA += area, z.skylights += windowArea;
            } else if (exposure >= 1 && exposure <= 5) {
                z.wallUA += ua, z.wallA += area, z.windows += windowArea;
            }
        }
    }
    return zones;
}

TEST_F(InputReportTest, ComplianceFiguresAgreeWithTheSampleFile) {
    Load(kOffice);
    const auto text = ReadTextFile(std::string(SOLVANE_DATA_DIR) + "/sample/" + kOffice);
    ASSERT_TRUE(text);
    const std::vector<FileZone> zones = ZonesOfFile(*text);
    ASSERT_EQ(zones.size(), 6u);
    FileZone total;
    for (const FileZone& z : zones) {
        total.area += z.area, total.people += z.people, total.watts += z.watts;
        total.oaPerArea += z.oaPerArea * z.area;
        total.roofUA += z.roofUA, total.roofA += z.roofA, total.skylights += z.skylights;
        total.wallUA += z.wallUA, total.wallA += z.wallA, total.windows += z.windows;
    }
    // Worked by hand for the lobby: three walls of 200, 600 and 200 sq.ft.
    // at U .055 with 250 sq.ft. of glass at U .36.
    EXPECT_NEAR(zones[0].wallUA, 0.055 * 750 + 0.36 * 250, 1e-9);  // 131.25, printed 131.2

    const auto lines = Lines(Write());
    const auto check = [&](std::size_t block, const FileZone& z, const std::string& who) {
        SCOPED_TRACE(who);
        ASSERT_LT(block + 17, lines.size());
        const auto line = [&](int offset) { return lines[block + offset]; };
        EXPECT_EQ(At(line(1), 10, 16), "UA(Btu/hr/deg.F)");
        EXPECT_NEAR(After(line(4), "Roof UA="), z.roofUA, 0.0501);
        EXPECT_NEAR(After(line(4), "Roof A="), z.roofA, 0.5);
        EXPECT_NEAR(After(line(4), "Ur="), z.roofA > 0 ? z.roofUA / z.roofA : 0, 5e-5);
        EXPECT_NEAR(After(line(5), "Glass A="), z.skylights, 0.5);
        EXPECT_NEAR(After(line(5), "% Glass="), z.roofA > 0 ? 100 * z.skylights / z.roofA : 0,
                    0.05);
        EXPECT_NEAR(After(line(6), "Wall UA="), z.wallUA, 0.0501);
        EXPECT_NEAR(After(line(6), "Wall A="), z.wallA, 0.5);
        EXPECT_NEAR(After(line(6), "Uw="), z.wallUA / z.wallA, 5e-5);
        EXPECT_NEAR(After(line(7), "% Glass="), 100 * z.windows / z.wallA, 0.05);
        EXPECT_NEAR(After(line(8), "Uo="), (z.roofUA + z.wallUA) / (z.roofA + z.wallA), 5e-5);
        EXPECT_NEAR(After(line(10), "Watts ="), z.watts, 0.5);
        EXPECT_NEAR(After(line(11), "Area  ="), z.area, 0.5);
        EXPECT_NEAR(After(line(12), "LPD (LtgPwrDens) ="), z.watts / z.area, 0.005);
        EXPECT_NEAR(After(line(14), "Total Design Cap.="), z.oaPerArea * z.area, 0.5);
        EXPECT_NEAR(After(line(15), "Total Occupancy  ="), z.people, 0.5);
        EXPECT_NEAR(After(line(16), "Rate per person  ="), z.oaPerArea * z.area / z.people, 0.05);
        EXPECT_NEAR(After(line(17), "Rate per FlrArea ="), z.oaPerArea, 0.0005);
    };
    FileZone building = total;
    building.oaPerArea = total.oaPerArea / total.area;
    std::size_t at = Find(lines, "CODE COMPLIANCE CHECKING INFORMATION:", 5);
    check(at, building, "building");
    for (std::size_t i = 0; i < zones.size(); ++i) {
        at = Find(lines, "CODE COMPLIANCE CHECKING INFORMATION:", 5, at + 1);
        check(at, zones[i], "zone " + std::to_string(i + 1));
    }
}

TEST_F(InputReportTest, SiProjectPrintsSiUnits) {
    Load(kSchool);
    const auto lines = Lines(Write());
    const std::size_t weather = Find(lines, "WEATHER", 4);
    ASSERT_LT(weather + 13, lines.size());
    EXPECT_EQ(At(lines[weather + 13], 11, 6), "SQ.M. ");
    EXPECT_LT(Find(lines, "  KWH      TION      GJ      TION   1000 LIT   TION  ", 75),
              lines.size());
    EXPECT_LT(Find(lines, "($/SQ.M.)", 121), lines.size());
    EXPECT_LT(Find(lines, "(SQ.M.)", 10, Find(lines, "BUILDING DATA", 5)), lines.size());
    EXPECT_LT(Find(lines, "UA(Watts/deg.K)", 10), lines.size());
    EXPECT_LT(Find(lines, "(COP & FAN S.P.)", 33), lines.size());
    EXPECT_LT(Find(lines, "CEIL.HT.= 3.5 M.", 70), lines.size());
    const std::size_t rate = Find(lines, "Rate per FlrArea =", 9);
    ASSERT_LT(rate, lines.size());
    EXPECT_NE(lines[rate].find("L/s/sq.m."), std::string::npos);
}

TEST_F(InputReportTest, RunSummaryTellsThePeriod) {
    Load(kOffice);
    RunSettings run = Run();
    run.SkipMonth[3] = run.SkipMonth[7] = true;
    auto lines = Lines(Write(run));
    EXPECT_EQ(lines[Find(lines, "Simulation period is:", 50)].substr(49),
              "Simulation period is: 1-Jan to 31-Dec.");
    // 304 days outside March and July, over ten months.
    EXPECT_EQ(lines[Find(lines, "Weeks per month", 50)].substr(49),
              "Weeks per month simulated will be 4.3.");
    EXPECT_EQ(lines[Find(lines, "Unoccupied months are:", 30)].substr(29),
              "Unoccupied months are: Mar, Jul.");
    EXPECT_EQ(lines[Find(lines, "Year ", 50)].substr(49), "Year 2021 begins on Friday.");

    run = Run();
    run.WeatherType = 1;
    run.BeginDate = "15-Feb";
    run.EndDate = "10-Nov";
    lines = Lines(Write(run));
    EXPECT_LT(Find(lines, "This run uses real weather data recorded", 50), lines.size());
    EXPECT_LT(Find(lines, "for the period of Feb to Nov.", 50), lines.size());
    EXPECT_EQ(Find(lines, "Unoccupied months are:", 30), lines.size());
}

TEST_F(InputReportTest, MissingProfileInternalZoneShelvesAndDemandCharges) {
    Load(kOffice);
    ProjectModel& m = session_.model;
    m.zones.ZoneData[2][8] = "";  // hot water group of zone 1-2 not chosen
    m.zones.ZoneSurfaceCount[3] = 0;
    m.economics.NumDemandRates = 2;
    m.economics.DemandRateLimit[1] = "50", m.economics.DemandRateCost[1] = "12.5";
    m.economics.DemandRateLimit[2] = "100", m.economics.DemandRateCost[2] = "10";
    std::string shelves;
    for (int i = 1; i <= 60; ++i) shelves += "SHELF " + std::to_string(i) + "\r\n";
    WriteFileAtomic(root_ / "temp" / "ltshlf.dat", shelves);

    const InputReport r = Write();
    ASSERT_EQ(r.warnings.size(), 1u);
    EXPECT_EQ(r.warnings[0],
              "HOT WATER has not been clicked in zone 1-2.  Return to zone description and check "
              "profiles.");
    const auto lines = Lines(r);
    EXPECT_LT(Find(lines, "HOT WATER profile missing!", 5), lines.size());
    const std::size_t internal = Find(lines, "INTERNAL ZONE - NO EXTERNAL WALL DATA.", 9);
    ASSERT_LT(internal, lines.size());
    EXPECT_GT(internal, Find(lines, "ZONE  1-3", 5));

    const std::size_t demand = Find(lines, "ELECTRIC DEMAND CHARGE:", 9);
    ASSERT_LT(demand + 4, lines.size());
    EXPECT_EQ(At(lines[demand + 3], 25, 2), "50");
    EXPECT_EQ(At(lines[demand + 4], 47, 2), "10");

    const std::size_t first = Find(lines, "SHELF 1", 5);
    const std::size_t continued = Find(lines, "(Continued)", 55);
    ASSERT_LT(continued, lines.size());
    EXPECT_EQ(continued, first + 50);
    EXPECT_EQ(lines[continued + 1], "\f");
    EXPECT_EQ(At(lines[continued + 2], 115, 9), "... PAGE ");
    EXPECT_LT(Find(lines, "SHELF 60", 5, continued), lines.size());
}

TEST(ComplianceTest, OutdoorAirByPrefix) {
    ProjectModel m;
    m.session.Units = 1;
    m.zones.ZoneData[1][3] = "1000";
    m.zones.ZoneData[1][5] = "10";
    const auto air = [&](const std::string& field) {
        m.zones.ZoneData[1][9] = field;
        return ZoneOutdoorAir(m, 1);
    };
    EXPECT_DOUBLE_EQ(air("CP 15"), 150);
    EXPECT_DOUBLE_EQ(air(" CS .06"), 60);
    EXPECT_DOUBLE_EQ(air("PA 20"), 200);  // of 1 CFM per sq.ft.
    EXPECT_DOUBLE_EQ(air("17"), 170);     // no prefix counts per person
    m.session.Units = 2;
    EXPECT_NEAR(air("PA 10"), 0.1 * 1000 * 5.0799972, 1e-9);

    // A zone with no catalog entry behind its surface counts its area at U 0.
    m.zones.ZoneSurfaceCount[1] = 1;
    m.surfaces.SurfExposure[1][1] = 6;
    m.surfaces.SurfArea[1][1] = 100;
    m.surfaces.SurfWindowArea[1][1] = 150;  // more glass than roof: the roof is all glass
    m.surfaces.SurfWindowId[1][1] = 2;
    m.windows.WindowUFactor[2] = "3";
    const ComplianceFigures c = ZoneCompliance(m, 1);
    EXPECT_DOUBLE_EQ(c.roofUA, 300);
    EXPECT_DOUBLE_EQ(c.SkylightPercent(), 100);
    EXPECT_DOUBLE_EQ(c.WindowPercent(), 0);
    EXPECT_DOUBLE_EQ(c.AirPerPerson(), 0.1 * 1000 * 5.0799972 / 10);
}

}  // namespace
}  // namespace solvane
