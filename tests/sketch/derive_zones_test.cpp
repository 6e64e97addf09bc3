#include "sketch/derive_zones.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "core/numeric_helpers.h"
#include "core/text_cuts.h"
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
    // Each surface of a zone file in one line: id, area, azimuth, exposure,
    // then the shading words and the window area, blanks trimmed.
    std::vector<std::string> Brief(const std::string& number) const {
        std::vector<std::string> out;
        const auto t = [](const std::string& x) { return cuts::TrimLeft(cuts::TrimRight(x)); };
        for (const Surface& w : Surfaces(number))
            out.push_back(t(w[0]) + " " + t(w[1]) + " " + t(w[2]) + " " + t(w[3]) + "|" + t(w[4]) +
                          "|" + t(w[6]));
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
    EXPECT_EQ(m.zones.ZoneName[1], " Zone 1-1");
    EXPECT_EQ(m.zones.ZoneFloorArea[1], 240.0f);
    EXPECT_EQ(m.zones.ZoneSurfaceCount[1], 7);
    EXPECT_EQ(m.BuildingFloorAreaEntered, 240.0f);
    // 10 x 6 cells of 2 ft, room height 10. The merge leaves the walls in the
    // order north, west, south, east (the last entry takes the place of each
    // one merged). East and west take the code overhang (none set: T0). The
    // strip is 3 x 2 x 32 = 192 of the 240; ratio 1.25 gives "71" of 48.
    EXPECT_EQ(Brief("1-1"),
              (std::vector<std::string>{"6 200 0 2|N0. N0. N0.|0", "6 120 270 2|N0. N0. T0|0",
                                        "6 200 180 2|N0. N0. N0.|0", "6 120 90 2|N0. N0. T0|0",
                                        "1 240 0 6|N0. N0. N0.|0", "10 192 0 7|N0. N0. N0.|0.0",
                                        "10 48 0 71|N0. N0. N0.|0.0"}));
    const auto s = Surfaces("1-1");
    EXPECT_EQ(s[0][7], "90");
    EXPECT_EQ(s[4], (Surface{" 1  ", " 240 ", " 0 ", "6   ", " N0. N0. N0.", " 1  ", " 0 ", "0",
                             "B", " 0 ", " 0 ", " 2.5 ", " 7.5 ", "0.0"}));
    EXPECT_EQ(ReadLines(kZoneNameFile), (std::vector<std::string>{"1-1   Zone 1-1", "99"}));
    EXPECT_EQ(ReadLines(kZoneAreaFile),
              (std::vector<std::string>{"Zone..Area ", "1-1   240 ", "0", "99"}));
    EXPECT_EQ(ReadLines("\\sketch\\bld_mtx.all"), LevelLines(1));  // the level files joined

    // 20 x 20 cells: area 1600, strip 3 x 2 x 80 = 480, ratio 3.33 gives "73".
    ASSERT_TRUE(Derive({LevelBlock(1, 2, 1, 10, Rect({}, 11, 30, 11, 30, '1'))}));
    EXPECT_EQ(Brief("1-1").back(), "10 1120 0 73|N0. N0. N0.|0.0");
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
    // North turns to 350 (facing index 0 after 4 wraps), east to 80 (index 1).
    // Windows by facing: 200 x .4, 120 x .15, 200 x .4, 120 x .2, roof 7.2 -> 7.
    const auto s = Brief("1-1");
    ASSERT_EQ(s.size(), 7u);
    EXPECT_EQ(std::vector<std::string>(s.begin(), s.begin() + 5),
              (std::vector<std::string>{"6 200 350 2|N0. N0. N0.|80", "6 120 260 2|N0. N0. T.5|18",
                                        "6 200 170 2|N0. N0. T.5|80", "6 120 80 2|N0. N0. T.5|24",
                                        "1 240 0 6|N0. N0. N0.|7"}));
    EXPECT_EQ(session.model.surfaces.SurfWindowArea[1][4], 24.0f);
    EXPECT_EQ(session.model.surfaces.SurfWindowArea[1][5], 7.0f);

    // In the southern hemisphere the north wall is shaded and the south one not.
    session.model.climate.Latitude = -33;
    ASSERT_TRUE(Derive({LevelBlock(1, 2, 1, 10, Rect({}, 11, 16, 11, 20, '1'))}));
    EXPECT_EQ(Brief("1-1")[0], "6 200 0 2|N0. N0. T.5|80");
    EXPECT_EQ(Brief("1-1")[2], "6 200 180 2|N0. N0. N0.|80");
}

TEST_F(DeriveZonesTest, SmallerTopLevelRoofsOnlyTheUncoveredCells) {
    session.model.climate.Latitude = 40;
    OverhangsEverywhere(.5f, .25f);
    const auto lower = LevelBlock(1, 2, 1, 10, Rect({}, 11, 16, 11, 20, '1'));
    const auto upper = LevelBlock(2, 2, 2, 12, Rect({}, 11, 16, 11, 15, '1'));
    ASSERT_TRUE(Derive({lower, upper}));
    EXPECT_EQ(session.model.zones.NumZones, 2);
    EXPECT_EQ(session.model.BuildingFloorAreaEntered, 240.0f + 2 * 120.0f);
    // Below, the roof covers the 30 uncovered cells; the floors lie on level 1.
    const auto low = Brief("1-1");
    EXPECT_EQ(std::vector<std::string>(low.begin() + 4, low.end()),
              (std::vector<std::string>{"1 120 0 6|N0. N0. N0.|0", "10 192 0 7|N0. N0. N0.|0.0",
                                        "10 48 0 71|N0. N0. N0.|0.0"}));
    // Above: 2 ft x room height 12, the upper overhang, a roof of the whole floor.
    EXPECT_EQ(Brief("2-1"),
              (std::vector<std::string>{"6 120 0 2|N0. N0. N0.|0", "6 144 270 2|N0. N0. T.25|0",
                                        "6 120 180 2|N0. N0. T.25|0", "6 144 90 2|N0. N0. T.25|0",
                                        "1 120 0 6|N0. N0. N0.|0"}));
}

TEST_F(DeriveZonesTest, ZonesSideBySideShareNoWallAndAnEnclosedZoneHasNoFloorStrip) {
    auto rows = Rect({}, 11, 16, 11, 20, '1');
    rows = Rect(rows, 11, 16, 21, 25, '2');
    rows = Rect(rows, 13, 14, 13, 14, '3');  // inside zone 1, touching nothing outside
    ASSERT_TRUE(Derive({LevelBlock(1, 2, 1, 10, rows)}));
    EXPECT_EQ(session.model.zones.NumZones, 3);
    // Zone 1 has no wall towards zone 2 (east) nor around zone 3.
    const auto one = Brief("1-1");
    EXPECT_EQ(std::vector<std::string>(one.begin(), one.begin() + 3),
              (std::vector<std::string>{"6 200 0 2|N0. N0. N0.|0", "6 120 270 2|N0. N0. T0|0",
                                        "6 200 180 2|N0. N0. N0.|0"}));
    EXPECT_EQ(one[3].substr(0, 2), "1 ");
    // Zone 3 has no strip: no division, and a floor of no area is not written.
    EXPECT_EQ(Brief("1-3"), std::vector<std::string>{"1 16 0 6|N0. N0. N0.|0"});
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
    // Nothing drawn: the zone lists are emptied, the zones kept.
    folder.Write(kZoneNameFile, "1-1  old\r\n99\r\n");
    ASSERT_TRUE(DeriveZones(session, screen, prompt));
    EXPECT_TRUE(ReadLines(kZoneNameFile).empty());
    EXPECT_EQ(session.model.zones.NumZones, 7);

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
    // 3 cells x 1 m x 3.5 m = 10.5 with 4.2 of window; the roof's .27 -> .3;
    // the 1 m strip (12) is held to the floor area 9.
    const auto s = Brief("1-1");
    EXPECT_EQ(s[0], "6 10.5 0 2|N0. N0. N0.|4.2");
    EXPECT_EQ(s[4], "1 9 0 6|N0. N0. N0.|.3");
    EXPECT_EQ(s[5], "10 9 0 7|N0. N0. N0.|0.0");
    EXPECT_EQ(Surfaces("1-1")[0][11], " .75 ");
    EXPECT_EQ(Surfaces("1-1")[0][12], " 2.25 ");
}

}  // namespace
}  // namespace solvane
