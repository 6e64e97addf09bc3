// From the cells of every level to the project's zones: each cell edge that
// faces outside becomes a piece of wall, classed by side and by what stands
// in front of it; equal pieces of a zone merge into one surface; roofs and
// floors are added; each zone's surfaces go to its \temp\temp<zone>.zon file
// and the zone list to \temp\zname.tmp and \temp\zarea.tmp.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/session.h"
#include "sketch/sketch_model.h"
#include "ui/prompt.h"

namespace solvane {

// Bounds of the derivation's tables; a sketch beyond them is refused.
inline constexpr int kMaxSurfaceEntries = 3300;  // surface pieces of one level
inline constexpr int kMaxOverhangRows = 100;     // surface index of a wall with the code overhang

inline constexpr const char* kZoneNameFile = "\\temp\\zname.tmp";
inline constexpr const char* kZoneAreaFile = "\\temp\\zarea.tmp";

// Exposure of a surface entry: 2 wall, 6 roof, 7 floor on the ground; the
// floor's inner part is 71..76.
enum SurfaceKind : std::int16_t { kWallKind = 2, kRoofKind = 6, kFloorKind = 7 };

// One candidate surface of a level: a number of unit cell edges (or cells)
// with the same zone, side and surroundings.
struct SurfaceEntry {
    std::int16_t zone = 0;
    std::int16_t side = 1;      // 1 north, 2 east, 3 south, 4 west, as drawn
    std::int16_t rightFin = 0;  // 1 when building stands on the first diagonal
    std::int16_t leftFin = 0;   // 2 when building stands on the second diagonal
    float front = 0;            // front obstruction factor, 0 for none
    std::int16_t kind = kWallKind;
    int count = 0;
};

// One surface as it goes to a zone file.
struct ZoneSurface {
    std::string wallId;  // " 6  " wall, " 1  "/" 2  " roof, " 10 " floor
    float area = 0;
    float azimuth = 0;
    std::string exposure;  // "2   ", "6   ", "7   ", "71  ".."76  "
    std::string shade;     // three shading words
    int orientIndex = 0;   // 0..3 wall direction, 4 skylight
    bool glazed = false;   // walls and roofs take windows from the sizer
    bool wall = false;
};

// The surfaces of one zone of a level, in file order.
struct DerivedZone {
    int zone = 0;
    std::string number;  // "3-12"
    std::string name;
    float floorArea = 0;
    float perimeterArea = 0;
    std::vector<ZoneSurface> surfaces;
};

struct DerivedLevel {
    int level = 0;
    std::vector<SurfaceEntry> entries;  // in their final order
    std::vector<DerivedZone> zones;     // zones with cells, by number
    // The figures read from the level file, which the level on screen takes over.
    float floors = 0, ceilingHt = 0;
    std::array<float, kLevelZones + 1> rectLeft{}, rectTop{}, rectRight{}, rectBottom{};
};

struct DerivedSketch {
    std::vector<DerivedLevel> levels;
    float buildingFloorArea = 0;
    // Why the sketch could not be derived; empty when it could.
    std::string errorTitle, errorText;
    bool Ok() const { return errorText.empty(); }
};

// The sine of the angle that an obstruction of `height` at `distance` stands
// over the horizon, rounded to one decimal.
float FrontObstruction(double height, double distance);

// Merges the entries that agree in zone, side, diagonals, front factor and
// kind into the first of them, counting the merged ones; a merged entry's slot
// takes the last entry, which is tested next.
void MergeEntries(std::vector<SurfaceEntry>& entries);
// Orders the entries by zone (a selection: the first of the smallest zones is
// swapped into place); below the top level each roof then walks down behind
// the walls of its zone, stopping at a floor or the next zone.
void OrderEntries(std::vector<SurfaceEntry>& entries, bool topLevel);

// Works out the surfaces of every level from the level files, without
// writing anything. Reads TopFloor, LevelHeight, LevelCeilingHt, LevelFloors,
// GridSize, Rotation, CurrentLevel, the units, the building type, the
// latitude and the window sizer's overhangs.
DerivedSketch DeriveSurfaces(const Session& session);

// The whole step at the sketch's Exit: derives the surfaces, refuses more
// zones than the project holds, writes the zone files, zname.tmp and zarea.tmp, fills the zone list
// of the model (NumZones, ZoneNumber, ZoneName, ZoneFloorArea, ZoneSurfaceCount, SurfWindowArea,
// the building's floor areas, RotationText) and joins the level files into bld_mtx.all. A sketch
// beyond the tables' bounds, or files that cannot be read or written, are told to the user and give
// false; the model and bld_mtx.all are then left as they were.
bool DeriveZones(Session& session, SketchScreen& screen, Prompt& prompt);

}  // namespace solvane
