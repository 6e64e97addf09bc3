// The canvas of the screens: a QImage that the controllers draw on and read
// back. Drawing is in canvas units; the image may hold several device pixels
// per unit so that the picture stays sharp on high-density screens, and every
// unit reads back the colour it was drawn in. A text of size s keeps to the
// 1.5 s rows below its y.
#pragma once

#include <QImage>

#include "ui/canvas.h"

namespace solvane {

class ImageCanvas : public Canvas {
  public:
    ImageCanvas(int width, int height, int pixelsPerUnit = 1, Color background = 0xFFFFFF);

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

    // The picture, with its device pixel ratio set to the pixels per unit.
    const QImage& image() const { return image_; }
    int pixelsPerUnit() const { return scale_; }

  private:
    int width_;
    int height_;
    int scale_;
    QImage image_;
};

}  // namespace solvane
