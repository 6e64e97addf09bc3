// The building sketch's working tables: what the sketch screen holds while it
// is open, beside the building-wide figures of SketchState in the project
// model. The sheet is 60 rows by 90 columns of cells; each level holds up to
// 25 zones, a zone being whatever set of cells carries its number.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "core/project_model.h"
#include "ui/canvas.h"
#include "ui/screen_fields.h"

namespace solvane {

inline constexpr int kLevelZones = 25;                 // zone numbers 1..25 on a level
inline constexpr int kMaxLevels = 50;                  // the rectangle tables' bound
inline constexpr int kLevelSuffixes = 200;             // level file suffixes 1..200
inline constexpr int kGridStep = 10;                   // canvas units per cell
inline constexpr int kMatrixLines = kSketchRows + 31;  // lines of one level block
inline constexpr int kMatrixHeaderLines = 6;
inline constexpr int kMatrixHeadLines = kMatrixHeaderLines + kLevelZones;  // header and zone lines

inline constexpr Color kWhite = 0xFFFFFF;
inline constexpr Color kLowerLevelGrey = 0xE1E1E1;  // RGB (225,225,225): outline of the level below

// The sketch files under the program folder.
inline constexpr const char* kMatrixAllFile = "\\sketch\\bld_mtx.all";
inline constexpr const char* kMatrixBakFile = "\\sketch\\bld_mtx.bak";
inline constexpr const char* kMatrixTemplateFile = "\\sketch\\bld_mtx9.000";

// Rectangle and label tables, [level 0..50][zone 0..25].
template <typename T>
using LevelZoneTable = std::array<std::array<T, kLevelZones + 1>, kMaxLevels + 1>;

// Everything the sketch screen `DrawForm` holds while it is open. Its named
// fields are those of the screen: gridsize, Rotation, num_floors, ceiling_ht,
// Level, Stories, BldgArea, zone_area, draw_unit and znname_0 .. znname_24
// (the box of zone z is znname_<z-1>).
struct SketchScreen {
    ScreenFields fields;
    std::array<float, kMatrixHeaderLines + 1> MatrixHeader{};  // [1]..[6] as in the file
    std::array<float, kLevelZones + 2> ZoneSketchArea{};       // [1..25] area on this level
    LevelZoneTable<float> ZoneRectLeft{}, ZoneRectTop{}, ZoneRectRight{}, ZoneRectBottom{};
    LevelZoneTable<std::int16_t> ZoneLabelX{}, ZoneLabelY{};  // ZoneLabelX 0: number unused
    std::int16_t SelectedZone = 1;
    Flag NewLevelPending = 0;
    bool SheetClicked = false;  // the user has clicked the sheet since the screen opened

    // The name box of zone z (1..25).
    FieldState& ZoneNameBox(int z) { return fields.At("znname", z - 1); }
    std::string ZoneNameText(int z) const;
};

// The six header labels, [1] "Grid Size" .. [6] "Section Area".
const std::array<std::string_view, kMatrixHeaderLines + 1>& MatrixHeaderLabel();

// File suffix of a level: its number as digits for 1..98 and 100..200; 99
// and anything out of range give "".
std::string LevelSuffix(int level);

// "1-3": level suffix, "-", zone suffix; the zone number text of the model.
std::string ZoneNumberText(int level, int zone);

// " Zone 1-3": the name a zone has until the user gives it one.
std::string DefaultZoneName(int level, int zone);

// Matrix cell code: "0".."9", then "A" = 10 .. "P" = 25.
char CellCode(int zone);
// The zone number of a cell code. A character outside "0".."9" is its code
// minus 55; anything that is then not a zone number 0..25 (a blank from an
// upgraded old drawing) reads as 0.
int CellZone(char code);

// Colour of zone z (1..25); 0 or 26 give the empty colour, white. Built from
// the 16-colour palette; entries 15..24 are shifted by 32 in the colour number
// so that all 25 differ as numbers.
Color ZoneColor(int zone);
// Adds `delta` to a colour number in the program's colour arithmetic (the
// low byte of the number is red).
Color ShiftColorNumber(Color color, int delta);
// The zone whose colour this is, 0 for the empty colours (white and the grey
// of the level below), -1 for a colour that is no zone's.
int ZoneOfColor(Color color);

// The sheet's user scale: x from -100 at the left to 900 at the right, y from
// 600 at the top to 0 at the bottom, mapped onto the whole canvas.
Point SheetToPixel(const Canvas& canvas, double x, double y);
// Fills the box between two sheet points; the far edges are exclusive so that
// boxes that meet don't overlap.
void SheetFillBox(Canvas& canvas, double x1, double y1, double x2, double y2, Color color);
// Paints every cell of `grid` in its zone's colour on a white sheet.
void PaintSketchGrid(Canvas& canvas, const SketchState& sketch);

}  // namespace solvane
