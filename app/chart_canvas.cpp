#include "app/chart_canvas.h"

#include <QPainter>
#include <QPdfWriter>

namespace solvane {

namespace {

QColor ToQColor(Color c) {
    return QColor::fromRgb(static_cast<QRgb>(c));
}

}  // namespace

ChartCanvas::ChartCanvas(int width, int height)
    : image_(std::max(width, 1), std::max(height, 1), QImage::Format_RGB32) {
    image_.fill(Qt::white);
}

void ChartCanvas::Clear(Color background) {
    image_.fill(ToQColor(background));
}

void ChartCanvas::FillBox(int x1, int y1, int x2, int y2, Color color) {
    QPainter p(&image_);
    p.fillRect(QRect(QPoint(std::min(x1, x2), std::min(y1, y2)),
                     QPoint(std::max(x1, x2), std::max(y1, y2))),
               ToQColor(color));
}

void ChartCanvas::Box(int x1, int y1, int x2, int y2, Color color) {
    QPainter p(&image_);
    p.setPen(ToQColor(color));
    p.drawRect(QRect(QPoint(std::min(x1, x2), std::min(y1, y2)),
                     QPoint(std::max(x1, x2), std::max(y1, y2)))
                   .adjusted(0, 0, -1, -1));
}

void ChartCanvas::Line(int x1, int y1, int x2, int y2, Color color) {
    QPainter p(&image_);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(QPen(ToQColor(color), 2));
    p.drawLine(x1, y1, x2, y2);
}

void ChartCanvas::SetPoint(int x, int y, Color color) {
    if (image_.valid(x, y)) image_.setPixel(x, y, static_cast<QRgb>(color) | 0xFF000000u);
}

void ChartCanvas::Text(int x, int y, const std::string& text, int fontSize, Color color) {
    QPainter p(&image_);
    p.setRenderHint(QPainter::TextAntialiasing);
    QFont font = p.font();
    font.setPointSize(fontSize);
    p.setFont(font);
    p.setPen(ToQColor(color));
    p.drawText(QPoint(x, y + QFontMetrics(font).ascent()), QString::fromStdString(text));
}

void ChartCanvas::Circle(int cx, int cy, int radius, Color color) {
    QPainter p(&image_);
    p.setPen(ToQColor(color));
    p.drawEllipse(QPoint(cx, cy), radius, radius);
}

void ChartCanvas::Polygon(const std::array<Point, 4>& corners, Color color) {
    QPainter p(&image_);
    QPolygon poly;
    for (const Point& c : corners) poly << QPoint(c.x, c.y);
    p.setPen(ToQColor(color));
    p.setBrush(ToQColor(color));
    p.drawPolygon(poly);
}

Color ChartCanvas::ColorAt(int x, int y) const {
    if (!image_.valid(x, y)) return 0xFFFFFFFF;
    return image_.pixel(x, y) & 0xFFFFFFu;
}

bool ExportChart(const QImage& image, const QString& title, const QString& file) {
    if (!file.endsWith(".pdf", Qt::CaseInsensitive)) return image.save(file);
    QPdfWriter pdf(file);
    pdf.setTitle(title);
    pdf.setPageOrientation(QPageLayout::Landscape);
    QPainter p;
    if (!p.begin(&pdf)) return false;
    const QRect page = p.viewport();
    QSize size = image.size();
    size.scale(page.size(), Qt::KeepAspectRatio);
    p.drawImage(QRect(QPoint(0, 0), size), image);
    return p.end();
}

}  // namespace solvane
