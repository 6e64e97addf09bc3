// The engine's contract: its control file, and the files it leaves in temp,
// read back by markers and fixed columns the way the results reader does.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "core/item_reader.h"
#include "core/numeric_helpers.h"
#include "core/text_file.h"
#include "engine/control_file.h"

namespace solvane::engine {
namespace {

namespace fs = std::filesystem;
const std::string kSource = SOLVANE_SOURCE_DIR;

std::string ControlText(int runType, const std::string& skip = "") {
    return "Run type  : " + std::to_string(runType) +
           "\r\nWthr type : 1             1 \r\n1st day   :  1 \r\nRun begin : 1\r\n"
           "Run end   : 365\r\nHourly out:  1 \r\nCode Num  :  2 \r\nSkip month: " +
           skip + "\r\nComfort   :  68       79 \r\n";
}

TEST(ControlFile, ReadsTheNineLines) {
    const RunControl c = ReadControlFile(ControlText(4, " 3  7 "), "ecalc$.tmp");
    EXPECT_EQ(c.runType, 4);
    EXPECT_EQ(c.weatherType, 1);
    EXPECT_EQ(c.firstDayOfYear, 1);
    EXPECT_EQ(c.beginDay, 1);
    EXPECT_EQ(c.endDay, 365);
    EXPECT_TRUE(c.hourlyOutput);
    EXPECT_EQ(c.codeNum, 2);
    EXPECT_TRUE(c.skipMonth[2]);
    EXPECT_TRUE(c.skipMonth[6]);
    EXPECT_FALSE(c.skipMonth[0]);
    EXPECT_EQ(c.comfortLower, 68);
    EXPECT_EQ(c.comfortUpper, 79);
    EXPECT_EQ(ReadControlFile("Run type  : 0\r\nWthr type :  0 \r\n1st day   :  6 \r\n"
                              "Run begin : 32\r\nRun end   : 59\r\nHourly out:  0 \r\n"
                              "Code Num  :  1 \r\nSkip month: \r\nComfort   :  20       27 \r\n",
                              "x")
                  .weatherType,
              0);
}

TEST(ControlFile, BadLinesNameTheFileAndLine) {
    try {
        ReadControlFile("Run type  : 3\r\nWthr type :  0 \r\n", "ecalc$.tmp");
        FAIL();
    } catch (const ReadError& e) {
        EXPECT_EQ(e.File(), "ecalc$.tmp");
        EXPECT_EQ(e.Line(), 3);
    }
    try {
        ReadControlFile(ControlText(3, " 13 "), "ecalc$.tmp");
        FAIL();
    } catch (const ReadError& e) {
        EXPECT_EQ(e.Line(), 8);
    }
}

TEST(ControlFile, EngineHeadLine) {
    const EngineHead h = ReadEngineHeadLine("SOLVANE-2020 .83766422 4  SI");
    EXPECT_EQ(h.weatherSeed, ".83766422");
    EXPECT_TRUE(h.si);
    EXPECT_FALSE(ReadEngineHeadLine("SOLVANE-2020 .5        4  IP").si);
}

// Field c/w of a line as the results reader takes it.
double Field(const std::string& line, int col, int width) {
    if (static_cast<int>(line.size()) < col) return 0;
    return NumVal(line.substr(col - 1, width));
}

std::vector<std::string> RunEngine(const std::string& dirName, int runType,
                                   std::vector<std::string>* flt = nullptr,
                                   std::vector<std::string>* monitor = nullptr, bool si = false,
                                   const std::string& dxMap = "") {
    const fs::path dir = fs::temp_directory_path() / dirName;
    fs::remove_all(dir);
    fs::create_directories(dir);
    std::string inp = ReadTextFile(kSource + "/tests/engine/projects/case600.inp").value_or("");
    if (si) {
        // The user works in SI: the engine's copy is in I-P but for what the
        // unit writer leaves in SI, the receptacle load (W per sq.m.) and the
        // building matrix (metres).
        inp.replace(inp.find("  IP\r\n"), 6, "  SI\r\n");
        inp.replace(inp.find("Receptacle.3871"), 15, "Receptacle 4.1667");  // 0.3871 W/sq.ft.
        inp.replace(inp.find("Room Height :8.8583"), 19, "Room Height :2.7");  // 8.8583 ft
    }
    EXPECT_TRUE(WriteFileAtomic(dir / "ecalc$.inp", inp));
    fs::copy_file(kSource + "/tests/fixtures/weather/725650TYCST.epw", dir / "ecalc$.tmy");
    EXPECT_TRUE(WriteFileAtomic(dir / "ecalc$.tmp", ControlText(runType)));
    if (!dxMap.empty()) {
        EXPECT_TRUE(WriteFileAtomic(dir / "Solv2020.dx", dxMap));
    }
    const std::string cmd = "cd \"" + dir.string() + "\" && \"" SOLV2020_PATH "\"";
    EXPECT_EQ(std::system(cmd.c_str()), 0);
    const auto sim = ReadTextFile(dir / "sim$.out");
    const auto fl = ReadTextFile(dir / "ecalc$.flt");
    const auto mon = ReadTextFile(dir / "Monitor.txt");
    EXPECT_TRUE(sim && fl && mon);
    EXPECT_NE(sim->find("\r\n"), std::string::npos);
    EXPECT_TRUE(fs::exists(dir / "ecalc$.wth"));
    EXPECT_TRUE(fs::exists(dir / "ecalc$.hry"));
    EXPECT_FALSE(fs::exists(dir / "Solv2020.work"));
    if (flt) *flt = SplitLines(fl.value_or(""));
    if (monitor) *monitor = SplitLines(mon.value_or(""));
    fs::remove_all(dir);
    return SplitLines(sim.value_or(""));
}

TEST(EngineContract, ComponentAndMonthlyTablesReadBackByColumn) {
    std::vector<std::string> monitor;
    const auto lines = RunEngine("solvane_contract_600", 3, nullptr, &monitor);
    ASSERT_GE(monitor.size(), 5u);
    EXPECT_EQ(monitor[4], " Denver Intl AP, Colorado");

    // Component table: fourteen rows from "ROOF", row 13 a rule.
    std::size_t roof = 0;
    while (roof < lines.size() && lines[roof].rfind("ROOF", 0) != 0) ++roof;
    ASSERT_LT(roof + 20, lines.size());
    double annH = 0, annC = 0, peakH = 0, peakC = 0;
    for (int r = 0; r < 12; ++r) {
        const std::string& l = lines[roof + r];
        annH += Field(l, 100, 8), annC += Field(l, 117, 8);
        peakH += Field(l, 29, 8), peakC += Field(l, 45, 8);
    }
    EXPECT_EQ(lines[roof + 12][0], '-');
    const std::string& row14 = lines[roof + 13];
    EXPECT_NEAR(Field(row14, 100, 8), annH, 0.005);
    EXPECT_NEAR(Field(row14, 117, 8), annC, 0.005);
    EXPECT_NEAR(Field(row14, 29, 8), peakH, 0.05);
    EXPECT_NEAR(Field(row14, 45, 8), peakC, 0.05);
    EXPECT_NEAR(Field(row14, 109, 5), 100.0, 1e-9);
    const std::string& totals = lines[roof + 13 + 6];
    EXPECT_NEAR(Field(totals, 100, 15), annH, 0.005);
    EXPECT_NEAR(Field(totals, 117, 15), annC, 0.005);
    // Both peak charts take their total from 30/15: it holds both peaks.
    const std::string both = totals.substr(29, 15);
    const auto hAt = both.find('H'), cAt = both.find('C');
    ASSERT_TRUE(hAt != std::string::npos && hAt < cAt && cAt != std::string::npos) << both;
    EXPECT_NEAR(NumVal(both.substr(hAt + 1, cAt - hAt - 1)), Field(row14, 29, 8), 1e-9);
    EXPECT_NEAR(NumVal(both.substr(cAt + 1)), Field(row14, 45, 8), 1e-9);
    EXPECT_EQ(totals.substr(45, 3), "DEC");  // the peak's time text at 46
    // Case 600 in I-P: heating about 4.3 MWh = 14.7 MBtu (project route).
    EXPECT_GT(annH, 13.0);
    EXPECT_LT(annH, 18.0);
    EXPECT_GT(Field(lines[roof + 13 + 7], 100, 17), 0.0);  // per-area line

    // Monthly table: "MON", four lines, JAN..DEC, "=" rule, totals.
    std::size_t mon = 0;
    while (mon < lines.size() && lines[mon].rfind("MON", 0) != 0) ++mon;
    ASSERT_LT(mon + 19, lines.size());
    const char* months[12] = {"JAN", "FEB", "MAR", "APR", "MAY", "JUN",
                              "JUL", "AUG", "SEP", "OCT", "NOV", "DEC"};
    double h = 0, c = 0;
    for (int m = 0; m < 12; ++m) {
        const std::string& l = lines[mon + 5 + m];
        EXPECT_EQ(l.substr(0, 3), months[m]);
        h += Field(l, 4, 8);
        c += Field(l, 31, 9);
    }
    EXPECT_EQ(lines[mon + 17][0], '=');
    EXPECT_NEAR(Field(lines[mon + 18], 4, 8), h, 0.01);
    EXPECT_NEAR(Field(lines[mon + 18], 31, 9), c, 6.0);
    // The case's boiler (heating type 1 on system 1) at an efficiency of 1
    // burns more than the load by its part-load losses, never less.
    EXPECT_GT(h, annH * 1.02);
    EXPECT_LT(h, annH * 2.0);

    // The energy summary: "III.", two lines, the title at column 89, then "Site".
    std::size_t iii = 0;
    while (iii < lines.size() && lines[iii].rfind("III.", 0) != 0) ++iii;
    ASSERT_LT(iii + 3, lines.size());
    EXPECT_EQ(lines[iii + 3].substr(88, 20), "ASHRAE 140 Case 600,");
    std::size_t site = iii;
    while (site < lines.size() && lines[site].rfind("Site", 0) != 0) ++site;
    ASSERT_LT(site + 1, lines.size());
    EXPECT_NEAR(Field(lines[site], 18, 7), h, 0.01);
    EXPECT_GT(Field(lines[site + 1], 51, 6), 0.0);

    // VI.: the year's end uses add up to its electric total, cooling is the
    // monthly table's, and the fuel for heating is the heating column's.
    std::size_t vi = 0;
    while (vi < lines.size() && lines[vi].rfind("VI.  HVAC SYSTEMS", 0) != 0) ++vi;
    std::size_t year = vi;
    while (year < lines.size() && lines[year].rfind("    YEAR", 0) != 0) ++year;
    ASSERT_LT(year, lines.size());
    const std::string& y = lines[year];
    double uses = 0;
    for (int u = 0; u < 7; ++u) uses += Field(y, 9 + 10 * u, 9);
    EXPECT_NEAR(Field(y, 79, 10), uses, 4.0);  // kWh, each figure rounded
    EXPECT_NEAR(Field(y, 19, 9), c, 6.0);      // cooling kWh
    EXPECT_NEAR(Field(y, 90, 9), h, 0.02);     // MBtu of boiler fuel
    EXPECT_GT(Field(y, 39, 9), 0.0);           // chilled, condenser and hot-water pumps
    EXPECT_GT(Field(y, 59, 9), 0.0);           // receptacles
    EXPECT_GT(Field(y, 110, 9), 0.0);          // peak demand, kW
    // The zone's row: its unmet hours' likely cause at 120; the indoor
    // humidity table: mean and highest relative humidity of the room.
    std::size_t zoneRow = vi;
    while (zoneRow < lines.size() && lines[zoneRow].rfind("    1-1", 0) != 0) ++zoneRow;
    ASSERT_LT(zoneRow, lines.size());
    const std::string cause = lines[zoneRow].size() > 119 ? lines[zoneRow].substr(119) : "";
    EXPECT_TRUE(cause == "-" || cause.find("CAPACITY SHORT") != std::string::npos) << cause;
    std::size_t rh = zoneRow + 1;
    while (rh < lines.size() && lines[rh].rfind("    1-1", 0) != 0) ++rh;
    ASSERT_LT(rh, lines.size());
    const double meanRh = Field(lines[rh], 30, 9), maxRh = Field(lines[rh], 42, 8);
    EXPECT_GT(meanRh, 5.0);  // Denver's dry air, no moisture sources in the cell
    EXPECT_LT(meanRh, 60.0);
    EXPECT_GE(maxRh, meanRh);
    EXPECT_LE(maxRh, 100.0);
}

TEST(EngineContract, PerformanceMapFileIsReadAndItsMisfitsNamed) {
    // Case 600's zone has a chiller: a DX map for it is left out, and a map
    // for a zone the project has not is named too.
    std::vector<std::string> monitor;
    RunEngine("solvane_contract_dx", 3, nullptr, &monitor, false,
              "ZONE 1-1\r\nCAPACITY 8000\r\nZONE 9-9\r\nCAPACITY 5000\r\n");
    bool chiller = false, missing = false;
    for (const std::string& l : monitor) {
        chiller |= l.find("Zone 1-1: Solv2020.dx") != std::string::npos;
        missing |= l.find("no zone 9-9") != std::string::npos;
    }
    EXPECT_TRUE(chiller);
    EXPECT_TRUE(missing);
}

TEST(EngineContract, PassiveRunWritesComfortPerZone) {
    std::vector<std::string> flt, monitor;
    const auto lines = RunEngine("solvane_contract_600ff", 4, &flt, &monitor);
    ASSERT_GE(flt.size(), 8u);
    // The case's HVAC and heating types are simulated: Monitor.txt no
    // longer names them, and the report has its systems section.
    for (const std::string& l : monitor) EXPECT_EQ(l.find("HVAC Type"), std::string::npos) << l;
    bool section = false;
    for (const std::string& l : lines) section |= l.rfind("VI.  HVAC SYSTEMS", 0) == 0;
    EXPECT_TRUE(section);
    EXPECT_EQ(flt[0].substr(0, 3), "IX.");
    EXPECT_EQ(flt[1].substr(0, 12), "*** PROJECT:");
    EXPECT_EQ(flt[2].substr(0, 5), " ZONE");
    // A floating case 600 spends hours above 79 F and below 68 F.
    std::size_t year = 0;
    while (year < flt.size() && flt[year].rfind("    YEAR", 0) != 0) ++year;
    ASSERT_LT(year, flt.size());
    const double below = Field(flt[year], 14, 11), within = Field(flt[year], 28, 12),
                 above = Field(flt[year], 42, 11);
    EXPECT_EQ(below + within + above, 8760);
    EXPECT_GT(below, 1000);
    EXPECT_GT(above, 1000);
    // No loads in a passive run.
    std::size_t roof = 0;
    while (roof < lines.size() && lines[roof].rfind("ROOF", 0) != 0) ++roof;
    ASSERT_LT(roof + 19, lines.size());
    EXPECT_EQ(Field(lines[roof + 19], 100, 15), 0.0);
}

// A project in SI: the engine still reads I-P, and reports in SI.
TEST(EngineContract, SiProjectReportsInSi) {
    const auto ip = RunEngine("solvane_contract_ip", 3);
    std::vector<std::string> flt;
    const auto si = RunEngine("solvane_contract_si", 3, &flt, nullptr, true);
    auto total = [](const std::vector<std::string>& lines) {
        std::size_t mon = 0;
        while (mon < lines.size() && lines[mon].rfind("MON", 0) != 0) ++mon;
        std::size_t eq = mon;
        while (eq < lines.size() && lines[eq].rfind("=", 0) != 0) ++eq;
        return eq + 1 < lines.size() ? Field(lines[eq + 1], 4, 8) : -1.0;
    };
    // MBtu to GJ: times 1.055.
    EXPECT_NEAR(total(si), total(ip) * 1.055056, 0.01 * total(si));
    std::size_t year = 0;
    while (year < flt.size() && flt[year].rfind("    YEAR", 0) != 0) ++year;
    ASSERT_LT(year, flt.size());
    // With heating and cooling the zone stays within 20..27 C (reported in C).
    EXPECT_GE(Field(flt[year], 70, 10), 19.9);
    EXPECT_LE(Field(flt[year], 56, 10), 27.1);
}

// Bad input ends the run with status 1 and the reason, naming the file and
// line, on Monitor.txt; nothing else is left behind.
TEST(EngineContract, BadControlFileIsReportedOnTheMonitor) {
    const fs::path dir = fs::temp_directory_path() / "solvane_contract_bad";
    fs::remove_all(dir);
    fs::create_directories(dir);
    fs::copy_file(kSource + "/tests/engine/projects/case600.inp", dir / "ecalc$.inp");
    ASSERT_TRUE(WriteFileAtomic(dir / "ecalc$.tmp", "Run type  : 3\r\nWthr type :  0 \r\n"));
    const std::string cmd = "cd \"" + dir.string() + "\" && \"" SOLV2020_PATH "\"";
    EXPECT_NE(std::system(cmd.c_str()), 0);
    const auto monitor = SplitLines(ReadTextFile(dir / "Monitor.txt").value_or(""));
    ASSERT_GE(monitor.size(), 6u);
    bool named = false;
    for (const std::string& l : monitor) named |= l.find("ecalc$.tmp LINE 3") != std::string::npos;
    EXPECT_TRUE(named);
    EXPECT_EQ(monitor.back(), "SIMULATION NOT COMPLETED");
    EXPECT_FALSE(fs::exists(dir / "sim$.out"));
    EXPECT_FALSE(fs::exists(dir / "Solv2020.work"));
    fs::remove_all(dir);
}

}  // namespace
}  // namespace solvane::engine
