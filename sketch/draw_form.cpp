#include "sketch/draw_form.h"

#include <algorithm>
#include <cmath>
#include <filesystem>

#include "core/line_writer.h"
#include "core/numeric_helpers.h"
#include "core/text_file.h"
#include "sketch/derive_zones.h"
#include "sketch/matrix_file.h"
#include "sketch/sheet_drawing.h"

namespace solvane {

namespace {

bool InsideSheet(double x, double y) {
    return x >= 0 && x < kSheetWidth && y >= 0 && y < kSheetHeight;
}

int Node(double v) {
    return static_cast<int>(std::floor(v / kGridStep + 0.5)) * kGridStep;
}

int CellCorner(double v) {
    return static_cast<int>(std::floor(v / kGridStep)) * kGridStep;
}

// Digits only, or digits and one kind of point: what the boxes keep.
std::string Keep(const std::string& text, bool point) {
    std::string out;
    for (char c : text)
        if ((c >= '0' && c <= '9') || (point && c == '.')) out += c;
    return out;
}

}  // namespace

DrawFormController::DrawFormController(Session& session, Canvas& canvas, Prompt& prompt)
    : session_(session), canvas_(canvas), prompt_(prompt) {}

// ---- entry ------------------------------------------------------------------

bool DrawFormController::Load() {
    tool_ = Tool::Box;
    eraseMode_ = false;
    band_ = {};
    screen.SheetClicked = false;
    if (!LoadFiles()) return false;
    fields["draw_unit"].text = session_.model.session.Units == 2 ? "(Metres)" : "(Feet)";
    sheetWidth_ = session_.model.sketch.GridSize * 90;
    ShowSelected();
    return true;
}

// ---- the pointer ---------------------------------------------------------------

void DrawFormController::MouseDown(double x, double y, MouseButton button) {
    SketchScreen& sc = screen;
    ClickX = static_cast<int>(std::floor(x));
    fields["Coordinates_1"].text = "Dim: 0., 0.";
    const bool left = button == MouseButton::Left;
    if (InsideSheet(x, y)) screen.SheetClicked = true;
    if (InsideSheet(x, y) && left) {
        StrokeStartX = Node(x);
        StrokeStartY = Node(y);
        band_ = {tool_,
                 true,
                 eraseMode_,
                 double(StrokeStartX),
                 double(StrokeStartY),
                 double(StrokeStartX),
                 double(StrokeStartY)};
        freeX_ = StrokeStartX;
        freeY_ = StrokeStartY;
        if (tool_ == Tool::Matrix) {
            lastPaintRow_ = lastPaintCol_ = -1;
            const Color under = ColorAtSheet(CellCorner(x) + 5, CellCorner(y) + 2.5);
            paintAdds_ = ZoneOfColor(under) <= 0;
            PaintCell(x, y);
        }
    }
    if (x < kLegendEdge && left) {
        eraseMode_ = false;
        const int zone = ZoneOfColor(ColorAtSheet(x, y));
        if (zone > 0) {
            PaintColor = ZoneColor(zone);
            sc.SelectedZone = zone;
            ShowSelected();
        }
    }
}

void DrawFormController::MouseMove(double x, double y, bool leftDown) {
    SketchState& sk = session_.model.sketch;
    if (!InsideSheet(x, y)) {
        PointerLeft();
        return;
    }
    const auto units = [&](double d) { return std::floor(d * sk.DrawingScale * 10 + 0.5) / 10; };
    fields["Coordinates_0"].text = "X,Y=" + NumText(units(Node(x))) + "," + NumText(units(Node(y)));
    TellCell(x, y);
    if (!leftDown || !band_.active) return;
    const int nx = Node(x), ny = Node(y);
    fields["Coordinates_1"].text = std::string("Dim: ") + (nx > StrokeStartX ? ">" : "<") +
                                   NumText(units(std::abs(nx - StrokeStartX))) + ", " +
                                   (ny > StrokeStartY ? "^" : "v") +
                                   NumText(units(std::abs(ny - StrokeStartY)));
    band_.x2 = tool_ == Tool::Box ? nx : x;
    band_.y2 = tool_ == Tool::Box ? ny : y;
    if (tool_ == Tool::Free) {
        SheetLine(canvas_, freeX_, freeY_, x, y, kDotColor);
        freeX_ = x;
        freeY_ = y;
    }
    if (tool_ == Tool::Matrix) PaintCell(x, y);
}

void DrawFormController::MouseUp(double x, double y, MouseButton button) {
    if (button != MouseButton::Left || x < kLegendEdge || !band_.active) {
        band_.active = false;
        return;
    }
    band_.active = false;
    const int ex = std::clamp(Node(x), 0, kSheetWidth), ey = std::clamp(Node(y), 0, kSheetHeight);
    switch (tool_) {
        case Tool::Box:
            if (eraseMode_)
                EraseBox(StrokeStartX, StrokeStartY, ex, ey);
            else
                DrawBox(StrokeStartX, StrokeStartY, ex, ey);
            break;
        case Tool::Line:
            SheetLine(canvas_, StrokeStartX, StrokeStartY, ex, ey, kDotColor);
            break;
        case Tool::Circle: {
            const double r = std::hypot(x - StrokeStartX, y - StrokeStartY);
            SheetCircle(canvas_, StrokeStartX, StrokeStartY, r, kDotColor);
            break;
        }
        case Tool::Free:
            SheetLine(canvas_, freeX_, freeY_, x, y, kDotColor);
            break;
        case Tool::Matrix:
            break;
    }
    Scan();
    // What an erase uncovers shows the level below again.
    if (eraseMode_ && tool_ == Tool::Box && session_.model.sketch.CurrentLevel > 1) Redraw();
    eraseMode_ = false;
    session_.model.flags.InputFileSaved = 0;
    DrawGridDots(canvas_);
    ShowSelected();
}

void DrawFormController::PointerLeft() {
    fields["Coordinates_0"].text.clear();
    fields["CellInfo"].text.clear();
}

void DrawFormController::TellCell(double x, double y) {
    SketchState& sk = session_.model.sketch;
    const int row = static_cast<int>(y / kGridStep) + 1, col = static_cast<int>(x / kGridStep) + 1;
    const int zone = sk.SketchGrid[row][col];
    std::string text = "Level " + std::to_string(sk.CurrentLevel) + ", row " + std::to_string(row) +
                       ", column " + std::to_string(col) + ": ";
    text += zone == 0 ? std::string("empty")
                      : "zone " + std::to_string(zone) + " (" + TrimName(ZoneName(zone)) + ")";
    if (eraseMode_) text += "   Erase box: drag over the area to delete";
    fields["CellInfo"].text = text;
}

// ---- strokes --------------------------------------------------------------------

void DrawFormController::DrawBox(int sx, int sy, int ex, int ey) {
    SketchState& sk = session_.model.sketch;
    SketchScreen& sc = screen;
    const int x1 = std::min(sx, ex), x2 = std::max(sx, ex);
    const int y1 = std::max(sy, ey), y2 = std::min(sy, ey);
    // A click, not a box; a box of no width holds no cell.
    if ((x2 - x1 < 5 && y1 - y2 < 5) || x1 == x2 || y1 == y2) return;
    const int z = sc.SelectedZone, L = sk.CurrentLevel;
    const Color color = ZoneColor(z);
    SheetFillBox(canvas_, x1, y1, x2, y2, color);
    const std::string name = ZoneName(z);
    sc.ZoneLabelX[L][z] = static_cast<std::int16_t>(x1 + ((x2 - x1) - NameWidth(name)) / 2);
    sc.ZoneLabelY[L][z] =
        static_cast<std::int16_t>(y1 - 10 * static_cast<int>(((y1 - y2) * 0.5) / 10 + 0.5));
    PrintZoneName(canvas_, sc.ZoneLabelX[L][z], sc.ZoneLabelY[L][z], name, color);
    sc.ZoneSketchArea[z] = RoundOff(
        sc.ZoneSketchArea[z] + double(sk.DrawingScale) * sk.DrawingScale * (y1 - y2) * (x2 - x1),
        0);
    sc.ZoneRectLeft[L][z] = static_cast<float>(x1);
    sc.ZoneRectTop[L][z] = static_cast<float>(y1);
    sc.ZoneRectRight[L][z] = static_cast<float>(x2);
    sc.ZoneRectBottom[L][z] = static_cast<float>(y2);
}

void DrawFormController::EraseBox(int sx, int sy, int ex, int ey) {
    SketchState& sk = session_.model.sketch;
    SketchScreen& sc = screen;
    const int x1 = std::min(sx, ex), x2 = std::max(sx, ex);
    const int y1 = std::max(sy, ey), y2 = std::min(sy, ey);
    SheetFillBox(canvas_, x1, y1, x2, y2, kWhite);
    for (int i = y2 / kGridStep + 1; i <= y1 / kGridStep; ++i)
        for (int j = x1 / kGridStep + 1; j <= x2 / kGridStep; ++j) sk.SketchGrid[i][j] = 0;
    const int L = sk.CurrentLevel;
    for (int z = 1; z <= 25; ++z) {
        if (sc.ZoneLabelX[L][z] == 0) continue;  // not in use on this level
        if (sc.ZoneRectLeft[L][z] >= x1 && sc.ZoneRectRight[L][z] <= x2 &&
            sc.ZoneRectTop[L][z] <= y1 && sc.ZoneRectBottom[L][z] >= y2) {
            sc.ZoneSketchArea[z] = 0;
            sc.ZoneLabelX[L][z] = sc.ZoneLabelY[L][z] = 0;
            sc.ZoneRectLeft[L][z] = sc.ZoneRectTop[L][z] = 0;
            sc.ZoneRectRight[L][z] = sc.ZoneRectBottom[L][z] = 0;
            fields["zone_area"].text = "Zn area= 0";
            return;
        }
    }
    prompt_.Ask(
        "It appears that you have removed only a portion of a zone.  Click the zone color icon in "
        "the left column and re-sketch a rectangle over the remaining area of that zone.  If you "
        "want to undo the deletion, click the zone color in the left column and re-draw the "
        "complete zone as it was. You will then be free to delete again if desired.",
        "Total zone area not removed.", Buttons::Ok, Icon::Information);
}

void DrawFormController::PaintCell(double x, double y) {
    SketchState& sk = session_.model.sketch;
    SketchScreen& sc = screen;
    const int cx = CellCorner(x), cy = CellCorner(y);
    const int row = cy / kGridStep + 1, col = cx / kGridStep + 1;
    if (row == lastPaintRow_ && col == lastPaintCol_) return;
    const Color under = ColorAtSheet(cx + 5, cy + 2.5);
    const int zone = ZoneOfColor(under);
    const double cell = double(sk.GridSize) * sk.GridSize;
    if (!paintAdds_ && zone > 0) {
        FillCell(canvas_, row, col, kWhite);
        sk.SketchGrid[row][col] = 0;
        sc.ZoneSketchArea[zone] = RoundOff(sc.ZoneSketchArea[zone] - cell, 0);
        fields["zone_area"].text = "Zn area=" + StrForm(sc.ZoneSketchArea[zone]);
    } else if (paintAdds_ && zone == 0) {
        const int z = sc.SelectedZone;
        FillCell(canvas_, row, col, ZoneColor(z));
        sk.SketchGrid[row][col] = static_cast<std::int16_t>(z);
        sc.ZoneSketchArea[z] = RoundOff(sc.ZoneSketchArea[z] + cell, 0);
        fields["zone_area"].text = "Zn area=" + StrForm(sc.ZoneSketchArea[z]);
    }
    lastPaintRow_ = row;
    lastPaintCol_ = col;
}

// ---- tools and erasing ---------------------------------------------------------------

void DrawFormController::UseTool(Tool tool) {
    tool_ = tool;
    eraseMode_ = false;
    band_ = {};
}

bool DrawFormController::AskEraseBox() {
    const Answer a = prompt_.Ask(
        "Draw a rectangular box over the area you want to be deleted.  OR, if you wish to cancel "
        "this operation, press Cancel.",
        "Erase portion or entire zone", Buttons::OkCancel, Icon::Question);
    if (a != Answer::Ok) {
        eraseMode_ = false;
        return false;
    }
    tool_ = Tool::Box;
    eraseMode_ = true;
    return true;
}

void DrawFormController::BoxButton() {
    AskEraseBox();
}

void DrawFormController::EraseArea() {
    if (!AskEraseBox()) return;
    PaintColor = kWhite;
    Redraw();
    DrawGridDots(canvas_);
    Scan();
}

void DrawFormController::EraseDrawing() {
    SketchState& sk = session_.model.sketch;
    SketchScreen& sc = screen;
    if (NumVal(fields.Text("num_floors")) >= 2) {
        prompt_.Ask(
            "Since there is more than one floor at this level, you can simple revise the "
            "(Num.Flrs./Level) text box to reflect the number of floors you want to be included "
            "at this level.",
            "Simply revise number of floors at this level.", Buttons::Ok, Icon::Information);
        return;
    }
    if (prompt_.Ask("Are you sure?",
                    "Warning - Drawing at this floor level will be permanently "
                    "removed.",
                    Buttons::YesNo, Icon::Exclamation) != Answer::Yes)
        return;
    const Answer a = prompt_.Ask(
        "Click YES to remove entire floor; Click NO to erase and revise this floor; Click CANCEL "
        "to keep drawing as is.",
        "Remove this Floor?  Building Height would be Reduced by one story!", Buttons::YesNoCancel,
        Icon::Question);
    if (a == Answer::Cancel) return;
    // The only level is not removed: a drawing keeps its first level, erased.
    if (a == Answer::Yes && sk.TopFloor > 1) {
        RemoveLevel();
        ShowSelected();
        return;
    }
    // Erase this level's drawing and keep the level for a new one.
    const int L = sk.CurrentLevel;
    for (int z = 1; z <= 25; ++z) {
        sc.ZoneSketchArea[z] = 0;
        sc.ZoneLabelX[L][z] = sc.ZoneLabelY[L][z] = 0;
        sc.ZoneRectLeft[L][z] = sc.ZoneRectTop[L][z] = 0;
        sc.ZoneRectRight[L][z] = sc.ZoneRectBottom[L][z] = 0;
    }
    for (auto& row : sk.SketchGrid) row.fill(0);
    Redraw();
    Scan();
    WriteLevel();
    ShowSelected();
}

// ---- levels -------------------------------------------------------------------------

void DrawFormController::LevelUp() {
    SketchState& sk = session_.model.sketch;
    WriteLevel();
    int next = sk.CurrentLevel + 1;
    if (next > sk.TopFloor) {
        const Answer a = prompt_.Ask(
            "Maximum number of floors will be exceeded!  Do you wish to add another level?",
            "Maximum Levels Exceeded", Buttons::YesNo, Icon::Question);
        if (a != Answer::Yes) {
            next = sk.TopFloor;
        } else if (!AddLevel()) {
            next = sk.TopFloor;
        }
    }
    Show(next);
    ShowSelected();
}

void DrawFormController::LevelDown() {
    SketchState& sk = session_.model.sketch;
    WriteLevel();
    Show(std::max(sk.CurrentLevel - 1, 1));
    ShowSelected();
}

// ---- the level and building boxes ----------------------------------------------------

bool DrawFormController::KeyAllowed(const std::string& field, int key) const {
    if (key < 32) return true;  // editing keys
    const bool digit = key >= '0' && key <= '9';
    if (field == "num_floors") return digit;
    if (field == "ceiling_ht" || field == "gridsize" || field == "Rotation")
        return digit || key == '.';
    return true;
}

void DrawFormController::FloorsEdited(const std::string& text) {
    SketchState& sk = session_.model.sketch;
    SketchScreen& sc = screen;
    fields["num_floors"].text = text;
    const std::string digits = Keep(text, false);
    if (digits.empty()) return;  // nothing to take until a number is typed
    const int L = sk.CurrentLevel;
    const float value = static_cast<float>(NumVal(digits));
    if (L == 1 && value > 1) {
        prompt_.Ask(
            "First level should have no more than 1 floor so individual code-required window "
            "shading can apply uniquely to only first floor.  If you want another floor like the "
            "first floor, go up one level and draw the same floor plan on level 2.",
            "Floors per level stipulation.", Buttons::Ok, Icon::Exclamation);
        fields["num_floors"].text = "1";
        return;
    }
    const float old = sk.LevelFloors[L];
    if (value == old) return;
    sk.LevelFloors[L] = value;
    sk.LevelHeight[L] = value * sk.LevelCeilingHt[L];
    sk.Stories += value - old;
    auto& built = session_.model.BuildingFloorAreaEntered;
    built = built - sc.MatrixHeader[6] + sc.MatrixHeader[5] * value;
    sc.MatrixHeader[6] = sc.MatrixHeader[5] * value;
    if (old != 0)
        for (int z = 1; z <= 25; ++z) sc.ZoneSketchArea[z] *= value / old;
    ShowSelected();
}

void DrawFormController::CeilingEdited(const std::string& text) {
    SketchState& sk = session_.model.sketch;
    const std::string kept = Keep(text, true);
    fields["ceiling_ht"].text = kept;
    const int L = sk.CurrentLevel;
    sk.LevelCeilingHt[L] = static_cast<float>(NumVal(kept));
    sk.LevelHeight[L] = sk.LevelFloors[L] * sk.LevelCeilingHt[L];
}

bool DrawFormController::GridSizeFocus() {
    if (session_.model.sketch.CurrentLevel == 1) return true;
    prompt_.Ask("Grid size change can only be made from first level", "Grid Size Change",
                Buttons::Ok, Icon::Information);
    return false;
}

void DrawFormController::GridSizeEdited(const std::string& text) {
    if (session_.model.sketch.CurrentLevel != 1) return;
    fields["gridsize"].text = text;
    gridChanged_ = true;
}

void DrawFormController::GridSizeLeave() {
    SketchState& sk = session_.model.sketch;
    SketchScreen& sc = screen;
    const std::string text = fields.Text("gridsize");
    if (!gridChanged_ || text.empty() || text.back() == '.') return;
    gridChanged_ = false;
    const std::string kept = Keep(text, true);
    const float now = static_cast<float>(NumVal(kept));
    const float old = sk.GridSize;
    if (now == 0 || old == 0) {
        fields["gridsize"].text = NumText(old);
        return;
    }
    // The same cells stand for another building: every area scales.
    const float f = (now / old) * (now / old);
    sk.GridSize = now;
    sk.DrawingScale = now / kGridStep;
    for (int z = 1; z <= 25; ++z) sc.ZoneSketchArea[z] *= f;
    sc.MatrixHeader[5] *= f;
    sc.MatrixHeader[6] *= f;
    session_.model.BuildingFloorAreaEntered *= f;
    fields["gridsize"].text = kept;
    sheetWidth_ = now * 90;
    ShowSelected();
}

void DrawFormController::RotationFocus() {
    if (session_.model.sketch.CurrentLevel > 1)
        prompt_.Ask("This will rotate the entire building and zones equally on all floor levels.",
                    "Rotation Change", Buttons::Ok, Icon::Information);
}

void DrawFormController::RotationEdited(const std::string& text) {
    fields["Rotation"].text = text;
    rotationChanged_ = true;
}

void DrawFormController::RotationLeave() {
    if (!rotationChanged_) return;
    rotationChanged_ = false;
    SketchState& sk = session_.model.sketch;
    const std::string kept = Keep(fields.Text("Rotation"), true);
    fields["Rotation"].text = kept;
    sk.Rotation = static_cast<float>(NumVal(kept));
    FacingIndex = static_cast<int>((sk.Rotation + 45) / 90) % 4;
    // The arrow's corner of the sheet is cleared and drawn again.
    SheetFillBox(canvas_, -84, 100, -1, 20, kWhite);
    DrawNorthArrow(canvas_, sk.Rotation);
    // The building's rotation is read from level 1 when that level is shown
    // again: a turn made on another level goes into level 1's file now.
    if (sk.CurrentLevel > 1) KeepRotationOnLevelOne();
}

void DrawFormController::KeepRotationOnLevelOne() {
    const auto file = LevelFilePath(session_.paths, 1);
    const auto text = ReadTextFile(file);
    std::vector<std::string> lines = text ? SplitLines(*text) : std::vector<std::string>{};
    if (lines.size() < 2) return;
    lines[1] = MatrixHeaderLine(2, session_.model.sketch.Rotation);
    LineWriter out;
    for (const std::string& line : lines) out.Line(line);
    if (!WriteFileAtomic(file, out.Str()))
        prompt_.Ask("The level file " + file.string() + " could not be written.", "Building Sketch",
                    Buttons::Ok, Icon::Exclamation);
}

void DrawFormController::DrawingScale() {
    SketchState& sk = session_.model.sketch;
    if (sk.CurrentLevel != 1) {
        prompt_.Ask("Grid size change can only be made from first level", "Grid Size Change",
                    Buttons::Ok, Icon::Information);
        return;
    }
    const auto answer = prompt_.Input(
        "Enter the horizontal dimension represented by your drawing sheet.  Must be at least the "
        "maximum outside dimension of your planned building.",
        "Drawing Scale", NumText(sheetWidth_));
    if (!answer || TrimName(*answer).empty()) return;
    const double v = NumVal(*answer);
    if (v <= 0) return;
    sk.GridSize = static_cast<float>(std::floor(2 * v / 90 + 0.98) * 0.5);
    sk.DrawingScale = sk.GridSize / kGridStep;
    sheetWidth_ = sk.GridSize * 90;
    fields["gridsize"].text = NumText(sk.GridSize);
    Scan();
    ShowSelected();
}

// ---- messages ---------------------------------------------------------------------

void DrawFormController::Comply189() {
    prompt_.Ask(
        "The latest 189.1-2017 requirements are much more stringent than the 90.1-2019 "
        "requirements when it comes to window areas on the East and West exposures.  Under "
        "189.1-2017 the window area of the East wall and of the West wall may each be no more "
        "than one sixth of the sum of the window percentages of the four facades (one quarter "
        "under 90.1-2019, one half under 90.1-2010).  The Window Sizer holds the East and West "
        "areas to that limit.",
        "Green Buildings Standard Stringency Alert!", Buttons::Ok, Icon::Exclamation);
}

void DrawFormController::Issues() {
    prompt_.Ask(
        "Sketch Routine Issues:\n\n"
        "1. A zone drawn with several rectangles may show its name in several places.  Click "
        "Cleanup to repaint the sheet with one name for each zone.\n\n"
        "2. To print the drawing, use Print in the File menu.  If no printer is installed, save "
        "the drawing as a JPEG picture with Save Drawing (or print it to a PDF file) and print it "
        "later.",
        "Drawing Tips", Buttons::Ok, Icon::Information);
}

// ---- leaving -----------------------------------------------------------------------

Navigation DrawFormController::Exit() {
    ProjectModel& m = session_.model;
    if (m.BuildingFloorAreaEntered != 0) {
        const Answer a = prompt_.Ask(
            "Have you saved your window areas and overhang PF data? If not, click No and then "
            "apply the Save feature in the Window Sizer dialog box.",
            "Window Save Alert!", Buttons::YesNo, Icon::Question);
        if (a != Answer::Yes) return {};
        WriteLevel();
        // A sketch whose zones cannot be derived stays open (the user was told).
        if (!DeriveZones(session_, screen, prompt_)) return {};
        m.flags.InputSavedFlag = 0;
        m.flags.ProjectTouched = 1;
        m.flags.ReSketched = 1;
    } else {
        const Answer a = prompt_.Ask(
            "Drawing was not completed, no building plan will be added! Press OK to return to "
            "Main Menu Screen.  Press Cancel to continue drawing.",
            "Building plan not drawn.", Buttons::OkCancel, Icon::Exclamation);
        if (a != Answer::Ok) return {};
        m.flags.ReSketched = 0;
    }
    // A new sketch must be looked at zone by zone before a run.
    session_.mainmenu["runmenu"].enabled = false;
    session_.mainmenu["Image6"].enabled = false;
    session_.mainmenu["executerun"].enabled = false;
    return {Screen::MainMenu, true, false};
}

Navigation DrawFormController::Finish() {
    const Answer a = prompt_.Ask(
        "Are you sure?  Drawing will revert to original status!  New sketching will not be "
        "added!",
        "Warning - Drawing update will not occur", Buttons::OkCancel, Icon::Exclamation);
    if (a != Answer::Ok) return {};
    session_.model.flags.ReSketched = 0;
    return {Screen::MainMenu, true, false};
}

// ---- drawings as files ----------------------------------------------------------------

bool DrawFormController::LoadDrawing(const std::string& file) {
    std::error_code ec;
    std::filesystem::copy_file(file, session_.paths.Resolve("sketch\\bld_mtx.all"),
                               std::filesystem::copy_options::overwrite_existing, ec);
    if (ec) {
        prompt_.Ask("The drawing " + file + " could not be read: " + ec.message() + ".",
                    "Open Drawing", Buttons::Ok, Icon::Exclamation);
        return false;
    }
    Load();
    return true;
}

bool DrawFormController::SaveDrawing(const std::string& file) {
    WriteLevel();
    if (!JoinTo(file)) {
        prompt_.Ask("The drawing could not be written to " + file + ".", "Save Drawing",
                    Buttons::Ok, Icon::Exclamation);
        return false;
    }
    return true;
}

// ---- the sheet ------------------------------------------------------------------------

void DrawFormController::Redraw() {
    SketchState& sk = session_.model.sketch;
    SketchScreen& sc = screen;
    const int L = sk.CurrentLevel;
    canvas_.Clear(kWhite);
    DrawLegend(canvas_, [&](int z) { return ZoneColor(z); });
    DrawNorthArrow(canvas_, sk.Rotation);
    // Where the level below stands: grey, read as empty.
    if (L > 1)
        for (int z = 1; z <= 25; ++z) {
            if (sc.ZoneLabelX[L - 1][z] == 0) continue;
            const int x1 = int(sc.ZoneRectLeft[L - 1][z]), y1 = int(sc.ZoneRectTop[L - 1][z]);
            const int x2 = int(sc.ZoneRectRight[L - 1][z]), y2 = int(sc.ZoneRectBottom[L - 1][z]);
            SheetFillBox(canvas_, x1, y1, x2, y2, kLowerLevelGrey);
            DottedOutline(canvas_, x1, y1, x2, y2, kDotColor);
        }
    for (int i = 1; i <= 60; ++i)
        for (int j = 1; j <= 90; ++j) {
            const int cell = sk.SketchGrid[i][j];
            if ((cell + 25) % 26 != 25) FillCell(canvas_, i, j, ZoneColor(cell));
        }
    for (int z = 1; z <= 25; ++z) {
        if (sc.ZoneLabelX[L][z] == 0) {
            sc.ZoneRectLeft[L][z] = sc.ZoneRectTop[L][z] = 0;
            sc.ZoneRectRight[L][z] = sc.ZoneRectBottom[L][z] = 0;
            continue;
        }
        PrintZoneName(canvas_, sc.ZoneLabelX[L][z], sc.ZoneLabelY[L][z], ZoneName(z), ZoneColor(z));
    }
    // A level just copied from the one below shows the copied rectangles.
    if (sc.NewLevelPending == 1) {
        for (int z = 1; z <= 25; ++z)
            if (sc.ZoneLabelX[L][z] != 0)
                DottedOutline(canvas_, int(sc.ZoneRectLeft[L][z]), int(sc.ZoneRectTop[L][z]),
                              int(sc.ZoneRectRight[L][z]), int(sc.ZoneRectBottom[L][z]), kDotColor);
        sc.NewLevelPending = 0;
    }
    DrawGridDots(canvas_);
}

void DrawFormController::RefreshGrid() {
    Redraw();
    Scan();
}

// ---- shown values ----------------------------------------------------------------------

void DrawFormController::ShowSelected() {
    SketchState& sk = session_.model.sketch;
    SketchScreen& sc = screen;
    const int z = sc.SelectedZone;
    fields["zone_area"].text = "Zn area=" + StrForm(RoundOff(sc.ZoneSketchArea[z], 1));
    fields["BldgArea"].text =
        "BldArea=" + StrForm(RoundOff(session_.model.BuildingFloorAreaEntered, 0));
    fields["Stories"].text =
        "Stories=" + StrForm(sk.Stories) + " (" + NumText(sk.LevelFloors[sk.CurrentLevel]) + ")";
    fields["Level"].text = "Level= " + std::to_string(sk.CurrentLevel);
    fields["num_floors"].text = NumText(sk.LevelFloors[sk.CurrentLevel]);
    fields["ceiling_ht"].text = NumText(sk.LevelCeilingHt[sk.CurrentLevel]);
    if (!gridChanged_) fields["gridsize"].text = NumText(sk.GridSize);
    if (!rotationChanged_) fields["Rotation"].text = NumText(sk.Rotation);
    fields["SelectedZone"].text =
        "Drawing zone " + std::to_string(z) + ": " + TrimName(ZoneName(z));
}

void DrawFormController::NameFocus(int zone) {
    if (zone < 1 || zone > 25) return;
    eraseMode_ = false;
    screen.SelectedZone = zone;
    PaintColor = ZoneColor(zone);
    ShowSelected();
}

void DrawFormController::NameEdited(int zone, const std::string& text) {
    if (zone < 1 || zone > 25) return;
    fields.At("znname", zone - 1).text = text;
    session_.model.flags.SketchInfoChanged = 1;
}

std::string DrawFormController::ZoneName(int zone) const {
    return fields.Text("znname_" + std::to_string(zone - 1));
}

int DrawFormController::SelectedZone() const {
    return screen.SelectedZone;
}

Color DrawFormController::ZoneColorOf(int zone) const {
    return ZoneColor(zone);
}

PointerShape DrawFormController::Pointer(double x, double y) const {
    if (x < kLegendEdge) return PointerShape::Arrow;
    if (!InsideSheet(x, y)) return PointerShape::Arrow;
    if (eraseMode_) return PointerShape::Erase;
    return tool_ == Tool::Matrix ? PointerShape::Paint : PointerShape::Cross;
}

Color DrawFormController::ColorAtSheet(double x, double y) const {
    const Point p = SheetToPixel(canvas_, x, y);
    return canvas_.ColorAt(p.x, p.y);
}

IsoScene DrawFormController::Scene() const {
    const SketchState& sk = session_.model.sketch;
    const SketchScreen& sc = screen;
    IsoScene scene;
    scene.drawingScale = sk.DrawingScale;
    scene.units = session_.model.session.Units;
    for (int L = 1; L <= sk.TopFloor; ++L) {
        scene.levelHeight.push_back(sk.LevelHeight[L]);
        for (int z = 1; z <= 25; ++z) {
            if (sc.ZoneLabelX[L][z] == 0) continue;
            const PlanRect r{sc.ZoneRectLeft[L][z], sc.ZoneRectTop[L][z], sc.ZoneRectRight[L][z],
                             sc.ZoneRectBottom[L][z]};
            if (r.left == r.right || r.top == r.bottom) continue;
            scene.zones.push_back({L, z, r, ZoneColor(z)});
        }
    }
    return scene;
}

// ---- the model's routines ---------------------------------------------------------------

SketchContext DrawFormController::Context() {
    return SketchContext{session_, screen, canvas_, prompt_, [this](SketchContext&) { Redraw(); }};
}

bool DrawFormController::LoadFiles() {
    SketchContext ctx = Context();
    return LoadSketchFiles(ctx);
}

void DrawFormController::Show(int level) {
    SketchContext ctx = Context();
    if (!ShowLevel(ctx, level)) {
        prompt_.Ask("Level " + std::to_string(level) + " of the drawing could not be read from " +
                        LevelFilePath(session_.paths, level).string() + ".",
                    "Building Sketch", Buttons::Ok, Icon::Exclamation);
        return;
    }
    ScanLevel(ctx);
}

void DrawFormController::Scan() {
    SketchContext ctx = Context();
    ScanLevel(ctx);
}

void DrawFormController::WriteLevel() {
    SketchContext ctx = Context();
    if (!WriteLevelFile(ctx))
        prompt_.Ask("The level file " +
                        LevelFilePath(session_.paths, session_.model.sketch.CurrentLevel).string() +
                        " could not be written.",
                    "Building Sketch", Buttons::Ok, Icon::Exclamation);
}

void DrawFormController::RemoveLevel() {
    SketchContext ctx = Context();
    if (!RemoveLevelFromAll(ctx))
        prompt_.Ask("The level could not be removed: the drawing's files could not be written.",
                    "Building Sketch", Buttons::Ok, Icon::Exclamation);
}

bool DrawFormController::AddLevel() {
    ProjectModel& m = session_.model;
    SketchState& sk = m.sketch;
    const int from = sk.TopFloor, level = sk.TopFloor + 1;
    if (level > kMaxLevels) {
        prompt_.Ask("A drawing holds at most " + std::to_string(kMaxLevels) + " levels.",
                    "Maximum Levels Exceeded", Buttons::Ok, Icon::Exclamation);
        return false;
    }
    const auto text = ReadTextFile(LevelFilePath(session_.paths, from));
    std::vector<std::string> lines = text ? SplitLines(*text) : std::vector<std::string>{};
    if (lines.size() < kMatrixHeaderLines) {
        prompt_.Ask("Level " + std::to_string(from) + " of the drawing could not be read.",
                    "Building Sketch", Buttons::Ok, Icon::Exclamation);
        return false;
    }
    // The copy is one floor: its floors and section area say so.
    const float floorArea = MatrixHeaderValue(lines[4]);
    lines[2] = MatrixHeaderLine(3, 1);
    lines[5] = MatrixHeaderLine(6, floorArea);
    LineWriter out;
    for (const std::string& line : lines) out.Line(line);
    if (!WriteFileAtomic(LevelFilePath(session_.paths, level), out.Str())) {
        prompt_.Ask("The level file " + LevelFilePath(session_.paths, level).string() +
                        " could not be written.",
                    "Building Sketch", Buttons::Ok, Icon::Exclamation);
        return false;
    }
    screen.NewLevelPending = 1;
    sk.Stories += 1;
    sk.TopFloor = static_cast<std::int16_t>(level);
    sk.LevelFloors[level] = 1;
    m.BuildingFloorAreaEntered += floorArea;
    return true;
}

bool DrawFormController::JoinTo(const std::string& file) {
    // The level files are joined the way the end of the sketch joins them,
    // and bld_mtx.all is put back: the sketch is not finished by a save.
    const auto all = session_.paths.Resolve(kMatrixAllFile);
    const auto before = ReadTextFile(all);
    bool ok = JoinLevelFiles(session_);
    std::error_code ec;
    if (ok) {
        std::filesystem::copy_file(all, file, std::filesystem::copy_options::overwrite_existing,
                                   ec);
        ok = !ec;
    }
    if (before) WriteFileAtomic(all, *before);
    return ok;
}

}  // namespace solvane
