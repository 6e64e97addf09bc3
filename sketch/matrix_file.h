// The text of a level block, the unit of every sketch file: six header lines
// ("Grid Size   : 2"), 25 zone lines and 60 grid lines, the top row first.
// bld_mtx.all is the level blocks one after the other; bld_mtx.i<n> holds one.
#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

#include "core/program_paths.h"
#include "sketch/sketch_model.h"

namespace solvane {

// Columns of the numeric fields of a zone line, each read back as five characters.
inline constexpr int kZoneLabelXColumn = 35;
inline constexpr int kZoneLabelYColumn = 42;
inline constexpr int kZoneCeilingColumn = 49;
inline constexpr int kZoneRectLeftColumn = 56;
inline constexpr int kZoneRectTopColumn = 63;
inline constexpr int kZoneRectRightColumn = 70;
inline constexpr int kZoneRectBottomColumn = 77;
inline constexpr std::size_t kZoneNameWidth = 19;

// The figures of one zone line.
struct ZoneLineFields {
    std::string name;  // at most 19 characters are written
    float labelX = 0, labelY = 0, ceilingHt = 0;
    float left = 0, top = 0, right = 0, bottom = 0;
};

// "Grid Size   : 2": the label of header line `index` (1..6), ":" at column
// 13, the value in text form from column 14.
std::string MatrixHeaderLine(int index, float value);
// "ZoneName[3 ]: <name>" and the numeric fields at their columns.
std::string MatrixZoneLine(int zone, const ZoneLineFields& fields);
// The 90 cell codes of one grid row, column 1 first, and one blank.
std::string MatrixGridLine(const std::array<std::int16_t, kSketchCols + 1>& row);

// A header value: the number in the eight characters from column 14.
float MatrixHeaderValue(std::string_view line);
// A zone line's figures: the numbers in five characters from each column;
// the name is the 20 characters from column 14, trailing blanks removed.
ZoneLineFields ReadZoneLine(std::string_view line);
// The zone number between "ZoneName[" and "]", 0 when there is none.
int ZoneLineNumber(std::string_view line);

// A line that begins "Zone" or "zone".
bool IsZoneLine(std::string_view line);
// A line that begins "Grid" or "grid": the start of a level block.
bool IsLevelStart(std::string_view line);

// \sketch\bld_mtx.i<suffix>, the working copy of one level.
std::filesystem::path LevelFilePath(const ProgramPaths& paths, int level);

}  // namespace solvane
