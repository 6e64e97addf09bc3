#include "ui/raster_canvas.h"

#include <gtest/gtest.h>

namespace solvane {
namespace {

constexpr Color kWhite = 0xFFFFFF, kRed = 0xFF0000, kBlue = 0x0000FF;

TEST(RasterCanvas, BoxesAreReadBackCellByCell) {
    RasterCanvas c(40, 30);
    c.FillBox(12, 8, 5, 3, kRed);  // corners in either order
    EXPECT_EQ(c.ColorAt(5, 3), kRed);
    EXPECT_EQ(c.ColorAt(12, 8), kRed);
    EXPECT_EQ(c.ColorAt(13, 8), kWhite);
    c.Box(20, 10, 30, 20, kBlue);
    EXPECT_EQ(c.ColorAt(25, 10), kBlue);
    EXPECT_EQ(c.ColorAt(30, 15), kBlue);
    EXPECT_EQ(c.ColorAt(25, 15), kWhite);  // an outline only
    c.Clear(kBlue);
    EXPECT_EQ(c.ColorAt(0, 0), kBlue);
}

TEST(RasterCanvas, DrawingOutsideIsClippedAndReadsOutsideAreNoColour) {
    RasterCanvas c(10, 10);
    c.FillBox(-5, -5, 3, 3, kRed);
    c.Line(-20, 5, 30, 5, kBlue);
    c.SetPoint(100, 100, kRed);
    EXPECT_EQ(c.ColorAt(0, 0), kRed);
    EXPECT_EQ(c.ColorAt(9, 5), kBlue);
    EXPECT_EQ(c.ColorAt(-1, 0), 0xFFFFFFFFu);
    EXPECT_EQ(c.ColorAt(10, 0), 0xFFFFFFFFu);
}

TEST(RasterCanvas, FarOffFiguresAreCutToTheCanvas) {
    // Ends a billion pixels away: the visible part is drawn at once, with no
    // overflow of the line's step arithmetic.
    RasterCanvas c(20, 20);
    c.Line(5, 5, 5, -1'624'313'778, kRed);
    c.Line(-2'000'000'000, 10, 2'000'000'000, 10, kBlue);
    c.Text(2'147'483'000, 0, "far", 10, kRed);
    c.Polygon({Point{-2'000'000'000, 2}, Point{2'000'000'000, 2}, Point{2'000'000'000, 4},
               Point{-2'000'000'000, 4}},
              kBlue);
    EXPECT_EQ(c.ColorAt(5, 0), kRed);
    EXPECT_EQ(c.ColorAt(5, 5), kRed);
    EXPECT_EQ(c.ColorAt(5, 6), kWhite);
    EXPECT_EQ(c.ColorAt(0, 10), kBlue);
    EXPECT_EQ(c.ColorAt(19, 10), kBlue);
    EXPECT_EQ(c.ColorAt(10, 3), kBlue);
}

TEST(RasterCanvas, LinesReachBothEnds) {
    RasterCanvas c(20, 20);
    c.Line(2, 3, 17, 11, kRed);
    EXPECT_EQ(c.ColorAt(2, 3), kRed);
    EXPECT_EQ(c.ColorAt(17, 11), kRed);
    int count = 0;
    for (int x = 0; x < 20; ++x)
        for (int y = 0; y < 20; ++y) count += c.ColorAt(x, y) == kRed;
    EXPECT_EQ(count, 16);  // one pixel a column along the longer axis
}

TEST(RasterCanvas, FilledPolygonCoversItsInsideOnly) {
    RasterCanvas c(40, 40);
    // A parallelogram, as the isometric view draws faces.
    c.Polygon({Point{10, 10}, Point{30, 10}, Point{25, 30}, Point{5, 30}}, kBlue);
    EXPECT_EQ(c.ColorAt(17, 20), kBlue);
    EXPECT_EQ(c.ColorAt(10, 10), kBlue);  // its outline
    EXPECT_EQ(c.ColorAt(6, 12), kWhite);  // left of the slanted edge
    EXPECT_EQ(c.ColorAt(32, 20), kWhite);
}

TEST(RasterCanvas, CircleAndTextMarkTheirPlace) {
    RasterCanvas c(50, 50);
    c.Circle(25, 25, 10, kRed);
    EXPECT_EQ(c.ColorAt(35, 25), kRed);
    EXPECT_EQ(c.ColorAt(25, 15), kRed);
    EXPECT_EQ(c.ColorAt(25, 25), kWhite);
    c.Text(2, 2, "Zone", 10, kBlue);
    EXPECT_EQ(c.ColorAt(3, 3), kBlue);
    EXPECT_EQ(c.ColorAt(2, 40), kWhite);
}

TEST(Palette, ClassicSixteenColours) {
    EXPECT_EQ(PaletteColor(0), 0x000000u);
    EXPECT_EQ(PaletteColor(2), 0x008000u);
    EXPECT_EQ(PaletteColor(11), 0x00FFFFu);
    EXPECT_EQ(PaletteColor(13), 0xFF00FFu);
    EXPECT_EQ(PaletteColor(15), 0xFFFFFFu);
}

}  // namespace
}  // namespace solvane
