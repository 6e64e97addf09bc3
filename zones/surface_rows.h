// The envelope surfaces of the zone screen: fourteen text buffers of up to
// 33 rows, twelve of them shown at a time, with the rules of each column.
#pragma once

#include <array>
#include <string>

#include "core/project_model.h"
#include "ui/prompt.h"
#include "ui/screen_fields.h"

namespace solvane {

inline constexpr int kShownRows = 12;
inline constexpr int kSurfaceColumns = 14;
inline constexpr Color kRed = 0xFF0000;
inline constexpr Color kBlack = 0x000000;

// The column controls, in table order.
inline constexpr const char* kSurfaceColumn[kSurfaceColumns] = {
    "wallid", "wallarea", "orient", "surf", "shade", "windowid", "winarea",
    "slope",  "swb",      "blind",  "diff", "sill",  "topwin",   "reflect"};

enum SurfaceColumnIndex : int {
    kColWallId,
    kColWallArea,
    kColOrient,
    kColSurf,
    kColShade,
    kColWindowId,
    kColWinArea,
    kColSlope,
    kColSwb,
    kColBlind,
    kColDiff,
    kColSill,
    kColTopWin,
    kColReflect,
};

// Decimals of areas on the zone screen: whole square feet, tenths of a square metre.
int DecimalPlaces(int units);

// Direction 0 north .. 3 west, 4 skylight, of a surface for the window
// fractions: orientations up to 315 degrees count by quadrant (315 itself is
// west), above it north.
int WindowDirection(int exposure, int orient);
// The same for the overhang test and the copy to zones: below 315 by
// quadrant, from 315 on north.
int ShadeDirection(int exposure, int orient);

// Index of a column control name, -1 when not one.
int SurfaceColumnOf(const std::string& name);

struct SurfaceBuffers {
    std::array<TextTable<kMaxSurfaces>, kSurfaceColumns> col;
    std::string& At(int column, int row) { return col[column][row]; }
    const std::string& At(int column, int row) const { return col[column][row]; }
};

// The rows of one zone on the screen and the rules on them.
class SurfaceRows {
  public:
    SurfaceRows(ProjectModel& model, const FixedLabels& labels, ScreenFields& fields)
        : model_(model), labels_(labels), fields_(fields) {}

    // FillSurfaceBuffers: the tables of `zone` into the buffers, then the
    // first twelve rows shown.
    void Fill(int zone);
    // ClearSurfaceTable.
    void Clear();
    // ScrollSurfaces: row `top` + 1 comes to the first box.
    void Scroll(int top);
    int Top() const { return top_; }
    // The box of buffer row `row`, when shown.
    FieldState* Box(int column, int row);
    // A box typed in: the buffer follows.
    void Edit(int column, int box, const std::string& text);

    // A key typed in a box of the column; false when the key is dropped
    // (after the column's prompt). Letters that are turned to capitals come
    // back changed in `key`.
    bool Key(int column, char& key, Prompt& prompt);

    // A box left after a change: the row rules (door defaults, catalog
    // search, window area rounding). False when the value was refused.
    bool Leave(int column, int box, Prompt& prompt);
    // The door row, as a wall ID of the door class gives it.
    void DoorDefaults(int row);
    // Exposure code from the `ExtSurface` menu entry (0..7) into row `box`.
    void ChooseExposure(int box, int entry);

    // OK's five checks in order; false leaves the screen open.
    bool Check(Prompt& prompt, bool& windowAlertAnswered);
    // SaveZoneFromScreen, surface part: buffers into the tables of `zone`.
    void Save(int zone);

    SurfaceBuffers buffers;

  private:
    void ShowRow(int row);
    void MarkRow(int row, Color color);
    bool InWallCatalog(double id) const;
    bool InWindowCatalog(double id) const;

    ProjectModel& model_;
    const FixedLabels& labels_;
    ScreenFields& fields_;
    int top_ = 0;
};

// The wall ID text of a row: class label, a blank and the ID's text form.
std::string WallIdText(const FixedLabels& labels, int id);
// The number a wall ID text stands for: that of its last two characters.
int WallIdNumber(const std::string& text);

}  // namespace solvane
