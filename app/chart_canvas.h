// A canvas painted into an image with smooth text, for the result charts on
// screen and for their export to PNG and PDF. Unlike the sketch's
// ImageCanvas, nothing is read back from it, so its text is antialiased and
// not kept to a band.
#pragma once

#include <QImage>
#include <QLabel>
#include <QString>

#include "ui/canvas.h"

namespace solvane {

class ChartCanvas : public Canvas {
  public:
    ChartCanvas(int width, int height);

    int Width() const override { return image_.width(); }
    int Height() const override { return image_.height(); }
    void Clear(Color background) override;
    void FillBox(int x1, int y1, int x2, int y2, Color color) override;
    void Box(int x1, int y1, int x2, int y2, Color color) override;
    void Line(int x1, int y1, int x2, int y2, Color color) override;
    void SetPoint(int x, int y, Color color) override;
    void Text(int x, int y, const std::string& text, int fontSize, Color color) override;
    void Circle(int cx, int cy, int radius, Color color) override;
    void Polygon(const std::array<Point, 4>& corners, Color color) override;
    Color ColorAt(int x, int y) const override;

    const QImage& image() const { return image_; }

  private:
    QImage image_;
};

// Writes a chart picture to `file`: PDF when the name ends in ".pdf", else
// an image in the format its suffix names. False when it cannot be written.
bool ExportChart(const QImage& image, const QString& title, const QString& file);

}  // namespace solvane
