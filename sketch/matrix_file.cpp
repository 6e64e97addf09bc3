#include "sketch/matrix_file.h"

#include <algorithm>

#include "core/numeric_helpers.h"
#include "core/text_cuts.h"

namespace solvane {

namespace {

// Puts `text` at `column` (from 1). A field that ran past the column is cut
// back, so that every field keeps its place.
void PlaceAt(std::string& line, std::size_t column, std::string_view text) {
    line.resize(column - 1, ' ');
    line += text;
}

bool StartsWithWord(std::string_view line, std::string_view word) {
    if (line.size() < word.size()) return false;
    const char first = line[0];
    return (first == word[0] || first == word[0] - 'A' + 'a') &&
           line.substr(1, word.size() - 1) == word.substr(1);
}

}  // namespace

std::string MatrixHeaderLine(int index, float value) {
    std::string line(MatrixHeaderLabel()[static_cast<std::size_t>(index)]);
    PlaceAt(line, 13, ":");
    return line + StrForm(value);
}

std::string MatrixZoneLine(int zone, const ZoneLineFields& f) {
    std::string line = "ZoneName[" + std::to_string(zone);
    PlaceAt(line, 12, "]:");
    PlaceAt(line, 14, f.name.substr(0, std::min(f.name.size(), kZoneNameWidth)));
    PlaceAt(line, kZoneLabelXColumn, PrintNum(f.labelX));
    PlaceAt(line, kZoneLabelYColumn, PrintNum(f.labelY));
    PlaceAt(line, kZoneCeilingColumn, PrintNum(f.ceilingHt));
    PlaceAt(line, kZoneRectLeftColumn, PrintNum(f.left));
    PlaceAt(line, kZoneRectTopColumn, PrintNum(f.top));
    PlaceAt(line, kZoneRectRightColumn, PrintNum(f.right));
    PlaceAt(line, kZoneRectBottomColumn, PrintNum(f.bottom));
    return line;
}

std::string MatrixGridLine(const std::array<std::int16_t, kSketchCols + 1>& row) {
    std::string line(kSketchCols + 1, ' ');
    for (int j = 1; j <= kSketchCols; ++j) line[static_cast<std::size_t>(j - 1)] = CellCode(row[j]);
    return line;
}

float MatrixHeaderValue(std::string_view line) {
    return static_cast<float>(NumVal(cuts::Mid(line, 14, 8)));
}

ZoneLineFields ReadZoneLine(std::string_view line) {
    const auto field = [&](int column) {
        return static_cast<float>(NumVal(cuts::Mid(line, static_cast<std::size_t>(column), 5)));
    };
    ZoneLineFields f;
    f.name = cuts::TrimRight(cuts::Mid(line, 14, 20));
    f.labelX = field(kZoneLabelXColumn);
    f.labelY = field(kZoneLabelYColumn);
    f.ceilingHt = field(kZoneCeilingColumn);
    f.left = field(kZoneRectLeftColumn);
    f.top = field(kZoneRectTopColumn);
    f.right = field(kZoneRectRightColumn);
    f.bottom = field(kZoneRectBottomColumn);
    return f;
}

int ZoneLineNumber(std::string_view line) {
    const auto open = line.find('[');
    if (open == std::string_view::npos) return 0;
    const auto close = line.find(']', open);
    const double n = NumVal(line.substr(open + 1, close - open - 1));
    // Beyond any zone number a figure names no zone.
    return n > -1000 && n < 1000 ? static_cast<int>(n) : 0;
}

bool IsZoneLine(std::string_view line) {
    return StartsWithWord(line, "Zone");
}

bool IsLevelStart(std::string_view line) {
    return StartsWithWord(line, "Grid");
}

std::filesystem::path LevelFilePath(const ProgramPaths& paths, int level) {
    return paths.Resolve("\\sketch\\bld_mtx.i" + LevelSuffix(level));
}

}  // namespace solvane
