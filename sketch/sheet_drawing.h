// What the sketch draws on its sheet besides the zones' cells: the grid dots,
// the legend of zone colours, the north arrow, guide shapes and zone names,
// all placed in sheet units (x -100..900, y 0..600, y up).
#pragma once

#include <functional>
#include <string>

#include "sketch/sketch_model.h"
#include "ui/canvas.h"

namespace solvane {

inline constexpr int kSheetWidth = kSketchCols * kGridStep;
inline constexpr int kSheetHeight = kSketchRows * kGridStep;
inline constexpr double kLegendEdge = -85;  // x below this is the legend column
// Palette entry 0 plus 16: dots, guides and outlines that no zone colour equals.
inline constexpr Color kDotColor = 0x100000;
inline constexpr Color kArrowColor = 0x0000FF;
inline constexpr int kNameFontSize = 5;

// A line and a circle outline between sheet points.
void SheetLine(Canvas& canvas, double x1, double y1, double x2, double y2, Color color);
void SheetCircle(Canvas& canvas, double cx, double cy, double radius, Color color);
// Fills cell (row, column), row 1 at the bottom of the sheet.
void FillCell(Canvas& canvas, int row, int column, Color color);
// A dotted outline between two grid nodes.
void DottedOutline(Canvas& canvas, int x1, int y1, int x2, int y2, Color color);

// A dot on every grid node; every 40 units a wider one.
void DrawGridDots(Canvas& canvas);
// One filled box per zone down the legend column; zone z's colour from `color`.
void DrawLegend(Canvas& canvas, const std::function<Color(int)>& color);
// The zone whose legend box holds sheet height y, 0 for none.
int LegendZoneAt(double y);
// The needle, turned by the building's rotation, with N, E, S, W around it.
void DrawNorthArrow(Canvas& canvas, float rotation);

// A zone's name printed with its top left at (x, y), in a colour that reads
// on the zone's colour and is no zone's colour.
void PrintZoneName(Canvas& canvas, double x, double y, const std::string& name, Color zoneColor);
// Width of a printed name in sheet units.
int NameWidth(const std::string& name);

// The zone name text as shown: no blanks around it.
std::string TrimName(const std::string& name);

}  // namespace solvane
