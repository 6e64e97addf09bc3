// A canvas that draws nothing and traps on a point far off it: for fuzz
// targets whose drawings are under test for their figures, not their pixels.
#pragma once

#include <cstdlib>

#include "ui/canvas.h"

namespace solvane::fuzz {

class BoundsCanvas : public Canvas {
  public:
    int Width() const override { return 480; }
    int Height() const override { return 360; }
    void Clear(Color) override {}
    void FillBox(int x1, int y1, int x2, int y2, Color) override { Near(x1, y1), Near(x2, y2); }
    void Box(int x1, int y1, int x2, int y2, Color) override { Near(x1, y1), Near(x2, y2); }
    void Line(int x1, int y1, int x2, int y2, Color) override { Near(x1, y1), Near(x2, y2); }
    void SetPoint(int x, int y, Color) override { Near(x, y); }
    void Text(int x, int y, const std::string&, int, Color) override { Near(x, y); }
    void Circle(int cx, int cy, int, Color) override { Near(cx, cy); }
    void Polygon(const std::array<Point, 4>& corners, Color) override {
        for (const Point& p : corners) Near(p.x, p.y);
    }
    Color ColorAt(int, int) const override { return 0xFFFFFF; }

  private:
    // A chart's size beyond its edge is as far as a drawing may reach.
    void Near(int x, int y) const {
        if (std::abs(x) > 4 * Width() || std::abs(y) > 4 * Height()) __builtin_trap();
    }
};

}  // namespace solvane::fuzz
