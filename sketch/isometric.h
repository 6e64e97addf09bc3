// The `Isometric` screen: a read-only 3D picture of the sketched building,
// built from the last rectangle of each zone on each level. Levels are drawn
// from the lowest up and the faces of each level from back to front, so no
// hidden-surface test is needed.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "sketch/isometric_projection.h"
#include "ui/canvas.h"
#include "ui/prompt.h"
#include "ui/screen_fields.h"

namespace solvane {

struct IsoZone {
    int level = 1;
    int zone = 1;
    PlanRect rect;
    Color color = 0;
};

// What the picture is made of.
struct IsoScene {
    std::vector<float> levelHeight;  // [level - 1], building units
    std::vector<IsoZone> zones;      // zones with a label and a rectangle
    float drawingScale = 0.2f;       // building units per sheet unit
    int units = 1;                   // 1 I-P, 2 SI
};

// Fields: `ZRotation` (view angle, degrees), `TPV1` (value 1: frame only),
// `ViewZoom` (text of the zoom), the corner buttons `View_0` .. `View_3`
// (UL, UR, LL, LR) and `Close3D`, `SaveDWG`, `PrintDWG`, `About3D`.
class IsometricController {
  public:
    IsometricController(Canvas& canvas, Prompt& prompt);

    // `View3D`: shows the scene from the last angle at zoom 1.
    void Open(IsoScene scene);
    void SetRotation(const std::string& text);  // ZRotation, on leaving the box
    void View(int button);                      // 0 UL, 1 UR, 2 LL, 3 LR
    void SetTransparent(bool on);               // TPV1
    // The scroll bars: the picture moved by dx, dy and lifted by dz, in
    // picture units; zoom is a factor (1 on entry).
    void Adjust(double dx, double dy, double dz, double zoom);
    void About3D();
    void Redraw();

    const Projection& projection() const { return projection_; }
    ScreenFields fields;

  private:
    void DrawZone(const IsoZone& z, double bottom, double top, double base,
                  const std::function<Point(IsoPoint)>& toCanvas);
    void DrawCaptions();

    Canvas& canvas_;
    Prompt& prompt_;
    IsoScene scene_;
    Projection projection_;
    float viewAngleDeg_ = 45;
    bool transparent_ = false;
    double scrollX_ = 0, scrollY_ = 0, scrollZ_ = 0, zoom_ = 1;
};

// Heights of the levels below each level, in sheet units: [level - 1].
std::vector<double> LevelBases(const IsoScene& scene);

}  // namespace solvane
