#include "sketch/sketch_files.h"

#include <filesystem>
#include <optional>
#include <vector>

#include "core/line_writer.h"
#include "core/numeric_helpers.h"
#include "core/text_cuts.h"
#include "core/text_file.h"
#include "sketch/matrix_file.h"

namespace solvane {

namespace {

constexpr int kMaxMatrixFileLines = 10000;
constexpr int kRemoveLinesPerLevel = 200;

float DefaultGridSize(int units) {
    return units == 2 ? 1.0f : 2.0f;
}

std::string Joined(const std::vector<std::string>& lines) {
    LineWriter out;
    for (const std::string& line : lines) out.Line(line);
    return out.Str();
}

std::optional<std::vector<std::string>> ReadLines(const std::filesystem::path& path) {
    const auto text = ReadTextFile(path);
    if (!text) return std::nullopt;
    return SplitLines(*text);
}

void Fail(Prompt& prompt) {
    prompt.Ask(kSketchFailureText, kSketchFailureTitle, Buttons::Ok, Icon::Critical);
}

// Splitting bld_mtx.all into level files, one level block at a time.
class MatrixSplitter {
  public:
    MatrixSplitter(SketchContext& ctx) : ctx_(ctx), m_(ctx.session.model) {}

    // False when the drawing cannot be split.
    bool Split(const std::vector<std::string>& lines) {
        SketchState& sk = m_.sketch;
        const std::size_t count = std::min<std::size_t>(lines.size(), kMaxMatrixFileLines);
        for (std::size_t n = 0; n <= count; ++n) {
            const bool atEnd = n == count;
            if (atEnd || IsLevelStart(lines[n])) {
                if (open_ && !CloseLevel()) return false;
                if (atEnd) break;
                if (sk.TopFloor >= kMaxLevels) return false;
                ++sk.CurrentLevel;
                ++sk.TopFloor;
                levelLines_ = zoneLines_ = 0;
                prefix_ = " ";
                block_.clear();
                open_ = true;
            }
            if (open_) Take(lines[n]);
        }
        return sk.TopFloor > 0;
    }

  private:
    void Take(std::string line) {
        SketchState& sk = m_.sketch;
        const int level = sk.CurrentLevel;
        if (levelLines_ >= kMatrixLines) return;  // a block ends at its 91st line

        // Old drawings carry ten zones: the lines for 11 to 25 are added, and
        // their narrow grid rows move four columns to the right.
        if (zoneLines_ == 10 && !IsZoneLine(line)) {
            for (int z = 11; z <= kLevelZones; ++z) {
                ZoneLineFields f;
                f.name = DefaultZoneName(level, z);
                Put(MatrixZoneLine(z, f));
            }
            zoneLines_ = kLevelZones;
            prefix_ = "0000";
        }
        if (IsZoneLine(line)) ++zoneLines_;

        // A new drawing in SI: grid 1 metre and room height 3.5 metres.
        if (m_.session.Units == 2 && sk.FreshMatrix == 1) {
            if (levelLines_ == 0) line = cuts::Left(line, 13) + " 1";
            if (levelLines_ == 3) line = cuts::Left(line, 13) + " 3.5";
        }

        // Rows of an old narrow grid are widened to 90 columns behind the
        // prefix; rows of full width are taken as they stand.
        if (levelLines_ >= kMatrixHeadLines && line.size() < kSketchCols) {
            line = prefix_ + cuts::Left(line, 48 - prefix_.size()) + std::string(42, '0');
        }
        if (levelLines_ < kMatrixHeaderLines) TakeHeader(levelLines_ + 1, line);
        Put(line);
    }

    void TakeHeader(int index, const std::string& line) {
        SketchState& sk = m_.sketch;
        SketchScreen& sc = ctx_.screen;
        const float value = MatrixHeaderValue(line);
        const int level = sk.CurrentLevel;
        sc.MatrixHeader[static_cast<std::size_t>(index)] = value;
        switch (index) {
            case 1:
                sk.GridSize = value;
                sk.DrawingScale = value / kGridStep;
                sc.fields["gridsize"].text = NumText(value);
                break;
            case 2:
                sk.Rotation = value;
                sc.fields["Rotation"].text = NumText(value);
                break;
            case 3:
                sk.LevelFloors[level] = value;
                sk.Stories += value;
                sc.fields["num_floors"].text = NumText(value);
                break;
            case 4:
                sk.LevelCeilingHt[level] = value;
                sk.LevelHeight[level] =
                    static_cast<double>(sk.LevelFloors[level]) * sk.LevelCeilingHt[level];
                sc.fields["ceiling_ht"].text = NumText(value);
                break;
            default:
                break;
        }
    }

    void Put(std::string line) {
        block_.push_back(std::move(line));
        ++levelLines_;
    }

    bool CloseLevel() {
        if (levelLines_ > 1 && levelLines_ < kMatrixLines) {
            while (levelLines_ < kMatrixLines) Put(std::string(kSketchCols, '0'));
        }
        open_ = false;
        return WriteFileAtomic(LevelFilePath(ctx_.session.paths, m_.sketch.CurrentLevel),
                               Joined(block_));
    }

    SketchContext& ctx_;
    ProjectModel& m_;
    bool open_ = false;
    int levelLines_ = 0;
    int zoneLines_ = 0;
    std::string prefix_ = " ";
    std::vector<std::string> block_;
};

// A figure that truncates into a 16-bit field.
bool FitsInt16(float v) {
    return v > -32769.0f && v < 32768.0f;
}

// A zone line's label place fits its 16-bit fields; a drawing with one that
// does not cannot be read.
bool LabelFits(const ZoneLineFields& f) {
    return FitsInt16(f.labelX) && FitsInt16(f.labelY);
}

// Every zone line of a level's lines has a label place that fits.
bool LabelsFit(const std::vector<std::string>& lines) {
    for (std::size_t n = kMatrixHeaderLines; n < lines.size() && n < kMatrixLines; ++n) {
        const int z = IsZoneLine(lines[n]) ? ZoneLineNumber(lines[n]) : 0;
        if (z >= 1 && z <= kLevelZones && !LabelFits(ReadZoneLine(lines[n]))) return false;
    }
    return true;
}

// A zone line's label place and rectangle. False, with nothing taken, when
// the label place does not fit.
bool TakeZoneLine(SketchScreen& sc, int level, int z, const ZoneLineFields& f) {
    if (!LabelFits(f)) return false;
    sc.ZoneLabelX[level][z] = static_cast<std::int16_t>(f.labelX);
    sc.ZoneLabelY[level][z] = static_cast<std::int16_t>(f.labelY);
    sc.ZoneRectLeft[level][z] = f.left;
    sc.ZoneRectTop[level][z] = f.top;
    sc.ZoneRectRight[level][z] = f.right;
    sc.ZoneRectBottom[level][z] = f.bottom;
    return true;
}

// The floor areas and the zones' labels and rectangles of every level, from
// the head lines of the level files.
bool ReadLevelHeads(SketchContext& ctx) {
    ProjectModel& m = ctx.session.model;
    SketchScreen& sc = ctx.screen;
    m.BuildingFloorAreaEntered = 0;
    for (int level = 1; level <= m.sketch.TopFloor; ++level) {
        const auto lines = ReadLines(LevelFilePath(ctx.session.paths, level));
        if (!lines) return false;
        for (std::size_t n = 0; n < lines->size() && n < kMatrixHeadLines; ++n) {
            const std::string& line = (*lines)[n];
            // The section area, from column 14 like every header value: a
            // value written without its leading blank still reads whole.
            if (n == 5) m.BuildingFloorAreaEntered += MatrixHeaderValue(line);
            if (!IsZoneLine(line)) continue;
            const int z = ZoneLineNumber(line);
            if (z < 1 || z > kLevelZones) continue;
            if (!TakeZoneLine(sc, level, z, ReadZoneLine(line))) return false;
        }
    }
    m.BuildingFloorArea = m.BuildingFloorAreaEntered;
    sc.fields["BldgArea"].text = "BldArea=" + StrForm(RoundOff(m.BuildingFloorArea, 0));
    return true;
}

std::string ZoneAreaText(const SketchScreen& sc) {
    const int z = sc.SelectedZone >= 1 && sc.SelectedZone <= kLevelZones ? sc.SelectedZone : 1;
    return "Zn area=" + StrForm(RoundOff(sc.ZoneSketchArea[static_cast<std::size_t>(z)], 1));
}

}  // namespace

bool LoadSketchFiles(SketchContext& ctx) {
    ProjectModel& m = ctx.session.model;
    SketchState& sk = m.sketch;
    SketchScreen& sc = ctx.screen;

    sk.GridSize = DefaultGridSize(m.session.Units);
    sk.DrawingScale = sk.GridSize / kGridStep;
    sc.SelectedZone = 1;
    sc.ZoneSketchArea.fill(0);
    sk.Stories = 0;
    sc.fields["zone_area"].text = "Zn area= 0";
    sc.fields["draw_unit"].text = m.session.Units == 2 ? "(Metres)" : "(Feet)";
    for (auto& row : sk.SketchGrid) row.fill(0);

    const auto lines = ReadLines(ctx.session.paths.Resolve(kMatrixAllFile));
    sk.CurrentLevel = sk.TopFloor = 0;
    if (!lines || !MatrixSplitter(ctx).Split(*lines) || !ReadLevelHeads(ctx)) {
        sk.CurrentLevel = 0;
        Fail(ctx.prompt);
        return false;
    }

    sk.CurrentLevel = 0;
    sk.FreshMatrix = 0;
    if (!ShowLevel(ctx, 1)) {
        Fail(ctx.prompt);
        return false;
    }
    ScanLevel(ctx);
    m.flags.ProjectTouched = 1;
    return true;
}

bool WriteLevelFile(SketchContext& ctx) {
    ProjectModel& m = ctx.session.model;
    SketchState& sk = m.sketch;
    SketchScreen& sc = ctx.screen;
    const int level = sk.CurrentLevel;
    if (level < 1 || level > kMaxLevels) return false;

    std::array<bool, kLevelZones + 1> used{};
    for (int i = 1; i <= kSketchRows; ++i)
        for (int j = 1; j <= kSketchCols; ++j) {
            const int z = sk.SketchGrid[i][j];
            if (z >= 1 && z <= kLevelZones) used[static_cast<std::size_t>(z)] = true;
        }
    for (int z = 1; z <= kLevelZones; ++z) {
        if (used[static_cast<std::size_t>(z)]) continue;
        sc.ZoneSketchArea[static_cast<std::size_t>(z)] = 0;
        sc.ZoneLabelX[level][z] = sc.ZoneLabelY[level][z] = 0;
        sc.ZoneRectLeft[level][z] = sc.ZoneRectTop[level][z] = 0;
        sc.ZoneRectRight[level][z] = sc.ZoneRectBottom[level][z] = 0;
    }

    sc.MatrixHeader[1] = sk.GridSize;
    sc.MatrixHeader[2] = sk.Rotation;
    sc.MatrixHeader[3] = sk.LevelFloors[level];
    sc.MatrixHeader[4] = sk.LevelCeilingHt[level];

    LineWriter out;
    for (int k = 1; k <= kMatrixHeaderLines; ++k) out.Line(MatrixHeaderLine(k, sc.MatrixHeader[k]));
    for (int z = 1; z <= kLevelZones; ++z) {
        ZoneLineFields f;
        f.name = sc.ZoneNameText(z);
        if (f.name.empty()) f.name = DefaultZoneName(level, z);
        f.labelX = sc.ZoneLabelX[level][z];
        f.labelY = sc.ZoneLabelY[level][z];
        f.ceilingHt = sk.LevelCeilingHt[level];
        f.left = sc.ZoneRectLeft[level][z];
        f.top = sc.ZoneRectTop[level][z];
        f.right = sc.ZoneRectRight[level][z];
        f.bottom = sc.ZoneRectBottom[level][z];
        out.Line(MatrixZoneLine(z, f));
    }
    for (int i = kSketchRows; i >= 1; --i) out.Line(MatrixGridLine(sk.SketchGrid[i]));
    return WriteFileAtomic(LevelFilePath(ctx.session.paths, level), out.Str());
}

bool ShowLevel(SketchContext& ctx, int level) {
    ProjectModel& m = ctx.session.model;
    SketchState& sk = m.sketch;
    SketchScreen& sc = ctx.screen;
    if (level < 1 || level > kMaxLevels) return false;
    const auto lines = ReadLines(LevelFilePath(ctx.session.paths, level));
    if (!lines || !LabelsFit(*lines)) return false;
    sk.CurrentLevel = static_cast<std::int16_t>(level);

    int row = kSketchRows;
    for (std::size_t n = 0; n < lines->size() && n < kMatrixLines; ++n) {
        const std::string& line = (*lines)[n];
        if (n < kMatrixHeaderLines) {
            sc.MatrixHeader[n + 1] = MatrixHeaderValue(line);
        } else if (IsZoneLine(line)) {
            const int z = ZoneLineNumber(line);
            if (z < 1 || z > kLevelZones) continue;
            const ZoneLineFields f = ReadZoneLine(line);
            sc.ZoneNameBox(z).text = f.name;
            TakeZoneLine(sc, level, z, f);
            sk.LevelCeilingHt[level] = f.ceilingHt;
        } else if (row >= 1) {
            const std::size_t width = std::min<std::size_t>(line.size(), kSketchCols);
            for (std::size_t j = 0; j < width; ++j)
                sk.SketchGrid[row][j + 1] = static_cast<std::int16_t>(CellZone(line[j]));
            --row;
        }
    }
    // Names left blank or in their default form follow the level.
    for (int z = 1; z <= kLevelZones; ++z) {
        std::string& name = sc.ZoneNameBox(z).text;
        if (cuts::IsBlankText(name) || name.rfind(" Zone", 0) == 0)
            name = DefaultZoneName(level, z);
    }

    if (level == 1) {
        sk.GridSize = sc.MatrixHeader[1];
        sk.DrawingScale = sk.GridSize / kGridStep;
        sk.Rotation = sc.MatrixHeader[2];
        sc.fields["gridsize"].text = NumText(sk.GridSize);
        sc.fields["Rotation"].text = NumText(sk.Rotation);
    }
    sk.LevelFloors[level] = sc.MatrixHeader[3];
    sk.LevelCeilingHt[level] = sc.MatrixHeader[4];
    sk.LevelHeight[level] = static_cast<double>(sk.LevelFloors[level]) * sk.LevelCeilingHt[level];
    sc.fields["ceiling_ht"].text = NumText(sk.LevelCeilingHt[level]);
    sc.fields["num_floors"].text = NumText(sk.LevelFloors[level]);
    sc.fields["Level"].text = "Level= " + LevelSuffix(level);
    if (ctx.redraw) {
        ctx.redraw(ctx);
    } else {
        PaintSketchGrid(ctx.canvas, sk);
    }
    sc.fields["Stories"].text =
        "Stories=" + StrForm(sk.Stories) + " (" + NumText(sk.LevelFloors[level]) + ")";
    return true;
}

void ScanLevel(SketchContext& ctx) {
    ProjectModel& m = ctx.session.model;
    SketchState& sk = m.sketch;
    SketchScreen& sc = ctx.screen;
    const int level = sk.CurrentLevel;

    const float rest = m.BuildingFloorAreaEntered - sc.MatrixHeader[6];
    sc.ZoneSketchArea.fill(0);
    sc.MatrixHeader[5] = sc.MatrixHeader[6] = 0;

    const double cellArea = static_cast<double>(sk.GridSize) * sk.GridSize;
    std::array<double, kLevelZones + 1> area{};
    for (int i = 1; i <= kSketchRows; ++i)
        for (int j = 1; j <= kSketchCols; ++j) {
            // The lower quarter of the cell, below any name printed on it.
            const Point p = SheetToPixel(ctx.canvas, kGridStep * (j - 0.5), kGridStep * (i - 0.75));
            const int z = ZoneOfColor(ctx.canvas.ColorAt(p.x, p.y));
            if (z < 0) continue;
            sk.SketchGrid[i][j] = static_cast<std::int16_t>(z);
            if (z > 0) area[static_cast<std::size_t>(z)] += cellArea;
        }
    for (int z = 1; z <= kLevelZones; ++z) {
        const auto k = static_cast<std::size_t>(z);
        sc.ZoneSketchArea[k] = RoundOff(area[k], 1);
        sc.MatrixHeader[5] += sc.ZoneSketchArea[k];
    }
    const float floors = level >= 1 && level <= kLevelTable ? sk.LevelFloors[level] : 1.0f;
    sc.MatrixHeader[6] = floors * sc.MatrixHeader[5];
    m.BuildingFloorAreaEntered = sc.MatrixHeader[6] + rest;
    sc.fields["zone_area"].text = ZoneAreaText(sc);
    sc.fields["BldgArea"].text = "BldArea=" + StrForm(RoundOff(m.BuildingFloorAreaEntered, 0));

    if (!sc.SheetClicked || level < 1 || level > kMaxLevels) return;
    for (int z = 1; z <= kLevelZones; ++z) {
        if (sc.ZoneSketchArea[static_cast<std::size_t>(z)] != 0) continue;
        sc.ZoneNameBox(z).text = DefaultZoneName(level, z);
        sc.ZoneLabelX[level][z] = sc.ZoneLabelY[level][z] = 0;
        sc.ZoneRectTop[level][z] = sc.ZoneRectBottom[level][z] = 0;
    }
}

bool RemoveLevelFromAll(SketchContext& ctx) {
    SketchState& sk = ctx.session.model.sketch;
    std::vector<std::string> all;
    for (int level = 1; level <= sk.TopFloor; ++level) {
        if (level == sk.CurrentLevel) continue;
        const auto lines = ReadLines(LevelFilePath(ctx.session.paths, level));
        if (!lines) return false;
        const std::size_t n = std::min<std::size_t>(lines->size(), kRemoveLinesPerLevel);
        all.insert(all.end(), lines->begin(), lines->begin() + static_cast<std::ptrdiff_t>(n));
    }
    if (!WriteFileAtomic(ctx.session.paths.Resolve(kMatrixAllFile), Joined(all))) return false;
    --sk.TopFloor;
    return LoadSketchFiles(ctx);
}

bool JoinLevelFiles(const Session& session) {
    const ProgramPaths& paths = session.paths;
    LineWriter out;
    for (int level = 1; level <= session.model.sketch.TopFloor; ++level) {
        const auto lines = ReadLines(LevelFilePath(paths, level));
        const std::size_t n = lines ? std::min<std::size_t>(lines->size(), kMatrixLines) : 0;
        for (std::size_t k = 0; k < n; ++k) out.Line((*lines)[k]);
        if (!lines || lines->size() < kMatrixLines) break;
    }
    const auto bak = paths.Resolve(kMatrixBakFile);
    if (!WriteFileAtomic(bak, out.Str())) return false;
    std::error_code ec;
    std::filesystem::rename(bak, paths.Resolve(kMatrixAllFile), ec);
    return !ec;
}

}  // namespace solvane
