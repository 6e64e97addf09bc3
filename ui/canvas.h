// The drawing surface of the sketch, the isometric view and the charts. It is
// a raster that answers colour reads, since the sketch reads its cells back
// from the colours it drew.
#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace solvane {

// 0xRRGGBB.
using Color = std::uint32_t;

struct Point {
    int x = 0;
    int y = 0;
};

struct Canvas {
    virtual ~Canvas() = default;
    virtual int Width() const = 0;
    virtual int Height() const = 0;
    virtual void Clear(Color background) = 0;
    virtual void FillBox(int x1, int y1, int x2, int y2, Color color) = 0;
    virtual void Box(int x1, int y1, int x2, int y2, Color color) = 0;
    virtual void Line(int x1, int y1, int x2, int y2, Color color) = 0;
    virtual void SetPoint(int x, int y, Color color) = 0;
    virtual void Text(int x, int y, const std::string& text, int fontSize, Color color) = 0;
    virtual void Circle(int cx, int cy, int radius, Color color) = 0;
    // A filled four-point polygon.
    virtual void Polygon(const std::array<Point, 4>& corners, Color color) = 0;
    virtual Color ColorAt(int x, int y) const = 0;
};

// The classic 16-colour palette the program's colour numbers refer to.
Color PaletteColor(int index);

}  // namespace solvane
