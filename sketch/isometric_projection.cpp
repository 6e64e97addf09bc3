#include "sketch/isometric_projection.h"

#include <cmath>

#include "core/numeric_helpers.h"

namespace solvane {

float WrapViewAngle(float degrees) {
    if (degrees < 0) return 359;
    if (degrees > 360) return 1;
    return degrees;
}

Projection MakeProjection(float degrees) {
    Projection p;
    p.ViewAngleDeg = WrapViewAngle(degrees);
    p.ViewAngle = p.ViewAngleDeg * DegToRad;
    const float a = p.ViewAngle;
    const float deg = p.ViewAngleDeg;
    // Weights fitted by eye to look right from each quadrant; not a true
    // axonometric projection.
    float wa, wb;
    if (a < Rad90) {
        p.ViewCorner = 4;
        wa = 0.82f * a + 0.17f;
        wb = 0.82f - 0.42f * a;
        p.ViewOriginX = 400 - 6.67 * deg;
        p.ViewOriginY = 300;
    } else if (a < Rad180) {
        p.ViewCorner = 3;
        wa = 0.92f * (a - 1.57f) + 0.02f;
        wb = 1.2f - 0.7f * (a - 1.57f);
        p.ViewOriginX = -200 - 14 * (deg - 90);
        p.ViewOriginY = 12 * (deg - 90) - 700;
    } else if (a < Rad270) {
        p.ViewCorner = 2;
        wa = 0.82f * (a - kPi) + 0.17f;
        wb = 0.82f - 0.42f * (a - kPi);
        p.ViewOriginX = 800 - 4 * (deg - 180);
        p.ViewOriginY = 300 - 5 * (deg - 180);
    } else {
        p.ViewCorner = 1;
        wa = 0.92f * (a - 4.71f) + 0.02f;
        wb = 1.2f - 0.7f * (a - 4.71f);
        p.ViewOriginX = 900 - 10 * (deg - 270);
        p.ViewOriginY = 300 - 5 * (deg - 270);
    }
    p.AxisSinA = std::sin(wa);
    p.AxisCosA = std::cos(wa);
    p.AxisSinB = std::sin(wb);
    p.AxisCosB = std::cos(wb);
    return p;
}

TurnedRect TurnRect(const Projection& p, const PlanRect& r) {
    switch (p.ViewCorner) {
        case 3:
            return {r.bottom + 1200.0, 400.0 - r.left, r.top + 1200.0, 400.0 - r.right};
        case 2:
            return {600.0 - r.right, 700.0 - r.bottom, 600.0 - r.left, 700.0 - r.top};
        case 1:
            return {600.0 - r.top, r.right + 400.0, 600.0 - r.bottom, r.left + 400.0};
        default:
            return {r.left, r.top, r.right, r.bottom};
    }
}

IsoPoint Project(const Projection& p, double u, double v, double h, double base) {
    return {p.ViewOriginX + p.AxisCosA * v - p.AxisCosB * u,
            base - h + p.AxisSinB * u + p.AxisSinA * v + p.ViewOriginY};
}

float CornerViewAngle(int button) {
    // Corner 3 shows the north-west corner nearest, 4 the north-east, 2 the
    // south-west and 1 the south-east: the middle of each quadrant.
    static constexpr float kAngles[4] = {135, 45, 225, 315};
    return kAngles[(button % 4 + 4) % 4];
}

}  // namespace solvane
