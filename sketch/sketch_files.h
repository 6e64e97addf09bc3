// The sketch's files and its level on screen: entering the sketch, splitting
// bld_mtx.all into the level files, writing and showing a level, reading the
// cells back from the canvas, removing a level.
#pragma once

#include <functional>

#include "core/session.h"
#include "sketch/sketch_model.h"
#include "ui/canvas.h"
#include "ui/prompt.h"

namespace solvane {

// What the sketch routines work on while the sketch screen is open.
struct SketchContext {
    Session& session;
    SketchScreen& screen;
    Canvas& canvas;
    Prompt& prompt;
    // Repaints the sheet from SketchGrid after a level was made current; the
    // sketch screen puts its full redraw here. Unset: the cells alone are painted.
    std::function<void(SketchContext&)> redraw = {};
};

// The prompt of a drawing that cannot be read; the program is then to end.
inline constexpr const char* kSketchFailureText =
    "An error has been encountered. Solvane will now close; restart Solvane and re-load your "
    "project file.";
inline constexpr const char* kSketchFailureTitle = "Unknown graphics error number.";

// Runs each time the sketch screen loads: splits bld_mtx.all into the level
// files (adding the zone lines 11..25 of old drawings, widening old narrow
// grids, giving a new SI drawing grid 1 and room height 3.5), fills the
// model's level figures and the screen's fields, then shows level 1 and scans
// it. On a drawing that cannot be read the failure prompt is shown and false
// returned; bld_mtx.all is left as it was.
bool LoadSketchFiles(SketchContext& ctx);

// Writes the level on screen to its level file. Zone numbers absent from the
// cells lose their area, label and rectangle first. False when the file
// cannot be written.
bool WriteLevelFile(SketchContext& ctx);

// Makes `level` current: reads its level file into SketchGrid (rows past an
// early end of the file stay as they were), the header, the name boxes and
// the label and rectangle tables; takes grid size and rotation from level 1;
// fills the level's boxes and redraws. False when the file cannot be read.
bool ShowLevel(SketchContext& ctx, int level);

// Reads every cell of the sheet back from the canvas colours into SketchGrid
// (white and the grey of the level below are empty; a colour that is no
// zone's leaves the cell as it was), recomputes the zones' areas, the level's
// floor and section area and the building's area.
void ScanLevel(SketchContext& ctx);

// Rewrites bld_mtx.all from every level file but the current one, lowers
// TopFloor and loads the sketch again. False when it could not be done.
bool RemoveLevelFromAll(SketchContext& ctx);

// Joins the first 91 lines of each level file 1..TopFloor into bld_mtx.bak
// and renames it to bld_mtx.all. A level file ending early ends the copy;
// the rename is still made. False when the files cannot be written.
bool JoinLevelFiles(const Session& session);

}  // namespace solvane
