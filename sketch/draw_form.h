// The sketch screen `DrawForm`: the mouse paints rectangles of the selected
// zone's colour on the sheet and, after every stroke, the level's cells are
// read back from the canvas. Tools, snapping, erasing, levels, the level and
// building fields, and the way out of the sketch.
#pragma once

#include <functional>
#include <string>

#include "core/session.h"
#include "sketch/isometric.h"
#include "sketch/sketch_files.h"
#include "sketch/sketch_model.h"
#include "ui/canvas.h"
#include "ui/prompt.h"
#include "ui/screen_fields.h"

namespace solvane {

// The sheet on the canvas: one canvas unit a sheet unit, x from -100 at the
// left edge, y from 600 at the top edge down to 0.
inline constexpr int kCanvasWidth = 1000;
inline constexpr int kCanvasHeight = 600;
inline constexpr double SheetX(double canvasX) {
    return canvasX - 100;
}
inline constexpr double SheetY(double canvasY) {
    return kCanvasHeight - canvasY;
}

enum class Tool { Box, Line, Circle, Free, Matrix };

// What the pointer should look like where it is.
enum class PointerShape { Arrow, Cross, Paint, Erase };

// The shape of the stroke in progress, in sheet units; a display only.
struct RubberBand {
    Tool tool = Tool::Box;
    bool active = false;
    bool erase = false;
    double x1 = 0, y1 = 0, x2 = 0, y2 = 0;
};

enum class MouseButton { Left, Right, Middle };

// Fields: `gridsize`, `Rotation`, `num_floors`, `ceiling_ht`, `Level`,
// `Stories`, `BldgArea`, `zone_area`, `Coordinates_0`, `Coordinates_1`,
// `znname_0` .. `znname_24`, `draw_unit`, `CellInfo` (the status line) and
// `SelectedZone` (the zone being drawn).
class DrawFormController {
  public:
    DrawFormController(Session& session, Canvas& canvas, Prompt& prompt);

    // The screen's load: the drawing is read and level 1 shown. False when
    // the drawing could not be read (the user has been told).
    bool Load();

    // The pointer, in sheet units.
    void MouseDown(double x, double y, MouseButton button);
    void MouseMove(double x, double y, bool leftDown);
    void MouseUp(double x, double y, MouseButton button);
    void PointerLeft();

    // A `znname` box got the focus (zone 1..25) or was edited.
    void NameFocus(int zone);
    void NameEdited(int zone, const std::string& text);

    void UseTool(Tool tool);  // the box, guide and `MatrixButton` tools
    void BoxButton();         // boxbutton: erase a box
    void EraseArea();         // Erase_area
    void EraseDrawing();      // erase_dwg
    void LevelUp();           // LevUp
    void LevelDown();         // LevDn
    void DrawingScale();      // Dwg_Scale
    void Redraw();            // Redraw
    void RefreshGrid();       // Refresh_grid
    void Comply189();
    void Issues();

    // The level and building boxes: typing rules, edits, leaving a box.
    bool KeyAllowed(const std::string& field, int key) const;
    void FloorsEdited(const std::string& text);   // num_floors
    void CeilingEdited(const std::string& text);  // ceiling_ht
    bool GridSizeFocus();                         // false: not on this level
    void GridSizeEdited(const std::string& text);
    void GridSizeLeave();
    void RotationFocus();
    void RotationEdited(const std::string& text);
    void RotationLeave();

    Navigation Exit();    // Exit, DoneSketch
    Navigation Finish();  // finish

    // LoadItem: the chosen drawing replaces bld_mtx.all and is loaded.
    bool LoadDrawing(const std::string& file);
    // SaveItem's drawing option: bld_mtx.all copied to the chosen name.
    bool SaveDrawing(const std::string& file);

    // The picture of the 3D view, from the stored rectangles.
    IsoScene Scene() const;
    const RubberBand& band() const { return band_; }
    PointerShape Pointer(double x, double y) const;
    Color ZoneColorOf(int zone) const;
    int SelectedZone() const;
    Tool tool() const { return tool_; }
    bool erasing() const { return eraseMode_; }

    // The screen's tables and named fields.
    SketchScreen screen;
    ScreenFields& fields = screen.fields;

    // Stroke state.
    int ClickX = 0;
    int StrokeStartX = 0, StrokeStartY = 0;
    Color PaintColor = 0;
    int FacingIndex = 0;  // 0 north .. 3 west, from the rotation

  private:
    // The model's routines.
    bool LoadFiles();
    void Show(int level);
    void Scan();
    void WriteLevel();
    void RemoveLevel();
    bool AddLevel();
    bool JoinTo(const std::string& file);
    void KeepRotationOnLevelOne();
    SketchContext Context();

    void TellCell(double x, double y);
    void DrawBox(int sx, int sy, int ex, int ey);
    void EraseBox(int sx, int sy, int ex, int ey);
    void PaintCell(double x, double y);
    bool AskEraseBox();
    void ShowSelected();
    std::string ZoneName(int zone) const;
    Color ColorAtSheet(double x, double y) const;

    Session& session_;
    Canvas& canvas_;
    Prompt& prompt_;
    Tool tool_ = Tool::Box;
    bool eraseMode_ = false;
    RubberBand band_;
    bool paintAdds_ = true;      // a cell-paint stroke adds cells (else clears them)
    int lastPaintRow_ = -1, lastPaintCol_ = -1;
    double freeX_ = 0, freeY_ = 0;
    bool gridChanged_ = false, rotationChanged_ = false;
    float sheetWidth_ = 180;  // the drawing scale's last answer
};

}  // namespace solvane
