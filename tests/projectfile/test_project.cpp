#include "test_project.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include "core/line_writer.h"
#include "core/numeric_helpers.h"
#include "core/text_file.h"
#include "ui/scripted_prompt.h"

namespace fs = std::filesystem;

namespace solvane::test {

ProgramFolder::ProgramFolder(const std::string& name) {
    root_ = fs::temp_directory_path() / ("solvane_pf_" + std::to_string(::getpid()) + "_" + name);
    fs::remove_all(root_);
    for (const char* dir : {"temp", "sketch", "sample"}) fs::create_directories(root_ / dir);
}

ProgramFolder::~ProgramFolder() {
    std::error_code ec;
    fs::remove_all(root_, ec);
}

void FillLibraryTitles(ProjectModel& m) {
    // As \profiles\Schedules-Solv2020.txt gives them.
    const char* titles[] = {
        "Occupancy (% of peak occupants)",      "Hot Water (% of peak flow)",
        "Lights (% of installed power)",        "Receptacles (% of installed power)",
        "Fans / Ventilation (% of hours on)",   "Summer Thermostat (cooling set point)",
        "Winter Thermostat (heating set point)"};
    for (int t = 1; t <= 7; ++t) m.profiles.ProfileTypeTitle[t] = titles[t - 1];
    const char* groups[] = {"Office",
                            "Retail",
                            "School",
                            "Hospital / 24-hour care",
                            "Hotel / motel",
                            "Full-service restaurant",
                            "Quick-service restaurant",
                            "Warehouse / industrial",
                            "Residential",
                            "Assembly",
                            "Health clinic",
                            "Supermarket"};
    for (int g = 1; g <= 12; ++g) m.profiles.ProfileGroupName[g] = groups[g - 1];
}

ProjectFileHooks TitleHooks() {
    ProjectFileHooks hooks;
    hooks.loadScheduleLibrary = [](Session& s, Prompt&) { FillLibraryTitles(s.model); };
    return hooks;
}

namespace {

// 24 values under "@@@@".
std::string Profile(const std::vector<int>& hours) {
    std::string out;
    for (int v : hours) out += FormatField(std::to_string(v), "@@@@");
    return out;
}
std::vector<int> Day(int night, int day, int from = 8, int to = 18) {
    std::vector<int> h(24);
    for (int i = 0; i < 24; ++i) h[i] = (i + 1 > from && i + 1 <= to) ? day : night;
    return h;
}

// A climate row: twelve values under "@@@@@@".
std::string Row(const std::vector<double>& v) {
    std::string out;
    for (double x : v) out += FormatField(NumText(RoundOff(x, 1)), "@@@@@@");
    return out;
}

void SetSurface(ProjectModel& m, int z, int s, int wallId, float area, int orient, int exposure,
                const std::string& shade, int windowId, float windowArea, float slope) {
    SurfaceState& sf = m.surfaces;
    sf.SurfWallId[z][s] = static_cast<std::int16_t>(wallId);
    sf.SurfArea[z][s] = area;
    sf.SurfOrient[z][s] = static_cast<std::int16_t>(orient);
    sf.SurfExposure[z][s] = static_cast<std::int16_t>(exposure);
    sf.SurfShade[z][s] = shade;
    sf.SurfWindowId[z][s] = static_cast<std::int16_t>(windowId);
    sf.SurfWindowArea[z][s] = windowArea;
    sf.SurfSlope[z][s] = slope;
    sf.SurfSWB[z][s] = "0";
    sf.SurfBlind[z][s] = 0;
    sf.SurfDiffTrans[z][s] = 0.8f;
    sf.SurfSillHeight[z][s] = windowArea > 0 ? 3.0f : 0.0f;
    sf.SurfWindowHeight[z][s] = windowArea > 0 ? 5.0f : 0.0f;
    sf.SurfGroundRefl[z][s] = 0.2f;
}

struct ZoneRow {
    const char* number;
    const char* name;
    const char* area;
    const char* people;
    const char* outdoorAir;
    const char* daylight;
};

void SetZone(ProjectModel& m, int z, const ZoneRow& row) {
    auto& d = m.zones.ZoneData[z];
    const char* fields[31] = {
        "",   row.number, row.name, row.area, "40", row.people, "1",   "1",  "1",   row.outdoorAir,
        "",   "3",        "1.5",    ".82",    "1",  "1.5",      "1",   "1",  "1",   "1",
        "4",  "1",        ".1",     ".25",    "15", "50",       "1.5", "13", "3.2", "12000",
        "500"};
    for (int f = 1; f <= 30; ++f) d[f] = fields[f];
    m.zones.ZoneNumber[z] = row.number;
    m.zones.ZoneName[z] = row.name;
    m.zones.ZoneNatVent[z] = "No";
    m.zones.ZoneDaylight[z] = row.daylight;
    m.zones.ZoneEconCycle[z] = "Yes";
}

}  // namespace

std::string OfficeMatrix() {
    LineWriter out;
    // Level 1: zone 1 is 20 by 20 cells, zone 2 beside it 10 by 20; level 2:
    // zone 1 over both. Grid size 2 ft.
    for (int level = 1; level <= 2; ++level) {
        const char* labels[] = {"Grid Size",   "Rotation",   "No. of Flrs",
                                "Room Height", "Floor Area", "Section Area"};
        const char* values[] = {"2", "15", "1", "10", level == 1 ? "2400" : "2400", "2400"};
        for (int i = 0; i < 6; ++i)
            out.Text(labels[i]).Column(13).Text(":").Text(values[i]).EndLine();
        for (int z = 1; z <= 25; ++z) {
            out.Text("ZoneName[" + std::to_string(z)).Column(12).Text("]:");
            std::string name = " Zone " + std::to_string(level) + "-" + std::to_string(z);
            if (level == 1 && z == 1) name = "Open Office";
            if (level == 1 && z == 2) name = "Conference";
            if (level == 2 && z == 1) name = "Upper Office";
            const bool used = (level == 1 && z <= 2) || (level == 2 && z == 1);
            out.Column(14).Text(name);
            out.Column(35).Num(used ? 200 : 0).Column(42).Num(used ? 150 : 0);
            out.Column(49).Num(10).Column(56).Num(used ? 100 : 0).Column(63).Num(used ? 300 : 0);
            out.Column(70).Num(used ? 400 : 0).Column(77).Num(used ? 100 : 0).EndLine();
        }
        for (int row = 60; row >= 1; --row) {
            std::string cells(90, '0');
            for (int col = 1; col <= 90; ++col) {
                const bool inRows = row >= 11 && row <= 30;
                if (!inRows) continue;
                if (level == 1 && col >= 11 && col <= 30) cells[col - 1] = '1';
                if (level == 1 && col >= 31 && col <= 40) cells[col - 1] = '2';
                if (level == 2 && col >= 11 && col <= 40) cells[col - 1] = '1';
            }
            out.Line(cells + " ");
        }
    }
    return out.Str();
}

void BuildOfficeProject(Session& session) {
    ProjectModel& m = session.model;
    m.session.Units = 1;
    m.session.UnitsIndex = 0;
    m.session.WeatherSeed = ".8376642";
    m.session.CodeNum = 2;
    m.session.ClimateZone = "7";
    m.flags.ProjectFromFile = 1;

    const char* project[12] = {"Small Office   21",
                               "Test Office",
                               "Two-storey office",
                               "Leadville Lake County AP, Colorado #",
                               "Preliminary",
                               "Scheme 1A",
                               "2026",
                               "15",
                               "4800",
                               "185.5",
                               "5",
                               "10"};
    for (int i = 0; i < 12; ++i) m.ProjectData[i] = project[i];

    // Leadville Lake County AP, Colorado: monthly figures of the program's
    // climate table (see data/sample/README.md).
    ClimateState& c = m.climate;
    c.WeatherData[1] =
        "          HDD = 10243       CDD = 0               WMO#   Lat.  Long.  STM.  Elev";
    std::string station = "Leadville Lake County AP, Colorado #";
    station.resize(50, ' ');
    c.WeatherData[2] = station + "72467339.217-106.317  -105  9928";
    c.WeatherData[3] =
        "             Jan   Feb   Mar   Apr   May   Jun   Jul   Aug   Sep   Oct   Nov   Dec";
    c.WeatherData[4] =
        Row({19.3, 19.2, 29.4, 38.4, 42.9, 52.0, 56.4, 54.9, 48.7, 36.6, 25.7, 18.7});
    c.WeatherData[5] = Row({6.6, 4.9, 7.9, 4.7, 6.5, 3.4, 3.1, 3.4, 4.7, 6.1, 10.0, 8.9});
    c.WeatherData[6] =
        Row({27.6, 30.5, 40.7, 49.8, 56.0, 65.2, 70.3, 69.8, 62.7, 49.7, 36.4, 29.2});
    c.WeatherData[7] = Row({6.8, 5.0, 10.3, 5.2, 8.8, 5.7, 5.0, 4.6, 5.0, 7.2, 12.1, 8.5});
    c.WeatherData[8] = Row({8.4, 8.0, 13.0, 15.5, 18.3, 27.6, 38.9, 28.8, 37.2, 20.4, 10.2, 5.8});
    c.WeatherData[9] = Row({7.6, 7.9, 5.6, 6.0, 7.0, 6.6, 4.5, 9.9, 4.4, 6.4, 8.5, 8.8});
    c.WeatherData[10] = Row({657, 989, 1542, 2036, 2237, 2269, 1942, 1891, 1090, 1257, 855, 643});
    c.WeatherData[11] = Row({8.2, 5.9, 7.4, 9.1, 7.7, 8.0, 6.7, 6.4, 7.2, 6.8, 8.9, 8.1});
    c.DesTemps[1] = "80.9";
    c.DesTemps[2] = "51.4";
    c.DesTemps[3] = "-11.3";
    c.DesTempsPresent = 1;

    EconomicsState& e = m.economics;
    const char* econ[11] = {"25", "20", "20", "5.5", "2.5", "12.5", "2", "1.1", "2", "4.5", "3"};
    for (int i = 0; i < 11; ++i) e.EconomicsData[i] = econ[i];
    e.DemandCharge = " Y";
    e.NumDemandRates = 2;
    e.DemandRateLimit[1] = "100";
    e.DemandRateCost[1] = "8.5";
    e.DemandRateLimit[2] = "500";
    e.DemandRateCost[2] = "6.25";

    WallCatalog& w = m.walls;
    const struct {
        int id;
        const char *desc, *u, *abs, *lag, *dec, *cost;
    } walls[] = {{1, "Steel frame wall R-13 + R-7.5 c.i.", ".064", ".7", "2", ".9", "1.25"},
                 {2, "Roof, insulation above deck R-30", ".032", ".65", "3", ".8", "2.1"},
                 {5, "Slab on grade, unheated", ".73", "0", "6", ".5", "0"}};
    for (const auto& x : walls) {
        w.WallUsed[x.id] = 1;
        w.WallId[x.id] = std::to_string(x.id);
        w.WallDescription[x.id] = x.desc;
        w.WallUFactor[x.id] = x.u;
        w.WallSolarAbs[x.id] = x.abs;
        w.WallTimeLag[x.id] = x.lag;
        w.WallDecrement[x.id] = x.dec;
        w.WallInsCost[x.id] = x.cost;
    }
    WindowCatalog& g = m.windows;
    const struct {
        int id;
        const char *desc, *u, *shgc, *em, *dl, *cost;
    } windows[] = {{1, "Metal frame, double low-e", ".42", ".38", ".1", ".6", "18"},
                   {3, "Skylight, double glazed", ".5", ".35", ".84", ".55", "24.5"}};
    for (const auto& x : windows) {
        g.WindowUsed[x.id] = 1;
        g.WindowId[x.id] = std::to_string(x.id);
        g.WindowDescription[x.id] = x.desc;
        g.WindowUFactor[x.id] = x.u;
        g.WindowSHGC[x.id] = x.shgc;
        g.WindowEmissivity[x.id] = x.em;
        g.WindowDLTrans[x.id] = x.dl;
        g.WindowInsCost[x.id] = x.cost;
    }

    FillLibraryTitles(m);
    const std::vector<int> groups[8] = {{}, {1, 4}, {1}, {1, 2}, {1}, {1}, {1, 3}, {1, 12}};
    for (int t = 1; t <= 7; ++t) {
        for (int grp : groups[t]) {
            ProfileTable& table = m.profiles.Types[t];
            table.GroupNum[grp] = std::to_string(grp);
            for (int k = 1; k <= 3; ++k) {
                std::vector<int> hours;
                if (t == kCoolStat)
                    hours = Day(k == 1 ? 85 : 90, k == 1 ? 76 : 90, 7, 18);
                else if (t == kHeatStat)
                    hours = Day(60, k == 1 ? 70 : 60, 7, 18);
                else if (t == kFans)
                    hours = Day(0, k == 3 ? 0 : 100, 7, 18);
                else
                    hours = Day(k == 1 ? 5 : 0, k == 1 ? 90 + grp : 10 * grp);
                table.Profile[grp][k] = Profile(hours);
            }
        }
    }

    ZoneState& zs = m.zones;
    zs.NumZones = 3;
    SetZone(m, 1, {"1-1", "Open Office", "1600", "16", "CP20", "Yes"});
    SetZone(m, 2, {"1-2", "Conference", "800", "20", "CS.15", "No"});
    SetZone(m, 3, {"2-1", "Upper Office", "2400", "24", "PA20", " Yes"});
    zs.ZoneSurfaceCount[1] = 5;
    SetSurface(m, 1, 1, 1, 400, 15, 1, "N0. N0. N0.", 1, 120, 90);
    SetSurface(m, 1, 2, 1, 400, 105, 2, "N0. N0. N0.", 1, 80, 90);
    SetSurface(m, 1, 3, 1, 400, 195, 3, "N0. N0. T.5", 1, 160, 90);
    SetSurface(m, 1, 4, 1, 400, 285, 4, "N0. N0. N0.", 1, 60, 90);
    SetSurface(m, 1, 5, 5, 1600, 0, 9, "N0. N0. N0.", 0, 0, 0);
    zs.ZoneSurfaceCount[2] = 0;
    zs.ZoneSurfaceCount[3] = 3;
    SetSurface(m, 3, 1, 1, 600, 195, 3, "N0. N0. T.25", 1, 210, 90);
    SetSurface(m, 3, 2, 2, 2400, 0, 6, "N0. N0. N0.", 3, 72, 0);
    SetSurface(m, 3, 3, 1, 600, 15, 1, "R1. L1. N0.", 1, 95.5f, 90);

    ASSERT_TRUE(WriteFileAtomic(session.paths.Resolve("\\sketch\\bld_mtx.all"), OfficeMatrix()));
}

std::string WholeFile(Session& session) {
    LineWriter out;
    out.Line(HeadLine(session.model, session.labels.UnitsLabel[session.model.session.Units]));
    WriteProjectFile(session, out);
    return out.Str();
}

void ReadInto(Session& session, const std::string& text) {
    ScriptedPrompt prompt;
    const ReadStatus status = ReadProjectFile(session, prompt, text, "test.inp", TitleHooks());
    ASSERT_EQ(status, ReadStatus::Read) << (prompt.asked.empty() ? "" : prompt.asked[0].text);
    ASSERT_TRUE(prompt.asked.empty());
}

std::string LineAt(const std::string& text, int index) {
    const auto lines = SplitLines(text);
    return index >= 0 && index < static_cast<int>(lines.size()) ? lines[index] : std::string();
}

int FindLine(const std::string& text, const std::string& line, int from) {
    const auto lines = SplitLines(text);
    for (int i = from; i < static_cast<int>(lines.size()); ++i)
        if (lines[i] == line) return i;
    return -1;
}

void ExpectWrittenAsRead(const std::string& written, const std::string& read) {
    const auto out = SplitLines(written), in = SplitLines(read);
    ASSERT_EQ(out.size(), in.size());
    for (std::size_t i = 0; i < in.size(); ++i) {
        if (in[i].rfind("WEATHER   CLzone=", 0) == 0)
            EXPECT_EQ(out[i], in[i].substr(0, 20));
        else
            EXPECT_EQ(out[i], in[i]) << "line " << i + 1;
    }
}

}  // namespace solvane::test
