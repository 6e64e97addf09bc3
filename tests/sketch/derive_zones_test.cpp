#include "sketch/derive_zones.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "core/numeric_helpers.h"
#include "tests/sketch/sketch_test_support.h"

namespace solvane {
namespace {

using testing::LevelBlock;

// One zone file surface: its fourteen lines.
using Surface = std::vector<std::string>;

// Rows from the top of the sheet with `code` in columns [c1, c2] of rows [r1, r2].
std::vector<std::string> Rect(std::vector<std::string> rows, int r1, int r2, int c1, int c2,
                              char code) {
    if (static_cast<int>(rows.size()) < r2) rows.resize(static_cast<std::size_t>(r2), "");
    for (int r = r1; r <= r2; ++r) {
        std::string& row = rows[static_cast<std::size_t>(r - 1)];
        row.resize(90, '0');
        for (int c = c1; c <= c2; ++c) row[static_cast<std::size_t>(c - 1)] = code;
    }
    return rows;
}

struct DeriveZonesTest : ::testing::Test, testing::SketchBench {
    // Loads the levels as the sketch screen would and derives the zones.
    bool Derive(const std::vector<std::vector<std::string>>& levels) {
        std::vector<std::string> all;
        for (const auto& l : levels) all.insert(all.end(), l.begin(), l.end());
        WriteAll(all);
        auto ctx = Context();
        if (!LoadSketchFiles(ctx)) return false;
        return DeriveZones(session, screen, prompt);
    }
    std::vector<Surface> Surfaces(const std::string& number) const {
        const auto lines = ReadLines("\\temp\\temp" + number + ".zon");
        std::vector<Surface> out;
        for (std::size_t k = 0; k + 14 <= lines.size(); k += 14)
            out.emplace_back(lines.begin() + static_cast<std::ptrdiff_t>(k),
                             lines.begin() + static_cast<std::ptrdiff_t>(k + 14));
        EXPECT_EQ(lines.empty() ? "" : lines.back(), "end");
        return out;
    }
    void OverhangsEverywhere(float first, float upper) {
        for (auto& row : session.model.sizer.OverhangFirst) row.fill(first);
        for (auto& row : session.model.sizer.OverhangUpper) row.fill(upper);
    }
};

TEST(FrontObstruction, SineOfTheElevationAngle) {
    EXPECT_EQ(FrontObstruction(10, 8), 0.8f);
    EXPECT_EQ(FrontObstruction(30, 10), 0.9f);
    EXPECT_EQ(FrontObstruction(10, 0), 1.0f);
    EXPECT_EQ(FrontObstruction(0, 5), 0.0f);
    EXPECT_EQ(FrontObstruction(10, 100), 0.1f);
}

TEST(SurfaceOrder, MergeSortAndRoofWalk) {
    auto wall = [](int zone, int side, float front = 0) {
        SurfaceEntry e;
        e.zone = static_cast<std::int16_t>(zone);
        e.side = static_cast<std::int16_t>(side);
        e.front = front;
        return e;
    };
    // A merged entry's slot takes the last entry, which is then tested.
    std::vector<SurfaceEntry> e = {wall(1, 1), wall(1, 2), wall(1, 1), wall(1, 1, .5f), wall(1, 1)};
    MergeEntries(e);
    ASSERT_EQ(e.size(), 3u);
    EXPECT_EQ(e[0].count, 3);
    EXPECT_EQ(e[1].side, 2);
    EXPECT_EQ(e[2].front, .5f);

    // Selection by zone: the first of the smallest comes forward.
    SurfaceEntry roof = wall(1, 1);
    roof.kind = kRoofKind;
    SurfaceEntry floor = wall(1, 1);
    floor.kind = kFloorKind;
    e = {wall(2, 1), roof, wall(1, 2), floor, wall(1, 3), wall(2, 4)};
    std::vector<SurfaceEntry> top = e;
    OrderEntries(e, false);
    // The selection gives roof, 1/2, floor, 1/3, 2/1, 2/4; below the top the
    // roof walks behind wall 1/2 and stops at the floor.
    std::vector<std::pair<int, int>> got;
    for (const auto& x : e) got.push_back({x.zone, x.kind == kWallKind ? x.side : x.kind * 10});
    const std::vector<std::pair<int, int>> want = {{1, 2}, {1, 60}, {1, 70},
                                                   {1, 3}, {2, 1},  {2, 4}};
    EXPECT_EQ(got, want);
    OrderEntries(top, true);
    EXPECT_EQ(top[0].kind, kRoofKind);
}

TEST_F(DeriveZonesTest, OneRectangleGivesFourWallsARoofAndASplitFloor) {
    ASSERT_TRUE(Derive({LevelBlock(1, 2, 1, 10, Rect({}, 11, 16, 11, 20, '1'))}));
    const ProjectModel& m = session.model;
    EXPECT_EQ(m.zones.NumZones, 1);
    EXPECT_EQ(m.zones.ZoneNumber[1], "1-1");
    EXPECT_EQ(m.zones.ZoneName[1], " Zone 1-1");
    EXPECT_EQ(m.zones.ZoneFloorArea[1], 240.0f);
    EXPECT_EQ(m.BuildingFloorAreaEntered, 240.0f);
    EXPECT_EQ(m.sketch.RotationText, "0");

    const auto s = Surfaces("1-1");
    ASSERT_EQ(s.size(), 7u);
    EXPECT_EQ(m.zones.ZoneSurfaceCount[1], 7);
    // The merge leaves the walls of one rectangle in the order north, west,
    // south, east: the last entry takes the place of each one merged.
    const char* azimuth[] = {" 0 ", " 270 ", " 180 ", " 90 "};
    const char* area[] = {" 200 ", " 120 ", " 200 ", " 120 "};
    for (int k = 0; k < 4; ++k) {
        const Surface& w = s[static_cast<std::size_t>(k)];
        EXPECT_EQ(w[0], " 6  ");
        EXPECT_EQ(w[1], area[k]);
        EXPECT_EQ(w[2], azimuth[k]);
        EXPECT_EQ(w[3], "2   ");
        EXPECT_EQ(w[7], "90");
    }
    // East and west take the code overhang (none set: T0); north and south,
    // at latitude 0, neither.
    EXPECT_EQ(s[0][4], " N0. N0. N0.");
    EXPECT_EQ(s[1][4], " N0. N0. T0");
    EXPECT_EQ(s[2][4], " N0. N0. N0.");

    EXPECT_EQ(s[4], (Surface{" 1  ", " 240 ", " 0 ", "6   ", " N0. N0. N0.", " 1  ", " 0 ", "0",
                             "B", " 0 ", " 0 ", " 2.5 ", " 7.5 ", "0.0"}));
    // Perimeter strip 3 x 2 x 32 = 192; ratio 1.25 gives the inner floor "71" of 48.
    EXPECT_EQ(s[5][0], " 10 ");
    EXPECT_EQ(s[5][1], " 192 ");
    EXPECT_EQ(s[5][3], "7   ");
    EXPECT_EQ(s[5][6], " 0.0");
    EXPECT_EQ(s[5][7], "0");
    EXPECT_EQ(s[6][0], " 10 ");
    EXPECT_EQ(s[6][1], " 48 ");
    EXPECT_EQ(s[6][3], "71  ");

    EXPECT_EQ(ReadLines(kZoneNameFile), (std::vector<std::string>{"1-1   Zone 1-1", "99"}));
    EXPECT_EQ(ReadLines(kZoneAreaFile),
              (std::vector<std::string>{"Zone..Area ", "1-1   240 ", "0", "99"}));
    // bld_mtx.all is the level files joined again.
    EXPECT_EQ(ReadLines("\\sketch\\bld_mtx.all"), LevelLines(1));
}

TEST_F(DeriveZonesTest, InnerFloorKindFollowsTheRatio) {
    // 20 x 20 cells of 2 ft: area 1600, strip 3 x 2 x 80 = 480, ratio 3.33: "73".
    ASSERT_TRUE(Derive({LevelBlock(1, 2, 1, 10, Rect({}, 11, 30, 11, 30, '1'))}));
    const auto s = Surfaces("1-1");
    ASSERT_EQ(s.size(), 7u);
    EXPECT_EQ(s[5][1], " 480 ");
    EXPECT_EQ(s[6][0], " 10 ");
    EXPECT_EQ(s[6][1], " 1120 ");
    EXPECT_EQ(s[6][3], "73  ");
}

TEST_F(DeriveZonesTest, UShapeWallsSeeTheOtherWing) {
    // Wings in columns 11-13 and 18-20 over rows 11-16, joined by rows 17-19;
    // the U opens to the north. Four empty columns lie between the wings.
    auto rows = Rect({}, 11, 16, 11, 13, '1');
    rows = Rect(rows, 11, 16, 18, 20, '1');
    rows = Rect(rows, 17, 19, 11, 20, '1');
    OverhangsEverywhere(.5f, .25f);
    ASSERT_TRUE(Derive({LevelBlock(1, 2, 1, 10, rows)}));

    // Across the U: n = 5 cells, distance 8 ft, height 10: sin(atan(10/8)) = .78.
    std::vector<std::pair<std::string, std::string>> fronted;  // azimuth, shade
    for (const auto& w : Surfaces("1-1"))
        if (w[4].find(" F") != std::string::npos) fronted.push_back({w[2], w[4] + w[1]});
    std::sort(fronted.begin(), fronted.end());
    const std::vector<std::pair<std::string, std::string>> want = {
        {" 270 ", " R1. L1. F.8 20 "},  // inner west face of the east wing, top cell
        {" 270 ", " R1. N0. F.8 100 "},
        {" 90 ", " N0. L1. F.8 100 "},  // inner east face of the west wing
        {" 90 ", " R1. L1. F.8 20 "},
    };
    EXPECT_EQ(fronted, want);

    // The inner face of the base looks north into the open: no front factor,
    // the wings on its diagonals.
    bool baseSeen = false;
    for (const auto& w : Surfaces("1-1"))
        if (w[2] == " 0 " && w[3] == "2   " && w[4] == " R1. L1. N0.") baseSeen = (w[1] == " 80 ");
    EXPECT_TRUE(baseSeen);
}

TEST_F(DeriveZonesTest, RotationTurnsTheAzimuthsAndTheOverhangs) {
    session.model.climate.Latitude = 40;
    OverhangsEverywhere(.5f, .25f);
    session.model.sizer.WindowSizerApplied = 1;
    session.model.sizer.WindowFraction = {.4f, .2f, .4f, .15f, .03f, 0};
    ASSERT_TRUE(Derive({LevelBlock(1, 2, 1, 10, Rect({}, 11, 16, 11, 20, '1'), 350)}));
    const auto s = Surfaces("1-1");
    ASSERT_EQ(s.size(), 7u);
    // North turns to 350 (facing index 0 after 4 wraps), west 260, south 170, east 80.
    EXPECT_EQ(s[0][2], " 350 ");
    EXPECT_EQ(s[0][4], " N0. N0. N0.");
    EXPECT_EQ(s[1][2], " 260 ");
    EXPECT_EQ(s[1][4], " N0. N0. T.5");
    EXPECT_EQ(s[2][2], " 170 ");
    EXPECT_EQ(s[2][4], " N0. N0. T.5");
    EXPECT_EQ(s[3][2], " 80 ");
    EXPECT_EQ(s[3][4], " N0. N0. T.5");
    // Windows by facing: 200 x .4, 120 x .15, 200 x .4, 120 x .2, roof 240 x .03 = 7.2 -> 7.
    const char* window[] = {" 80 ", " 18 ", " 80 ", " 24 ", " 7 ", " 0.0"};
    for (int k = 0; k < 6; ++k) EXPECT_EQ(s[static_cast<std::size_t>(k)][6], window[k]) << k;
    EXPECT_EQ(session.model.surfaces.SurfWindowArea[1][4], 24.0f);
    EXPECT_EQ(session.model.surfaces.SurfWindowArea[1][5], 7.0f);
}

TEST_F(DeriveZonesTest, SouthernSitesShadeTheNorthWalls) {
    session.model.climate.Latitude = -33;
    OverhangsEverywhere(.5f, .25f);
    ASSERT_TRUE(Derive({LevelBlock(1, 2, 1, 10, Rect({}, 11, 16, 11, 20, '1'))}));
    const auto s = Surfaces("1-1");
    EXPECT_EQ(s[0][4], " N0. N0. T.5");  // north
    EXPECT_EQ(s[2][4], " N0. N0. N0.");  // south keeps its plain word
}

TEST_F(DeriveZonesTest, SmallerTopLevelRoofsOnlyTheUncoveredCells) {
    session.model.climate.Latitude = 40;
    OverhangsEverywhere(.5f, .25f);
    const auto lower = LevelBlock(1, 2, 1, 10, Rect({}, 11, 16, 11, 20, '1'));
    const auto upper = LevelBlock(2, 2, 2, 12, Rect({}, 11, 16, 11, 15, '1'));
    ASSERT_TRUE(Derive({lower, upper}));
    const ProjectModel& m = session.model;
    EXPECT_EQ(m.zones.NumZones, 2);
    EXPECT_EQ(m.zones.ZoneNumber[2], "2-1");
    EXPECT_EQ(m.BuildingFloorAreaEntered, 240.0f + 2 * 120.0f);

    const auto low = Surfaces("1-1");
    std::vector<std::string> roofs, floors;
    for (const auto& w : low) {
        if (w[3] == "6   ") roofs.push_back(w[1]);
        if (w[0] == " 10 ") floors.push_back(w[3]);
    }
    EXPECT_EQ(roofs, std::vector<std::string>{" 120 "});  // 30 uncovered cells of 4
    EXPECT_EQ(floors, (std::vector<std::string>{"7   ", "71  "}));
    // Nothing stands in front of a lone rectangle's walls.
    for (const auto& w : low) EXPECT_EQ(w[4].find(" F"), std::string::npos);

    const auto top = Surfaces("2-1");
    std::vector<std::string> topRoofs;
    for (const auto& w : top) {
        EXPECT_NE(w[0], " 10 ");  // floors only on level 1
        if (w[3] == "6   ") topRoofs.push_back(w[1]);
    }
    EXPECT_EQ(topRoofs, std::vector<std::string>{" 120 "});
    // Upper walls: 6 cells x 2 ft x room height 12, the upper overhang.
    EXPECT_EQ(top[0][1], " 120 ");
    bool upperOverhang = false;
    for (const auto& w : top) upperOverhang |= w[4] == " N0. N0. T.25";
    EXPECT_TRUE(upperOverhang);
}

TEST_F(DeriveZonesTest, ZonesSideBySideShareNoWallAndAnEnclosedZoneHasNoFloorStrip) {
    auto rows = Rect({}, 11, 16, 11, 20, '1');
    rows = Rect(rows, 11, 16, 21, 25, '2');
    rows = Rect(rows, 13, 14, 13, 14, '3');  // inside zone 1, touching nothing outside
    ASSERT_TRUE(Derive({LevelBlock(1, 2, 1, 10, rows)}));
    EXPECT_EQ(session.model.zones.NumZones, 3);

    int walls1 = 0;
    for (const auto& w : Surfaces("1-1"))
        if (w[3] == "2   ") {
            ++walls1;
            EXPECT_NE(w[2], " 90 ");  // no wall towards zone 2
        }
    EXPECT_EQ(walls1, 3);
    // Zone 3 has no exterior wall: perimeter 0, no division, and a floor of
    // no area is not written; its roof is.
    const auto s3 = Surfaces("1-3");
    ASSERT_EQ(s3.size(), 1u);
    EXPECT_EQ(s3[0][3], "6   ");
    EXPECT_EQ(s3[0][1], " 16 ");
    EXPECT_EQ(session.model.zones.ZoneSurfaceCount[3], 1);
}

TEST_F(DeriveZonesTest, LevelOnScreenKeepsTheTopLevelsFigures) {
    const auto lower = LevelBlock(1, 2, 1, 10, Rect({}, 11, 16, 11, 20, '1'));
    const auto upper = LevelBlock(2, 2, 3, 12, Rect({}, 11, 16, 11, 20, '1'));
    ASSERT_TRUE(Derive({lower, upper}));
    const SketchState& sk = session.model.sketch;
    ASSERT_EQ(sk.CurrentLevel, 1);
    // Level 1's own figures were used for its walls...
    EXPECT_EQ(Surfaces("1-1")[0][1], " 200 ");
    EXPECT_EQ(Surfaces("2-1")[0][1], " 240 ");
    EXPECT_EQ(session.model.BuildingFloorAreaEntered, 240.0f + 3 * 240.0f);
    // ...but afterwards level 1's entries hold those of the top level.
    EXPECT_EQ(sk.LevelCeilingHt[1], 12.0f);
    EXPECT_EQ(sk.LevelFloors[1], 3.0f);
    EXPECT_EQ(sk.LevelCeilingHt[2], 12.0f);
}

TEST_F(DeriveZonesTest, BoundsAreToldAndNothingChanges) {
    session.model.zones.NumZones = 7;

    // A checkerboard: every cell edge faces outside, far beyond 3300 pieces.
    std::vector<std::string> board(60, std::string(90, '0'));
    for (int r = 0; r < 60; ++r)
        for (int c = 0; c < 90; ++c)
            if ((r + c) % 2 == 0)
                board[static_cast<std::size_t>(r)][static_cast<std::size_t>(c)] = '1';
    EXPECT_FALSE(Derive({LevelBlock(1, 2, 1, 10, board)}));
    ASSERT_EQ(prompt.asked.size(), 1u);
    EXPECT_EQ(prompt.asked[0].title, "Too many surfaces");
    EXPECT_NE(prompt.asked[0].text.find("3300"), std::string::npos);
    EXPECT_EQ(session.model.zones.NumZones, 7);
    EXPECT_EQ(ReadLines("\\sketch\\bld_mtx.all").size(), 91u);  // as written, not joined

    // 25 single-cell zones: 150 entries, and walls beyond the 100th take the overhang.
    std::vector<std::string> dots(60, std::string(90, '0'));
    for (int k = 1; k <= 25; ++k)
        dots[static_cast<std::size_t>(2 * k - 1)][static_cast<std::size_t>(3 * k - 1)] =
            CellCode(k);
    EXPECT_FALSE(Derive({LevelBlock(1, 2, 1, 10, dots)}));
    ASSERT_EQ(prompt.asked.size(), 2u);
    EXPECT_EQ(prompt.asked[1].title, "Too many shaded walls");
    EXPECT_EQ(session.model.zones.NumZones, 7);

    // More zones than the project holds: five levels of 25.
    std::vector<std::vector<std::string>> levels;
    std::vector<std::string> strips;
    for (int z = 1; z <= 25; ++z) strips = Rect(strips, 11, 20, 10 + z, 10 + z, CellCode(z));
    for (int l = 1; l <= 5; ++l) levels.push_back(LevelBlock(l, 2, 1, 10, strips));
    EXPECT_FALSE(Derive(levels));
    ASSERT_EQ(prompt.asked.size(), 3u);
    EXPECT_NE(prompt.asked[2].text.find("100 zones"), std::string::npos);
    EXPECT_EQ(session.model.zones.NumZones, 7);
    EXPECT_FALSE(std::filesystem::exists(session.paths.Resolve("\\temp\\temp1-1.zon")));
}

TEST_F(DeriveZonesTest, SiWindowsKeepOneDecimal) {
    session.model.session.Units = 2;
    session.model.sizer.WindowSizerApplied = 1;
    session.model.sizer.WindowFraction = {.4f, .2f, .4f, .15f, .03f, 0};
    ASSERT_TRUE(Derive({LevelBlock(1, 1, 1, 3.5f, Rect({}, 11, 13, 11, 13, '1'))}));
    const auto s = Surfaces("1-1");
    // 3 cells x 1 m x 3.5 m = 10.5; north .4 -> 4.2; strip depth 1 m.
    EXPECT_EQ(s[0][1], " 10.5 ");
    EXPECT_EQ(s[0][6], " 4.2 ");
    EXPECT_EQ(s[0][11], " .75 ");
    EXPECT_EQ(s[0][12], " 2.25 ");
    EXPECT_EQ(s[4][6], " .3 ");  // roof 9 x .03 = .27
    EXPECT_EQ(s[5][1], " 9 ");   // strip 1 x 1 x 12 = 12, held to the floor area 9
}

}  // namespace
}  // namespace solvane

namespace solvane {
namespace {

// The building matrix of the office sample, written by the project file's
// own hand, loads and derives into the sample's three zones.
TEST_F(DeriveZonesTest, SampleProjectMatrixDerivesItsZones) {
    const auto text = ReadTextFile(std::filesystem::path(SOLVANE_SOURCE_DIR) / "data" / "sample" /
                                   "Office [two levels, I-P].inp");
    ASSERT_TRUE(text);
    auto lines = SplitLines(*text);
    const auto start = std::find(lines.begin(), lines.end(), "BUILDING MATRIX");
    ASSERT_NE(start, lines.end());
    WriteAll(std::vector<std::string>(start + 1, lines.end()));
    auto ctx = Context();
    ASSERT_TRUE(LoadSketchFiles(ctx));
    EXPECT_EQ(session.model.sketch.TopFloor, 2);
    EXPECT_EQ(session.model.sketch.Rotation, 15.0f);
    EXPECT_EQ(session.model.BuildingFloorAreaEntered, 4800.0f);
    EXPECT_EQ(screen.ZoneNameText(2), "Conference");
    ASSERT_TRUE(DeriveZones(session, screen, prompt));

    const ZoneState& zs = session.model.zones;
    ASSERT_EQ(zs.NumZones, 3);
    EXPECT_EQ(zs.ZoneNumber[1], "1-1");
    EXPECT_EQ(zs.ZoneName[1], "Open Office");
    EXPECT_EQ(zs.ZoneFloorArea[1], 1600.0f);
    EXPECT_EQ(zs.ZoneNumber[2], "1-2");
    EXPECT_EQ(zs.ZoneFloorArea[2], 800.0f);
    EXPECT_EQ(zs.ZoneNumber[3], "2-1");
    EXPECT_EQ(zs.ZoneName[3], "Upper Office");
    EXPECT_EQ(zs.ZoneFloorArea[3], 2400.0f);
    EXPECT_EQ(session.model.sketch.RotationText, "15");
    // Level 1 lies wholly under level 2: no roof below, floors on the ground.
    for (const auto& s : Surfaces("1-2")) EXPECT_NE(s[3], "6   ");
    // The north wall of the upper level turns to 15 degrees: 30 cells x 2 x 10.
    EXPECT_EQ(Surfaces("2-1")[0][1], " 600 ");
    EXPECT_EQ(Surfaces("2-1")[0][2], " 15 ");
}

}  // namespace
}  // namespace solvane
