// The projection of the 3D view: fitted axis weights by quadrant of the view
// angle, the plan corners turned to the nearest building corner, and the
// projection of a plan point at a height.
#pragma once

namespace solvane {

// A zone rectangle as the sketch stores it, in sheet units (y up).
struct PlanRect {
    float left = 0, top = 0, right = 0, bottom = 0;
};

struct IsoPoint {
    double x = 0;
    double y = 0;
};

struct Projection {
    float ViewAngleDeg = 0;
    float ViewAngle = 0;  // radians
    int ViewCorner = 4;   // 1..4, the building corner nearest the viewer
    float AxisSinA = 0, AxisCosA = 1, AxisSinB = 0, AxisCosB = 1;
    double ViewOriginX = 0, ViewOriginY = 0;
};

// The `ZRotation` rule: below 0 becomes 359, above 360 becomes 1.
float WrapViewAngle(float degrees);

// The projection for a view angle in degrees (wrapped first).
Projection MakeProjection(float degrees);

// Two opposite plan corners P1, P3 of a rectangle for the view corner; in the
// turned plan (U, V) the faces at the larger U and the larger V face the
// viewer.
struct TurnedRect {
    double u1, v1, u3, v3;
};
TurnedRect TurnRect(const Projection& p, const PlanRect& r);

// x' = ViewOriginX + AxisCosA V - AxisCosB U;
// y' = base - h + AxisSinB U + AxisSinA V + ViewOriginY (y grows downwards).
IsoPoint Project(const Projection& p, double u, double v, double h, double base);

// The angle that shows a corner view: 0 UL, 1 UR, 2 LL, 3 LR, naming the
// corner of the plan (north up) that stands nearest.
float CornerViewAngle(int button);

}  // namespace solvane
