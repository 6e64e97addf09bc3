#include "sketch/derive_zones.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <optional>
#include <utility>

#include "core/line_writer.h"
#include "core/numeric_helpers.h"
#include "core/text_cuts.h"
#include "core/text_file.h"
#include "sketch/matrix_file.h"
#include "sketch/sketch_files.h"

namespace solvane {

namespace {

// The three shading words: [0] nothing, [1] building on the first diagonal,
// [2] on the second; " F" front obstruction, " T" code overhang.
constexpr const char* kShadeWord[] = {" N0.", " R1.", " L1."};

using LevelCells = std::array<std::array<std::int16_t, kSketchCols + 2>, kSketchRows + 2>;

// A side's neighbour step and its two diagonals, rows counted from the top.
struct SideScan {
    int di, dj;    // the adjacent cell
    int rdi, rdj;  // first diagonal
    int ldi, ldj;  // second diagonal
};
constexpr SideScan kSides[5] = {
    {0, 0, 0, 0, 0, 0},      // sides count from 1
    {-1, 0, -1, -1, -1, 1},  // north: up; up-left; up-right
    {0, 1, -1, 1, 1, 1},     // east: right; up-right; down-right
    {1, 0, 1, 1, 1, -1},     // south: down; down-right; down-left
    {0, -1, 1, -1, -1, -1},  // west: left; down-left; up-left
};

bool InGrid(int i, int j) {
    return i >= 1 && i <= kSketchRows && j >= 1 && j <= kSketchCols;
}

bool OnOuterEdge(int side, int i, int j) {
    switch (side) {
        case 1:
            return i == 1;
        case 2:
            return j == kSketchCols;
        case 3:
            return i == kSketchRows;
        default:
            return j == 1;
    }
}

// Building met along a diagonal, one cell each way a step.
bool DiagonalBlocked(const LevelCells& g, int i, int j, int di, int dj) {
    for (i += di, j += dj; InGrid(i, j); i += di, j += dj)
        if (g[i][j] > 0) return true;
    return false;
}

// Distance in cells to the first building straight ahead, 0 when none.
int StraightDistance(const LevelCells& g, int i, int j, int di, int dj) {
    for (int n = 1;; ++n) {
        i += di;
        j += dj;
        if (!InGrid(i, j)) return 0;
        if (g[i][j] > 0) return n;
    }
}

// The derivation's own working files under temp are written in place.
bool WriteWorkFile(const std::filesystem::path& path, std::string_view text) {
    std::error_code ec;
    std::filesystem::remove(path, ec);
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out.write(text.data(), static_cast<std::streamsize>(text.size()));
    return static_cast<bool>(out);
}

std::string KindText(int kind) {
    return cuts::LeftJustify(std::to_string(kind), 4);
}

bool SameSurface(const SurfaceEntry& a, const SurfaceEntry& b) {
    return a.zone == b.zone && a.side == b.side && a.rightFin == b.rightFin &&
           a.leftFin == b.leftFin && a.front == b.front && a.kind == b.kind;
}

}  // namespace

// Equal entries merge into the first: a later equal entry is replaced by the
// last one, which is tested next.
void MergeEntries(std::vector<SurfaceEntry>& e) {
    for (std::size_t s = 0; s < e.size(); ++s) {
        e[s].count = 1;
        for (std::size_t t = s + 1; t < e.size();) {
            if (SameSurface(e[s], e[t])) {
                ++e[s].count;
                e[t] = e.back();
                e.pop_back();
            } else {
                ++t;
            }
        }
    }
}

// By zone: the smallest zone of the rest, the first found at that value, is
// swapped into place. Below the top level a roof then walks down behind the
// walls of its zone.
void OrderEntries(std::vector<SurfaceEntry>& e, bool topLevel) {
    const std::size_t n = e.size();
    for (std::size_t s = 0; s + 1 < n; ++s) {
        std::size_t best = s;
        for (std::size_t t = s + 1; t < n; ++t)
            if (e[t].zone < e[best].zone) best = t;
        if (best != s) std::swap(e[s], e[best]);
    }
    if (topLevel) return;
    for (std::size_t s = 0; s + 1 < n; ++s)
        if (e[s].kind == kRoofKind && e[s + 1].zone == e[s].zone && e[s + 1].kind != kFloorKind)
            std::swap(e[s], e[s + 1]);
}

namespace {

std::optional<std::vector<std::string>> ReadLevel(const Session& session, int level) {
    const auto text = ReadTextFile(LevelFilePath(session.paths, level));
    if (!text) return std::nullopt;
    return SplitLines(*text);
}

void LoadGrid(const std::vector<std::string>& lines, LevelCells& grid) {
    for (std::size_t n = kMatrixHeadLines; n < lines.size() && n < kMatrixLines; ++n) {
        const int i = static_cast<int>(n) - kMatrixHeadLines + 1;
        const std::string& line = lines[n];
        const std::size_t width = std::min<std::size_t>(line.size(), kSketchCols);
        for (std::size_t j = 0; j < width; ++j)
            grid[i][j + 1] = static_cast<std::int16_t>(CellZone(line[j]));
    }
}

class Deriver {
  public:
    explicit Deriver(const Session& s) : s_(s), m_(s.model), sk_(s.model.sketch) {}

    DerivedSketch Run() {
        DerivedSketch out;
        if (sk_.TopFloor < 1) return out;
        if (sk_.TopFloor > kMaxLevels) return Refuse(out, "The sketch has more levels than 50.");
        double totalHeight = 0;
        for (int l = 1; l <= sk_.TopFloor; ++l) totalHeight += Table(sk_.LevelHeight, l);
        double belowHeight = 0;
        out.levels.reserve(static_cast<std::size_t>(sk_.TopFloor));
        for (int l = 1; l <= sk_.TopFloor; ++l) {
            const double heightAbove = totalHeight - belowHeight;
            belowHeight += Table(sk_.LevelHeight, l);
            DerivedLevel& level = out.levels.emplace_back();
            if (!DeriveLevel(l, heightAbove, level, out)) return out;
            for (const DerivedZone& z : level.zones)
                out.buildingFloorArea += Floors(l, level) * z.floorArea;
        }
        return out;
    }

  private:
    template <typename T>
    static double Table(const T& table, int level) {
        return level >= 0 && level < static_cast<int>(table.size()) ? table[level] : 0.0;
    }
    // A level's figures as they stand when it is derived: the level on screen
    // has just taken those of its file.
    float Floors(int l, const DerivedLevel& level) const {
        return l == sk_.CurrentLevel ? level.floors : static_cast<float>(Table(sk_.LevelFloors, l));
    }
    float CeilingHt(int l, const DerivedLevel& level) const {
        return l == sk_.CurrentLevel ? level.ceilingHt
                                     : static_cast<float>(Table(sk_.LevelCeilingHt, l));
    }

    static DerivedSketch& Refuse(DerivedSketch& out, const std::string& text,
                                 const std::string& title = "Building sketch") {
        out.errorTitle = title;
        out.errorText = text;
        return out;
    }

    bool DeriveLevel(int l, double heightAbove, DerivedLevel& level, DerivedSketch& out) {
        level.level = l;
        const auto lines = ReadLevel(s_, l);
        if (!lines) {
            Refuse(out, "The sketch of level " + std::to_string(l) +
                            " cannot be read: " + LevelFilePath(s_.paths, l).string());
            return false;
        }
        grid_ = {};
        LoadGrid(*lines, grid_);
        ReadHead(*lines, l, level);
        const bool top = l == sk_.TopFloor;
        next_ = {};
        if (!top) {
            const auto above = ReadLevel(s_, l + 1);
            if (above) LoadGrid(*above, next_);
        }

        std::array<int, kLevelZones + 1> cells{}, roofCells{};
        int highest = 0;
        std::vector<SurfaceEntry>& e = level.entries;
        e.clear();
        for (int i = 1; i <= kSketchRows; ++i)
            for (int j = 1; j <= kSketchCols; ++j) {
                const int z = grid_[i][j];
                if (z <= 0) continue;
                ++cells[static_cast<std::size_t>(z)];
                highest = std::max(highest, z);
                for (int side = 1; side <= 4; ++side) {
                    const SideScan& sc = kSides[side];
                    SurfaceEntry entry;
                    entry.zone = static_cast<std::int16_t>(z);
                    entry.side = static_cast<std::int16_t>(side);
                    if (!OnOuterEdge(side, i, j)) {
                        if (grid_[i + sc.di][j + sc.dj] > 0) continue;
                        if (DiagonalBlocked(grid_, i, j, sc.rdi, sc.rdj)) entry.rightFin = 1;
                        if (DiagonalBlocked(grid_, i, j, sc.ldi, sc.ldj)) entry.leftFin = 2;
                        const int n = StraightDistance(grid_, i, j, sc.di, sc.dj);
                        if (n > 0)
                            entry.front = FrontObstruction(heightAbove, sk_.GridSize * (n - 1.0));
                    }
                    if (static_cast<int>(e.size()) >= kMaxSurfaceEntries) return TooMany(out, l);
                    e.push_back(entry);
                }
                if (!top && next_[i][j] == 0) ++roofCells[static_cast<std::size_t>(z)];
            }

        MergeEntries(e);
        for (int z = 1; z <= highest; ++z) {
            if (cells[static_cast<std::size_t>(z)] == 0) continue;
            const int roof = roofCells[static_cast<std::size_t>(z)];
            if (roof > 0 || top) {
                if (static_cast<int>(e.size()) >= kMaxSurfaceEntries) return TooMany(out, l);
                e.push_back({static_cast<std::int16_t>(z), 1, 0, 0, 0, kRoofKind, roof});
            }
            if (l == 1) {
                if (static_cast<int>(e.size()) >= kMaxSurfaceEntries) return TooMany(out, l);
                e.push_back({static_cast<std::int16_t>(z), 1, 0, 0, 0, kFloorKind, 0});
            }
        }
        OrderEntries(e, top);

        // The zone list and the perimeter strip.
        const double cellArea = static_cast<double>(sk_.GridSize) * sk_.GridSize;
        std::array<int, kLevelZones + 1> slot{};
        for (int z = 1; z <= highest; ++z) {
            if (cells[static_cast<std::size_t>(z)] == 0) continue;
            DerivedZone& dz = level.zones.emplace_back();
            dz.zone = z;
            dz.number = ZoneNumberText(l, z);
            dz.name = names_[static_cast<std::size_t>(z)];
            dz.floorArea = RoundOff(cells[static_cast<std::size_t>(z)] * cellArea, 1);
            slot[static_cast<std::size_t>(z)] = static_cast<int>(level.zones.size());
        }
        const double depth = m_.session.Units == 2 ? 1.0 : 3.0;
        for (const SurfaceEntry& entry : e) {
            if (entry.kind == kRoofKind || entry.kind == kFloorKind) continue;
            DerivedZone& dz = level.zones[static_cast<std::size_t>(slot[entry.zone] - 1)];
            const double grown = dz.perimeterArea + depth * sk_.GridSize * entry.count;
            dz.perimeterArea =
                static_cast<float>(std::min(grown, static_cast<double>(dz.floorArea)));
        }

        // The surfaces of each entry.
        for (std::size_t s = 0; s < e.size(); ++s) {
            DerivedZone& dz = level.zones[static_cast<std::size_t>(slot[e[s].zone] - 1)];
            if (!AddSurfaces(e[s], static_cast<int>(s) + 1, l, level, dz, out)) return false;
        }
        return true;
    }

    bool TooMany(DerivedSketch& out, int l) {
        Refuse(out,
               "Level " + std::to_string(l) +
                   " of the sketch makes more than 3300 pieces of "
                   "exterior surface.  Simplify the outline of its zones (fewer single cells, "
                   "notches and gaps) and exit again.",
               "Too many surfaces");
        return false;
    }

    // The header, the zone lines and the names of a level file.
    void ReadHead(const std::vector<std::string>& lines, int l, DerivedLevel& level) {
        level.floors = static_cast<float>(Table(sk_.LevelFloors, l));
        level.ceilingHt = static_cast<float>(Table(sk_.LevelCeilingHt, l));
        for (int z = 1; z <= kLevelZones; ++z)
            names_[static_cast<std::size_t>(z)] = DefaultZoneName(l, z);
        for (std::size_t n = 0; n < lines.size() && n < kMatrixHeadLines; ++n) {
            const std::string& line = lines[n];
            if (n == 2) level.floors = MatrixHeaderValue(line);
            if (n == 3) level.ceilingHt = MatrixHeaderValue(line);
            if (n < kMatrixHeaderLines) continue;
            const int z = static_cast<int>(n) - kMatrixHeaderLines + 1;
            const ZoneLineFields f = ReadZoneLine(line);
            if (!cuts::IsBlankText(f.name) && f.name.rfind(" Zone", 0) != 0)
                names_[static_cast<std::size_t>(z)] = f.name;
            level.ceilingHt = f.ceilingHt;
            level.rectLeft[static_cast<std::size_t>(z)] = f.left;
            level.rectTop[static_cast<std::size_t>(z)] = f.top;
            level.rectRight[static_cast<std::size_t>(z)] = f.right;
            level.rectBottom[static_cast<std::size_t>(z)] = f.bottom;
        }
    }

    bool AddSurfaces(const SurfaceEntry& entry, int s, int l, const DerivedLevel& level,
                     DerivedZone& dz, DerivedSketch& out) {
        const double cellArea = static_cast<double>(sk_.GridSize) * sk_.GridSize;
        ZoneSurface first;
        first.wallId = " 6  ";
        first.exposure = KindText(entry.kind);
        ZoneSurface second;
        bool twoRecords = false;
        if (entry.kind == kWallKind) {
            first.area =
                RoundOff(entry.count * static_cast<double>(sk_.GridSize) * CeilingHt(l, level), 1);
        } else if (entry.kind == kFloorKind) {
            first.wallId = " 10 ";
            first.area = RoundOff(dz.perimeterArea, 1);
            const double ratio = dz.perimeterArea > 0.1 ? dz.floorArea / dz.perimeterArea : 0.0;
            if (ratio > 1) {
                twoRecords = true;
                second.area = RoundOff(static_cast<double>(dz.floorArea) - dz.perimeterArea, 1);
                const int step = std::min(static_cast<int>(std::ceil(ratio)) - 1, 6);
                second.exposure = KindText(70 + step);
            }
        } else {
            const int type = m_.session.BuildingType;
            first.wallId = type == 24 || type == 33 ? " 2  " : " 1  ";
            first.area =
                l == sk_.TopFloor ? RoundOff(dz.floorArea, 1) : RoundOff(entry.count * cellArea, 1);
        }

        float azimuth = static_cast<float>((entry.side - 1) * 90) + sk_.Rotation;
        if (azimuth >= 360) azimuth -= 360;
        int orient = 0;
        if (entry.kind <= kRoofKind) {
            orient = static_cast<int>(std::floor((azimuth + 45) / 90));
            if (orient == 4) orient = 0;
            if (entry.kind == kRoofKind) {
                azimuth = 0;
                orient = 4;
            }
        } else {
            azimuth = 0;
        }

        std::string third = " N0.";
        if (entry.front > 0) {
            third = entry.front < 1 ? " F" + NumText(entry.front) : std::string(" F1.");
        } else if (entry.kind < kRoofKind) {
            const float lat = m_.climate.Latitude;
            const bool sunny =
                orient == 1 || orient == 3 || (orient == 2 && lat > 0) || (orient == 0 && lat < 0);
            if (sunny) {
                if (s > kMaxOverhangRows) {
                    Refuse(out,
                           "Level " + std::to_string(l) +
                               " of the sketch has more than 100 "
                               "surfaces before its last wall that takes the code's overhang.  "
                               "Simplify the outline of the level and exit again.",
                           "Too many shaded walls");
                    return false;
                }
                const auto& table = l == 1 ? m_.sizer.OverhangFirst : m_.sizer.OverhangUpper;
                std::string figure =
                    NumText(table[static_cast<std::size_t>(s)][static_cast<std::size_t>(orient)]);
                third = " T" + figure;
            }
        }
        first.shade = std::string(kShadeWord[entry.rightFin]) + kShadeWord[entry.leftFin] + third;
        first.azimuth = azimuth;
        first.orientIndex = orient;
        first.glazed = entry.kind <= kRoofKind;
        first.wall = entry.kind == kWallKind;

        if (first.area > 0) dz.surfaces.push_back(first);
        if (twoRecords) {
            ZoneSurface inner = first;
            inner.area = second.area;
            inner.exposure = second.exposure;
            if (inner.area > 0) dz.surfaces.push_back(inner);
        }
        return true;
    }

    const Session& s_;
    const ProjectModel& m_;
    const SketchState& sk_;
    LevelCells grid_{}, next_{};
    std::array<std::string, kLevelZones + 1> names_;
};

// The zone file: fourteen lines a surface, then "end". Window areas come from
// the sizer when it is in force, otherwise from the window table as it stands.
std::string ZoneFileText(const DerivedZone& dz, const ProjectModel& m, int slot,
                         SurfaceTable<float>& windows) {
    const bool si = m.session.Units == 2;
    const int digits = std::max<int>(m.session.UnitsIndex, 0);
    LineWriter out;
    int surface = 0;
    for (const ZoneSurface& sf : dz.surfaces) {
        ++surface;
        std::string window = " 0.0";
        if (sf.glazed) {
            float area = 0;
            const bool stored = slot >= 1 && slot <= kMaxZones && surface <= kMaxSurfaces;
            if (m.sizer.WindowSizerApplied == 1) {
                area =
                    RoundOff(static_cast<double>(sf.area) *
                                 m.sizer.WindowFraction[static_cast<std::size_t>(sf.orientIndex)],
                             digits);
                if (!si && area < 1) area = 0;
                if (stored) windows[slot][surface] = area;
            } else if (stored) {
                area = windows[slot][surface];
            }
            window = PrintNum(area);
        }
        out.Line(sf.wallId);
        out.Line(PrintNum(sf.area));
        out.Line(PrintNum(sf.azimuth));
        out.Line(sf.exposure);
        out.Line(sf.shade);
        out.Line(" 1  ");
        out.Line(window);
        out.Line(sf.wall ? "90" : "0");
        out.Line("B");
        out.Line(PrintNum(0));
        out.Line(PrintNum(0));
        out.Line(PrintNum(si ? 0.75f : 2.5f));
        out.Line(PrintNum(si ? 2.25f : 7.5f));
        out.Line("0.0");
    }
    out.Line("end");
    return out.Str();
}

}  // namespace

float FrontObstruction(double height, double distance) {
    return RoundOff(std::sin(std::atan2(height, distance)), 1);
}

DerivedSketch DeriveSurfaces(const Session& session) {
    return Deriver(session).Run();
}

bool DeriveZones(Session& session, SketchScreen& screen, Prompt& prompt) {
    ProjectModel& m = session.model;
    SketchState& sk = m.sketch;
    m.session.UnitsIndex = static_cast<std::int16_t>(m.session.Units == 2 ? 1 : 0);
    if (sk.TopFloor < 1) {
        // Nothing drawn: the zone lists are emptied and the zones stay as they are.
        return WriteWorkFile(session.paths.Resolve(kZoneNameFile), "") &&
               WriteWorkFile(session.paths.Resolve(kZoneAreaFile), "");
    }
    const DerivedSketch derived = DeriveSurfaces(session);
    if (!derived.Ok()) {
        prompt.Ask(derived.errorText, derived.errorTitle, Buttons::Ok, Icon::Exclamation);
        return false;
    }
    std::size_t zoneCount = 0;
    for (const DerivedLevel& level : derived.levels) zoneCount += level.zones.size();
    if (zoneCount > kMaxZones) {
        prompt.Ask("The sketch holds " + std::to_string(zoneCount) +
                       " zones, more than the 100 zones a project can describe.  Remove zones "
                       "from the sketch and exit again.",
                   "Too many zones", Buttons::Ok, Icon::Exclamation);
        return false;
    }
    const auto fail = [&](const std::string& file) {
        prompt.Ask("The zone files cannot be written: " + session.paths.Resolve(file).string(),
                   "Building sketch", Buttons::Ok, Icon::Exclamation);
        return false;
    };

    // The files first, so that a failed write leaves the model as it was. A
    // zone's slot in the model is its place in the list; a zone with no
    // exposed surface still gets its file.
    const std::string rotationText = screen.fields.Text("Rotation");
    LineWriter names, areas;
    const auto tempDir = session.paths.Resolve("\\temp");
    auto windows = m.surfaces.SurfWindowArea;
    int slot = 0;
    for (const DerivedLevel& level : derived.levels) {
        if (level.level == 1) areas.Line("Zone..Area ");
        for (const DerivedZone& dz : level.zones) {
            ++slot;
            names.Text(dz.number).Column(6).Text(cuts::Left(dz.name, kZoneNameWidth)).EndLine();
            areas.Text(dz.number).Column(6).Num(dz.floorArea).EndLine();
            const std::string file = "temp" + dz.number + ".zon";
            if (!WriteWorkFile(tempDir / file, ZoneFileText(dz, m, slot, windows)))
                return fail("\\temp\\" + file);
        }
    }
    names.Line("99");
    areas.Line(rotationText).Line("99");
    if (!WriteWorkFile(session.paths.Resolve(kZoneNameFile), names.Str()))
        return fail(kZoneNameFile);
    if (!WriteWorkFile(session.paths.Resolve(kZoneAreaFile), areas.Str()))
        return fail(kZoneAreaFile);

    // The zone list of the model; zones that disappeared stay beyond NumZones.
    slot = 0;
    for (const DerivedLevel& level : derived.levels)
        for (const DerivedZone& dz : level.zones) {
            ++slot;
            m.zones.ZoneName[slot] = dz.name;
            m.zones.ZoneNumber[slot] = dz.number;
            m.zones.ZoneFloorArea[slot] = dz.floorArea;
            m.zones.ZoneSurfaceCount[slot] = static_cast<std::int16_t>(dz.surfaces.size());
        }
    m.zones.NumZones = slot;
    m.surfaces.SurfWindowArea = windows;
    m.BuildingFloorArea = derived.buildingFloorArea;
    m.BuildingFloorAreaEntered = RoundOff(m.BuildingFloorArea, 0);
    sk.RotationText = rotationText;
    m.BuildingOrientation = rotationText;  // what the project information shows after a re-sketch

    // The level on screen holds the figures of the last level read.
    const int current = sk.CurrentLevel;
    const DerivedLevel& last = derived.levels.back();
    if (current >= 1 && current <= kLevelTable) {
        sk.LevelFloors[current] = last.floors;
        sk.LevelCeilingHt[current] = last.ceilingHt;
    }
    if (current >= 1 && current <= kMaxLevels)
        for (int z = 1; z <= kLevelZones; ++z) {
            const auto k = static_cast<std::size_t>(z);
            screen.ZoneRectLeft[current][z] = last.rectLeft[k];
            screen.ZoneRectTop[current][z] = last.rectTop[k];
            screen.ZoneRectRight[current][z] = last.rectRight[k];
            screen.ZoneRectBottom[current][z] = last.rectBottom[k];
        }

    if (!JoinLevelFiles(session)) return fail(kMatrixAllFile);
    return true;
}

}  // namespace solvane
