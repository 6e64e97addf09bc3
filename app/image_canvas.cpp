#include "app/image_canvas.h"

#include <QFont>
#include <QPainter>
#include <QPolygonF>
#include <algorithm>

namespace solvane {

namespace {

QColor ToQColor(Color c) {
    return QColor::fromRgb(static_cast<QRgb>(c & 0xFFFFFF));
}

// A painter in canvas units (the image's device pixel ratio maps them to its
// pixels), without smoothing: every unit gets exactly the colour it is drawn
// in, which the colour reads depend on.
class UnitPainter : public QPainter {
  public:
    explicit UnitPainter(QImage& image) : QPainter(&image) {
        setRenderHint(QPainter::Antialiasing, false);
        setRenderHint(QPainter::TextAntialiasing, false);
    }
    // A pen one unit wide whose line runs through the middle of the units.
    void UsePen(Color c) {
        QPen pen(ToQColor(c));
        pen.setWidthF(1.0);
        pen.setCapStyle(Qt::SquareCap);
        setPen(pen);
        translate(0.5, 0.5);
    }
};

}  // namespace

ImageCanvas::ImageCanvas(int width, int height, int pixelsPerUnit, Color background)
    : width_(std::max(width, 1)),
      height_(std::max(height, 1)),
      scale_(std::max(pixelsPerUnit, 1)),
      image_(width_ * scale_, height_ * scale_, QImage::Format_RGB32) {
    image_.setDevicePixelRatio(scale_);
    Clear(background);
}

void ImageCanvas::Clear(Color background) {
    image_.fill(ToQColor(background));
}

void ImageCanvas::FillBox(int x1, int y1, int x2, int y2, Color color) {
    const int xa = std::min(x1, x2), xb = std::max(x1, x2);
    const int ya = std::min(y1, y2), yb = std::max(y1, y2);
    UnitPainter p(image_);
    p.fillRect(QRectF(xa, ya, xb - xa + 1, yb - ya + 1), ToQColor(color));
}

void ImageCanvas::Box(int x1, int y1, int x2, int y2, Color color) {
    Line(x1, y1, x2, y1, color);
    Line(x2, y1, x2, y2, color);
    Line(x2, y2, x1, y2, color);
    Line(x1, y2, x1, y1, color);
}

void ImageCanvas::Line(int x1, int y1, int x2, int y2, Color color) {
    UnitPainter p(image_);
    p.UsePen(color);
    p.drawLine(QPointF(x1, y1), QPointF(x2, y2));
}

void ImageCanvas::SetPoint(int x, int y, Color color) {
    UnitPainter p(image_);
    p.fillRect(QRectF(x, y, 1, 1), ToQColor(color));
}

void ImageCanvas::Text(int x, int y, const std::string& text, int fontSize, Color color) {
    if (text.empty()) return;
    UnitPainter p(image_);
    QFont font("Sans");
    // Sizes are points on a sheet shown at about one unit a pixel.
    const int pixels = std::max(fontSize * 3 / 2, 4);
    font.setPixelSize(pixels);
    font.setStyleStrategy(QFont::NoAntialias);
    p.setFont(font);
    p.setPen(ToQColor(color));
    // A text keeps to the band of its size below y, descenders cut: what is
    // read back from the rows under it must not change.
    p.setClipRect(QRectF(x, y, width_, pixels));
    p.drawText(QRectF(x, y, width_, height_), Qt::AlignLeft | Qt::AlignTop | Qt::TextSingleLine,
               QString::fromStdString(text));
}

void ImageCanvas::Circle(int cx, int cy, int radius, Color color) {
    UnitPainter p(image_);
    p.UsePen(color);
    p.setBrush(Qt::NoBrush);
    p.drawEllipse(QPointF(cx, cy), radius, radius);
}

void ImageCanvas::Polygon(const std::array<Point, 4>& corners, Color color) {
    UnitPainter p(image_);
    p.UsePen(color);
    p.setBrush(ToQColor(color));
    QPolygonF poly;
    for (const Point& c : corners) poly << QPointF(c.x, c.y);
    p.drawPolygon(poly);
}

Color ImageCanvas::ColorAt(int x, int y) const {
    if (x < 0 || y < 0 || x >= width_ || y >= height_) return 0xFFFFFFFF;
    return static_cast<Color>(image_.pixel(x * scale_, y * scale_) & 0xFFFFFF);
}

}  // namespace solvane
