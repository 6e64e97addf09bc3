#include "ui/raster_canvas.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace solvane {

Color PaletteColor(int index) {
    static constexpr Color kPalette[16] = {
        0x000000, 0x000080, 0x008000, 0x008080, 0x800000, 0x800080, 0x808000, 0xC0C0C0,
        0x808080, 0x0000FF, 0x00FF00, 0x00FFFF, 0xFF0000, 0xFF00FF, 0xFFFF00, 0xFFFFFF};
    return kPalette[((index % 16) + 16) % 16];
}

RasterCanvas::RasterCanvas(int width, int height, Color background)
    : width_(std::max(width, 0)),
      height_(std::max(height, 0)),
      pixels_(static_cast<std::size_t>(width_) * height_, background) {}

void RasterCanvas::Clear(Color background) {
    std::fill(pixels_.begin(), pixels_.end(), background);
}

void RasterCanvas::SetPoint(int x, int y, Color color) {
    if (x < 0 || y < 0 || x >= width_ || y >= height_) return;
    pixels_[static_cast<std::size_t>(y) * width_ + x] = color;
}

Color RasterCanvas::ColorAt(int x, int y) const {
    if (x < 0 || y < 0 || x >= width_ || y >= height_) return 0xFFFFFFFF;
    return pixels_[static_cast<std::size_t>(y) * width_ + x];
}

void RasterCanvas::FillBox(int x1, int y1, int x2, int y2, Color color) {
    const int xa = std::max(std::min(x1, x2), 0), xb = std::min(std::max(x1, x2), width_ - 1);
    const int ya = std::max(std::min(y1, y2), 0), yb = std::min(std::max(y1, y2), height_ - 1);
    for (int y = ya; y <= yb; ++y)
        for (int x = xa; x <= xb; ++x) pixels_[static_cast<std::size_t>(y) * width_ + x] = color;
}

void RasterCanvas::Box(int x1, int y1, int x2, int y2, Color color) {
    Line(x1, y1, x2, y1, color);
    Line(x2, y1, x2, y2, color);
    Line(x2, y2, x1, y2, color);
    Line(x1, y2, x1, y1, color);
}

namespace {

// Cuts the segment to the rectangle [0, w-1] x [0, h-1] (Liang and Barsky
// 1984). False when nothing of it lies inside.
bool ClipSegment(int w, int h, int& x1, int& y1, int& x2, int& y2) {
    const double dx = static_cast<double>(x2) - x1, dy = static_cast<double>(y2) - y1;
    const double p[4] = {-dx, dx, -dy, dy};
    const double q[4] = {static_cast<double>(x1), w - 1.0 - x1, static_cast<double>(y1),
                         h - 1.0 - y1};
    double t0 = 0, t1 = 1;
    for (int k = 0; k < 4; ++k) {
        if (p[k] == 0) {
            if (q[k] < 0) return false;
            continue;
        }
        const double t = q[k] / p[k];
        if (p[k] < 0)
            t0 = std::max(t0, t);
        else
            t1 = std::min(t1, t);
    }
    if (t0 > t1) return false;
    const double ax = x1 + t0 * dx, ay = y1 + t0 * dy, bx = x1 + t1 * dx, by = y1 + t1 * dy;
    x1 = static_cast<int>(std::lround(std::clamp(ax, 0.0, w - 1.0)));
    y1 = static_cast<int>(std::lround(std::clamp(ay, 0.0, h - 1.0)));
    x2 = static_cast<int>(std::lround(std::clamp(bx, 0.0, w - 1.0)));
    y2 = static_cast<int>(std::lround(std::clamp(by, 0.0, h - 1.0)));
    return true;
}

}  // namespace

// Bresenham's line (Bresenham 1965). A line reaching past the canvas is first
// cut to it, so that far-off points cost nothing and cannot overflow.
void RasterCanvas::Line(int x1, int y1, int x2, int y2, Color color) {
    const auto inside = [this](int x, int y) {
        return x >= 0 && y >= 0 && x < width_ && y < height_;
    };
    if (!(inside(x1, y1) && inside(x2, y2)) && !ClipSegment(width_, height_, x1, y1, x2, y2))
        return;
    const int dx = std::abs(x2 - x1), sx = x1 < x2 ? 1 : -1;
    const int dy = -std::abs(y2 - y1), sy = y1 < y2 ? 1 : -1;
    int err = dx + dy;
    for (;;) {
        SetPoint(x1, y1, color);
        if (x1 == x2 && y1 == y2) break;
        const int e2 = 2 * err;
        if (e2 >= dy) {
            err += dy;
            x1 += sx;
        }
        if (e2 <= dx) {
            err += dx;
            y1 += sy;
        }
    }
}

void RasterCanvas::Text(int x, int y, const std::string& text, int fontSize, Color color) {
    if (text.empty()) return;
    const int h = std::max(fontSize, 1);
    // The extent in 64 bits, cut to the canvas: a text placed far off is not drawn.
    const long long w = static_cast<long long>(text.size()) * std::max(h * 6 / 10, 1);
    const auto far = [](long long v) { return static_cast<int>(std::clamp(v, -1LL, 1LL << 30)); };
    FillBox(x, y, far(x + w - 1), far(static_cast<long long>(y) + h - 1), color);
}

// Midpoint circle outline.
void RasterCanvas::Circle(int cx, int cy, int radius, Color color) {
    int x = radius, y = 0, err = 1 - radius;
    while (x >= y) {
        const int pts[8][2] = {{x, y},   {y, x},   {-y, x}, {-x, y},
                               {-x, -y}, {-y, -x}, {y, -x}, {x, -y}};
        for (auto& p : pts) SetPoint(cx + p[0], cy + p[1], color);
        ++y;
        if (err < 0) {
            err += 2 * y + 1;
        } else {
            --x;
            err += 2 * (y - x) + 1;
        }
    }
}

// Scan-line fill with the even-odd rule, sampling at pixel centres.
void RasterCanvas::Polygon(const std::array<Point, 4>& c, Color color) {
    int ymin = c[0].y, ymax = c[0].y;
    for (const auto& p : c) {
        ymin = std::min(ymin, p.y);
        ymax = std::max(ymax, p.y);
    }
    ymin = std::max(ymin, 0);
    ymax = std::min(ymax, height_ - 1);
    for (int y = ymin; y <= ymax; ++y) {
        const double sy = y + 0.5;
        double xs[4];
        int n = 0;
        for (int i = 0; i < 4; ++i) {
            const Point& a = c[i];
            const Point& b = c[(i + 1) % 4];
            if ((a.y <= sy && b.y > sy) || (b.y <= sy && a.y > sy))
                xs[n++] = a.x + (sy - a.y) * (static_cast<double>(b.x) - a.x) /
                                    (static_cast<double>(b.y) - a.y);
        }
        // At most four crossings: an insertion sort.
        for (int a = 1; a < n; ++a)
            for (int b = a; b > 0 && xs[b] < xs[b - 1]; --b) std::swap(xs[b], xs[b - 1]);
        for (int k = 0; k + 1 < n; k += 2) {
            // The span cut to the canvas before it becomes pixel numbers.
            const int xa = static_cast<int>(std::ceil(std::max(xs[k], 0.0) - 0.5));
            const int xb = static_cast<int>(
                std::floor(std::min(xs[k + 1], static_cast<double>(width_)) - 0.5));
            for (int x = xa; x <= xb; ++x) SetPoint(x, y, color);
        }
    }
    for (int i = 0; i < 4; ++i) Line(c[i].x, c[i].y, c[(i + 1) % 4].x, c[(i + 1) % 4].y, color);
}

}  // namespace solvane
