#include "sketch/sheet_drawing.h"

#include <algorithm>
#include <cmath>

namespace solvane {

namespace {

constexpr int kLegendBox = 24;  // height of one legend box

int Brightness(Color c) {
    return (((c >> 16) & 0xFF) * 299 + ((c >> 8) & 0xFF) * 587 + (c & 0xFF) * 114) / 1000;
}

}  // namespace

void SheetLine(Canvas& canvas, double x1, double y1, double x2, double y2, Color color) {
    const Point a = SheetToPixel(canvas, x1, y1), b = SheetToPixel(canvas, x2, y2);
    canvas.Line(a.x, a.y, b.x, b.y, color);
}

void SheetCircle(Canvas& canvas, double cx, double cy, double radius, Color color) {
    const Point c = SheetToPixel(canvas, cx, cy);
    const Point edge = SheetToPixel(canvas, cx + radius, cy);
    canvas.Circle(c.x, c.y, edge.x - c.x, color);
}

void FillCell(Canvas& canvas, int row, int column, Color color) {
    SheetFillBox(canvas, kGridStep * (column - 1), kGridStep * (row - 1), kGridStep * column,
                 kGridStep * row, color);
}

void DottedOutline(Canvas& canvas, int x1, int y1, int x2, int y2, Color color) {
    const Point a = SheetToPixel(canvas, std::min(x1, x2), std::max(y1, y2));
    const Point b = SheetToPixel(canvas, std::max(x1, x2), std::min(y1, y2));
    const int xb = b.x - 1, yb = b.y - 1;
    for (int x = a.x; x <= xb; x += 3) {
        canvas.SetPoint(x, a.y, color);
        canvas.SetPoint(x, yb, color);
    }
    for (int y = a.y; y <= yb; y += 3) {
        canvas.SetPoint(a.x, y, color);
        canvas.SetPoint(xb, y, color);
    }
}

void DrawGridDots(Canvas& canvas) {
    for (int x = 0; x <= kSheetWidth; x += kGridStep)
        for (int y = 0; y <= kSheetHeight; y += kGridStep) {
            const Point p = SheetToPixel(canvas, x, y);
            const int cx = p.x, cy = p.y;
            canvas.SetPoint(cx, cy, kDotColor);
            if (x % 40 == 0 && y % 40 == 0) {
                canvas.SetPoint(cx + 1, cy, kDotColor);
                canvas.SetPoint(cx, cy + 1, kDotColor);
                canvas.SetPoint(cx + 1, cy + 1, kDotColor);
            }
        }
}

void DrawLegend(Canvas& canvas, const std::function<Color(int)>& color) {
    for (int z = 1; z <= 25; ++z) {
        const int top = kSheetHeight - kLegendBox * (z - 1);
        SheetFillBox(canvas, -99, top - 1, -87, top - kLegendBox + 2, color(z));
    }
}

int LegendZoneAt(double y) {
    if (y < 0 || y >= kSheetHeight) return 0;
    const int z = static_cast<int>((kSheetHeight - y) / kLegendBox) + 1;
    return z >= 1 && z <= 25 ? z : 0;
}

void DrawNorthArrow(Canvas& canvas, float rotation) {
    // Beside the sheet, between the legend and the sheet's left edge. The
    // drawing's up faces the rotation's azimuth, so north turns back by it.
    const double cx = -45, cy = 60, length = 20;
    const double a = -rotation * 3.14159265358979 / 180;
    const auto at = [&](double along, double across) {
        const double x = cx + along * std::sin(a) + across * std::cos(a);
        const double y = cy + along * std::cos(a) - across * std::sin(a);
        return SheetToPixel(canvas, x, y);
    };
    const Point tail = at(-length / 2, 0), head = at(length / 2, 0);
    const Point left = at(length / 2 - 6, -4), right = at(length / 2 - 6, 4);
    canvas.Line(tail.x, tail.y, head.x, head.y, kArrowColor);
    canvas.Line(head.x, head.y, left.x, left.y, kArrowColor);
    canvas.Line(head.x, head.y, right.x, right.y, kArrowColor);
    const auto caption = [&](double x, double y, const char* text) {
        const Point p = SheetToPixel(canvas, x, y);
        canvas.Text(p.x, p.y, text, 6, kArrowColor);
    };
    caption(cx - 2, cy + 24, "N");
    caption(cx + 16, cy + 4, "E");
    caption(cx - 2, cy - 14, "S");
    caption(cx - 22, cy + 4, "W");
}

void PrintZoneName(Canvas& canvas, double x, double y, const std::string& name, Color zoneColor) {
    const Color ink = Brightness(zoneColor) < 110 ? 0xF0F0F0 : kDotColor;
    const Point p = SheetToPixel(canvas, x, y);
    canvas.Text(p.x, p.y, TrimName(name), kNameFontSize, ink);
}

int NameWidth(const std::string& name) {
    return static_cast<int>(TrimName(name).size()) * 4;
}

std::string TrimName(const std::string& name) {
    const auto a = name.find_first_not_of(' ');
    if (a == std::string::npos) return {};
    const auto b = name.find_last_not_of(' ');
    return name.substr(a, b - a + 1);
}

}  // namespace solvane
