// A canvas of the sketch sheet's size that keeps only the pixels the sketch
// reads back: one a cell, at x = 5 and y = 7 (mod 10), where ScanLevel and the
// pointer sample the cell (its lower quarter, one pixel a sheet unit). At
// those pixels it answers as an in-memory raster of the full size would,
// drawn with the same clipping, at a hundredth of the memory and fill work:
// a fuzz target can load thousands of drawings a second with it. Every other
// pixel reads white.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <vector>

#include "ui/canvas.h"

namespace solvane::fuzz {

class SampledCanvas : public Canvas {
  public:
    static constexpr int kStep = 10, kX = 5, kY = 7;

    SampledCanvas(int width, int height)
        : width_(width),
          height_(height),
          cols_(Count(width, kX)),
          rows_(Count(height, kY)),
          cells_(static_cast<std::size_t>(cols_) * rows_, 0xFFFFFF) {}

    int Width() const override { return width_; }
    int Height() const override { return height_; }
    void Clear(Color background) override { std::fill(cells_.begin(), cells_.end(), background); }

    void FillBox(int x1, int y1, int x2, int y2, Color color) override {
        const int xa = std::max(std::min(x1, x2), 0), xb = std::min(std::max(x1, x2), width_ - 1);
        const int ya = std::max(std::min(y1, y2), 0), yb = std::min(std::max(y1, y2), height_ - 1);
        for (int r = First(ya, kY); r <= Last(yb, kY) && r < rows_; ++r)
            for (int c = First(xa, kX); c <= Last(xb, kX) && c < cols_; ++c) Cell(c, r) = color;
    }
    void Box(int x1, int y1, int x2, int y2, Color color) override {
        Line(x1, y1, x2, y1, color);
        Line(x2, y1, x2, y2, color);
        Line(x2, y2, x1, y2, color);
        Line(x1, y2, x1, y1, color);
    }
    // Only an axis-parallel line can pass a sample pixel in a run; a slanted
    // one is walked as the raster walks it (Bresenham 1965), cut to the canvas.
    void Line(int x1, int y1, int x2, int y2, Color color) override {
        if (x1 == x2 || y1 == y2) {
            FillBox(x1, y1, x2, y2, color);
            return;
        }
        const long long lx = std::llabs(static_cast<long long>(x2) - x1);
        const long long ly = std::llabs(static_cast<long long>(y2) - y1);
        if (lx > 4LL * width_ || ly > 4LL * height_) return;  // the charts' far points only
        const int dx = static_cast<int>(lx), sx = x1 < x2 ? 1 : -1;
        const int dy = -static_cast<int>(ly), sy = y1 < y2 ? 1 : -1;
        int err = dx + dy;
        for (;;) {
            SetPoint(x1, y1, color);
            if (x1 == x2 && y1 == y2) break;
            const int e2 = 2 * err;
            if (e2 >= dy) err += dy, x1 += sx;
            if (e2 <= dx) err += dx, y1 += sy;
        }
    }
    void SetPoint(int x, int y, Color color) override {
        if (x < 0 || y < 0 || x >= width_ || y >= height_) return;
        if (x % kStep == kX && y % kStep == kY) Cell(x / kStep, y / kStep) = color;
    }
    void Text(int x, int y, const std::string& text, int fontSize, Color color) override {
        if (text.empty()) return;
        const int h = std::max(fontSize, 1);
        const long long w = static_cast<long long>(text.size()) * std::max(h * 6 / 10, 1);
        const auto far = [](long long v) {
            return static_cast<int>(std::clamp(v, -1LL, 1LL << 30));
        };
        FillBox(x, y, far(x + w - 1), far(static_cast<long long>(y) + h - 1), color);
    }
    void Circle(int cx, int cy, int radius, Color color) override {
        if (std::abs(radius) > 4 * (width_ + height_)) return;
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
    // The sketch sheet draws no polygons; the outline is kept for the record.
    void Polygon(const std::array<Point, 4>& c, Color color) override {
        for (int i = 0; i < 4; ++i) Line(c[i].x, c[i].y, c[(i + 1) % 4].x, c[(i + 1) % 4].y, color);
    }
    Color ColorAt(int x, int y) const override {
        if (x < 0 || y < 0 || x >= width_ || y >= height_) return 0xFFFFFFFF;
        if (x % kStep != kX || y % kStep != kY) return 0xFFFFFF;
        return cells_[static_cast<std::size_t>(y / kStep) * cols_ + x / kStep];
    }

  private:
    static int Count(int size, int offset) {
        return size > offset ? (size - offset - 1) / kStep + 1 : 0;
    }
    // The first and last sample index within [a, b] of pixels.
    static int First(int a, int offset) {
        return a <= offset ? 0 : (a - offset + kStep - 1) / kStep;
    }
    static int Last(int b, int offset) { return b < offset ? -1 : (b - offset) / kStep; }
    Color& Cell(int c, int r) { return cells_[static_cast<std::size_t>(r) * cols_ + c]; }

    int width_, height_, cols_, rows_;
    std::vector<Color> cells_;
};

}  // namespace solvane::fuzz
