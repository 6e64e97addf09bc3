// The 3D view drawn on an in-memory canvas.
#include "sketch/isometric.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "ui/raster_canvas.h"
#include "ui/scripted_prompt.h"

namespace solvane {
namespace {

constexpr Color kWhite = 0xFFFFFF, kRed = 0xFF0000, kBlue = 0x0000FF;

double Depth(const Projection& p, double u, double v) {
    return p.AxisSinB * u + p.AxisSinA * v;
}

TEST(IsometricProjection, QuadrantsGiveTheViewCornerAndFittedWeights) {
    const Projection p45 = MakeProjection(45);
    EXPECT_EQ(p45.ViewCorner, 4);
    const float a = 45 * 3.1415927f / 180;
    EXPECT_NEAR(p45.AxisSinA, std::sin(0.82f * a + 0.17f), 1e-6);
    EXPECT_NEAR(p45.AxisCosB, std::cos(0.82f - 0.42f * a), 1e-6);
    EXPECT_DOUBLE_EQ(p45.ViewOriginX, 400 - 6.67 * 45);
    EXPECT_EQ(MakeProjection(90).ViewCorner, 3);  // a bound starts the next quadrant
    EXPECT_EQ(MakeProjection(135).ViewCorner, 3);
    EXPECT_EQ(MakeProjection(225).ViewCorner, 2);
    EXPECT_EQ(MakeProjection(315).ViewCorner, 1);
    EXPECT_NEAR(MakeProjection(315).AxisSinB, std::sin(1.2f - 0.7f * (315 * a / 45 - 4.71f)), 1e-5);
    // The box's rule for angles out of range.
    EXPECT_EQ(MakeProjection(-5).ViewAngleDeg, 359);
    EXPECT_EQ(MakeProjection(-5).ViewCorner, 1);
    EXPECT_EQ(MakeProjection(400).ViewAngleDeg, 1);
    EXPECT_EQ(MakeProjection(360).ViewCorner, 1);
}

TEST(IsometricProjection, EachCornerButtonBringsItsPlanCornerNearest) {
    const PlanRect r{100, 500, 400, 200};
    // Plan corners in the order of the buttons: UL (north-west), UR, LL, LR.
    const double corners[4][2] = {
        {r.left, r.top}, {r.right, r.top}, {r.left, r.bottom}, {r.right, r.bottom}};
    for (int button = 0; button < 4; ++button) {
        const Projection p = MakeProjection(CornerViewAngle(button));
        // Turn each plan corner as a degenerate rectangle and compare depths.
        int nearest = -1;
        double best = -1e18;
        for (int k = 0; k < 4; ++k) {
            const PlanRect dot{static_cast<float>(corners[k][0]), static_cast<float>(corners[k][1]),
                               static_cast<float>(corners[k][0]),
                               static_cast<float>(corners[k][1])};
            const TurnedRect t = TurnRect(p, dot);
            const double d = Depth(p, t.u1, t.v1);
            if (d > best) {
                best = d;
                nearest = k;
            }
        }
        EXPECT_EQ(nearest, button) << "button " << button;
    }
}

class IsometricView : public ::testing::Test {
  protected:
    IsometricView() : canvas_(800, 600), iso_(canvas_, prompt_) {}

    IsoScene OneLevel(std::vector<IsoZone> zones, float height = 10) {
        IsoScene s;
        s.levelHeight = {height};
        s.zones = std::move(zones);
        return s;
    }

    int CountColor(Color c) const {
        int n = 0;
        for (int y = 0; y < canvas_.Height(); ++y)
            for (int x = 0; x < canvas_.Width(); ++x) n += canvas_.ColorAt(x, y) == c;
        return n;
    }

    RasterCanvas canvas_;
    ScriptedPrompt prompt_;
    IsometricController iso_;
};

TEST_F(IsometricView, OpaqueBoxShowsItsTopInTheZoneColourAndItsNearWallsShaded) {
    iso_.Open(OneLevel({{1, 1, {100, 400, 400, 200}, kRed}}));
    iso_.View(3);  // LR
    EXPECT_EQ(iso_.fields.Text("ZRotation"), "315");
    EXPECT_GT(CountColor(kRed), 1000);
    EXPECT_GT(CountColor(0xCC0000), 500);  // the wall at 80 %
    EXPECT_GT(CountColor(0xA50000), 500);  // the wall at 65 %
    EXPECT_EQ(canvas_.ColorAt(2, 2), kWhite);
}

TEST_F(IsometricView, ZonesAreDrawnBackToFrontWhateverTheirOrder) {
    // Two tall zones, one behind the other: whichever is listed first, the
    // nearer one covers the one behind it, from every corner.
    IsoScene s = OneLevel({{1, 1, {100, 300, 300, 200}, kRed},    // south
                           {1, 2, {100, 400, 300, 300}, kBlue}},  // north
                          200);
    s.drawingScale = 1;
    IsoScene swapped = s;
    std::swap(swapped.zones[0], swapped.zones[1]);
    for (int button = 0; button < 4; ++button) {
        iso_.Open(s);
        iso_.View(button);
        const RasterCanvas first = canvas_;
        iso_.Open(swapped);
        iso_.View(button);
        int differ = 0;
        for (int y = 0; y < canvas_.Height(); ++y)
            for (int x = 0; x < canvas_.Width(); ++x)
                differ += canvas_.ColorAt(x, y) != first.ColorAt(x, y);
        EXPECT_EQ(differ, 0) << "button " << button;
        EXPECT_GT(CountColor(kRed), 100);
        EXPECT_GT(CountColor(kBlue), 100);
    }
}

TEST_F(IsometricView, UpperLevelStandsOnTheLowerOne) {
    IsoScene s =
        OneLevel({{1, 1, {100, 400, 400, 100}, kRed}, {2, 1, {100, 400, 400, 100}, kBlue}});
    s.levelHeight = {10, 10};
    iso_.Open(s);
    iso_.View(0);
    // The top seen is the upper level's; the lower level shows only walls.
    EXPECT_GT(CountColor(kBlue), 1000);
    EXPECT_LT(CountColor(kRed), 20);
    EXPECT_GT(CountColor(0xCC0000) + CountColor(0xA50000), 100);
}

TEST_F(IsometricView, FrameModeLeavesTheFacesOpen) {
    iso_.Open(OneLevel({{1, 1, {100, 400, 400, 200}, kRed}}));
    const int filled = CountColor(kRed);
    iso_.SetTransparent(true);
    EXPECT_EQ(iso_.fields["TPV1"].value, 1);
    const int frame = CountColor(kRed);
    EXPECT_GT(frame, 100);
    EXPECT_LT(frame, filled / 4);
    EXPECT_EQ(CountColor(0xCC0000), 0);
}

// Records the captions.
class CaptionCanvas : public RasterCanvas {
  public:
    using RasterCanvas::RasterCanvas;
    void Text(int x, int y, const std::string& text, int size, Color c) override {
        // The sizes, with their unit word.
        if (text.ends_with(" Feet") || text.ends_with(" Metres")) texts.push_back(text);
        RasterCanvas::Text(x, y, text, size, c);
    }
    std::vector<std::string> texts;
};

TEST(IsometricCaptions, DimensionsAreInBuildingUnits) {
    CaptionCanvas canvas(800, 600);
    ScriptedPrompt prompt;
    IsometricController iso(canvas, prompt);
    IsoScene s;
    s.levelHeight = {10, 12};
    s.drawingScale = 0.2f;  // grid 2 ft
    s.zones = {{1, 1, {0, 300, 300, 200}, kRed}, {1, 2, {300, 300, 350, 100}, kBlue}};
    iso.Open(s);
    canvas.texts.clear();
    iso.View(3);
    // 350 by 200 sheet units at 0.2 ft, 22 ft high: width, depth, height.
    EXPECT_EQ(canvas.texts, (std::vector<std::string>{"70 Feet", "40 Feet", "22 Feet"}));
    canvas.texts.clear();
    s.units = 2;
    s.drawingScale = 0.1f;
    iso.Open(s);
    EXPECT_EQ(canvas.texts, (std::vector<std::string>{"35 Metres", "20 Metres", "22 Metres"}));
}

TEST(IsometricCaptions, AboutNamesTheCornerButtons) {
    RasterCanvas canvas(100, 100);
    ScriptedPrompt prompt;
    IsometricController iso(canvas, prompt);
    iso.About3D();
    ASSERT_EQ(prompt.asked.size(), 1u);
    EXPECT_EQ(prompt.asked[0].title, "About 3D.");
    EXPECT_NE(prompt.asked[0].text.find("UL=Upper Left, UR=Upper Right, LL=Lower Left, "
                                        "LR=Lower Right"),
              std::string::npos);
}

}  // namespace
}  // namespace solvane
