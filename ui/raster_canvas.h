// An in-memory canvas: every drawing call lands in a pixel array that colour
// reads answer from. Text is drawn as a filled box of its approximate extent.
#pragma once

#include <vector>

#include "ui/canvas.h"

namespace solvane {

class RasterCanvas : public Canvas {
  public:
    RasterCanvas(int width, int height, Color background = 0xFFFFFF);

    int Width() const override { return width_; }
    int Height() const override { return height_; }
    void Clear(Color background) override;
    void FillBox(int x1, int y1, int x2, int y2, Color color) override;
    void Box(int x1, int y1, int x2, int y2, Color color) override;
    void Line(int x1, int y1, int x2, int y2, Color color) override;
    void SetPoint(int x, int y, Color color) override;
    void Text(int x, int y, const std::string& text, int fontSize, Color color) override;
    void Circle(int cx, int cy, int radius, Color color) override;
    void Polygon(const std::array<Point, 4>& corners, Color color) override;
    Color ColorAt(int x, int y) const override;

  private:
    int width_;
    int height_;
    std::vector<Color> pixels_;
};

}  // namespace solvane
