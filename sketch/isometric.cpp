#include "sketch/isometric.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>

#include "core/numeric_helpers.h"

namespace solvane {

namespace {

constexpr Color kEdgeColor = 0x606060;
constexpr Color kCaptionColor = 0x000000;
constexpr int kMargin = 30;
constexpr int kCaptionSpace = 50;  // below the picture, for the sizes

// A wall's colour: the zone's colour darkened to `percent`; a colour too dark
// to darken is lightened by as much instead.
Color Shade(Color c, int percent) {
    const auto channel = [&](int shift) { return static_cast<int>((c >> shift) & 0xFF); };
    const bool dark = channel(16) + channel(8) + channel(0) < 120;
    const auto part = [&](int shift) {
        const int v = channel(shift);
        const int shaded = dark ? v + (255 - v) * (100 - percent) / 100 : v * percent / 100;
        return static_cast<Color>(shaded) << shift;
    };
    return part(16) | part(8) | part(0);
}

struct Extent {
    double umin = std::numeric_limits<double>::max(), umax = -umin;
    double vmin = umin, vmax = -umin;
    void Add(const TurnedRect& t) {
        umin = std::min({umin, t.u1, t.u3});
        umax = std::max({umax, t.u1, t.u3});
        vmin = std::min({vmin, t.v1, t.v3});
        vmax = std::max({vmax, t.v1, t.v3});
    }
};

}  // namespace

std::vector<double> LevelBases(const IsoScene& scene) {
    std::vector<double> bases;
    double below = 0;
    const double scale = scene.drawingScale > 0 ? scene.drawingScale : 1;
    for (float h : scene.levelHeight) {
        bases.push_back(below);
        below += h / scale;
    }
    bases.push_back(below);  // the top of the building
    return bases;
}

IsometricController::IsometricController(Canvas& canvas, Prompt& prompt)
    : canvas_(canvas), prompt_(prompt) {
    fields.caption = "3D View";
}

void IsometricController::Open(IsoScene scene) {
    scene_ = std::move(scene);
    scrollX_ = scrollY_ = scrollZ_ = 0;
    zoom_ = 1;
    Redraw();
}

void IsometricController::SetRotation(const std::string& text) {
    viewAngleDeg_ = WrapViewAngle(static_cast<float>(NumVal(text)));
    Redraw();
}

void IsometricController::View(int button) {
    viewAngleDeg_ = CornerViewAngle(button);
    Redraw();
}

void IsometricController::SetTransparent(bool on) {
    transparent_ = on;
    Redraw();
}

void IsometricController::Adjust(double dx, double dy, double dz, double zoom) {
    scrollX_ = dx;
    scrollY_ = dy;
    scrollZ_ = dz;
    zoom_ = zoom > 0.05 ? zoom : 0.05;
    Redraw();
}

void IsometricController::About3D() {
    prompt_.Ask(
        "The different view points are controlled by the [View From] buttons. UL=Upper Left, "
        "UR=Upper Right, LL=Lower Left, LR=Lower Right.  The picture shows the drawing as it "
        "stood when the view was opened: close it and open it again from the sketch after "
        "loading a new project or changing the drawing.",
        "About 3D.", Buttons::Ok, Icon::Information);
}

void IsometricController::Redraw() {
    projection_ = MakeProjection(viewAngleDeg_);
    fields["ZRotation"].text = NumText(projection_.ViewAngleDeg);
    fields["TPV1"].value = transparent_ ? 1 : 0;
    canvas_.Clear(0xFFFFFF);

    const std::vector<double> bases = LevelBases(scene_);
    const double drawnHeight = bases.back();
    const double base = std::floor(300 * zoom_) - drawnHeight;
    const auto levelOk = [&](int level) {
        return level >= 1 && level < static_cast<int>(bases.size());
    };

    // Fit the picture to the canvas: the extent of every projected corner.
    double xmin = std::numeric_limits<double>::max(), xmax = -xmin, ymin = xmin, ymax = -xmin;
    for (const IsoZone& z : scene_.zones) {
        if (!levelOk(z.level)) continue;
        const TurnedRect t = TurnRect(projection_, z.rect);
        for (double h : {bases[z.level - 1], bases[z.level]})
            for (double u : {t.u1, t.u3})
                for (double v : {t.v1, t.v3}) {
                    const IsoPoint p = Project(projection_, u, v, h, base);
                    xmin = std::min(xmin, p.x);
                    xmax = std::max(xmax, p.x);
                    ymin = std::min(ymin, p.y);
                    ymax = std::max(ymax, p.y);
                }
    }
    if (xmin > xmax) return;  // nothing drawn yet
    const double fit =
        std::min((canvas_.Width() - 2.0 * kMargin) / std::max(xmax - xmin, 1.0),
                 (canvas_.Height() - 2.0 * kMargin - kCaptionSpace) / std::max(ymax - ymin, 1.0));
    const double s = fit * zoom_;
    const double cx = (xmin + xmax) / 2, cy = (ymin + ymax) / 2;
    const double ox = canvas_.Width() / 2.0 + scrollX_;
    const double oy = (canvas_.Height() - kCaptionSpace) / 2.0 + scrollY_;
    const std::function<Point(IsoPoint)> toCanvas = [s, cx, cy, ox, oy, this](IsoPoint p) {
        return Point{static_cast<int>(std::lround(ox + (p.x - cx) * s)),
                     static_cast<int>(std::lround(oy + (p.y - cy) * s - scrollZ_))};
    };

    // Lowest level first; on a level, the farthest rectangle first.
    std::vector<const IsoZone*> order;
    for (const IsoZone& z : scene_.zones)
        if (levelOk(z.level)) order.push_back(&z);
    const auto depth = [&](const IsoZone* z) {
        const TurnedRect t = TurnRect(projection_, z->rect);
        return projection_.AxisSinB * (t.u1 + t.u3) + projection_.AxisSinA * (t.v1 + t.v3);
    };
    std::stable_sort(order.begin(), order.end(), [&](const IsoZone* a, const IsoZone* b) {
        if (a->level != b->level) return a->level < b->level;
        return depth(a) < depth(b);
    });
    for (const IsoZone* z : order)
        DrawZone(*z, bases[z->level - 1], bases[z->level], base, toCanvas);
    DrawCaptions();
}

void IsometricController::DrawZone(const IsoZone& z, double bottom, double top, double base,
                                   const std::function<Point(IsoPoint)>& toCanvas) {
    const TurnedRect t = TurnRect(projection_, z.rect);
    const double u0 = std::min(t.u1, t.u3), u1 = std::max(t.u1, t.u3);
    const double v0 = std::min(t.v1, t.v3), v1 = std::max(t.v1, t.v3);
    const auto at = [&](double u, double v, double h) {
        return toCanvas(Project(projection_, u, v, h, base));
    };
    // The corners of the box: [0..3] at the bottom, [4..7] on top, going
    // round (u0,v0), (u1,v0), (u1,v1), (u0,v1).
    const double us[4] = {u0, u1, u1, u0}, vs[4] = {v0, v0, v1, v1};
    Point c[8];
    for (int k = 0; k < 4; ++k) {
        c[k] = at(us[k], vs[k], bottom);
        c[k + 4] = at(us[k], vs[k], top);
    }
    const auto edge = [&](int a, int b, Color color, bool thick) {
        canvas_.Line(c[a].x, c[a].y, c[b].x, c[b].y, color);
        if (thick) canvas_.Line(c[a].x + 1, c[a].y, c[b].x + 1, c[b].y, color);
    };
    if (transparent_) {
        // Frame only: all twelve edges, each two pixels wide.
        for (int k = 0; k < 4; ++k) {
            edge(k, (k + 1) % 4, z.color, true);
            edge(k + 4, (k + 1) % 4 + 4, z.color, true);
            edge(k, k + 4, z.color, true);
        }
        return;
    }
    // The faces towards the viewer: at u1 (corners 1, 2) and at v1 (2, 3),
    // then the top.
    canvas_.Polygon({c[1], c[2], c[6], c[5]}, Shade(z.color, 80));
    canvas_.Polygon({c[2], c[3], c[7], c[6]}, Shade(z.color, 65));
    canvas_.Polygon({c[4], c[5], c[6], c[7]}, z.color);
    const int outline[][2] = {{1, 2}, {2, 3}, {1, 5}, {2, 6}, {3, 7},
                              {4, 5}, {5, 6}, {6, 7}, {7, 4}};
    for (const auto& e : outline) edge(e[0], e[1], kEdgeColor, false);
}

void IsometricController::DrawCaptions() {
    double xmin = std::numeric_limits<double>::max(), xmax = -xmin, ymin = xmin, ymax = -xmin;
    for (const IsoZone& z : scene_.zones) {
        xmin = std::min({xmin, double(z.rect.left), double(z.rect.right)});
        xmax = std::max({xmax, double(z.rect.left), double(z.rect.right)});
        ymin = std::min({ymin, double(z.rect.top), double(z.rect.bottom)});
        ymax = std::max({ymax, double(z.rect.top), double(z.rect.bottom)});
    }
    const std::string unit = scene_.units == 2 ? " Metres" : " Feet";
    const auto size = [&](double length) {
        return NumText(RoundOff(length * scene_.drawingScale, 1)) + unit;
    };
    // The building's overall sizes, in the corner below the picture.
    const std::pair<const char*, double> lines[] = {{"Width (W-E):", xmax - xmin},
                                                    {"Depth (S-N):", ymax - ymin},
                                                    {"Height:", LevelBases(scene_).back()}};
    int y = canvas_.Height() - kCaptionSpace + 6;
    for (const auto& [label, length] : lines) {
        canvas_.Text(10, y, label, 8, kCaptionColor);
        canvas_.Text(90, y, size(length), 8, kCaptionColor);
        y += 14;
    }
}

}  // namespace solvane
