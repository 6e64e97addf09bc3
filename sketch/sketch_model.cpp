#include "sketch/sketch_model.h"

#include <algorithm>
#include <cmath>

namespace solvane {

std::string SketchScreen::ZoneNameText(int z) const {
    const FieldState* f = fields.Find("znname_" + std::to_string(z - 1));
    return f ? f->text : std::string();
}

const std::array<std::string_view, kMatrixHeaderLines + 1>& MatrixHeaderLabel() {
    static constexpr std::array<std::string_view, kMatrixHeaderLines + 1> kLabels = {
        "", "Grid Size", "Rotation", "No. of Flrs", "Room Height", "Floor Area", "Section Area"};
    return kLabels;
}

std::string LevelSuffix(int level) {
    if (level < 1 || level > kLevelSuffixes || level == 99) return {};
    return std::to_string(level);
}

std::string ZoneNumberText(int level, int zone) {
    return LevelSuffix(level) + "-" + LevelSuffix(zone);
}

std::string DefaultZoneName(int level, int zone) {
    return " Zone " + std::to_string(level) + "-" + std::to_string(zone);
}

char CellCode(int zone) {
    if (zone < 0 || zone > kLevelZones) zone = 0;
    return zone < 10 ? static_cast<char>('0' + zone) : static_cast<char>(zone + 55);
}

int CellZone(char code) {
    if (code >= '0' && code <= '9') return code - '0';
    const int z = static_cast<unsigned char>(code) - 55;
    return z >= 10 && z <= kLevelZones ? z : 0;
}

Color ShiftColorNumber(Color color, int delta) {
    // The colour number holds red in its low byte: blue, green, red from the top.
    const int red = static_cast<int>((color >> 16) & 0xFF) + delta;
    return (color & 0x00FFFF) | (static_cast<Color>(red & 0xFF) << 16);
}

Color ZoneColor(int zone) {
    const int n = zone - 1;
    if (n < 0 || n >= kLevelZones) return PaletteColor(15);
    if (n <= 14) return PaletteColor(n);
    if (n <= 22) return ShiftColorNumber(PaletteColor(n - 11), 32);
    return ShiftColorNumber(PaletteColor(n - 11), -32);
}

int ZoneOfColor(Color color) {
    if (color == kWhite || color == kLowerLevelGrey) return 0;
    for (int z = 1; z <= kLevelZones; ++z)
        if (ZoneColor(z) == color) return z;
    return -1;
}

Point SheetToPixel(const Canvas& canvas, double x, double y) {
    return {static_cast<int>(std::floor((x + 100.0) * canvas.Width() / 1000.0)),
            static_cast<int>(std::floor((600.0 - y) * canvas.Height() / 600.0))};
}

void SheetFillBox(Canvas& canvas, double x1, double y1, double x2, double y2, Color color) {
    const Point a = SheetToPixel(canvas, std::min(x1, x2), std::max(y1, y2));
    const Point b = SheetToPixel(canvas, std::max(x1, x2), std::min(y1, y2));
    if (b.x <= a.x || b.y <= a.y) return;
    canvas.FillBox(a.x, a.y, b.x - 1, b.y - 1, color);
}

void PaintSketchGrid(Canvas& canvas, const SketchState& sketch) {
    SheetFillBox(canvas, 0, 0, kSketchCols * kGridStep, kSketchRows * kGridStep, kWhite);
    for (int i = 1; i <= kSketchRows; ++i)
        for (int j = 1; j <= kSketchCols; ++j) {
            const int z = sketch.SketchGrid[i][j];
            if (z < 1 || z > kLevelZones) continue;
            SheetFillBox(canvas, kGridStep * (j - 1), kGridStep * (i - 1), kGridStep * j,
                         kGridStep * i, ZoneColor(z));
        }
}

}  // namespace solvane
